#ifndef TLXCORE_CTEMPORARYDIR_H
#define TLXCORE_CTEMPORARYDIR_H

#include <core/tlxCoreExport.h>

#include <QString>
#include <QTemporaryDir>

/**
 * @brief A directory of a fresh, unique name below QDir::tempPath() that is removed with the object.
 *
 * With autoRemove(), its destruction removes the directory and everything in it (links as links). The object has the
 * interface of QTemporaryDir and forwards to one. If the directory could not be created, isValid() is
 * false and path() is empty.
 *
 * @code
 * const CTemporaryDir unpacked;
 * QFile image(CDir::addFileNameToPath(unpacked.path(), QStringLiteral("drive.img")));
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CTemporaryDir
{
public:
    /// Creates the directory. autoRemove() is on.
    CTemporaryDir();

    ~CTemporaryDir();

    CTemporaryDir(const CTemporaryDir&) = delete;
    CTemporaryDir& operator=(const CTemporaryDir&) = delete;

    /// Returns true if the directory was created.
    bool isValid() const;

    /// Returns the absolute path, without a separator at the end; empty if the directory could not be created.
    QString path() const;

    /// Returns whether the directory is removed with the object.
    bool autoRemove() const;
    /// Sets whether the directory is removed with the object.
    void setAutoRemove(bool autoRemove);

    /// Removes the directory and everything in it now. Returns false if a part remains or it was never created.
    bool remove();

private:
    QTemporaryDir mDirectory;
};

#endif // TLXCORE_CTEMPORARYDIR_H
