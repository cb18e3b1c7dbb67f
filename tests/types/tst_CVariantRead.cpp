#include <core/tlxCoreQTest.h>
#include <tests/types/Variants.h>

#include <QtTest>

#include <cmath>
#include <limits>

// canConvertTo and the numeric readers.
class tst_CVariantRead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void canConvert_data();
    void canConvert();
    void canConvertDefaults();
    void canConvertKeptPayload();
    void number_data();
    void number();
    void notANumber_data();
    void notANumber();
    void floatToFloat();
    void operators();
    void withoutFlag();
};

namespace {

using TypeNumbers = QVector<uint>;

const double INF = std::numeric_limits<double>::infinity();
const double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// What each reader gives, and its flag.
QVariant readAs(NTypes::ETypes type, const CVariant& value, bool* ok)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return QVariant::fromValue(value.toU8(ok));
    case NTypes::TYPE_I8:
        return QVariant::fromValue(value.toI8(ok));
    case NTypes::TYPE_U16:
        return QVariant::fromValue(value.toU16(ok));
    case NTypes::TYPE_I16:
        return QVariant::fromValue(value.toI16(ok));
    case NTypes::TYPE_U32:
        return QVariant::fromValue(value.toU32(ok));
    case NTypes::TYPE_I32:
        return QVariant::fromValue(value.toI32(ok));
    case NTypes::TYPE_F32:
        return QVariant::fromValue(value.toF32(ok));
    case NTypes::TYPE_U64:
        return QVariant::fromValue(value.toU64(ok));
    case NTypes::TYPE_I64:
        return QVariant::fromValue(value.toI64(ok));
    case NTypes::TYPE_F64:
        return QVariant::fromValue(value.toF64(ok));
    default:
        return QVariant();
    }
}

} // namespace

Q_DECLARE_METATYPE(TypeNumbers)

void tst_CVariantRead::canConvert_data()
{
    QTest::addColumn<NTypes::ETypes>("source");
    QTest::addColumn<TypeNumbers>("targets");
    const TypeNumbers numbers = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const TypeNumbers bytes = {13, 15, 18, 20};
    const TypeNumbers texts = {12, 14, 17, 19};
    QTest::newRow("UNKNOWN") << NTypes::TYPE_UNKNOWN << TypeNumbers();
    // Qt's rule for unsigned char: not to unsigned short, not to float; double is the listed exception.
    QTest::newRow("U8") << NTypes::TYPE_U8 << TypeNumbers{1, 2, 4, 5, 6, 8, 9, 10} + bytes;
    QTest::newRow("I8") << NTypes::TYPE_I8 << numbers + bytes;
    QTest::newRow("U16") << NTypes::TYPE_U16 << numbers + bytes;
    QTest::newRow("I16") << NTypes::TYPE_I16 << numbers + bytes;
    QTest::newRow("U32") << NTypes::TYPE_U32 << numbers + bytes;
    QTest::newRow("I32") << NTypes::TYPE_I32 << numbers + bytes;
    QTest::newRow("F32") << NTypes::TYPE_F32 << numbers + bytes;
    QTest::newRow("U64") << NTypes::TYPE_U64 << numbers + bytes + TypeNumbers{16};
    QTest::newRow("I64") << NTypes::TYPE_I64 << numbers + bytes + TypeNumbers{16};
    QTest::newRow("F64") << NTypes::TYPE_F64 << numbers + bytes;
    QTest::newRow("F80") << NTypes::TYPE_F80 << TypeNumbers();
    QTest::newRow("STRING32") << NTypes::TYPE_STRING32 << texts;
    QTest::newRow("CHARSTR64") << NTypes::TYPE_CHARSTR64 << numbers + texts + bytes;
    QTest::newRow("STRING128") << NTypes::TYPE_STRING128 << texts;
    QTest::newRow("CHARSTR256") << NTypes::TYPE_CHARSTR256 << numbers + texts + bytes;
    QTest::newRow("DATETIME") << NTypes::TYPE_DATETIME << numbers + bytes + TypeNumbers{16};
    QTest::newRow("STRING64") << NTypes::TYPE_STRING64 << texts;
    QTest::newRow("CHARSTR128") << NTypes::TYPE_CHARSTR128 << numbers + texts + bytes;
    // Qt converts a QChar to integers, not to floating point.
    QTest::newRow("UTF16CHAR") << NTypes::TYPE_UTF16CHAR << TypeNumbers{1, 2, 3, 4, 5, 6, 8, 9} + texts;
    QTest::newRow("CHAR") << NTypes::TYPE_CHAR << numbers + texts + bytes;
    QTest::newRow("21") << static_cast<NTypes::ETypes>(21) << TypeNumbers();
}

