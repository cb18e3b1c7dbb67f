#include <tools/tlx/archive/SystemFiles.h>

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <windows.h>

namespace {

// https://learn.microsoft.com/windows/win32/fileio/naming-a-file
bool isDevice(const QString& part)
{
    static const QStringList names{QStringLiteral("CON"),    QStringLiteral("PRN"),
                                   QStringLiteral("AUX"),    QStringLiteral("NUL"),
                                   QStringLiteral("CONIN$"), QStringLiteral("CONOUT$")};
    const QString name = part.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    const bool isPort =
        name.size() == 4 && (name.startsWith(QLatin1String("COM")) || name.startsWith(QLatin1String("LPT")));
    return names.contains(name) || (isPort && name.back().isDigit());
}

// Windows drops what such a part ends in: "a." would be "a", and ".. " might be "..".
bool isCut(const QString& part)
{
    const bool isPlace = part == QLatin1String(".") || part == QLatin1String("..");
    return !isPlace && (part.endsWith(QLatin1Char('.')) || part.endsWith(QLatin1Char(' ')));
}

bool isLink(const wchar_t* path)
{
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

} // namespace

namespace NSystemFiles {

QString nameRefusal(const QString& name)
{
    if (name.contains(QLatin1Char(':')) || name.contains(QLatin1Char('\\'))) {
        return QStringLiteral("a name with a colon or backslash");
    }
    const QStringList parts = name.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        if (isDevice(part)) {
            return QStringLiteral("the name of a device");
        }
        if (isCut(part)) {
            return QStringLiteral("a name that ends in a dot or blank");
        }
    }
    return QString();
}

// QFile makes shortcuts here, files that only the shell follows. A system that makes no links may still claim success.
QString makeLink(const QString& target, const QString& path)
{
    constexpr DWORD WITHOUT_PRIVILEGE = 2; // in the system's developer mode
    const bool isDirectory = QFileInfo(QFileInfo(path).path() + QLatin1Char('/') + target).isDir();
    const DWORD flags = isDirectory ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
    const std::wstring from = QDir::toNativeSeparators(path).toStdWString();
    const std::wstring to = QDir::toNativeSeparators(target).toStdWString();
    if (!CreateSymbolicLinkW(from.c_str(), to.c_str(), flags | WITHOUT_PRIVILEGE)) {
        CreateSymbolicLinkW(from.c_str(), to.c_str(), flags); // before Windows 10 the flag is an error
    }
    return isLink(from.c_str()) ? QString()
                                : QStringLiteral("no symbolic link can be made: "
                                                 "developer mode or an administrator's rights are needed");
}

} // namespace NSystemFiles
