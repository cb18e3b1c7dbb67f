#include <core/files/CDir.h>

#include <core/files/CPath.h>
#include <core/files/Platform.h>

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cstdio>

namespace {

// What a recursive walk meets: no hidden entries, pipes, devices and links to nothing.
constexpr QDir::Filters WALK_FILTERS = QDir::AllEntries | QDir::NoDotAndDotDot;

// Qt takes an empty path for the current directory, and walks in circles below one that a zero character cuts.
bool isPath(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

// "link/" and "link/." are the directory behind the link for the system, and the link for whoever wrote them.
QString withoutSeparatorAtEnd(const QString& path)
{
    QString text = QDir::fromNativeSeparators(path);
    while (!QDir(text).isRoot() && (text.endsWith(QLatin1Char('/')) || text.endsWith(QLatin1String("/.")))) {
        text.chop(1);
    }
    return text;
}

bool isLink(const QString& path)
{
    return isPath(path) && QFileInfo(withoutSeparatorAtEnd(path)).isSymLink();
}

bool exists(const QString& path)
{
    return isPath(path) && (QFileInfo::exists(path) || isLink(path));
}

bool isRoot(const QFileInfo& directory)
{
    return QDir(directory.canonicalFilePath()).isRoot();
}

// Windows has links that are removed as directories.
bool removeLink(const QString& path)
{
    const QString link = withoutSeparatorAtEnd(path);
    return QFile::remove(link) || QDir().rmdir(link);
}

// Windows refuses to remove a read-only file.
bool removeReadOnlyToo(const QString& file)
{
    if (QFile::remove(file)) {
        return true;
    }
    const QFile::Permissions permissions = QFile::permissions(file);
    if (permissions.testFlag(QFile::WriteUser)
        || !QFile::setPermissions(file, permissions | QFile::WriteUser)) {
        return false;
    }
    const bool removed = QFile::remove(file);
    if (!removed) {
        QFile::setPermissions(file, permissions);
    }
    return removed;
}

bool removeFileOrLink(const QString& path)
{
    return isLink(path) ? removeLink(path) : removeReadOnlyToo(path);
}

// QDir::removeRecursively() would go on after a failure, and may change the permissions of what a link points to.
bool removeTree(const QString& directory)
{
    const QFileInfoList entries =
        QDir(directory).entryInfoList(WALK_FILTERS | QDir::Hidden | QDir::System, QDir::Unsorted);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.filePath();
        const bool isTree = entry.isDir() && !entry.isSymLink();
        if (!(isTree ? removeTree(path) : removeFileOrLink(path))) {
            return false;
        }
    }
    return QDir().rmdir(directory);
}

bool makeDirectory(const QString& directory)
{
    if (!isPath(directory)) {
        return false;
    }
    if (QFileInfo(directory).isDir()) {
        return true;
    }
    CPath::createDirIfWanted(QDir(directory).absolutePath(), true);
    return QFileInfo(directory).isDir();
}

// The path is never part of the format: "%n" in a name is a name.
void print(const char* message, const QString& path)
{
    std::printf("%s%s", message, path.toLocal8Bit().constData());
}

// Only of regular files: a copy of a pipe or of /dev/zero would never end. Never over an existing file.
bool copyRegularFile(const QString& src, const QString& dst)
{
    return QFileInfo(src).isFile() && QFile::copy(src, dst);
}

void printCopyFailure(const QString& dst)
{
    print("\nCDir::copyFile unable to copy ", dst);
}

template <typename Copy>
bool copyIntoDirectory(const QString& src, const QString& dst, Copy copy)
{
    if (isPath(src) && isPath(dst)) {
        makeDirectory(QFileInfo(dst).absolutePath());
        if (QFileInfo(src).isFile() && copy(src, dst)) {
            return true;
        }
    }
    printCopyFailure(dst);
    return false;
}

// Replacing a file needs a file in that place which is not the source itself.
bool isReplaceable(const QString& dst, const QString& src)
{
    const QFileInfo destination(dst);
    return !destination.exists() || (destination.isFile() && destination != QFileInfo(src));
}

// A filter that names no kind of entry matches nothing; Qt would still give links to devices and pipes.
bool canList(const QString& path, QDir::Filters filters)
{
    return isPath(path) && (filters & (QDir::AllEntries | QDir::AllDirs | QDir::System));
}

// What a walk cannot see below a directory would be missing in a copy.
bool hasUnlistedEntries(const QFileInfo& directory)
{
    return !directory.isReadable() || NPlatform::hasUnlistedEntry(directory.filePath());
}

} // namespace

