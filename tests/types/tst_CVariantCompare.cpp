#include <core/tlxCoreQTest.h>
#include <tests/types/AnyVariant.h>

#include <QtTest>

#include <limits>

namespace {

constexpr float INF32 = std::numeric_limits<float>::infinity();
constexpr double INF64 = std::numeric_limits<double>::infinity();
constexpr double NAN64 = std::numeric_limits<double>::quiet_NaN();

CVariant text32(const char* text)
{
    return CString32(QString::fromUtf8(text));
}

CVariant dateTime(short year, signed char day)
{
    return NTypes::tsDateTime{{0, 0, 0, 12}, {day, 3, year}};
}

} // namespace

/// Equality, order and hash of CVariant.
class tst_CVariantCompare : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equals_data();
    void equals();
    void orders_data();
    void orders();
    void mixedTagsAreNotStrict();
    void hashFollowsEquality_data();
    void hashFollowsEquality();
    void hashTellsValuesApart();
    void sets();
};

void tst_CVariantCompare::equals_data()
{
    QTest::addColumn<CVariant>("a");
    QTest::addColumn<CVariant>("b");
    QTest::addColumn<bool>("equal");

    const CVariant f80 = anyVariant(QVariant(1), NTypes::TYPE_F80);
    QTest::newRow("tags differ") << CVariant(1) << CVariant(1U) << false;
    QTest::newRow("unknown") << CVariant() << CVariant() << true;
    QTest::newRow("unknown, whatever the payload")
        << anyVariant(QVariant(1), NTypes::TYPE_UNKNOWN) << CVariant() << true;
    QTest::newRow("F80, whatever the payload") << f80 << anyVariant(QVariant(2), NTypes::TYPE_F80) << true;
    QTest::newRow("type 21, whatever the payload")
        << anyVariant(QVariant(1), outside(21)) << anyVariant(QVariant(2), outside(21)) << true;
    QTest::newRow("types 21 and 22") << anyVariant(QVariant(1), outside(21))
                                     << anyVariant(QVariant(1), outside(22)) << false;
    QTest::newRow("unsigned") << CVariant(uchar(200)) << CVariant(uchar(200)) << true;
    QTest::newRow("unsigned differ") << CVariant(ushort(1)) << CVariant(ushort(2)) << false;
    QTest::newRow("U64 beyond a double")
        << CVariant(0xFFFFFFFFFFFFFFFFULL) << CVariant(0xFFFFFFFFFFFFFFFEULL) << false;
    QTest::newRow("default and number") << CVariant(NTypes::TYPE_U8) << CVariant(uchar(0)) << true;
    QTest::newRow("signed") << CVariant(-5LL) << CVariant(-5LL) << true;
    QTest::newRow("signed differ") << CVariant(static_cast<signed char>(-5))
                                   << CVariant(static_cast<signed char>(5)) << false;
    QTest::newRow("dates") << dateTime(2024, 5) << dateTime(2024, 5) << true;
    QTest::newRow("dates differ") << dateTime(2024, 5) << dateTime(2024, 6) << false;
    QTest::newRow("date record and packed number")
        << dateTime(2024, 5) << anyVariant(QVariant(Q_INT64_C(0x07E803050C000000)), NTypes::TYPE_DATETIME)
        << true;
    QTest::newRow("F32 fuzzy") << CVariant(1.0F) << CVariant(1.000001F) << true;
    QTest::newRow("F32 just near enough") << CVariant(1.0F) << CVariant(1.000008F) << true;
    QTest::newRow("F32 too far") << CVariant(1.0F) << CVariant(1.00002F) << false;
    QTest::newRow("F32 0 and least") << CVariant(0.0F) << CVariant(std::numeric_limits<float>::denorm_min())
                                     << false;
    QTest::newRow("F32 0 and -0") << CVariant(0.0F) << CVariant(-0.0F) << true;
    QTest::newRow("F32 infinity is not itself") << CVariant(INF32) << CVariant(INF32) << false;
    QTest::newRow("F32 infinity and 1") << CVariant(INF32) << CVariant(1.0F) << false;
    QTest::newRow("F64 fuzzy") << CVariant(1.0) << CVariant(1.0 + 1e-13) << true;
    QTest::newRow("F64 just near enough") << CVariant(1.0) << CVariant(1.0 + 8e-13) << true;
    QTest::newRow("F64 too far") << CVariant(1.0) << CVariant(1.0 + 2e-12) << false;
    QTest::newRow("F64 0 and 1e-300") << CVariant(0.0) << CVariant(1e-300) << false;
    QTest::newRow("F64 1e-300 and 2e-300") << CVariant(1e-300) << CVariant(2e-300) << false;
    QTest::newRow("F64 signs differ") << CVariant(1e-300) << CVariant(-1e-300) << false;
    QTest::newRow("F64 infinity is not itself") << CVariant(INF64) << CVariant(INF64) << false;
    QTest::newRow("F64 NaN is not itself") << CVariant(NAN64) << CVariant(NAN64) << false;
    QTest::newRow("F64 NaN and 0") << CVariant(NAN64) << CVariant(0.0) << false;
    QTest::newRow("texts") << text32("drive") << text32("drive") << true;
    QTest::newRow("texts differ by case") << text32("drive") << text32("Drive") << false;
    QTest::newRow("bytes that read the same")
        << anyVariant(QVariant(QByteArray("ab\0c", 4)), NTypes::TYPE_CHARSTR64)
        << anyVariant(QVariant(QByteArray("ab")), NTypes::TYPE_CHARSTR64) << true;
    QTest::newRow("characters") << CVariant(QChar(0x41)) << CVariant(QChar(0x41)) << true;
    QTest::newRow("CHAR differ") << CVariant('A') << CVariant('B') << false;
    QTest::newRow("unreadable number is 0")
        << anyVariant(QVariant(QStringLiteral("x")), NTypes::TYPE_I32) << CVariant(0) << true;
}

