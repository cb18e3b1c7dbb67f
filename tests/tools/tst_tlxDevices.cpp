#include <tests/support/Texts.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

namespace {

QString dataFile(const QString& name)
{
    return QStringLiteral(TLX_TEST_DATA "/devices/") + name;
}

} // namespace

/// The commands hwid, motor, ip and devices.
class tst_tlxDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongUsage_data();
    void wrongUsage();
    void hwid_data();
    void hwid();
    void hwidForms();
    void motor_data();
    void motor();
    void ip_data();
    void ip();
    void devices_data();
    void devices();
    void duplicates();
    void damagedDevices_data();
    void damagedDevices();
    void escapesOnTheTerminal();
};

void tst_tlxDevices::wrongUsage_data()
{
    QTest::addColumn<QString>("command");
    for (const char* command : {"hwid", "motor", "ip", "devices"}) {
        QTest::newRow(command) << text(command);
    }
}

void tst_tlxDevices::wrongUsage()
{
    QFETCH(QString, command);
    QCOMPARE(runTlx({command}).exitCode, 2);
    QCOMPARE(runTlx({command, text("a"), text("b")}).exitCode, 2);
    QCOMPARE(runTlx({command, text("a"), text("--no-such-option")}).exitCode, 2);
}

void tst_tlxDevices::hwid_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("printed");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("lenient short form") << text("A12_3_Board") << 0 << text("A012_003_Board") << text("A");
    QTest::newRow("full form") << text("012_003_001") << 0 << text("012_003_001") << QString();
    QTest::newRow("two letters") << text("AB12") << 1 << QString() << text("A");
    QTest::newRow("empty") << text("") << 1 << QString() << QString();
}

void tst_tlxDevices::hwid()
{
    QFETCH(QString, source);
    QFETCH(int, exitCode);
    QFETCH(QString, printed);
    QFETCH(QString, prefix);

    const STlxRun run = runTlx({text("hwid"), text("--json"), source});
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.json().value(text("ok")).toBool(), exitCode == 0);
    QCOMPARE(run.result().value(text("hardwareId")).toString(), printed);
    QCOMPARE(run.result().value(text("prefix")).toString(), prefix);
    const STlxRun forPeople = runTlx({text("hwid"), source});
    QCOMPARE(forPeople.exitCode, exitCode);
    QVERIFY(forPeople.output.contains(printed.toUtf8()));
    QCOMPARE(forPeople.errorOutput.isEmpty(), exitCode == 0);
}

void tst_tlxDevices::hwidForms()
{
    const QJsonObject result = runTlx({text("hwid"), text("A12_3_X"), text("--json")}).result();
    QCOMPARE(result.value(text("platform")).toInt(), 12);
    QCOMPARE(result.value(text("version")).toInt(), 3);
    QVERIFY(result.value(text("revision")).isNull());
    QVERIFY(runTlx({text("hwid"), text("A12_3_X")}).output.contains("not set"));
    QCOMPARE(result.value(text("name")).toString(), text("X"));
    QCOMPARE(result.value(text("minimum")).toString(), text("A012_X"));
    QCOMPARE(result.value(text("short")).toString(), text("A012_003_X"));
    QCOMPARE(result.value(text("full")).toString(), QString());
    QCOMPARE(result.value(text("strictlyMinimum")).toBool(true), false);
    const QJsonObject strict = runTlx({text("hwid"), text("A012_003_X"), text("--json")}).result();
    QCOMPARE(strict.value(text("strictlyMinimum")).toBool(), true);
    QCOMPARE(strict.value(text("strictlyShort")).toBool(), true);
    QCOMPARE(strict.value(text("strictlyFull")).toBool(true), false);
}

void tst_tlxDevices::motor_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("baseName");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("message");
    QTest::newRow("in a directory") << QStringList{text("/motors/ACME_M100_1")} << 0 << text("ACME_M100_1")
                                    << 1 << QString();
    QTest::newRow("with a suffix") << QStringList{text("ACME_M100_1.par")} << 1 << QString() << -1
                                   << text("a file name with a suffix is not parsed: ACME_M100_1.par");
    QTest::newRow("two parts") << QStringList{text("ACME_M100")} << 1 << QString() << -1
                               << text("not a motor base name: ACME_M100");
    QTest::newRow("number of two digits") << QStringList{text("--numeric"), text("A_B_12")} << 1
                                          << text("A_B_0") << -1 << text("a part is not valid: A_B_12");
    QTest::newRow("letters") << QStringList{text("A_B_C7")} << 0 << text("A_B_C7") << -1 << QString();
}

void tst_tlxDevices::motor()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, baseName);
    QFETCH(int, number);
    QFETCH(QString, message);

    const STlxRun run = runTlx(QStringList{text("motor"), text("--json")} + arguments);
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.result().value(text("fileBaseName")).toString(), baseName);
    QCOMPARE(run.result().value(text("numberAsI32")).toInt(99), number);
    QCOMPARE(run.json().value(text("error")).toObject().value(text("message")).toString(), message);
}

void tst_tlxDevices::ip_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("bytes");
    QTest::addColumn<bool>("complete");
    QTest::newRow("all groups") << text("FE80:0000:0:0:0:0:0:0001") << 0 << text("fe80:0:0:0:0:0:0:1")
                                << text("80 fe 00 00 00 00 00 00 00 00 00 00 00 00 01 00") << true;
    const QString zeros = text("00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    QTest::newRow("compressed sets nothing") << text("::1") << 1 << text("0:0:0:0:0:0:0:0") << zeros << false;
    QTest::newRow("a group left out") << text("1::2:3:4:5:6:7") << 1 << text("1:0:2:3:4:5:6:7")
                                      << text("01 00 00 00 02 00 03 00 04 00 05 00 06 00 07 00") << false;
    QTest::newRow("word") << text("hello") << 1 << text("0:0:0:0:0:0:0:0") << zeros << false;
}

