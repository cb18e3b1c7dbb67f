#include <core/tlxCoreQTest.h>
#include <tests/support/Comparisons.h>
#include <tests/support/Handles.h>
#include <tests/support/StreamBytes.h>

#include <QtTest>

#include <limits>

namespace {

// Made before main(): the hash of units must be ready for the static objects of a program.
const CTime::ETimeUnit EARLY_UNIT = CTime::unit(QStringLiteral("ms"));
const int EARLY_SIZE = CTime::mUnitHash.size();

constexpr quint64 TWO_63 = Q_UINT64_C(9223372036854775808);

CTime::ETimeUnit unitOf(int number)
{
    return static_cast<CTime::ETimeUnit>(number);
}

} // namespace

static_assert(IS_NOTHROW_HANDLE<CTime>, "containers move it without copying it back");

/// CTime as a value: units, comparison, arithmetic, streams. Conversions: tst_CTimeConvert.
class tst_CTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unknownByDefault();
    void copiesAreIndependent();
    void movedFromIsUsable();
    void validUnits_data();
    void validUnits();
    void unitTexts_data();
    void unitTexts();
    void textOfNoUnit_data();
    void textOfNoUnit();
    void unitHash();
    void compares_data();
    void compares();
    void hashFollowsEquality();
    void adds_data();
    void adds();
    void scales_data();
    void scales();
    void streamBytes_data();
    void streamBytes();
    void streamTruncated_data();
    void streamTruncated();
    void streamStoresAnyUnit();
    void fitsIntoQVariant();
    void debugShowsTypeAndText();
};

void tst_CTime::unknownByDefault()
{
    const CTime none;

    QCOMPARE(none.value(), 0ULL);
    QCOMPARE(none.unit(), CTime::UNIT_UNKNOWN);
    QVERIFY(!none.isValid());
}

void tst_CTime::copiesAreIndependent()
{
    const CTime first(5, CTime::UNIT_MS);
    CTime second(first);
    CTime third;
    third = first;
    second.setValue(6);
    third.setUnit(CTime::UNIT_S);

    QCOMPARE(first.value(), 5ULL);
    QCOMPARE(first.unit(), CTime::UNIT_MS);
    QCOMPARE(second.value(), 6ULL);
    QCOMPARE(second.unit(), CTime::UNIT_MS);
    QCOMPARE(third.value(), 5ULL);
    QCOMPARE(third.unit(), CTime::UNIT_S);
    second.setValue(7, CTime::UNIT_H);
    QCOMPARE(second.value(), 7ULL);
    QCOMPARE(second.unit(), CTime::UNIT_H);
}

void tst_CTime::movedFromIsUsable()
{
    verifyMovedFromIsUsable(CTime(5, CTime::UNIT_MS));
}

void tst_CTime::validUnits_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("valid");

    for (const int unit : {-1, 0, 7, 8, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QTest::addRow("unit %d", unit) << unit << false;
    }
    for (int unit = 1; unit <= 6; ++unit) {
        QTest::addRow("unit %d", unit) << unit << true;
    }
}

void tst_CTime::validUnits()
{
    QFETCH(int, unit);
    QFETCH(bool, valid);

    QCOMPARE(CTime(1, unitOf(unit)).isValid(), valid);
}

void tst_CTime::unitTexts_data()
{
    QTest::addColumn<CTime::ETimeUnit>("unit");
    QTest::addColumn<QString>("text");

    QTest::newRow("ps") << CTime::UNIT_PS << QStringLiteral("ps");
    QTest::newRow("ns") << CTime::UNIT_NS << QStringLiteral("ns");
    QTest::newRow("micro sign") << CTime::UNIT_US << QString(QChar(0x00B5)) + QLatin1Char('s');
    QTest::newRow("ms") << CTime::UNIT_MS << QStringLiteral("ms");
    QTest::newRow("s") << CTime::UNIT_S << QStringLiteral("s");
    QTest::newRow("min") << CTime::UNIT_MIN << QStringLiteral("min");
    QTest::newRow("h") << CTime::UNIT_H << QStringLiteral("h");
}

void tst_CTime::unitTexts()
{
    QFETCH(CTime::ETimeUnit, unit);
    QFETCH(QString, text);

    QCOMPARE(CTime::unitStr(unit), text);
    QCOMPARE(CTime::unit(text), unit);
    QCOMPARE(CTime::mUnitHash.value(text, CTime::UNIT_UNKNOWN), unit);
}

