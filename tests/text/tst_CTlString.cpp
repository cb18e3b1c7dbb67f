#include <core/text/CTlString.h>

#include <tests/support/Texts.h>

#include <QDebug>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

using SFormat = CTlString::SFormatValue;

namespace {

constexpr quint8 DECIMAL = CTlString::NOTATION_DECIMAL;
constexpr quint8 FIXED = CTlString::NOTATION_FIXED_POINT;
constexpr quint8 HEX = CTlString::NOTATION_HEX;
constexpr quint8 DUAL = CTlString::NOTATION_DUAL;
constexpr qint64 SMALLEST = std::numeric_limits<qint64>::min();
constexpr qint64 LARGEST = std::numeric_limits<qint64>::max();

QByteArray tag(const QString& value, SFormat format)
{
    return QStringLiteral("%1 in %2 %3 %4 %5")
        .arg(value)
        .arg(format.fractionDigits)
        .arg(format.width)
        .arg(format.preShift)
        .arg(format.notation)
        .toLatin1();
}

} // namespace

/// Showing numbers, and the descriptor itself.
class tst_CTlString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void descriptor();
    void descriptorPacked_data();
    void descriptorPacked();
    void descriptorShown();
    void signedNumber_data();
    void signedNumber();
    void unsignedNumber_data();
    void unsignedNumber();
    void floatingNumber_data();
    void floatingNumber();
    void everyType();
    void unknownNotation();
    void sameAsTheTextFormatter();
    void insertPointSeparator_data();
    void insertPointSeparator();
};

void tst_CTlString::descriptor()
{
    const SFormat empty;
    QCOMPARE(static_cast<unsigned int>(empty), 0U);
    const SFormat format(-1, 10, -3, CTlString::NOTATION_HEX);
    QCOMPARE(format.fractionDigits, qint8(-1));
    QCOMPARE(format.width, qint8(10));
    QCOMPARE(format.preShift, qint8(-3));
    QCOMPARE(format.notation, quint8(2));
    QVERIFY(format == SFormat(0x02FD0AFFU));
    QVERIFY(format != empty);
    QCOMPARE(qHash(format), qHash(SFormat(0x02FD0AFFU)));
    QCOMPARE(sizeof(SFormat), std::size_t(4));
}

void tst_CTlString::descriptorPacked_data()
{
    QTest::addColumn<uint>("packed");
    for (const uint packed :
         {0U, 1U, 0x80U, 0x7F00U, 0x800000U, 0xFF000000U, 0x12345678U, 0xFEDCBA98U, ~0U}) {
        QTest::addRow("0x%08X", packed) << packed;
    }
}

void tst_CTlString::descriptorPacked()
{
    QFETCH(uint, packed);

    const SFormat format = packed;

    QCOMPARE(static_cast<quint8>(format.fractionDigits), quint8(packed));
    QCOMPARE(static_cast<quint8>(format.width), quint8(packed >> 8));
    QCOMPARE(static_cast<quint8>(format.preShift), quint8(packed >> 16));
    QCOMPARE(format.notation, quint8(packed >> 24));
    QCOMPARE(static_cast<unsigned int>(format), packed);
}

void tst_CTlString::descriptorShown()
{
    QString shown;
    QDebug(&shown).nospace() << SFormat(2, -6, 1, FIXED);
    QCOMPARE(shown, text("SFormatValue(fraction 2, width -6, shift 1, notation 1)"));
}

