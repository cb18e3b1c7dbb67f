#include <core/text/CMath.h>

#include <QtEndian>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double TWO_63 = 9223372036854775808.0;
constexpr unsigned int MINUS_ONE_DIGIT = 0xFFFFFFFFU;
constexpr unsigned int MINUS_400_DIGITS = 0xFFFFFFFFU - 399;

// Equal as numbers, or both NaN.
bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a >= b && a <= b);
}

} // namespace

class tst_CMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void round_data();
    void round();
    void roundOff_data();
    void roundOff();
    void roundUp_data();
    void roundUp();
    void exp10_data();
    void exp10();
    void powTab();
    void checkDouble_data();
    void checkDouble();
    void checkDoubleOfNothing();
    void crc32_data();
    void crc32();
    void crc32OfNothing();

private:
    void addRoundingColumns();
};

void tst_CMath::addRoundingColumns()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<unsigned int>("digits");
    QTest::addColumn<double>("expected");
}

void tst_CMath::round_data()
{
    addRoundingColumns();
    QTest::newRow("2.5 to 0 digits") << 2.5 << 0U << 3.0;
    QTest::newRow("-2.5 to 0 digits") << -2.5 << 0U << -3.0;
    QTest::newRow("2.4 to 0 digits") << 2.4 << 0U << 2.0;
    QTest::newRow("-2.4 to 0 digits") << -2.4 << 0U << -2.0;
    QTest::newRow("0 to 3 digits") << 0.0 << 3U << 0.0;
    QTest::newRow("3.14159 to 2 digits") << 3.14159 << 2U << 3.14;
    QTest::newRow("3.14159 to 4 digits") << 3.14159 << 4U << 3.1416;
    QTest::newRow("-0.125 to 2 digits") << -0.125 << 2U << -0.13;
    QTest::newRow("1.23456789 to 6 digits") << 1.23456789 << 6U << 1.234568;
    QTest::newRow("tens by a digit of -1") << 125.0 << MINUS_ONE_DIGIT << 130.0;
    // The sum rounds to 1 before it is truncated: std::round gives 0 here.
    QTest::newRow("formula, not std::round") << 0.49999999999999994 << 0U << 1.0;
    // Above 2^52 the sum cannot hold the half: std::round gives the number itself.
    QTest::newRow("odd number above 2^52") << 4503599627370497.0 << 0U << 4503599627370498.0;
    // The product 4503599627370498.125 becomes ...498 before the half is added, and the sum's tie goes to the even ...498;
    // in one step both would become ...499.
    QTest::newRow("product is rounded before the sum") << 450359962737049.8125 << 1U << 450359962737049.8;
    QTest::newRow("largest below 2^63") << 9223372036854774784.0 << 0U << 9223372036854774784.0;
    QTest::newRow("2^63 cannot be held") << TWO_63 << 0U << -TWO_63;
    QTest::newRow("-2^63") << -TWO_63 << 0U << -TWO_63;
    QTest::newRow("1e18 to 1 digit cannot be held") << 1e18 << 1U << -TWO_63 / 10;
    QTest::newRow("infinity") << INF << 0U << -TWO_63;
    QTest::newRow("minus infinity") << -INF << 2U << -TWO_63 / 100;
    QTest::newRow("NaN") << NOT_A_NUMBER << 1U << -TWO_63 / 10;
    QTest::newRow("factor beyond a double") << 1.0 << 400U << 0.0;
    QTest::newRow("factor of 0") << 1.0 << MINUS_400_DIGITS << 0.0;
}

void tst_CMath::round()
{
    QFETCH(double, value);
    QFETCH(unsigned int, digits);
    QFETCH(double, expected);

    QVERIFY2(same(CMath::round(value, digits), expected),
             qPrintable(QString::number(CMath::round(value, digits), 'g', 17)));
}

