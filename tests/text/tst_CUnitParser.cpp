#include <core/text/CUnitParser.h>

#include <tests/text/UnitRows.h>

#include <tests/support/Texts.h>

#include <QtTest>

#include <utility>

Q_DECLARE_METATYPE(NTypes::ETypes)

namespace {

// Static objects of a program may use the maps and the look-ups, whatever the order of initialisation.
const QString gEarlyName = CUnitParser::mcUNIT_TO_STR_MAP.value(NUnits::UNIT_JERK_FRAC);
const NUnits::EObjectUnit gEarlyUnit = CUnitParser::mcSTR_TO_UNIT_MAP.value(QStringLiteral("UNIT_kg"));
const NTypes::ETypes gEarlyType = CUnitParser::mcTYPE_MAP.value(QStringLiteral("CHARSTR128"));
const NUnits::EObjectUnit gEarlyLookUp = CUnitParser::strToUnit(QStringLiteral("UNIT_RPM"));

} // namespace

class tst_CUnitParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void catalogue_data();
    void catalogue();
    void enumeration();
    void numbersBeyond_data();
    void numbersBeyond();
    void unknownNames_data();
    void unknownNames();
    void nameFromRawData();
    void typeWithoutPrefixLeavesOk();
    void checkUnitStr_data();
    void checkUnitStr();
    void sizeOfAnyTextIsOk();
    void okMayBeNull();
    void maps();
    void typeMap();
    void earlyStaticObjects();
    void neighboursOfNamesAreUnknown_data();
    void neighboursOfNamesAreUnknown();
};

void tst_CUnitParser::catalogue_data()
{
    QTest::addColumn<quint32>("unit");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<NTypes::ETypes>("type");

    for (const auto& row : ROWS) {
        QTest::newRow(row.name) << row.unit << text(row.name) << row.size << row.type;
    }
}

void tst_CUnitParser::catalogue()
{
    QFETCH(quint32, unit);
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(NTypes::ETypes, type);
    const auto code = static_cast<NUnits::EObjectUnit>(unit);
    bool ok[8] = {};

    QCOMPARE(CUnitParser::unitToStr(code, &ok[0]), name);
    QCOMPARE(quint32(CUnitParser::strToUnit(name, &ok[1])), unit);
    QCOMPARE(CUnitParser::size(code, &ok[2]), size);
    QCOMPARE(CUnitParser::size(unit, &ok[3]), size);
    QCOMPARE(CUnitParser::size(name, &ok[4]), size);
    QCOMPARE(CUnitParser::type(code, &ok[5]), type);
    QCOMPARE(CUnitParser::type(unit, &ok[6]), type);
    QCOMPARE(CUnitParser::type(name, &ok[7]), type);
    for (const bool each : ok) {
        QVERIFY(each);
    }
    QCOMPARE(CUnitParser::mcUNIT_TO_STR_MAP.value(code), name);
    QCOMPARE(quint32(CUnitParser::mcSTR_TO_UNIT_MAP.value(name)), unit);
}

void tst_CUnitParser::enumeration()
{
    static_assert(sizeof(NUnits::EObjectUnit) == 4, "any 32-bit number fits");
    static_assert(std::is_unsigned<std::underlying_type<NUnits::EObjectUnit>::type>::value, "unsigned");
    static_assert(NUnits::UNIT_CHARSTR256 == 15 && NUnits::UNIT_I_FRAC == 16 && NUnits::UNIT_FAULT == 39
                      && NUnits::UNIT_DATE_TIME == 80 && NUnits::UNIT_CHAR == 84 && NUnits::UNIT_J == 125,
                  "numbers travel in files");
    QCOMPARE(int(sizeof(ROWS) / sizeof(ROWS[0])), 126);
    QCOMPARE(CUnitParser::unitToStr(NUnits::UNIT_res35), QStringLiteral("UNIT_res35"));
}

void tst_CUnitParser::numbersBeyond_data()
{
    QTest::addColumn<quint32>("unit");

    QTest::newRow("126") << 126U;
    QTest::newRow("255") << 255U;
    QTest::newRow("2^31") << 0x80000000U;
    QTest::newRow("2^32 - 1") << 0xFFFFFFFFU;
}

void tst_CUnitParser::numbersBeyond()
{
    QFETCH(quint32, unit);
    const auto code = static_cast<NUnits::EObjectUnit>(unit);
    bool ok[5] = {true, true, true, true, true};

    QVERIFY(CUnitParser::unitToStr(code, &ok[0]).isEmpty());
    QCOMPARE(CUnitParser::size(code, &ok[1]), 0);
    QCOMPARE(CUnitParser::size(unit, &ok[2]), 0);
    QCOMPARE(CUnitParser::type(code, &ok[3]), NTypes::TYPE_UNKNOWN);
    QCOMPARE(CUnitParser::type(unit, &ok[4]), NTypes::TYPE_UNKNOWN);
    for (const bool each : ok) {
        QVERIFY(!each);
    }
}

