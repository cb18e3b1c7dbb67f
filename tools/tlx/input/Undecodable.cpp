#include <tools/tlx/input/Undecodable.h>

#include <tools/tlx/report/Report.h>

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

#ifdef Q_OS_WIN
// A name of Windows is UTF-16, as a text is.
bool isDecodablePath(const fs::path&)
{
    return true;
}

fs::path pathOf(const QString& text)
{
    return fs::path(text.toStdWString());
}

QByteArray bytesOf(const fs::path& path)
{
    return QString::fromStdWString(path.wstring()).toUtf8();
}
#else
bool isDecodablePath(const fs::path& path)
{
    return NUndecodable::isDecodable(QByteArray::fromStdString(path.filename().string()));
}

fs::path pathOf(const QString& text)
{
    return fs::path(QFile::encodeName(text).toStdString());
}

QByteArray bytesOf(const fs::path& path)
{
    return QByteArray::fromStdString(path.string());
}
#endif

void walkInto(const fs::path& directory, NUndecodable::SWalk& found)
{
    std::error_code error;
    QList<QByteArray> inside;
    fs::directory_iterator entry(directory, error);
    while (!error && entry != fs::directory_iterator()) {
        std::error_code ignored;
        if (!isDecodablePath(entry->path())) {
            found.names << bytesOf(entry->path());
        } else if (entry->symlink_status(ignored).type() == fs::file_type::directory) {
            walkInto(entry->path(), found);
        }
        entry.increment(error);
    }
    if (error) {
        found.unopened << bytesOf(directory) + ": " + QByteArray::fromStdString(error.message());
    }
}

} // namespace

namespace NUndecodable {

bool isDecodable(const QByteArray& bytes)
{
    return QFile::encodeName(QFile::decodeName(bytes)) == bytes;
}

QList<QByteArray> arguments(const QList<QByteArray>& arguments)
{
    QList<QByteArray> lost;
#ifndef Q_OS_WIN
    for (const QByteArray& argument : arguments) {
        if (!isDecodable(argument)) {
            lost << argument;
        }
    }
#else
    Q_UNUSED(arguments)
#endif
    return lost;
}

SWalk walk(const QString& directory)
{
    SWalk found;
    walkInto(pathOf(directory), found);
    std::sort(found.names.begin(), found.names.end());
    return found;
}

QString escaped(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        const bool isPlain = byte >= ' ' && byte <= '~' && byte != '\\';
        text += isPlain ? QString(QLatin1Char(byte))
                        : QStringLiteral("\\x%1").arg(static_cast<uchar>(byte), 2, 16, QLatin1Char('0'));
    }
    return text;
}

QString counted(const QList<QByteArray>& names, const QString& what)
{
    constexpr int NAMED = 10;
    QStringList texts;
    for (const QByteArray& name : names.mid(0, NAMED)) {
        texts << escaped(name);
    }
    const QString rest = names.size() > NAMED ? QStringLiteral(", …") : QString();
    return QStringLiteral("%1 %2: ").arg(names.size()).arg(what) + texts.join(QLatin1String(", ")) + rest;
}

} // namespace NUndecodable

void addOmitted(const QString& directory, Report& report)
{
    const NUndecodable::SWalk found = NUndecodable::walk(directory);
    if (!found.names.isEmpty()) {
        report.setError(NUndecodable::counted(
            found.names, QStringLiteral("names are not valid in the system's encoding and are omitted")));
    }
    if (!found.unopened.isEmpty()) {
        report.setError(NUndecodable::counted(found.unopened, QStringLiteral("directories cannot be read")));
    }
}
