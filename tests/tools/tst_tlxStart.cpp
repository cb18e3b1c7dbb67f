#include <tests/support/InstalledProgram.h>
#include <tests/support/TlxProcess.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QtTest>

namespace {

STlxRun start(const InstalledProgram& tlx, const QStringList& arguments)
{
    return runTlx(QStringList{QStringLiteral("start"), QStringLiteral("--json")} + arguments,
                  tlx.environment(), tlx.program());
}

QString text(const QJsonObject& object, const char* section, const char* key)
{
    return object.value(QLatin1String(section)).toObject().value(QLatin1String(key)).toVariant().toString();
}

QStringList words(const char* latin1)
{
    return QString::fromLatin1(latin1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

/// `tlx start`, in an installation of its own.
class tst_tlxStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arguments_data();
    void arguments();
    void givenArguments();
    void directories();
    void makesDirectoriesOnRequest();
    void titleAndLog();
    void installedSettingsAnswer();
    void logOfThread();
    void noLogWithoutAppdata();
    void values_data();
    void values();
    void unknownUnit();
    void wrongProduct();
    void textForm();
};

void tst_tlxStart::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    const QStringList all =
        words("abadr=0.3 ip=10.0.0.7 server=bench cu=2 level=4 comadr=5 df=6 powadr=7 drvadr=8 "
              "lang=de_DE devtype=9 port=0x1F40");
    QTest::newRow("bus address") << all << QStringLiteral("abAddress") << QStringLiteral("0.3");
    QTest::newRow("network address") << all << QStringLiteral("ip") << QStringLiteral("10.0.0.7");
    QTest::newRow("server") << all << QStringLiteral("serverName") << QStringLiteral("bench");
    QTest::newRow("current unit") << all << QStringLiteral("currentUnit") << QStringLiteral("2");
    QTest::newRow("user level") << all << QStringLiteral("userLevel") << QStringLiteral("4");
    QTest::newRow("communication address") << all << QStringLiteral("comAddress") << QStringLiteral("5");
    QTest::newRow("device function") << all << QStringLiteral("deviceFunction") << QStringLiteral("6");
    QTest::newRow("power address") << all << QStringLiteral("powerAddress") << QStringLiteral("7");
    QTest::newRow("drive address") << all << QStringLiteral("driveAddress") << QStringLiteral("8");
    QTest::newRow("language") << all << QStringLiteral("language") << QStringLiteral("de_DE");
    QTest::newRow("device class") << all << QStringLiteral("deviceClass") << QStringLiteral("9");
    QTest::newRow("port") << all << QStringLiteral("port") << QStringLiteral("8000");
    QTest::newRow("no drive address")
        << QStringList() << QStringLiteral("driveAddress") << QStringLiteral("-1");
    QTest::newRow("no device function")
        << QStringList() << QStringLiteral("deviceFunction") << QStringLiteral("0");
    QTest::newRow("no language") << QStringList() << QStringLiteral("language") << QStringLiteral("C");
}

void tst_tlxStart::arguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, key);
    QFETCH(QString, value);
    const InstalledProgram tlx(tlxProgram());
    QVERIFY(tlx.isValid());

    const STlxRun run = start(tlx, arguments);

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(text(run.result(), "arguments", key.toLatin1().constData()), value);
}

void tst_tlxStart::givenArguments()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun run = start(tlx, words("a=1 a=2 =5 none key= -- -port=1"));

    const QJsonObject expected{{QStringLiteral("a"), QStringLiteral("2")},
                               {QStringLiteral("key"), QString()},
                               {QStringLiteral("-port"), QStringLiteral("1")}};
    QCOMPARE(run.result().value(QLatin1String("given")).toObject(), expected);
    QCOMPARE(text(run.result(), "arguments", "port"), QStringLiteral("0"));
}

void tst_tlxStart::directories()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun run = start(tlx, {});

    const QJsonArray rows =
        run.result().value(QLatin1String("paths")).toObject().value(QLatin1String("directories")).toArray();
    QCOMPARE(rows.size(), 14);
    QMap<QString, QString> paths;
    for (const QJsonValue& row : rows) {
        paths.insert(row[QLatin1String("name")].toString(), row[QLatin1String("path")].toString());
    }
    QCOMPARE(paths.value(QStringLiteral("lib")), tlx.install() + QStringLiteral("bin/"));
    QCOMPARE(paths.value(QStringLiteral("image")), tlx.install() + QStringLiteral("etc/image/"));
    QCOMPARE(paths.value(QStringLiteral("config")), tlx.appdata() + QStringLiteral("/TARVENIK/Tool/conf/"));