void tst_CTime::textOfNoUnit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<CTime::ETimeUnit>("unit");

    QTest::newRow("upper case") << QStringLiteral("MS") << CTime::UNIT_MS;
    QTest::newRow("mixed case") << QStringLiteral("Min") << CTime::UNIT_MIN;
    QTest::newRow("micro sign and S") << QString(QChar(0x00B5)) + QLatin1Char('S') << CTime::UNIT_US;
    QTest::newRow("greek mu is another letter")
        << QString(QChar(0x03BC)) + QLatin1Char('s') << CTime::UNIT_UNKNOWN;
    QTest::newRow("capital mu becomes the greek mu")
        << QString(QChar(0x039C)) + QLatin1Char('s') << CTime::UNIT_UNKNOWN;
    QTest::newRow("sec") << QStringLiteral("sec") << CTime::UNIT_UNKNOWN;
    QTest::newRow("blank") << QStringLiteral(" s") << CTime::UNIT_UNKNOWN;
    QTest::newRow("empty") << QString() << CTime::UNIT_UNKNOWN;
}

void tst_CTime::textOfNoUnit()
{
    QFETCH(QString, text);
    QFETCH(CTime::ETimeUnit, unit);

    QCOMPARE(CTime::unit(text), unit);
}

void tst_CTime::unitHash()
{
    QCOMPARE(EARLY_UNIT, CTime::UNIT_MS);
    QCOMPARE(EARLY_SIZE, 7);
    QCOMPARE(CTime::createUnitHash(), CTime::mUnitHash);
    QCOMPARE(CTime::unitStr(CTime::UNIT_UNKNOWN), QString());
    QCOMPARE(CTime::unitStr(unitOf(-1)), QString());
    QCOMPARE(CTime::unitStr(unitOf(99)), QString());
}

void tst_CTime::compares_data()
{
    QTest::addColumn<CTime>("a");
    QTest::addColumn<CTime>("b");
    QTest::addColumn<int>("order");

    QTest::newRow("1 s and 1000 ms") << CTime(1, CTime::UNIT_S) << CTime(1000, CTime::UNIT_MS) << 0;
    QTest::newRow("1 min and 61 s") << CTime(1, CTime::UNIT_MIN) << CTime(61, CTime::UNIT_S) << -1;
    QTest::newRow("2 h and 1 h") << CTime(2, CTime::UNIT_H) << CTime(1, CTime::UNIT_H) << 1;
    QTest::newRow("nanoseconds") << CTime(1, CTime::UNIT_NS) << CTime(2, CTime::UNIT_NS) << -1;
    QTest::newRow("nanoseconds are unsigned")
        << CTime(TWO_63, CTime::UNIT_NS) << CTime(TWO_63 - 1, CTime::UNIT_NS) << 1;
    QTest::newRow("1 ps and 2 ps are both 0 ns") << CTime(1, CTime::UNIT_PS) << CTime(2, CTime::UNIT_PS) << 0;
    QTest::newRow("500 ps is 1 ns") << CTime(500, CTime::UNIT_PS) << CTime(1, CTime::UNIT_NS) << 0;
    QTest::newRow("hours beyond 64 bits of ns are equal")
        << CTime(TWO_63, CTime::UNIT_H) << CTime(TWO_63 + 5000, CTime::UNIT_H) << 0;
    QTest::newRow("unknown unit counts seconds")
        << CTime(2, CTime::UNIT_UNKNOWN) << CTime(2, CTime::UNIT_S) << 0;
}

void tst_CTime::compares()
{
    QFETCH(CTime, a);
    QFETCH(CTime, b);
    QFETCH(int, order);

    QCOMPARE(wrongComparisons(a, b, order), QByteArray());
    QCOMPARE(wrongComparisons(b, a, -order), QByteArray());
    QCOMPARE(b == a, order == 0);
    QCOMPARE(b<a, order> 0);
    const CTime copy(a);
    QVERIFY(copy == a);
}

