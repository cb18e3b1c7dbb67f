#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/types/Variants.h>

#include <QtTest>

#include <limits>
#include <random>

// The two display forms.
class tst_CVariantText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void integers_data();
    void integers();
    void everyInteger();
    void floats_data();
    void floats();
    void texts_data();
    void texts();
    void defaults_data();
    void defaults();
    void recordShowsAsNothing();
    void keptPayload();
    void localised_data();
    void localised();
    void stringOperator();
    void debug_data();
    void debug();
};

void tst_CVariantText::integers_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* text, const CVariant& value) {
        QTest::addRow("%u %s", static_cast<uint>(value.type()), text) << value << QString::fromLatin1(text);
    };
    row("0", static_cast<uchar>(0));
    row("255", static_cast<uchar>(255));
    row("-128", static_cast<signed char>(-128));
    row("-5", static_cast<signed char>(-5));
    row("127", static_cast<signed char>(127));
    row("65535", static_cast<ushort>(65535));
    row("-32768", static_cast<short>(-32768));
    row("4294967295", ~0U);
    row("-2147483648", std::numeric_limits<int>::min());
    row("2147483647", std::numeric_limits<int>::max());
    row("18446744073709551615", ~0ULL);
    row("10000000000000000000", 10000000000000000000ULL);
    row("-9223372036854775808", std::numeric_limits<long long>::min());
    row("9223372036854775807", std::numeric_limits<long long>::max());
    row("1000000", 1000000);
}

void tst_CVariantText::integers()
{
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    QCOMPARE(value.toStr(), text);
    // Integers are not grouped in any locale.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(value.toLocaleStr(), text);
    QCOMPARE(value.toStr(), text);
}

// The digits against Qt's own over many numbers of every length.
void tst_CVariantText::everyInteger()
{
    std::mt19937_64 random(20260); // NOLINT: a fixed seed, so that a failure comes again
    for (int i = 0; i < 20000; ++i) {
        const quint64 bits = random() >> (i % 64);
        QCOMPARE(CVariant(bits).toStr(), QString::number(bits));
        QCOMPARE(CVariant(qint64(bits)).toStr(), QString::number(qint64(bits)));
        QCOMPARE(CVariant(int(bits)).toStr(), QString::number(int(bits)));
        QCOMPARE(CVariant(uint(bits)).toStr(), QString::number(uint(bits)));
        QCOMPARE(CVariant(short(bits)).toStr(), QString::number(short(bits)));
    }
}

void tst_CVariantText::floats_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    const auto f32 = [](const char* text, float value) {
        QTest::addRow("F32 %s", text) << CVariant(value) << QString::fromLatin1(text);
    };
    const auto f64 = [](const char* text, double value) {
        QTest::addRow("F64 %s", text) << CVariant(value) << QString::fromLatin1(text);
    };
    f32("1.5", 1.5F);
    f32("1.23457e+06", 1234567.0F);
    f32("0.1", 0.1F);
    f32("0", 0.0F);
    f32("-0.0001", -0.0001F);
    f32("1e-05", 0.00001F);
    f32("123456", 123456.0F);
    f32("1e+06", 1000000.0F);
    f32("3.40282e+38", std::numeric_limits<float>::max());
    f32("inf", std::numeric_limits<float>::infinity());
    f64("0.1", 0.1);
    f64("1e+20", 1e20);
    f64("0.333333333333333", 1.0 / 3);
    f64("123456789012345", 123456789012345.0);
    f64("1.23456789012346e+15", 1234567890123456.0);
    f64("-2.5", -2.5);
    f64("nan", std::numeric_limits<double>::quiet_NaN());
    f64("-inf", -std::numeric_limits<double>::infinity());
}

void tst_CVariantText::floats()
{
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    QCOMPARE(value.toStr(), text);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(value.toStr(), text);
}

void tst_CVariantText::texts_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    char bytes64[64] = "abc";
    char bytes128[128];
    char bytes256[256];
    fillBytes(bytes128, "", 'f');
    fillBytes(bytes256, "\xC3\xA4\xE2\x82\xAC", 'z');
    bytes256[5] = '\0';
    const QString letters32(32, QLatin1Char('q'));
    QTest::newRow("CHARSTR64") << CVariant(bytes64) << QStringLiteral("abc");
    QTest::newRow("CHARSTR128 full") << CVariant(bytes128) << QString(128, QLatin1Char('f'));
    QTest::newRow("CHARSTR256 UTF-8") << CVariant(bytes256) << QString(QChar(0xE4)) + QChar(0x20AC);
    QTest::newRow("CHARSTR64 parsed")
        << CVariant(QStringLiteral("short"), NTypes::TYPE_CHARSTR64) << QStringLiteral("short");
    // Written as Latin-1, read as UTF-8: one byte 0xE4 alone is no character.
    QTest::newRow("CHARSTR64 parsed umlaut")
        << CVariant(QString(QChar(0xE4)), NTypes::TYPE_CHARSTR64) << QString(QChar(0xFFFD));
    QTest::newRow("CHAR") << CVariant('A') << QStringLiteral("A");
    QTest::newRow("CHAR 0") << CVariant('\0') << QString();
    QTest::newRow("STRING32 full") << CVariant(CString32(letters32)) << letters32;
    QTest::newRow("STRING32 with U+FEFF") << CVariant(CString32(QString(QChar(0xFEFF)) + QLatin1Char('a')))
                                          << QString(QChar(0xFEFF)) + QLatin1Char('a');
    QTest::newRow("STRING64") << CVariant(CString64(QStringLiteral("Axis"))) << QStringLiteral("Axis");
    QTest::newRow("STRING128") << CVariant(CString128(QStringLiteral("Axis"))) << QStringLiteral("Axis");
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x20AC)) << QString(QChar(0x20AC));
    QTest::newRow("UTF16CHAR 0") << CVariant(QChar(0)) << QString(QChar(0));
    QTest::newRow("UNKNOWN") << CVariant() << QString();
    QTest::newRow("F80") << CVariant(NTypes::TYPE_F80) << QString();
    QTest::newRow("21") << CVariant(static_cast<NTypes::ETypes>(21)) << QString();
}