#ifndef Q_OS_WIN
    QCOMPARE(paths.value(QStringLiteral("motor")), tlx.home() + QStringLiteral("/TARVENIK/Tool/motor/"));
#endif
}

void tst_tlxStart::makesDirectoriesOnRequest()
{
#ifdef Q_OS_WIN
    QSKIP("the documents folder is the user's own");
#else
    const InstalledProgram tlx(tlxProgram());

    QCOMPARE(start(tlx, words("--create")).exitCode, 0);

    const QStringList entries = tlx.entries();
    for (const char* path : {"Prog/Tool/etc/image", "Prog/Tool/etc/data", "appdata/TARVENIK/Tool/conf",
                             "home/TARVENIK/Tool/motor", "home/TARVENIK/Tool/project"}) {
        QVERIFY2(entries.contains(QString::fromLatin1(path)), path);
    }
#endif
}

void tst_tlxStart::titleAndLog()
{
    const InstalledProgram tlx(tlxProgram());
    const QStringList arguments{QStringLiteral("lang=en_GB"), QStringLiteral("--product"),
                                QStringLiteral("101"), QStringLiteral("--build-date"),
                                QStringLiteral("Nov  5 2026")};

    const QJsonObject result = start(tlx, arguments).result();

    const QString name = QStringLiteral("Tollan Device Explorer");
    const QString company = QStringLiteral("TARVENIK Antriebstechnik GmbH");
    QCOMPARE(text(result, "title", "settings"), QStringLiteral(":/tlxCore/data/Setup.Ini"));
    QCOMPARE(text(result, "title", "company"), company);
    QCOMPARE(text(result, "title", "name"), name);
    const QString title = text(result, "title", "title");
    QVERIFY2(title.startsWith(name + QStringLiteral(" - ") + company + QStringLiteral(" - [ V")),
             qPrintable(title));
    QVERIFY2(title.endsWith(QLatin1String(" - 05/11/2026 ]")), qPrintable(title));
    QCOMPARE(text(result, "log", "logFile"), tlx.appdata() + QStringLiteral("/TARVENIK/Tool/log/")
                                                 + QFileInfo(tlx.program()).completeBaseName()
                                                 + QStringLiteral(".log"));
}

void tst_tlxStart::installedSettingsAnswer()
{
    const InstalledProgram tlx(tlxProgram());
    const QString directory = tlx.install() + QStringLiteral("etc/conf/");
    QVERIFY(QDir().mkpath(directory));
    QFile settings(directory + QStringLiteral("Setup.Ini"));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("[COMPANY]\r\nNameLong=Another Maker\r\n");
    settings.close();

    const QJsonObject result = start(tlx, words("--product 90")).result();

    QCOMPARE(text(result, "title", "settings"), settings.fileName());
    QCOMPARE(text(result, "title", "company"), QStringLiteral("Another Maker"));
    QCOMPARE(text(result, "title", "name"), QStringLiteral("PRODUCT90"));
}

void tst_tlxStart::logOfThread()
{
    const InstalledProgram tlx(tlxProgram());

    const QJsonObject result = start(tlx, words("--thread-id")).result();

    const QRegularExpression pattern(QStringLiteral("/log/tlx_TID[0-9a-f]+\\.log$"));
    const QString logFile = text(result, "log", "logFile");
    QVERIFY2(pattern.match(logFile).hasMatch(), qPrintable(logFile));
}

