#include <core/files/CDir.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

namespace {

QString textOf(int result)
{
    switch (result) {
    case CDir::TRASH_DONE:
        return QStringLiteral("moved to the recycle bin");
    case CDir::TRASH_NO_PATH:
        return QStringLiteral("no such path");
    default:
        return QStringLiteral("refused by the system, left in place");
    }
}

} // namespace

int runTrash(const QCommandLineParser& parser, Report& report)
{
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty()) {
        return wrongUsage(report, QStringLiteral("at least one path is expected"));
    }
    QList<QJsonArray> rows;
    int failures = 0;
    for (const QString& path : paths) {
        const int result = CDir::moveToTrash(path);
        failures += result == CDir::TRASH_DONE ? 0 : 1;
        rows << QJsonArray{path, result, textOf(result)};
    }
    report.addTable("paths", {"path", "code", "result"}, rows);
    if (failures > 0) {
        return invalid(report,
                       QStringLiteral("%1 of %2 paths were not moved").arg(failures).arg(paths.size()));
    }
    return EXIT_DONE;
}
