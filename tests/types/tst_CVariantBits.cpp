#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>

#include <QBitArray>
#include <QtTest>

#include <limits>

namespace {

NTypes::ETypes typeOf(quint32 number)
{
    return static_cast<NTypes::ETypes>(number);
}

// The least significant bit last, as people write binary numbers.
QString binary(const QBitArray& bits)
{
    QString text;
    for (int i = bits.size(); i-- > 0;) {
        text += QLatin1Char(bits.testBit(i) ? '1' : '0');
    }
    return text;
}

QBitArray bitsOf(const QString& text)
{
    QBitArray bits(text.size());
    for (int i = 0; i < text.size(); ++i) {
        bits.setBit(i, text.at(text.size() - 1 - i) == QLatin1Char('1'));
    }
    return bits;
}

QString repeated(const char* text, int count)
{
    return QString::fromLatin1(text).repeated(count);
}

const quint32 NO_INTEGERS[] = {0,  7,  10, 11, 12, 13,  14,         15,        16,
                               17, 18, 19, 20, 21, 255, 0x80000000, 0xFFFFFFFF};

} // namespace

/// CVariant to and from bit arrays.
class tst_CVariantBits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toBits_data();
    void toBits();
    void toBitsOfOtherTypes_data();
    void toBitsOfOtherTypes();
    void fromBits_data();
    void fromBits();
    void fromBitsOfOtherTypes_data();
    void fromBitsOfOtherTypes();
    void assignsInOwnType();
    void assignsToUnknown();
    void assignsToOtherTypes();
    void thereAndBack();
};

void tst_CVariantBits::toBits_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QString>("bits");

    QTest::newRow("U8") << CVariant(uchar(0xA5)) << QStringLiteral("10100101");
    QTest::newRow("U8 default") << CVariant(NTypes::TYPE_U8) << repeated("0", 8);
    QTest::newRow("I8 -1") << CVariant(static_cast<signed char>(-1)) << repeated("1", 8);
    QTest::newRow("U16") << CVariant(ushort(0x8001)) << QStringLiteral("1000000000000001");
    QTest::newRow("I16 -2") << CVariant(short(-2)) << repeated("1", 15) + QLatin1Char('0');
    QTest::newRow("U32") << CVariant(0xF0000001U)
                         << QStringLiteral("1111") + repeated("0", 27) + QLatin1Char('1');
    QTest::newRow("I32 least") << CVariant(std::numeric_limits<int>::min())
                               << QLatin1Char('1') + repeated("0", 31);
    QTest::newRow("U64 greatest") << CVariant(std::numeric_limits<quint64>::max()) << repeated("1", 64);
    QTest::newRow("I64 least") << CVariant(std::numeric_limits<qint64>::min())
                               << QLatin1Char('1') + repeated("0", 63);
    QTest::newRow("I64 1") << CVariant(1LL) << repeated("0", 63) + QLatin1Char('1');
}

