#ifndef TLXCORE_CTEMPORARYDIR_H
#define TLXCORE_CTEMPORARYDIR_H

#include <core/tlxCoreExport.h>

#include <QString>
#include <QTemporaryDir>

/**
 * @brief A directory of a fresh, unique name below QDir::tempPath() that is removed with the object.
 *
 * The object has the interface of QTemporaryDir and forwards to one. When the directory could not be created,
 * isValid() is false and path() is empty.
 *
 * @code
 * const CTemporaryDir unpacked;
 * QFile image(CDir::addFileNameToPath(unpacked.path(), QStringLiteral("drive.img")));
 * @endcode
 */
class TLXCORE_EXPORT CTemporaryDir
{
public:
    /// Creates the directory; removal with the object is on.
    CTemporaryDir();

    /// Removes the directory and everything in it (links as links) when autoRemove() is on.
    ~CTemporaryDir();

    CTemporaryDir(const CTemporaryDir&) = delete;
    CTemporaryDir& operator=(const CTemporaryDir&) = delete;

    /// Whether the directory was created.
    bool isValid() const;

    /// The absolute path, without a separator at the end; empty when the directory could not be created.
    QString path() const;

    /// Whether the directory goes when the object does.
    bool autoRemove() const;
    void setAutoRemove(bool autoRemove);

    /// Removes the directory and everything in it now; false when something of it is left or it never was.
    bool remove();

private:
    QTemporaryDir mDirectory;
};

#endif // TLXCORE_CTEMPORARYDIR_H
