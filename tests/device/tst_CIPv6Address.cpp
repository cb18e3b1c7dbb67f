#include <core/device/CIPv6Address.h>
#include <core/tlxCoreQTest.h>

#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>
#include <tests/support/Texts.h>

#include <QHash>
#include <QtTest>

namespace {

/// The address in which every byte differs.
const QByteArray COUNTED = QByteArray::fromHex("000102030405060708090a0b0c0d0e0f");
const QByteArray ZEROS(16, '\0');

} // namespace

class tst_CIPv6Address : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void parse_data();
    void parse();
    void parseRejects_data();
    void parseRejects();
    void textConstructorStartsFromZero();
    void print_data();
    void print();
    void byteArrays_data();
    void byteArrays();
    void pointers();
    void variants_data();
    void variants();
    void toVariant();
    void elements();
    void comparison();
    void streamBytes();
    void shortStreams();
    void metaTypeAndDebug();
};

void tst_CIPv6Address::defaults()
{
    const CIPv6Address address;
    QCOMPARE(address.byteArray(), ZEROS);
    QCOMPARE(address.str(), text("0:0:0:0:0:0:0:0"));
}

void tst_CIPv6Address::parse_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QByteArray>("expected"); // starting from COUNTED
    const auto row = [](const char* source, const char* expected) {
        QTest::newRow(source) << text(source) << fromHexText(expected);
    };
    row("fe80:0:0:0:0:0:0:1", "80fe 0000 0000 0000 0000 0000 0000 0100");
    row("FE80:0000:0:0:0:0:0:0001", "80fe 0000 0000 0000 0000 0000 0000 0100");
    row("1:0:0:0:0:0:0:0", "0100 0000 0000 0000 0000 0000 0000 0000");
    row("0123:4567:89ab:cdef:FEDC:BA98:7654:3210", "2301 6745 ab89 efcd dcfe 98ba 5476 1032");
    // An empty part of eight keeps its group.
    row("1::2:3:4:5:6:7", "0100 0203 0200 0300 0400 0500 0600 0700");
    row("1:2:3:4:5:6:7:", "0100 0200 0300 0400 0500 0600 0700 0e0f");
    row("::2:3:4:5:6:7", "0001 0203 0200 0300 0400 0500 0600 0700");
    row("1:::::::", "0100 0203 0405 0607 0809 0a0b 0c0d 0e0f");
    row(":::::::", "0001 0203 0405 0607 0809 0a0b 0c0d 0e0f");
    // Deliberately no expansion: other than eight parts change nothing.
    const char* const unchanged = "0001 0203 0405 0607 0809 0a0b 0c0d 0e0f";
    row("::1", unchanged);
    row("::", unchanged);
    row(":", unchanged);
    row("fe80::1", unchanged);
    row("1", unchanged);
    row("1:2:3:4:5:6:7", unchanged);
    row("::1:2:3:4:5:6:7", unchanged);
    row("::::::::", unchanged);
}

void tst_CIPv6Address::parse()
{
    QFETCH(QString, source);
    QFETCH(QByteArray, expected);

    const MessageLog log;
    CIPv6Address address(COUNTED);
    QVERIFY(address.setAddress(source));
    QCOMPARE(address.byteArray().toHex(), expected.toHex());
    address.setAddress(COUNTED);
    address = source;
    QCOMPARE(address.byteArray().toHex(), expected.toHex());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CIPv6Address::parseRejects_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("empty") << QString();
    QTest::newRow("word") << text("hello");
    QTest::newRow("five digits") << text("12345::");
    QTest::newRow("five digits later") << text("1:2:3:4:5:6:7:00008");
    QTest::newRow("single colon before eight parts") << text(":1:2:3:4:5:6:7");
    QTest::newRow("nine parts from a digit") << text("1:2:3:4:5:6:7:8:9");
    QTest::newRow("nine colons") << text(":::::::::");
    QTest::newRow("not hexadecimal") << text("1:2:3:4:5:6:7:g");
    QTest::newRow("scope") << text("fe80:0:0:0:0:0:0:1%eth0");
    QTest::newRow("dotted end") << text("::192.168.0.1");
    QTest::newRow("line end") << text("::1\n");
    QTest::newRow("blank") << text(" ::1");
    QTest::newRow("digit of another script") << text("\u0661::");
    QTest::newRow("fullwidth letter") << text("\uFF21::");
    QTest::newRow("a format") << text("%1%s\"%n\"");
    QTest::newRow("embedded zero") << QStringLiteral("::1") + QChar(0) + QStringLiteral("2");
}

