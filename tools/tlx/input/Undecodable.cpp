#include <tools/tlx/input/Undecodable.h>

#include <tools/tlx/input/SystemNames.h>
#include <tools/tlx/report/Report.h>

#include <QStringList>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

void walkInto(const fs::path& directory, NUndecodable::SWalk& found)
{
    std::error_code error;
    QList<QByteArray> inside;
    fs::directory_iterator entry(directory, error);
    while (!error && entry != fs::directory_iterator()) {
        std::error_code ignored;
        if (!NSystemNames::isDecodable(entry->path())) {
            found.names << NSystemNames::bytesOf(entry->path());
        } else if (entry->symlink_status(ignored).type() == fs::file_type::directory) {
            walkInto(entry->path(), found);
        }
        entry.increment(error);
    }
    if (error) {
        found.unopened << NSystemNames::bytesOf(directory) + ": "
                              + QByteArray::fromStdString(error.message());
    }
}

} // namespace

namespace NUndecodable {

SWalk walk(const QString& directory)
{
    SWalk found;
    walkInto(NSystemNames::pathOf(directory), found);
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
