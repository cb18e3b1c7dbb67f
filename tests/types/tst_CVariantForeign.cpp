#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>
#include <tests/types/Variants.h>

#include <QtTest>

#include <limits>

// Payloads that are not what the tag promises, as a stream may bring them: everything is read as what it is.
class tst_CVariantForeign : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init() { mLog.reset(new MessageLog); }
    void cleanup();
    void text_data();
    void text();
    void dateTime_data();
    void dateTime();
    void dateTimeNumber_data();
    void dateTimeNumber();
    void number_data();
    void number();
    void utf16();
    void bytes();
    void utf16Char();
    void untypedPayload();
    void nullIsCleared_data();
    void nullIsCleared();

private:
    QScopedPointer<MessageLog> mLog;
};

namespace {

CVariant joined(const QVariant& payload, NTypes::ETypes type)
{
    NTypes::registerMetaTypes();
    CVariant value;
    unstreamed(streamed(payload) + streamed(static_cast<qint32>(type)), value);
    return value;
}

QVariant text32(const char* text)
{
    return QVariant::fromValue(CString32(QString::fromLatin1(text)));
}

} // namespace

void tst_CVariantForeign::cleanup()
{
    QCOMPARE(mLog->take(), QStringList());
    mLog.reset();
}

void tst_CVariantForeign::text_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("U8 of int") << joined(5, NTypes::TYPE_U8) << QStringLiteral("5");
    QTest::newRow("U8 of bytes") << joined(QByteArray("12"), NTypes::TYPE_U8) << QStringLiteral("12");
    QTest::newRow("U8 of letters") << joined(QByteArray("abc"), NTypes::TYPE_U8) << QStringLiteral("0");
    QTest::newRow("U8 of CString32") << joined(text32("12"), NTypes::TYPE_U8) << QStringLiteral("0");
    QTest::newRow("U8 of nothing") << joined(QVariant(), NTypes::TYPE_U8) << QStringLiteral("0");
    // Qt has no conversion from unsigned char to unsigned short and float.
    QTest::newRow("U16 of unsigned char")
        << joined(QVariant::fromValue(uchar(5)), NTypes::TYPE_U16) << QStringLiteral("0");
    QTest::newRow("F32 of unsigned char")
        << joined(QVariant::fromValue(uchar(5)), NTypes::TYPE_F32) << QStringLiteral("0");
    QTest::newRow("F32 of double") << joined(2.5, NTypes::TYPE_F32) << QStringLiteral("2.5");
    // Through single precision, which ends before 1e-46.
    QTest::newRow("F32 of double 1e-46") << joined(1e-46, NTypes::TYPE_F32) << QStringLiteral("0");
    QTest::newRow("I64 of record") << joined(QVariant::fromValue(NTypes::tsDateTime{{1, 1, 1, 1}, {1, 1, 1}}),
                                             NTypes::TYPE_I64)
                                   << QStringLiteral("0");
    QTest::newRow("I32 of long long 2^32 + 5")
        << joined(4294967301LL, NTypes::TYPE_I32) << QStringLiteral("5");
    QTest::newRow("I32 null") << joined(QVariant(QVariant::Int), NTypes::TYPE_I32) << QStringLiteral("0");
    QTest::newRow("STRING32 of CString128")
        << joined(QVariant::fromValue(CString128(QString(40, QLatin1Char('a')))), NTypes::TYPE_STRING32)
        << QString(40, QLatin1Char('a'));
    // No fixed-length string: nothing that a UTF-16 text could show.
    QTest::newRow("STRING32 of int") << joined(5, NTypes::TYPE_STRING32) << QString();
    QTest::newRow("STRING128 of double") << joined(2.5, NTypes::TYPE_STRING128) << QString();
    QTest::newRow("STRING64 of bytes") << joined(QByteArray("abc"), NTypes::TYPE_STRING64) << QString();
    QTest::newRow("STRING64 of QString")
        << joined(QStringLiteral("text"), NTypes::TYPE_STRING64) << QString();
    QTest::newRow("STRING32 of QChar") << joined(QChar(0xE4), NTypes::TYPE_STRING32) << QString();
    QTest::newRow("STRING32 of record") << joined(
        QVariant::fromValue(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}}), NTypes::TYPE_STRING32)
                                        << QString();
    QTest::newRow("STRING128 of nothing") << joined(QVariant(), NTypes::TYPE_STRING128) << QString();
    QTest::newRow("CHARSTR64 of 300 bytes")
        << joined(QByteArray(300, 'b'), NTypes::TYPE_CHARSTR64) << QString(300, QLatin1Char('b'));
    QTest::newRow("CHARSTR64 of CString32") << joined(text32("text"), NTypes::TYPE_CHARSTR64) << QString();
    QTest::newRow("CHAR of QString") << joined(QStringLiteral("text"), NTypes::TYPE_CHAR)
                                     << QStringLiteral("text");
    QTest::newRow("UTF16CHAR of nothing") << joined(QVariant(), NTypes::TYPE_UTF16CHAR) << QString();
    QTest::newRow("UNKNOWN of int") << joined(7, NTypes::TYPE_UNKNOWN) << QStringLiteral("7");
    QTest::newRow("4294967295 of int")
        << joined(7, static_cast<NTypes::ETypes>(0xFFFFFFFF)) << QStringLiteral("7");
}

