#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

/// The library takes every text; the program says what became of it, and shows the value all the same.
class tst_tlxRefused : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void said_data();
    void said();
    void taken_data();
    void taken();
    void lines();
};

void tst_tlxRefused::said_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("path"); // of the value that is still shown
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("message");

    const auto row = [](const char* line, const char* path, const char* shown, const char* message) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(path) << QString::fromUtf8(shown)
                            << QString::fromUtf8(message);
    };
    row("value U16 abc", "text", "0", "abc: not a U16: the library reads 0");
    row("value U16 70000", "text", "4464", "70000: does not fit U16: truncated to 4464");
    row("value U8 65536", "text", "0", "65536: does not fit U8: truncated to 0");
    row("value U32 4294967296", "text", "0", "4294967296: does not fit U32: truncated to 0");
    row("value I8 200", "text", "-56", "200: does not fit I8: truncated to -56");
    row("value -- U8 -1", "text", "0", "-1: does not fit U8: the library reads 0");
    row("value U64 18446744073709551616", "text", "0",
        "18446744073709551616: not a U64: the library reads 0");
    row("value F32 1,5", "text", "0", "1,5: not a F32: the library reads 0");
    row("value F32 1e39", "text", "0", "1e39: does not fit F32: the library reads 0");
    row("value F32 1e-50", "text", "0", "1e-50: does not fit F32: the library reads 0");
    row("value F64 x", "text", "0", "x: not a F64: the library reads 0");
    row("value DATETIME 2024-02-30T10:00:00", "text", "",
        "2024-02-30T10:00:00: not a DATETIME: the library reads 0 in every field");
    row("value DATETIME 2024-02-03T10:00:00+02:00", "text", "",
        "2024-02-03T10:00:00+02:00: the time zone is not kept: the library reads the fields as they are "
        "written");
    row("value STRING32 123456789012345678901234567890123", "text", "12345678901234567890123456789012",
        "123456789012345678901234567890123: does not fit STRING32: truncated to 32 characters");
    row("value CHAR ab", "text", "a", "ab: does not fit CHAR: truncated to 1 characters");
    row("value CHARSTR64 日", "text", "?", "日: not a CHARSTR64: the library reads ?");
    row("ip ::1", "address", "0:0:0:0:0:0:0:0",
        "groups are omitted, and the library reads 0:0:0:0:0:0:0:0: write all eight groups");
    row("company 999", "name", "PRODUCT999", "no such product: 999: \"tlx company\" lists the products");
    row("start port=abc foo", "arguments/port", "0",
        "ignored: foo: an argument has the form KEY=VALUE; not a number: port=abc: the library reads 0");
    row("start =5 cu=0x1 level=1", "arguments/currentUnit", "0",
        "not a number: cu=0x1: the library reads 0; ignored: =5: an argument has the form KEY=VALUE");
    row("start comadr=-1", "arguments/comAddress", "0", "not a number: comadr=-1: the library reads 0");
    row("start lang=xx", "arguments/language", "C", "not a language: lang=xx: the library reads C");
    row("start level=1 level=2", "arguments/userLevel", "2",
        "ignored: level=1: a later argument has the same key");
    row("start --product 999", "title/name", "PRODUCT999",
        "no such product: 999: \"tlx company\" lists the products");
    row("start --unit UNIT_U16=abc", "arguments/port", "0", "UNIT_U16=abc: not a U16: the library reads 0");
    row("duration 1e30 h ps", "converted/unit", "ps",
        "a whole count does not fit: the library's counts end at 2^63");
    row("duration 10000000 h ps", "converted/count", "9223372036854775808",
        "a whole count does not fit: the library's counts end at 2^63");
}

void tst_tlxRefused::said()
{
    QFETCH(QString, line);
    QFETCH(QString, path);
    QFETCH(QString, message);

    QStringList arguments = line.split(QLatin1Char(' '));
    arguments.insert(1, QStringLiteral("--json"));
    const STlxRun run = runTlx(arguments, {QStringLiteral("LC_ALL=C.UTF-8")});

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.json().value(QLatin1String("error")).toObject().value(QLatin1String("message")).toString(),
             message);
    QJsonValue value = run.result();
    const QStringList keys = path.split(QLatin1Char('/'));
    for (const QString& key : keys) {
        QVERIFY2(value.toObject().contains(key), qPrintable(key));
        value = value[key];
    }
    QTEST(value.toVariant().toString(), "shown");
}

void tst_tlxRefused::taken_data()
{
    QTest::addColumn<QStringList>("arguments");

    for (const char* line :
         {"value U16 0x1F", "value U16 010", "value U8 255", "value I64 -- -9223372036854775808",
          "value F32 1.5", "value F64 1e300", "value DATETIME 2018-05-04T13:22:10.560", "value DATETIME 0",
          "value STRING32 12345678901234567890123456789012", "value CHARSTR64 text", "value CHAR a",
          "value U8", "ip 1:2:3:4:5:6:7:8", "company 101", "start port=0x1F key=1 lang=de lang2=xx",
          "start lang=C", "duration 1.5 h ps", "duration 18446744073709551615 ps ps"}) {
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' '));
    }
}

void tst_tlxRefused::taken()
{
    QFETCH(QStringList, arguments);

    const STlxRun run = runTlx(arguments);

    QVERIFY2(run.exitCode == 0, run.errorOutput.constData());
    QCOMPARE(run.errorOutput, QByteArray());
}

void tst_tlxRefused::lines()
{
    const STlxRun run =
        runTlx({"value"_text, "U16"_text, "-"_text, "--json"_text}, {}, {}, "31\n70000\r\nabc\n\n0x10");

    QCOMPARE(run.exitCode, 1);
    const QJsonArray rows = run.result().value(QLatin1String("values")).toArray();
    QCOMPARE(rows.size(), 5);
    const QList<int> values{31, 4464, 0, 0, 16};
    const QList<bool> accepted{true, false, false, false, true};
    for (int i = 0; i < rows.size(); ++i) {
        QCOMPARE(rows[i][QLatin1String("line")].toInt(), i + 1);
        QCOMPARE(rows[i][QLatin1String("value")].toString(), QString::number(values.at(i)));
        QCOMPARE(rows[i][QLatin1String("accepted")].toBool(), accepted.at(i));
    }
    QCOMPARE(rows[1][QLatin1String("note")].toString(), "does not fit U16: truncated to 4464"_text);
    QVERIFY(rows[4][QLatin1String("note")].isNull());
}

QTEST_GUILESS_MAIN(tst_tlxRefused)
#include "tst_tlxRefused.moc"