void tst_CVariantRead::canConvert()
{
    QFETCH(NTypes::ETypes, source);
    QFETCH(TypeNumbers, targets);
    const CVariant value = sampleOf(source);
    for (const NTypes::ETypes target : allTypes()) {
        QVERIFY2(value.canConvertTo(target) == targets.contains(target), qPrintable(QString::number(target)));
    }
}

// A default "U8" has a payload of int, to which Qt's rule for unsigned char does not apply.
void tst_CVariantRead::canConvertDefaults()
{
    const CVariant value(NTypes::TYPE_U8);
    QVERIFY(value.canConvertTo(NTypes::TYPE_U16));
    QVERIFY(value.canConvertTo(NTypes::TYPE_F32));
    bool ok = false;
    QCOMPARE(int(value.toU16(&ok)), 0);
    QVERIFY(ok);
}

void tst_CVariantRead::canConvertKeptPayload()
{
    CVariant value(7);
    value.setDefaultValue(NTypes::TYPE_F80);
    // Numbers go by the payload, texts by the tag.
    QVERIFY(value.canConvertTo(NTypes::TYPE_I32));
    QVERIFY(!value.canConvertTo(NTypes::TYPE_CHARSTR64));
}

void tst_CVariantRead::number_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<NTypes::ETypes>("target");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* tag, const CVariant& value, NTypes::ETypes target, const auto& expected) {
        QTest::newRow(tag) << value << target << QVariant::fromValue(expected);
    };
    using std::numeric_limits;
    row("U16 300 as U8", static_cast<ushort>(300), NTypes::TYPE_U8, uchar(44));
    row("I32 200 as I8", 200, NTypes::TYPE_I8, static_cast<signed char>(-56));
    row("I32 -1 as U64", -1, NTypes::TYPE_U64, ~0ULL);
    row("I8 -1 as U16", static_cast<signed char>(-1), NTypes::TYPE_U16, ushort(65535));
    row("I8 -128 as I64", static_cast<signed char>(-128), NTypes::TYPE_I64, -128LL);
    row("I8 -128 as F64", static_cast<signed char>(-128), NTypes::TYPE_F64, -128.0);
    row("U8 255 as I8", static_cast<uchar>(255), NTypes::TYPE_I8, static_cast<signed char>(-1));
    row("U8 255 as I64", static_cast<uchar>(255), NTypes::TYPE_I64, 255LL);
    row("U8 255 as F64", static_cast<uchar>(255), NTypes::TYPE_F64, 255.0);
    row("I16 -2 as U32", static_cast<short>(-2), NTypes::TYPE_U32, 0xFFFFFFFEU);
    row("I16 -2 as F32", static_cast<short>(-2), NTypes::TYPE_F32, -2.0F);
    row("U32 max as I32", ~0U, NTypes::TYPE_I32, -1);
    row("U32 max as I64", ~0U, NTypes::TYPE_I64, 4294967295LL);
    row("U64 max as I64", ~0ULL, NTypes::TYPE_I64, -1LL);
    row("U64 max as U16", ~0ULL, NTypes::TYPE_U16, ushort(65535));
    row("U64 max as F64", ~0ULL, NTypes::TYPE_F64, 18446744073709551616.0);
    row("I64 min as I32", numeric_limits<long long>::min(), NTypes::TYPE_I32, 0);
    row("I64 min as U64", numeric_limits<long long>::min(), NTypes::TYPE_U64, 0x8000000000000000ULL);
    row("I64 2^32+5 as U8", 4294967301LL, NTypes::TYPE_U8, uchar(5));
    row("F64 -2.9 as I32", -2.9, NTypes::TYPE_I32, -2);
    row("F64 2.9 as U8", 2.9, NTypes::TYPE_U8, uchar(2));
    row("F64 300.7 as U8", 300.7, NTypes::TYPE_U8, uchar(44));
    row("F64 -1 as U64", -1.0, NTypes::TYPE_U64, ~0ULL);
    row("F64 3e9 as I32", 3e9, NTypes::TYPE_I32, -1294967296);
    row("F64 1e19 as U64", 1e19, NTypes::TYPE_U64, 10000000000000000000ULL);
    row("F64 1e19 as I64", 1e19, NTypes::TYPE_I64, numeric_limits<long long>::min());
    row("F64 2^64 as U64", 18446744073709551616.0, NTypes::TYPE_U64, 0x8000000000000000ULL);
    row("F64 1e300 as U32", 1e300, NTypes::TYPE_U32, 0U);
    row("F64 -1e300 as I64", -1e300, NTypes::TYPE_I64, numeric_limits<long long>::min());
    row("F64 nan as I16", NOT_A_NUMBER, NTypes::TYPE_I16, short(0));
    row("F64 nan as I64", NOT_A_NUMBER, NTypes::TYPE_I64, numeric_limits<long long>::min());
    row("F64 inf as U64", INF, NTypes::TYPE_U64, 0x8000000000000000ULL);
    row("F32 -2.5 as I8", -2.5F, NTypes::TYPE_I8, static_cast<signed char>(-2));
    row("F32 0.1 as F64", 0.1F, NTypes::TYPE_F64, static_cast<double>(0.1F));
    row("F64 1e300 as F32", 1e300, NTypes::TYPE_F32, numeric_limits<float>::infinity());
    // Bytes 38 0a 16 0d of the time, then 04 05 e2 07 of the date.
    const CVariant date(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}});
    row("DATETIME as U64", date, NTypes::TYPE_U64, 0x07E205040D160A38ULL);
    row("DATETIME as I64", date, NTypes::TYPE_I64, 0x07E205040D160A38LL);
    row("DATETIME as I32", date, NTypes::TYPE_I32, 0x0D160A38);
    row("DATETIME as U32", date, NTypes::TYPE_U32, 0x0D160A38U);
    row("DATETIME as U16", date, NTypes::TYPE_U16, ushort(0x0A38));
    row("DATETIME as I16", date, NTypes::TYPE_I16, short(0x0A38));
    row("DATETIME as U8", date, NTypes::TYPE_U8, uchar(0x38));
    row("DATETIME as I8", date, NTypes::TYPE_I8, static_cast<signed char>(0x38));
    row("DATETIME as F64", date, NTypes::TYPE_F64, double(0x07E205040D160A38LL));
    // Negative fields stay in their bytes; as a float it is the signed number.
    const CVariant negative(NTypes::tsDateTime{{-1, 0, -2, 0}, {0, -3, -2}});
    row("DATETIME negative as U64", negative, NTypes::TYPE_U64, 0xFFFEFD0000FE00FFULL);
    row("DATETIME negative as F32", negative, NTypes::TYPE_F32,
        static_cast<float>(static_cast<qint64>(0xFFFEFD0000FE00FFULL)));
    row("DATETIME default as I64", CVariant(NTypes::TYPE_DATETIME), NTypes::TYPE_I64, 0LL);
}