void tst_CTime::hashFollowsEquality()
{
    QCOMPARE(qHash(CTime(1, CTime::UNIT_S)), qHash(CTime(1000, CTime::UNIT_MS)));
    QCOMPARE(qHash(CTime(1, CTime::UNIT_PS), 7), qHash(CTime(2, CTime::UNIT_PS), 7));
    QCOMPARE(qHash(CTime(500, CTime::UNIT_PS)), qHash(CTime(1, CTime::UNIT_NS)));
    QVERIFY(qHash(CTime(1, CTime::UNIT_S)) != qHash(CTime(2, CTime::UNIT_S)));
    QCOMPARE(
        (QSet<CTime>{CTime(1, CTime::UNIT_S), CTime(1000, CTime::UNIT_MS), CTime(2, CTime::UNIT_S)}).size(),
        2);
}

void tst_CTime::adds_data()
{
    QTest::addColumn<CTime>("a");
    QTest::addColumn<CTime>("b");
    QTest::addColumn<quint64>("count");

    QTest::newRow("1 s + 500 ms, cut to s")
        << CTime(1, CTime::UNIT_S) << CTime(500, CTime::UNIT_MS) << quint64(1);
    QTest::newRow("1 ms + 500000 ns, cut to ms")
        << CTime(1, CTime::UNIT_MS) << CTime(500000, CTime::UNIT_NS) << quint64(1);
    QTest::newRow("500 ms + 1 s") << CTime(500, CTime::UNIT_MS) << CTime(1, CTime::UNIT_S) << quint64(1500);
    QTest::newRow("1 ns + 1 s") << CTime(1, CTime::UNIT_NS) << CTime(1, CTime::UNIT_S) << quint64(1000000001);
    QTest::newRow("7 ms + 9 ms: twice the unit's number")
        << CTime(7, CTime::UNIT_MS) << CTime(9, CTime::UNIT_MS) << quint64(6);
    QTest::newRow("1 ps + 1 ps") << CTime(1, CTime::UNIT_PS) << CTime(1, CTime::UNIT_PS) << quint64(0);
    QTest::newRow("1 h + 1 h") << CTime(1, CTime::UNIT_H) << CTime(1, CTime::UNIT_H) << quint64(12);
    QTest::newRow("unknown + unknown") << CTime() << CTime() << quint64(14);
    QTest::newRow("unit -3 + unit -3")
        << CTime(1, unitOf(-3)) << CTime(1, unitOf(-3)) << static_cast<quint64>(Q_INT64_C(-6));
    QTest::newRow("greatest unit number")
        << CTime(1, unitOf(0x7FFFFFFF)) << CTime(1, unitOf(0x7FFFFFFF)) << quint64(0xFFFFFFFE);
    // 2^63 ns is what does not fit, 2^63 + 2^63 wraps to 0.
    QTest::newRow("sum wraps") << CTime(TWO_63, CTime::UNIT_S) << CTime(TWO_63, CTime::UNIT_NS) << quint64(0);
    // 2^63 ns and 1 s more are no signed number of nanoseconds any more, but an unsigned one.
    QTest::newRow("sum beyond 2^63 ns")
        << CTime(TWO_63, CTime::UNIT_NS) << CTime(4096, CTime::UNIT_S) << Q_UINT64_C(9223376132854775808);
    QTest::newRow("sum beyond 64 bits of ps")
        << CTime(1, CTime::UNIT_PS) << CTime(20000000, CTime::UNIT_S) << TWO_63;
}

void tst_CTime::adds()
{
    QFETCH(CTime, a);
    QFETCH(CTime, b);
    QFETCH(quint64, count);
    const CTime sum = a + b;

    QCOMPARE(sum.value(), count);
    QCOMPARE(sum.unit(), a.unit());
}

void tst_CTime::scales_data()
{
    QTest::addColumn<quint64>("count");
    QTest::addColumn<double>("factor");
    QTest::addColumn<quint64>("result");

    QTest::newRow("half up") << quint64(3) << 0.5 << quint64(2);
    QTest::newRow("2.5 times") << quint64(1000) << 2.5 << quint64(2500);
    QTest::newRow("by zero") << quint64(1000) << 0.0 << quint64(0);
    QTest::newRow("below half") << quint64(1) << 0.49 << quint64(0);
    QTest::newRow("negative factor: two's complement")
        << quint64(2) << -1.0 << std::numeric_limits<quint64>::max() - 1;
    QTest::newRow("negative half away from zero")
        << quint64(5) << -0.5 << static_cast<quint64>(Q_INT64_C(-3));
    QTest::newRow("NaN") << quint64(2) << std::numeric_limits<double>::quiet_NaN() << TWO_63;
    QTest::newRow("infinity") << quint64(2) << std::numeric_limits<double>::infinity() << TWO_63;
    QTest::newRow("minus infinity") << quint64(2) << -std::numeric_limits<double>::infinity() << TWO_63;
    QTest::newRow("0 times infinity") << quint64(0) << std::numeric_limits<double>::infinity() << TWO_63;
    QTest::newRow("beyond 64 bits") << quint64(1) << 1e30 << TWO_63;
    QTest::newRow("count is unsigned") << TWO_63 << 0.5 << TWO_63 / 2;
}