void tst_CVariantForeign::text()
{
    QFETCH(CVariant, value);
    QFETCH(QString, expected);
    QCOMPARE(value.toStr(), expected);
    QCOMPARE(value.toLocaleStr(), expected);
}

void tst_CVariantForeign::dateTime_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* tag, qlonglong packed, const char* text) {
        QTest::newRow(tag) << QVariant(packed) << QString::fromLatin1(text);
    };
    row("date", 0x07E205040D160A38, "2018-05-04T13:22:10");
    row("midnight", 0x07E2050400000000, "2018-05-04T00:00:00");
    row("last of the year", 0x07CF0C1F173B3B63, "1999-12-31T23:59:59");
    // An impossible time of a possible date shows as midnight.
    row("hour 25", 0x07E2050419160A38, "2018-05-04T00:00:00");
    row("second 60", 0x07E205040D163C38, "2018-05-04T00:00:00");
    row("hundredths 100", 0x07E205040D160A64, "2018-05-04T00:00:00");
    row("hundredths -1", 0x07E205040D160AFF, "2018-05-04T00:00:00");
    row("zero", 0, "");
    row("month 13", 0x07E20D040D160A38, "");
    row("30 February", 0x07E2021E0D160A38, "");
    row("month -1", 0x07E2FF040D160A38, "");
    row("year -1", static_cast<qlonglong>(0xFFFF05040D160A38ULL), "");
    row("year 0", 0x000005040D160A38, "");
    row("time alone", 0x0D160A38, "");
    QTest::newRow("unsigned") << QVariant(0x07E205040D160A38ULL) << QStringLiteral("2018-05-04T13:22:10");
    QTest::newRow("decimal bytes") << QVariant(QByteArray::number(0x07E205040D160A38LL))
                                   << QStringLiteral("2018-05-04T13:22:10");
    QTest::newRow("letters") << QVariant(QByteArray("2018")) << QString();
    QTest::newRow("nothing") << QVariant() << QString();
    QTest::newRow("CString32") << text32("2018") << QString();
    // A record does not show, and callers rely on it.
    QTest::newRow("record") << QVariant::fromValue(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}})
                            << QString();
}

void tst_CVariantForeign::dateTime()
{
    QFETCH(QVariant, payload);
    QFETCH(QString, expected);
    const CVariant value = joined(payload, NTypes::TYPE_DATETIME);
    QCOMPARE(value.toStr(), expected);
    QCOMPARE(value.toLocaleStr(), expected);
    QCOMPARE(static_cast<QString>(value), expected);
}

