#include <core/files/CPath.h>

#include <core/base/QtReady.h>
#include <core/base/StaticObjects.h>
#include <core/files/Platform.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr QFile::Permissions::Int NEW_DIRECTORY = 0x7075; // rwxrwxr-x

// The directory is named by text alone: it need not exist any more.
QString installDirectory()
{
    return QFileInfo(QDir(QCoreApplication::applicationDirPath()).absolutePath()).absolutePath();
}

bool isSeparator(QChar character)
{
    return character == QLatin1Char('/') || character == QDir::separator();
}

bool endsWithSeparator(const QString& s)
{
    return !s.isEmpty() && isSeparator(s.back());
}

bool startsWithSeparator(const QString& s)
{
    return !s.isEmpty() && isSeparator(s.front());
}

// "*" and "\" are not among them: callers pass names with wildcards.
bool isForbidden(QChar character)
{
    return QStringView(u"<>:!?|\"").contains(character);
}

// A name that begins with ":" is a resource for Qt, and "sub/" loses its last folder on Windows while it is relative.
QFileInfo fileInfo(const QString& path)
{
    const bool isBareColon = path.startsWith(QLatin1Char(':')) && !path.startsWith(QLatin1String(":/"));
    const bool isRelative = !path.isEmpty() && (isBareColon || QDir::isRelativePath(path));
    return QFileInfo(isRelative ? QDir::currentPath() + QLatin1Char('/') + path : path);
}

// QDir::mkpath() gives up on Windows when another program makes a part of the path first. There is one part less to make
// then, so that there are at most as many failures as parts.
bool makePath(const QString& path)
{
    for (auto parts = QDir::fromNativeSeparators(path).count(QLatin1Char('/')) + 1; parts >= 0; --parts) {
        if (QDir().mkpath(path) || QFileInfo(path).isDir()) {
            return true;
        }
    }
    return false;
}

QString userTree(const QString& root)
{
    return root + QLatin1Char('/') + CPath::CPATH_COMPANY + CPath::productName() + QLatin1Char('/');
}

} // namespace

const QString CPath::CPATH_BIN TLX_INIT_EARLY = QStringLiteral("bin/");
const QString CPath::CPATH_LIB TLX_INIT_EARLY = QStringLiteral("lib/");
const QString CPath::CPATH_ETC TLX_INIT_EARLY = QStringLiteral("etc/");
const QString CPath::CPATH_TXT TLX_INIT_EARLY = QStringLiteral("etc/txt/");
const QString CPath::CPATH_IMG TLX_INIT_EARLY = QStringLiteral("etc/image/");
const QString CPath::CPATH_DOC TLX_INIT_EARLY = QStringLiteral("etc/doc/");
const QString CPath::CPATH_CCONF TLX_INIT_EARLY = QStringLiteral("etc/conf/");
const QString CPath::CPATH_CDATA TLX_INIT_EARLY = QStringLiteral("etc/data/");
const QString CPath::CPATH_CONF TLX_INIT_EARLY = QStringLiteral("conf/");
const QString CPath::CPATH_LOG TLX_INIT_EARLY = QStringLiteral("log/");
const QString CPath::CPATH_MOT TLX_INIT_EARLY = QStringLiteral("motor/");
const QString CPath::CPATH_PAR TLX_INIT_EARLY = QStringLiteral("param/");
const QString CPath::CPATH_DAT TLX_INIT_EARLY = QStringLiteral("data/");
const QString CPath::CPATH_PRJ TLX_INIT_EARLY = QStringLiteral("project/");
const QString CPath::CPATH_PLUGINS TLX_INIT_EARLY = QStringLiteral("plugins/");
const QString CPath::CPATH_COMPANY TLX_INIT_EARLY = QStringLiteral("TARVENIK/");

QString CPath::installPath()
{
    return installDirectory() + QLatin1Char('/');
}

QString CPath::productName()
{
    return QFileInfo(installDirectory()).fileName();
}

QString CPath::appdataPath()
{
    // Unset, it counts as empty and the path begins at the root: tools rely on the same text everywhere.
    return userTree(QString::fromLocal8Bit(qgetenv("APPDATA")));
}

