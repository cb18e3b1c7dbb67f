#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/input/Undecodable.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/OutputCapture.h>
#include <tools/tlx/terminal/Progress.h>

#include <core/files/CDir.h>

#include <QCommandLineParser>

#include <optional>

namespace {

const char FORCE_NAME[] = "force";
const char RECURSIVE_NAME[] = "recursive";
const QString FORCE = QLatin1String(FORCE_NAME);
const QString RECURSIVE = QLatin1String(RECURSIVE_NAME);

void addPaths(Report& report, const QString& source, const QString& destination)
{
    report.add("source", "Source", QFileInfo(source).absoluteFilePath());
    report.add("destination", "Destination", QFileInfo(destination).absoluteFilePath());
}

int copyTree(const QString& source, const QString& destination, Report& report)
{
    if (!QFileInfo(source).isDir()) {
        return invalid(report, QStringLiteral("no such directory: %1").arg(source));
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
    report.add("entries", "Entries copied", copied);
    if (!isDone) {
        addOmitted(source, report);
        if (!report.hasError()) {
            report.setError(said.isEmpty() ? QStringLiteral("a directory cannot be read") : said);
        }
    }
    return EXIT_DONE;
}

int copyOne(const QString& source, const QString& destination, bool force, Report& report)
{
    const QFileInfo from(source);
    if (!from.isFile()) {
        return invalid(report, (from.isDir() ? QStringLiteral("%1 is a directory, which needs --recursive")
                                             : QStringLiteral("no such file: %1"))
                                   .arg(source));
    }
    const bool isThere = QFileInfo::exists(destination);
    if (isThere && !force) {
        return invalid(report, QStringLiteral("%1 already exists; --force replaces it").arg(destination));
    }
    const qint64 size = from.size();
    {
        const OutputCapture capture;
        if (!(force ? CDir::copyFileF(source, destination) : CDir::copyFile(source, destination))) {
            const QString fault = readingFault(source);
            return fault.isEmpty() ? fileFault(report, destination, writingFault(destination))
                                   : fileFault(report, source, fault);
        }
    }
    addPaths(report, source, destination);
    report.add("bytes", "Bytes copied", wideNumber(size));
    report.add("replaced", "Replaced a file", isThere);
    return EXIT_DONE;
}

} // namespace

QList<SOption> copyOptions()
{
    return {
        {FORCE_NAME, QStringLiteral("Replaces an existing file.")},
        {RECURSIVE_NAME, QStringLiteral("Copies everything under a directory; hidden entries are omitted.")}};
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
