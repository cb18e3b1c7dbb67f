#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/types/AnyVariant.h>

#include <QtTest>

#include <limits>

namespace {

QString zeros(int count)
{
    return QString(count, QLatin1Char('0'));
}

} // namespace

/// CVariant::toHex().
class tst_CVariantHex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void numbersAsQtFormatsThem_data();
    void numbersAsQtFormatsThem();
    void texts_data();
    void texts();
    void dates_data();
    void dates();
    void noDigits_data();
    void noDigits();
    void otherPayloads_data();
    void otherPayloads();
    void prefix();
};

void tst_CVariantHex::numbers_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QString>("digits");

    const auto hex = [](const char* text) { return QString::fromLatin1(text); };
    QTest::newRow("U8 10") << CVariant(uchar(10)) << hex("0a");
    QTest::newRow("U8 255") << CVariant(uchar(255)) << hex("ff");
    QTest::newRow("U8 default") << CVariant(NTypes::TYPE_U8) << hex("00");
    QTest::newRow("I8 -1, cut to 2") << CVariant(static_cast<signed char>(-1)) << hex("ff");
    QTest::newRow("I8 5") << CVariant(static_cast<signed char>(5)) << hex("05");
    QTest::newRow("U16 10") << CVariant(ushort(10)) << hex("000a");
    QTest::newRow("I16 -2, cut to 4") << CVariant(short(-2)) << hex("fffe");
    QTest::newRow("U32 10") << CVariant(10U) << hex("0000000a");
    QTest::newRow("U32 greatest") << CVariant(0xFFFFFFFFU) << hex("ffffffff");
    QTest::newRow("I32 10") << CVariant(10) << hex("0000000a");
    QTest::newRow("I32 -1, not cut") << CVariant(-1) << hex("ffffffffffffffff");
    QTest::newRow("I32 least, not cut")
        << CVariant(std::numeric_limits<int>::min()) << hex("ffffffff80000000");
    QTest::newRow("U64 10") << CVariant(10ULL) << hex("000000000000000a");
    QTest::newRow("I64 -2") << CVariant(-2LL) << hex("fffffffffffffffe");
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x20AC)) << hex("20ac");
    QTest::newRow("UTF16CHAR of code 0") << CVariant(QChar(0)) << hex("0000");
}

void tst_CVariantHex::numbers()
{
    QFETCH(CVariant, variant);
    QFETCH(QString, digits);

    QCOMPARE(variant.toHex(QStringLiteral("0x")), QStringLiteral("0x") + digits);
    QCOMPARE(variant.toHex(QString()), digits);
}

void tst_CVariantHex::numbersAsQtFormatsThem_data()
{
    QTest::addColumn<qlonglong>("number");

    for (const qlonglong number :
         {Q_INT64_C(0), Q_INT64_C(1), Q_INT64_C(-1), Q_INT64_C(-128), Q_INT64_C(127), Q_INT64_C(0x1234),
          Q_INT64_C(-0x12345678), Q_INT64_C(0x7FFFFFFF), std::numeric_limits<qlonglong>::min(),
          std::numeric_limits<qlonglong>::max()}) {
        QTest::addRow("%lld", number) << number;
    }
}