void tst_CVariantBits::toBits()
{
    QFETCH(CVariant, variant);
    QFETCH(QString, bits);
    const MessageLog log;

    QCOMPARE(binary(variant.toBitArray()), bits);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantBits::toBitsOfOtherTypes_data()
{
    QTest::addColumn<quint32>("type");

    for (const quint32 type : NO_INTEGERS) {
        QTest::addRow("type %u", type) << type;
    }
}

void tst_CVariantBits::toBitsOfOtherTypes()
{
    QFETCH(quint32, type);
    CVariant variant(5);
    QCOMPARE(unstreamed(fromHexText("00000002 00 00000005") + streamed(type), variant), QDataStream::Ok);
    QCOMPARE(variant.type(), typeOf(type));
    MessageLog log;

    QVERIFY(variant.toBitArray().isEmpty());
    QCOMPARE(
        log.messages(),
        QStringList{
            QStringLiteral("warning: CVariant::toBitArray() : Data type %1 is not supported in this method.")
                .arg(type)});
}

void tst_CVariantBits::fromBits_data()
{
    QTest::addColumn<QString>("bits");
    QTest::addColumn<quint32>("type");
    QTest::addColumn<int>("payload");
    QTest::addColumn<QString>("text");

    const QString three = QStringLiteral("101");
    const QString seventy = repeated("1", 6) + repeated("0", 62) + QStringLiteral("11");
    QTest::newRow("U8") << three << 1U << int(QMetaType::UChar) << QStringLiteral("5");
    QTest::newRow("I8, no sign is extended")
        << repeated("1", 4) << 2U << int(QMetaType::SChar) << QStringLiteral("15");
    QTest::newRow("I8 of all bits") << repeated("1", 8) << 2U << int(QMetaType::SChar)
                                    << QStringLiteral("-1");
    QTest::newRow("U16") << three << 3U << int(QMetaType::UShort) << QStringLiteral("5");
    QTest::newRow("I16 of all bits") << repeated("1", 16) << 4U << int(QMetaType::Short)
                                     << QStringLiteral("-1");
    QTest::newRow("U32 of 3 bits") << repeated("1", 3) << 5U << int(QMetaType::UInt) << QStringLiteral("7");
    QTest::newRow("I32 of the sign bit")
        << QLatin1Char('1') + repeated("0", 31) << 6U << int(QMetaType::Int) << QStringLiteral("-2147483648");
    QTest::newRow("U64 of 70 bits") << seventy << 8U << int(QMetaType::ULongLong) << QStringLiteral("3");
    QTest::newRow("U64 of 64 bits") << repeated("1", 64) << 8U << int(QMetaType::ULongLong)
                                    << QStringLiteral("18446744073709551615");
    QTest::newRow("I64 of the sign bit")
        << QLatin1Char('1') + repeated("0", 63) << 9U << int(QMetaType::LongLong)
        << QStringLiteral("-9223372036854775808");
    QTest::newRow("U8 of 9 bits") << QLatin1Char('1') + repeated("0", 8) << 1U << int(QMetaType::UChar)
                                  << QStringLiteral("0");
    QTest::newRow("no bits") << QString() << 6U << int(QMetaType::Int) << QStringLiteral("0");
}

void tst_CVariantBits::fromBits()
{
    QFETCH(QString, bits);
    QFETCH(quint32, type);
    QFETCH(int, payload);
    QFETCH(QString, text);
    const MessageLog log;
    const CVariant built = CVariant::fromBitArray(bitsOf(bits), typeOf(type));

    for (const CVariant& variant : {built, CVariant(bitsOf(bits), typeOf(type))}) {
        QCOMPARE(variant.type(), typeOf(type));
        QCOMPARE(QVariant(variant).userType(), payload);
        QCOMPARE(variant.toStr(), text);
        QVERIFY(!variant.isNull());
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantBits::fromBitsOfOtherTypes_data()
{
    toBitsOfOtherTypes_data();
}

void tst_CVariantBits::fromBitsOfOtherTypes()
{
    QFETCH(quint32, type);
    const QStringList warning{
        QStringLiteral("warning: CVariant::fromBitArray : Data type %1 is not supported in this method.")
            .arg(type)};
    MessageLog log;
    const CVariant built = CVariant::fromBitArray(QBitArray(8, true), typeOf(type));

    QCOMPARE(log.take(), warning);
    const CVariant constructed(QBitArray(8, true), typeOf(type));
    QCOMPARE(log.take(), warning);
    for (const CVariant& variant : {built, constructed}) {
        QCOMPARE(variant.type(), NTypes::TYPE_UNKNOWN);
        QVERIFY(!QVariant(variant).isValid());
    }
}

void tst_CVariantBits::assignsInOwnType()
{
    CVariant variant(short(0));
    CVariant& result = (variant = QBitArray(16, true));
    QCOMPARE(&result, &variant);
    QCOMPARE(variant, CVariant(short(-1)));

    CVariant byMember(uchar(0));
    QCOMPARE(&byMember.fromBitArray(QBitArray(3, true)), &byMember);
    QCOMPARE(byMember, CVariant(uchar(7)));
}

void tst_CVariantBits::assignsToUnknown()
{
    CVariant variant;
    variant = QBitArray(70, true);

    QCOMPARE(variant, CVariant(std::numeric_limits<quint64>::max()));
}

void tst_CVariantBits::assignsToOtherTypes()
{
    MessageLog log;
    CVariant variant(2.5);
    variant = QBitArray(8, true);

    QCOMPARE(log.messages(),
             QStringList{QStringLiteral("warning: CVariant::fromBitArray : Data type 10 is not "
                                        "supported in this method.")});
    QCOMPARE(variant.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!QVariant(variant).isValid());
}

void tst_CVariantBits::thereAndBack()
{
    for (const quint32 type : {1U, 2U, 3U, 4U, 5U, 6U, 8U, 9U}) {
        for (quint64 seed = 1; seed != 0; seed *= 0xD1342543DE82EF94ULL) {
            const CVariant number = CVariant::fromStr(QString::number(seed & 0x7FFFFFFF), typeOf(type));
            QCOMPARE(CVariant(number.toBitArray(), typeOf(type)), number);
        }
    }
}

QTEST_GUILESS_MAIN(tst_CVariantBits)
#include "tst_CVariantBits.moc"