void tst_CIPv6Address::parseRejects()
{
    QFETCH(QString, source);
    const QString warning =
        text("warning: CIPv6Address::setAddress() : ") + source + text(" is not a IPv6-Address.");

    MessageLog log;
    CIPv6Address address(COUNTED);
    QVERIFY(!address.setAddress(source));
    QCOMPARE(address.byteArray(), ZEROS);
    QCOMPARE(log.take(), QStringList{warning});
    address.setAddress(COUNTED);
    address = source;
    QCOMPARE(address.byteArray(), ZEROS);
    QCOMPARE(CIPv6Address(source), CIPv6Address());
    QCOMPARE(log.messages(), (QStringList{warning, warning}));
}

void tst_CIPv6Address::textConstructorStartsFromZero()
{
    QCOMPARE(CIPv6Address(text("1::2:3:4:5:6:7")).str(), text("1:0:2:3:4:5:6:7"));
    QCOMPARE(CIPv6Address(text("::1")).str(), text("0:0:0:0:0:0:0:0"));
}

void tst_CIPv6Address::print_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("zeros") << ZEROS << text("0:0:0:0:0:0:0:0");
    QTest::newRow("counted") << COUNTED << text("100:302:504:706:908:b0a:d0c:f0e");
    QTest::newRow("ones") << QByteArray(16, '\xFF') << text("ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff");
    QTest::newRow("one to four digits")
        << fromHexText("0100 1000 0001 0010 0a00 ab00 bc0a cdab") << text("1:10:100:1000:a:ab:abc:abcd");
}

void tst_CIPv6Address::print()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const CIPv6Address address(bytes);
    QCOMPARE(address.str(), expected);
    const QString converted = address;
    QCOMPARE(converted, expected);
    QCOMPARE(CIPv6Address(expected), address);
    QCOMPARE(CIPv6Address(expected.toUpper()), address);
}

void tst_CIPv6Address::byteArrays_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 15, 16, 17, 32}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void tst_CIPv6Address::byteArrays()
{
    QFETCH(int, size);
    const MessageLog log;
    const QByteArray bytes(size, '\xAB');
    const QByteArray expected = size == 16 ? bytes : COUNTED;
    CIPv6Address address(COUNTED);
    address.setAddress(bytes);
    QCOMPARE(address.byteArray(), expected);
    address.setAddress(COUNTED);
    address = bytes;
    QCOMPARE(address.byteArray(), expected);
    QCOMPARE(CIPv6Address(bytes).byteArray(), size == 16 ? bytes : ZEROS);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CIPv6Address::pointers()
{
    unsigned char bytes[16];
    std::copy(COUNTED.begin(), COUNTED.end(), bytes);
    CIPv6Address address(bytes);
    QCOMPARE(address.byteArray(), COUNTED);
    address.setAddress(&address[0]);
    QCOMPARE(address.byteArray(), COUNTED);
    const unsigned char* const none = nullptr;
    address.setAddress(none);
    QCOMPARE(address.byteArray(), COUNTED);
    QCOMPARE(CIPv6Address(none).byteArray(), ZEROS);
    bytes[0] = 0x42;
    address.setAddress(bytes);
    QCOMPARE(int(address[0]), 0x42);
}

void tst_CIPv6Address::variants_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<QByteArray>("expected"); // starting from COUNTED
    QTest::newRow("16 bytes") << QVariant(QByteArray(16, '\x7')) << QByteArray(16, '\x7');
    QTest::newRow("15 bytes") << QVariant(QByteArray(15, '\x7')) << COUNTED;
    QTest::newRow("null byte array") << QVariant(QByteArray()) << COUNTED;
    QTest::newRow("invalid") << QVariant() << ZEROS;
    QTest::newRow("integer") << QVariant(16) << ZEROS;
    QTest::newRow("address as a text") << QVariant(text("1:2:3:4:5:6:7:8")) << ZEROS;
    QTest::newRow("text of 16 characters") << QVariant(text("0123456789abcdef")) << ZEROS;
    QTest::newRow("address object") << QVariant::fromValue(CIPv6Address(COUNTED)) << ZEROS;
}