void tst_CVariantText::texts()
{
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    QCOMPARE(value.toStr(), text);
    QCOMPARE(value.toLocaleStr(), text);
}

void tst_CVariantText::defaults_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QString>("text");
    for (uint type = NTypes::TYPE_UNKNOWN; type <= NTypes::TYPE_CHAR; ++type) {
        const bool number = type >= NTypes::TYPE_U8 && type <= NTypes::TYPE_F64;
        QTest::addRow("%u", type) << static_cast<NTypes::ETypes>(type)
                                  << (number                           ? QStringLiteral("0")
                                      : type == NTypes::TYPE_UTF16CHAR ? QString(QChar(0))
                                                                       : QString());
    }
}

void tst_CVariantText::defaults()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(QString, text);
    QCOMPARE(CVariant(type).toStr(), text);
    QCOMPARE(CVariant(type).toLocaleStr(), text);
}

void tst_CVariantText::recordShowsAsNothing()
{
    const MessageLog log;
    QCOMPARE(CVariant(NTypes::tsDateTime{{0, 0, 0, 12}, {4, 5, 2018}}).toStr(), QString());
    QCOMPARE(CVariant(QStringLiteral("2018-05-04T13:22:10"), NTypes::TYPE_DATETIME).toLocaleStr(), QString());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantText::keptPayload()
{
    CVariant value(2.5);
    value.setDefaultValue(NTypes::TYPE_F80);
    QCOMPARE(value.toStr(), QStringLiteral("2.5"));
    CVariant text(CString32(QStringLiteral("text")));
    text.setDefaultValue(NTypes::TYPE_UNKNOWN);
    QCOMPARE(text.toStr(), QString());
}

void tst_CVariantText::localised_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    QTest::newRow("German F64") << german << CVariant(1234.5) << QStringLiteral("1.234,5");
    QTest::newRow("German F32") << german << CVariant(1234.5F) << QStringLiteral("1.234,5");
    QTest::newRow("English F64") << english << CVariant(1234.5) << QStringLiteral("1,234.5");
    QTest::newRow("C F64") << QLocale::c() << CVariant(1234.5) << QStringLiteral("1234.5");
    // Qt's default precision of six digits, for both widths.
    QTest::newRow("German F64 long") << german << CVariant(0.123456789) << QStringLiteral("0,123457");
    QTest::newRow("German F32 large") << german << CVariant(1e10F) << QStringLiteral("1e+10");
    QTest::newRow("German negative") << german << CVariant(-0.5) << QStringLiteral("-0,5");
    QTest::newRow("German default F32") << german << CVariant(NTypes::TYPE_F32) << QStringLiteral("0");
    QTest::newRow("German I32") << german << CVariant(1234567) << QStringLiteral("1234567");
    QTest::newRow("German STRING32") << german << CVariant(CString32(QStringLiteral("1.5")))
                                     << QStringLiteral("1.5");
}

void tst_CVariantText::localised()
{
    QFETCH(QLocale, locale);
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    QLocale::setDefault(locale);
    QCOMPARE(value.toLocaleStr(), text);
}

void tst_CVariantText::stringOperator()
{
    const QString text = CVariant(-5);
    QCOMPARE(text, QStringLiteral("-5"));
    QCOMPARE(static_cast<QString>(CVariant(1234.5)), QStringLiteral("1234.5"));
}

void tst_CVariantText::debug_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("U16") << CVariant(ushort(31)) << QStringLiteral("CVariant(U16, \"31\") ");
    QTest::newRow("STRING32") << CVariant(CString32(QStringLiteral("a\"b")))
                              << QStringLiteral("CVariant(STRING32, \"a\\\"b\") ");
    QTest::newRow("UNKNOWN") << CVariant() << QStringLiteral("CVariant(UNKNOWN, \"\") ");
    QTest::newRow("4294967295") << CVariant(static_cast<NTypes::ETypes>(0xFFFFFFFF))
                                << QStringLiteral("CVariant(4294967295, \"\") ");
}

void tst_CVariantText::debug()
{
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    QString shown;
    QDebug(&shown) << value;
    QCOMPARE(shown, text);
}

QTEST_APPLESS_MAIN(tst_CVariantText)
#include "tst_CVariantText.moc"
