#include <core/device/CSubDeviceItem.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/StreamBytes.h>

#include <QHash>
#include <QtTest>

namespace {

CSubDeviceItem makeSub(unsigned char number, const char* name)
{
    CSubDeviceItem item(QString::fromUtf8(name));
    item.number = number;
    return item;
}

} // namespace

class tst_CSubDeviceItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void comparison();
    void streamBytes_data();
    void streamBytes();
    void shortStreams();
    void readEmptyNameReplacesDefault();
    void metaTypeAndDebug();
};

void tst_CSubDeviceItem::defaults()
{
    const CSubDeviceItem item;
    QCOMPARE(item.name, QStringLiteral("Tollan Sub-Device"));
    QCOMPARE(int(item.number), 0);
    const CSubDeviceItem named(QStringLiteral("Brake"));
    QCOMPARE(named.name, QStringLiteral("Brake"));
    QCOMPARE(int(named.number), 0);
    QCOMPARE(CSubDeviceItem(QString()).name, QString());
}

void tst_CSubDeviceItem::comparison()
{
    const CSubDeviceItem item = makeSub(3, "Brake");
    QVERIFY(item == makeSub(3, "Brake"));
    QVERIFY(!(item != makeSub(3, "Brake")));
    QCOMPARE(qHash(item, 5U), qHash(makeSub(3, "Brake"), 5U));
    QVERIFY(item != makeSub(4, "Brake"));
    QVERIFY(item != makeSub(3, "brake"));
    QVERIFY(!(item == makeSub(4, "Brake")));
    QVERIFY(qHash(item) != qHash(makeSub(4, "Brake")));
}

void tst_CSubDeviceItem::streamBytes_data()
{
    QTest::addColumn<CSubDeviceItem>("item");
    QTest::addColumn<QByteArray>("bigEndian");
    QTest::addColumn<QByteArray>("littleEndian");
    QTest::newRow("number 3") << makeSub(3, "Br") << fromHexText("03 00000004 0042 0072")
                              << fromHexText("03 04000000 4200 7200");
    QTest::newRow("number 200") << makeSub(200, "") << fromHexText("c8 00000000")
                                << fromHexText("c8 00000000");
    QTest::newRow("null name") << CSubDeviceItem(QString()) << fromHexText("00 ffffffff")
                               << fromHexText("00 ffffffff");
}

void tst_CSubDeviceItem::streamBytes()
{
    QFETCH(CSubDeviceItem, item);
    QFETCH(QByteArray, bigEndian);
    QFETCH(QByteArray, littleEndian);

    QCOMPARE(streamed(item).toHex(), bigEndian.toHex());
    QCOMPARE(streamed(item, QDataStream::LittleEndian).toHex(), littleEndian.toHex());
    CSubDeviceItem back = makeSub(9, "before");
    QCOMPARE(unstreamed(bigEndian, back), QDataStream::Ok);
    QCOMPARE(back, item);
    back = makeSub(9, "before");
    QCOMPARE(unstreamed(littleEndian, back, QDataStream::LittleEndian), QDataStream::Ok);
    QCOMPARE(back, item);
}

void tst_CSubDeviceItem::shortStreams()
{
    const QByteArray whole = fromHexText("03 00000004 0042 0072");
    for (int length = 0; length < whole.size(); ++length) {
        CSubDeviceItem item = makeSub(9, "before");
        QCOMPARE(unstreamed(whole.left(length), item), QDataStream::ReadPastEnd);
        QCOMPARE(int(item.number), length > 0 ? 3 : 0);
        QCOMPARE(item.name, QString());
    }
}

void tst_CSubDeviceItem::readEmptyNameReplacesDefault()
{
    CSubDeviceItem item;
    QCOMPARE(unstreamed(fromHexText("07 00000000"), item), QDataStream::Ok);
    QCOMPARE(item, makeSub(7, ""));
}

void tst_CSubDeviceItem::metaTypeAndDebug()
{
    const CSubDeviceItem item = makeSub(200, "Brake");
    QCOMPARE(QVariant::fromValue(item).value<CSubDeviceItem>(), item);
    const QScopedArrayPointer<char> shown(QTest::toString(item));
    QCOMPARE(QByteArray(shown.data()), QByteArray("CSubDeviceItem(number 200, name \"Brake\")"));
}

QTEST_APPLESS_MAIN(tst_CSubDeviceItem)
#include "tst_CSubDeviceItem.moc"
