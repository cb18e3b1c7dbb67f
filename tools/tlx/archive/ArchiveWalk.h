#ifndef TLX_ARCHIVEWALK_H
#define TLX_ARCHIVEWALK_H

#include <QByteArray>
#include <QMap>
#include <QString>

class QIODevice;

/// A member of a tar archive with what the library does not read: prefix, extended headers, checksum.
struct SArchiveMember
{
    char typeflag = 0;
    QByteArray name;     ///< The whole name: of a pax record, a GNU long name, or prefix and name.
    QByteArray linkName; ///< The whole target of a link.
    const char* nameFrom =
        "";          ///< Where the whole name is, when not in the name field: "pax", "GNU", "prefix".
    qint64 size = 0; ///< Bytes of data in the archive.
    const char* sizeFrom = ""; ///< Where the size is, when not octal in the size field: "pax", "base-256".
    bool isSizeKnown = true;   ///< False when no field has it.
    bool isChecksumRight =
        true;              ///< POSIX: the sum of the header's bytes, with blanks in place of the checksum.
    bool isSparse = false; ///< The data is stored without its holes.
};

/// Looks further into an archive than the library: every header, by the byte at which it begins.
namespace NArchiveWalk {

/// Walks from the archive's begin to its end, or to what is no header. Nothing but headers is kept in memory.
QMap<qint64, SArchiveMember> walk(QIODevice& archive);

/// True for headers that only say something about the next member or all members.
bool isExtension(char typeflag);

/**
 * @brief What a file is that begins with no header of the ustar format: "gzip data: …", "a tar archive of the old v7
 * format, …"; empty when it is nothing that is known here.
 */
QString otherFormat(QIODevice& file);

/// What the library's view of the member lacks, as texts for people. `shown` is the name as the library has it.
QStringList losses(const SArchiveMember& member, const QString& shown, qint64 shownSize);

} // namespace NArchiveWalk

#endif // TLX_ARCHIVEWALK_H
