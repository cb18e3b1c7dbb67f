#include <core/text/CStr.h>

#include <tests/support/Texts.h>

#include <QLocale>
#include <QtTest>

#include <limits>

class tst_CStrFloats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void floats_data();
    void floats();
    void notFloats_data();
    void notFloats();
    void fixPointToStr_data();
    void fixPointToStr();
    void strToFixPoint_data();
    void strToFixPoint();
    void notFixPoint_data();
    void notFixPoint();
    void doubleToString_data();
    void doubleToString();
};

void tst_CStrFloats::floats_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<double>("expected");
    QTest::addColumn<float>("single");
    QTest::newRow("0") << text("0") << 0.0 << 0.0F;
    QTest::newRow("1.5") << text("1.5") << 1.5 << 1.5F;
    QTest::newRow("-0.1") << text("-0.1") << -0.1 << -0.1F;
    QTest::newRow("1e3") << text("1e3") << 1000.0 << 1000.0F;
    QTest::newRow("blanks around") << text(" 2.25 ") << 2.25 << 2.25F;
    QTest::newRow("largest single") << text("3.4028234663852886e38") << double(3.4028234663852886e38F)
                                    << 3.4028234663852886e38F;
    QTest::newRow("infinity by name")
        << text("inf") << std::numeric_limits<double>::infinity() << std::numeric_limits<float>::infinity();
}

void tst_CStrFloats::floats()
{
    QFETCH(QString, s);
    QFETCH(double, expected);
    QFETCH(float, single);
    // A decimal comma in the default locale changes nothing.
    QLocale::setDefault(QLocale(QLocale::German));

    double big = 7;
    float small = 7;
    bool ok = false;
    QVERIFY(CStr::strToF64(s, big));
    QCOMPARE(big, expected);
    QCOMPARE(CStr::strToF64(s, &ok), expected);
    QVERIFY(ok);
    QCOMPARE(CStr::strToF64(7.0, s), expected);
    ok = false;
    QVERIFY(CStr::strToF32(s, small));
    QCOMPARE(small, single);
    QCOMPARE(CStr::strToF32(s, &ok), single);
    QVERIFY(ok);
    QCOMPARE(CStr::strToF32(7.0F, s), single);
    QCOMPARE(CStr::strToF32(s, nullptr), single);

    QLocale::setDefault(QLocale::c());
}

void tst_CStrFloats::notFloats_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<bool>("singleToo");
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("word") << text("one") << true;
    QTest::newRow("decimal comma") << text("1,5") << true;
    QTest::newRow("hexadecimal") << text("0x10") << true;
    QTest::newRow("too large, where Qt hands back infinity") << text("1e999") << true;
    QTest::newRow("too small to be told from 0") << text("1e-999") << true;
    QTest::newRow("beyond a single only") << text("1e39") << false;
}

void tst_CStrFloats::notFloats()
{
    QFETCH(QString, s);
    QFETCH(bool, singleToo);

    float small = 7;
    bool ok = true;
    QVERIFY(!CStr::strToF32(s, small));
    QCOMPARE(small, 7.0F);
    QCOMPARE(CStr::strToF32(s, &ok), 0.0F);
    QVERIFY(!ok);
    QCOMPARE(CStr::strToF32(7.0F, s), 7.0F);
    double big = 7;
    QCOMPARE(CStr::strToF64(s, big), !singleToo);
    QCOMPARE(CStr::strToF64(s, &ok), singleToo ? 0.0 : 1e39);
    QCOMPARE(ok, !singleToo);
    QCOMPARE(CStr::strToF64(7.0, s), singleToo ? 7.0 : 1e39);
    QCOMPARE(big, singleToo ? 7.0 : 1e39);
}

void tst_CStrFloats::fixPointToStr_data()
{
    QTest::addColumn<uint>("value");
    QTest::addColumn<uint>("fracBits");
    QTest::addColumn<QChar>("sep");
    QTest::addColumn<QString>("expected");
    const QChar point = QLatin1Char('.');
    QTest::newRow("raw fraction bits") << 5U << 2U << point << text("1.1");
    QTest::newRow("0x37 with 4 bits") << 0x37U << 4U << point << text("3.7");
    QTest::newRow("no fraction bits") << 12U << 0U << point << text("12.0");
    QTest::newRow("comma") << 0x1FFU << 8U << QChar(QLatin1Char(',')) << text("1,255");
    QTest::newRow("31 bits") << 0xFFFFFFFFU << 31U << point << text("1.2147483647");
    QTest::newRow("32 bits") << 0xFFFFFFFFU << 32U << point << text("0.4294967295");
    QTest::newRow("200 bits") << 7U << 200U << point << text("0.7");
    QTest::newRow("percent sign") << 5U << 2U << QChar(QLatin1Char('%')) << text("1%1");
}

