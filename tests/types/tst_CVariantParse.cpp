#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/types/Variants.h>

#include <QtTest>

// Parsing text as a type, by all three entrances.
class tst_CVariantParse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { mLog.reset(new MessageLog); }
    void cleanup() { mLog.reset(); }
    void number_data();
    void number();
    void badNumber_data();
    void badNumber();
    void text_data();
    void text();
    void dateTime_data();
    void dateTime();
    void badDateTime_data();
    void badDateTime();
    void unknown();
    void unsupported_data();
    void unsupported();
    void constructorAboveCatalogue();
    void memberKeepsItsType();
    void memberOnKeptPayload_data();
    void memberOnKeptPayload();
    void formatsAndParsesBack();

private:
    QStringList messages() { return mLog->take(); }

    QScopedPointer<MessageLog> mLog;
};

namespace {

QVector<CVariant> parsedEveryWay(const QString& text, NTypes::ETypes type)
{
    CVariant member(type);
    CVariant& result = member.fromStr(text);
    return {CVariant::fromStr(text, type), CVariant(text, type), result};
}

} // namespace

void tst_CVariantParse::number_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QVariant>("payload");
    const auto row = [](const char* text, NTypes::ETypes type, const auto& payload) {
        QTest::addRow("%s as %u", text, static_cast<uint>(type))
            << QString::fromLatin1(text) << type << QVariant::fromValue(payload);
    };
    row("0x1F", NTypes::TYPE_U8, uchar(31));
    row("255", NTypes::TYPE_U8, uchar(255));
    row("300", NTypes::TYPE_U8, uchar(44));
    row("4294967295", NTypes::TYPE_U8, uchar(255));
    row("-128", NTypes::TYPE_I8, static_cast<signed char>(-128));
    row("200", NTypes::TYPE_I8, static_cast<signed char>(-56));
    row("0xFFFF", NTypes::TYPE_U16, ushort(65535));
    row("65536", NTypes::TYPE_U16, ushort(0));
    row("40000", NTypes::TYPE_I16, short(-25536));
    row("0xFFFFFFFF", NTypes::TYPE_U32, 0xFFFFFFFFU);
    row("010", NTypes::TYPE_U32, 8U);
    row("010", NTypes::TYPE_I32, 8);
    row("-0x10", NTypes::TYPE_I32, -16);
    row("+5", NTypes::TYPE_I32, 5);
    row(" 7 ", NTypes::TYPE_I32, 7);
    row("-2147483648", NTypes::TYPE_I32, std::numeric_limits<int>::min());
    row("18446744073709551615", NTypes::TYPE_U64, ~0ULL);
    row("0xFFFFFFFFFFFFFFFF", NTypes::TYPE_U64, ~0ULL);
    row("-9223372036854775808", NTypes::TYPE_I64, std::numeric_limits<long long>::min());
    row("0777", NTypes::TYPE_I64, 511LL);
    row("1.5", NTypes::TYPE_F32, 1.5F);
    row("-2e3", NTypes::TYPE_F32, -2000.0F);
    row("1.5", NTypes::TYPE_F64, 1.5);
    row("1e300", NTypes::TYPE_F64, 1e300);
    row(" 2.5 ", NTypes::TYPE_F64, 2.5);
}

