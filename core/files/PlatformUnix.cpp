#include <core/files/Platform.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr QFile::Permissions OWNER_ONLY = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

bool makeOwnDirectory(const QString& path)
{
    if (QDir().mkdir(path)) {
        QFile::setPermissions(path, OWNER_ONLY);
    }
    return QFileInfo(path).isDir();
}

// Without it, Qt's trash is the current directory.
bool makeTrash(const QString& dataDirectory)
{
    const QString trash = dataDirectory + QLatin1String("/Trash");
    return !dataDirectory.isEmpty() && QDir().mkpath(dataDirectory) && makeOwnDirectory(trash)
           && makeOwnDirectory(trash + QLatin1String("/files"))
           && makeOwnDirectory(trash + QLatin1String("/info"));
}

// Qt tries names for its info file until one can be created, for ever when none can: read-only, full, name too long.
bool canCreateInfoFile(const QString& trash, const QString& name)
{
    const QString info = trash + QLatin1String("/info/");
    QFile file(info + name + QLatin1String("-999999.probe.trashinfo"));
    if (!QFileInfo(info).isDir()) {
        return true;
    }
    const bool isCreated = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    file.remove();
    return isCreated;
}

// The trashes that Qt may choose: the user's own, and those of the file system that the path lies on.
QStringList possibleTrashes(const QString& path, const QString& dataDirectory)
{
    QStringList trashes{dataDirectory + QLatin1String("/Trash")};
    const QStorageInfo storage(path);
    if (storage != QStorageInfo(QDir::home())) {
        const QString root = storage.rootPath() + QLatin1String("/.Trash");
        const QString user = QString::number(getuid());
        trashes << root + QLatin1Char('/') + user << root + QLatin1Char('-') + user;
    }
    return trashes;
}

#ifdef Q_OS_LINUX
// A file without a name, which no failure leaves behind. Not every file system has them.
bool openNameless(QFile& file, const QString& directory)
{
    const int handle =
        open(QFile::encodeName(directory).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return handle >= 0
           && file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

bool giveName(const QFile& file, const QString& name)
{
    const QByteArray handle = "/proc/self/fd/" + QByteArray::number(file.handle());
    return linkat(AT_FDCWD, handle.constData(), AT_FDCWD, QFile::encodeName(name).constData(),
                  AT_SYMLINK_FOLLOW)
           == 0;
}

bool copyContents(const QString& from, QFile& to)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return false;
    }
    std::array<char, 64 * 1024> piece;
    qint64 count = 0;
    while ((count = source.read(piece.data(), piece.size())) > 0) {
        if (to.write(piece.data(), count) != count) {
            return false;
        }
    }
    to.setPermissions(source.permissions());
    return count == 0;
}
#endif

} // namespace

QString NPlatform::documentsFolder()
{
    return QString();
}

bool NPlatform::moveToTrash(const QString& path)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!makeTrash(data)) {
        return false;
    }
    const QStringList trashes = possibleTrashes(path, data);
    for (const QString& trash : trashes) {
        if (!canCreateInfoFile(trash, QFileInfo(path).fileName())) {
            return false;
        }
    }
    return QFile::moveToTrash(path);
}

// QFile::rename() would copy over a file that appears between its look and its rename. A file that this call creates
// holds the name; rename(2) then replaces that one.
bool NPlatform::renameNew(const QString& from, const QString& to)
{
    QFile place(to);
    if (!place.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return false;
    }
    place.close();
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0) {
        return true;
    }
    place.remove();
    return false;
}

bool NPlatform::hasUnlistedEntry(const QString& directory)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(QFile::encodeName(directory).constData()),
                                                      closedir);
    const dirent* entry = nullptr;
    while (entries && (entry = readdir(entries.get())) != nullptr) {
        const QByteArray name(entry->d_name);
        if (!name.startsWith('.') && QFile::encodeName(QFile::decodeName(name)) != name) {
            return true;
        }
    }
    return false;
}

NPlatform::FileCopier::~FileCopier()
{
    for (const int handle : qAsConst(mFileSystems)) {
        close(handle);
    }
}

// QFile::copy() writes every file through by itself, which takes a disk 30 times as long as the file.
bool NPlatform::FileCopier::copyNew(const QString& from, const QString& to)
{
#ifdef Q_OS_LINUX
    QFile file;
    struct stat status = {};
    if (openNameless(file, QFileInfo(to).path()) && fstat(file.handle(), &status) == 0) {
        if (!copyContents(from, file)) {
            return false;
        }
        if (giveName(file, to)) {
            mCopies << to;
            if (!mFileSystems.contains(status.st_dev)) {
                mFileSystems.insert(status.st_dev, dup(file.handle()));
            }
            return true;
        }
    }
#endif
    return QFile::copy(from, to);
}

bool NPlatform::FileCopier::writeThrough()
{
    bool isWritten = true;
#ifdef Q_OS_LINUX
    for (const int handle : qAsConst(mFileSystems)) {
        isWritten = syncfs(handle) == 0 && isWritten;
    }
    if (!isWritten) {
        std::for_each(mCopies.cbegin(), mCopies.cend(), [](const QString& path) { QFile::remove(path); });
    }
#endif
    return isWritten;
}

// One system call where seeking and reading are two. Resources have no handle.
qint64 NPlatform::readAt(QFile& file, qint64 pos, char* data, qint64 size)
{
    if (file.handle() < 0) {
        return file.seek(pos) ? std::max<qint64>(file.read(data, size), 0) : 0;
    }
    qint64 done = 0;
    while (done < size) {
        const ssize_t count =
            pread(file.handle(), data + done, static_cast<std::size_t>(size - done), pos + done);
        if (count == 0 || (count < 0 && errno != EINTR)) {
            break;
        }
        done += std::max<ssize_t>(count, 0);
    }
    return done;
}

QString NPlatform::settingsKey(const QString& key)
{
    return key;
}
