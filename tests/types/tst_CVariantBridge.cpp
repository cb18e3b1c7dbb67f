#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/types/Variants.h>

#include <QtTest>

#include <limits>

struct SForeign
{
    int number;
};
Q_DECLARE_METATYPE(SForeign)

namespace {

const QString LETTERS =
    QString(200, QLatin1Char('a')).replace(31, 1, QLatin1Char('y')).replace(32, 1, QLatin1Char('z'));

template <typename T>
QVariant variantOf(T value)
{
    return QVariant::fromValue(value);
}

// The code unit whose first byte in memory this is, and whose other byte is zero.
QChar byteAsUnit(uchar byte)
{
    return QChar(static_cast<ushort>(Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? byte : byte << 8));
}

} // namespace

/// CVariant from and to QVariant.
class tst_CVariantBridge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void nullNumber();
    void characters();
    void textSizes_data();
    void textSizes();
    void textBeyondAscii_data();
    void textBeyondAscii();
    void byteArraySizes_data();
    void byteArraySizes();
    void bytesAreUnits();
    void ownStrings();
    void unsupported_data();
    void unsupported();
    void unsupportedWithoutName();
    void constructorStartsUnknown();
    void assignmentReplacesType();
    void payloadOut_data();
    void payloadOut();
    void thereAndBack_data();
    void thereAndBack();
    void dateTimeDoesNotComeBack();
    void ownPayload();
    void insideQVariant();
};

void tst_CVariantBridge::numbers_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<int>("payload");
    QTest::addColumn<QString>("text");

    QTest::newRow("int") << variantOf(-5) << NTypes::TYPE_I32 << int(QMetaType::Int) << QStringLiteral("-5");
    QTest::newRow("long") << variantOf(-5L) << NTypes::TYPE_I32 << int(QMetaType::Int)
                          << QStringLiteral("-5");
    QTest::newRow("unsigned int") << variantOf(5U) << NTypes::TYPE_U32 << int(QMetaType::UInt)
                                  << QStringLiteral("5");
    QTest::newRow("unsigned long") << variantOf(5UL) << NTypes::TYPE_U32 << int(QMetaType::UInt)
                                   << QStringLiteral("5");
    QTest::newRow("long long") << variantOf(std::numeric_limits<qlonglong>::min()) << NTypes::TYPE_I64
                               << int(QMetaType::LongLong) << QStringLiteral("-9223372036854775808");
    QTest::newRow("unsigned long long")
        << variantOf(std::numeric_limits<qulonglong>::max()) << NTypes::TYPE_U64 << int(QMetaType::ULongLong)
        << QStringLiteral("18446744073709551615");
    QTest::newRow("double") << variantOf(-0.1) << NTypes::TYPE_F64 << int(QMetaType::Double)
                            << QStringLiteral("-0.1");
    QTest::newRow("float") << variantOf(0.1F) << NTypes::TYPE_F32 << int(QMetaType::Float)
                           << QStringLiteral("0.1");
    QTest::newRow("short") << variantOf(short(-7)) << NTypes::TYPE_I16 << int(QMetaType::Short)
                           << QStringLiteral("-7");
    QTest::newRow("unsigned short") << variantOf(ushort(65535)) << NTypes::TYPE_U16 << int(QMetaType::UShort)
                                    << QStringLiteral("65535");
    QTest::newRow("unsigned char") << variantOf(uchar(200)) << NTypes::TYPE_U8 << int(QMetaType::UChar)
                                   << QStringLiteral("200");
    QTest::newRow("signed char") << variantOf(static_cast<signed char>(-5)) << NTypes::TYPE_I8
                                 << int(QMetaType::SChar) << QStringLiteral("-5");
}

