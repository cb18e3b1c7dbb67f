#include <core/tlxCoreQTest.h>
#include <tests/types/Variants.h>

#include <QtTest>

#include <cstdint>
#include <limits>
#include <type_traits>

// Construction and assignment: every argument type chooses tag and payload, both ways alike.
class tst_CVariantMake : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shape();
    void untyped();
    void numbers_data();
    void numbers();
    void longs();
    void fixedWidthIntegers();
    void characters();
    void bytes();
    void fixedStrings();
    void arraysOfUnits();
    void record();
    void types_data();
    void types();
    void copies();
    void moves();
    void assignmentNeverConverts();
    void inPlace();
    void inPlaceNotWhenShared();
};

namespace {

// Made by the constructor and by an assignment over a variant of another type.
template <typename T>
QVector<CVariant> madeFrom(const T& value)
{
    CVariant overUnknown;
    overUnknown = value;
    CVariant overNumber(3.5);
    overNumber = value;
    CVariant overText(CString64(QStringLiteral("before")));
    overText = value;
    CVariant overSame(value);
    overSame = value;
    return {CVariant(value), overUnknown, overNumber, overText, overSame};
}

template <typename T>
void addNumber(const char* tag, T value, NTypes::ETypes type, int qtType)
{
    QTest::newRow(tag) << madeFrom(value) << type << qtType << QVariant::fromValue(value);
}

void compareAll(const QVector<CVariant>& made, NTypes::ETypes type, const QVariant& payload)
{
    for (const CVariant& value : made) {
        QCOMPARE(value.type(), type);
        QCOMPARE(payloadType(value), payload.userType());
        QCOMPARE(payloadOf(value), payload);
        QVERIFY(value.isValid());
        QVERIFY(!value.isNull());
    }
}

} // namespace

Q_DECLARE_METATYPE(QVector<CVariant>)

void tst_CVariantMake::shape()
{
    QVERIFY(std::has_virtual_destructor<CVariant>::value);
    QVERIFY(std::is_nothrow_copy_constructible<CVariant>::value);
    QVERIFY(std::is_nothrow_copy_assignable<CVariant>::value);
    QVERIFY(std::is_nothrow_move_constructible<CVariant>::value);
    QVERIFY(std::is_nothrow_move_assignable<CVariant>::value);
    QVERIFY((std::is_convertible<int, CVariant>::value));
}

