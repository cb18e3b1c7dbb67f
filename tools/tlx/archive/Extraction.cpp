#include <tools/tlx/archive/Extraction.h>
#include <tools/tlx/archive/SystemFiles.h>
#include <tools/tlx/terminal/Interrupt.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

bool isLink(const QFileInfo& info)
{
    return info.isSymLink() || info.isJunction();
}

bool isThere(const QFileInfo& info)
{
    return info.exists() || isLink(info);
}

QStringList partsOf(const QString& path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

// Also on Windows, where a name that begins with a slash is on the current drive.
bool isAbsolute(const QString& name)
{
    return name.startsWith(QLatin1Char('/')) || QDir::isAbsolutePath(name);
}

QString nameRefusal(const QString& name)
{
    if (name.isEmpty() || name.contains(QChar(0))) {
        return QStringLiteral("not a file name");
    }
    if (isAbsolute(name)) {
        return QStringLiteral("an absolute name");
    }
    if (partsOf(name).contains(QLatin1String(".."))) {
        return QStringLiteral("a name with \"..\"");
    }
    return NSystemFiles::nameRefusal(name);
}

// A target is inside when it is relative, goes up no further than the link is deep, and only at its begin: after the
// name of another link ".." would lead wherever that link is.
QString targetRefusal(const QString& path, const QString& target)
{
    const QStringList parts = partsOf(target);
    const auto isUp = [](const QString& part) { return part == QLatin1String(".."); };
    const auto down = std::find_if_not(parts.cbegin(), parts.cend(), isUp);
    const bool goesUpLater = std::any_of(down, parts.cend(), isUp);
    const auto ups = std::distance(parts.cbegin(), down);
    const bool isInside = !target.isEmpty() && !isAbsolute(target) && !goesUpLater
                          && ups < partsOf(QDir::cleanPath(path)).size()
                          && NSystemFiles::nameRefusal(target).isEmpty();
    return isInside ? QString() : QStringLiteral("a link that leads out of the folder, to ") + target;
}

} // namespace

Extraction::Extraction(const QString& folder, bool force)
    : mFolder(QDir(folder).absolutePath() + QLatin1Char('/'))
    , mForce(force)
{}

QString Extraction::refusal(const SExtract& member) const
{
    QString fault = nameRefusal(member.path);
    if (fault.isEmpty() && member.kind == SExtract::Link) {
        fault = targetRefusal(member.path, member.target);
    }
    const QString path = QDir::cleanPath(member.path);
    const QFileInfo place(mFolder + path);
    if (!fault.isEmpty() || (member.kind == SExtract::Directory && place.isDir() && !isLink(place))) {
        return fault;
    }
    if (!mForce && isThere(place)) {
        return QStringLiteral("it already exists; --force replaces it");
    }
    return QString();
}

QString Extraction::make(QIODevice& archive, const SExtract& member,
                         const std::function<void(qint64)>& progress)
{
    const QString path = QDir::cleanPath(member.path);
    const bool isDirectory = member.kind == SExtract::Directory;
    const QString fault = makeParents(
        isDirectory ? path : partsOf(path).mid(0, partsOf(path).size() - 1).join(QLatin1Char('/')));
    if (!fault.isEmpty() || isDirectory) {
        return fault;
    }
    const QFileInfo place(mFolder + path);
    if (place.isDir() && !isLink(place)) {
        return QStringLiteral("a directory has this name");
    }
    if (isThere(place) && !mForce) {
        return QStringLiteral("another member has this name; --force keeps the last");
    }
    if (member.kind == SExtract::File) {
        return makeFile(archive, member, place.filePath(), progress);
    }
    QFile::remove(place.filePath());
    return NSystemFiles::makeLink(member.target, place.filePath());
}

// Makes missing directories one by one; none of them, made or found, may be a link.
QString Extraction::makeParents(const QString& path) const
{
    QString place = mFolder;
    const QStringList parts = partsOf(path);
    for (const QString& part : parts) {
        if (part == QLatin1String(".")) {
            continue;
        }
        place += part;
        const QFileInfo info(place);
        if (isLink(info)) {
            return QStringLiteral("%1 is a link, through which nothing is written").arg(place);
        }
        if (!info.isDir() && !QDir().mkdir(place)) {
            return info.exists() ? QStringLiteral("%1 is not a directory").arg(place)
                                 : QStringLiteral("the directory cannot be made: %1").arg(place);
        }
        place += QLatin1Char('/');
    }
    return QString();
}

// A file is complete when it has its name: until then it has one that ends in ".tlx-part".
QString Extraction::makeFile(QIODevice& archive, const SExtract& member, const QString& path,
                             const std::function<void(qint64)>& progress) const
{
    QFile file(path + QStringLiteral(".tlx-part"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return file.errorString();
    }
    const NInterrupt::RemoveFile guard(file.fileName());
    qint64 copied = 0;
    qint64 written = 0;
    const auto write = [&](const QByteArray& block) {
        written += file.write(block);
        progress(written);
        return written == copied;
    };
    QString fault;
    if (!copyBlocks(archive, member.start, member.size, write, copied) || !file.flush()) {
        fault = copied < member.size && written == copied
                    ? QStringLiteral("the archive has only %1 of its %2 bytes").arg(copied).arg(member.size)
                    : file.errorString();
    }
    file.close();
    if (fault.isEmpty()) {
        QFile::remove(path); // what --force replaces; nothing is there without it
        fault = file.rename(path) ? QString() : file.errorString();
    }
    if (!fault.isEmpty()) {
        file.remove();
    }
    return fault;
}

bool copyBlocks(QIODevice& source, qint64 start, qint64 size,
                const std::function<bool(const QByteArray&)>& write, qint64& copied)
{
    constexpr qint64 BLOCK = 1 << 20;
    copied = 0;
    bool isCopied = source.seek(start);
    while (isCopied && copied < size) {
        const QByteArray block = source.read(std::min(BLOCK, size - copied));
        copied += block.size();
        isCopied = !block.isEmpty() && write(block);
    }
    return isCopied;
}