void tst_CVariantBridge::numbers()
{
    QFETCH(QVariant, value);
    QFETCH(NTypes::ETypes, type);
    QFETCH(int, payload);
    QFETCH(QString, text);
    const MessageLog log;
    CVariant assigned;
    assigned = value;

    for (const CVariant& variant : {CVariant(value), assigned}) {
        QCOMPARE(variant.type(), type);
        QCOMPARE(QVariant(variant).userType(), payload);
        QCOMPARE(variant.toStr(), text);
        QVERIFY(variant.isValid() && !variant.isNull());
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantBridge::nullNumber()
{
    const CVariant variant{QVariant(QVariant::UInt)};

    QCOMPARE(variant.type(), NTypes::TYPE_U32);
    QCOMPARE(variant.toU32(), 0U);
    QVERIFY(!variant.isNull());
}

void tst_CVariantBridge::characters()
{
    const CVariant wide{QVariant(QChar(0x20AC))};
    const CVariant narrow(variantOf('A'));
    char byte = 0;

    QCOMPARE(wide.type(), NTypes::TYPE_UTF16CHAR);
    QCOMPARE(QChar(wide), QChar(0x20AC));
    QCOMPARE(narrow.type(), NTypes::TYPE_CHAR);
    QCOMPARE(QVariant(narrow).userType(), int(QMetaType::QByteArray));
    QCOMPARE(QVariant(narrow).toByteArray(), QByteArray("A"));
    QVERIFY(narrow.toChar(byte));
    QCOMPARE(byte, 'A');
}

void tst_CVariantBridge::textSizes_data()
{
    QTest::addColumn<int>("letters");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<int>("kept");

    // Cut to what the chosen type holds, not to what was there.
    QTest::newRow("empty") << 0 << NTypes::TYPE_STRING32 << 0;
    QTest::newRow("32 fill a STRING32") << 32 << NTypes::TYPE_STRING32 << 32;
    QTest::newRow("40 are cut to 32") << 40 << NTypes::TYPE_STRING32 << 32;
    QTest::newRow("63 are cut to 32") << 63 << NTypes::TYPE_STRING32 << 32;
    QTest::newRow("64 are a STRING64") << 64 << NTypes::TYPE_STRING64 << 64;
    QTest::newRow("100 are cut to 64") << 100 << NTypes::TYPE_STRING64 << 64;
    QTest::newRow("127 are cut to 64") << 127 << NTypes::TYPE_STRING64 << 64;
    QTest::newRow("128 are a STRING128") << 128 << NTypes::TYPE_STRING128 << 128;
    QTest::newRow("200 are cut to 128") << 200 << NTypes::TYPE_STRING128 << 128;
}

void tst_CVariantBridge::textSizes()
{
    QFETCH(int, letters);
    QFETCH(NTypes::ETypes, type);
    QFETCH(int, kept);
    const CVariant variant{QVariant(LETTERS.left(letters))};

    QCOMPARE(variant.type(), type);
    QCOMPARE(variant.toStr(), LETTERS.left(kept));
}

void tst_CVariantBridge::textBeyondAscii_data()
{
    QTest::addColumn<int>("euros");
    QTest::addColumn<NTypes::ETypes>("type");

    QTest::newRow("21 of 3 bytes: 63") << 21 << NTypes::TYPE_STRING32;
    QTest::newRow("22 of 3 bytes: 66") << 22 << NTypes::TYPE_STRING64;
    QTest::newRow("30 of 3 bytes: 90") << 30 << NTypes::TYPE_STRING64;
    QTest::newRow("42 of 3 bytes: 126") << 42 << NTypes::TYPE_STRING64;
    QTest::newRow("43 of 3 bytes: 129") << 43 << NTypes::TYPE_STRING128;
}

void tst_CVariantBridge::textBeyondAscii()
{
    QFETCH(int, euros);
    QFETCH(NTypes::ETypes, type);
    const CVariant variant{QVariant(QString(euros, QChar(0x20AC)))};

    QCOMPARE(variant.type(), type);
    QCOMPARE(variant.toStr(), QString(euros, QChar(0x20AC)));
}

void tst_CVariantBridge::byteArraySizes_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<NTypes::ETypes>("type");

    QTest::newRow("0 bytes") << 0 << NTypes::TYPE_STRING32;
    QTest::newRow("63 bytes") << 63 << NTypes::TYPE_STRING32;
    QTest::newRow("64 bytes") << 64 << NTypes::TYPE_STRING64;
    QTest::newRow("127 bytes") << 127 << NTypes::TYPE_STRING64;
    QTest::newRow("128 bytes") << 128 << NTypes::TYPE_STRING128;
    QTest::newRow("1000 bytes") << 1000 << NTypes::TYPE_STRING128;
}

void tst_CVariantBridge::byteArraySizes()
{
    QFETCH(int, bytes);
    QFETCH(NTypes::ETypes, type);
    const CVariant variant{QVariant(QByteArray(bytes, 'a'))};
    const int units = qMin(bytes, 256) / 2;

    QCOMPARE(variant.type(), type);
    QCOMPARE(variant.toStr().left(units), QString(units, QChar(0x6161)));
}

void tst_CVariantBridge::bytesAreUnits()
{
    // Units in the machine's byte order; never a decoding of UTF-8. Half of the last unit is set.
    const QByteArray bytes("\x41\x00\xAC\x20\xC3\xBC\x42", 7);
    const CVariant variant{QVariant(bytes)};
    const ushort lowFirst[] = {0x0041, 0x20AC, 0xBCC3, 0x0042};
    const ushort highFirst[] = {0x4100, 0xAC20, 0xC3BC, 0x4200};
    const ushort* const units = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? lowFirst : highFirst;

    QCOMPARE(variant.toStr(), QString::fromUtf16(units, 4));
}

void tst_CVariantBridge::ownStrings()
{
    const ushort leftovers[32] = {'x', 0, 'y'};
    const CVariant short32(variantOf(CString32(leftovers)));
    const CVariant middle(variantOf(CString64(QStringLiteral("middle"))));
    const CVariant large(variantOf(CString128(QStringLiteral("large"))));

    QCOMPARE(short32.type(), NTypes::TYPE_STRING32);
    QCOMPARE(CString32(short32), CString32(leftovers));
    QCOMPARE(middle.type(), NTypes::TYPE_STRING64);
    QCOMPARE(middle.toStr(), QStringLiteral("middle"));
    QCOMPARE(large.type(), NTypes::TYPE_STRING128);
    QCOMPARE(large.toStr(), QStringLiteral("large"));
}

void tst_CVariantBridge::unsupported_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("name");

    QTest::newRow("bool") << QVariant(true) << QStringLiteral("bool");
    QTest::newRow("date") << QVariant(QDate(2024, 3, 5)) << QStringLiteral("QDate");
    QTest::newRow("date-time") << QVariant(QDateTime()) << QStringLiteral("QDateTime");
    QTest::newRow("date-time record")
        << variantOf(NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 7}}) << QStringLiteral("NTypes::tsDateTime");
    QTest::newRow("list of texts") << QVariant(QStringList{QStringLiteral("a")})
                                   << QStringLiteral("QStringList");
    QTest::newRow("map") << QVariant(QVariantMap()) << QStringLiteral("QVariantMap");
    QTest::newRow("foreign type") << variantOf(SForeign{1}) << QStringLiteral("SForeign");
}

