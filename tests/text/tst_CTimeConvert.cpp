#include <core/tlxCoreQTest.h>

#include <QtTest>

#include <limits>

namespace {

constexpr quint64 TWO_63 = Q_UINT64_C(9223372036854775808);
constexpr double INF = std::numeric_limits<double>::infinity();

CTime::ETimeUnit unitOf(int number)
{
    return static_cast<CTime::ETimeUnit>(number);
}

} // namespace

/// Conversions between the units of CTime.
class tst_CTimeConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toSeconds_data();
    void toSeconds();
    void converts_data();
    void converts();
    void valueIn_data();
    void valueIn();
    void shortForms();
    void fromValue_data();
    void fromValue();
    void previousInteger_data();
    void previousInteger();
    void noPreviousInteger_data();
    void noPreviousInteger();
    void wholeInNoUnit();
    void previousIntegerOfCount();
};

void tst_CTimeConvert::toSeconds_data()
{
    QTest::addColumn<CTime::ETimeUnit>("unit");
    QTest::addColumn<double>("seconds");

    QTest::newRow("ps") << CTime::UNIT_PS << 1e-12;
    QTest::newRow("ns") << CTime::UNIT_NS << 1e-9;
    QTest::newRow("micro") << CTime::UNIT_US << 1e-6;
    QTest::newRow("ms") << CTime::UNIT_MS << 0.001;
    QTest::newRow("s") << CTime::UNIT_S << 1.0;
    QTest::newRow("min") << CTime::UNIT_MIN << 60.0;
    QTest::newRow("h") << CTime::UNIT_H << 3600.0;
    QTest::newRow("unknown") << CTime::UNIT_UNKNOWN << 1.0;
    QTest::newRow("above") << unitOf(8) << 1.0;
    QTest::newRow("negative") << unitOf(-1) << 1.0;
}

void tst_CTimeConvert::toSeconds()
{
    QFETCH(CTime::ETimeUnit, unit);
    QFETCH(double, seconds);

    QVERIFY(CTime::toS(1.0, unit) == seconds);
    QVERIFY(CTime::toS(-2.0, unit) == -2 * seconds);
}

void tst_CTimeConvert::converts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<CTime::ETimeUnit>("from");
    QTest::addColumn<CTime::ETimeUnit>("to");
    QTest::addColumn<double>("expected");

    // The expected products are the stated double arithmetic, bit by bit.
    QTest::newRow("1 s in ps") << 1.0 << CTime::UNIT_S << CTime::UNIT_PS << 1e12;
    QTest::newRow("1.5 s in ns") << 1.5 << CTime::UNIT_S << CTime::UNIT_NS << 1.5e9;
    QTest::newRow("2 s in micro") << 2.0 << CTime::UNIT_S << CTime::UNIT_US << 2e6;
    QTest::newRow("1500 ms in s") << 1500.0 << CTime::UNIT_MS << CTime::UNIT_S << 1.5;
    QTest::newRow("90 s in min") << 90.0 << CTime::UNIT_S << CTime::UNIT_MIN << 1.5;
    QTest::newRow("5400 s in h") << 5400.0 << CTime::UNIT_S << CTime::UNIT_H << 1.5;
    QTest::newRow("1 h in ms") << 1.0 << CTime::UNIT_H << CTime::UNIT_MS << 3600000.0;
    QTest::newRow("negative") << -1.5 << CTime::UNIT_S << CTime::UNIT_MS << -1500.0;
    QTest::newRow("7 s in min is not whole") << 7.0 << CTime::UNIT_S << CTime::UNIT_MIN << 7.0 / 60;
    QTest::newRow("same unit goes through seconds, too")
        << 3.0 << CTime::UNIT_NS << CTime::UNIT_NS << 3.0 * 1e-9 * 1e9;
    QTest::newRow("unknown counts seconds") << 2.0 << CTime::UNIT_UNKNOWN << CTime::UNIT_MS << 2000.0;
    QTest::newRow("into unknown: seconds") << 2.0 << CTime::UNIT_MIN << CTime::UNIT_UNKNOWN << 120.0;
    QTest::newRow("into unit -1: seconds") << 2.0 << CTime::UNIT_MIN << unitOf(-1) << 120.0;
}

void tst_CTimeConvert::converts()
{
    QFETCH(double, value);
    QFETCH(CTime::ETimeUnit, from);
    QFETCH(CTime::ETimeUnit, to);
    QFETCH(double, expected);

    QVERIFY(CTime::convertValue(value, from, to) == expected);
}

