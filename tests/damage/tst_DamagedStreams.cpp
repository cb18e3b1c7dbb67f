#include <core/text/CDateTime.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/tlxCore.h>
#include <core/tlxCoreQTest.h>
#include <tests/damage/DamageRows.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>

#include <QtTest>

namespace {

constexpr auto BIG = QDataStream::BigEndian;
constexpr auto LITTLE = QDataStream::LittleEndian;

// Positions of a stream that get every value: type numbers, lengths, names of types.
constexpr int HEAD = 40;

// Qt reads a text in steps of 1 MiB of units, each rounded up to a power of two, whatever length the stream states: the
// most that a lie can cost.
constexpr qint64 STEP = 4 * 1024 * 1024;
constexpr qint64 SMALL = 32 * 1024;

struct SReading
{
    QDataStream::Status status = QDataStream::Ok;
    bool atEnd = false;
    QByteArray again; ///< The value in a stream once more.
    QByteArray twice; ///< The value read from that, in a stream.
    QString message;  ///< What CStr says of the status.
    bool saysOk = false;
};

using Reader = SReading (*)(const QByteArray& bytes, QDataStream::ByteOrder order);

template <typename T>
SReading readAs(const QByteArray& bytes, QDataStream::ByteOrder order)
{
    SReading reading;
    T value;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(order);
    stream >> value;
    reading.status = stream.status();
    reading.atEnd = stream.atEnd();
    reading.saysOk = CStr::inStreamStatus(stream, QStringLiteral("golden"), reading.message);
    if (reading.status == QDataStream::Ok) {
        QString shown;
        QDebug(&shown) << value;
        reading.again = streamed(value, order);
        T second;
        unstreamed(reading.again, second, order);
        reading.twice = streamed(second, order);
    }
    return reading;
}

QByteArray deviceFile(const char* name)
{
    QFile file(QStringLiteral(TLX_TEST_DATA "/devices/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray hex(const char* text)
{
    return fromHexText(text);
}

} // namespace

Q_DECLARE_METATYPE(Reader)

/// Every stream format with each byte changed and cut at every length.
class tst_DamagedStreams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void golden_data();
    void golden();
    void flipped_data();
    void flipped();
    void cut_data();
    void cut();
    void zone();
    void oldTypeNumbers();
    void countsMemory();
};

void tst_DamagedStreams::golden_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("order");
    QTest::addColumn<Reader>("read");

    const auto row = [](const char* name, const QByteArray& bytes, Reader read,
                        QDataStream::ByteOrder order = BIG) {
        QTest::newRow(name) << bytes << int(order) << read;
    };
    const QByteArray text32 = QByteArray("\0a\0x\0e\0s", 8) + QByteArray(56, '\0');
    const QByteArray record = hex("01020304 0506 07e4");
    const QByteArray noon = hex("000000000025857a 02932e00");
    const Reader variant = readAs<CVariant>;
    row("variant U16", hex("00000024 00 001f 00000003"), variant);
    row("variant U16, little-endian", hex("24000000 00 1f00 03000000"), variant, LITTLE);
    row("variant F64", hex("00000006 00 3ff8000000000000 0000000a"), variant);
    row("variant CHARSTR64", hex("0000000c 00 00000003 616263 0000000d"), variant);
    row("variant STRING32",
        hex("00000400 00 0000000a") + QByteArray("CString32", 10) + text32 + hex("0000000c"), variant);
    row("variant DATETIME",
        hex("00000400 00 00000013") + QByteArray("NTypes::tsDateTime", 19) + record + hex("00000010"),
        variant);
    row("variant of a text", hex("0000000a 00 00000004 0061 0062 0000000c"), variant);
    row("variant of a date", hex("00000010 00") + noon + hex("01 00000010"), variant);
    row("CString32", text32, readAs<CString32>);
    row("NTypes::tsDateTime", record, readAs<NTypes::tsDateTime>);
    row("CTime", hex("00000000000005dc 00000003"), readAs<CTime>);
    row("CDateTime in UTC", noon + hex("01"), readAs<CDateTime>);
    row("CDateTime with an offset", noon + hex("02 00000e10"), readAs<CDateTime>);
    row("CDeviceHardwareId", hex("00000002 0041 000c 0003 0007 00000008 004e 0061 006d 0065"),
        readAs<CDeviceHardwareId>);
    row("CMotorBaseName", hex("00000008 0041 0043 004d 0045 00000004 004d 0031 00000002 0037"),
        readAs<CMotorBaseName>);
    row("CIPv6Address", hex("20010db8 00000000 00000000 00000001"), readAs<CIPv6Address>);
    row("CDeviceList", deviceFile("hall.devices"), readAs<CDeviceList>);
    row("CDeviceList, little-endian", deviceFile("hall-little-endian.devices"), readAs<CDeviceList>, LITTLE);
}

void tst_DamagedStreams::golden()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, order);
    QFETCH(Reader, read);

    const SReading reading = read(bytes, static_cast<QDataStream::ByteOrder>(order));
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(reading.status, QDataStream::Ok);
    QVERIFY(reading.atEnd && reading.saysOk);
    QCOMPARE(reading.again, bytes);
}

