#include <core/device/CMotorBaseName.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>
#include <tests/support/Texts.h>

#include <QtTest>

#include <type_traits>

namespace {

CMotorBaseName makeMotor(const char* manufacturer, const char* name, const char* number)
{
    return CMotorBaseName(text(manufacturer), text(name), text(number), false);
}

} // namespace

class tst_CMotorBaseName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void threePartsUnchecked();
    void warnsOfNumber_data();
    void warnsOfNumber();
    void setters_data();
    void setters();
    void setFileBaseName_data();
    void setFileBaseName();
    void rejectedNumberLeavesValidName();
    void otherCasesOfAsciiLetters();
    void validFileName_data();
    void validFileName();
    void validObject_data();
    void validObject();
    void numberAsI32_data();
    void numberAsI32();

private:
    /// The flag, which shows only in what a setter accepts.
    static bool isNumeric(CMotorBaseName motor) { return !motor.setNumber(QStringLiteral("A7")); }
};

void tst_CMotorBaseName::defaults()
{
    const CMotorBaseName motor;
    QCOMPARE(motor.manufacturer(), QString());
    QCOMPARE(motor.name(), QString());
    QCOMPARE(motor.number(), text("0"));
    QCOMPARE(motor.numberAsI32(), -1);
    QCOMPARE(motor.fileBaseName(), QString());
    QVERIFY(motor.isEmpty());
    QVERIFY(motor.isNull());
    QVERIFY(!motor.isValid());
    QVERIFY(!isNumeric(motor));
    QVERIFY(isNumeric(CMotorBaseName(true)));
    QVERIFY(CMotorBaseName(true).isEmpty());
    QVERIFY((!std::is_convertible<bool, CMotorBaseName>::value));
    QCOMPARE(CMotorBaseName::defaultMotorBaseName(), text("UNKNOWN_UNKNOWN_1"));
    QCOMPARE(CMotorBaseName(CMotorBaseName::defaultMotorBaseName(), false),
             makeMotor("UNKNOWN", "UNKNOWN", "1"));
}

void tst_CMotorBaseName::threePartsUnchecked()
{
    const MessageLog log;
    const CMotorBaseName motor = makeMotor("A_B", "n/m", "no number");
    QCOMPARE(motor.manufacturer(), text("A_B"));
    QCOMPARE(motor.name(), text("n/m"));
    QCOMPARE(motor.number(), text("no number"));
    QVERIFY(!motor.isValid());
    const CMotorBaseName numeric(text("A"), text("B"), text("123"), true);
    QCOMPARE(numeric.numberAsI32(), 123);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CMotorBaseName::warnsOfNumber_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("shown");
    QTest::newRow("letters") << text("A7") << text("A7");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("a format") << text("%s%n%1") << text("%s%n%1");
    QTest::newRow("trailing tab and carriage return") << text("5\t\r") << text("5\t\r");
    QTest::newRow("digit of another script")
        << text("\u0665") << QString::fromLocal8Bit(text("\u0665").toLocal8Bit());
}

void tst_CMotorBaseName::warnsOfNumber()
{
    QFETCH(QString, number);
    QFETCH(QString, shown);

    const MessageLog log;
    const CMotorBaseName motor(text("A"), text("B"), number, true);
    QCOMPARE(log.messages(),
             QStringList{text("warning: CParameterFileMotorName() : Invalid number '") + shown + text("'")});
    QCOMPARE(motor.number(), number.isEmpty() ? text("0") : number);
}

void tst_CMotorBaseName::setters_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<bool>("acceptedAsNumeric");
    QTest::newRow("letters") << text("ACME") << true << false;
    QTest::newRow("all kinds") << text("az-AZ&09+") << true << false;
    QTest::newRow("one digit") << text("5") << true << true;
    QTest::newRow("two digits are deliberately no numeric part") << text("12") << true << false;
    QTest::newRow("digit, tab, carriage return") << text("5\t\r") << true << true;
    QTest::newRow("letter, tab, carriage return") << text("A\t\r") << true << false;
    QTest::newRow("tab, carriage return alone") << text("\t\r") << false << true;
    QTest::newRow("empty") << QString() << false << true;
    QTest::newRow("tab alone") << text("5\t") << false << false;
    QTest::newRow("carriage return, tab") << text("5\r\t") << false << false;
    QTest::newRow("twice tab, carriage return") << text("5\t\r\t\r") << false << false;
    QTest::newRow("line feed") << text("5\n") << false << false;
    QTest::newRow("separator") << text("A_B") << false << false;
    QTest::newRow("dot") << text("A.B") << false << false;
    QTest::newRow("umlaut") << text("\u00C4") << false << false;
    QTest::newRow("digit of another script") << text("\u0665") << false << false;
    QTest::newRow("dotless i") << text("\u0131") << false << false;
    QTest::newRow("long s") << text("\u017F") << false << false;
    QTest::newRow("Kelvin sign") << text("\u212A") << false << false;
}

