#ifndef TLX_EXTRACTION_H
#define TLX_EXTRACTION_H

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QIODevice;

/// Something to make below a folder: a file out of an archive, a directory or a symbolic link.
struct SExtract
{
    enum EKind
    {
        File,
        Directory,
        Link
    };
    EKind kind = File;
    QString path;     ///< As the archive has it.
    QString target;   ///< Of a link.
    qint64 start = 0; ///< Byte of a file's data in the archive.
    qint64 size = 0;  ///< Bytes of it.
};

/**
 * @brief Makes members of an archive below a folder, and nothing outside of it, whatever their names are.
 *
 * Refused are absolute names, "..", names that only another system takes as they are, links whose target may be outside,
 * members that would be written through a link, and, unless `force` is set, what exists already.
 */
class Extraction
{
public:
    /// The folder has to exist when a member is made.
    Extraction(const QString& folder, bool force);

    /// Why the member must not be made; empty when it may. To be asked for all members before any is made.
    QString refusal(const SExtract& member) const;

    /// Makes it; returns what went wrong. `progress` is called with the bytes of the file so far.
    QString make(QIODevice& archive, const SExtract& member, const std::function<void(qint64)>& progress);

private:
    QString makeParents(const QString& path) const;
    QString makeFile(QIODevice& archive, const SExtract& member, const QString& path,
                     const std::function<void(qint64)>& progress) const;

    QString mFolder; // ends in "/"
    bool mForce;
};

/**
 * @brief Copies bytes of a file in blocks; false when the source ends early or `write` returns false.
 * @param copied takes how many bytes were read
 */
bool copyBlocks(QIODevice& source, qint64 start, qint64 size,
                const std::function<bool(const QByteArray&)>& write, qint64& copied);

#endif // TLX_EXTRACTION_H