void tst_CVariantForeign::dateTimeNumber_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<qlonglong>("number");
    QTest::addColumn<bool>("readable");
    QTest::newRow("record") << QVariant::fromValue(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}})
                            << 0x07E205040D160A38LL << true;
    QTest::newRow("packed") << QVariant(0x07E205040D160A38LL) << 0x07E205040D160A38LL << true;
    QTest::newRow("packed negative") << QVariant(-2LL) << -2LL << true;
    QTest::newRow("packed unsigned") << QVariant(~0ULL) << -1LL << true;
    QTest::newRow("int") << QVariant(-3) << -3LL << true;
    QTest::newRow("letters") << QVariant(QByteArray("abc")) << 0LL << false;
    QTest::newRow("CString32") << text32("5") << 0LL << false;
    QTest::newRow("nothing") << QVariant() << 0LL << false;
}

// A date-time is its packed number, whichever form the payload has; every numeric reader takes it.
void tst_CVariantForeign::dateTimeNumber()
{
    QFETCH(QVariant, payload);
    QFETCH(qlonglong, number);
    QFETCH(bool, readable);
    const CVariant value = joined(payload, NTypes::TYPE_DATETIME);
    for (uint type = NTypes::TYPE_U8; type <= NTypes::TYPE_F64; ++type) {
        QVERIFY(value.canConvertTo(static_cast<NTypes::ETypes>(type)));
    }
    bool ok = !readable;
    QCOMPARE(value.toI64(&ok), number);
    QCOMPARE(ok, readable);
    ok = !readable;
    QCOMPARE(value.toU64(&ok), static_cast<qulonglong>(number));
    QCOMPARE(ok, readable);
    ok = !readable;
    QCOMPARE(value.toU16(&ok), static_cast<ushort>(number));
    QCOMPARE(ok, readable);
    ok = !readable;
    QCOMPARE(value.toF32(&ok), static_cast<float>(number));
    QCOMPARE(ok, readable);
}

void tst_CVariantForeign::number_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<qlonglong>("expected");
    QTest::addColumn<bool>("readable");
    QTest::newRow("U8 of bytes") << joined(QByteArray("12"), NTypes::TYPE_U8) << 12LL << true;
    QTest::newRow("U8 of int 300") << joined(300, NTypes::TYPE_U8) << 300LL << true;
    QTest::newRow("I8 of letters") << joined(QByteArray("abc"), NTypes::TYPE_I8) << 0LL << false;
    QTest::newRow("F64 of letters") << joined(QByteArray("abc"), NTypes::TYPE_F64) << 0LL << false;
    // Qt hands back infinity here, and says that it failed.
    QTest::newRow("F64 of 1e999") << joined(QByteArray("1e999"), NTypes::TYPE_F64) << 0LL << false;
    QTest::newRow("F32 of double -2.9") << joined(-2.9, NTypes::TYPE_F32) << -2LL << true;
    QTest::newRow("I64 of nothing") << joined(QVariant(), NTypes::TYPE_I64) << 0LL << false;
    QTest::newRow("U64 of CString32") << joined(text32("5"), NTypes::TYPE_U64) << 0LL << false;
    QTest::newRow("CHARSTR64 of int") << joined(5, NTypes::TYPE_CHARSTR64) << 0LL << false;
    QTest::newRow("UNKNOWN of int") << joined(5, NTypes::TYPE_UNKNOWN) << 0LL << false;
    QTest::newRow("4294967295 of int") << joined(5, static_cast<NTypes::ETypes>(0xFFFFFFFF)) << 0LL << false;
}

void tst_CVariantForeign::number()
{
    QFETCH(CVariant, value);
    QFETCH(qlonglong, expected);
    QFETCH(bool, readable);
    bool ok = !readable;
    QCOMPARE(value.toI64(&ok), expected);
    QCOMPARE(ok, readable);
}

