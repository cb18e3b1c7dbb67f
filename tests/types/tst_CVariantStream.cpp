#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>

#include <QtTest>

#include <algorithm>

namespace {

constexpr QDataStream::Version VERSIONS[] = {QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15};

// Type numbers of Qt 5 whose number in Qt 4 was another one.
constexpr int QT5_USER = 0x400;
constexpr int QT4_USER = 0x7F;

QByteArray groups(const QByteArray& group, int count)
{
    return QByteArray(group + ' ').repeated(count);
}

// Bytes from groups of hexadecimal digits: each group is one number, written big-endian.
QByteArray bytesOf(const QByteArray& text, QDataStream::ByteOrder order)
{
    QByteArray bytes;
    for (const QByteArray& group : text.simplified().split(' ')) {
        QByteArray number = QByteArray::fromHex(group);
        if (order == QDataStream::LittleEndian) {
            std::reverse(number.begin(), number.end());
        }
        bytes += number;
    }
    return bytes;
}

// The whole variant: type number, null flag, value, tag.
QByteArray layoutOf(int number, const QByteArray& value, quint32 tag, QDataStream::ByteOrder order)
{
    const QByteArray head = QByteArray::number(number, 16).rightJustified(8, '0') + " 00 ";
    return bytesOf(head + value + ' ' + QByteArray::number(tag, 16).rightJustified(8, '0'), order);
}

} // namespace

/// The stream format of CVariant, against bytes written by hand. What is refused: tst_CVariantStreamHostile.
class tst_CVariantStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsBeforeAnythingElse();
    void layout_data();
    void layout();
    void unknownLayout_data();
    void unknownLayout();
    void truncated_data();
    void truncated();
    void tagIsStoredUnchecked_data();
    void tagIsStoredUnchecked();
    void nullFlag();
    void defaultKeepsItsPayload();
    void severalInARow();
    void statusStaysBad();
};

void tst_CVariantStream::readsBeforeAnythingElse()
{
    // The very first use of the library in this process: its types must be known to Qt by now.
    const QByteArray bytes =
        layoutOf(QT5_USER, "0000000a 43 53 74 72 69 6e 67 33 32 00 " + groups("0041", 1) + groups("0000", 31),
                 12, QDataStream::BigEndian);
    CVariant read;

    QCOMPARE(unstreamed(bytes, read), QDataStream::Ok);
    QCOMPARE(read.type(), NTypes::TYPE_STRING32);
    QCOMPARE(read.toStr(), QStringLiteral("A"));
}