void tst_CTlString::signedNumber_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<QString>("expected");
    const struct
    {
        qint64 value;
        SFormat format;
        const char* expected;
    } rows[] = {
        // Decimal: no shift, the width widened by 2.
        {42, {0, 0, 0, DECIMAL}, "42"},
        {42, {2, 0, 0, DECIMAL}, "42.00"},
        {42, {0, 3, 0, DECIMAL}, "   42"},
        {42, {0, -3, 0, DECIMAL}, "42   "},
        {-42, {1, 5, 0, DECIMAL}, "  -42.0"},
        {42, {0, 0, 4, DECIMAL}, "42"},
        {42, {-1, 0, 0, DECIMAL}, "42"},
        {123456789, {-1, 0, 0, DECIMAL}, "1.23457e+08"},
        {123456789, {-9, 0, 0, DECIMAL}, "1.23457e+08"},
        {SMALLEST, {0, 0, 0, DECIMAL}, "-9223372036854775808"},
        {LARGEST, {0, 0, 0, DECIMAL}, "9223372036854775808"},
        {9007199254740993, {0, 0, 0, DECIMAL}, "9007199254740992"},
        {9007199254740992, {0, 0, 0, DECIMAL}, "9007199254740992"},
        // Fixed point.
        {1234, {2, 6, 0, FIXED}, " 12.34"},
        {1234, {0, 6, 0, FIXED}, "  1234"},
        {1234, {0, -6, 0, FIXED}, "1234  "},
        {1234, {-2, 6, 0, FIXED}, "  1234"},
        {1205, {2, 5, 0, FIXED}, "12.05"},
        {5, {2, 5, 0, FIXED}, " 0.05"},
        {-1234, {2, 6, 0, FIXED}, "-12.-34"},
        {-1205, {2, 6, 0, FIXED}, "-12.-5"},
        {-1205, {3, 6, 0, FIXED}, "-1.-205"},
        {-12005, {3, 6, 0, FIXED}, "-12.-05"},
        {1234, {2, 0, 0, FIXED}, "12 .34"},
        {1234, {2, 3, 0, FIXED}, "12.34"},
        {1234, {2, -6, 0, FIXED}, "12       .34"},
        {1234, {2, 6, 1, FIXED}, "  6.17"},
        {1234, {2, 6, -1, FIXED}, " 24.68"},
        {-1, {0, 0, 1, FIXED}, "-1"},
        {-1, {0, 0, 63, FIXED}, "-1"},
        {-1, {0, 0, 64, FIXED}, "-1"},
        {1, {0, 0, 64, FIXED}, "0"},
        {-1, {0, 0, 127, FIXED}, "-1"},
        {1, {0, 0, -63, FIXED}, "-9223372036854775808"},
        {-1, {0, 0, -64, FIXED}, "0"},
        {-1, {0, 0, -128, FIXED}, "0"},
        {SMALLEST, {0, 0, 0, FIXED}, "-9223372036854775808"},
        {SMALLEST, {18, 0, 0, FIXED}, "-9                 .-223372036854775808"},
        // Hexadecimal.
        {-1, {0, 2, 0, HEX}, "ff"},
        {-1, {0, 16, 0, HEX}, "ffff.ffff.ffff.ffff"},
        {-1, {0, 18, 0, HEX}, "00.ffff.ffff.ffff.ffff"},
        {0x1234, {0, 8, 0, HEX}, "0000.1234"},
        {0x1234, {0, 4, 0, HEX}, "1234"},
        {0x1234, {0, 3, 0, HEX}, "234"},
        {0x1234, {0, 0, 0, HEX}, ""},
        {0x12, {0, -4, 0, HEX}, "1200"},
        {0x123456, {0, -4, 0, HEX}, "12.3456"},
        {0x1234, {2, 4, 0, HEX}, "12:34"},
        {0x1234, {2, 8, 0, HEX}, "00.0012:34"},
        {0x1234, {2, 2, 0, HEX}, ":34"},
        {0x534, {2, 0, 0, HEX}, "50:34"},
        {0x123456, {5, 8, 0, HEX}, "001:2.3456"},
        {-1, {16, 20, 0, HEX}, "ffff:ffff.ffff.ffff.ffff"},
        {0x12, {17, 19, 0, HEX}, "00:0.0000.0000.0000.0012"},
        {0xABC, {0, 4, 4, HEX}, "00ab"},
        {0xABC, {0, 4, -4, HEX}, "abc0"},
        {-16, {0, 4, 2, HEX}, "fffc"},
        // Binary.
        {10, {0, 8, 0, DUAL}, "0000.1010"},
        {10, {0, 4, 0, DUAL}, "1010"},
        {10, {0, 0, 0, DUAL}, ""},
        {-1, {0, 6, 0, DUAL}, "11.1111"},
        {11, {2, 6, 0, DUAL}, "0010:11"},
        {11, {2, 6, 1, DUAL}, "0001:01"},
    };
    for (const auto& row : rows) {
        QTest::newRow(tag(QString::number(row.value), row.format).constData())
            << row.value << row.format << text(row.expected);
    }
    QTest::newRow("a divisor of 0 gives 0")
        << qint64(7) << SFormat(64, 127, 0, FIXED)
        << QString(61, QLatin1Char(' ')) + QLatin1String("0.") + QString(64, QLatin1Char('0'));
    QTest::newRow("more fraction digits than bits")
        << qint64(-1) << SFormat(68, 70, 0, DUAL)
        << QLatin1String("11:0000") + QStringLiteral(".1111").repeated(16);
}

