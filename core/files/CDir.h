#ifndef TLXCORE_CDIR_H
#define TLXCORE_CDIR_H

#include <core/files/EDirFilter.h>
#include <core/tlxCoreExport.h>

#include <QDir>
#include <QFileInfoList>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * @brief Copies, removes, lists and trashes files and directory trees.
 *
 * Paths may be relative to the current directory, except where removeDirectory() is concerned. What an operation was
 * asked is what it touches:
 * - An empty path, or one with a zero character in it, is refused by every operation that removes, copies or trashes,
 *   and lists nothing.
 * - A path that is a link ("link", "link/") is removed and trashed as a link, whatever it points to, also to nothing.
 *   A recursive walk lists a link to a directory and never descends through it.
 * - An operation on many entries stops at the first failure; what it had not touched by then stays as it is.
 *
 * Failures are results, never exceptions. Some operations also print a line on standard output, which begins with a
 * line break and carries the path in the local 8-bit encoding.
 *
 * @code
 * if (!CDir::copyFileF(download, CPath::imagePath(true) + QStringLiteral("drive.img"))) { ... }
 * const QFileInfoList motors = CDir::entryInfoList(path, {QStringLiteral("*.mot")}, NtlxGlobal::DIR_FILTER_FILES);
 * @endcode
 */
class TLXCORE_EXPORT CDir
{
public:
    /// Results of moveToTrash().
    enum ETrashResult : int
    {
        TRASH_DONE = 0,    ///< It lies in the recycle bin.
        TRASH_FAILED = 1,  ///< The system refused; nothing was moved.
        TRASH_NO_PATH = 10 ///< There is nothing of this path.
    };

    /// Removes one file or link.
    static bool removeFile(const QString& path);

    /// Removes one empty directory, or a link. A relative path is taken relative to QDir::tempPath().
    static bool removeDirectory(const QString& path);

    /**
     * @brief Removes a directory and everything under it, hidden and read-only entries too, or a link alone.
     *
     * @return true when nothing of this path is left, also when there was nothing; false for a file and for the root
     *         of a file system, which stay untouched
     */
    static bool removeDirectoryRecursive(const QString& path);

    /**
     * @brief Makes sure that the directory `dst` exists; copies no contents, `src` is not looked at.
     *
     * A missing directory is created with its parents and gets the permissions rwxrwxr-x. A failure prints
     * "\nCDir::copyDirectory unable to create %s" with the directory's path.
     */
    static bool copyDirectory(const QString& src, const QString& dst);

    /**
     * @brief Copies a file; makes the directory of `dst` like copyDirectory().
     *
     * An existing `dst` is not overwritten: the copy fails. So does one of anything but a regular file or a link to
     * one. A failure prints "\nCDir::copyFile unable to copy %s" with `dst`.
     */
    static bool copyFile(const QString& src, const QString& dst);

    /**
     * @brief Copies a file over an existing one.
     *
     * The existing `dst` is renamed to "~" and its name, `src` is copied, and the renamed file is removed whatever the
     * copy's result: after a failed copy there is neither the old nor a new file. A link in the place of `dst` is
     * replaced, not followed.
     *
     * Refused, with everything left as it is: `dst` and `src` are the same file, by whatever names; `dst` is a
     * directory, a device or a pipe; something of the name with "~" exists already.
     *
     * @return true when `dst` is the copy
     */
    static bool copyFileF(const QString& src, const QString& dst);

    /**
     * @brief Copies everything under `src` into `dst`, with copyFile() and copyDirectory().
     *
     * The source is listed before the first copy, so `dst` may lie inside `src`. Hidden entries, devices, pipes and
     * links to nothing are left out. A link to a file becomes a copy of that file, one to a directory an empty
     * directory. Stops at the first failure: a file that exists already, a directory that cannot be read, one that
     * holds a name in no encoding of the system, which no listing shows.
     *
     * On Linux the copies are written through to the disk together, after the last one. Where the disk fails then, this
     * is a failure, and the copies are removed.
     *
     * @return true when all is copied, also when there is nothing under `src`; `dst` is not created then
     */
    static bool copyDirectoryRecursive(const QString& src, const QString& dst);

    /// The same, and calls `progress` behind every entry with the number of entries copied and of all.
    static bool copyDirectoryRecursive(const QString& src, const QString& dst,
                                       const std::function<void(int done, int total)>& progress);

    /**
     * @brief `path` as seen from the directory `basePath`; empty when both are equal.
     *
     * Either may have native separators, the result has "/". Otherwise it is what QDir(basePath).relativeFilePath(path)
     * returns: a relative path comes back cleaned, whatever the base.
     */
    static QString getRelativeSubPath(const QString& basePath, const QString& path);

    /// Qt's flags of a filter, always with hidden entries and without "." and "..".
    static QDir::Filters toDirFilter(NtlxGlobal::EDirFilter filter);

    /// One level of a directory, sorted by name. No name filters: every name.
    static QFileInfoList entryInfoList(const QString& path, const QStringList& nameFilters,
                                       QDir::Filters filters);
    static QFileInfoList entryInfoList(const QString& path, const QStringList& nameFilters,
                                       NtlxGlobal::EDirFilter filter);

    /// One level of a directory, sorted by name, without the file names (case-sensitive) in `excludedNames`.
    static QFileInfoList entryInfoList(const QString& path, NtlxGlobal::EDirFilter filter,
                                       const QStringList& excludedNames);

    /// The whole tree under a directory in the order of QDirIterator. Name filters do not limit where it descends.
    static QFileInfoList entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                                QDir::Filters filters);
    static QFileInfoList entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                                NtlxGlobal::EDirFilter filter);

    /// `path` first, then the path of every entry under it, without hidden ones, in the order of QDirIterator.
    static QStringList listFilesAndDirectories(const QString& path);

    /// The same as file infos.
    static QFileInfoList listFileAndDirInfos(const QString& path);

    /**
     * @brief Removes a file, a link or, as removeDirectory() does, an empty directory.
     *
     * A failure prints "\n CDir::removeFileOrDirectory: unable to remove %s", and for what is no file also the paths
     * of listFilesAndDirectories(), each as "\n %s", and "\n--------------". A missing path is such a failure.
     *
     * @return true when nothing of this path is left, also when there was nothing; false for an empty path
     */
    static bool removeFileOrDirectory(const QString& path);

    /// removeFileOrDirectory() on each path in order, also after a failure; true when every one gave true.
    static bool removeFilesByPathList(const QStringList& paths);

    /**
     * @brief Moves a file, directory or link to the recycle bin, without asking and without a window.
     *
     * On Windows the absolute path must be shorter than 260 UTF-16 units. Elsewhere it goes to the trash of
     * freedesktop.org, which is made below the user's data directory when it is missing; a link to nothing cannot be
     * trashed there.
     *
     * @return a value of ETrashResult
     */
    static int moveToTrash(const QString& path);

    /// The same as CPath::addPathToPath().
    static QString addPathToPath(const QString& path, const QString& subPath);

    /// The same as CPath::addFileNameToPath().
    static QString addFileNameToPath(const QString& path, const QString& fileName);
};

#endif // TLXCORE_CDIR_H