void tst_CMotorBaseName::setters()
{
    QFETCH(QString, part);
    QFETCH(bool, accepted);
    QFETCH(bool, acceptedAsNumeric);

    CMotorBaseName motor = makeMotor("m", "n", "8");
    QCOMPARE(motor.setManufacturer(part), accepted);
    QCOMPARE(motor.setName(part), accepted);
    QCOMPARE(motor.setNumber(part), accepted);
    QCOMPARE(motor.manufacturer(), accepted ? part : text("m"));
    QCOMPARE(motor.name(), accepted ? part : text("n"));
    QCOMPARE(motor.number(), accepted ? part : text("8"));

    CMotorBaseName numeric(text("m"), text("n"), text("8"), true);
    QCOMPARE(numeric.setManufacturer(part), accepted);
    QCOMPARE(numeric.setNumber(part), acceptedAsNumeric);
    const QString stored = part.isEmpty() ? text("0") : part;
    QCOMPARE(numeric.number(), acceptedAsNumeric ? stored : text("8"));
}

void tst_CMotorBaseName::setFileBaseName_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("numeric");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("parts");
    const auto row = [](const char* fileName, bool numeric, bool result, const QStringList& parts) {
        QTest::newRow(*fileName ? QByteArray(fileName).replace("\t\r", ", tab, carriage return").constData()
                                : "empty text")
            << text(fileName) << numeric << result << parts;
    };
    const QStringList acme{text("ACME"), text("M100"), text("1")};
    const QStringList none{QString(), QString(), text("0")};
    row("ACME_M100_1", false, true, acme);
    row("C:/motors/ACME_M100_1", false, true, acme);
    row("/motors.d/ACME_M100_1", true, true, acme);
    row("acme_x_A7", false, true, {text("acme"), text("x"), text("A7")});
    row("A-1_B&2_C+3", false, true, {text("A-1"), text("B&2"), text("C+3")});
    row("A_B_12", false, true, {text("A"), text("B"), text("12")});
    // No motor base name at all: the object is empty, and that is no failure.
    row("ACME_M100_1.par", false, true, none);
    row("ACME_M100", false, true, none);
    row("A_B_C_D", false, true, none);
    row("ACME_M100_", false, true, none);
    row("_M100_1", false, true, none);
    row("acme_x_A7 ", false, true, none);
    row("ACME_M100_1\t\r", false, true, none);
    row("A_B_A7", true, true, none);
    row("", true, true, none);
    row("/motors/", false, true, none);
    // The whole name matches, a setter does not: deliberately so.
    row("ACME_M100_12", true, false, {text("ACME"), text("M100"), text("0")});
    row("\u212A_M_1", false, false, none);
    row("A_\u017F_1", false, false, {text("A"), QString(), text("0")});
    row("A_B_\u0131", false, false, {text("A"), text("B"), text("0")});
}

void tst_CMotorBaseName::setFileBaseName()
{
    QFETCH(QString, fileName);
    QFETCH(bool, numeric);
    QFETCH(bool, result);
    QFETCH(QStringList, parts);

    CMotorBaseName motor(text("before"), text("before"), text("9"), numeric);
    QCOMPARE(motor.setFileBaseName(fileName), result);
    QCOMPARE((QStringList{motor.manufacturer(), motor.name(), motor.number()}), parts);
    QCOMPARE(isNumeric(motor), numeric);
    QCOMPARE(CMotorBaseName(fileName, numeric), motor);
    CMotorBaseName assigned(numeric);
    assigned = fileName;
    QCOMPARE(assigned, motor);
}