void tst_CVariantRead::number()
{
    QFETCH(CVariant, value);
    QFETCH(NTypes::ETypes, target);
    QFETCH(QVariant, expected);
    bool ok = false;
    const QVariant number = readAs(target, value, &ok);
    QCOMPARE(number.userType(), expected.userType());
    QCOMPARE(number.toString(), expected.toString());
    QCOMPARE(number.toDouble(), expected.toDouble());
    QVERIFY(ok);
}

void tst_CVariantRead::notANumber_data()
{
    QTest::addColumn<CVariant>("value");
    char digits[64] = "5";
    QTest::newRow("UNKNOWN") << CVariant();
    QTest::newRow("F80") << CVariant(NTypes::TYPE_F80);
    QTest::newRow("STRING32") << CVariant(CString32(QStringLiteral("5")));
    QTest::newRow("STRING64") << CVariant(CString64(QStringLiteral("5")));
    QTest::newRow("STRING128") << CVariant(CString128(QStringLiteral("5")));
    // Qt could convert these payloads; the tag says that they are no numbers.
    QTest::newRow("CHARSTR64") << CVariant(digits);
    QTest::newRow("CHARSTR256 parsed") << CVariant(QStringLiteral("5"), NTypes::TYPE_CHARSTR256);
    QTest::newRow("CHARSTR128 parsed") << CVariant(QStringLiteral("5"), NTypes::TYPE_CHARSTR128);
    QTest::newRow("CHAR") << CVariant('5');
    QTest::newRow("UTF16CHAR") << CVariant(QLatin1Char('5'));
    QTest::newRow("21") << CVariant(static_cast<NTypes::ETypes>(21));
}