void tst_CVariantBridge::unsupported()
{
    QFETCH(QVariant, value);
    QFETCH(QString, name);
    const QString warning =
        QStringLiteral("warning: CVariant::operator=() : userType() %1 is not supported in this method.")
            .arg(name);
    MessageLog log;
    CVariant assigned(5);
    CVariant& result = (assigned = value);

    QCOMPARE(log.take(), QStringList{warning});
    QCOMPARE(&result, &assigned);
    QCOMPARE(assigned.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!QVariant(assigned).isValid());
    const CVariant made(value);
    QCOMPARE(log.take(), QStringList{warning});
    QCOMPARE(made.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!QVariant(made).isValid());
}

void tst_CVariantBridge::unsupportedWithoutName()
{
    MessageLog log;
    const CVariant made{QVariant()};

    QCOMPARE(log.take(),
             QStringList{QStringLiteral(
                 "warning: CVariant::operator=() : userType() 0 is not supported in this method.")});
    QCOMPARE(made.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!made.isValid() && made.isNull());
}

void tst_CVariantBridge::constructorStartsUnknown()
{
    // No trace of what the argument was remains.
    const MessageLog log;
    const CVariant made{QVariant(true)};

    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(made.toStr(), QString());
    QCOMPARE(made, CVariant());
}