void tst_CTimeConvert::valueIn_data()
{
    QTest::addColumn<quint64>("count");
    QTest::addColumn<CTime::ETimeUnit>("unit");
    QTest::addColumn<CTime::ETimeUnit>("target");
    QTest::addColumn<quint64>("expected");

    const quint64 greatest = std::numeric_limits<quint64>::max();
    QTest::newRow("1500 ms in s: half up") << quint64(1500) << CTime::UNIT_MS << CTime::UNIT_S << quint64(2);
    QTest::newRow("1499 ms in s: down") << quint64(1499) << CTime::UNIT_MS << CTime::UNIT_S << quint64(1);
    QTest::newRow("29 s in min") << quint64(29) << CTime::UNIT_S << CTime::UNIT_MIN << quint64(0);
    QTest::newRow("30 s in min") << quint64(30) << CTime::UNIT_S << CTime::UNIT_MIN << quint64(1);
    QTest::newRow("1 h in ps") << quint64(1) << CTime::UNIT_H << CTime::UNIT_PS
                               << Q_UINT64_C(3600000000000000);
    QTest::newRow("same unit: the count") << greatest << CTime::UNIT_MS << CTime::UNIT_MS << greatest;
    QTest::newRow("same unit, unknown") << greatest << CTime::UNIT_UNKNOWN << CTime::UNIT_UNKNOWN << greatest;
    QTest::newRow("5 of no unit in ms") << quint64(5) << unitOf(99) << CTime::UNIT_MS << quint64(5000);
    QTest::newRow("beyond 64 bits") << greatest << CTime::UNIT_H << CTime::UNIT_NS << TWO_63;
    QTest::newRow("2^63 ms in micro") << TWO_63 << CTime::UNIT_MS << CTime::UNIT_US << TWO_63;
    QTest::newRow("between 2^63 and 2^64: rounding takes 63 bits")
        << Q_UINT64_C(10000000000) << CTime::UNIT_S << CTime::UNIT_NS << TWO_63;
    QTest::newRow("below 2^63") << Q_UINT64_C(9000000000) << CTime::UNIT_S << CTime::UNIT_NS
                                << Q_UINT64_C(9000000000000000000);
    QTest::newRow("count is unsigned") << TWO_63 << CTime::UNIT_NS << CTime::UNIT_S << Q_UINT64_C(9223372037);
}

void tst_CTimeConvert::valueIn()
{
    QFETCH(quint64, count);
    QFETCH(CTime::ETimeUnit, unit);
    QFETCH(CTime::ETimeUnit, target);
    QFETCH(quint64, expected);

    QCOMPARE(CTime(count, unit).value(target), expected);
}

void tst_CTimeConvert::shortForms()
{
    const CTime time(1500, CTime::UNIT_MS);

    QCOMPARE(time.toNS(), 1500000000ULL);
    QCOMPARE(time.toMS(), 1500ULL);
    QCOMPARE(time.toS(), 2ULL);
    QCOMPARE(CTime(1499, CTime::UNIT_MS).toS(), 1ULL);
}

void tst_CTimeConvert::fromValue_data()
{
    QTest::addColumn<CTime>("source");
    QTest::addColumn<CTime::ETimeUnit>("unit");
    QTest::addColumn<quint64>("expected");

    QTest::newRow("same unit") << CTime(TWO_63 + 1, CTime::UNIT_MS) << CTime::UNIT_MS << TWO_63 + 1;
    QTest::newRow("rounded") << CTime(1500, CTime::UNIT_MS) << CTime::UNIT_S << quint64(2);
    QTest::newRow("into micro") << CTime(3, CTime::UNIT_S) << CTime::UNIT_US << quint64(3000000);
    QTest::newRow("source is unsigned")
        << CTime(TWO_63, CTime::UNIT_NS) << CTime::UNIT_S << Q_UINT64_C(9223372037);
    QTest::newRow("into unknown: seconds")
        << CTime(2, CTime::UNIT_MIN) << CTime::UNIT_UNKNOWN << quint64(120);
    QTest::newRow("beyond 64 bits") << CTime(TWO_63, CTime::UNIT_H) << CTime::UNIT_S << TWO_63;
}

void tst_CTimeConvert::fromValue()
{
    QFETCH(CTime, source);
    QFETCH(CTime::ETimeUnit, unit);
    QFETCH(quint64, expected);
    CTime time(77, unit);
    time.fromValue(source);

    QCOMPARE(time.value(), expected);
    QCOMPARE(time.unit(), unit);
}