void tst_CTlString::signedNumber()
{
    QFETCH(qint64, value);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);

    QCOMPARE(CTlString::toStr(static_cast<long long>(value), format), expected);
    if (value == static_cast<int>(value)) {
        QCOMPARE(CTlString::toStr(static_cast<int>(value), format), expected);
    }
}

void tst_CTlString::unsignedNumber_data()
{
    QTest::addColumn<quint64>("value");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<QString>("expected");
    const quint64 most = std::numeric_limits<quint64>::max();
    const struct
    {
        quint64 value;
        SFormat format;
        const char* expected;
    } rows[] = {
        {most, {0, 0, 0, DECIMAL}, "18446744073709551616"},
        {most, {0, 0, 0, FIXED}, "18446744073709551615"},
        {most, {19, 0, 0, FIXED}, "1                   .8446744073709551615"},
        {most, {0, 0, 63, FIXED}, "1"},
        {most, {0, 0, 64, FIXED}, "0"},
        {most, {0, 16, 4, HEX}, "0fff.ffff.ffff.ffff"},
        {0xFFU, {0, 4, -4, HEX}, "0ff0"},
    };
    for (const auto& row : rows) {
        QTest::newRow(tag(QString::number(row.value), row.format).constData())
            << row.value << row.format << text(row.expected);
    }
}

void tst_CTlString::unsignedNumber()
{
    QFETCH(quint64, value);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);

    QCOMPARE(CTlString::toStr(static_cast<unsigned long long>(value), format), expected);
}

void tst_CTlString::floatingNumber_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<QString>("expected");
    const struct
    {
        double value;
        SFormat format;
        const char* expected;
    } rows[] = {
        {1.5, {2, 0, 0, DECIMAL}, "1.50"},
        {1.5, {2, 5, 0, DECIMAL}, "   1.50"},
        {1.5, {2, -5, 0, DECIMAL}, "1.50   "},
        {1.5, {-1, 0, 0, DECIMAL}, "1.5"},
        {1e10, {-1, 0, 0, DECIMAL}, "1e+10"},
        {std::numeric_limits<double>::infinity(), {0, 0, 0, DECIMAL}, "inf"},
        {12.99, {0, 0, 0, FIXED}, "12"},
        {-12.99, {0, 0, 0, FIXED}, "-12"},
        {1234.9, {2, 6, 0, FIXED}, " 12.34"},
        {255.9, {0, 4, 4, HEX}, "000f"},
        {-1.0, {0, 4, 0, HEX}, "ffff"},
        {5.0, {0, 4, 0, DUAL}, "0101"},
        {1e19, {0, 16, 0, HEX}, "8000.0000.0000.0000"},
        {std::numeric_limits<double>::infinity(), {0, 0, 0, FIXED}, "-9223372036854775808"},
        {std::numeric_limits<double>::quiet_NaN(), {0, 0, 0, FIXED}, "-9223372036854775808"},
    };
    for (const auto& row : rows) {
        QTest::newRow(tag(QString::number(row.value), row.format).constData())
            << row.value << row.format << text(row.expected);
    }
    QTest::newRow("widened beyond the byte")
        << 1.0 << SFormat(0, 127, 0, DECIMAL) << QString(128, QLatin1Char(' ')) + QLatin1Char('1');
    QTest::newRow("widened beyond the byte, left")
        << 1.0 << SFormat(0, -128, 0, DECIMAL) << QLatin1Char('1') + QString(129, QLatin1Char(' '));
}

void tst_CTlString::floatingNumber()
{
    QFETCH(double, value);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);

    QCOMPARE(CTlString::toStr(value, format), expected);
    const float single = static_cast<float>(value);
    if (std::isnan(value) || static_cast<double>(single) == value) {
        QCOMPARE(CTlString::toStr(single, format), expected);
    }
}

