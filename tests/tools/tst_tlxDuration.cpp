#include <tests/support/TlxProcess.h>

#include <QtTest>

namespace {

STlxRun runDuration(const QStringList& arguments)
{
    return runTlx(QStringList{QStringLiteral("duration"), QStringLiteral("--json")} + arguments,
                  {QStringLiteral("LC_ALL=C.UTF-8")});
}

QJsonObject section(const STlxRun& run, const char* name)
{
    return run.result().value(QLatin1String(name)).toObject();
}

} // namespace

/// `tlx duration`: conversion between units and the previous-integer form.
class tst_tlxDuration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyUnit();
    void converts_data();
    void converts();
    void previousInteger_data();
    void previousInteger();
    void fails_data();
    void fails();
};

void tst_tlxDuration::everyUnit()
{
    const STlxRun run = runDuration({QStringLiteral("1500"), QStringLiteral("MS")});
    const QJsonArray units = run.result().value(QLatin1String("units")).toArray();

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(units.size(), 7);
    QCOMPARE(units.at(0).toObject().value(QLatin1String("count")).toString(),
             QStringLiteral("1500000000000"));
    const QJsonObject seconds = units.at(4).toObject();
    QCOMPARE(seconds.value(QLatin1String("unit")).toString(), QStringLiteral("s"));
    QCOMPARE(seconds.value(QLatin1String("value")), QJsonValue(1.5));
    QCOMPARE(seconds.value(QLatin1String("count")).toString(), QStringLiteral("2"));
}

void tst_tlxDuration::converts_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("count");

    const auto words = [](const char* text) { return QString::fromUtf8(text).split(QLatin1Char(' ')); };
    QTest::newRow("ms to s") << words("1499 ms s") << QStringLiteral("1.499") << QStringLiteral("1");
    QTest::newRow("h to min") << words("2 h min") << QStringLiteral("120") << QStringLiteral("120");
    QTest::newRow("us is the microsecond")
        << words("3 ms us") << QStringLiteral("3000") << QStringLiteral("3000");
    QTest::newRow("fraction") << words("1.5 s ms") << QStringLiteral("1500") << QStringLiteral("1500");
    QTest::newRow("negative") << words("-- -1.5 s ms") << QStringLiteral("-1500") << QStringLiteral("-1500");
    QTest::newRow("same unit keeps 64 bits")
        << words("18446744073709551615 s s") << QStringLiteral("18446744073709552000")
        << QStringLiteral("18446744073709551615");
}

void tst_tlxDuration::converts()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, value);
    QFETCH(QString, count);
    const STlxRun run = runDuration(arguments);

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(section(run, "converted").value(QLatin1String("value")).toDouble(), value.toDouble());
    QCOMPARE(section(run, "converted").value(QLatin1String("count")).toString(), count);
}

void tst_tlxDuration::previousInteger_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("unit");

    QTest::newRow("1.5 s") << QStringLiteral("1.5") << true << QStringLiteral("1") << QStringLiteral("s");
    QTest::newRow("1.0005 s") << QStringLiteral("1.0005") << true << QStringLiteral("1000")
                              << QStringLiteral("ms");
    QTest::newRow("2 s") << QStringLiteral("2") << false << QString() << QString();
}

void tst_tlxDuration::previousInteger()
{
    QFETCH(QString, number);
    QFETCH(bool, found);
    QFETCH(QString, value);
    QFETCH(QString, unit);
    const QJsonObject form = section(runDuration({number, QStringLiteral("s")}), "previousInteger");

    QCOMPARE(form.value(QLatin1String("found")).toBool(), found);
    QCOMPARE(form.value(QLatin1String("value")).toString(), value);
    QCOMPARE(form.value(QLatin1String("unit")).toString(), unit);
}

void tst_tlxDuration::fails_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");

    QTest::newRow("no number") << QStringList{QStringLiteral("soon"), QStringLiteral("s")} << 1;
    QTest::newRow("no unit") << QStringList{QStringLiteral("1")} << 2;
    QTest::newRow("unknown unit") << QStringList{QStringLiteral("1"), QStringLiteral("sec")} << 2;
    QTest::newRow("unknown second unit")
        << QStringList{QStringLiteral("1"), QStringLiteral("s"), QStringLiteral("day")} << 2;
    QTest::newRow("too much") << QStringList{QStringLiteral("1"), QStringLiteral("s"), QStringLiteral("s"),
                                             QStringLiteral("s")}
                              << 2;
}

void tst_tlxDuration::fails()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);

    QCOMPARE(runDuration(arguments).exitCode, exitCode);
}

QTEST_GUILESS_MAIN(tst_tlxDuration)
#include "tst_tlxDuration.moc"
