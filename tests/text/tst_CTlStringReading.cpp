#include <core/text/CTlString.h>

#include <tests/support/Texts.h>

#include <QLocale>
#include <QtTest>

#include <limits>

using SFormat = CTlString::SFormatValue;

namespace {

constexpr quint8 DECIMAL = CTlString::NOTATION_DECIMAL;
constexpr quint8 FIXED = CTlString::NOTATION_FIXED_POINT;
constexpr quint8 HEX = CTlString::NOTATION_HEX;
constexpr quint8 DUAL = CTlString::NOTATION_DUAL;
constexpr qint64 SMALLEST = std::numeric_limits<qint64>::min();

void addRow(const char* s, SFormat format, double factor, qint64 expected)
{
    QTest::addRow("\"%s\" in %d %d %d %d times %.13g", s, format.fractionDigits, format.width,
                  format.preShift, format.notation, factor)
        << text(s) << format << factor << expected;
}

} // namespace

class tst_CTlStringReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signed64_data();
    void signed64();
    void unsigned64_data();
    void unsigned64();
    void cutToWidth_data();
    void cutToWidth();
    void negativeTimesFactor();
    void beyond64Bits_data();
    void beyond64Bits();
    void notANumber_data();
    void notANumber();
    void floats_data();
    void floats();
    void notAFloat_data();
    void notAFloat();
    void floatBeyondSingle();

private:
    void addColumns();
};

void tst_CTlStringReading::addColumns()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<double>("factor");
    QTest::addColumn<qint64>("expected");
}

