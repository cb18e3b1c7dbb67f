#include <core/device/CMotorBaseName.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/StreamBytes.h>
#include <tests/support/Texts.h>

#include <QHash>
#include <QRegExp>
#include <QtTest>

#include <utility>

namespace {

CMotorBaseName makeMotor(const char* manufacturer, const char* name, const char* number)
{
    return CMotorBaseName(text(manufacturer), text(name), text(number), false);
}

/// The flag, which shows only in what a setter accepts.
bool isNumeric(CMotorBaseName motor)
{
    return !motor.setNumber(QStringLiteral("A7"));
}

} // namespace

/// What leaves a motor base name, and the flag, which never does by assignment.
class tst_CMotorBaseNameOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileBaseName_data();
    void fileBaseName();
    void clear();
    void expressionsAreFresh();
    void assignmentKeepsTheFlag();
    void copyTakesTheFlag();
    void comparison_data();
    void comparison();
    void streamBytes();
    void shortStreams();
    void metaTypeAndDebug();
};

void tst_CMotorBaseNameOutput::fileBaseName_data()
{
    QTest::addColumn<CMotorBaseName>("motor");
    QTest::addColumn<QString>("expected");
    QTest::newRow("all parts") << makeMotor("ACME", "M100", "1") << text("ACME_M100_1");
    QTest::newRow("empty number") << makeMotor("ACME", "M100", "") << text("ACME_M100_0");
    QTest::newRow("empty manufacturer") << makeMotor("", "M100", "1") << text("_M100_1");
    QTest::newRow("empty name") << makeMotor("ACME", "", "1") << text("ACME__1");
    QTest::newRow("number alone") << makeMotor("", "", "7") << text("__7");
    QTest::newRow("nothing") << CMotorBaseName() << QString();
    // The parts are filled in one at a time.
    QTest::newRow("manufacturer like the next placeholder") << makeMotor("%2", "M", "1") << text("M_M_1");
    QTest::newRow("manufacturer like an earlier placeholder") << makeMotor("%1", "M", "1") << text("M_1_%3");
    QTest::newRow("number like a placeholder") << makeMotor("A", "M", "%1") << text("A_M_%1");
}

void tst_CMotorBaseNameOutput::fileBaseName()
{
    QFETCH(CMotorBaseName, motor);
    QFETCH(QString, expected);
    QCOMPARE(motor.fileBaseName(), expected);
    QCOMPARE(QString(motor), expected);
}

void tst_CMotorBaseNameOutput::clear()
{
    CMotorBaseName motor(text("A"), text("B"), text("1"), true);
    motor.clear();
    QVERIFY(motor.isEmpty());
    QVERIFY(motor.isNull());
    QCOMPARE(motor, CMotorBaseName());
    QVERIFY(isNumeric(motor));
}

