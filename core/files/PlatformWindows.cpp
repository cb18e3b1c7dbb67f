#include <core/files/Platform.h>

#include <windows.h>

#include <shlobj.h>

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
