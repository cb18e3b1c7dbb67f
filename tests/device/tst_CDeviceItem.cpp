#include <core/device/CDeviceItem.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/StreamBytes.h>

#include <QHash>
#include <QtTest>

#include <limits>

namespace {

constexpr CDeviceItem::EHostAddrType addressType(qint32 value)
{
    return static_cast<CDeviceItem::EHostAddrType>(value);
}

/// A valid item without sub-devices.
CDeviceItem makeItem()
{
    CDeviceItem item(QStringLiteral("L"), addressType(2), QHostAddress(QStringLiteral("192.168.0.7")), 1700,
                     QStringLiteral("e"));
    item.number = 5;
    item.setConfigurationName(QStringLiteral("c"));
    item.flag1 = true;
    item.value1 = -2;
    item.value2 = 1;
    return item;
}

/// The bytes of makeItem(), up to the map.
const char* const ITEM_BYTES =
    "00000005 00000002004c 00000002 00c0a80007 06a4 000000020065 ffffffff 000000020063 "
    "01 00 fffffffe 00000001 ";

} // namespace

class tst_CDeviceItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void constructor();
    void valid_data();
    void valid();
    void everyFieldCounts_data();
    void everyFieldCounts();
    void subDevicesCompareByKeyAndValue();
    void copyIsApart();
    void addSubDevice();
    void addSubDeviceOfOwn();
    void streamBytes();
    void streamOfAddresses_data();
    void streamOfAddresses();
    void subDevicesDescendUnsigned();
    void addressTypeHoldsEveryNumber();
    void shortStreams();
    void damagedAddress();
    void lyingCount();
    void duplicateSubDevicesStay();
    void metaTypeAndDebug();
};

void tst_CDeviceItem::defaults()
{
    const CDeviceItem item;
    QCOMPARE(item.number, 0U);
    QCOMPARE(item.name, QString());
    QCOMPARE(qint32(item.hostAddrType), 0);
    QVERIFY(item.hostAddress.isNull());
    QCOMPARE(int(item.port), 0);
    QCOMPARE(item.extraText, QString());
    QCOMPARE(item.extraText2, QString());
    QCOMPARE(item.configurationName(), QString());
    QVERIFY(!item.flag1);
    QVERIFY(!item.flag2);
    QCOMPARE(item.value1, 0);
    QCOMPARE(item.value2, 0);
    QVERIFY(item.subDevices.isEmpty());
    QVERIFY(!item.isValid());
}

void tst_CDeviceItem::constructor()
{
    const CDeviceItem item(QStringLiteral("Lift"), addressType(3), QHostAddress(QHostAddress::LocalHostIPv6),
                           65535, QStringLiteral("extra"));
    QCOMPARE(item.name, QStringLiteral("Lift"));
    QCOMPARE(qint32(item.hostAddrType), 3);
    QCOMPARE(item.hostAddress, QHostAddress(QHostAddress::LocalHostIPv6));
    QCOMPARE(int(item.port), 65535);
    QCOMPARE(item.extraText, QStringLiteral("extra"));
    QCOMPARE(item.number, 0U);
    QCOMPARE(item.extraText2, QString());
    QCOMPARE(item.value2, 0);
    QVERIFY(!item.isValid());
}

void tst_CDeviceItem::valid_data()
{
    QTest::addColumn<CDeviceItem>("item");
    QTest::addColumn<bool>("expected");
    CDeviceItem item = makeItem();
    QTest::newRow("all set") << item << true;
    item.value2 = -1;
    QTest::newRow("negative value2") << item << true;
    item.port = 1;
    item.hostAddrType = addressType(-1);
    QTest::newRow("port 1, type -1") << item << true;
    item.value2 = 0;
    QTest::newRow("value2 is 0") << item << false;
    item = makeItem();
    item.port = 0;
    QTest::newRow("port is 0") << item << false;
    item = makeItem();
    item.hostAddrType = CDeviceItem::HOST_ADDR_NONE;
    QTest::newRow("no kind of address") << item << false;
    item = makeItem();
    item.hostAddress.clear();
    QTest::newRow("null address") << item << false;
}

void tst_CDeviceItem::valid()
{
    QFETCH(CDeviceItem, item);
    QFETCH(bool, expected);
    QCOMPARE(item.isValid(), expected);
}

void tst_CDeviceItem::everyFieldCounts_data()
{
    QTest::addColumn<CDeviceItem>("other");
    const auto row = [](const char* tag, auto change) {
        CDeviceItem item = makeItem();
        change(item);
        QTest::newRow(tag) << item;
    };
    row("number", [](CDeviceItem& item) { item.number = 6; });
    row("name", [](CDeviceItem& item) { item.name = QStringLiteral("M"); });
    row("hostAddrType", [](CDeviceItem& item) { item.hostAddrType = addressType(1); });
    row("hostAddress", [](CDeviceItem& item) { item.hostAddress = QHostAddress(QStringLiteral("::1")); });
    row("port", [](CDeviceItem& item) { item.port = 1701; });
    row("extraText", [](CDeviceItem& item) { item.extraText = QStringLiteral("f"); });
    row("extraText2", [](CDeviceItem& item) { item.extraText2 = QStringLiteral("f"); });
    row("configurationName", [](CDeviceItem& item) { item.setConfigurationName(QStringLiteral("d")); });
    row("flag1", [](CDeviceItem& item) { item.flag1 = false; });
    row("flag2", [](CDeviceItem& item) { item.flag2 = true; });
    row("value1", [](CDeviceItem& item) { item.value1 = 2; });
    row("value2", [](CDeviceItem& item) { item.value2 = 2; });
    row("sub-device more", [](CDeviceItem& item) { item.addSubDevice(1, CSubDeviceItem()); });
}

