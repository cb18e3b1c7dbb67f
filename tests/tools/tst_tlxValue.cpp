#include <tests/support/TlxProcess.h>

#include <core/text/CStr.h>

#include <QtTest>

// `tlx value`: parses a text as a type and shows the value in all its forms.
class tst_tlxValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void number();
    void negativeNumber();
    void bigNumber();
    void digits_data();
    void digits();
    void text();
    void controlCharacters();
    void dateTime();
    void defaultValue();
    void everyType_data();
    void everyType();
    void localText();
    void asText();
    void noValue_data();
    void noValue();
    void wrongUsage_data();
    void wrongUsage();
};

namespace {

STlxRun runValue(const QStringList& arguments, const QStringList& environment = {})
{
    return runTlx(QStringList{QStringLiteral("value"), QStringLiteral("--json")} + arguments, environment);
}

QJsonObject section(const STlxRun& run, const char* name)
{
    return run.result().value(QLatin1String(name)).toObject();
}

QJsonValue read(const STlxRun& run, const char* type)
{
    return section(run, "readAs").value(QLatin1String(type));
}

} // namespace

void tst_tlxValue::number()
{
    const STlxRun run = runValue({QStringLiteral("U16"), QStringLiteral("0x12F")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    const QJsonObject result = run.result();
    QCOMPARE(result.value(QLatin1String("type")).toString(), QStringLiteral("U16"));
    QCOMPARE(result.value(QLatin1String("typeNumber")).toInt(), 3);
    QCOMPARE(result.value(QLatin1String("payload")).toString(), QStringLiteral("ushort"));
    QCOMPARE(result.value(QLatin1String("valid")).toBool(), true);
    QCOMPARE(result.value(QLatin1String("null")).toBool(true), false);
    QCOMPARE(result.value(QLatin1String("text")).toString(), QStringLiteral("303"));
    QCOMPARE(read(run, "u8").toInt(), 47);
    QCOMPARE(read(run, "i32").toInt(), 303);
    QCOMPARE(read(run, "u64").toString(), QStringLiteral("303"));
    QCOMPARE(read(run, "f64").toDouble(), 303.0);
    QVERIFY(read(run, "string32").isUndefined());
    QVERIFY(read(run, "charstr64").isUndefined());
    QCOMPARE(section(run, "default").value(QLatin1String("payload")).toString(), QStringLiteral("int"));
}

void tst_tlxValue::negativeNumber()
{
    const STlxRun run = runValue({QStringLiteral("i8"), QStringLiteral("--"), QStringLiteral("-5")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(read(run, "i8").toInt(), -5);
    QCOMPARE(read(run, "u8").toInt(), 251);
}

void tst_tlxValue::digits_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("bits");

    const QString none;
    QTest::newRow("U16") << QStringList{QStringLiteral("U16"), QStringLiteral("303")}
                         << QStringLiteral("012f") << QStringLiteral("00000001 00101111");
    QTest::newRow("I8") << QStringList{QStringLiteral("I8"), QStringLiteral("--"), QStringLiteral("-2")}
                        << QStringLiteral("fe") << QStringLiteral("11111110");
    QTest::newRow("CHAR") << QStringList{QStringLiteral("CHAR"), QStringLiteral("A")} << QStringLiteral("41")
                          << none;
    QTest::newRow("F32") << QStringList{QStringLiteral("F32"), QStringLiteral("1.5")} << none << none;
}

void tst_tlxValue::digits()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, hex);
    QFETCH(QString, bits);
    const STlxRun run = runValue(arguments);

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QCOMPARE(run.result().value(QLatin1String("hex")).toString(), hex);
    QCOMPARE(run.result().value(QLatin1String("bits")).toString(), bits);
}

void tst_tlxValue::bigNumber()
{
    const STlxRun run = runValue({QStringLiteral("U64"), QStringLiteral("18446744073709551615")});
    QCOMPARE(run.result().value(QLatin1String("text")).toString(), QStringLiteral("18446744073709551615"));
    QCOMPARE(read(run, "i64").toString(), QStringLiteral("-1"));
    const STlxRun infinite = runValue({QStringLiteral("F64"), QStringLiteral("inf")});
    QCOMPARE(read(infinite, "f64").toString(), QStringLiteral("inf"));
}

void tst_tlxValue::text()
{
    const STlxRun run = runValue({QStringLiteral("STRING32"), QStringLiteral("Axis 1")});
    QCOMPARE(run.result().value(QLatin1String("payload")).toString(), QStringLiteral("CString32"));
    QCOMPARE(read(run, "string128").toString(), QStringLiteral("Axis 1"));
    QCOMPARE(read(run, "utf16char").toString(), QStringLiteral("A"));
    QVERIFY(read(run, "i32").isUndefined());
    const STlxRun bytes = runValue({QStringLiteral("CHARSTR64"), QStringLiteral("Axis 1")});
    QCOMPARE(read(bytes, "charstr256").toString(), QStringLiteral("Axis 1"));
    QCOMPARE(read(bytes, "char").toString(), QStringLiteral("A"));
}

void tst_tlxValue::controlCharacters()
{
    const STlxRun run =
        runTlx({QStringLiteral("value"), QStringLiteral("STRING32"), QStringLiteral("a\x1b[2Jb")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.output.contains('\x1b'));
    QVERIFY(run.output.contains("a\\x1b[2Jb"));
}

void tst_tlxValue::dateTime()
{
    const STlxRun run = runValue({QStringLiteral("DATETIME"), QStringLiteral("2018-05-04T13:22:10.560")});
    QCOMPARE(read(run, "u64").toString(), QString::number(0x07E205040D160A38ULL));
    QCOMPARE(run.result().value(QLatin1String("text")).toString(), QString());
}

void tst_tlxValue::defaultValue()
{
    const STlxRun run = runValue({QStringLiteral("U8")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("text")).toString(), QStringLiteral("0"));
    QCOMPARE(run.result().value(QLatin1String("payload")).toString(), QStringLiteral("int"));
}

void tst_tlxValue::everyType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    for (int number = 1; number <= 20; ++number) {
        if (number != NTypes::TYPE_F80) {
            const QString name = CStr::nTypeToStr(static_cast<NTypes::ETypes>(number));
            QTest::newRow(qPrintable(name)) << name << number;
        }
    }
}

// By name and by number it is the same.
void tst_tlxValue::everyType()
{
    QFETCH(QString, name);
    QFETCH(int, number);
    const STlxRun byName = runValue({name, QStringLiteral("5")});
    const STlxRun byNumber = runValue({QString::number(number), QStringLiteral("5")});
    QCOMPARE(byName.exitCode, 0);
    QCOMPARE(byName.output, byNumber.output);
    QCOMPARE(byName.result().value(QLatin1String("typeNumber")).toInt(), number);
}

void tst_tlxValue::localText()
{
#ifdef Q_OS_WIN
    QSKIP("the locale comes from the user's settings there, not from the environment");
#endif
    const STlxRun run = runValue({QStringLiteral("F64"), QStringLiteral("2.5")},
                                 {QStringLiteral("LC_ALL=de_DE.UTF-8"), QStringLiteral("LANG=de_DE.UTF-8")});
    QCOMPARE(run.result().value(QLatin1String("text")).toString(), QStringLiteral("2.5"));
    QCOMPARE(run.result().value(QLatin1String("localText")).toString(), QStringLiteral("2,5"));
}

void tst_tlxValue::asText()
{
    const STlxRun run = runTlx({QStringLiteral("value"), QStringLiteral("U8"), QStringLiteral("0x1F")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains("U8"));
    QVERIFY(run.output.contains("31"));
}

void tst_tlxValue::noValue_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("UNKNOWN") << QStringLiteral("UNKNOWN");
    QTest::newRow("F80") << QStringLiteral("F80");
    QTest::newRow("11") << QStringLiteral("11");
}

void tst_tlxValue::noValue()
{
    QFETCH(QString, type);
    const STlxRun run = runValue({type, QStringLiteral("5")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.json().value(QLatin1String("ok")).toBool(true), false);
    QCOMPARE(run.errorOutput, QByteArray());
}

void tst_tlxValue::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no such type") << QStringList{QStringLiteral("U7"), QStringLiteral("5")};
    QTest::newRow("no such number") << QStringList{QStringLiteral("21"), QStringLiteral("5")};
    QTest::newRow("three words") << QStringList{QStringLiteral("U8"), QStringLiteral("5"),
                                                QStringLiteral("6")};
    QTest::newRow("dash") << QStringList{QStringLiteral("I8"), QStringLiteral("-5")};
}

void tst_tlxValue::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(runValue(arguments).exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_tlxValue)
#include "tst_tlxValue.moc"