// The same bits in ten types: signed ones are extended, floating-point ones truncated.
void tst_CTlString::everyType()
{
    const SFormat hex(0, 16, 0, HEX);
    const QString ones = text("ffff.ffff.ffff.ffff");
    QCOMPARE(CTlString::toStr(static_cast<signed char>(-1), hex), ones);
    QCOMPARE(CTlString::toStr(static_cast<unsigned char>(0xFF), hex), text("0000.0000.0000.00ff"));
    QCOMPARE(CTlString::toStr(static_cast<short>(-1), hex), ones);
    QCOMPARE(CTlString::toStr(static_cast<unsigned short>(0xFFFF), hex), text("0000.0000.0000.ffff"));
    QCOMPARE(CTlString::toStr(-1, hex), ones);
    QCOMPARE(CTlString::toStr(0xFFFFFFFFU, hex), text("0000.0000.ffff.ffff"));
    QCOMPARE(CTlString::toStr(-1LL, hex), ones);
    QCOMPARE(CTlString::toStr(~0ULL, hex), ones);
    QCOMPARE(CTlString::toStr(-1.5F, hex), ones);
    QCOMPARE(CTlString::toStr(-1.5, hex), ones);
    // A packed descriptor does as well as a structure.
    QCOMPARE(CTlString::toStr(static_cast<unsigned char>(0xFF), 0x02000200U), text("ff"));
}

void tst_CTlString::unknownNotation()
{
    for (const quint8 notation : {quint8(4), quint8(0x7F), quint8(0x80), quint8(0xFF)}) {
        QCOMPARE(CTlString::toStr(12, SFormat(0, 4, 0, notation)), QString());
        QCOMPARE(CTlString::toStr(12.5, SFormat(0, 4, 0, notation)), QString());
        QCOMPARE(CTlString::toStr(12ULL, SFormat(0, 4, 0, notation)), QString());
    }
}

// The texts as QString::arg makes them of the same templates, over generated numbers and descriptors.
void tst_CTlString::sameAsTheTextFormatter()
{
    QRandomGenerator random(4711);
    for (int i = 0; i < 100000; ++i) {
        const qint64 value = static_cast<qint64>(random.generate64()) >> random.bounded(64);
        const int width = random.bounded(-40, 41);
        const int digits = random.bounded(1, 19);
        const auto format = [&](int fraction, quint8 notation) {
            return SFormat(static_cast<qint8>(fraction), static_cast<qint8>(width), 0, notation);
        };
        QCOMPARE(CTlString::toStr(static_cast<long long>(value), format(0, FIXED)),
                 QStringLiteral("%1").arg(value, width));
        qint64 divisor = 1;
        for (int n = 0; n < digits; ++n) {
            divisor *= 10;
        }
        QCOMPARE(CTlString::toStr(static_cast<long long>(value), format(digits, FIXED)),
                 QStringLiteral("%1.%2")
                     .arg(value / divisor, width - digits - 1)
                     .arg(value % divisor, digits, 10, QLatin1Char('0')));
        const QString hex =
            QStringLiteral("%1").arg(static_cast<quint64>(value), width, 16, QLatin1Char('0')).right(width);
        QCOMPARE(CTlString::toStr(static_cast<long long>(value), format(0, HEX)),
                 CTlString::insertPointSeparator(hex));
        const QString dual =
            QStringLiteral("%1").arg(static_cast<quint64>(value), width, 2, QLatin1Char('0')).right(width);
        QCOMPARE(CTlString::toStr(static_cast<long long>(value), format(0, DUAL)),
                 CTlString::insertPointSeparator(dual));
        const int widened = width + (width > 0) * 2 - (width < 0) * 2;
        const int precision = random.bounded(4) - 1;
        QCOMPARE(CTlString::toStr(static_cast<long long>(value), format(precision, DECIMAL)),
                 QStringLiteral("%1").arg(double(value), widened, precision < 0 ? 'g' : 'f', precision));
    }
}

void tst_CTlString::insertPointSeparator_data()
{
    QTest::addColumn<QString>("expected");
    for (const char* expected :
         {"", "1", "1234", "1.2345", "1234.5678", "1.2345.6789", "12.3456.7890", "1234.5678.9abc.def0"}) {
        QTest::addRow("\"%s\"", expected) << text(expected);
    }
}

void tst_CTlString::insertPointSeparator()
{
    QFETCH(QString, expected);

    QCOMPARE(CTlString::insertPointSeparator(QString(expected).remove(QLatin1Char('.'))), expected);
}

QTEST_APPLESS_MAIN(tst_CTlString)
#include "tst_CTlString.moc"
