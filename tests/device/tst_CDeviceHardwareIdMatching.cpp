#include <core/device/CDeviceHardwareId.h>

#include <tests/device/HardwareIdRules.h>
#include <tests/support/HostileTexts.h>

#include <QRegExp>
#include <QtTest>

namespace {

constexpr int TEXTS = 250000;

HostileTexts hostileTexts(unsigned int seed)
{
    const QStringList texts{QString(),
                            QStringLiteral("012"),
                            QStringLiteral("A012"),
                            QStringLiteral("A012_003"),
                            QStringLiteral("A012_003_001"),
                            QStringLiteral("012_003_001_Board"),
                            QStringLiteral("A012_003_001_Name_More"),
                            QStringLiteral("A012_Board"),
                            QStringLiteral("A12_3"),
                            QStringLiteral("1_2_3_4_5"),
                            QStringLiteral("A1__2")};
    return HostileTexts(texts, QStringLiteral("0123456789__AZaz%"), seed);
}

} // namespace

/// The scanner beside the expressions that define what an identifier is.
class tst_CDeviceHardwareIdMatching : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formsEqualTheirExpressions();
    void everyUnitInEveryPlace();
    void numberGateEqualsItsExpression();
    void parserEqualsItsRules();
    void longTextsTakeLinearTime();
};

void tst_CDeviceHardwareIdMatching::formsEqualTheirExpressions()
{
    QRegExp minimum = CDeviceHardwareId::minimumRegExp();
    QRegExp shortForm = CDeviceHardwareId::shortRegExp();
    QRegExp full = CDeviceHardwareId::fullRegExp();
    HostileTexts texts = hostileTexts(20260101);
    int accepted = 0;
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        const bool expected[] = {minimum.exactMatch(text), shortForm.exactMatch(text), full.exactMatch(text)};
        QVERIFY2(CDeviceHardwareId::isMinimumHardwareId(text) == expected[0], unitCodes(text).constData());
        QVERIFY2(CDeviceHardwareId::isShortHardwareId(text) == expected[1], unitCodes(text).constData());
        QVERIFY2(CDeviceHardwareId::isFullHardwareId(text) == expected[2], unitCodes(text).constData());
        accepted += expected[0] || expected[1] || expected[2] ? 1 : 0;
    }
    // The texts are worth their time only when both answers occur often.
    QVERIFY(accepted > TEXTS / 5 && accepted < TEXTS * 4 / 5);
}

void tst_CDeviceHardwareIdMatching::everyUnitInEveryPlace()
{
    QRegExp minimum = CDeviceHardwareId::minimumRegExp();
    const QString text = QStringLiteral("A012_b");
    for (int code = 0; code < 0x10000; ++code) {
        if (QChar(code).unicodeVersion() > QChar::Unicode_13_0) {
            continue; // a letter for the expression of Qt 6
        }
        for (const int place : {0, 1, 4, 5}) {
            QString changed = text;
            changed[place] = QChar(code);
            QVERIFY2(CDeviceHardwareId::isMinimumHardwareId(changed) == minimum.exactMatch(changed),
                     unitCodes(changed).constData());
        }
    }
}

void tst_CDeviceHardwareIdMatching::numberGateEqualsItsExpression()
{
    QRegExp gate(QStringLiteral("^\\d{1,3}$"));
    HostileTexts texts(
        {QString(), QStringLiteral("1"), QStringLiteral("23"), QStringLiteral("456"), QStringLiteral("7890")},
        QStringLiteral("0123456789+- "), 20260102);
    const CDeviceHardwareId id;
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        QVERIFY2(id.checkIVR(text) == gate.exactMatch(text), unitCodes(text).constData());
    }
}

void tst_CDeviceHardwareIdMatching::parserEqualsItsRules()
{
    HostileTexts texts = hostileTexts(20260103);
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        const SHardwareIdRules expected(text);
        CDeviceHardwareId id(QStringLiteral("Z999_998_997_before"));
        QVERIFY2(id.setHardwareId(text) == expected.result, unitCodes(text).constData());
        const bool same = id.prefix() == expected.prefix && id.platform() == expected.numbers[0]
                          && id.version() == expected.numbers[1] && id.revision() == expected.numbers[2]
                          && id.name() == expected.name;
        QVERIFY2(same, unitCodes(text).constData());
    }
}

void tst_CDeviceHardwareIdMatching::longTextsTakeLinearTime()
{
    // Quadratic work on ten million characters would hit the time limit of the whole program.
    const QString text = QStringLiteral("A012_") + QString(10000000, QLatin1Char('x'));
    QVERIFY(CDeviceHardwareId::isMinimumHardwareId(text));
    QVERIFY(!CDeviceHardwareId::isMinimumHardwareId(text + QLatin1Char('\n')));
    CDeviceHardwareId id(text);
    QCOMPARE(id.name().size(), 10000000);
    QVERIFY(!id.setHardwareId(QString(10000000, QLatin1Char('7'))));
    QVERIFY(!id.setHardwareId(QString(10000000, QLatin1Char('_'))));
}

QTEST_APPLESS_MAIN(tst_CDeviceHardwareIdMatching)
#include "tst_CDeviceHardwareIdMatching.moc"