void tst_CTlStringReading::signed64_data()
{
    addColumns();
    // Decimal.
    addRow("42", {0, 0, 0, DECIMAL}, 1, 42);
    addRow("  42.00", {2, 5, 0, DECIMAL}, 1, 42);
    addRow("-42.9", {0, 0, 0, DECIMAL}, 1, -42);
    addRow("1.5", {0, 0, 0, DECIMAL}, 100, 150);
    addRow("1e3", {0, 0, 0, DECIMAL}, 1, 1000);
    addRow("010", {0, 0, 0, DECIMAL}, 1, 10);
    addRow("9223372036854775807", {0, 0, 0, DECIMAL}, 1, SMALLEST); // the double is 2^63
    addRow("1e300", {0, 0, 0, DECIMAL}, 1, SMALLEST);
    addRow("inf", {0, 0, 0, DECIMAL}, 1, SMALLEST);
    addRow("nan", {0, 0, 0, DECIMAL}, 1, SMALLEST);
    addRow("3", {0, 0, 2, DECIMAL}, 1, 12); // the shift is undone although showing has none
    addRow("-12", {0, 0, -2, DECIMAL}, 1, -3);
    // Fixed point.
    addRow(" 12.34", {2, 6, 0, FIXED}, 1, 1234);
    addRow("12.34", {0, 0, 0, FIXED}, 1, 1234);
    addRow("1.2:3..4", {2, 6, 0, FIXED}, 1, 1234);
    addRow("-12", {0, 4, 0, FIXED}, 1, -12);
    addRow("12", {0, 4, 0, FIXED}, 2.5, 30);
    addRow("-12", {0, 4, 0, FIXED}, 0.3, -3);
    addRow("0x1F", {0, 4, 0, FIXED}, 1, 31);
    addRow("0.17", {2, 4, 0, FIXED}, 1, 15); // "017" is octal
    addRow("617", {2, 6, 1, FIXED}, 1, 1234);
    addRow("-6", {0, 4, -1, FIXED}, 1, -3);
    addRow("9007199254740993", {0, 0, 0, FIXED}, 1, 9007199254740992); // through a double
    addRow("5", {0, 0, 63, FIXED}, 1, SMALLEST);
    addRow("5", {0, 0, 64, FIXED}, 1, 0);
    addRow("5", {0, 0, 127, FIXED}, 1, 0);
    addRow("-5", {0, 0, -64, FIXED}, 1, -1);
    addRow("-5", {0, 0, -128, FIXED}, 1, -1);
    addRow("5", {0, 0, -128, FIXED}, 1, 0);
    // Hexadecimal.
    addRow("ff", {0, 2, 0, HEX}, 1, 255);
    addRow("FF", {0, 0, 0, HEX}, 1, 255);
    addRow("0xff", {0, 0, 0, HEX}, 1, 255);
    addRow("-ff", {0, 4, 0, HEX}, 1, -255);
    addRow("-8000000000000000", {0, 16, 0, HEX}, 1, SMALLEST);
    addRow("ffff.ffff.ffff.ffff", {0, 16, 0, HEX}, 1, -1);
    addRow("7fff.ffff.ffff.ffff", {0, 16, 0, HEX}, 1, std::numeric_limits<qint64>::max());
    addRow("7fff.ffff.ffff.ffff", {0, 0, 0, HEX}, 1.0000000000001, std::numeric_limits<qint64>::max());
    addRow("7fff.ffff.ffff.ffff", {0, 0, 0, HEX}, 1.000000000002, SMALLEST); // not 1 any more
    addRow("10", {0, 4, 0, HEX}, 0, 0);
    addRow("12.3456", {0, 8, 0, HEX}, 1, 0x123456);
    addRow("12:34", {2, 4, 0, HEX}, 1, 0x1234);
    addRow("1:2", {2, 4, 0, HEX}, 1, 0x102);
    addRow("12", {2, 4, 0, HEX}, 1, 0x1200); // no fraction: it is zero
    addRow("12345", {0, 4, 0, HEX}, 1, 0x2345);
    addRow("123456789abcdef01", {0, 0, 0, HEX}, 1, 0x23456789abcdef01);
    addRow("10", {0, 4, 0, HEX}, 2, 32);
    addRow("10", {0, 4, 0, HEX}, 0.1, 1);
    addRow("-10", {0, 4, 0, HEX}, 2, -32); // behind a sign the number is signed
    addRow("-10", {0, 4, 0, HEX}, -0.1, 1);
    addRow("-1:08", {2, 4, 0, HEX}, 0.5, -132);
    addRow("-10", {0, 4, 4, HEX}, 0.5, -128);
    addRow("-8000000000000000", {0, 16, 0, HEX}, 2, SMALLEST);
    addRow("fffffffffffffff0", {0, 16, 0, HEX}, 2, SMALLEST); // the bits are 2^64 - 16: too large
    addRow("ffffffffffffffff", {0, 0, 0, HEX}, 0.25, Q_INT64_C(1) << 62);
    addRow("10", {0, 4, 4, HEX}, 1, 0x100);
    addRow("8000000000000000", {0, 0, -4, HEX}, 1, SMALLEST >> 4);
    addRow("ffff.ffff.ffff.fffd:d", {1, 17, 0, HEX}, 1, -35); // as toStr() shows it, beyond 64 bits
    addRow("00.ffff.ffff.ffff.fffd:d", {1, 19, 0, HEX}, 1, -35);
    addRow("ffff.ffff.ffff.fffe:1234", {4, 20, 0, HEX}, 1, -0x1edcc);
    addRow("ff.ffff.ffff.fffe:1234", {4, 18, 0, HEX}, 1, -0x1edcc);
    addRow("00.ffff.ffff.ffff.fffe:1234", {4, 22, 0, HEX}, 1, -0x1edcc);
    addRow("ffff.ffff.ffff.fffe:1234", {4, 0, 0, HEX}, 1, -0x1edcc);
    addRow("ffff.ffff.ffff.fffe:1234", {4, -1, 0, HEX}, 1, -0x1edcc);
    addRow("ffff.ffff.ffff.ffff:0000.ffff.ffff.ffff.fffb", {20, 36, 0, HEX}, 1, -5);
    // Binary.
    addRow("1010", {0, 8, 0, DUAL}, 1, 10);
    addRow("0000.1010", {0, 8, 0, DUAL}, 1, 10);
    addRow("10:11", {2, 6, 0, DUAL}, 1, 11);
    addRow("1010", {0, 0, 0, DUAL}, 0.5, 5);
    addRow("1010", {0, 0, 2, DUAL}, 1, 40);
    addRow("11111", {0, 4, 0, DUAL}, 1, 15);
    addRow("100000000000000000000000000000000000000000000000000001", {0, 0, 0, DUAL}, 1,
           Q_INT64_C(9007199254740992)); // 2^53 + 1 through a double
    addRow("1111111111111111111111111111111111111111111111111111111111111111", {0, 64, 0, DUAL}, 1, SMALLEST);
}