void tst_CIPv6Address::variants()
{
    QFETCH(QVariant, variant);
    QFETCH(QByteArray, expected);
    const MessageLog log;
    CIPv6Address address(COUNTED);
    address.setAddress(variant);
    QCOMPARE(address.byteArray(), expected);
    address.setAddress(COUNTED);
    address = variant;
    QCOMPARE(address.byteArray(), expected);
    QCOMPARE(CIPv6Address(variant).byteArray(), expected == COUNTED ? ZEROS : expected);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CIPv6Address::toVariant()
{
    const QVariant variant = CIPv6Address(COUNTED);
    QCOMPARE(variant.userType(), int(QMetaType::QByteArray));
    QCOMPARE(variant.toByteArray(), COUNTED);
}

void tst_CIPv6Address::elements()
{
    CIPv6Address address(COUNTED);
    for (int i = 0; i < 16; ++i) {
        QCOMPARE(int(address[i]), i);
        address[i] = static_cast<unsigned char>(0xF0 + i);
    }
    const CIPv6Address& constant = address;
    QCOMPARE(&constant[15], &address[15]);
    QCOMPARE(address.byteArray().toHex(), QByteArray("f0f1f2f3f4f5f6f7f8f9fafbfcfdfeff"));
    address.clear();
    QCOMPARE(address, CIPv6Address());
}

void tst_CIPv6Address::comparison()
{
    const CIPv6Address address(COUNTED);
    for (int i = 0; i < 16; ++i) {
        CIPv6Address other(address);
        QVERIFY(other == address);
        QCOMPARE(qHash(other, 9U), qHash(address, 9U));
        other[i] = 0xEE;
        QVERIFY(other != address);
        QVERIFY(!(other == address));
        QVERIFY(qHash(other) != qHash(address));
        other = address;
        QVERIFY(!(other != address));
    }
}

void tst_CIPv6Address::streamBytes()
{
    const CIPv6Address address(COUNTED);
    for (const QDataStream::ByteOrder order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
        QCOMPARE(streamed(address, order), COUNTED);
        CIPv6Address back;
        QCOMPARE(unstreamed(COUNTED + "more", back, order), QDataStream::Ok);
        QCOMPARE(back, address);
    }
}

void tst_CIPv6Address::shortStreams()
{
    for (int length = 0; length < 16; ++length) {
        CIPv6Address address(QByteArray(16, '\xAB'));
        QCOMPARE(unstreamed(COUNTED.left(length), address), QDataStream::ReadPastEnd);
        QCOMPARE(address.byteArray(), COUNTED.left(length) + ZEROS.mid(length));
    }
}

void tst_CIPv6Address::metaTypeAndDebug()
{
    const CIPv6Address address(text("fe80:0:0:0:0:0:0:1"));
    QCOMPARE(QVariant::fromValue(address).value<CIPv6Address>(), address);
    const QScopedArrayPointer<char> shown(QTest::toString(address));
    QCOMPARE(QByteArray(shown.data()), QByteArray("CIPv6Address(fe80:0:0:0:0:0:0:1)"));
}

QTEST_APPLESS_MAIN(tst_CIPv6Address)
#include "tst_CIPv6Address.moc"