void tst_tlxDevices::ip()
{
    QFETCH(QString, source);
    QFETCH(int, exitCode);
    QFETCH(QString, address);
    QFETCH(QString, bytes);
    QFETCH(bool, complete);

    const STlxRun run = runTlx({text("ip"), source, text("--json")});
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.result().value(text("address")).toString(), address);
    QCOMPARE(run.result().value(text("bytes")).toString(), bytes);
    QCOMPARE(run.result().value(text("complete")).toBool(!complete), complete);
}

void tst_tlxDevices::devices_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("big-endian") << QStringList{dataFile(text("hall.devices"))};
    QTest::newRow("little-endian") << QStringList{dataFile(text("hall-little-endian.devices")),
                                                  text("--little-endian")};
}

void tst_tlxDevices::devices()
{
    QFETCH(QStringList, arguments);

    const STlxRun run = runTlx(QStringList{text("devices"), text("--json")} + arguments);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(text("name")).toString(), text("Hall 3"));
    QCOMPARE(run.result().value(text("sourceType")).toInt(), 1);
    QCOMPARE(run.result().value(text("count")).toInt(), 3);
    const QJsonArray list = run.result().value(text("devices")).toArray();
    QCOMPARE(list.size(), 3);
    const QJsonObject lift{{text("key"), 5},
                           {text("number"), 5},
                           {text("name"), text("Lift")},
                           {text("addressType"), 1},
                           {text("address"), text("192.168.0.7")},
                           {text("port"), 1700},
                           {text("configuration"), text("lift.cfg")},
                           {text("extraText"), text("left")},
                           {text("extraText2"), text("")},
                           {text("flag1"), true},
                           {text("flag2"), false},
                           {text("value1"), -2},
                           {text("value2"), 1},
                           {text("valid"), true}};
    QCOMPARE(list.at(0).toObject(), lift);
    QCOMPARE(list.at(1).toObject().value(text("name")).toString(), text("T\u00fcr \u65e5"));
    QCOMPARE(list.at(1).toObject().value(text("address")).toString(), text("fe80::1"));
    QCOMPARE(list.at(2).toObject().value(text("key")).toDouble(), 4294967295.0);
    QCOMPARE(list.at(2).toObject().value(text("valid")), QJsonValue(false));
    const QJsonArray subs = run.result().value(text("subDevices")).toArray();
    QCOMPARE(subs.size(), 2);
    QCOMPARE(subs.at(0).toObject().value(text("name")).toString(), text("Brake"));
    QCOMPARE(subs.at(1).toObject().value(text("key")).toInt(), 200);
    QCOMPARE(subs.at(1).toObject().value(text("device")).toInt(), 5);
    const QByteArray table = runTlx(QStringList{text("devices")} + arguments).output;
    QVERIFY2(table.contains("lift.cfg") && table.contains("Brake"), table.constData());
}

void tst_tlxDevices::duplicates()
{
    const STlxRun run = runTlx({text("devices"), text("--json"), dataFile(text("duplicates.devices"))});
    QCOMPARE(run.exitCode, 0);
    const QJsonArray list = run.result().value(text("devices")).toArray();
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(0).toObject().value(text("name")).toString(), text("other"));
    QCOMPARE(list.at(0).toObject().value(text("number")).toInt(), 9);
    QCOMPARE(list.at(1).toObject().value(text("name")).toString(), text("mine"));
    QCOMPARE(list.at(1).toObject().value(text("key")).toInt(), 3);
}

void tst_tlxDevices::damagedDevices_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("devices");
    // The head "Two" takes 18 bytes with the count, the first device 75.
    QTest::newRow("unknown kind of address")
        << text("corrupt.devices") << 93 << text("device 2 of 2 is damaged") << 1;
    QTest::newRow("end missing") << text("truncated.devices") << 93
                                 << text("device 2 of 2 is cut off by the end of the file") << 1;
    QTest::newRow("count too large") << text("lying-count.devices") << 204
                                     << text("device 3 of 4294967295 is cut off by the end of the file") << 2;
    QTest::newRow("head cut off") << text("short-head.devices") << 0
                                  << text("the list's header is cut off by the end of the file") << 0;
    QTest::newRow("bytes behind the list")
        << text("trailing.devices") << 20 << text("4 bytes follow the list") << 0;
}

void tst_tlxDevices::damagedDevices()
{
    QFETCH(QString, file);
    QFETCH(int, offset);
    QFETCH(QString, message);

    const STlxRun run = runTlx({text("devices"), text("--json"), dataFile(file)});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject error = run.json().value(text("error")).toObject();
    QCOMPARE(error.value(text("message")).toString(), message);
    QCOMPARE(error.value(text("offset")).toInt(-1), offset);
    QTEST(int(run.result().value(text("devices")).toArray().size()), "devices"); // those before the damage
    const STlxRun forPeople = runTlx({text("devices"), dataFile(file)});
    QCOMPARE(forPeople.exitCode, 1);
    QVERIFY2(forPeople.errorOutput.contains(QByteArray("(byte " + QByteArray::number(offset) + ")")),
             forPeople.errorOutput.constData());
}

void tst_tlxDevices::escapesOnTheTerminal()
{
    const STlxRun run = runTlx({text("devices"), dataFile(text("escape.devices"))});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.output.contains('\x1b'));
    QVERIFY(run.output.contains("\\x1b[2J"));
    QCOMPARE(runTlx({text("devices"), dataFile(text("no such file"))}).exitCode, 1);
    QCOMPARE(runTlx({text("devices"), dataFile(text("empty.devices"))}).exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_tlxDevices)
#include "tst_tlxDevices.moc"