// The directory would lie at the root of the disk: tlx does not ask for it.
void tst_tlxStart::noLogWithoutAppdata()
{
    const InstalledProgram tlx(tlxProgram());
    const QByteArray before = qgetenv("APPDATA");
    const bool wasSet = qEnvironmentVariableIsSet("APPDATA");
    qunsetenv("APPDATA");

    const STlxRun run =
        runTlx(words("start --json"), tlx.environment().filter(QStringLiteral("PATH=")), tlx.program());

    if (wasSet) {
        qputenv("APPDATA", before);
    }
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.result().value(QLatin1String("log")).toObject().contains(QLatin1String("logFile")));
    QVERIFY(text(run.result(), "log", "note").contains(QLatin1String("APPDATA")));
    QVERIFY(!QFileInfo::exists(QStringLiteral("/TARVENIK/Tool/log")));
}

void tst_tlxStart::values_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QStringList>("row"); // type, size, default, value, formatted

    const auto row = [](const char* unit, const QStringList& cells) {
        QTest::newRow(unit) << QString::fromUtf8(unit) << cells;
    };
    const QString zero = QStringLiteral("0");
    row("UNIT_U16=0x1F",
        {QStringLiteral("U16"), QStringLiteral("2"), zero, QStringLiteral("31"), QStringLiteral("001f")});
    row("UNIT_U16", {QStringLiteral("U16"), QStringLiteral("2"), zero, zero, QStringLiteral("0000")});
    row("UNIT_I_FRAC=-2",
        {QStringLiteral("I16"), QStringLiteral("2"), zero, QStringLiteral("-2"), QStringLiteral("fffe")});
    row("UNIT_S_INC_32x32=-1", {QStringLiteral("I64"), QStringLiteral("8"), zero, QStringLiteral("-1"),
                                QStringLiteral("ffff.ffff.ffff.ffff")});
    row("UNIT_RPM=1.5",
        {QStringLiteral("F64"), QStringLiteral("8"), zero, QStringLiteral("1.5"), QStringLiteral("1.500")});
    row("UNIT_DATE_TIME=2018-05-04T13:22:10.560", {QStringLiteral("DATETIME"), QStringLiteral("8"), QString(),
                                                   QString(), QStringLiteral("2018-05-04T13:22:10")});
    row("UNIT_STRING32=a=b",
        {QStringLiteral("STRING32"), QStringLiteral("64"), QString(), QStringLiteral("a=b"), QString()});
    row("UNIT_F80", {QStringLiteral("UNKNOWN"), QStringLiteral("10"), QString(), QString(), QString()});
}

void tst_tlxStart::values()
{
    QFETCH(QString, unit);
    QFETCH(QStringList, row);
    const InstalledProgram tlx(tlxProgram());

    const STlxRun run = start(tlx, {QStringLiteral("--unit"), unit});

    QCOMPARE(run.exitCode, 0);
    const QJsonArray rows =
        run.result().value(QLatin1String("values")).toObject().value(QLatin1String("units")).toArray();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows[0][QLatin1String("unit")].toString(), unit.section(QLatin1Char('='), 0, 0));
    QStringList cells;
    for (const char* key : {"type", "size", "default", "value", "formatted"}) {
        cells << rows[0][QLatin1String(key)].toVariant().toString();
    }
    QCOMPARE(cells, row);
}

void tst_tlxStart::unknownUnit()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun run = start(tlx, words("--unit UNIT_U8=1 --unit UNIT_X=1"));

    QCOMPARE(run.exitCode, 2);
    const QString message = text(run.json(), "error", "message");
    QVERIFY2(message.startsWith(QLatin1String("no such unit: UNIT_X: ")), qPrintable(message));
}

void tst_tlxStart::wrongProduct()
{
    const InstalledProgram tlx(tlxProgram());
    const QStringList before = tlx.entries();

    const STlxRun run = start(tlx, words("--product setup"));

    QCOMPARE(run.exitCode, 2);
    QCOMPARE(tlx.entries(), before);
}

void tst_tlxStart::textForm()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun run =
        runTlx({QStringLiteral("start"), QStringLiteral("drvadr=3"), QStringLiteral("\x1b[1m=x")},
               tlx.environment(), tlx.program());

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QVERIFY(run.output.contains("Drive address"));
    QVERIFY(run.output.contains("TARVENIK Antriebstechnik GmbH"));
    QVERIFY(run.output.contains("\\x1b[1m"));
    QVERIFY(!run.output.contains('\x1b'));
}

QTEST_GUILESS_MAIN(tst_tlxStart)
#include "tst_tlxStart.moc"