void tst_CTlStringReading::signed64()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(double, factor);
    QFETCH(qint64, expected);
    // No locale is involved.
    QLocale::setDefault(QLocale(QLocale::German));

    bool ok = false;
    QCOMPARE(CTlString::toI64(s, format, factor, &ok), expected);
    QVERIFY(ok);
    QCOMPARE(CTlString::toI64(s, format, factor, nullptr), expected);

    QLocale::setDefault(QLocale::c());
}

void tst_CTlStringReading::unsigned64_data()
{
    addColumns();
    const auto top = static_cast<qint64>(Q_UINT64_C(1) << 63);
    addRow("-1", {0, 0, 0, DECIMAL}, 1, -1);
    addRow("1e19", {0, 0, 0, DECIMAL}, 1, static_cast<qint64>(Q_UINT64_C(10000000000000000000)));
    addRow("1e20", {0, 0, 0, DECIMAL}, 1, top);
    addRow("-16", {0, 0, -4, DECIMAL}, 1, 0x0FFFFFFFFFFFFFFF); // a logical shift
    addRow("ffff.ffff.ffff.ffff", {0, 16, 0, HEX}, 1, -1);
    addRow("8000000000000000", {0, 0, -4, HEX}, 1, 0x0800000000000000);
    addRow("8000000000000000", {0, 0, 0, HEX}, 1.5, static_cast<qint64>(Q_UINT64_C(3) << 62));
    addRow("fffffffffffffff0", {0, 16, 0, HEX}, 0.5, top);
    addRow("-10", {0, 4, 0, HEX}, 0.5, -8);
    addRow("1111", {0, 64, 60, DUAL}, 1, static_cast<qint64>(Q_UINT64_C(15) << 60));
    addRow("1111111111111111111111111111111111111111111111111111111111111111", {0, 64, 0, DUAL}, 1, top);
    addRow("1000000000000000000000000000000000000000000000000000000000000000", {0, 64, 0, DUAL}, 1, top);
}

void tst_CTlStringReading::unsigned64()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(double, factor);
    QFETCH(qint64, expected);

    bool ok = false;
    QCOMPARE(CTlString::toU64(s, format, factor, &ok), static_cast<quint64>(expected));
    QVERIFY(ok);
    QCOMPARE(CTlString::toU64(s, format, factor, nullptr), static_cast<quint64>(expected));
}

void tst_CTlStringReading::cutToWidth_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<qint64>("bits");
    QTest::newRow("ff is -1 as 8 bits") << text("ff") << SFormat(0, 2, 0, HEX) << qint64(0xFF);
    QTest::newRow("ff without width") << text("ff") << SFormat(0, 0, 0, HEX) << qint64(0xFF);
    QTest::newRow("wide hexadecimal text")
        << text("12345678.9abc.def0") << SFormat(0, 16, 0, HEX) << qint64(0x123456789abcdef0);
    QTest::newRow("300 in decimal") << text("300") << SFormat() << qint64(300);
    QTest::newRow("-300 in fixed point") << text("-300") << SFormat(0, 0, 0, FIXED) << qint64(-300);
    QTest::newRow("32 ones") << QString(32, QLatin1Char('1')) << SFormat(0, 32, 0, DUAL)
                             << qint64(0xFFFFFFFF);
    QTest::newRow("shifted before it is cut") << text("0ff0") << SFormat(0, 4, -4, HEX) << qint64(0xFF);
    QTest::newRow("beyond a signed 64-bit number") << text("1e19") << SFormat() << SMALLEST;
}

