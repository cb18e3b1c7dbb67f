#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>
#include <tests/tools/CommandLines.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

/// The forms for machines: one JSON object of one shape and known types, JSON lines, comma-separated values.
class tst_tlxFormats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void schema_data();
    void schema();
    void jsonLines();
    void csv();
    void beforeTheCommand();
    void labels_data();
    void labels();
};

namespace {

// What the key's value is wherever it occurs: b(oolean), n(umber), t(ext), w(ide number, a text of digits), o(bject),
// a(rray); with "?" null as well.
const QMap<QString, QString>& kinds()
{
    static const QMap<QString, QString> map = [] {
        QMap<QString, QString> kindOf;
        const char* const lists[][2] = {
            {"b", "valid null accepted complete exists flag1 flag2 strictlyMinimum strictlyShort "
                  "strictlyFull found right "
                  "validFileName"},
            {"n", "typeNumber typeCode key number device port sourceType addressType value1 value2 product "
                  "index values "
                  "members files links others line fractionDigits width preShift shortest ticksPerUs "
                  "driveAddress powerAddress comAddress currentUnit userLevel deviceFunction deviceClass "
                  "numberAsI32 "
                  "u8 i8 u16 i16 u32 i32 f32 f64"},
            {"n?", "platform version revision"},
            {"w", "position byte bytes u64 i64"},
            {"a", "warnings entries differences"},
            {"o", "readAs default local utc format shown read given arguments paths title log converted "
                  "previousInteger"},
        };
        for (const auto& list : lists) {
            const QStringList keys = QString::fromLatin1(list[1]).split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (const QString& key : keys) {
                kindOf.insert(key, QLatin1String(list[0]));
            }
        }
        return kindOf;
    }();
    return map;
}

bool isOfKind(const QJsonValue& value, const QString& kind)
{
    static const QRegularExpression digits(QStringLiteral("^-?[0-9]+$"));
    switch (kind.at(0).toLatin1()) {
    case 'b':
        return value.isBool();
    case 'n':
        return value.isDouble();
    case 'w':
        return value.isString() && digits.match(value.toString()).hasMatch();
    case 'a':
        return value.isArray();
    case 'o':
        return value.isObject();
    default:
        return false;
    }
}

// Keys that mean something else there: what was given is text, bytes in hexadecimal digits are, and a tool has a title.
bool isOfItsOwn(const QString& path, const QString& command)
{
    const QString key = path.section(QLatin1Char('/'), -1);
    return path.startsWith(QLatin1String("/given/")) || path.startsWith(QLatin1String("/values/units/"))
           || path == QLatin1String("/title/title")
           || (key == QLatin1String("bytes")
               && (command == QLatin1String("datetime") || command == QLatin1String("ip")))
           || (key == QLatin1String("product") && command == QLatin1String("paths"))
           || (key == QLatin1String("number") && command == QLatin1String("motor"));
}

QString kindOf(const QString& path, const QString& command)
{
    const QString key = path.section(QLatin1Char('/'), -1);
    const bool isCatalogue = command == QLatin1String("unit") || command == QLatin1String("trash");
    if (isOfItsOwn(path, command)) {
        return QString();
    }
    if (key == QLatin1String("size")) { // of a unit, otherwise of a file
        return isCatalogue ? QStringLiteral("n") : QStringLiteral("w?");
    }
    if (key == QLatin1String("count")) {
        return command == QLatin1String("duration") ? QStringLiteral("w?") : QStringLiteral("n");
    }
    if (key == QLatin1String("value")) {
        return command == QLatin1String("entry") || path == QLatin1String("/units/*/value")
                   ? QStringLiteral("n")
                   : QString();
    }
    return key == QLatin1String("code") && isCatalogue ? QStringLiteral("n") : kinds().value(key);
}

// The first value that is not of its kind, as "path: value"; words like "yes" are never texts.
QString fault(const QJsonValue& value, const QString& path, const QString& command)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it) {
            const QString inside = fault(it.value(), path + QLatin1Char('/') + it.key(), command);
            if (!inside.isEmpty()) {
                return inside;
            }
        }
    }
    if (value.isArray()) {
        QStringList shapes;
        const QJsonArray array = value.toArray();
        for (const QJsonValue& row : array) {
            const QString inside = fault(row, path + QStringLiteral("/*"), command);
            shapes << row.toObject().keys().join(QLatin1Char(' '));
            if (!inside.isEmpty() || shapes.last() != shapes.first()) {
                return inside.isEmpty() ? path + QStringLiteral(": rows of several shapes") : inside;
            }
        }
    }
    if (value.toString() == QLatin1String("yes") || value.toString() == QLatin1String("no")
        || value.toString() == QLatin1String("not set")) {
        return path + QStringLiteral(": a word for a boolean or null");
    }
    const QString kind = kindOf(path, command);
    const bool isTable = value.isArray() || value.isObject();
    if (kind.isEmpty() || isTable || (value.isNull() && kind.endsWith(QLatin1Char('?')))) {
        return QString();
    }
    return isOfKind(value, kind) ? QString() : path + QStringLiteral(": not of kind ") + kind;
}

} // namespace