void tst_CVariantParse::number()
{
    QFETCH(QString, text);
    QFETCH(NTypes::ETypes, type);
    QFETCH(QVariant, payload);
    for (const CVariant& value : parsedEveryWay(text, type)) {
        QCOMPARE(value.type(), type);
        QCOMPARE(payloadType(value), payload.userType());
        QCOMPARE(payloadOf(value), payload);
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::badNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NTypes::ETypes>("type");
    const auto row = [](const char* text, NTypes::ETypes type) {
        QTest::addRow("%s as %u", *text ? text : "nothing", static_cast<uint>(type))
            << QString::fromLatin1(text) << type;
    };
    for (uint type = NTypes::TYPE_U8; type <= NTypes::TYPE_F64; ++type) {
        row("", static_cast<NTypes::ETypes>(type));
        row("abc", static_cast<NTypes::ETypes>(type));
        row("1,5", static_cast<NTypes::ETypes>(type));
        row("5 V", static_cast<NTypes::ETypes>(type));
        row("--5", static_cast<NTypes::ETypes>(type));
    }
    row("-1", NTypes::TYPE_U8);
    row("-1", NTypes::TYPE_U64);
    row("08", NTypes::TYPE_U8);
    row("08", NTypes::TYPE_I32);
    row("1.5", NTypes::TYPE_I32);
    row("0xFFFFFFFF", NTypes::TYPE_I32);
    row("0xFFFFFFFF", NTypes::TYPE_I8);
    row("4294967296", NTypes::TYPE_U8);
    row("18446744073709551616", NTypes::TYPE_U64);
    row("9223372036854775808", NTypes::TYPE_I64);
    // Qt hands back infinity with these.
    row("1e39", NTypes::TYPE_F32);
    row("1e999", NTypes::TYPE_F32);
    row("1e999", NTypes::TYPE_F64);
    row("-1e999", NTypes::TYPE_F64);
}

// Not reported: a valid 0 of the type's own payload form.
void tst_CVariantParse::badNumber()
{
    QFETCH(QString, text);
    QFETCH(NTypes::ETypes, type);
    for (const CVariant& value : parsedEveryWay(text, type)) {
        QCOMPARE(value.type(), type);
        QCOMPARE(payloadType(value), payloadType(sampleOf(type)));
        QCOMPARE(payloadOf(value).toDouble(), 0.0);
        QVERIFY(value.isValid());
        QVERIFY(!value.isNull());
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QByteArray>("payload");
    const QString umlaut = QStringLiteral("a") + QChar(0xE4) + QChar(0x20AC) + QLatin1Char('b');
    QTest::newRow("CHARSTR64 of 10") << QStringLiteral("abcdefghij") << NTypes::TYPE_CHARSTR64
                                     << QByteArray("abcdefghij");
    QTest::newRow("CHARSTR64 cut") << QString(70, QLatin1Char('c')) << NTypes::TYPE_CHARSTR64
                                   << QByteArray(64, 'c');
    QTest::newRow("CHARSTR128 cut") << QString(130, QLatin1Char('c')) << NTypes::TYPE_CHARSTR128
                                    << QByteArray(128, 'c');
    QTest::newRow("CHARSTR256 cut") << QString(300, QLatin1Char('c')) << NTypes::TYPE_CHARSTR256
                                    << QByteArray(256, 'c');
    QTest::newRow("CHARSTR64 Latin-1") << umlaut << NTypes::TYPE_CHARSTR64 << QByteArray("a\xE4?b");
    QTest::newRow("CHARSTR64 empty") << QStringLiteral("") << NTypes::TYPE_CHARSTR64 << QByteArray();
    QTest::newRow("CHARSTR64 null") << QString() << NTypes::TYPE_CHARSTR64 << QByteArray();
    QTest::newRow("CHAR") << QStringLiteral("xyz") << NTypes::TYPE_CHAR << QByteArray("x");
    QTest::newRow("CHAR Latin-1") << QString(QChar(0xE4)) << NTypes::TYPE_CHAR << QByteArray("\xE4");
    QTest::newRow("CHAR empty") << QStringLiteral("") << NTypes::TYPE_CHAR << QByteArray();
    QTest::newRow("STRING32") << umlaut << NTypes::TYPE_STRING32 << CString32(umlaut).byteArray();
    QTest::newRow("STRING32 cut") << QString(40, QLatin1Char('s')) << NTypes::TYPE_STRING32
                                  << CString32(QString(32, QLatin1Char('s'))).byteArray();
    QTest::newRow("STRING64") << umlaut << NTypes::TYPE_STRING64 << CString64(umlaut).byteArray();
    QTest::newRow("STRING128") << umlaut << NTypes::TYPE_STRING128 << CString128(umlaut).byteArray();
    QTest::newRow("STRING128 null") << QString() << NTypes::TYPE_STRING128 << QByteArray(256, '\0');
    QTest::newRow("UTF16CHAR") << QStringLiteral("xyz") << NTypes::TYPE_UTF16CHAR << QByteArray("0078");
    QTest::newRow("UTF16CHAR euro") << QString(QChar(0x20AC)) << NTypes::TYPE_UTF16CHAR << QByteArray("20ac");
    QTest::newRow("UTF16CHAR empty") << QStringLiteral("") << NTypes::TYPE_UTF16CHAR << QByteArray("0000");
}

namespace {

QByteArray payloadBytes(const CVariant& value)
{
    const QVariant payload = value;
    switch (value.type()) {
    case NTypes::TYPE_STRING32:
        return payload.value<CString32>().byteArray();
    case NTypes::TYPE_STRING64:
        return payload.value<CString64>().byteArray();
    case NTypes::TYPE_STRING128:
        return payload.value<CString128>().byteArray();
    case NTypes::TYPE_UTF16CHAR:
        return QByteArray::number(payload.toChar().unicode(), 16).rightJustified(4, '0');
    default:
        return payload.toByteArray();
    }
}

} // namespace

void tst_CVariantParse::text()
{
    QFETCH(QString, text);
    QFETCH(NTypes::ETypes, type);
    QFETCH(QByteArray, payload);
    for (const CVariant& value : parsedEveryWay(text, type)) {
        QCOMPARE(value.type(), type);
        QCOMPARE(payloadType(value), payloadType(sampleOf(type)));
        QCOMPARE(payloadBytes(value), payload);
        QVERIFY(value.isValid());
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::dateTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<NTypes::tsDateTime>("record");
    using NTypes::tsDateTime;
    QTest::newRow("milliseconds") << QStringLiteral("2018-05-04T13:22:10.560")
                                  << tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}};
    QTest::newRow("hundredths cut") << QStringLiteral("2018-05-04T13:22:10.569")
                                    << tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}};
    QTest::newRow("seconds") << QStringLiteral("1999-12-31T23:59:59")
                             << tsDateTime{{0, 59, 59, 23}, {31, 12, 1999}};
    QTest::newRow("date alone") << QStringLiteral("2018-05-04") << tsDateTime{{0, 0, 0, 0}, {4, 5, 2018}};
    QTest::newRow("UTC") << QStringLiteral("2018-05-04T13:22:10Z")
                         << tsDateTime{{0, 10, 22, 13}, {4, 5, 2018}};
    // A decimal number is the packed form; it is tried first.
    QTest::newRow("0") << QStringLiteral("0") << tsDateTime();
    QTest::newRow("packed time") << QStringLiteral("219548216") << tsDateTime{{56, 10, 22, 13}, {0, 0, 0}};
    QTest::newRow("sign-extended") << QStringLiteral("-1") << tsDateTime{{-1, -1, -1, -1}, {-1, -1, -1}};
    QTest::newRow("looks like a year") << QStringLiteral("2018") << tsDateTime{{-30, 7, 0, 0}, {0, 0, 0}};
    QTest::newRow("base 10 only") << QStringLiteral("010") << tsDateTime{{10, 0, 0, 0}, {0, 0, 0}};
}