void tst_CVariantBridge::assignmentReplacesType()
{
    CVariant variant(NTypes::TYPE_U8);
    variant = QVariant(70000);

    QCOMPARE(variant.type(), NTypes::TYPE_I32);
    QCOMPARE(variant.toI32(), 70000);
}

void tst_CVariantBridge::payloadOut_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QVariant>("payload");

    QTest::newRow("unknown") << CVariant() << QVariant();
    QTest::newRow("U16") << CVariant(ushort(5)) << variantOf(ushort(5));
    QTest::newRow("U8 default is an int") << CVariant(NTypes::TYPE_U8) << QVariant(0);
    QTest::newRow("CHAR") << CVariant('A') << QVariant(QByteArray("A"));
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x41)) << QVariant(QChar(0x41));
    QTest::newRow("F64") << CVariant(0.5) << QVariant(0.5);
}

void tst_CVariantBridge::payloadOut()
{
    QFETCH(CVariant, variant);
    QFETCH(QVariant, payload);
    const QVariant out = variant;

    QCOMPARE(out.userType(), payload.userType());
    QCOMPARE(out, payload);
}

void tst_CVariantBridge::thereAndBack_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QString>("text");

    const char bytes64[64] = "A";
    const char bytes128[128] = "A";
    const char bytes256[256] = "A";
    const QString letter = QStringLiteral("A");
    QTest::newRow("I16") << CVariant(short(-2)) << NTypes::TYPE_I16 << QStringLiteral("-2");
    QTest::newRow("U8 default comes back wider")
        << CVariant(NTypes::TYPE_U8) << NTypes::TYPE_I32 << QStringLiteral("0");
    QTest::newRow("STRING64") << CVariant(CString64(letter)) << NTypes::TYPE_STRING64 << letter;
    // The bytes come back as UTF-16 units in the machine's byte order: a type by their number.
    const QString unit(byteAsUnit('A'));
    QTest::newRow("CHARSTR64") << CVariant(bytes64) << NTypes::TYPE_STRING64 << unit;
    QTest::newRow("CHARSTR128") << CVariant(bytes128) << NTypes::TYPE_STRING128 << unit;
    QTest::newRow("CHARSTR256") << CVariant(bytes256) << NTypes::TYPE_STRING128 << unit;
    QTest::newRow("CHAR") << CVariant('A') << NTypes::TYPE_STRING32 << unit;
}

void tst_CVariantBridge::thereAndBack()
{
    QFETCH(CVariant, variant);
    QFETCH(NTypes::ETypes, type);
    QFETCH(QString, text);
    const CVariant back = CVariant(QVariant(variant));

    QCOMPARE(back.type(), type);
    QCOMPARE(back.toStr(), text);
}

void tst_CVariantBridge::dateTimeDoesNotComeBack()
{
    MessageLog log;
    const CVariant date(NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 2024}});
    const CVariant back = CVariant(QVariant(date));

    QCOMPARE(log.take().size(), 1);
    QCOMPARE(back.type(), NTypes::TYPE_UNKNOWN);
}

void tst_CVariantBridge::ownPayload()
{
    CVariant text(CString64(QStringLiteral("drive")));
    text = QVariant(text);
    QCOMPARE(text.toStr(), QStringLiteral("drive"));

    CVariant bytes('A');
    bytes = QVariant(bytes);
    QCOMPARE(bytes.type(), NTypes::TYPE_STRING32);
    QCOMPARE(bytes.toStr(), QString(byteAsUnit('A')));
}

void tst_CVariantBridge::insideQVariant()
{
    const QVariant outer = variantOf(CVariant(ushort(31)));

    QCOMPARE(QByteArray(outer.typeName()), QByteArray("CVariant"));
    QCOMPARE(outer.value<CVariant>(), CVariant(ushort(31)));
}

QTEST_GUILESS_MAIN(tst_CVariantBridge)
#include "tst_CVariantBridge.moc"
