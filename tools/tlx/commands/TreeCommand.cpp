#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/files/CDir.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

QString kindOf(const QFileInfo& info)
{
    return info.isSymLink() ? QStringLiteral("link")
           : info.isDir()   ? QStringLiteral("directory")
                            : QStringLiteral("file");
}

NtlxGlobal::EDirFilter filterOf(const QCommandLineParser& parser)
{
    return parser.isSet(QStringLiteral("files"))  ? NtlxGlobal::DIR_FILTER_FILES
           : parser.isSet(QStringLiteral("dirs")) ? NtlxGlobal::DIR_FILTER_DIRS
                                                  : NtlxGlobal::DIR_FILTER_ALL;
}

} // namespace

void addTreeOptions(QCommandLineParser& parser)
{
    parser.addOption({QStringLiteral("files"), QStringLiteral("Lists files only.")});
    parser.addOption({QStringLiteral("dirs"), QStringLiteral("Lists directories only.")});
}

int runTree(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one directory is expected"));
    }
    if (parser.isSet(QStringLiteral("files")) && parser.isSet(QStringLiteral("dirs"))) {
        return wrongUsage(report, QStringLiteral("--files and --dirs exclude each other"));
    }
    const QFileInfo directory(arguments.first());
    if (arguments.first().isEmpty() || !directory.isDir()) {
        report.setError(QStringLiteral("no such directory: %1").arg(arguments.first()));
        return EXIT_INVALID;
    }
    const QString root = QDir::current().absoluteFilePath(arguments.first());
    QList<QStringList> rows;
    qint64 bytes = 0;
    const QFileInfoList entries = CDir::entryInfoListRecursive(root, {}, filterOf(parser));
    for (const QFileInfo& entry : entries) {
        const bool isFile = entry.isFile() && !entry.isSymLink();
        bytes += isFile ? entry.size() : 0;
        rows << QStringList{CDir::getRelativeSubPath(root, entry.filePath()), kindOf(entry),
                            isFile ? QString::number(entry.size()) : QString()};
    }
    std::sort(rows.begin(), rows.end());
    report.add(QStringLiteral("directory"), QStringLiteral("Directory"), directory.absoluteFilePath());
    report.add(QStringLiteral("count"), QStringLiteral("Entries"), rows.size());
    report.add(QStringLiteral("bytes"), QStringLiteral("Bytes in files"), QString::number(bytes));
    report.addTable(QStringLiteral("entries"),
                    {QStringLiteral("path"), QStringLiteral("kind"), QStringLiteral("size")}, rows);
    return EXIT_DONE;
}