void tst_CMath::roundOff_data()
{
    addRoundingColumns();
    QTest::newRow("-1.25 to 1 digit") << -1.25 << 1U << -1.3;
    QTest::newRow("1.29 to 1 digit") << 1.29 << 1U << 1.2;
    QTest::newRow("-1.2 to 0 digits") << -1.2 << 0U << -2.0;
    QTest::newRow("7 to 0 digits") << 7.0 << 0U << 7.0;
    QTest::newRow("1e300 is beyond no limit") << 1e300 << 0U << 1e300;
    QTest::newRow("infinity") << INF << 0U << INF;
    QTest::newRow("NaN") << NOT_A_NUMBER << 0U << NOT_A_NUMBER;
    QTest::newRow("product beyond a double") << -1e10 << 300U << -INF;
    QTest::newRow("309 digits") << 1.5 << 309U << NOT_A_NUMBER;
    QTest::newRow("factor of 0") << 5.0 << MINUS_400_DIGITS << 0.0;
}

void tst_CMath::roundOff()
{
    QFETCH(double, value);
    QFETCH(unsigned int, digits);
    QFETCH(double, expected);

    QVERIFY(same(CMath::roundOff(value, digits), expected));
}

void tst_CMath::roundUp_data()
{
    addRoundingColumns();
    QTest::newRow("1.21 to 1 digit") << 1.21 << 1U << 1.3;
    QTest::newRow("-1.29 to 1 digit") << -1.29 << 1U << -1.2;
    QTest::newRow("1.2 to 0 digits") << 1.2 << 0U << 2.0;
    QTest::newRow("0.00011 to 4 digits") << 0.00011 << 4U << 0.0002;
    QTest::newRow("-7 to 0 digits") << -7.0 << 0U << -7.0;
    QTest::newRow("minus infinity") << -INF << 0U << -INF;
    QTest::newRow("product beyond a double") << 1e10 << 300U << INF;
    QTest::newRow("309 digits of 0") << 0.0 << 309U << NOT_A_NUMBER;
    QTest::newRow("factor of 0") << -5.0 << MINUS_400_DIGITS << 0.0;
}

void tst_CMath::roundUp()
{
    QFETCH(double, value);
    QFETCH(unsigned int, digits);
    QFETCH(double, expected);

    QVERIFY(same(CMath::roundUp(value, digits), expected));
}

void tst_CMath::exp10_data()
{
    QTest::addColumn<int>("exponent");
    QTest::addColumn<double>("expected");
    QTest::newRow("0") << 0 << 1.0;
    QTest::newRow("1") << 1 << 10.0;
    QTest::newRow("4, the table's last") << 4 << 10000.0;
    QTest::newRow("5, behind the table") << 5 << 100000.0;
    QTest::newRow("22") << 22 << 1e22;
    QTest::newRow("-1") << -1 << 0.1;
    QTest::newRow("-3") << -3 << 0.001;
    QTest::newRow("308") << 308 << 1e308;
    QTest::newRow("309") << 309 << INF;
    QTest::newRow("-400") << -400 << 0.0;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << INF;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0.0;
}

void tst_CMath::exp10()
{
    QFETCH(int, exponent);
    QFETCH(double, expected);

    const double actual = CMath::exp10(exponent);

    QVERIFY(same(actual, expected) || std::fabs(actual / expected - 1.0) < 1e-15);
}

void tst_CMath::powTab()
{
    constexpr double EXPECTED[] = {1, 10, 100, 1000, 10000};
    QCOMPARE(sizeof(CMath::mPowTab), sizeof(EXPECTED));
    QVERIFY(std::memcmp(CMath::mPowTab, EXPECTED, sizeof(EXPECTED)) == 0);
}

