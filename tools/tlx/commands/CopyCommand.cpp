#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/OutputCapture.h>
#include <tools/tlx/terminal/Progress.h>

#include <core/files/CDir.h>

#include <QCommandLineParser>

#include <optional>

namespace {

const QString FORCE = QStringLiteral("force");
const QString RECURSIVE = QStringLiteral("recursive");

int fail(Report& report, const QString& message)
{
    report.setError(message);
    return EXIT_INVALID;
}

void addPaths(Report& report, const QString& source, const QString& destination)
{
    report.add(QStringLiteral("source"), QStringLiteral("Source"), QFileInfo(source).absoluteFilePath());
    report.add(QStringLiteral("destination"), QStringLiteral("Destination"),
               QFileInfo(destination).absoluteFilePath());
}

int copyTree(const QString& source, const QString& destination, Report& report)
{
    if (!QFileInfo(source).isDir()) {
        return fail(report, QStringLiteral("no such directory: %1").arg(source));
    }
    int copied = 0;
    bool isDone = false;
    QString said;
    {
        const OutputCapture capture;
        std::optional<Progress> line;
        isDone = CDir::copyDirectoryRecursive(source, destination, [&](int done, int total) {
            if (!line) {
                line.emplace(QStringLiteral("copying"), total);
            }
            copied = done;
            line->show(done);
        });
        said = QString::fromLocal8Bit(capture.text()).trimmed();
    }
    addPaths(report, source, destination);
    report.add(QStringLiteral("entries"), QStringLiteral("Entries copied"), copied);
    if (!isDone) {
        return fail(report, said.isEmpty() ? QStringLiteral("a directory cannot be read") : said);
    }
    return EXIT_DONE;
}

int copyOne(const QString& source, const QString& destination, bool force, Report& report)
{
    const QFileInfo from(source);
    if (!from.isFile()) {
        return fail(report, (from.isDir() ? QStringLiteral("%1 is a directory, which needs --recursive")
                                          : QStringLiteral("no such file: %1"))
                                .arg(source));
    }
    const bool isThere = QFileInfo::exists(destination);
    if (isThere && !force) {
        return fail(report, QStringLiteral("%1 exists; --force replaces a file").arg(destination));
    }
    const qint64 size = from.size();
    {
        const OutputCapture capture;
        if (!(force ? CDir::copyFileF(source, destination) : CDir::copyFile(source, destination))) {
            return fail(report, QStringLiteral("unable to copy to %1").arg(destination));
        }
    }
    addPaths(report, source, destination);
    report.add(QStringLiteral("bytes"), QStringLiteral("Bytes copied"), QString::number(size));
    report.add(QStringLiteral("replaced"), QStringLiteral("Replaced a file"), isThere);
    return EXIT_DONE;
}

} // namespace

void addCopyOptions(QCommandLineParser& parser)
{
    parser.addOption({FORCE, QStringLiteral("Replaces an existing file.")});
    parser.addOption(
        {RECURSIVE, QStringLiteral("Copies everything under a directory; hidden entries are left out.")});
}

int runCopy(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 2 || arguments.contains(QString())) {
        return wrongUsage(report, QStringLiteral("a source and a destination are expected"));
    }
    if (parser.isSet(FORCE) && parser.isSet(RECURSIVE)) {
        return wrongUsage(report,
                          QStringLiteral("--force replaces one file; a tree is never copied over another"));
    }
    return parser.isSet(RECURSIVE)
               ? copyTree(arguments.first(), arguments.last(), report)
               : copyOne(arguments.first(), arguments.last(), parser.isSet(FORCE), report);
}