void tst_CVariantCompare::equals()
{
    QFETCH(CVariant, a);
    QFETCH(CVariant, b);
    QFETCH(bool, equal);

    QCOMPARE(a == b, equal);
    QCOMPARE(b == a, equal);
    QCOMPARE(a != b, !equal);
}

void tst_CVariantCompare::orders_data()
{
    QTest::addColumn<CVariant>("a");
    QTest::addColumn<CVariant>("b");
    QTest::addColumn<bool>("less");
    QTest::addColumn<bool>("greater");

    QTest::newRow("unsigned") << CVariant(1U) << CVariant(2U) << true << false;
    QTest::newRow("unsigned 64 bits") << CVariant(0x8000000000000000ULL) << CVariant(1ULL) << false << true;
    QTest::newRow("signed") << CVariant(-1) << CVariant(1) << true << false;
    QTest::newRow("equal") << CVariant(1) << CVariant(1) << false << false;
    QTest::newRow("dates") << dateTime(2024, 5) << dateTime(2024, 6) << true << false;
    QTest::newRow("a date is a signed number") << dateTime(-1, 5) << dateTime(2024, 5) << true << false;
    QTest::newRow("floats are not fuzzy") << CVariant(1.0F) << CVariant(1.000001F) << true << false;
    QTest::newRow("doubles are not fuzzy") << CVariant(1.0) << CVariant(1.0 + 1e-13) << true << false;
    QTest::newRow("infinity") << CVariant(INF64) << CVariant(1.0) << false << true;
    QTest::newRow("NaN") << CVariant(NAN64) << CVariant(1.0) << false << false;
    QTest::newRow("texts by code unit") << text32("Z") << text32("a") << true << false;
    QTest::newRow("texts of other types") << text32("a") << CVariant('b') << true << false;
    QTest::newRow("text left, number right: 12 as text") << text32("2") << CVariant(12) << false << true;
    QTest::newRow("number left, text right: 0") << CVariant(-1) << text32("5") << true << false;
    QTest::newRow("unknown left") << CVariant() << CVariant(1) << false << false;
    QTest::newRow("unknown right: 0") << CVariant(1) << CVariant() << false << true;
    QTest::newRow("two unknown") << CVariant() << CVariant() << false << false;
    QTest::newRow("F80 left") << anyVariant(QVariant(1), NTypes::TYPE_F80) << CVariant(2) << false << false;
    QTest::newRow("type 21 left") << anyVariant(QVariant(1), outside(21)) << CVariant(2) << false << false;
    // The left operand's tag chooses: signed here, unsigned there.
    QTest::newRow("I32 -1 and U32 5") << CVariant(-1) << CVariant(5U) << true << false;
    QTest::newRow("U32 5 and I32 -1") << CVariant(5U) << CVariant(-1) << true << false;
    QTest::newRow("I32 and F64 -0.5, cut to 0") << CVariant(0) << CVariant(-0.5) << false << false;
    QTest::newRow("F64 -0.5 and I32") << CVariant(-0.5) << CVariant(0) << true << false;
    QTest::newRow("F32 reads a double as single") << CVariant(0.1F) << CVariant(0.1) << false << false;
    QTest::newRow("F64 reads a single as double") << CVariant(0.1) << CVariant(0.1F) << true << false;
}