void tst_CMath::checkDouble_data()
{
    QTest::addColumn<quint64>("bits");
    QTest::addColumn<bool>("expected");
    QTest::newRow("+0") << Q_UINT64_C(0) << true;
    QTest::newRow("-0") << Q_UINT64_C(0x8000000000000000) << true;
    QTest::newRow("1.0") << Q_UINT64_C(0x3FF0000000000000) << true;
    QTest::newRow("-1.5") << Q_UINT64_C(0xBFF8000000000000) << true;
    QTest::newRow("infinity") << Q_UINT64_C(0x7FF0000000000000) << false;
    QTest::newRow("-infinity") << Q_UINT64_C(0xFFF0000000000000) << false;
    QTest::newRow("NaN") << Q_UINT64_C(0x7FF8000000000000) << false;
    QTest::newRow("signalling NaN") << Q_UINT64_C(0x7FF0000000000001) << false;
    QTest::newRow("largest exponent, low word at the limit") << Q_UINT64_C(0x7FE00000D7B9609A) << true;
    QTest::newRow("largest exponent, low word above") << Q_UINT64_C(0x7FE00000D7B9609B) << false;
    QTest::newRow("largest exponent, only the low word counts") << Q_UINT64_C(0x7FEFFFFF00000000) << true;
    QTest::newRow("largest double") << Q_UINT64_C(0x7FEFFFFFFFFFFFFF) << false;
    QTest::newRow("negative, low word above") << Q_UINT64_C(0xFFE00000D7B9609B) << false;
    QTest::newRow("smallest exponent, low word at the limit") << Q_UINT64_C(0x001000001111E1E4) << false;
    QTest::newRow("smallest exponent, low word above") << Q_UINT64_C(0x001000001111E1E5) << true;
    QTest::newRow("smallest normal double") << Q_UINT64_C(0x0010000000000000) << false;
    QTest::newRow("smallest exponent, only the low word counts") << Q_UINT64_C(0x801FFFFF1111E1E4) << false;
    QTest::newRow("smallest subnormal") << Q_UINT64_C(1) << true;
    QTest::newRow("largest subnormal") << Q_UINT64_C(0x000FFFFFFFFFFFFF) << true;
}

void tst_CMath::checkDouble()
{
    QFETCH(quint64, bits);
    QFETCH(bool, expected);

    for (int offset = 0; offset < 8; ++offset) {
        QByteArray bytes(16, '\xFF');
        qToLittleEndian<quint64>(bits, bytes.data() + offset);
        QCOMPARE(CMath::checkDouble(bytes.constData() + offset), expected);
    }
}

void tst_CMath::checkDoubleOfNothing()
{
    QVERIFY(!CMath::checkDouble(nullptr));
}

void tst_CMath::crc32_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint32>("expected");
    QTest::newRow("one zero byte") << QByteArray(1, '\0') << 0xD202EF8DU;
    QTest::newRow("a") << QByteArray("a") << 0xE8B7BE43U;
    QTest::newRow("abc") << QByteArray("abc") << 0x352441C2U;
    QTest::newRow("digits 1 to 9") << QByteArray("123456789") << 0xCBF43926U;
    QTest::newRow("quick brown fox") << QByteArray("The quick brown fox jumps over the lazy dog")
                                     << 0x414FA339U;
    QTest::newRow("32 zero bytes") << QByteArray(32, '\0') << 0x190A55ADU;
    QTest::newRow("32 bytes 0xFF") << QByteArray(32, '\xFF') << 0xFF6CAB0BU;
}

void tst_CMath::crc32()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint32, expected);

    QCOMPARE(CMath::crc32(bytes.constData(), bytes.size()), expected);
}

void tst_CMath::crc32OfNothing()
{
    QCOMPARE(CMath::crc32("123456789", 0), 0U);
    QCOMPARE(CMath::crc32("123456789", -1), 0U);
    QCOMPARE(CMath::crc32("123456789", std::numeric_limits<int>::min()), 0U);
    QCOMPARE(CMath::crc32(nullptr, 9), 0U);
}

QTEST_APPLESS_MAIN(tst_CMath)
#include "tst_CMath.moc"