void tst_CVariantParse::dateTime()
{
    QFETCH(QString, text);
    QFETCH(NTypes::tsDateTime, record);
    for (const CVariant& value : parsedEveryWay(text, NTypes::TYPE_DATETIME)) {
        QCOMPARE(value.type(), NTypes::TYPE_DATETIME);
        QCOMPARE(QByteArray(payloadOf(value).typeName()), QByteArray("NTypes::tsDateTime"));
        QCOMPARE(payloadOf(value).value<NTypes::tsDateTime>(), record);
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::badDateTime_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "abc", "0x10", "2147483648", "2018-02-30T12:00:00", "2018-05-04T25:00:00",
                             "04.05.2018 13:22:10", "13:22:10"}) {
        QTest::newRow(*text ? text : "nothing") << QString::fromLatin1(text);
    }
}

void tst_CVariantParse::badDateTime()
{
    QFETCH(QString, text);
    for (const CVariant& value : parsedEveryWay(text, NTypes::TYPE_DATETIME)) {
        QCOMPARE(value.type(), NTypes::TYPE_DATETIME);
        QCOMPARE(payloadOf(value).value<NTypes::tsDateTime>(), NTypes::tsDateTime());
        QVERIFY(value.isValid());
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::unknown()
{
    for (const CVariant& value : parsedEveryWay(QStringLiteral("5"), NTypes::TYPE_UNKNOWN)) {
        QCOMPARE(value.type(), NTypes::TYPE_UNKNOWN);
        QVERIFY(!payloadOf(value).isValid());
    }
    QCOMPARE(messages(), QStringList());
}

void tst_CVariantParse::unsupported_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<QString>("number");
    QTest::newRow("F80") << NTypes::TYPE_F80 << QStringLiteral("11");
    QTest::newRow("25") << static_cast<NTypes::ETypes>(25) << QStringLiteral("25");
    QTest::newRow("4294967295") << static_cast<NTypes::ETypes>(0xFFFFFFFF) << QStringLiteral("4294967295");
}

void tst_CVariantParse::unsupported()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(QString, number);
    const QStringList warning(QStringLiteral("warning: CVariant::fromStr : Data type ") + number
                              + QStringLiteral(" is not supported in this method."));
    const CVariant parsed = CVariant::fromStr(QStringLiteral("5"), type);
    QCOMPARE(parsed.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!payloadOf(parsed).isValid());
    QCOMPARE(messages(), warning);
    CVariant member(7);
    member.setDefaultValue(type);
    member.fromStr(QStringLiteral("5"));
    QCOMPARE(member.type(), type);
    QVERIFY(!payloadOf(member).isValid());
    QCOMPARE(messages(), warning);
}