bool CDir::removeFile(const QString& path)
{
    return isPath(path) && (isLink(path) ? removeLink(path) : QFile::remove(path));
}

bool CDir::removeDirectory(const QString& path)
{
    if (!isPath(path)) {
        return false;
    }
    // Not the current directory: callers name their temporary directories by bare names.
    const QDir temporary(QDir::tempPath());
    const QString directory = temporary.filePath(path);
    return isLink(directory) ? removeLink(directory) : temporary.rmdir(path);
}

bool CDir::removeDirectoryRecursive(const QString& path)
{
    if (!isPath(path)) {
        return false;
    }
    if (isLink(path)) {
        return removeLink(path);
    }
    const QFileInfo directory(path);
    if (!directory.exists()) {
        return true;
    }
    return directory.isDir() && !isRoot(directory) && removeTree(directory.canonicalFilePath());
}

bool CDir::copyDirectory(const QString& src, const QString& dst)
{
    Q_UNUSED(src)
    if (makeDirectory(dst)) {
        return true;
    }
    print("\nCDir::copyDirectory unable to create ", QDir(dst).path());
    return false;
}

bool CDir::copyFile(const QString& src, const QString& dst)
{
    return copyIntoDirectory(src, dst,
                             [](const QString& from, const QString& to) { return QFile::copy(from, to); });
}

bool CDir::copyFileF(const QString& src, const QString& dst)
{
    if (!isPath(src) || !isPath(dst) || !isReplaceable(dst, src)) {
        return false;
    }
    const QFileInfo destination(dst);
    makeDirectory(destination.absolutePath());
    if (!exists(dst)) {
        return copyRegularFile(src, dst);
    }
    const QString path = destination.absoluteFilePath();
    const QString backup = destination.absolutePath() + QLatin1String("/~") + destination.fileName();
    const bool hadSource = QFileInfo::exists(src);
    if (!NPlatform::renameNew(path, backup)) {
        return false;
    }
    // One file under two names that no path shows to be one (two mounts, no case in names): it has just moved away.
    if (hadSource && !QFileInfo::exists(src)) {
        NPlatform::renameNew(backup, path);
        return false;
    }
    const bool copied = copyRegularFile(src, dst);
    // Also after a failure: callers rely on finding no "~" file, and rather no file than an old one.
    removeFileOrLink(backup);
    return copied;
}

bool CDir::copyDirectoryRecursive(const QString& src, const QString& dst)
{
    return copyDirectoryRecursive(src, dst, [](int, int) {});
}

bool CDir::copyDirectoryRecursive(const QString& src, const QString& dst,
                                  const std::function<void(int, int)>& progress)
{
    const QFileInfo source(src);
    if (!isPath(src) || !isPath(dst) || (source.isDir() && hasUnlistedEntries(source))) {
        return false;
    }
    // Absolute, since QDir leaves a relative path as it is.
    const QString root = source.canonicalFilePath();
    const QFileInfoList entries = entryInfoListRecursive(root, {}, WALK_FILTERS);
    const QString target = CPath::ensurePathSeparatorAtEnd(dst);
    NPlatform::FileCopier copier;
    const auto copyNew = [&](const QString& from, const QString& to) { return copier.copyNew(from, to); };
    int done = 0;
    for (const QFileInfo& entry : entries) {
        const QString path = entry.filePath();
        const QString copy = target + getRelativeSubPath(root, path);
        const bool copied =
            entry.isDir() ? copyDirectory(path, copy) : copyIntoDirectory(path, copy, copyNew);
        const bool isTree = entry.isDir() && !entry.isSymLink();
        if (!copied || (isTree && hasUnlistedEntries(entry))) {
            return false;
        }
        progress(++done, static_cast<int>(entries.size()));
    }
    if (!copier.writeThrough()) {
        printCopyFailure(dst);
        return false;
    }
    return true;
}

QString CDir::getRelativeSubPath(const QString& basePath, const QString& path)
{
    const QString base = QDir::fromNativeSeparators(basePath);
    const QString full = QDir::fromNativeSeparators(path);
    return base == full ? QString() : QDir(base).relativeFilePath(full);
}

