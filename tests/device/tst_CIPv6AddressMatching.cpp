#include <core/device/CIPv6Address.h>

#include <tests/support/HostileTexts.h>
#include <tests/support/MessageLog.h>

#include <QRegExp>
#include <QtTest>

namespace {

constexpr int TEXTS = 250000;

/// The rules of the parser, written with Qt's expression, lists and numbers.
struct SReference
{
    bool result;
    QByteArray bytes;

    SReference(QRegExp& expression, const QString& text, const QByteArray& before)
        : result(expression.indexIn(text) != -1)
        , bytes(result ? before : QByteArray(16, '\0'))
    {
        const QStringList parts = text.split(QLatin1Char(':'));
        for (int i = 0; result && parts.size() == 8 && i < 8; ++i) {
            if (!parts.at(i).isEmpty()) {
                const ushort group = parts.at(i).toUShort(nullptr, 16);
                bytes[2 * i] = static_cast<char>(group & 0xFF);
                bytes[2 * i + 1] = static_cast<char>(group >> 8);
            }
        }
    }
};

QRegExp addressExpression()
{
    return QRegExp(QStringLiteral("^([0-9a-fA-F]{1,4}|:|0)(:([0-9a-fA-F]{0,4})|){7}$"));
}

} // namespace

/// The scanner beside the expression that defines what an address is.
class tst_CIPv6AddressMatching : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalsTheRules();
    void everyUnitInEveryPlace();
    void everyCountOfColons();
    void longTexts();
};

void tst_CIPv6AddressMatching::equalsTheRules()
{
    const QStringList seeds{QString(),
                            QStringLiteral("fe80:0:0:0:0:0:0:1"),
                            QStringLiteral("FE80:0000:12aF:0:0:0:0:0001"),
                            QStringLiteral("::1"),
                            QStringLiteral("::2:3:4:5:6:7"),
                            QStringLiteral("::1:2:3:4:5:6:7"),
                            QStringLiteral("1::2:3:4:5:6:7"),
                            QStringLiteral(":1:2:3:4:5:6:7"),
                            QStringLiteral("1:2:3:4:5:6:7:"),
                            QStringLiteral(":")};
    HostileTexts texts(seeds, QStringLiteral("09afAFgG::::xX"), 20260301);
    QRegExp expression = addressExpression();
    const QByteArray before = QByteArray::fromHex("a0a1a2a3a4a5a6a7a8a9aaabacadaeaf");
    MessageLog log;
    int accepted = 0;
    for (int i = 0; i < TEXTS; ++i) {
        const QString text = texts.next();
        const SReference expected(expression, text, before);
        CIPv6Address address(before);
        QVERIFY2(address.setAddress(text) == expected.result, unitCodes(text).constData());
        QVERIFY2(address.byteArray() == expected.bytes, unitCodes(text).constData());
        QCOMPARE(log.take().size(), expected.result ? 0 : 1);
        accepted += expected.result ? 1 : 0;
    }
    QVERIFY(accepted > TEXTS / 5 && accepted < TEXTS * 4 / 5);
}

void tst_CIPv6AddressMatching::everyUnitInEveryPlace()
{
    QRegExp expression = addressExpression();
    MessageLog log;
    for (int code = 0; code < 0x10000; ++code) {
        for (const int place : {0, 2, 4, 6}) {
            QString text = QStringLiteral("12:3456");
            text[place] = QChar(code);
            CIPv6Address address;
            QVERIFY2(address.setAddress(text) == (expression.indexIn(text) != -1),
                     unitCodes(text).constData());
        }
        log.take();
    }
}

void tst_CIPv6AddressMatching::everyCountOfColons()
{
    QRegExp expression = addressExpression();
    const MessageLog log;
    for (int count = 0; count < 20; ++count) {
        const QString colons(count, QLatin1Char(':'));
        const QStringList texts{colons, QLatin1Char('1') + colons, colons + QLatin1Char('1'),
                                QStringLiteral("12345") + colons, colons + QStringLiteral("12345")};
        for (const QString& text : texts) {
            CIPv6Address address;
            QVERIFY2(address.setAddress(text) == (expression.indexIn(text) != -1),
                     unitCodes(text).constData());
        }
    }
}

void tst_CIPv6AddressMatching::longTexts()
{
    const MessageLog log;
    CIPv6Address address;
    QVERIFY(!address.setAddress(QString(1000000, QLatin1Char(':'))));
    QVERIFY(!address.setAddress(QString(1000000, QLatin1Char('1'))));
    QCOMPARE(log.messages().size(), 2);
}

QTEST_APPLESS_MAIN(tst_CIPv6AddressMatching)
#include "tst_CIPv6AddressMatching.moc"
