#include <tests/support/FileTree.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

QString linkTarget(const QString& path)
{
#ifdef Q_OS_UNIX
    char target[4096];
    const auto size = readlink(QFile::encodeName(path).constData(), target, sizeof(target));
    return size < 0 ? QString() : QFile::decodeName(QByteArray(target, static_cast<int>(size)));
#else
    return QFile::symLinkTarget(path);
#endif
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QByteArray("", 0) + file.readAll() : QByteArray();
}

} // namespace

FileTree::FileTree(const QStringList& entries)
    : mRoot(QFileInfo(mDirectory.path()).canonicalFilePath())
{
    if (!make(entries)) {
        qFatal("the entries of a test cannot be made below %s", qPrintable(mRoot));
    }
}

bool FileTree::make(const QStringList& entries) const
{
    bool made = true;
    for (const QString& entry : entries) {
        made = makeOne(entry) && made;
    }
    return made;
}

QString FileTree::path(const QString& relative) const
{
    return relative.isEmpty() ? mRoot : mRoot + QLatin1Char('/') + relative;
}

QStringList FileTree::entries(const QString& below) const
{
    const QString root = path(below) + QLatin1Char('/');
    QStringList found;
    QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString entry = walk.next();
        const QFileInfo info(entry);
        const QString name = entry.mid(root.size());
        if (info.isSymLink()) {
            found << name + QLatin1String("->") + linkTarget(entry);
        } else if (info.isDir()) {
            found << name + QLatin1Char('/');
        } else if (info.isFile()) {
            found << name + QLatin1Char('=') + QString::fromUtf8(contentOf(entry));
        } else {
            found << name + QLatin1Char('|');
        }
    }
    found.sort();
    return found;
}

QByteArray FileTree::read(const QString& relative) const
{
    return contentOf(path(relative));
}

bool FileTree::makeOne(const QString& entry) const
{
    const auto arrow = entry.indexOf(QLatin1String("->"));
    const auto equals = entry.indexOf(QLatin1Char('='));
    if (arrow > 0) {
        const QString link = path(entry.left(arrow));
        const QByteArray target = QFile::encodeName(entry.mid(arrow + 2));
        QDir().mkpath(QFileInfo(link).absolutePath());
#ifdef Q_OS_UNIX
        return symlink(target.constData(), QFile::encodeName(link).constData()) == 0;
#else
        return false;
#endif
    }
    if (equals < 0) {
        return QDir().mkpath(path(entry));
    }
    QFile file(path(entry.left(equals)));
    QDir().mkpath(QFileInfo(file.fileName()).absolutePath());
    const QByteArray content = entry.mid(equals + 1).toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

InDirectory::InDirectory(const QString& path)
    : mPrevious(QDir::currentPath())
{
    if (!QDir::setCurrent(path)) {
        qFatal("no such directory: %s", qPrintable(path));
    }
}

InDirectory::~InDirectory()
{
    QDir::setCurrent(mPrevious);
}

WithVariable::WithVariable(const char* name, const QString& value)
    : mName(name)
    , mPrevious(qgetenv(name))
{
    value.isNull() ? qunsetenv(name) : qputenv(name, QFile::encodeName(value));
}

WithVariable::~WithVariable()
{
    mPrevious.isNull() ? qunsetenv(mName) : qputenv(mName, mPrevious);
}