void tst_CTime::scales()
{
    QFETCH(quint64, count);
    QFETCH(double, factor);
    QFETCH(quint64, result);
    const CTime time(count, CTime::UNIT_MS);

    QCOMPARE((time * factor).value(), result);
    QCOMPARE((factor * time).value(), result);
    QCOMPARE((time * factor).unit(), CTime::UNIT_MS);
    QCOMPARE(time.value(), count);
}

void tst_CTime::streamBytes_data()
{
    QTest::addColumn<CTime>("time");
    QTest::addColumn<QByteArray>("big");
    QTest::addColumn<QByteArray>("little");

    QTest::newRow("ms") << CTime(0x0102030405060708, CTime::UNIT_MS)
                        << fromHexText("0102030405060708 00000003")
                        << fromHexText("0807060504030201 03000000");
    QTest::newRow("default") << CTime() << fromHexText("0000000000000000 00000007")
                             << fromHexText("0000000000000000 07000000");
    QTest::newRow("greatest count, unit -2")
        << CTime(std::numeric_limits<quint64>::max(), unitOf(-2)) << fromHexText("ffffffffffffffff fffffffe")
        << fromHexText("ffffffffffffffff feffffff");
}

void tst_CTime::streamBytes()
{
    QFETCH(CTime, time);
    QFETCH(QByteArray, big);
    QFETCH(QByteArray, little);

    for (const auto version : {QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
        QCOMPARE(streamed(time, QDataStream::BigEndian, version), big);
        QCOMPARE(streamed(time, QDataStream::LittleEndian, version), little);
        CTime read;
        QCOMPARE(unstreamed(little, read, QDataStream::LittleEndian, version), QDataStream::Ok);
        QCOMPARE(read.value(), time.value());
        QCOMPARE(read.unit(), time.unit());
    }
}

void tst_CTime::streamTruncated_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("count");

    for (int length = 0; length < 12; ++length) {
        QTest::addRow("%d bytes", length) << length << (length < 8 ? quint64(0) : quint64(5));
    }
}

void tst_CTime::streamTruncated()
{
    QFETCH(int, length);
    QFETCH(quint64, count);
    CTime read(9, CTime::UNIT_H);

    QCOMPARE(unstreamed(fromHexText("0000000000000005 00000003").left(length), read),
             QDataStream::ReadPastEnd);
    QCOMPARE(read.value(), count);
    QCOMPARE(read.unit(), CTime::UNIT_PS);
}

void tst_CTime::streamStoresAnyUnit()
{
    CTime read;

    QCOMPARE(unstreamed(fromHexText("0000000000000005 80000001"), read), QDataStream::Ok);
    QCOMPARE(read.unit(), unitOf(std::numeric_limits<int>::min() + 1));
    QVERIFY(!read.isValid());
    QCOMPARE(read.toMS(), 5000ULL);
}

void tst_CTime::fitsIntoQVariant()
{
    const QVariant variant = QVariant::fromValue(CTime(5, CTime::UNIT_MS));

    QCOMPARE(QByteArray(variant.typeName()), QByteArray("CTime"));
    QCOMPARE(variant.value<CTime>(), CTime(5, CTime::UNIT_MS));
}

void tst_CTime::debugShowsTypeAndText()
{
    const QScopedArrayPointer<char> micro(QTest::toString(CTime(1500, CTime::UNIT_US)));
    const QScopedArrayPointer<char> none(QTest::toString(CTime(5, CTime::UNIT_UNKNOWN)));

    QCOMPARE(QByteArray(micro.data()), QByteArray("CTime(1500 \xC2\xB5s)"));
    QCOMPARE(QByteArray(none.data()), QByteArray("CTime(5 unit 7)"));
}

QTEST_GUILESS_MAIN(tst_CTime)
#include "tst_CTime.moc"