void tst_CVariantRead::notANumber()
{
    QFETCH(CVariant, value);
    for (uint type = NTypes::TYPE_U8; type <= NTypes::TYPE_F64; ++type) {
        bool ok = true;
        const QVariant number = readAs(static_cast<NTypes::ETypes>(type), value, &ok);
        QVERIFY(!ok);
        QVERIFY(number.isValid());
        QCOMPARE(number.toDouble(), 0.0);
    }
    // A payload of unsigned char is refused by the rule for numbers.
    bool ok = true;
    QCOMPARE(int(CVariant(static_cast<uchar>(5)).toU16(&ok)), 0);
    QVERIFY(!ok);
    QCOMPARE(CVariant(static_cast<uchar>(5)).toF32(&ok), 0.0F);
    QVERIFY(!ok);
}

void tst_CVariantRead::floatToFloat()
{
    bool ok = false;
    QVERIFY(std::isnan(CVariant(NOT_A_NUMBER).toF64(&ok)) && ok);
    QVERIFY(std::isnan(CVariant(NOT_A_NUMBER).toF32(&ok)) && ok);
    QVERIFY(std::isinf(CVariant(-INF).toF32(&ok)) && ok);
    QVERIFY(std::signbit(CVariant(-0.0).toF64()));
}

void tst_CVariantRead::operators()
{
    const CVariant value(-300);
    QCOMPARE(int(static_cast<signed char>(value)), -44);
    QCOMPARE(int(static_cast<unsigned char>(value)), 212);
    QCOMPARE(static_cast<short>(value), short(-300));
    QCOMPARE(static_cast<unsigned short>(value), ushort(65236));
    QCOMPARE(static_cast<int>(value), -300);
    QCOMPARE(static_cast<unsigned int>(value), 4294966996U);
    QCOMPARE(static_cast<float>(value), -300.0F);
    QCOMPARE(static_cast<long long>(value), -300LL);
    QCOMPARE(static_cast<unsigned long long>(value), 18446744073709551316ULL);
    QCOMPARE(static_cast<double>(value), -300.0);
    const short implicit = value;
    QCOMPARE(implicit, short(-300));
}

void tst_CVariantRead::withoutFlag()
{
    QCOMPARE(CVariant(5).toI64(), 5LL);
    QCOMPARE(CVariant(QLatin1Char('5')).toI64(), 0LL);
    QCOMPARE(CVariant(5).toI64(nullptr), 5LL);
}

QTEST_APPLESS_MAIN(tst_CVariantRead)
#include "tst_CVariantRead.moc"