void tst_CVariantHex::numbersAsQtFormatsThem()
{
    QFETCH(qlonglong, number);
    const auto formatted = [](auto value, int width) {
        return QStringLiteral("%1").arg(value, width, 16, QLatin1Char('0'));
    };
    const QString none;
    const auto i8 = static_cast<signed char>(number);
    const auto u8 = static_cast<uchar>(number);
    const auto i16 = static_cast<short>(number);
    const auto u16 = static_cast<ushort>(number);
    const auto i32 = static_cast<int>(number);
    const auto u32 = static_cast<uint>(number);

    QCOMPARE(CVariant(u8).toHex(none), formatted(qulonglong(u8), 2).right(2));
    QCOMPARE(CVariant(i8).toHex(none), formatted(qulonglong(i8), 2).right(2));
    QCOMPARE(CVariant(u16).toHex(none), formatted(qulonglong(u16), 4).right(4));
    QCOMPARE(CVariant(i16).toHex(none), formatted(qulonglong(i16), 4).right(4));
    QCOMPARE(CVariant(u32).toHex(none), formatted(qulonglong(u32), 8));
    QCOMPARE(CVariant(i32).toHex(none), formatted(qulonglong(i32), 8));
    QCOMPARE(CVariant(static_cast<qulonglong>(number)).toHex(none),
             formatted(static_cast<qulonglong>(number), 16));
    QCOMPARE(CVariant(number).toHex(none), formatted(static_cast<qulonglong>(number), 16));
}

void tst_CVariantHex::texts_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QString>("digits");

    const QString letter = QStringLiteral("A");
    const char bytes64[64] = "AB";
    const char bytes128[128] = "AB";
    const char bytes256[256] = "AB";
    const ushort leftovers[32] = {0x20AC, 0, 0x1234};
    QTest::newRow("STRING32") << CVariant(CString32(letter)) << QStringLiteral("4100") + zeros(124);
    QTest::newRow("STRING32 with leftovers")
        << CVariant(CString32(leftovers)) << QStringLiteral("ac2000003412") + zeros(116);
    CString64 leftovers64(QStringLiteral("AB"));
    leftovers64 = QString();
    CString128 leftovers128(QStringLiteral("AB"));
    leftovers128 = QString();
    QTest::newRow("STRING64 with leftovers")
        << CVariant(leftovers64) << QStringLiteral("00004200") + zeros(248);
    QTest::newRow("STRING128 with leftovers")
        << CVariant(leftovers128) << QStringLiteral("00004200") + zeros(504);
    QTest::newRow("STRING64") << CVariant(CString64(letter)) << QStringLiteral("4100") + zeros(252);
    QTest::newRow("STRING128") << CVariant(CString128(letter)) << QStringLiteral("4100") + zeros(508);
    QTest::newRow("CHARSTR64") << CVariant(bytes64) << QStringLiteral("4142") + zeros(124);
    QTest::newRow("CHARSTR128") << CVariant(bytes128) << QStringLiteral("4142") + zeros(252);
    QTest::newRow("CHARSTR256") << CVariant(bytes256) << QStringLiteral("4142") + zeros(508);
    QTest::newRow("CHARSTR64 parsed: not padded")
        << CVariant::fromStr(letter, NTypes::TYPE_CHARSTR64) << QStringLiteral("41");
    QTest::newRow("CHAR") << CVariant('A') << QStringLiteral("41");
    QTest::newRow("CHAR above 127") << CVariant('\xFC') << QStringLiteral("fc");
}

void tst_CVariantHex::texts()
{
    QFETCH(CVariant, variant);
    QFETCH(QString, digits);

    QCOMPARE(variant.toHex(QString()), digits);
    QCOMPARE(variant.toHex(QStringLiteral("#")), QLatin1Char('#') + digits);
}

void tst_CVariantHex::dates_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QString>("digits");

    const NTypes::tsDateTime record = {{45, 9, 7, 13}, {5, 3, 2024}};
    QTest::newRow("packed number, no leading zeros")
        << anyVariant(QVariant(Q_INT64_C(0x07E803050D07092D)), NTypes::TYPE_DATETIME)
        << QStringLiteral("7e803050d07092d");
    QTest::newRow("negative packed number")
        << anyVariant(QVariant(Q_INT64_C(-2)), NTypes::TYPE_DATETIME) << QStringLiteral("fffffffffffffffe");
    QTest::newRow("record shows as 0") << CVariant(record) << QStringLiteral("0");
    QTest::newRow("default shows as 0") << CVariant(NTypes::TYPE_DATETIME) << QStringLiteral("0");
}