void tst_CMotorBaseName::rejectedNumberLeavesValidName()
{
    const CMotorBaseName motor(QStringLiteral("ACME_M100_12"), true);
    QCOMPARE(motor.fileBaseName(), text("ACME_M100_0"));
    QVERIFY(motor.isValid());
    QVERIFY(!motor.isEmpty());
    QCOMPARE(motor.numberAsI32(), -1);
}

void tst_CMotorBaseName::otherCasesOfAsciiLetters()
{
    for (const char* name : {"\u0131_\u017F_\u212A", "i_s_k", "I_S_K"}) {
        QVERIFY(CMotorBaseName::isValid(text(name), false));
        QVERIFY(CMotorBaseName::fullRegExp(false).exactMatch(text(name)));
    }
    QVERIFY(!CMotorBaseName::isValid(text("\u0130_A_1"), false));
    QVERIFY(!CMotorBaseName::isValid(text("A_B_\u212A"), true));
}

void tst_CMotorBaseName::validFileName_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("validNumeric");
    QTest::newRow("base name") << text("ACME_M100_1") << true << true;
    QTest::newRow("extension") << text("ACME_M100_1.par") << true << true;
    QTest::newRow("two extensions") << text("/a.b/ACME_M100_12.par.bak") << true << true;
    QTest::newRow("cut at the first dot") << text("A_B_1.C_D") << true << true;
    QTest::newRow("letters as number") << text("acme_x_A7.par") << true << false;
    QTest::newRow("two parts") << text("ACME_M100.par") << false << false;
    QTest::newRow("hidden file") << text(".ACME_M100_1") << false << false;
    QTest::newRow("directory only") << text("ACME_M100_1/") << false << false;
    QTest::newRow("empty") << QString() << false << false;
    QTest::newRow("blank") << text("ACME_M 100_1") << false << false;
}

void tst_CMotorBaseName::validFileName()
{
    QFETCH(QString, fileName);
    QFETCH(bool, valid);
    QFETCH(bool, validNumeric);

    QCOMPARE(CMotorBaseName::isValid(fileName, false), valid);
    QCOMPARE(CMotorBaseName::isValid(fileName, true), validNumeric);
}

void tst_CMotorBaseName::validObject_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("validNumeric");
    QTest::newRow("one digit") << text("1") << true << true;
    QTest::newRow("many digits") << text("123456789012") << true << true;
    QTest::newRow("empty prints as 0") << QString() << true << true;
    QTest::newRow("letters") << text("A7") << true << false;
    QTest::newRow("tab, carriage return") << text("1\t\r") << false << false;
}

void tst_CMotorBaseName::validObject()
{
    QFETCH(QString, number);
    QFETCH(bool, valid);
    QFETCH(bool, validNumeric);

    QCOMPARE(CMotorBaseName(text("A"), text("B"), number, false).isValid(), valid);
    CMotorBaseName motor(true);
    QVERIFY(motor.setManufacturer(text("A")));
    unstreamed(streamed(CMotorBaseName(text("A"), text("B"), number, false)), motor);
    QCOMPARE(motor.isValid(), validNumeric);
}

void tst_CMotorBaseName::numberAsI32_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<qint32>("expected");
    QTest::newRow("7") << text("7") << 7;
    QTest::newRow("0012") << text("0012") << 12;
    QTest::newRow("largest") << text("2147483647") << 2147483647;
    QTest::newRow("beyond the largest") << text("2147483648") << -1;
    QTest::newRow("negative") << text("-5") << -5;
    QTest::newRow("tab, carriage return") << text("5\t\r") << 5;
    QTest::newRow("letters") << text("A7") << -1;
    QTest::newRow("hexadecimal") << text("0x10") << -1;
    QTest::newRow("empty, though printed as 0") << QString() << -1;
}

void tst_CMotorBaseName::numberAsI32()
{
    QFETCH(QString, number);
    QFETCH(qint32, expected);
    QCOMPARE(CMotorBaseName(text("A"), text("B"), number, false).numberAsI32(), expected);
}

QTEST_APPLESS_MAIN(tst_CMotorBaseName)
#include "tst_CMotorBaseName.moc"