void tst_CDeviceItem::everyFieldCounts()
{
    QFETCH(CDeviceItem, other);
    const CDeviceItem item = makeItem();
    QVERIFY(item != other);
    QVERIFY(!(item == other));
    other = item;
    QVERIFY(item == other);
    QVERIFY(!(item != other));
    QCOMPARE(qHash(item, 3U), qHash(other, 3U));
}

void tst_CDeviceItem::subDevicesCompareByKeyAndValue()
{
    CDeviceItem item = makeItem();
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    CDeviceItem other = makeItem();
    other.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    QVERIFY(item == other);
    QCOMPARE(qHash(item, 3U), qHash(other, 3U));

    other.subDevices.first().name = QStringLiteral("Fan");
    QVERIFY(item != other);

    // The same sub-device, its number too, under another key.
    other.subDevices = {{4, item.subDevices.first()}};
    QVERIFY(item != other);
    QVERIFY(!(item == other));
}

void tst_CDeviceItem::copyIsApart()
{
    CDeviceItem item = makeItem();
    item.addSubDevice(1, CSubDeviceItem(QStringLiteral("one")));
    const CDeviceItem copy(item);
    item.addSubDevice(1, CSubDeviceItem(QStringLiteral("two")));
    item.setConfigurationName(QStringLiteral("other"));
    QCOMPARE(copy.subDevices.value(1).name, QStringLiteral("one"));
    QCOMPARE(copy.configurationName(), QStringLiteral("c"));
    QVERIFY(copy != item);
}

void tst_CDeviceItem::addSubDevice()
{
    CDeviceItem item;
    CSubDeviceItem sub(QStringLiteral("Brake"));
    sub.number = 9;
    item.addSubDevice(200, sub);
    QCOMPARE(item.subDevices.size(), 1);
    QCOMPARE(int(item.subDevices.value(200).number), 200);
    QCOMPARE(int(sub.number), 9);
    item.addSubDevice(200, CSubDeviceItem(QStringLiteral("Fan")));
    QCOMPARE(item.subDevices.size(), 1);
    QCOMPARE(item.subDevices.value(200).name, QStringLiteral("Fan"));
    item.addSubDevice(0, sub);
    item.addSubDevice(255, sub);
    QCOMPARE(item.subDevices.keys(), (QList<unsigned char>{0, 200, 255}));
}

void tst_CDeviceItem::addSubDeviceOfOwn()
{
    CDeviceItem item;
    item.addSubDevice(1, CSubDeviceItem(QStringLiteral("one")));
    item.addSubDevice(1, *item.subDevices.constBegin());
    QCOMPARE(item.subDevices.value(1).name, QStringLiteral("one"));
    const CDeviceItem shared = item;
    item.addSubDevice(2, *item.subDevices.constBegin());
    QCOMPARE(item.subDevices.value(2).name, QStringLiteral("one"));
    QCOMPARE(int(item.subDevices.value(2).number), 2);
    QCOMPARE(int(item.subDevices.value(1).number), 1);
    QCOMPARE(shared.subDevices.size(), 1);
}

void tst_CDeviceItem::streamBytes()
{
    CDeviceItem item = makeItem();
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("B")));
    const QByteArray big = fromHexText(ITEM_BYTES) + fromHexText("00000001 03 03 00000002 0042");
    const QByteArray little =
        fromHexText("05000000 020000004c00 02000000 000700a8c0 a406 020000006500 ffffffff 020000006300 "
                    "01 00 feffffff 01000000 01000000 03 03 02000000 4200");
    QCOMPARE(streamed(item).toHex(), big.toHex());
    QCOMPARE(streamed(item, QDataStream::LittleEndian).toHex(), little.toHex());
    CDeviceItem back;
    back.addSubDevice(77, CSubDeviceItem());
    QCOMPARE(unstreamed(big, back), QDataStream::Ok);
    QCOMPARE(back, item);
    CDeviceItem backLittle;
    QCOMPARE(unstreamed(little, backLittle, QDataStream::LittleEndian), QDataStream::Ok);
    QCOMPARE(backLittle, item);
}

void tst_CDeviceItem::streamOfAddresses_data()
{
    QTest::addColumn<QString>("address"); // empty: the null address
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("null") << QString() << fromHexText("ff");
    QTest::newRow("IPv4") << QStringLiteral("10.0.0.1") << fromHexText("00 0a000001");
    QTest::newRow("IPv6") << QStringLiteral("fe80::1")
                          << fromHexText("01 fe800000000000000000000000000001 ffffffff");
}

