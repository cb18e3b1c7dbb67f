#include <core/files/Platform.h>

#include <windows.h>

#include <shlobj.h>

QString NPlatform::documentsFolder()
{
    char folder[MAX_PATH] = {};
    if (SHGetFolderPathA(nullptr, CSIDL_PERSONAL, nullptr, 0, folder) < 0) {
        return QString();
    }
    const QString text = QString::fromLocal8Bit(folder);
    // The shell writes "?" for a letter that the code page lacks. No folder has such a name: this one cannot be used.
    return text.contains(QLatin1Char('?')) ? QString() : text;
}
