#include <tools/tlx/commands/PathsCommand.h>

#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/Directories.h>
#include <tools/tlx/report/Report.h>

#include <core/files/CPath.h>

#include <QCommandLineParser>
#include <QFileInfo>

void addDirectories(Report& report, bool create)
{
    QList<QJsonArray> rows;
    for (const SDirectory& directory : DIRECTORIES) {
        const QString path = directory.path(create);
        const bool exists = QFileInfo(path).isDir();
        rows << QJsonArray{QLatin1String(directory.name), path, exists};
    }
    report.addTable("directories", {"name", "path", "exists"}, rows);
}

QList<SOption> pathsOptions()
{
    return {{"create", QStringLiteral("Makes the directories that are missing.")}};
}

int runPaths(const QCommandLineParser& parser, Report& report)
{
    if (!parser.positionalArguments().isEmpty()) {
        return wrongUsage(report, QStringLiteral("no arguments are expected"));
    }
    report.add("product", "Product", CPath::productName());
    report.add("install", "Installation", CPath::installPath());
    report.add("appdata", "Application data", CPath::appdataPath());
    report.add("userdata", "User's documents", CPath::userdataPath());
    addDirectories(report, parser.isSet(QStringLiteral("create")));
    return EXIT_DONE;
}