void tst_CVariantParse::constructorAboveCatalogue()
{
    const CVariant above(QStringLiteral("5"), static_cast<NTypes::ETypes>(25));
    QCOMPARE(above.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!payloadOf(above).isValid());
    QCOMPARE(messages(), QStringList());
    const CVariant f80(QStringLiteral("5"), NTypes::TYPE_F80);
    QCOMPARE(f80.type(), NTypes::TYPE_F80);
    QVERIFY(!payloadOf(f80).isValid());
    QCOMPARE(messages(), QStringList(QStringLiteral(
                             "warning: CVariant::fromStr : Data type 11 is not supported in this method.")));
}

void tst_CVariantParse::memberKeepsItsType()
{
    CVariant value(static_cast<uchar>(1));
    CVariant& result = value.fromStr(QStringLiteral("0x1FF"));
    QCOMPARE(&result, &value);
    QCOMPARE(value.type(), NTypes::TYPE_U8);
    QCOMPARE(int(value.toU8()), 255);
    value.fromStr(QStringLiteral("abc"));
    QCOMPARE(int(value.toU8()), 0);
    QCOMPARE(payloadType(value), int(QMetaType::UChar));
}

void tst_CVariantParse::memberOnKeptPayload_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<bool>("warns");
    QTest::newRow("UNKNOWN") << NTypes::TYPE_UNKNOWN << false;
    QTest::newRow("F80") << NTypes::TYPE_F80 << true;
    QTest::newRow("21") << static_cast<NTypes::ETypes>(21) << true;
}

void tst_CVariantParse::memberOnKeptPayload()
{
    QFETCH(NTypes::ETypes, type);
    QFETCH(bool, warns);
    CVariant value(7);
    value.setDefaultValue(type);
    QVERIFY(payloadOf(value).isValid());
    value.fromStr(QStringLiteral("5"));
    QCOMPARE(value.type(), type);
    QVERIFY(!payloadOf(value).isValid());
    QCOMPARE(messages().size(), warns ? 1 : 0);
}

void tst_CVariantParse::formatsAndParsesBack()
{
    for (uint number = NTypes::TYPE_U8; number <= NTypes::TYPE_CHAR; ++number) {
        const NTypes::ETypes type = static_cast<NTypes::ETypes>(number);
        if (type == NTypes::TYPE_F80 || type == NTypes::TYPE_DATETIME) {
            continue;
        }
        const CVariant value = sampleOf(type);
        QCOMPARE(CVariant(value.toStr(), type).toStr(), value.toStr());
    }
}

QTEST_APPLESS_MAIN(tst_CVariantParse)
#include "tst_CVariantParse.moc"