QDir::Filters CDir::toDirFilter(NtlxGlobal::EDirFilter filter)
{
    constexpr QDir::Filters COMMON = QDir::Hidden | QDir::NoDotAndDotDot;
    constexpr QDir::Filters KINDS[] = {QDir::Dirs | QDir::Files, QDir::Files, QDir::Dirs};
    return filter <= NtlxGlobal::DIR_FILTER_DIRS ? COMMON | KINDS[filter] : COMMON;
}

QFileInfoList CDir::entryInfoList(const QString& path, const QStringList& nameFilters, QDir::Filters filters)
{
    return canList(path, filters) ? QDir(path).entryInfoList(nameFilters, filters, QDir::Name)
                                  : QFileInfoList();
}

QFileInfoList CDir::entryInfoList(const QString& path, const QStringList& nameFilters,
                                  NtlxGlobal::EDirFilter filter)
{
    return entryInfoList(path, nameFilters, toDirFilter(filter));
}

QFileInfoList CDir::entryInfoList(const QString& path, NtlxGlobal::EDirFilter filter,
                                  const QStringList& excludedNames)
{
    const QSet<QString> excluded(excludedNames.cbegin(), excludedNames.cend());
    QFileInfoList kept;
    const QFileInfoList entries = entryInfoList(path, {}, filter);
    for (const QFileInfo& entry : entries) {
        if (!excluded.contains(entry.fileName())) {
            kept << entry;
        }
    }
    return kept;
}

QFileInfoList CDir::entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                           QDir::Filters filters)
{
    QFileInfoList entries;
    if (canList(path, filters)) {
        QDirIterator iterator(path, nameFilters, filters, QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            iterator.next();
            entries << iterator.fileInfo();
        }
    }
    return entries;
}

QFileInfoList CDir::entryInfoListRecursive(const QString& path, const QStringList& nameFilters,
                                           NtlxGlobal::EDirFilter filter)
{
    return entryInfoListRecursive(path, nameFilters, toDirFilter(filter));
}

QStringList CDir::listFilesAndDirectories(const QString& path)
{
    QStringList paths{path};
    const QFileInfoList entries = entryInfoListRecursive(path, {}, WALK_FILTERS);
    for (const QFileInfo& entry : entries) {
        paths << entry.filePath();
    }
    return paths;
}

QFileInfoList CDir::listFileAndDirInfos(const QString& path)
{
    return QFileInfoList{QFileInfo(path)} + entryInfoListRecursive(path, {}, WALK_FILTERS);
}

bool CDir::removeFileOrDirectory(const QString& path)
{
    constexpr const char* UNABLE = "\n CDir::removeFileOrDirectory: unable to remove ";
    if (isLink(path) || (isPath(path) && QFileInfo(path).isFile())) {
        if (!removeFile(path)) {
            print(UNABLE, path);
        }
    } else if (!removeDirectory(path)) {
        print(UNABLE, path);
        const QStringList left = listFilesAndDirectories(path);
        for (const QString& entry : left) {
            print("\n ", entry);
        }
        std::fputs("\n--------------", stdout);
    }
    return isPath(path) && !exists(path);
}

bool CDir::removeFilesByPathList(const QStringList& paths)
{
    bool allRemoved = true;
    for (const QString& path : paths) {
        allRemoved = removeFileOrDirectory(path) && allRemoved;
    }
    return allRemoved;
}

int CDir::moveToTrash(const QString& path)
{
    if (!exists(path)) {
        return TRASH_NO_PATH;
    }
    const QFileInfo info(withoutSeparatorAtEnd(path));
    const QString absolute = info.absoluteFilePath();
    // "link/.." is one directory for the text and another for the system.
    const bool isSame = QFileInfo(absolute) == info;
    return isSame && !isRoot(info) && NPlatform::moveToTrash(absolute) ? TRASH_DONE : TRASH_FAILED;
}

QString CDir::addPathToPath(const QString& path, const QString& subPath)
{
    return CPath::addPathToPath(path, subPath);
}

QString CDir::addFileNameToPath(const QString& path, const QString& fileName)
{
    return CPath::addFileNameToPath(path, fileName);
}
