#include <core/device/CMotorBaseName.h>

#include <tests/support/HostileTexts.h>
#include <tests/support/StreamBytes.h>

#include <QFileInfo>
#include <QRegExp>
#include <QtTest>

namespace {

constexpr int TEXTS = 200000;

QRegExp partExpression()
{
    return QRegExp(QStringLiteral("^([0-9a-zA-Z\\-&\\+]+)(\\t\\r|$)"));
}

QRegExp numericPartExpression()
{
    return QRegExp(QStringLiteral("^([0-9]?)(\\t\\r|$)"));
}

HostileTexts partTexts(unsigned int seed)
{
    const QStringList texts{QString(),
                            QStringLiteral("7"),
                            QStringLiteral("12"),
                            QStringLiteral("M100"),
                            QStringLiteral("a-b&c+d"),
                            QStringLiteral("ACME\t\r"),
                            QStringLiteral("5\t\r"),
                            QStringLiteral("\t\r")};
    return HostileTexts(texts, QStringLiteral("09azAZ-&+ikIKsS"), seed);
}

HostileTexts nameTexts(unsigned int seed)
{
    const QStringList texts{QStringLiteral("ACME_M100_1"), QStringLiteral("acme_x_A7"),
                            QStringLiteral("a-b_c&d_e+f"), QStringLiteral("A_B_12"),
                            QStringLiteral("_M_1"),        QStringLiteral("iks_IKS_0")};
    return HostileTexts(texts, QStringLiteral("09azAZ-&+ikIKsS__"), seed);
}

} // namespace

/// The scanner beside the expressions that define what a motor name is.
class tst_CMotorBaseNameMatching : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void partsEqualTheirExpressions();
    void numbersEqualTheirExpressions();
    void wholeNamesEqualTheirExpression_data();
    void wholeNamesEqualTheirExpression();
    void everyUnitInEveryPlace_data();
    void everyUnitInEveryPlace();
    void filesEqualTheirRules_data();
    void filesEqualTheirRules();
};

void tst_CMotorBaseNameMatching::partsEqualTheirExpressions()
{
    QRegExp part = partExpression();
    HostileTexts texts = partTexts(20260201);
    int accepted = 0;
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        const bool expected = part.exactMatch(text);
        CMotorBaseName motor(QStringLiteral("m"), QStringLiteral("n"), QStringLiteral("8"), false);
        QVERIFY2(motor.setManufacturer(text) == expected, unitCodes(text).constData());
        QVERIFY2(motor.setName(text) == expected, unitCodes(text).constData());
        QVERIFY2(motor.setNumber(text) == expected, unitCodes(text).constData());
        QCOMPARE(motor.manufacturer(), expected ? text : QStringLiteral("m"));
        QCOMPARE(motor.name(), expected ? text : QStringLiteral("n"));
        QCOMPARE(motor.number(), expected ? text : QStringLiteral("8"));
        accepted += expected ? 1 : 0;
    }
    QVERIFY(accepted > TEXTS / 5 && accepted < TEXTS * 4 / 5);
}

void tst_CMotorBaseNameMatching::numbersEqualTheirExpressions()
{
    QRegExp part = numericPartExpression();
    QRegExp digits(QStringLiteral("^[0-9]+$"));
    HostileTexts texts = partTexts(20260202);
    CMotorBaseName motor(true);
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        QVERIFY2(motor.setNumber(text) == part.exactMatch(text), unitCodes(text).constData());
        QVERIFY2(motor.checkNumber(text) == digits.exactMatch(text), unitCodes(text).constData());
    }
}

void tst_CMotorBaseNameMatching::wholeNamesEqualTheirExpression_data()
{
    QTest::addColumn<bool>("numeric");
    QTest::newRow("any number") << false;
    QTest::newRow("numeric number") << true;
}

void tst_CMotorBaseNameMatching::wholeNamesEqualTheirExpression()
{
    QFETCH(bool, numeric);
    QRegExp whole = CMotorBaseName::fullRegExp(numeric);
    HostileTexts texts = nameTexts(20260203);
    int accepted = 0;
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        const QString manufacturer = text.section(QLatin1Char('_'), 0, 0);
        const QString name = text.section(QLatin1Char('_'), 1, 1);
        const QString number = text.section(QLatin1Char('_'), 2);
        // Set through the stream, which checks nothing.
        CMotorBaseName motor(numeric);
        unstreamed(streamed(CMotorBaseName(manufacturer, name, number, false)), motor);
        const bool expected = whole.exactMatch(motor.fileBaseName());
        QVERIFY2(motor.isValid() == expected, unitCodes(text).constData());
        accepted += expected ? 1 : 0;
    }
    QVERIFY(accepted > TEXTS / 10 && accepted < TEXTS * 9 / 10);
}

void tst_CMotorBaseNameMatching::everyUnitInEveryPlace_data()
{
    wholeNamesEqualTheirExpression_data();
}

void tst_CMotorBaseNameMatching::everyUnitInEveryPlace()
{
    QFETCH(bool, numeric);
    QRegExp whole = CMotorBaseName::fullRegExp(numeric);
    for (int code = 0; code < 0x10000; ++code) {
        for (const int place : {0, 1, 2, 4}) {
            QString text = QStringLiteral("a_b_7");
            text[place] = QChar(code);
            if (code != '.' && code != '/' && code != '\\' && code != ':') {
                QVERIFY2(CMotorBaseName::isValid(text, numeric) == whole.exactMatch(text),
                         unitCodes(text).constData());
            }
        }
    }
}

void tst_CMotorBaseNameMatching::filesEqualTheirRules_data()
{
    wholeNamesEqualTheirExpression_data();
}

void tst_CMotorBaseNameMatching::filesEqualTheirRules()
{
    QFETCH(bool, numeric);
    QRegExp whole = CMotorBaseName::fullRegExp(numeric);
    QRegExp part = partExpression();
    QRegExp number = numeric ? numericPartExpression() : partExpression();
    HostileTexts texts = nameTexts(20260204);
    for (int i = 0; i < TEXTS / 4; ++i) {
        const QString text = texts.next();
        QStringList expected{QString(), QString(), QStringLiteral("0")};
        bool result = true;
        const QString file = QFileInfo(text).fileName();
        if (whole.exactMatch(file)) {
            const QStringList parts = file.split(QLatin1Char('_'));
            for (int index = 0; result && index < 3; ++index) {
                result = (index < 2 ? part : number).exactMatch(parts.at(index));
                if (result) {
                    expected[index] = parts.at(index);
                }
            }
        }
        CMotorBaseName motor(numeric);
        QVERIFY2(motor.setFileBaseName(text) == result, unitCodes(text).constData());
        const QStringList actual{motor.manufacturer(), motor.name(), motor.number()};
        QVERIFY2(actual == expected, unitCodes(text).constData());
    }
}

QTEST_APPLESS_MAIN(tst_CMotorBaseNameMatching)
#include "tst_CMotorBaseNameMatching.moc"
