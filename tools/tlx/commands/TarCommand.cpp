#include <core/files/CTar.h>
#include <tools/tlx/archive/OpenArchive.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/TarExtract.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>
#include <tools/tlx/terminal/Progress.h>
#include <tools/tlx/terminal/Terminal.h>

#include <QCommandLineParser>

#include <optional>

namespace {

int list(OpenArchive& archive, const QCommandLineParser& parser, Report& report)
{
    const bool isUtf8 = parser.isSet(QStringLiteral("utf8"));
    const auto shown = [isUtf8](const QString& name) {
        return isUtf8 ? QString::fromUtf8(name.toLatin1()) : name;
    };
    QList<QJsonArray> rows;
    for (int i = 0; i < archive.tar().count(); ++i) {
        const CTarFileInfo info = archive.tar().info(i);
        const QStringList losses = archive.losses(i);
        rows << QJsonArray{i,
                           archive.kindName(i),
                           wideNumber(info.mSize),
                           wideNumber(info.mPos),
                           shown(info.mName),
                           shown(info.mLinkName),
                           losses.isEmpty() ? QJsonValue() : QJsonValue(losses.join(QLatin1String("; ")))};
    }
    report.addTable("members", {"index", "kind", "size", "position", "name", "linkName", "note"}, rows);
    return EXIT_DONE;
}

// What the library reads without complaint, but a person may want to know.
QStringList warnings(const OpenArchive& archive)
{
    QStringList texts;
    for (int i = 0; i < archive.tar().count(); ++i) {
        const CTarFileInfo info = archive.tar().info(i);
        const QString where = QStringLiteral("member %1 at byte %2: ").arg(i).arg(info.mPos);
        const QStringList losses = archive.losses(i);
        for (const QString& loss : losses) {
            texts << where + loss;
        }
        if (archive.tar().index(info.mName) != i && !archive.isExtension(i)) {
            texts << where + QStringLiteral("a name that another member has");
        }
    }
    return texts;
}

int check(OpenArchive& archive, const QCommandLineParser&, Report& report)
{
    int kinds[] = {0, 0, 0, 0};
    qint64 bytes = 0;
    const CTar& tar = archive.tar();
    for (int i = 0; i < tar.count(); ++i) {
        ++kinds[tar.info(i).mType];
        bytes += tar.info(i).mSize;
    }
    const QStringList texts = warnings(archive);
    report.add("members", "Members", tar.count());
    report.add("files", "Regular files", kinds[CTarFileInfo::TYPE_FILE]);
    report.add("links", "Symbolic links", kinds[CTarFileInfo::TYPE_SYMLINK]);
    report.add("directories", "Directories", kinds[CTarFileInfo::TYPE_DIRECTORY]);
    report.add("others", "Other kinds", kinds[CTarFileInfo::TYPE_INVALID]);
    report.add("bytes", "Bytes in members", wideNumber(bytes));
    report.add("warnings", "Warnings", QJsonArray::fromStringList(texts));
    if (!texts.isEmpty()) {
        report.setError(QStringLiteral("%1 warnings: see the list").arg(texts.size()));
    }
    return EXIT_DONE;
}

// The member that the command line names; -1, and said in the report, when there is none.
int findMember(const OpenArchive& archive, const QString& member, bool byIndex, Report& report)
{
    if (!byIndex) {
        const int index = archive.find(member);
        if (index < 0) {
            report.setError(noSuch(QStringLiteral("member"), member, archive.tar().names(),
                                   QStringLiteral("`tlx tar list` shows the names")));
        }
        return index;
    }
    bool isNumber = false;
    const int index = member.toInt(&isNumber);
    if (!isNumber) {
        wrongUsage(
            report,
            QStringLiteral("not an index: %1: a number out of `tlx tar list` is expected").arg(member));
    } else if (index < 0 || index >= archive.tar().count()) {
        report.setError(QStringLiteral("no such index: %1: the archive has %2 members")
                            .arg(index)
                            .arg(archive.tar().count()));
    }
    return report.hasError() ? -1 : index;
}

// Hands a member's data to `print` in blocks, with progress on a terminal that does not show the data itself.
template <typename Print>
int copyMember(OpenArchive& archive, int index, const Print& print, Report& report)
{
    const qint64 size = archive.tar().info(index).mSize;
    std::optional<Progress> progress;
    if (!NTerminal::isTerminal(stdout)) {
        progress.emplace(QStringLiteral("reading"), size);
    }
    qint64 copied = 0;
    const auto write = [&](const QByteArray& block) {
        print(block);
        if (progress) {
            progress->show(copied);
        }
        return outputState() == OUTPUT_WRITTEN;
    };
    report.setWritten();
    if (!copyBlocks(archive.device(), archive.dataStart(index), size, write, copied) && copied < size
        && outputState() == OUTPUT_WRITTEN) {
        return invalid(report,
                       QStringLiteral("ERROR: %1 bytes read but %2 are expected !").arg(copied).arg(size),
                       archive.dataStart(index));
    }
    return EXIT_DONE;
}

int catBytes(OpenArchive& archive, int index, Report& report)
{
    return copyMember(
        archive, index, [](const QByteArray& block) { printBytes(stdout, block); }, report);
}

// The report's object, with the data put into its place block by block.
int catJson(OpenArchive& archive, int index, Report& report)
{
    const QByteArray name("base64");
    report.add(name.constData(), "Base64", QString());
    const QByteArray json = report.json();
    const int place = json.indexOf(QByteArray('"' + name + "\": \"")) + name.size() + 5;
    printBytes(stdout, json.left(place));
    QByteArray rest; // fewer than three bytes, which are not a group of Base64 yet
    const auto print = [&rest](const QByteArray& block) {
        rest += block;
        const int whole = rest.size() / 3 * 3;
        printBytes(stdout, rest.left(whole).toBase64());
        rest.remove(0, whole);
    };
    const int code = copyMember(archive, index, print, report);
    printBytes(stdout, rest.toBase64() + json.mid(place));
    return code;
}

int cat(OpenArchive& archive, const QCommandLineParser& parser, Report& report)
{
    if (report.hasError()) {
        return EXIT_INVALID;
    }
    const bool byIndex = parser.isSet(QStringLiteral("index"));
    const QString member = parser.positionalArguments().at(2);
    const int index = findMember(archive, member, byIndex, report);
    if (index < 0) {
        bool isNumber = true;
        if (byIndex) {
            member.toInt(&isNumber);
        }
        return isNumber ? EXIT_INVALID : EXIT_USAGE;
    }
    return parser.isSet(QStringLiteral("json")) ? catJson(archive, index, report)
                                                : catBytes(archive, index, report);
}

// The tasks, and how many arguments follow the archive's name.
struct STask
{
    const char* name;
    int least;
    int most;
    int (*run)(OpenArchive& archive, const QCommandLineParser& parser, Report& report);
};

constexpr STask TASKS[] = {{"list", 0, 0, list},
                           {"check", 0, 0, check},
                           {"cat", 1, 1, cat},
                           {"extract", 0, 1 << 20, extractMembers}};

} // namespace

QList<SOption> tarOptions()
{
    return {{"index", QStringLiteral("cat: MEMBER is an index from `list`, not a name.")},
            {"utf8", QStringLiteral("list: decodes names as UTF-8; the library reads them as Latin-1.")},
            {"directory", QStringLiteral("extract: the folder to extract into (the current one)."), "DIR",
             ".", 'C'},
            {"force", QStringLiteral("extract: replaces existing files.")}};
}

QStringList tarWords(int position)
{
    QStringList names;
    for (const STask& task : TASKS) {
        names << QLatin1String(task.name);
    }
    return position == 1 ? names : QStringList();
}

int runTar(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const int further = arguments.size() - 2;
    for (const STask& task : TASKS) {
        if (arguments.value(0) == QLatin1String(task.name) && further >= task.least && further <= task.most) {
            OpenArchive archive;
            return archive.open(arguments.at(1), report) ? task.run(archive, parser, report)
                                                         : int(EXIT_INVALID);
        }
    }
    return wrongUsage(
        report,
        QStringLiteral("list FILE, check FILE, cat FILE MEMBER or extract FILE [MEMBER]... is expected"));
}