void tst_CVariantStream::layout_data()
{
    QTest::addColumn<CVariant>("variant");
    QTest::addColumn<int>("number5");
    QTest::addColumn<int>("number4");
    QTest::addColumn<QByteArray>("value");

    const char bytes64[64] = "AB";
    const char bytes128[128] = "AB";
    const char bytes256[256] = "AB";
    const ushort units[32] = {0x20AC, 0, 0x1234};
    const QString letter = QStringLiteral("A");
    QTest::newRow("U8") << CVariant(uchar(200)) << 37 << 134 << QByteArray("c8");
    QTest::newRow("I8") << CVariant(static_cast<signed char>(-5)) << 40 << 137 << QByteArray("fb");
    QTest::newRow("U16") << CVariant(ushort(0x1234)) << 36 << 133 << QByteArray("1234");
    QTest::newRow("I16") << CVariant(short(-2)) << 33 << 130 << QByteArray("fffe");
    QTest::newRow("U32") << CVariant(0x12345678U) << 3 << 3 << QByteArray("12345678");
    QTest::newRow("I32") << CVariant(-2) << 2 << 2 << QByteArray("fffffffe");
    // Streams write single-precision numbers as doubles.
    QTest::newRow("F32") << CVariant(1.5F) << 38 << 135 << QByteArray("3ff8000000000000");
    QTest::newRow("U64") << CVariant(0x0102030405060708ULL) << 5 << 5 << QByteArray("0102030405060708");
    QTest::newRow("I64") << CVariant(-2LL) << 4 << 4 << QByteArray("fffffffffffffffe");
    QTest::newRow("F64") << CVariant(-2.0) << 6 << 6 << QByteArray("c000000000000000");
    QTest::newRow("STRING32") << CVariant(CString32(units)) << QT5_USER << QT4_USER
                              << "0000000a 43 53 74 72 69 6e 67 33 32 00 20ac 0000 1234 "
                                     + groups("0000", 29);
    QTest::newRow("STRING64") << CVariant(CString64(letter)) << QT5_USER << QT4_USER
                              << "0000000a 43 53 74 72 69 6e 67 36 34 00 0041 " + groups("0000", 63);
    QTest::newRow("STRING128") << CVariant(CString128(letter)) << QT5_USER << QT4_USER
                               << "0000000b 43 53 74 72 69 6e 67 31 32 38 00 0041 " + groups("0000", 127);
    QTest::newRow("CHARSTR64") << CVariant(bytes64) << 12 << 12 << "00000040 41 42 " + groups("00", 62);
    QTest::newRow("CHARSTR128") << CVariant(bytes128) << 12 << 12 << "00000080 41 42 " + groups("00", 126);
    QTest::newRow("CHARSTR256") << CVariant(bytes256) << 12 << 12 << "00000100 41 42 " + groups("00", 254);
    // hundredths, second, minute, hour, day, month, and the year of two bytes.
    QTest::newRow("DATETIME") << CVariant(NTypes::tsDateTime{{45, 9, 7, 13}, {5, 3, 2024}}) << QT5_USER
                              << QT4_USER
                              << QByteArray(
                                     "00000013 4e 54 79 70 65 73 3a 3a 74 73 44 61 74 65 54 69 6d 65 00 "
                                     "2d 09 07 0d 05 03 07e8");
    QTest::newRow("DATETIME of negative fields")
        << CVariant(NTypes::tsDateTime{{-1, -2, -3, -4}, {-5, -6, -7}}) << QT5_USER << QT4_USER
        << QByteArray(
               "00000013 4e 54 79 70 65 73 3a 3a 74 73 44 61 74 65 54 69 6d 65 00 ff fe fd fc fb fa fff9");
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x20AC)) << 7 << 7 << QByteArray("20ac");
    QTest::newRow("CHAR") << CVariant('A') << 12 << 12 << QByteArray("00000001 41");
}

void tst_CVariantStream::layout()
{
    QFETCH(CVariant, variant);
    QFETCH(int, number5);
    QFETCH(int, number4);
    QFETCH(QByteArray, value);
    const MessageLog log;

    for (const auto version : VERSIONS) {
        const int number = version < QDataStream::Qt_5_0 ? number4 : number5;
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const QByteArray bytes = layoutOf(number, value, variant.type(), order);
            QCOMPARE(streamed(variant, order, version).toHex(' '), bytes.toHex(' '));
            CVariant read(99);
            QCOMPARE(unstreamed(bytes, read, order, version), QDataStream::Ok);
            QCOMPARE(read.type(), variant.type());
            QCOMPARE(QVariant(read).userType(), QVariant(variant).userType());
            QCOMPARE(read, variant);
            QVERIFY(!read.isNull());
            // Also what the comparison does not see, such as units behind a terminator.
            QCOMPARE(streamed(read, order, version).toHex(' '), bytes.toHex(' '));
        }
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStream::unknownLayout_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("bytes");

    // Type number 0, null flag 1, before Qt 5 a null text, tag 0.
    QTest::newRow("4.6") << int(QDataStream::Qt_4_6) << fromHexText("00000000 01 ffffffff 00000000");
    QTest::newRow("5.0") << int(QDataStream::Qt_5_0) << fromHexText("00000000 01 00000000");
    QTest::newRow("5.15") << int(QDataStream::Qt_5_15) << fromHexText("00000000 01 00000000");
}