void tst_CVariantCompare::orders()
{
    QFETCH(CVariant, a);
    QFETCH(CVariant, b);
    QFETCH(bool, less);
    QFETCH(bool, greater);

    QCOMPARE(a < b, less);
    QCOMPARE(a > b, greater);
    // Negations, so that both hold for NaN and for what has no order.
    QCOMPARE(a >= b, !less);
    QCOMPARE(a <= b, !greater);
}

void tst_CVariantCompare::mixedTagsAreNotStrict()
{
    const CVariant signedValue(-1);
    const CVariant unsignedValue(5U);

    QVERIFY(signedValue < unsignedValue);
    QVERIFY(unsignedValue < signedValue);
    QVERIFY(!(unsignedValue > signedValue));
    QVERIFY(signedValue != unsignedValue);
}

void tst_CVariantCompare::hashFollowsEquality_data()
{
    QTest::addColumn<CVariant>("a");
    QTest::addColumn<CVariant>("b");

    QTest::newRow("unknown") << CVariant() << anyVariant(QVariant(1), NTypes::TYPE_UNKNOWN);
    QTest::newRow("F80") << anyVariant(QVariant(1), NTypes::TYPE_F80)
                         << anyVariant(QVariant(2), NTypes::TYPE_F80);
    QTest::newRow("default and number") << CVariant(NTypes::TYPE_I16) << CVariant(short(0));
    QTest::newRow("F32 fuzzy") << CVariant(1.0F) << CVariant(1.000001F);
    QTest::newRow("F64 fuzzy") << CVariant(1.0) << CVariant(1.0 + 1e-13);
    QTest::newRow("date forms") << dateTime(2024, 5)
                                << anyVariant(QVariant(Q_INT64_C(0x07E803050C000000)), NTypes::TYPE_DATETIME);
    QTest::newRow("bytes that read the same")
        << anyVariant(QVariant(QByteArray("ab\0c", 4)), NTypes::TYPE_CHARSTR64)
        << anyVariant(QVariant(QByteArray("ab")), NTypes::TYPE_CHARSTR64);
}

void tst_CVariantCompare::hashFollowsEquality()
{
    QFETCH(CVariant, a);
    QFETCH(CVariant, b);

    QCOMPARE(a, b);
    QCOMPARE(qHash(a), qHash(b));
    QCOMPARE(qHash(a, 4711), qHash(b, 4711));
}

void tst_CVariantCompare::hashTellsValuesApart()
{
    QVERIFY(qHash(CVariant(1)) != qHash(CVariant(2)));
    QVERIFY(qHash(CVariant(1)) != qHash(CVariant(1U)));
    QVERIFY(qHash(CVariant(1ULL << 40)) != qHash(CVariant(2ULL << 40)));
    QVERIFY(qHash(text32("a")) != qHash(text32("b")));
}

void tst_CVariantCompare::sets()
{
    const QSet<CVariant> values{CVariant(1), CVariant(1U),  CVariant(1),
                                text32("a"), CVariant(1.0), CVariant(2.0)};

    QCOMPARE(values.size(), 5);
    QVERIFY(values.contains(CVariant(2.0)));
    QVERIFY(!values.contains(CVariant(3.0)));
}

QTEST_GUILESS_MAIN(tst_CVariantCompare)
#include "tst_CVariantCompare.moc"