void tst_CVariantMake::untyped()
{
    const CVariant value;
    QCOMPARE(value.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(value.isNull());
    QVERIFY(!value.isValid());
    QVERIFY(!payloadOf(value).isValid());
}

void tst_CVariantMake::numbers_data()
{
    QTest::addColumn<QVector<CVariant>>("made");
    QTest::addColumn<NTypes::ETypes>("type");
    QTest::addColumn<int>("qtType");
    QTest::addColumn<QVariant>("payload");
    addNumber<signed char>("I8", -100, NTypes::TYPE_I8, 40);
    addNumber<unsigned char>("U8", 200, NTypes::TYPE_U8, 37);
    addNumber<short>("I16", -30000, NTypes::TYPE_I16, 33);
    addNumber<unsigned short>("U16", 60000, NTypes::TYPE_U16, 36);
    addNumber<int>("I32", -2000000000, NTypes::TYPE_I32, 2);
    addNumber<unsigned int>("U32", 4000000000U, NTypes::TYPE_U32, 3);
    addNumber<float>("F32", 1.5F, NTypes::TYPE_F32, 38);
    addNumber<long long>("I64", std::numeric_limits<long long>::min(), NTypes::TYPE_I64, 4);
    addNumber<unsigned long long>("U64", std::numeric_limits<unsigned long long>::max(), NTypes::TYPE_U64, 5);
    addNumber<double>("F64", 1e300, NTypes::TYPE_F64, 6);
    addNumber<QChar>("UTF16CHAR", QChar(0x20AC), NTypes::TYPE_UTF16CHAR, 7);
}

void tst_CVariantMake::numbers()
{
    QFETCH(QVector<CVariant>, made);
    QFETCH(NTypes::ETypes, type);
    QFETCH(int, qtType);
    QFETCH(QVariant, payload);
    QCOMPARE(payload.userType(), qtType);
    compareAll(made, type, payload);
}

// As the catalogue's integer of the width that long has on this platform.
void tst_CVariantMake::longs()
{
    constexpr bool WIDE = sizeof(long) == 8;
    const long least = std::numeric_limits<long>::min();
    const unsigned long greatest = std::numeric_limits<unsigned long>::max();
    compareAll(madeFrom(least), WIDE ? NTypes::TYPE_I64 : NTypes::TYPE_I32,
               WIDE ? QVariant(static_cast<long long>(least)) : QVariant(static_cast<int>(least)));
    compareAll(madeFrom(greatest), WIDE ? NTypes::TYPE_U64 : NTypes::TYPE_U32,
               WIDE ? QVariant(static_cast<unsigned long long>(greatest))
                    : QVariant(static_cast<unsigned int>(greatest)));
    const long readLeast = CVariant(least);
    const unsigned long readGreatest = CVariant(greatest);
    QCOMPARE(readLeast, least);
    QCOMPARE(readGreatest, greatest);
    // Cut to the width, as by every numeric reader.
    const CVariant tenTo10(10000000000LL);
    const long cut = tenTo10;
    QCOMPARE(cut, static_cast<long>(WIDE ? 10000000000LL : 1410065408LL));
}

// Which of long and long long these names mean differs between platforms; their width does not.
void tst_CVariantMake::fixedWidthIntegers()
{
    const std::int64_t number = std::numeric_limits<std::int64_t>::min();
    compareAll(madeFrom(number), NTypes::TYPE_I64, QVariant(static_cast<long long>(number)));
    const std::uint64_t bits = std::numeric_limits<std::uint64_t>::max();
    compareAll(madeFrom(bits), NTypes::TYPE_U64, QVariant(static_cast<unsigned long long>(bits)));
    const std::size_t size = std::numeric_limits<std::size_t>::max();
    QCOMPARE(CVariant(size).type(), sizeof(size) == 8 ? NTypes::TYPE_U64 : NTypes::TYPE_U32);
    const std::int64_t readNumber = CVariant(number);
    const std::uint64_t readBits = CVariant(bits);
    const std::size_t readSize = CVariant(size);
    QCOMPARE(readNumber, number);
    QCOMPARE(readBits, bits);
    QCOMPARE(readSize, size);
}

// char is neither signed char nor unsigned char.
void tst_CVariantMake::characters()
{
    compareAll(madeFrom('A'), NTypes::TYPE_CHAR, QByteArray("A"));
    compareAll(madeFrom(static_cast<char>(0xE4)), NTypes::TYPE_CHAR, QByteArray("\xE4"));
    compareAll(madeFrom('\0'), NTypes::TYPE_CHAR, QByteArray(1, '\0'));
}

void tst_CVariantMake::bytes()
{
    char text64[64];
    char text128[128];
    char text256[256];
    fillBytes(text64, "abc", 'z');
    text64[3] = '\0';
    fillBytes(text128, "abc", '\0');
    fillBytes(text256, "", char(0xFF));
    compareAll(madeFrom(text64), NTypes::TYPE_CHARSTR64, QByteArray("abc\0", 4).leftJustified(64, 'z'));
    compareAll(madeFrom(text128), NTypes::TYPE_CHARSTR128, QByteArray("abc").leftJustified(128, '\0'));
    compareAll(madeFrom(text256), NTypes::TYPE_CHARSTR256, QByteArray(256, char(0xFF)));
    const char literal[64] = "const";
    QCOMPARE(CVariant(literal).type(), NTypes::TYPE_CHARSTR64);
}

void tst_CVariantMake::fixedStrings()
{
    const CString32 text32(QStringLiteral("thirty-two"));
    const CString64 text64(QStringLiteral("sixty-four"));
    const CString128 text128(QStringLiteral("one hundred twenty-eight"));
    for (const CVariant& value : madeFrom(text32)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING32);
        QCOMPARE(QByteArray(payloadOf(value).typeName()), QByteArray("CString32"));
        QCOMPARE(payloadOf(value).value<CString32>(), text32);
    }
    for (const CVariant& value : madeFrom(text64)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING64);
        QCOMPARE(QByteArray(payloadOf(value).typeName()), QByteArray("CString64"));
        QCOMPARE(payloadOf(value).value<CString64>(), text64);
    }
    for (const CVariant& value : madeFrom(text128)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING128);
        QCOMPARE(QByteArray(payloadOf(value).typeName()), QByteArray("CString128"));
        QCOMPARE(payloadOf(value).value<CString128>(), text128);
    }
}

void tst_CVariantMake::arraysOfUnits()
{
    unsigned short units32[32] = {'a', 'b', 0, 'c'};
    unsigned short units64[64] = {'a', 'b', 0, 'c'};
    unsigned short units128[128] = {'a', 'b', 0, 'c'};
    units32[31] = units64[63] = units128[127] = 0xFEFF;
    for (const CVariant& value : madeFrom(units32)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING32);
        QCOMPARE(payloadOf(value).value<CString32>(), CString32(units32));
    }
    for (const CVariant& value : madeFrom(units64)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING64);
        QCOMPARE(payloadOf(value).value<CString64>(), CString64(units64));
    }
    for (const CVariant& value : madeFrom(units128)) {
        QCOMPARE(value.type(), NTypes::TYPE_STRING128);
        QCOMPARE(payloadOf(value).value<CString128>(), CString128(units128));
    }
}