void tst_CDeviceItem::streamOfAddresses()
{
    QFETCH(QString, address);
    QFETCH(QByteArray, bytes);
    CDeviceItem item;
    item.hostAddress = QHostAddress(address);
    QByteArray actual = streamed(item);
    // Number, null name and type stand before the address.
    QCOMPARE(actual.left(12).toHex(), QByteArray("00000000ffffffff00000000"));
    actual = actual.mid(12);
    actual.chop(2 + 12 + 2 + 8 + 4); // port, texts, flags, values and the empty map
    QCOMPARE(actual.toHex(), bytes.toHex());
    CDeviceItem back = makeItem();
    QCOMPARE(unstreamed(streamed(item), back), QDataStream::Ok);
    QCOMPARE(back, item);
}

void tst_CDeviceItem::subDevicesDescendUnsigned()
{
    CDeviceItem item = makeItem();
    for (const int key : {127, 128, 0, 255}) {
        item.addSubDevice(static_cast<unsigned char>(key), CSubDeviceItem(QString()));
    }
    const QByteArray expected =
        fromHexText(ITEM_BYTES)
        + fromHexText("00000004 ff ff ffffffff 80 80 ffffffff 7f 7f ffffffff 00 00 ffffffff");
    QCOMPARE(streamed(item).toHex(), expected.toHex());
}

void tst_CDeviceItem::addressTypeHoldsEveryNumber()
{
    for (const qint32 value :
         {0, 1, -1, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()}) {
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << value;
        QCOMPARE(streamed(addressType(value)).toHex(), bytes.toHex());
        CDeviceItem::EHostAddrType back = addressType(12345);
        QCOMPARE(unstreamed(bytes, back), QDataStream::Ok);
        QCOMPARE(qint32(back), value);
    }
    CDeviceItem::EHostAddrType type = addressType(12345);
    QCOMPARE(unstreamed(QByteArray(3, '\1'), type), QDataStream::ReadPastEnd);
    QCOMPARE(qint32(type), 0);
}

void tst_CDeviceItem::shortStreams()
{
    const QByteArray head = fromHexText(ITEM_BYTES);
    const QByteArray whole = head + fromHexText("00000001 03 03 00000002 0042");
    for (int length = 0; length < whole.size(); ++length) {
        CDeviceItem item = makeItem();
        item.addSubDevice(77, CSubDeviceItem());
        QCOMPARE(unstreamed(whole.left(length), item), QDataStream::ReadPastEnd);
        QVERIFY(item.subDevices.isEmpty());
        QCOMPARE(item.number, length >= 4 ? 5U : 0U);
        QCOMPARE(item == makeItem(), length >= head.size());
    }
}

void tst_CDeviceItem::damagedAddress()
{
    CDeviceItem item;
    QCOMPARE(unstreamed(fromHexText("00000005 ffffffff 00000002 2a"), item), QDataStream::ReadCorruptData);
    QVERIFY(item.hostAddress.isNull());
}

void tst_CDeviceItem::lyingCount()
{
    CDeviceItem item;
    const QByteArray bytes = fromHexText(ITEM_BYTES) + fromHexText("ffffffff 03 03 00000002 0042");
    QCOMPARE(unstreamed(bytes, item), QDataStream::ReadPastEnd);
    QVERIFY(item.subDevices.isEmpty());
    QCOMPARE(item, makeItem());
}

void tst_CDeviceItem::duplicateSubDevicesStay()
{
    const QByteArray bytes =
        fromHexText(ITEM_BYTES) + fromHexText("00000002 03 03 00000002 0042 03 09 00000002 0043");
    CDeviceItem item;
    QCOMPARE(unstreamed(bytes, item), QDataStream::Ok);
    QCOMPARE(item.subDevices.size(), 2);
    QCOMPARE(item.subDevices.value(3).name, QStringLiteral("C"));
    QCOMPARE(int(item.subDevices.value(3).number), 9);
    QCOMPARE(streamed(item).toHex(), bytes.toHex());
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("D")));
    QCOMPARE(item.subDevices.size(), 2);
    QCOMPARE(item.subDevices.first().name, QStringLiteral("D"));
    QCOMPARE(item.subDevices.last().name, QStringLiteral("B"));
}

void tst_CDeviceItem::metaTypeAndDebug()
{
    const CDeviceItem item = makeItem();
    QCOMPARE(QVariant::fromValue(item).value<CDeviceItem>(), item);
    const QScopedArrayPointer<char> shown(QTest::toString(item));
    QCOMPARE(
        QByteArray(shown.data()),
        QByteArray(
            "CDeviceItem(number 5, name \"L\", hostAddrType 2, hostAddress "
            "QHostAddress(\"192.168.0.7\"), port 1700, extraText \"e\", configurationName \"c\", flag1 true, "
            "value1 -2, value2 1)"));
}

QTEST_APPLESS_MAIN(tst_CDeviceItem)
#include "tst_CDeviceItem.moc"
