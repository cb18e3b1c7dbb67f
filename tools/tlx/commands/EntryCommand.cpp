#include <core/files/CFTPath.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

int runEntry(const QCommandLineParser& parser, Report& report)
{
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty()) {
        return wrongUsage(report, QStringLiteral("at least one path on a drive is expected"));
    }
    QList<QJsonArray> rows;
    int unknown = 0;
    for (const QString& path : paths) {
        const CFTPath::EEntryPoint entryPoint = CFTPath::fromPath(path);
        unknown += entryPoint == CFTPath::EP_INVALID ? 1 : 0;
        rows << QJsonArray{path, CFTPath::toString(entryPoint), static_cast<qint64>(entryPoint),
                           CFTPath::toPath(entryPoint), CFTPath::toRelativePath(path, entryPoint)};
    }
    report.addTable("paths", {"path", "entryPoint", "value", "directory", "relative"}, rows);
    if (unknown > 0) {
        return invalid(
            report, QStringLiteral("%1 of %2 paths belong to no entry point").arg(unknown).arg(paths.size()));
    }
    return EXIT_DONE;
}