QString CPath::userdataPath()
{
    const QString documents = NPlatform::documentsFolder();
    return userTree(documents.isEmpty() ? QDir::homePath() : documents);
}

// A function for each directory: its tree, and its name below.
#define TLX_DIRECTORY(function, tree, name)                                                                  \
    QString CPath::function(bool create)                                                                     \
    {                                                                                                        \
        return createDirIfWanted(tree() + (name), create);                                                   \
    }

TLX_DIRECTORY(binPath, installPath, CPATH_BIN)
TLX_DIRECTORY(libPath, installPath, CPATH_BIN)
TLX_DIRECTORY(etcPath, installPath, CPATH_ETC)
TLX_DIRECTORY(txtPath, installPath, CPATH_TXT)
TLX_DIRECTORY(imagePath, installPath, CPATH_IMG)
TLX_DIRECTORY(docPath, installPath, CPATH_DOC)
TLX_DIRECTORY(constConfigPath, installPath, CPATH_CCONF)
TLX_DIRECTORY(constDataPath, installPath, CPATH_CDATA)
TLX_DIRECTORY(configPath, appdataPath, CPATH_CONF)
TLX_DIRECTORY(logPath, appdataPath, CPATH_LOG)
TLX_DIRECTORY(motorPath, userdataPath, CPATH_MOT)
TLX_DIRECTORY(paramPath, userdataPath, CPATH_PAR)
TLX_DIRECTORY(dataPath, userdataPath, CPATH_DAT)
TLX_DIRECTORY(projectPath, userdataPath, CPATH_PRJ)

QString CPath::createDirIfWanted(const QString& path, bool create)
{
    if (create && !QDir(path).exists() && makePath(path)) {
        QFile::setPermissions(removePathSeparatorAtEnd(path), QFile::Permissions(NEW_DIRECTORY));
    }
    return path;
}

bool CPath::doesFilenameContainPath(const QString& name)
{
    return std::any_of(name.begin(), name.end(), isSeparator);
}

QString CPath::prependPathIfNoPathIsGiven(const QString& fileName, const QString& path)
{
    if (fileName.isEmpty() || doesFilenameContainPath(fileName)) {
        return fileName;
    }
    const QDir directory(path.isEmpty() ? QDir::currentPath() : fileInfo(path).absolutePath());
    const bool isBareColon = fileName.startsWith(QLatin1Char(':'));
    return QFileInfo(directory, isBareColon ? QLatin1String("./") + fileName : fileName).absoluteFilePath();
}

QString CPath::trimPathIfPathIsEqual(const QString& fileName, const QString& path)
{
    if (fileName.isEmpty()) {
        return fileName;
    }
    const QFileInfo info = fileInfo(fileName);
    return info.absoluteDir() == QDir(path) ? info.fileName() : fileName;
}

QString CPath::filePath(const QString& name)
{
    return name.isEmpty() ? QString() : fileInfo(name).absolutePath();
}

QString CPath::ensurePathSeparatorAtEnd(QString s)
{
    if (!endsWithSeparator(s)) {
        s += QLatin1Char('/');
    }
    return s;
}

QString CPath::ensurePathSeparatorAtStart(const QString& s)
{
    return startsWithSeparator(s) ? s : QLatin1Char('/') + s;
}

QString CPath::removePathSeparatorAtStart(const QString& s)
{
    return startsWithSeparator(s) ? s.mid(1) : s;
}

QString CPath::removePathSeparatorAtEnd(const QString& s)
{
    return endsWithSeparator(s) ? s.chopped(1) : s;
}

QString CPath::addPathToPath(const QString& path, const QString& subPath)
{
    return ensurePathSeparatorAtEnd(ensurePathSeparatorAtEnd(path) + subPath);
}

QString CPath::addFileNameToPath(const QString& path, const QString& fileName)
{
    return ensurePathSeparatorAtEnd(path) + fileName;
}

QString CPath::cleanFileName(const QString& fileName)
{
    const QFileInfo info = fileInfo(fileName);
    QString name = info.fileName().simplified();
    name.truncate(static_cast<int>(std::remove_if(name.begin(), name.end(), isForbidden) - name.begin()));
    return info.absolutePath() + QLatin1Char('/') + name;
}