void tst_tlxFormats::schema_data()
{
    QTest::addColumn<QStringList>("arguments");

    const QList<QStringList> lines = showingCommandLines();
    for (const QStringList& line : lines) {
        QTest::newRow(qPrintable(line.join(QLatin1Char(' ')))) << line;
    }
}

void tst_tlxFormats::schema()
{
    QFETCH(QStringList, arguments);
    const ExampleFiles files;
    const InDirectory in(files.directory());
    QStringList line = arguments;
    line.insert(1, "--json"_text);
    const STlxRun run = runTlx(line);

    QVERIFY2(run.exitCode == 0, run.errorOutput.constData());
    const QJsonObject object = run.json();
    QCOMPARE(object.keys(), (QStringList{"command"_text, "ok"_text, "result"_text}));
    QCOMPARE(object.value(QLatin1String("command")).toString(), arguments.first());
    QCOMPARE(object.value(QLatin1String("ok")), QJsonValue(true));
    QVERIFY(!run.result().isEmpty());
    QCOMPARE(fault(object.value(QLatin1String("result")), QString(), arguments.first()), QString());
}

void tst_tlxFormats::jsonLines()
{
    const ExampleFiles files;
    const STlxRun run = runTlx({"stream"_text, "--jsonl"_text, files.directory() + "/b.variants"_text});
    QCOMPARE(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.size(), 3);
    const QJsonObject second = QJsonDocument::fromJson(lines.at(1)).object();
    QCOMPARE(second.value(QLatin1String("text")).toString(), "32"_text);
    QCOMPARE(lines.at(2), QByteArray());
    QCOMPARE(runTlx({"ip"_text, "1:2:3:4:5:6:7:8"_text, "--jsonl"_text}).output.count('\n'), 1);
}

void tst_tlxFormats::csv()
{
    const QByteArray input = "plain\na,b\nsay \"x\"\n";
    const STlxRun run = runTlx({"value"_text, "STRING32"_text, "-"_text, "--csv"_text}, {}, {}, input);
    QCOMPARE(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.at(0), QByteArray("line,text,value,hex,accepted,note"));
    QVERIFY2(lines.at(1).startsWith("1,plain,plain,"), lines.at(1).constData());
    QVERIFY2(lines.at(2).startsWith("2,\"a,b\",\"a,b\","), lines.at(2).constData());
    QVERIFY2(lines.at(3).startsWith("3,\"say \"\"x\"\"\",\"say \"\"x\"\"\","), lines.at(3).constData());
    QVERIFY2(lines.at(3).endsWith(",true,"), lines.at(3).constData());
    QCOMPARE(runTlx({"hwid"_text, "A012_003_X"_text, "--csv"_text}).output.split('\n').size(), 3);
    const QList<QByteArray> value =
        runTlx({"value"_text, "U16"_text, "31"_text, "--csv"_text}).output.split('\n');
    const int column = value.at(0).split(',').indexOf("readAs.u32");
    QVERIFY(column > 0);
    QCOMPARE(value.at(1).split(',').value(column), QByteArray("31"));
}

void tst_tlxFormats::beforeTheCommand()
{
    const QStringList command{"value"_text, "U16"_text, "31"_text};
    for (const char* format : {"--json", "--jsonl", "--csv"}) {
        const QStringList option{QLatin1String(format)};
        const STlxRun before = runTlx(option + command);
        QCOMPARE(before.exitCode, 0);
        QCOMPARE(before.output, runTlx(command + option).output);
    }
    // After "--" it is a text.
    QVERIFY(runTlx({"value"_text, "STRING32"_text, "--"_text, "--json"_text}).output.contains("--json"));
}

void tst_tlxFormats::labels_data()
{
    QTest::addColumn<QStringList>("arguments");

    for (const char* line :
         {"value U16 0x1F", "number 31", "datetime 2024-03-05T13:07:09", "duration 1500 ms s",
          "hwid A012_003_X", "motor ACME_M100_1", "ip 1:2:3:4:5:6:7:8", "crc a.txt", "company 101",
          "tar check a.tar", "totp make --key-file key", "bench-ticks", "unit UNIT_U16"}) {
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' '));
    }
}

// One style: a label begins with a capital letter.
void tst_tlxFormats::labels()
{
    QFETCH(QStringList, arguments);
    const ExampleFiles files;
    const InDirectory in(files.directory());
    const QStringList lines =
        QString::fromUtf8(runTlx(arguments).output).split("\n"_text, Qt::SkipEmptyParts);
    QVERIFY(!lines.isEmpty());
    for (const QString& line : lines) {
        QVERIFY2(line.trimmed().at(0).isUpper() || line.trimmed().startsWith(QLatin1String("8 bytes")),
                 qPrintable(line));
    }
}

QTEST_GUILESS_MAIN(tst_tlxFormats)
#include "tst_tlxFormats.moc"