void tst_CVariantForeign::utf16()
{
    const CString128 text(QString(40, QLatin1Char('a')));
    const CVariant value = joined(QVariant::fromValue(text), NTypes::TYPE_STRING32);
    bool ok = false;
    QCOMPARE(value.toString32(&ok), CString32(QString(32, QLatin1Char('a'))));
    QVERIFY(ok);
    QCOMPARE(value.toString64(), CString64(QString(40, QLatin1Char('a'))));
    QCOMPARE(value.toString128(), text);
    const CVariant number = joined(5, NTypes::TYPE_STRING64);
    QCOMPARE(number.toString32(&ok), CString32());
    QVERIFY(ok);
    QCOMPARE(number.toString64(), CString64());
    QCOMPARE(number.toString128(), CString128());
    QCOMPARE(number, joined(6, NTypes::TYPE_STRING64));
}

void tst_CVariantForeign::bytes()
{
    char dest64[64];
    char dest256[256];
    const CVariant longer = joined(QByteArray(300, 'b'), NTypes::TYPE_CHARSTR64);
    QVERIFY(longer.toCharStr64(dest64));
    QVERIFY(longer.toCharStr256(dest256));
    QCOMPARE(QByteArray(dest64, 64), QByteArray(63, 'b') + '\0');
    QCOMPARE(QByteArray(dest256, 256), QByteArray(255, 'b') + '\0');
    for (const QVariant& payload : {text32("text"), QVariant(), QVariant(QByteArray())}) {
        fillBytes(dest64, "", '?');
        QVERIFY(joined(payload, NTypes::TYPE_CHARSTR64).toCharStr64(dest64));
        QCOMPARE(QByteArray(dest64, 64), QByteArray(64, '\0'));
        char dest = '?';
        QVERIFY(joined(payload, NTypes::TYPE_CHAR).toChar(dest));
        QCOMPARE(dest, '\0');
    }
}

void tst_CVariantForeign::utf16Char()
{
    unsigned short unit = 0xEEEE;
    QVERIFY(joined(text32("text"), NTypes::TYPE_UTF16CHAR).toUtf16Char(unit));
    QCOMPARE(int(unit), 0);
    unit = 0xEEEE;
    QVERIFY(joined(QVariant(QChar(0xE4)), NTypes::TYPE_STRING32).toUtf16Char(unit));
    QCOMPARE(int(unit), 0);
}

void tst_CVariantForeign::untypedPayload()
{
    const CVariant value = joined(7, NTypes::TYPE_UNKNOWN);
    QVERIFY(value.isNull());
    QVERIFY(!value.isValid());
    QCOMPARE(payloadOf(value), QVariant(7));
    const CVariant empty = joined(QVariant(), NTypes::TYPE_I32);
    QVERIFY(empty.isNull());
    QVERIFY(!empty.isValid());
}

void tst_CVariantForeign::nullIsCleared_data()
{
    QTest::addColumn<QVariant>("null");
    QTest::addColumn<CVariant>("value");
    QTest::newRow("I32") << QVariant(QVariant::Int) << CVariant(5);
    QTest::newRow("F64") << QVariant(QVariant::Double) << CVariant(2.5);
    QTest::newRow("U64") << QVariant(QVariant::ULongLong) << CVariant(5ULL);
    QTest::newRow("UTF16CHAR") << QVariant(QVariant::Char) << CVariant(QChar(0xE4));
    QTest::newRow("CHAR") << QVariant(QVariant::ByteArray) << CVariant('x');
}

// A value that is written over a null payload of the same Qt type is not null.
void tst_CVariantForeign::nullIsCleared()
{
    QFETCH(QVariant, null);
    QFETCH(CVariant, value);
    CVariant target = joined(null, value.type());
    QVERIFY(target.isNull());
    QVERIFY(target.isValid());
    switch (value.type()) {
    case NTypes::TYPE_I32:
        target = value.toI32();
        break;
    case NTypes::TYPE_F64:
        target = value.toF64();
        break;
    case NTypes::TYPE_U64:
        target = value.toU64();
        break;
    case NTypes::TYPE_UTF16CHAR:
        target = static_cast<QChar>(value);
        break;
    default:
        target = static_cast<char>(value);
        break;
    }
    QVERIFY(!target.isNull());
    QCOMPARE(target, value);
}

QTEST_APPLESS_MAIN(tst_CVariantForeign)
#include "tst_CVariantForeign.moc"