void tst_CTlStringReading::cutToWidth()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(qint64, bits);

    bool ok[6] = {};
    QCOMPARE(CTlString::toI8(s, format, 1.0, ok), static_cast<qint8>(bits));
    QCOMPARE(CTlString::toU8(s, format, 1.0, ok + 1), static_cast<quint8>(bits));
    QCOMPARE(CTlString::toI16(s, format, 1.0, ok + 2), static_cast<qint16>(bits));
    QCOMPARE(CTlString::toU16(s, format, 1.0, ok + 3), static_cast<quint16>(bits));
    QCOMPARE(CTlString::toI32(s, format, 1.0, ok + 4), static_cast<qint32>(bits));
    QCOMPARE(CTlString::toU32(s, format, 1.0, ok + 5), static_cast<quint32>(bits));
    for (const bool good : ok) {
        QVERIFY(good);
    }
}

// The sign counts for narrow types too, whose bits are cut out of the 64.
void tst_CTlStringReading::negativeTimesFactor()
{
    const SFormat hex(0, 2, 0, HEX);
    bool ok[3] = {};
    QCOMPARE(CTlString::toI8(text("-10"), hex, 2.0, ok), qint8(-32));
    QCOMPARE(CTlString::toI16(text("-ff"), hex, 100.0, ok + 1), qint16(-25500));
    QCOMPARE(CTlString::toU32(text("-10"), hex, 0.5, ok + 2), 0xFFFFFFF8U);
    QVERIFY(ok[0] && ok[1] && ok[2]);
}

void tst_CTlStringReading::beyond64Bits_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<bool>("isSigned");
    const struct
    {
        const char* s;
        SFormat format;
        bool isSigned;
    } rows[] = {
        {"f9abc.def0.1234:5678", {4, 20, 0, HEX}, false},
        {"ffff.ffff.ffff.fffd:d", {1, 17, 0, HEX}, true},
        {"ffff.ffff.ffff.fffe:1234", {4, 20, 0, HEX}, true},
        {"0fff.ffff.ffff.fffe:1234", {4, 20, 0, HEX}, false},
        {"0f.ffff.ffff.fffe:1234", {4, 18, 0, HEX}, false},
        {"ffff.7fff.ffff.fffe:1234", {4, 20, 0, HEX}, false},
        {"ff.ffff.ffff.ffff.fffe:1234", {4, 22, 0, HEX}, false},
        {"1.0000.0000.0000.0000", {0, 17, 0, HEX}, false},
        {"f.ffff.ffff.ffff.ffff", {0, 17, 0, HEX}, false},
    };
    for (const auto& row : rows) {
        QTest::addRow("\"%s\" in %d %d", row.s, row.format.fractionDigits, row.format.width)
            << text(row.s) << row.format << row.isSigned;
    }
}

// What toStr() prints in front of the 64 bits of a negative number is read by the signed types alone.
void tst_CTlStringReading::beyond64Bits()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(bool, isSigned);

    bool ok = !isSigned;
    const qint64 number = CTlString::toI64(s, format, 1.0, &ok);
    QCOMPARE(ok, isSigned);
    QVERIFY(isSigned ? CTlString::toStr(number, format) == s : number == 0);
    CTlString::toI8(s, format, 1.0, &ok);
    QCOMPARE(ok, isSigned);
    ok = true;
    QCOMPARE(CTlString::toU64(s, format, 1.0, &ok), Q_UINT64_C(0));
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(CTlString::toU16(s, format, 2.0, &ok), quint16(0));
    QVERIFY(!ok);
}