void tst_CVariantHex::dates()
{
    QFETCH(CVariant, variant);
    QFETCH(QString, digits);

    QCOMPARE(variant.toHex(QStringLiteral("0x")), QStringLiteral("0x") + digits);
}

void tst_CVariantHex::noDigits_data()
{
    QTest::addColumn<CVariant>("variant");

    QTest::newRow("unknown") << CVariant();
    QTest::newRow("F32") << CVariant(1.5F);
    QTest::newRow("F64") << CVariant(1.5);
    QTest::newRow("F80") << anyVariant(QVariant(1), NTypes::TYPE_F80);
    QTest::newRow("type 21") << anyVariant(QVariant(1), outside(21));
    QTest::newRow("type 0xFFFFFFFF") << anyVariant(QVariant(1), outside(0xFFFFFFFF));
}

void tst_CVariantHex::noDigits()
{
    QFETCH(CVariant, variant);
    const MessageLog log;

    QCOMPARE(variant.toHex(QStringLiteral("0x")), QStringLiteral("0x"));
    QCOMPARE(variant.toHex(QString()), QString());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantHex::otherPayloads_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<QString>("digits");

    // The narrow value of the tag shows; toU64() reads the wide one.
    const CVariant wide = anyVariant(QVariant(0x12345), NTypes::TYPE_U8);
    QTest::newRow("wide number under U8") << wide << QStringLiteral("45");
    QTest::newRow("wide number under I16")
        << anyVariant(QVariant(0x18000), NTypes::TYPE_I16) << QStringLiteral("8000");
    QTest::newRow("text of a number under U16")
        << anyVariant(QVariant(QStringLiteral("258")), NTypes::TYPE_U16) << QStringLiteral("0102");
    QTest::newRow("text of no number under U32")
        << anyVariant(QVariant(QStringLiteral("x")), NTypes::TYPE_U32) << QStringLiteral("00000000");
    QTest::newRow("no value under I64") << anyVariant(QVariant(), NTypes::TYPE_I64) << zeros(16);
    QTest::newRow("text under UTF16CHAR")
        << anyVariant(QVariant(QStringLiteral("x")), NTypes::TYPE_UTF16CHAR) << zeros(4);
    QTest::newRow("text under DATETIME")
        << anyVariant(QVariant(QStringLiteral("x")), NTypes::TYPE_DATETIME) << QStringLiteral("0");
    QTest::newRow("bytes under STRING32")
        << anyVariant(QVariant(QByteArray("A")), NTypes::TYPE_STRING32) << zeros(128);
    QTest::newRow("number under STRING64") << anyVariant(QVariant(5), NTypes::TYPE_STRING64) << zeros(256);
    QTest::newRow("text under STRING128")
        << anyVariant(QVariant(QStringLiteral("x")), NTypes::TYPE_STRING128) << zeros(512);
    QTest::newRow("CString64 under STRING32")
        << anyVariant(QVariant::fromValue(CString64(QStringLiteral("A"))), NTypes::TYPE_STRING32)
        << QStringLiteral("4100") + zeros(124);
    QTest::newRow("no value under CHARSTR64") << anyVariant(QVariant(), NTypes::TYPE_CHARSTR64) << QString();
}

void tst_CVariantHex::otherPayloads()
{
    QFETCH(CVariant, variant);
    QFETCH(QString, digits);

    QCOMPARE(variant.toHex(QString()), digits);
}

void tst_CVariantHex::prefix()
{
    const QString marker = QStringLiteral("%1 %L2 ");

    QCOMPARE(CVariant(uchar(10)).toHex(marker), QStringLiteral("%1 %L2 0a"));
    QCOMPARE(CVariant('A').toHex(marker), QStringLiteral("%1 %L2 41"));
    QCOMPARE(anyVariant(QVariant(0x12345), NTypes::TYPE_U8).toU64(), 0x12345ULL);
}

QTEST_GUILESS_MAIN(tst_CVariantHex)
#include "tst_CVariantHex.moc"
