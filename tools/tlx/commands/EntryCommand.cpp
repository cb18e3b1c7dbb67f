#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/files/CFTPath.h>

#include <QCommandLineParser>

int runEntry(const QCommandLineParser& parser, Report& report)
{
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty()) {
        return wrongUsage(report, QStringLiteral("at least one path on a drive is expected"));
    }
    QList<QStringList> rows;
    int unknown = 0;
    for (const QString& path : paths) {
        const CFTPath::EEntryPoint entryPoint = CFTPath::fromPath(path);
        unknown += entryPoint == CFTPath::EP_INVALID ? 1 : 0;
        rows << QStringList{path, CFTPath::toString(entryPoint), QString::number(entryPoint),
                            CFTPath::toPath(entryPoint), CFTPath::toRelativePath(path, entryPoint)};
    }
    report.addTable(QStringLiteral("paths"),
                    {QStringLiteral("path"), QStringLiteral("entryPoint"), QStringLiteral("value"),
                     QStringLiteral("directory"), QStringLiteral("relative")},
                    rows);
    if (unknown > 0) {
        report.setError(
            QStringLiteral("%1 of %2 paths belong to no entry point").arg(unknown).arg(paths.size()));
        return EXIT_INVALID;
    }
    return EXIT_DONE;
}