void tst_CUnitParser::unknownNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("UNIT") << QStringLiteral("UNIT");
    QTest::newRow("UNIT_") << QStringLiteral("UNIT_");
    QTest::newRow("UNIT_u8") << QStringLiteral("UNIT_u8");
    QTest::newRow("blank behind") << QStringLiteral("UNIT_U8 ");
    QTest::newRow("UNIT_126") << QStringLiteral("UNIT_126");
    QTest::newRow("UNIT_55") << QStringLiteral("UNIT_55");
    QTest::newRow("zero behind") << QStringLiteral("UNIT_U8") + QChar(0);
    QTest::newRow("a letter of another script") << QStringLiteral("UNIT_U") + QChar(0xFF18);
    QTest::newRow("same low byte") << QStringLiteral("UNIT_U") + QChar(0x0138);
    QTest::newRow("longest and one more") << QStringLiteral("UNIT_JERK_INC_PER_SAMPLE3_32x322");
    QTest::newRow("very long") << QStringLiteral("UNIT_") + QString(100000, QLatin1Char('A'));
}

void tst_CUnitParser::unknownNames()
{
    QFETCH(QString, name);
    bool strToUnitOk = true;
    bool typeOk = true;
    bool sizeOk = false;

    QCOMPARE(CUnitParser::strToUnit(name, &strToUnitOk), NUnits::UNIT_UNKNOWN);
    QCOMPARE(CUnitParser::type(name, &typeOk), NTypes::TYPE_UNKNOWN);
    QCOMPARE(CUnitParser::size(name, &sizeOk), 0);

    QVERIFY(!strToUnitOk);
    QVERIFY(!typeOk);
    QVERIFY(sizeOk); // an unknown name counts as the unit without values
    QVERIFY(!CUnitParser::mcSTR_TO_UNIT_MAP.contains(name));
}

// A part of a longer text, not ended by a zero.
void tst_CUnitParser::nameFromRawData()
{
    const QString longer = QStringLiteral("UNIT_U16UNIT_I32");

    const QString part = QString::fromRawData(longer.constData(), 8);

    QCOMPARE(CUnitParser::strToUnit(part), NUnits::UNIT_U16);
}

void tst_CUnitParser::typeWithoutPrefixLeavesOk()
{
    for (const bool before : {false, true}) {
        for (const char* name : {"unit_u8", "", "U8", " UNIT_U8", "UNI"}) {
            bool ok = before;
            QCOMPARE(CUnitParser::type(text(name), &ok), NTypes::TYPE_UNKNOWN);
            QCOMPARE(ok, before);
        }
    }
}

void tst_CUnitParser::checkUnitStr_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("begins");

    QTest::newRow("unit") << QStringLiteral("UNIT_U8") << true;
    QTest::newRow("prefix alone") << QStringLiteral("UNIT") << true;
    QTest::newRow("no unit, but the prefix") << QStringLiteral("UNITS") << true;
    QTest::newRow("lower case") << QStringLiteral("unit_u8") << false;
    QTest::newRow("not at the start") << QStringLiteral(" UNIT_U8") << false;
    QTest::newRow("too short") << QStringLiteral("UNI") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_CUnitParser::checkUnitStr()
{
    QFETCH(QString, name);
    QFETCH(bool, begins);

    QCOMPARE(CUnitParser::checkUnitStr(name), begins);
}

void tst_CUnitParser::sizeOfAnyTextIsOk()
{
    for (const char* name : {"", "unit_u8", "anything"}) {
        bool ok = false;
        QCOMPARE(CUnitParser::size(text(name), &ok), 0);
        QVERIFY(ok);
    }
}

void tst_CUnitParser::okMayBeNull()
{
    QCOMPARE(CUnitParser::size(126U, nullptr), 0);
    QCOMPARE(CUnitParser::size(QStringLiteral("UNIT_CHAR"), nullptr), 1);
    QCOMPARE(CUnitParser::type(126U, nullptr), NTypes::TYPE_UNKNOWN);
    QCOMPARE(CUnitParser::type(QStringLiteral("UNIT_U8"), nullptr), NTypes::TYPE_U8);
    QCOMPARE(CUnitParser::type(QStringLiteral("x"), nullptr), NTypes::TYPE_UNKNOWN);
    QCOMPARE(CUnitParser::strToUnit(QStringLiteral("x"), nullptr), NUnits::UNIT_UNKNOWN);
    QCOMPARE(CUnitParser::unitToStr(NUnits::UNIT_W, nullptr), QStringLiteral("UNIT_W"));
}