void tst_CVariantMake::record()
{
    const NTypes::tsDateTime dateTime = {{56, 10, 22, 13}, {4, 5, 2018}};
    for (const CVariant& value : madeFrom(dateTime)) {
        QCOMPARE(value.type(), NTypes::TYPE_DATETIME);
        QCOMPARE(QByteArray(payloadOf(value).typeName()), QByteArray("NTypes::tsDateTime"));
        QCOMPARE(payloadOf(value).value<NTypes::tsDateTime>(), dateTime);
        QVERIFY(value.isValid() && !value.isNull());
    }
}

void tst_CVariantMake::types_data()
{
    QTest::addColumn<NTypes::ETypes>("type");
    for (const NTypes::ETypes type : allTypes()) {
        QTest::addRow("%u", static_cast<uint>(type)) << type;
    }
}

// A type makes its default value, also when it is assigned: it is no number.
void tst_CVariantMake::types()
{
    QFETCH(NTypes::ETypes, type);
    for (const CVariant& value : madeFrom(type)) {
        QCOMPARE(value.type(), type);
        QCOMPARE(payloadType(value), CVariant().defaultValue(type).userType());
        const bool hasValue =
            type >= NTypes::TYPE_U8 && type <= NTypes::TYPE_CHAR && type != NTypes::TYPE_F80;
        QCOMPARE(value.isValid(), hasValue);
        // Qt calls the character 0 null.
        QCOMPARE(value.isNull(), !hasValue || type == NTypes::TYPE_UTF16CHAR);
    }
}

void tst_CVariantMake::copies()
{
    for (const NTypes::ETypes type : allTypes()) {
        const CVariant value = sampleOf(type);
        const CVariant copy(value);
        CVariant assigned(7);
        assigned = value;
        CVariant& itself = assigned;
        assigned = itself;
        for (const CVariant& other : {copy, assigned}) {
            QCOMPARE(other.type(), value.type());
            QCOMPARE(payloadType(other), payloadType(value));
            QCOMPARE(other.toStr(), value.toStr());
        }
    }
}

void tst_CVariantMake::moves()
{
    CVariant source(QChar(QLatin1Char('x')));
    CVariant target(std::move(source));
    QCOMPARE(target.type(), NTypes::TYPE_UTF16CHAR);
    QCOMPARE(target.toStr(), QStringLiteral("x"));
    CVariant other(5);
    other = std::move(target);
    QCOMPARE(other.type(), NTypes::TYPE_UTF16CHAR);
    QCOMPARE(other.toStr(), QStringLiteral("x"));
    // What was moved from is a variant like any other.
    QCOMPARE(source.type(), NTypes::TYPE_UNKNOWN); // NOLINT(bugprone-use-after-move): that is what is tested
    QVERIFY(!payloadOf(source).isValid());
    source = 7;
    QCOMPARE(source.toI32(), 7);
    target = 8;
    QCOMPARE(target.toI32(), 8);
}

void tst_CVariantMake::assignmentNeverConverts()
{
    CVariant value(static_cast<unsigned char>(7));
    value = 300;
    QCOMPARE(value.type(), NTypes::TYPE_I32);
    QCOMPARE(value.toI32(), 300);
    value = 2.5;
    QCOMPARE(value.type(), NTypes::TYPE_F64);
    value = NTypes::TYPE_I32;
    QCOMPARE(value.type(), NTypes::TYPE_I32);
    QCOMPARE(payloadOf(value), QVariant(0));
    // Unlike setDefaultValue, an assigned type without default drops the payload, as its constructor does.
    value = NTypes::TYPE_F80;
    QCOMPARE(value.type(), NTypes::TYPE_F80);
    QVERIFY(!payloadOf(value).isValid());
}

void tst_CVariantMake::inPlace()
{
    CVariant value(CString32(QStringLiteral("before")));
    const void* const place = payloadOf(value).constData();
    value = CString32(QStringLiteral("after"));
    QCOMPARE(payloadOf(value).constData(), place);
    QCOMPARE(value.toStr(), QStringLiteral("after"));
}

void tst_CVariantMake::inPlaceNotWhenShared()
{
    CVariant value(NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 2007}});
    const CVariant copy(value);
    const QVariant shared = payloadOf(value);
    value = NTypes::tsDateTime{{0, 0, 0, 0}, {1, 1, 2000}};
    QCOMPARE(payloadOf(copy).value<NTypes::tsDateTime>(), (NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 2007}}));
    QCOMPARE(shared.value<NTypes::tsDateTime>(), (NTypes::tsDateTime{{1, 2, 3, 4}, {5, 6, 2007}}));
    QCOMPARE(payloadOf(value).value<NTypes::tsDateTime>(), (NTypes::tsDateTime{{0, 0, 0, 0}, {1, 1, 2000}}));
}

QTEST_APPLESS_MAIN(tst_CVariantMake)
#include "tst_CVariantMake.moc"