void tst_CTimeConvert::previousInteger_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<CTime::ETimeUnit>("unit");
    QTest::addColumn<qint64>("outValue");
    QTest::addColumn<CTime::ETimeUnit>("outUnit");

    QTest::newRow("1.5 s: 1500 ms is whole") << 1.5 << CTime::UNIT_S << qint64(1) << CTime::UNIT_S;
    QTest::newRow("-1.5 s") << -1.5 << CTime::UNIT_S << qint64(-1) << CTime::UNIT_S;
    QTest::newRow("1.0005 s: 1000500 micro is whole")
        << 1.0005 << CTime::UNIT_S << qint64(1000) << CTime::UNIT_MS;
    QTest::newRow("1.5 h: 90 min is whole") << 1.5 << CTime::UNIT_H << qint64(1) << CTime::UNIT_H;
    QTest::newRow("1.0125 h: 3645 s is whole") << 1.0125 << CTime::UNIT_H << qint64(60) << CTime::UNIT_MIN;
    QTest::newRow("0.5 s") << 0.5 << CTime::UNIT_S << qint64(0) << CTime::UNIT_S;
    QTest::newRow("7200.5 of no unit counts as seconds")
        << 7200.5 << CTime::UNIT_UNKNOWN << qint64(7200) << CTime::UNIT_S;
    QTest::newRow("5400.5 of the greatest unit number")
        << 5400.5 << unitOf(0x7FFFFFFF) << qint64(5400) << CTime::UNIT_S;
}

void tst_CTimeConvert::previousInteger()
{
    QFETCH(double, value);
    QFETCH(CTime::ETimeUnit, unit);
    QFETCH(qint64, outValue);
    QFETCH(CTime::ETimeUnit, outUnit);
    long long count = 99;
    CTime::ETimeUnit previous = CTime::UNIT_UNKNOWN;

    QVERIFY(CTime::convertToPrevIntegerValue(value, unit, count, previous));
    QCOMPARE(qint64(count), outValue);
    QCOMPARE(previous, outUnit);
}

void tst_CTimeConvert::noPreviousInteger_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<CTime::ETimeUnit>("unit");

    QTest::newRow("zero") << 0.0 << CTime::UNIT_S;
    QTest::newRow("minus zero") << -0.0 << CTime::UNIT_S;
    QTest::newRow("whole in its unit") << 2.0 << CTime::UNIT_S;
    QTest::newRow("negative and whole") << -2.0 << CTime::UNIT_S;
    QTest::newRow("picoseconds") << 1.5 << CTime::UNIT_PS;
    QTest::newRow("unit -1") << 1.5 << unitOf(-1);
    QTest::newRow("least unit number") << 1.5 << unitOf(std::numeric_limits<int>::min());
    QTest::newRow("whole in no unit's seconds") << 5.0 << CTime::UNIT_UNKNOWN;
    QTest::newRow("greatest unit number") << 5.0 << unitOf(0x7FFFFFFF);
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << CTime::UNIT_S;
    QTest::newRow("infinity") << INF << CTime::UNIT_S;
    QTest::newRow("minus infinity") << -INF << CTime::UNIT_S;
    QTest::newRow("beyond 64 bits is whole") << 1e300 << CTime::UNIT_S;
}

void tst_CTimeConvert::noPreviousInteger()
{
    QFETCH(double, value);
    QFETCH(CTime::ETimeUnit, unit);
    long long count = 99;
    CTime::ETimeUnit previous = CTime::UNIT_UNKNOWN;

    QVERIFY(!CTime::convertToPrevIntegerValue(value, unit, count, previous));
    QCOMPARE(count, 99LL);
    QCOMPARE(previous, CTime::UNIT_UNKNOWN);
}

void tst_CTimeConvert::wholeInNoUnit()
{
    long long count = 99;
    CTime::ETimeUnit previous = CTime::UNIT_UNKNOWN;

    // A third of a second leaves a fraction in picoseconds, too: 333333333333.33….
    QVERIFY(!CTime::convertToPrevIntegerValue(1.0 / 3, CTime::UNIT_S, count, previous));
    QCOMPARE(count, 333333333333LL);
    QCOMPARE(previous, CTime::UNIT_PS);
    QVERIFY(!CTime::convertToPrevIntegerValue(-1.0 / 3, CTime::UNIT_S, count, previous));
    QCOMPARE(count, -333333333333LL);
}

void tst_CTimeConvert::previousIntegerOfCount()
{
    long long count = 99;
    CTime::ETimeUnit unit = CTime::UNIT_UNKNOWN;

    QVERIFY(!CTime(1500, CTime::UNIT_MS).convertToPrevIntegerValue(count, unit));
    QCOMPARE(count, 99LL);
    // 3 ns are 3.0000000000000004 ns by way of seconds, and 3000.0000000000005 ps.
    QVERIFY(!CTime(3, CTime::UNIT_NS).convertToPrevIntegerValue(count, unit));
    QCOMPARE(count, 3000LL);
    QCOMPARE(unit, CTime::UNIT_PS);
    // The count goes in as a signed number: 2^64 - 3 is -3.
    QVERIFY(!CTime(std::numeric_limits<quint64>::max() - 2, CTime::UNIT_NS)
                 .convertToPrevIntegerValue(count, unit));
    QCOMPARE(count, -3000LL);
    QVERIFY(!CTime().convertToPrevIntegerValue(count, unit));
}

QTEST_GUILESS_MAIN(tst_CTimeConvert)
#include "tst_CTimeConvert.moc"
