#include <core/files/Platform.h>

#include <QDir>
#include <QFile>

#include <windows.h>

#include <algorithm>
#include <shellapi.h>
#include <shlobj.h>
#include <string>

namespace {

// Absolute, with backslashes, in the form that takes more than 259 units.
std::wstring longPath(const QString& path)
{
    const QString native = QDir::toNativeSeparators(path);
    const bool isOnDrive = native.size() > 1 && native.at(1) == QLatin1Char(':');
    return (isOnDrive ? L"\\\\?\\" : L"") + native.toStdWString();
}

} // namespace

QString NPlatform::documentsFolder()
{
    char folder[MAX_PATH] = {};
    wchar_t wideFolder[MAX_PATH] = {};
    if (SHGetFolderPathA(nullptr, CSIDL_PERSONAL, nullptr, 0, folder) < 0
        || SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, 0, wideFolder) < 0) {
        return QString();
    }
    // Letters that the code page lacks come as "?" or as the nearest letter, which names another folder.
    const QString text = QString::fromLocal8Bit(folder);
    return text == QString::fromWCharArray(wideFolder) ? text : QString();
}

bool NPlatform::moveToTrash(const QString& path)
{
    constexpr FILEOP_FLAGS FLAGS = FOF_SILENT | FOF_NOCONFIRMATION | FOF_ALLOWUNDO | FOF_NOERRORUI;
    static_assert(FLAGS == 0x0454, "into the recycle bin, without asking and without windows");

    // The list of sources ends in two zeros, behind the longest path too.
    wchar_t sources[MAX_PATH + 1] = {};
    const QString native = QDir::toNativeSeparators(path);
    if (native.size() >= MAX_PATH) {
        return false;
    }
    native.toWCharArray(sources);
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = sources;
    operation.fFlags = FLAGS;
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

bool NPlatform::renameNew(const QString& from, const QString& to)
{
    return MoveFileExW(longPath(from).c_str(), longPath(to).c_str(), 0) != 0;
}

bool NPlatform::hasUnlistedEntry(const QString&)
{
    return false; // names are UTF-16 here as they are in Qt
}

NPlatform::FileCopier::~FileCopier() = default;

bool NPlatform::FileCopier::copyNew(const QString& from, const QString& to)
{
    return QFile::copy(from, to);
}

bool NPlatform::FileCopier::writeThrough()
{
    return true;
}

qint64 NPlatform::readAt(QFile& file, qint64 pos, char* data, qint64 size)
{
    return file.seek(pos) ? std::max<qint64>(file.read(data, size), 0) : 0;
}

QString NPlatform::settingsKey(const QString& key)
{
    return key.toLower();
}