void tst_CMotorBaseNameOutput::expressionsAreFresh()
{
    QRegExp any = CMotorBaseName::fullRegExp(false);
    QCOMPARE(any.pattern(),
             text("^([0-9a-zA-Z\\-&\\+]+_){1}([0-9a-zA-Z\\-&\\+]+_){1}([0-9a-zA-Z\\-&\\+]+)+$"));
    QCOMPARE(CMotorBaseName::fullRegExp(true).pattern(),
             text("^([0-9a-zA-Z\\-&\\+]+_){1}([0-9a-zA-Z\\-&\\+]+_){1}([0-9])+$"));
    QCOMPARE(any.caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(any.patternSyntax(), QRegExp::RegExp);
    any.setPattern(QStringLiteral("changed"));
    QVERIFY(CMotorBaseName::fullRegExp(false).exactMatch(text("ACME_M100_1")));
}

void tst_CMotorBaseNameOutput::assignmentKeepsTheFlag()
{
    const CMotorBaseName numeric(QStringLiteral("A_B_1"), true);
    CMotorBaseName any(QStringLiteral("C_D_2"), false);
    any = numeric;
    QCOMPARE(any.fileBaseName(), text("A_B_1"));
    QVERIFY(!isNumeric(any));

    CMotorBaseName target(true);
    target = any;
    QVERIFY(isNumeric(target));

    CMotorBaseName source(QStringLiteral("E_F_3"), true);
    any = std::move(source);
    QCOMPARE(any.fileBaseName(), text("E_F_3"));
    QVERIFY(!isNumeric(any));
    any = CMotorBaseName(QStringLiteral("G_H_4"), true);
    QCOMPARE(any.fileBaseName(), text("G_H_4"));
    QVERIFY(!isNumeric(any));
    CMotorBaseName& self = any;
    any = self;
    QCOMPARE(any.fileBaseName(), text("G_H_4"));
}

void tst_CMotorBaseNameOutput::copyTakesTheFlag()
{
    CMotorBaseName numeric(QStringLiteral("A_B_1"), true);
    const CMotorBaseName copy(numeric);
    QCOMPARE(copy, numeric);
    QVERIFY(isNumeric(copy));
    const CMotorBaseName moved(std::move(numeric));
    QCOMPARE(moved, copy);
    QVERIFY(isNumeric(moved));
}

void tst_CMotorBaseNameOutput::comparison_data()
{
    QTest::addColumn<CMotorBaseName>("other");
    QTest::newRow("manufacturer") << makeMotor("a", "M", "1");
    QTest::newRow("name") << makeMotor("A", "m", "1");
    QTest::newRow("number") << makeMotor("A", "M", "2");
    QTest::newRow("empty number") << makeMotor("A", "M", "");
}

void tst_CMotorBaseNameOutput::comparison()
{
    QFETCH(CMotorBaseName, other);
    const CMotorBaseName motor = makeMotor("A", "M", "1");
    const CMotorBaseName withFlag(text("A"), text("M"), text("1"), true);
    QVERIFY(motor == withFlag);
    QVERIFY(!(motor != withFlag));
    QCOMPARE(qHash(motor, 3U), qHash(withFlag, 3U));
    QVERIFY(motor != other);
    QVERIFY(!(motor == other));
    QVERIFY(qHash(motor) != qHash(other));
    QVERIFY(makeMotor("A", "M", "") != makeMotor("A", "M", "0"));
}

void tst_CMotorBaseNameOutput::streamBytes()
{
    const QByteArray big = fromHexText("00000004 0041 0042 00000002 0043 ffffffff");
    const QByteArray little = fromHexText("04000000 4100 4200 02000000 4300 ffffffff");
    CMotorBaseName motor(true);
    QVERIFY(motor.setManufacturer(text("AB")) && motor.setName(text("C")));
    QCOMPARE(streamed(motor).toHex(), big.toHex());
    QCOMPARE(streamed(motor, QDataStream::LittleEndian).toHex(), little.toHex());
    for (const bool flag : {false, true}) {
        CMotorBaseName back(text("x"), text("y"), text("9"), flag);
        QCOMPARE(unstreamed(big, back), QDataStream::Ok);
        QCOMPARE(back, motor);
        QCOMPARE(isNumeric(back), flag);
        CMotorBaseName backLittle(flag);
        QCOMPARE(unstreamed(little, backLittle, QDataStream::LittleEndian), QDataStream::Ok);
        QCOMPARE(backLittle, motor);
    }
    QCOMPARE(streamed(CMotorBaseName()).toHex(), QByteArray("ffffffffffffffffffffffff"));
}

void tst_CMotorBaseNameOutput::shortStreams()
{
    const QByteArray whole = fromHexText("00000002 0041 00000002 0042 00000002 0031");
    for (int length = 0; length < whole.size(); ++length) {
        CMotorBaseName motor(text("x"), text("y"), text("9"), false);
        QCOMPARE(unstreamed(whole.left(length), motor), QDataStream::ReadPastEnd);
        QCOMPARE(motor.manufacturer(), length >= 6 ? text("A") : QString());
        QCOMPARE(motor.name(), length >= 12 ? text("B") : QString());
        QCOMPARE(motor.number(), text("0"));
    }
}

void tst_CMotorBaseNameOutput::metaTypeAndDebug()
{
    const CMotorBaseName motor = makeMotor("ACME", "M100", "1");
    QCOMPARE(QVariant::fromValue(motor).value<CMotorBaseName>(), motor);
    QString shown;
    QDebug(&shown).nospace() << motor << 1;
    QCOMPARE(shown, text("CMotorBaseName(manufacturer \"ACME\", name \"M100\", number \"1\")1"));
    const QScopedArrayPointer<char> failing(QTest::toString(motor));
    QCOMPARE(QByteArray(failing.data()),
             QByteArray("CMotorBaseName(manufacturer \"ACME\", name \"M100\", number \"1\")"));
}

QTEST_APPLESS_MAIN(tst_CMotorBaseNameOutput)
#include "tst_CMotorBaseNameOutput.moc"
