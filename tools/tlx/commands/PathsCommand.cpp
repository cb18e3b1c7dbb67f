#include <tools/tlx/commands/PathsCommand.h>

#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/Directories.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/files/CPath.h>

#include <QCommandLineParser>
#include <QFileInfo>

void addDirectories(Report& report, bool create)
{
    QList<QStringList> rows;
    for (const SDirectory& directory : DIRECTORIES) {
        const QString path = directory.path(create);
        const bool exists = QFileInfo(path).isDir();
        rows << QStringList{QLatin1String(directory.name), path,
                            exists ? QStringLiteral("yes") : QStringLiteral("no")};
    }
    report.addTable(QStringLiteral("directories"),
                    {QStringLiteral("name"), QStringLiteral("path"), QStringLiteral("exists")}, rows);
}

void addPathsOptions(QCommandLineParser& parser)
{
    parser.addOption({QStringLiteral("create"), QStringLiteral("Makes the directories that are missing.")});
}

int runPaths(const QCommandLineParser& parser, Report& report)
{
    if (!parser.positionalArguments().isEmpty()) {
        return wrongUsage(report, QStringLiteral("takes no arguments"));
    }
    report.add(QStringLiteral("product"), QStringLiteral("Product"), CPath::productName());
    report.add(QStringLiteral("install"), QStringLiteral("Installation"), CPath::installPath());
    report.add(QStringLiteral("appdata"), QStringLiteral("Application data"), CPath::appdataPath());
    report.add(QStringLiteral("userdata"), QStringLiteral("User's documents"), CPath::userdataPath());
    addDirectories(report, parser.isSet(QStringLiteral("create")));
    return EXIT_DONE;
}
