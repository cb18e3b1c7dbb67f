#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/Undecodable.h>
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

QList<SOption> treeOptions()
{
    return {{"files", QStringLiteral("Lists files only.")},
            {"dirs", QStringLiteral("Lists directories only.")}};
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
        return invalid(report, QStringLiteral("no such directory: ") + arguments.first());
    }
    const QString root = QDir::current().absoluteFilePath(arguments.first());
    QList<QJsonArray> rows;
    qint64 bytes = 0;
    const QFileInfoList entries = CDir::entryInfoListRecursive(root, {}, filterOf(parser));
    for (const QFileInfo& entry : entries) {
        const bool isFile = entry.isFile() && !entry.isSymLink();
        bytes += isFile ? entry.size() : 0;
        rows << QJsonArray{CDir::getRelativeSubPath(root, entry.filePath()), kindOf(entry),
                           isFile ? wideNumber(entry.size()) : QJsonValue()};
    }
    const auto isBefore = [](const QJsonArray& a, const QJsonArray& b) {
        return a.at(0).toString() < b.at(0).toString();
    };
    std::sort(rows.begin(), rows.end(), isBefore);
    report.add("directory", "Directory", directory.absoluteFilePath());
    report.add("count", "Entries", rows.size());
    report.add("bytes", "Bytes in files", wideNumber(bytes));
    report.addTable("entries", {"path", "kind", "size"}, rows);
    addOmitted(arguments.first(), report);
    return EXIT_DONE;
}
