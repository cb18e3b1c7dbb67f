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
 * Paths may be relative to the current directory, except in removeDirectory(). Operations touch only the paths they are
 * given:
 * - An empty path, or one that contains a zero character, is rejected by every operation that removes, copies or
 *   trashes; listings find nothing below it.
 * - A path that is a link ("link", "link/") is removed and trashed as a link, whatever it points to. A recursive walk
 *   lists a link to a directory and never descends through it.
 * - The copy or removal of a tree stops at the first failure. Entries that it has not reached stay as they are.
 *
 * Failures are results, never exceptions. Some operations also print a line on standard output. It begins with a line
 * break and contains the path in the local 8-bit encoding.
 *
 * @code
 * const bool copied = CDir::copyFileF(download, CPath::configPath(true) + QStringLiteral("view.ini"));
 * const QFileInfoList motors = CDir::entryInfoList(path, {QStringLiteral("*.mot")}, NtlxGlobal::DIR_FILTER_FILES);
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CDir
{
public:
    /// Results of moveToTrash().
    enum ETrashResult : int
    {
        TRASH_DONE = 0,    ///< The path was moved to the recycle bin.
        TRASH_FAILED = 1,  ///< The system failed; nothing was moved.
        TRASH_NO_PATH = 10 ///< The path does not exist.
    };

    /// Removes one file or link.
    static bool removeFile(const QString& path);

    /// Removes one empty directory, or a link. A relative path is taken relative to QDir::tempPath().
    static bool removeDirectory(const QString& path);

    /**
     * @brief Removes a directory and everything under it, hidden and read-only entries too, or a link alone.
     *
     * @return true if the path does not exist afterwards, also if it did not before; false for a file and for the root
     *         of a file system, which stay untouched
     */
    static bool removeDirectoryRecursive(const QString& path);

    /**
     * @brief Creates the directory `dst` if it does not exist. Copies no contents; `src` is not used.
     *
     * A missing directory is created with its parents and gets the permissions rwxrwxr-x. A failure prints
     * "\nCDir::copyDirectory unable to create %s" with the directory's path.
     */
    static bool copyDirectory(const QString& src, const QString& dst);

    /**
     * @brief Copies a file. Creates the directory of `dst` as copyDirectory() does.
     *
     * An existing `dst` is not overwritten: the copy fails. It also fails for anything but a regular file or a link to
     * one. A failure prints "\nCDir::copyFile unable to copy %s" with `dst`.
     */
    static bool copyFile(const QString& src, const QString& dst);

    /**
     * @brief Copies a file and replaces an existing one. Creates the directory of `dst` as copyDirectory() does.
     *
     * The existing `dst` is renamed to "~" and its name, `src` is copied, and the renamed file is removed whatever the
     * result of the copy: after a failed copy neither the old nor a new file exists. If `dst` is a link, the link is
     * replaced, not followed.
     *
     * Rejected without any change: `dst` and `src` are the same file, by whatever names; `dst` is a directory, a device
     * or a pipe; the name with "~" exists already.
     *
     * @return true if `dst` is the copy
     */
    static bool copyFileF(const QString& src, const QString& dst);

    /**
     * @brief Copies everything under `src` into `dst`, with copyFile() and copyDirectory().
     *
     * The source is listed before the first copy, so `dst` may lie inside `src`. Hidden entries, devices, pipes and
     * dangling links are omitted. A link to a file becomes a copy of that file, one to a directory an empty
     * directory. Stops at the first failure: a file that exists already, a directory that cannot be read, one that
     * has a name not representable in the system's encoding (listings omit those).
     *
     * On Linux the copies are written through to the disk together, after the last one. Where the disk fails then, this
     * is a failure, and the copies are removed.
     *
     * @return true if everything was copied, also if `src` is empty or does not exist; `dst` is not
     *         created then
     */
    static bool copyDirectoryRecursive(const QString& src, const QString& dst);

    /// Does the same, and calls `progress` after every entry with the number of entries copied and the total.
    static bool copyDirectoryRecursive(const QString& src, const QString& dst,
                                       const std::function<void(int done, int total)>& progress);

    /**
     * @brief Returns `path` relative to the directory `basePath`; empty if both are equal.
     *
     * Either may have native separators, the result has "/". Otherwise it is what QDir(basePath).relativeFilePath(path)
     * returns: a relative path comes back cleaned, whatever the base.
     */
    static QString getRelativeSubPath(const QString& basePath, const QString& path);

    /// Returns Qt's flags of a filter, always with hidden entries and without "." and "..".
    static QDir::Filters toDirFilter(NtlxGlobal::EDirFilter filter);

    /// Lists one level of a directory, sorted by name. Without name filters every name matches.
    static QFileInfoList entryInfoList(const QString& path, const QStringList& nameFilters,
                                       QDir::Filters filters);
    /// Lists one level, filtered as toDirFilter() converts the filter.
    static QFileInfoList entryInfoList(const QString& path, const QStringList& nameFilters,
                                       NtlxGlobal::EDirFilter filter);

    /// Lists one level of a directory, sorted by name, without the file names (case-sensitive) in `excludedNames`.
    static QFileInfoList entryInfoList(const QString& path, NtlxGlobal::EDirFilter filter,
                                       const QStringList& excludedNames);

    /// Lists the whole tree under a directory in the order of QDirIterator. Name filters do not limit the descent.
    static QFileInfoList entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                                QDir::Filters filters);
    /// Lists the whole tree, filtered as toDirFilter() converts the filter.
    static QFileInfoList entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                                NtlxGlobal::EDirFilter filter);

    /// Returns `path`, then the path of every entry under it, without hidden ones, in the order of QDirIterator.
    static QStringList listFilesAndDirectories(const QString& path);

    /// Returns the paths of listFilesAndDirectories() as file infos.
    static QFileInfoList listFileAndDirInfos(const QString& path);

    /**
     * @brief Removes a file, a link or, as removeDirectory() does, an empty directory.
     *
     * A failure prints "\n CDir::removeFileOrDirectory: unable to remove %s". Unless the path is a file, it also prints
     * the paths of listFilesAndDirectories(), each as "\n %s", and "\n--------------". So does a missing path.
     *
     * @return true if the path does not exist afterwards, also if it did not before; false for an empty path
     */
    static bool removeFileOrDirectory(const QString& path);

    /// Calls removeFileOrDirectory() on each path in order, also after a failure. Returns true if every call did.
    static bool removeFilesByPathList(const QStringList& paths);

    /**
     * @brief Moves a file, directory or link to the recycle bin, without asking and without a window.
     *
     * On Windows the absolute path must be shorter than 260 UTF-16 code units. Elsewhere the path is moved to the
     * freedesktop.org trash, which is created below the user's data directory if necessary. A dangling link cannot be
     * trashed there.
     *
     * @return An ETrashResult.
     */
    static int moveToTrash(const QString& path);

    /// The same as CPath::addPathToPath().
    static QString addPathToPath(const QString& path, const QString& subPath);

    /// The same as CPath::addFileNameToPath().
    static QString addFileNameToPath(const QString& path, const QString& fileName);
};

#endif // TLXCORE_CDIR_H
