#include <core/base/Digits.h>

#include <QtTest>

#include <limits>

/// The writer and the reader of digits, beside those of QString.
class tst_Digits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void valueOfEveryCodeUnit();
    void noDigits_data();
    void noDigits();
    void beyond64Bits();
};

void tst_Digits::numbers_data()
{
    QTest::addColumn<quint64>("number");
    for (quint64 power = 1, previous = 0; power > previous; previous = power, power *= 10) {
        for (const quint64 number : {power - 1, power, power + 1}) {
            QTest::addRow("%llu", number) << number;
        }
        if (power > std::numeric_limits<quint64>::max() / 10) {
            break;
        }
    }
    QTest::newRow("2^63") << (Q_UINT64_C(1) << 63);
    QTest::newRow("2^64 - 1") << std::numeric_limits<quint64>::max();
}

void tst_Digits::numbers()
{
    QFETCH(quint64, number);
    char16_t buffer[NDigits::MOST];
    char16_t* const end = buffer + NDigits::MOST;

    const char16_t* first = NDigits::writeDecimal(end, number);
    QCOMPARE(NDigits::text(first, end), QString::number(number));
    QString text = NDigits::text(first, end);
    quint64 read = ~number;
    QVERIFY(NDigits::read(text.cbegin(), text.cend(), 10, read));
    QCOMPARE(read, number);

    for (const int bitsPerDigit : {1, 4}) {
        const uint base = 1U << bitsPerDigit;
        first = NDigits::writeBits(end, number, bitsPerDigit);
        QCOMPARE(NDigits::text(first, end), QString::number(number, int(base)));
        text = NDigits::text(first, end);
        read = ~number;
        QVERIFY(NDigits::read(text.cbegin(), text.cend(), base, read));
        QCOMPARE(read, number);
    }
}

void tst_Digits::valueOfEveryCodeUnit()
{
    const QString lower = QStringLiteral("0123456789abcdef");
    const QString upper = QStringLiteral("0123456789ABCDEF");
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QChar codeUnit(code);
        const int value = qMax(lower.indexOf(codeUnit), upper.indexOf(codeUnit));
        QCOMPARE(NDigits::valueOf(codeUnit), value < 0 ? 16U : uint(value));
    }
}

void tst_Digits::noDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("base");
    QTest::newRow("no text") << QString() << 10U;
    QTest::newRow("sign") << QStringLiteral("-1") << 10U;
    QTest::newRow("blank") << QStringLiteral("1 ") << 10U;
    QTest::newRow("hexadecimal digit among decimal ones") << QStringLiteral("1a") << 10U;
    QTest::newRow("2 among binary digits") << QStringLiteral("102") << 2U;
    QTest::newRow("g among hexadecimal digits") << QStringLiteral("fg") << 16U;
    QTest::newRow("digits of another script") << QStringLiteral("\u0661\u0662") << 10U;
}

void tst_Digits::noDigits()
{
    QFETCH(QString, text);
    QFETCH(uint, base);

    quint64 number = 77;
    QVERIFY(!NDigits::read(text.cbegin(), text.cend(), base, number));
    if (!text.isEmpty()) {
        QCOMPARE(number, Q_UINT64_C(77));
    }
}

void tst_Digits::beyond64Bits()
{
    const QString text = QStringLiteral("123456789abcdef01");
    quint64 number = 0;
    QVERIFY(NDigits::read(text.cbegin(), text.cend(), 16, number));
    QCOMPARE(number, Q_UINT64_C(0x23456789abcdef01));
}

QTEST_APPLESS_MAIN(tst_Digits)
#include "tst_Digits.moc"