void tst_DamagedStreams::flipped_data()
{
    golden_data();
}

// What was read has a stream of its own that gives the same value again. An end that came too early is the end.
void tst_DamagedStreams::flipped()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, order);
    QFETCH(Reader, read);
    const MessageLog log;
    QByteArray wrong;
    const auto check = [&](const QByteArray& damaged, int at) {
        SReading reading;
        const qint64 peak =
            peakOf([&] { reading = read(damaged, static_cast<QDataStream::ByteOrder>(order)); });
        const bool ok = reading.status == QDataStream::Ok;
        const bool known = ok || reading.status == QDataStream::ReadPastEnd
                           || reading.status == QDataStream::ReadCorruptData;
        const bool right = known && reading.saysOk == ok && reading.again == reading.twice
                           && (reading.status != QDataStream::ReadPastEnd || reading.atEnd)
                           && peak <= STEP + SMALL;
        if (!right && wrong.isEmpty()) {
            wrong = "byte " + QByteArray::number(at) + ", status " + QByteArray::number(int(reading.status))
                    + ", peak " + QByteArray::number(peak) + ": " + damaged.toHex();
        }
    };

    forEachFlippedByte(
        bytes, [](int at) { return at < HEAD; }, check);
    QCOMPARE(wrong, QByteArray());
    QCOMPARE(log.messages(), QStringList());
}

void tst_DamagedStreams::cut_data()
{
    golden_data();
}

void tst_DamagedStreams::cut()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, order);
    QFETCH(Reader, read);

    for (int length = 0; length < bytes.size(); ++length) {
        SReading reading;
        const QByteArray left = bytes.left(length);
        const qint64 peak = peakOf([&] { reading = read(left, static_cast<QDataStream::ByteOrder>(order)); });
        QVERIFY2(reading.status == QDataStream::ReadPastEnd || reading.status == QDataStream::ReadCorruptData,
                 QByteArray::number(length).constData());
        QVERIFY(!reading.saysOk && !reading.message.isEmpty());
        QVERIFY2(peak <= SMALL, QByteArray::number(peak).constData());
    }
}

// A zone that this system does not know is corrupt: Qt's own operator crashes where it writes one. What Qt then writes of
// a zone it knows by another name is its own affair.
void tst_DamagedStreams::zone()
{
    const QByteArray bytes = hex("000000000025857a 02932e00 03 00000006 0055 0054 0043");
    QCOMPARE(readAs<CDateTime>(bytes, BIG).status, QDataStream::Ok);
    int unknown = 0;
    forEachFlippedByte(
        bytes, [](int) { return true; },
        [&](const QByteArray& damaged, int) {
            const SReading reading = readAs<CDateTime>(damaged, BIG);
            const SReading variant = readAs<CVariant>(hex("00000010 00") + damaged + hex("00000010"), BIG);
            QVERIFY(reading.saysOk == (reading.status == QDataStream::Ok));
            QVERIFY(variant.saysOk == (variant.status == QDataStream::Ok));
            unknown += reading.status == QDataStream::ReadCorruptData ? 1 : 0;
        });
    QVERIFY(unknown > 0);
    for (int length = 0; length < bytes.size(); ++length) {
        QVERIFY(!readAs<CDateTime>(bytes.left(length), BIG).saysOk);
    }
}

// The numbers of Qt 3 end at 34.
void tst_DamagedStreams::oldTypeNumbers()
{
    for (const quint32 number : {35U, 99U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        CVariant value(1);
        const QByteArray bytes = streamed(number) + QByteArray(16, '\0');
        QCOMPARE(unstreamed(bytes, value, BIG, QDataStream::Qt_3_3), QDataStream::ReadCorruptData);
        QCOMPARE(value.type(), NTypes::TYPE_UNKNOWN);
    }
}

void tst_DamagedStreams::countsMemory()
{
#ifdef TLX_COUNT_ALLOCATIONS
    const qint64 peak = peakOf([] { QByteArray(1000000, 'x').append('y'); });
    QVERIFY(peak >= 1000000);
    QVERIFY(peakOf([] {}) == 0);
#else
    QSKIP("this build has a heap of its own: memory is measured in the other builds");
#endif
}

QTEST_GUILESS_MAIN(tst_DamagedStreams)
#include "tst_DamagedStreams.moc"