void tst_CStrFloats::fixPointToStr()
{
    QFETCH(uint, value);
    QFETCH(uint, fracBits);
    QFETCH(QChar, sep);
    QFETCH(QString, expected);

    QCOMPARE(CStr::fixPointToStr(value, fracBits, sep), expected);
    bool ok = false;
    QCOMPARE(CStr::strToFixPoint(expected, &ok, fracBits, sep), value);
    QVERIFY(ok);
}

void tst_CStrFloats::strToFixPoint_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<uint>("fracBits");
    QTest::addColumn<uint>("expected");
    QTest::newRow("3.7 with 4 bits") << text("3.7") << 4U << 0x37U;
    QTest::newRow("fraction beyond its bits") << text("1.255") << 4U << 0x1FU;
    QTest::newRow("integer part beyond 32 bits in place") << text("257.1") << 24U << 0x01000001U;
    QTest::newRow("31 bits") << text("1.2147483647") << 31U << 0xFFFFFFFFU;
    QTest::newRow("32 bits") << text("9.5") << 32U << 5U;
    QTest::newRow("100 bits") << text("9.4294967295") << 100U << 0xFFFFFFFFU;
    QTest::newRow("no fraction bits") << text("9.5") << 0U << 9U;
}

void tst_CStrFloats::strToFixPoint()
{
    QFETCH(QString, s);
    QFETCH(uint, fracBits);
    QFETCH(uint, expected);

    bool ok = false;
    QCOMPARE(CStr::strToFixPoint(s, &ok, fracBits, QLatin1Char('.')), expected);
    QVERIFY(ok);
    QCOMPARE(CStr::strToFixPoint(s, nullptr, fracBits, QLatin1Char('.')), expected);
}

void tst_CStrFloats::notFixPoint_data()
{
    QTest::addColumn<QString>("s");
    for (const char* s :
         {"", "3", "1.2.3", "3,7", "x.1", "1.x", "1.", ".1", "-1.0", "4294967296.0", "0.4294967296"}) {
        QTest::addRow("\"%s\"", s) << text(s);
    }
}

void tst_CStrFloats::notFixPoint()
{
    QFETCH(QString, s);

    bool ok = true;
    QCOMPARE(CStr::strToFixPoint(s, &ok, 4, QLatin1Char('.')), 0U);
    QVERIFY(!ok);
    QCOMPARE(CStr::strToFixPoint(s, nullptr, 4, QLatin1Char('.')), 0U);
}

void tst_CStrFloats::doubleToString_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("expected");
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QLocale french(QLocale::French, QLocale::France);
    QTest::newRow("English") << english << 1234567.891 << 2 << text("1234567.89");
    QTest::newRow("German") << german << 1234567.891 << 2 << text("1234567,89");
    QTest::newRow("French") << french << 1234567.891 << 1 << text("1234567,9");
    QTest::newRow("C") << QLocale::c() << -1234567.5 << 0 << text("-1234568");
    QTest::newRow("no exponent") << QLocale::c() << 1e22 << 0 << text("10000000000000000000000");
    QTest::newRow("negative precision") << QLocale::c() << 0.5 << -3 << text("0.500000");
    QTest::newRow("shortest") << english << 12345.75 << int(QLocale::FloatingPointShortest)
                              << text("12345.75");
    QTest::newRow("more decimals than a double has")
        << QLocale::c() << 0.5 << 1200 << text("0.5") + QString(1199, QLatin1Char('0'));
    QTest::newRow("the most decimals")
        << QLocale::c() << 0.5 << 65535 << text("0.5") + QString(65534, QLatin1Char('0'));
    QTest::newRow("absurd precision") << QLocale::c() << 0.5 << std::numeric_limits<int>::max()
                                      << text("0.5") + QString(65534, QLatin1Char('0'));
}

// The default locale is asked at each call: the rows change it in turn.
void tst_CStrFloats::doubleToString()
{
    QFETCH(QLocale, locale);
    QFETCH(double, value);
    QFETCH(int, precision);
    QFETCH(QString, expected);

    QLocale::setDefault(locale);
    const QString actual = CStr::doubleToString(value, precision);
    QLocale::setDefault(QLocale::c());

    QCOMPARE(actual, expected);
}

QTEST_APPLESS_MAIN(tst_CStrFloats)
#include "tst_CStrFloats.moc"