void tst_CVariantStream::unknownLayout()
{
    QFETCH(int, version);
    QFETCH(QByteArray, bytes);
    const auto streamVersion = static_cast<QDataStream::Version>(version);
    CVariant read(5);

    QCOMPARE(streamed(CVariant(), QDataStream::BigEndian, streamVersion).toHex(), bytes.toHex());
    QCOMPARE(unstreamed(bytes, read, QDataStream::BigEndian, streamVersion), QDataStream::Ok);
    QCOMPARE(read.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!QVariant(read).isValid());
}

void tst_CVariantStream::truncated_data()
{
    layout_data();
    QTest::newRow("UNKNOWN") << CVariant() << 0 << 0 << QByteArray();
}

void tst_CVariantStream::truncated()
{
    QFETCH(CVariant, variant);
    const MessageLog log;

    for (const auto version : VERSIONS) {
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const QByteArray bytes = streamed(variant, order, version);
            for (int length = 0; length < bytes.size(); ++length) {
                CVariant read(5);
                QCOMPARE(unstreamed(bytes.left(length), read, order, version), QDataStream::ReadPastEnd);
                QCOMPARE(read.type(), NTypes::TYPE_UNKNOWN);
                QVERIFY(!read.isValid());
            }
        }
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStream::tagIsStoredUnchecked_data()
{
    QTest::addColumn<quint32>("tag");

    for (const quint32 tag : {0U, 1U, 6U, 11U, 12U, 16U, 20U, 21U, 0x80000000U, 0xFFFFFFFFU}) {
        QTest::addRow("tag %u", tag) << tag;
    }
}

void tst_CVariantStream::tagIsStoredUnchecked()
{
    QFETCH(quint32, tag);
    const QByteArray bytes = fromHexText("00000002 00 00000105") + streamed(tag);
    CVariant read;

    QCOMPARE(unstreamed(bytes, read), QDataStream::Ok);
    QCOMPARE(quint32(read.type()), tag);
    QCOMPARE(QVariant(read), QVariant(0x105));
    QCOMPARE(streamed(read), bytes);
}

void tst_CVariantStream::nullFlag()
{
    const QByteArray bytes = fromHexText("00000002 01 00000105 00000006");
    CVariant read;

    QCOMPARE(unstreamed(bytes, read), QDataStream::Ok);
    QVERIFY(read.isNull());
    QVERIFY(read.isValid());
    QCOMPARE(read.toI32(), 0x105);
    QCOMPARE(streamed(read), bytes);
    // A new value of the same type replaces the payload in place; it is not null.
    read = 7;
    QVERIFY(!read.isNull());
    QCOMPARE(streamed(read).toHex(), QByteArray("000000020000000007"
                                                "00000006"));
}

void tst_CVariantStream::defaultKeepsItsPayload()
{
    // The 8-bit default is an int 0 under the narrow tag, in the stream, too.
    const QByteArray bytes = fromHexText("00000002 00 00000000 00000001");
    CVariant read;

    QCOMPARE(streamed(CVariant(NTypes::TYPE_U8)).toHex(), bytes.toHex());
    QCOMPARE(unstreamed(bytes, read), QDataStream::Ok);
    QCOMPARE(QVariant(read).userType(), int(QMetaType::Int));
    QCOMPARE(read.type(), NTypes::TYPE_U8);
}

void tst_CVariantStream::severalInARow()
{
    const QByteArray bytes = streamed(CVariant(5)) + streamed(CVariant('A')) + streamed(CVariant(2.5));
    QDataStream stream(bytes);
    CVariant first;
    CVariant second;
    CVariant third;
    stream >> first >> second >> third;

    QCOMPARE(stream.status(), QDataStream::Ok);
    QVERIFY(stream.atEnd());
    QCOMPARE(first, CVariant(5));
    QCOMPARE(second, CVariant('A'));
    QCOMPARE(third, CVariant(2.5));
}

void tst_CVariantStream::statusStaysBad()
{
    QDataStream stream(streamed(CVariant(5)));
    stream.setStatus(QDataStream::ReadCorruptData);
    CVariant read;
    stream >> read;

    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
}

QTEST_GUILESS_MAIN(tst_CVariantStream)
#include "tst_CVariantStream.moc"
