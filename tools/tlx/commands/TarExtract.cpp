#include <core/files/CTar.h>
#include <tools/tlx/archive/Extraction.h>
#include <tools/tlx/archive/OpenArchive.h>
#include <tools/tlx/commands/TarExtract.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Progress.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

// The members that are asked for, by index; all of them when none is named. Headers of other members are none.
QList<int> chosenMembers(const OpenArchive& archive, const QStringList& names, Report& report)
{
    QSet<QString> missing(names.cbegin(), names.cend());
    const QSet<QString> wanted = missing;
    QList<int> indexes;
    for (int i = 0; i < archive.tar().count(); ++i) {
        const QString shown = archive.tar().info(i).mName;
        const QString whole = archive.wholeName(i);
        if (!archive.isExtension(i)
            && (names.isEmpty() || wanted.contains(shown) || wanted.contains(whole))) {
            indexes << i;
            missing.remove(shown);
            missing.remove(whole);
        }
    }
    for (const QString& name : names) {
        if (missing.contains(name)) {
            report.setError(noSuch(QStringLiteral("member"), name, archive.tar().names(),
                                   QStringLiteral("`tlx tar list` shows the names")));
        }
    }
    return indexes;
}

bool toExtract(const OpenArchive& archive, int index, SExtract& member)
{
    const CTarFileInfo info = archive.tar().info(index);
    member = {SExtract::File, archive.wholeName(index), archive.wholeTarget(index), archive.dataStart(index),
              info.mSize};
    switch (info.mType) {
    case CTarFileInfo::TYPE_FILE:
        // Old programs mark a directory by the slash alone.
        member.kind = member.path.endsWith(QLatin1Char('/')) ? SExtract::Directory : SExtract::File;
        return archive.hasWholeData(index);
    case CTarFileInfo::TYPE_DIRECTORY:
        member.kind = SExtract::Directory;
        return true;
    case CTarFileInfo::TYPE_SYMLINK:
        member.kind = SExtract::Link;
        return true;
    default:
        return false;
    }
}

QString kindName(SExtract::EKind kind)
{
    return kind == SExtract::File        ? QStringLiteral("file")
           : kind == SExtract::Directory ? QStringLiteral("directory")
                                         : QStringLiteral("link");
}

// A line an error, but of an archive with a great many not all of them.
class Faults
{
public:
    explicit Faults(Report& report)
        : mReport(report)
    {}
    ~Faults()
    {
        if (mCount > NAMED) {
            mReport.setError(QStringLiteral("%1 more members are refused").arg(mCount - NAMED));
        }
    }
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    void add(const QString& path, const QString& fault)
    {
        if (++mCount <= NAMED) {
            mReport.setError(path + QStringLiteral(": ") + fault);
        }
    }

private:
    static constexpr int NAMED = 20;
    Report& mReport;
    int mCount = 0;
};

// Those that can be made; the others are said in the report. Links come last, so that nothing is written through them.
QList<SExtract> planned(const OpenArchive& archive, const QList<int>& indexes, Faults& faults)
{
    QList<SExtract> members;
    for (const int index : indexes) {
        SExtract member;
        if (toExtract(archive, index, member)) {
            members << member;
        } else {
            faults.add(member.path,
                       QStringLiteral("only files, directories and symbolic links whose data is whole are "
                                      "extracted"));
        }
    }
    const auto isNoLink = [](const SExtract& member) { return member.kind != SExtract::Link; };
    std::stable_partition(members.begin(), members.end(), isNoLink);
    return members;
}

// Nothing is made when one member is refused: such an archive means harm, or is not for this folder.
bool areAllowed(Extraction& extraction, const QList<SExtract>& members, Faults& faults)
{
    bool isAllowed = true;
    for (const SExtract& member : members) {
        const QString fault = extraction.refusal(member);
        if (!fault.isEmpty()) {
            isAllowed = false;
            faults.add(member.path, fault);
        }
    }
    return isAllowed;
}

void make(OpenArchive& archive, Extraction& extraction, const QList<SExtract>& members, Faults& faults,
          Report& report)
{
    qint64 total = 0;
    for (const SExtract& member : members) {
        total += member.size;
    }
    qint64 done = 0;
    QList<QJsonArray> rows;
    {
        Progress progress(QStringLiteral("extracting"), total);
        for (const SExtract& member : members) {
            const QString fault = extraction.make(archive.device(), member,
                                                  [&](qint64 written) { progress.show(done + written); });
            done += member.size;
            if (fault.isEmpty()) {
                rows << QJsonArray{member.path, kindName(member.kind), wideNumber(member.size)};
            } else {
                faults.add(member.path, fault);
            }
        }
    }
    report.addTable("extracted", {"name", "kind", "size"}, rows);
}

} // namespace

int extractMembers(OpenArchive& archive, const QCommandLineParser& parser, Report& report)
{
    if (report.hasError()) {
        return EXIT_INVALID; // of a damaged archive nothing is made
    }
    const QString folder = parser.value(QStringLiteral("directory"));
    if (!QFileInfo(folder).isDir()) {
        return invalid(report, QStringLiteral("no such directory: ") + folder);
    }
    const QList<int> indexes = chosenMembers(archive, parser.positionalArguments().mid(2), report);
    if (report.hasError()) {
        return EXIT_INVALID;
    }
    Extraction extraction(folder, parser.isSet(QStringLiteral("force")));
    Faults faults(report);
    const QList<SExtract> members = planned(archive, indexes, faults);
    if (areAllowed(extraction, members, faults)) {
        make(archive, extraction, members, faults, report);
    } else {
        report.setError(QStringLiteral("nothing was extracted"));
    }
    return EXIT_DONE;
}