void tst_CUnitParser::maps()
{
    QCOMPARE(CUnitParser::mcUNIT_TO_STR_MAP.size(), 126);
    QCOMPARE(CUnitParser::mcSTR_TO_UNIT_MAP.size(), 126);
    QCOMPARE(CUnitParser::mcUNIT_TO_STR_MAP.firstKey(), NUnits::UNIT_UNKNOWN);
    QCOMPARE(CUnitParser::mcUNIT_TO_STR_MAP.lastKey(), NUnits::UNIT_J);
    QCOMPARE(CUnitParser::initUnitToStr(), CUnitParser::mcUNIT_TO_STR_MAP);
    QCOMPARE(CUnitParser::initStrToUnit(), CUnitParser::mcSTR_TO_UNIT_MAP);
    QCOMPARE(CUnitParser::initTypeMap(), CUnitParser::mcTYPE_MAP);
}

void tst_CUnitParser::typeMap()
{
    const QMap<QString, NTypes::ETypes> expected{{QStringLiteral("U8"), NTypes::TYPE_U8},
                                                 {QStringLiteral("I8"), NTypes::TYPE_I8},
                                                 {QStringLiteral("U16"), NTypes::TYPE_U16},
                                                 {QStringLiteral("I16"), NTypes::TYPE_I16},
                                                 {QStringLiteral("U32"), NTypes::TYPE_U32},
                                                 {QStringLiteral("I32"), NTypes::TYPE_I32},
                                                 {QStringLiteral("F32"), NTypes::TYPE_F32},
                                                 {QStringLiteral("U64"), NTypes::TYPE_U64},
                                                 {QStringLiteral("I64"), NTypes::TYPE_I64},
                                                 {QStringLiteral("F64"), NTypes::TYPE_F64},
                                                 {QStringLiteral("STRING32"), NTypes::TYPE_STRING32},
                                                 {QStringLiteral("CHARSTR64"), NTypes::TYPE_CHARSTR64},
                                                 {QStringLiteral("STRING128"), NTypes::TYPE_STRING128},
                                                 {QStringLiteral("CHARSTR256"), NTypes::TYPE_CHARSTR256},
                                                 {QStringLiteral("DATETIME"), NTypes::TYPE_DATETIME},
                                                 {QStringLiteral("STRING64"), NTypes::TYPE_STRING64},
                                                 {QStringLiteral("CHARSTR128"), NTypes::TYPE_CHARSTR128},
                                                 {QStringLiteral("UTF16CHAR"), NTypes::TYPE_UTF16CHAR},
                                                 {QStringLiteral("CHAR"), NTypes::TYPE_CHAR}};

    QCOMPARE(CUnitParser::mcTYPE_MAP, expected);
}

void tst_CUnitParser::earlyStaticObjects()
{
    QCOMPARE(gEarlyName, QStringLiteral("UNIT_JERK_FRAC"));
    QCOMPARE(gEarlyUnit, NUnits::UNIT_kg);
    QCOMPARE(gEarlyType, NTypes::TYPE_CHARSTR128);
    QCOMPARE(gEarlyLookUp, NUnits::UNIT_RPM);
}

// Every name with one character changed, dropped or added: found only if the map knows it.
void tst_CUnitParser::neighboursOfNamesAreUnknown_data()
{
    QTest::addColumn<QString>("name");

    for (const auto& row : ROWS) {
        QTest::newRow(row.name) << text(row.name);
    }
}

void tst_CUnitParser::neighboursOfNamesAreUnknown()
{
    QFETCH(QString, name);
    QStringList neighbours;
    for (int i = 0; i <= name.size(); ++i) {
        neighbours << QString(name).remove(i, 1);
        for (const char c : {'A', '1', '_', 'c'}) {
            neighbours << QString(name).replace(i, 1, QLatin1Char(c))
                       << QString(name).insert(i, QLatin1Char(c));
        }
    }

    for (const QString& neighbour : std::as_const(neighbours)) {
        bool ok = false;
        QCOMPARE(CUnitParser::strToUnit(neighbour, &ok), CUnitParser::mcSTR_TO_UNIT_MAP.value(neighbour));
        QCOMPARE(ok, CUnitParser::mcSTR_TO_UNIT_MAP.contains(neighbour));
    }
}

QTEST_APPLESS_MAIN(tst_CUnitParser)
#include "tst_CUnitParser.moc"
