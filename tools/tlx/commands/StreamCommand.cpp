#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/streams/ValueStream.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

const QString AUTO = QStringLiteral("auto");

QStringList kindChoices()
{
    return NValueStream::kinds() << AUTO;
}

// The form that the options ask for; says in the report which of them is wrong.
bool readForm(const QCommandLineParser& parser, SStreamForm& form, Report& report)
{
    form.kind = parser.value(QStringLiteral("kind"));
    const QString version = parser.value(QStringLiteral("stream-version"));
    form.order =
        parser.isSet(QStringLiteral("little-endian")) ? QDataStream::LittleEndian : QDataStream::BigEndian;
    if (!kindChoices().contains(form.kind)) {
        const QString advice = QStringLiteral("the kinds are ") + kindChoices().join(QLatin1String(", "));
        wrongUsage(report, noSuch(QStringLiteral("kind"), form.kind, kindChoices(), advice));
    } else if (!NValueStream::findVersion(version, form.version)) {
        const QStringList versions = NValueStream::versions();
        const QString advice = QStringLiteral("the versions are ") + versions.join(QLatin1String(", "));
        wrongUsage(report, noSuch(QStringLiteral("stream version"), version, versions, advice));
    }
    return !report.hasError();
}

SStreamContent contentOf(QIODevice& device, const SStreamForm& form)
{
    return form.kind == AUTO ? NValueStream::readAny(device, form.version) : NValueStream::read(device, form);
}

void addFault(QIODevice& device, const SStreamContent& content, bool isAuto, const QString& name,
              Report& report)
{
    if (content.fault.isEmpty()) {
        return;
    }
    const QString hint = isAuto ? QStringLiteral("no kind in either byte order reads it to its end")
                                : NValueStream::otherOrder(device, content.form);
    report.setError(name + content.fault + (hint.isEmpty() ? QString() : QStringLiteral(": ") + hint),
                    content.faultByte);
}

int show(const QString& name, const SStreamForm& form, Report& report)
{
    InputFile input;
    if (!input.openRandom(name, report)) {
        return EXIT_INVALID;
    }
    const SStreamContent content = contentOf(input.device(), form);
    QList<QJsonArray> rows;
    for (const SStreamItem& item : content.items) {
        rows << QJsonArray{wideNumber(item.byte), item.type, item.text};
    }
    report.add("kind", "Kind", content.form.kind);
    report.add("byteOrder", "Byte order", NValueStream::orderName(content.form.order));
    report.add("values", "Values", rows.size());
    report.addTable("items", {"byte", "type", "text"}, rows);
    addFault(input.device(), content, form.kind == AUTO, QString(), report);
    return EXIT_DONE;
}

QJsonValue shownItem(const SStreamContent& content, int index)
{
    if (index >= content.items.size()) {
        return QJsonValue();
    }
    const SStreamItem& item = content.items.at(index);
    return QString(item.type + QLatin1Char(' ') + item.text);
}

int showDifferences(const QString& nameA, const QString& nameB, const SStreamForm& form, Report& report)
{
    InputFile inputA;
    InputFile inputB;
    if (!inputA.openRandom(nameA, report) || !inputB.openRandom(nameB, report)) {
        return EXIT_INVALID;
    }
    const SStreamContent a = contentOf(inputA.device(), form);
    const SStreamContent b = contentOf(inputB.device(), form);
    QList<QJsonArray> rows;
    for (int i = 0; i < std::max(a.items.size(), b.items.size()); ++i) {
        const QJsonValue left = shownItem(a, i);
        const QJsonValue right = shownItem(b, i);
        if (left != right) {
            rows << QJsonArray{i, left, right};
        }
    }
    report.addTable("differences", {"value", "a", "b"}, rows);
    addFault(inputA.device(), a, form.kind == AUTO, nameA + QStringLiteral(": "), report);
    addFault(inputB.device(), b, form.kind == AUTO, nameB + QStringLiteral(": "), report);
    if (!rows.isEmpty()) {
        report.setError(QStringLiteral("%1 values differ").arg(rows.size()));
    }
    return EXIT_DONE;
}

} // namespace

QList<SOption> streamOptions()
{
    const QString kinds = kindChoices().join(QLatin1String(", "));
    const QString versions = NValueStream::versions().join(QLatin1String(", "));
    return {{"kind",
             QStringLiteral("What was streamed: %1 (auto tries all kinds and byte orders).").arg(kinds),
             "kind", "variant", 0, kindChoices},
            {"stream-version", QStringLiteral("The stream's version of Qt: %1.").arg(versions), "version",
             "5.15", 0, NValueStream::versions},
            {"little-endian", QStringLiteral("Reads numbers with their low byte first.")}};
}

QStringList streamWords(int position)
{
    return position == 1 ? QStringList{QStringLiteral("diff")} : QStringList();
}

int runStream(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const bool isDiff = arguments.size() == 3 && arguments.first() == QLatin1String("diff");
    if (arguments.size() != 1 && !isDiff) {
        return wrongUsage(report, QStringLiteral("one file, or diff and two files, is expected"));
    }
    SStreamForm form;
    if (!readForm(parser, form, report)) {
        return EXIT_USAGE;
    }
    return isDiff ? showDifferences(arguments.at(1), arguments.at(2), form, report)
                  : show(arguments.first(), form, report);
}