void tst_CTlStringReading::notANumber_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<quint8>("notation");
    const struct
    {
        const char* s;
        quint8 notation;
    } rows[] = {
        {"", DECIMAL},
        {"", FIXED},
        {"", HEX},
        {"", DUAL},
        {"x", DECIMAL},
        {"1,5", DECIMAL},
        {"1 2", DECIMAL},
        {"1e999", DECIMAL},
        {"1 2", FIXED},
        {"0.09", FIXED},
        {"-12.-34", FIXED},
        {".", FIXED},
        {"9223372036854775808", FIXED},
        {"xyz", HEX},
        {"12g4", HEX},
        {"g0000001", HEX},
        {"--1", HEX},
        {"-", HEX},
        {":", HEX},
        {"-ffffffffffffffff", HEX},
        {"1 2", HEX},
        {"12", DUAL},
        {"2001", DUAL},
        {"-1", DUAL},
        {"12", 4},
        {"12", 0x7F},
        {"12", 0x80},
        {"12", 0xFF},
    };
    for (const auto& row : rows) {
        QTest::addRow("\"%s\" in notation %d", row.s, row.notation) << text(row.s) << row.notation;
    }
    QTest::newRow("65 binary digits") << QString(65, QLatin1Char('1')) << DUAL;
    QTest::newRow("letters of another script") << QString(4, QChar(0x0430)) << HEX;
}

void tst_CTlStringReading::notANumber()
{
    QFETCH(QString, s);
    QFETCH(quint8, notation);

    for (const qint8 width : {qint8(0), qint8(3), qint8(8), qint8(80)}) {
        if (s.size() > 16 && notation >= HEX && width != 80 && (width != 0 || notation == HEX)) {
            continue; // what is cut to the width is a number
        }
        const SFormat format(0, width, 3, notation);
        bool ok = true;
        QCOMPARE(CTlString::toI64(s, format, 2.0, &ok), Q_INT64_C(0));
        QVERIFY(!ok);
        ok = true;
        QCOMPARE(CTlString::toU8(s, format, 1.0, &ok), quint8(0));
        QVERIFY(!ok);
        QCOMPARE(CTlString::toU64(s, format, 1.0, nullptr), Q_UINT64_C(0));
    }
}

void tst_CTlStringReading::floats_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("expected");
    QTest::newRow("1.5") << text("1.5") << 1.0 << 1.5;
    QTest::newRow("1.5 times -2") << text("1.5") << -2.0 << -3.0;
    QTest::newRow("blanks") << text("  -2.5 ") << 1.0 << -2.5;
    QTest::newRow("exponent") << text("25e-2") << 4.0 << 1.0;
}

void tst_CTlStringReading::floats()
{
    QFETCH(QString, s);
    QFETCH(double, factor);
    QFETCH(double, expected);

    // The descriptor is not looked at: a shift, a notation and an unknown notation change nothing.
    for (const unsigned int format : {0U, 0x02040802U, 0xFF010101U}) {
        bool ok = false;
        QCOMPARE(CTlString::toF64(s, format, factor, &ok), expected);
        QVERIFY(ok);
        ok = false;
        QCOMPARE(CTlString::toF32(s, format, factor, &ok), static_cast<float>(expected));
        QVERIFY(ok);
        QCOMPARE(CTlString::toF64(s, format, factor, nullptr), expected);
    }
}

void tst_CTlStringReading::notAFloat_data()
{
    QTest::addColumn<QString>("s");
    for (const char* s : {"", "x", "1,5", "0x10", "1e999", "1e-999"}) {
        QTest::addRow("\"%s\"", s) << text(s);
    }
}

void tst_CTlStringReading::notAFloat()
{
    QFETCH(QString, s);

    bool ok = true;
    QCOMPARE(CTlString::toF64(s, 0, 2.0, &ok), 0.0);
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(CTlString::toF32(s, 0, 2.0, &ok), 0.0F);
    QVERIFY(!ok);
    QCOMPARE(CTlString::toF32(s, 0, 2.0, nullptr), 0.0F);
}

void tst_CTlStringReading::floatBeyondSingle()
{
    bool ok = true;
    QCOMPARE(CTlString::toF32(text("1e39"), 0, 1e-10, &ok), 0.0F);
    QVERIFY(!ok);
    QCOMPARE(CTlString::toF64(text("1e39"), 0, 1.0, &ok), 1e39);
    QVERIFY(ok);
}

QTEST_APPLESS_MAIN(tst_CTlStringReading)
#include "tst_CTlStringReading.moc"
