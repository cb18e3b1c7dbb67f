#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>
#include <tests/types/AnyVariant.h>

#include <QTimeZone>
#include <QtTest>

#include <limits>

namespace {

// What is left of a read: all of it must be the same whoever reads.
struct SRead
{
    QDataStream::Status status = QDataStream::Ok;
    qint64 position = 0;
    QVariant payload;
};

SRead readByQt(const QByteArray& bytes, QDataStream::Version version, QDataStream::ByteOrder order)
{
    SRead read;
    QDataStream stream(bytes);
    stream.setVersion(version);
    stream.setByteOrder(order);
    qint32 tag = 0;
    stream >> read.payload >> tag;
    read.status = stream.status();
    read.position = stream.device()->pos();
    return read;
}

SRead readByVariant(const QByteArray& bytes, QDataStream::Version version, QDataStream::ByteOrder order)
{
    SRead read;
    QDataStream stream(bytes);
    stream.setVersion(version);
    stream.setByteOrder(order);
    CVariant variant(5);
    stream >> variant;
    read.payload = variant;
    read.status = stream.status();
    read.position = stream.device()->pos();
    return read;
}

QByteArray difference(const SRead& a, const SRead& b)
{
    QByteArray text;
    text += a.status != b.status ? "status " : "";
    text += a.position != b.position ? "position " : "";
    text += a.payload.userType() != b.payload.userType() ? "type " : "";
    text += a.payload.isNull() != b.payload.isNull() ? "null " : "";
    text += streamed(a.payload) != streamed(b.payload) ? "value " : "";
    return text;
}

template <typename T>
QVariant valueOf(T value)
{
    return QVariant::fromValue(value);
}

} // namespace

/// The reader of CVariant against QVariant's own, for everything that both read.
class tst_CVariantStreamPeer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sameAsQt_data();
    void sameAsQt();
    void writesAsQt_data();
    void writesAsQt();
    void singlePrecision_data();
    void singlePrecision();
};

void tst_CVariantStreamPeer::initTestCase()
{
    // Makes the library's types known to QVariant.
    const CVariant first(NTypes::TYPE_STRING32);
    QVERIFY(first.isValid());
}

void tst_CVariantStreamPeer::sameAsQt_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("order");

    const auto row = [](const char* name, const QVariant& payload) {
        for (const auto version : {QDataStream::Qt_3_3, QDataStream::Qt_4_0, QDataStream::Qt_4_2,
                                   QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
            for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
                QTest::addRow("%s, version %d, %s", name, int(version),
                              order == QDataStream::BigEndian ? "big endian" : "little endian")
                    << payload << int(version) << int(order);
            }
        }
    };

    const QDateTime utc(QDate(2024, 3, 5), QTime(13, 7, 9, 456), Qt::UTC);
    row("invalid", QVariant());
    row("bool", QVariant(true));
    row("int", QVariant(std::numeric_limits<int>::min()));
    row("unsigned int", QVariant(std::numeric_limits<uint>::max()));
    row("long long", QVariant(std::numeric_limits<qlonglong>::min()));
    row("unsigned long long", QVariant(std::numeric_limits<qulonglong>::max()));
    row("double", QVariant(0.1));
    row("float", valueOf(0.1F));
    row("long", valueOf(-7L));
    row("unsigned long", valueOf(7UL));
    row("short", valueOf(short(-7)));
    row("unsigned short", valueOf(ushort(65535)));
    row("char", valueOf('A'));
    row("unsigned char", valueOf(uchar(200)));
    row("signed char", valueOf(static_cast<signed char>(-7)));
    row("character", QVariant(QChar(0x20AC)));
    row("text", QVariant(QString(QChar(0x20AC)) + QStringLiteral("drive")));
    row("empty text", QVariant(QStringLiteral("")));
    row("null text", QVariant(QString()));
    row("bytes", QVariant(QByteArray("A\0B", 3)));
    row("empty bytes", QVariant(QByteArray("")));
    row("null bytes", QVariant(QByteArray()));
    row("date", QVariant(QDate(2024, 3, 5)));
    row("null date", QVariant(QDate()));
    row("time", QVariant(QTime(13, 7, 9, 456)));
    row("null time", QVariant(QTime()));
    row("date-time in UTC", QVariant(utc));
    row("date-time with an offset", QVariant(utc.toOffsetFromUtc(5400)));
    row("date-time in a zone", QVariant(utc.toTimeZone(QTimeZone("Europe/Berlin"))));
    row("date-time in a custom zone",
        QVariant(
            utc.toTimeZone(QTimeZone("Drive/Own", 5400, QStringLiteral("Drive"), QStringLiteral("DR")))));
    row("local date-time", QVariant(QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9))));
    row("CString32", valueOf(CString32(QStringLiteral("drive"))));
    row("CString64", valueOf(CString64(QStringLiteral("drive"))));
    row("CString128", valueOf(CString128(QStringLiteral("drive"))));
    row("date-time record", valueOf(NTypes::tsDateTime{{45, 9, 7, 13}, {5, 3, 2024}}));
    row("null int", QVariant(QVariant::Int));
    row("null text by type", QVariant(QVariant::String));
    row("null bytes by type", QVariant(QVariant::ByteArray));
}

void tst_CVariantStreamPeer::sameAsQt()
{
    QFETCH(QVariant, payload);
    QFETCH(int, version);
    QFETCH(int, order);
    const auto streamVersion = static_cast<QDataStream::Version>(version);
    const auto byteOrder = static_cast<QDataStream::ByteOrder>(order);
    // Takes what QVariant says of names that end too early.
    const MessageLog log;

    QByteArray bytes =
        streamed(payload, byteOrder, streamVersion) + streamed(qint32(6), byteOrder, streamVersion);
    for (int length = bytes.size(); length >= 0; --length) {
        const QByteArray part = bytes.left(length);
        const QByteArray wrong = difference(readByVariant(part, streamVersion, byteOrder),
                                            readByQt(part, streamVersion, byteOrder));
        QVERIFY2(wrong.isEmpty(), QByteArray(wrong + "differs for " + part.toHex(' ')).constData());
    }
    if (streamVersion < QDataStream::Qt_4_2) {
        return;
    }
    // Any bit of the null flag may be set.
    for (const char flag : {'\x01', '\x02', '\xff'}) {
        bytes[4] = flag;
        QCOMPARE(difference(readByVariant(bytes, streamVersion, byteOrder),
                            readByQt(bytes, streamVersion, byteOrder)),
                 QByteArray());
    }
}

void tst_CVariantStreamPeer::writesAsQt_data()
{
    sameAsQt_data();
}

void tst_CVariantStreamPeer::writesAsQt()
{
    QFETCH(QVariant, payload);
    QFETCH(int, version);
    QFETCH(int, order);
    const auto streamVersion = static_cast<QDataStream::Version>(version);
    const auto byteOrder = static_cast<QDataStream::ByteOrder>(order);
    const CVariant variant = anyVariant(payload, NTypes::TYPE_I32);

    const QByteArray expected =
        streamed(QVariant(variant), byteOrder, streamVersion) + streamed(qint32(6), byteOrder, streamVersion);
    QCOMPARE(streamed(variant, byteOrder, streamVersion).toHex(' '), expected.toHex(' '));
}

void tst_CVariantStreamPeer::singlePrecision_data()
{
    QTest::addColumn<QVariant>("payload");

    QTest::newRow("float") << valueOf(0.1F);
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("double beyond a float") << QVariant(1e300);
}

void tst_CVariantStreamPeer::singlePrecision()
{
    QFETCH(QVariant, payload);
    const CVariant variant = anyVariant(payload, NTypes::TYPE_I32);
    QByteArray bytes;
    QByteArray expected;
    QDataStream ours(&bytes, QIODevice::ReadWrite);
    QDataStream qts(&expected, QIODevice::WriteOnly);
    ours.setFloatingPointPrecision(QDataStream::SinglePrecision);
    qts.setFloatingPointPrecision(QDataStream::SinglePrecision);
    ours << variant;
    qts << payload << qint32(6);

    QCOMPARE(bytes.toHex(' '), expected.toHex(' '));
    CVariant read;
    ours.device()->seek(0);
    ours >> read;
    QCOMPARE(ours.status(), QDataStream::Ok);
    QCOMPARE(QVariant(read).userType(), payload.userType());
    QCOMPARE(QVariant(read).toFloat(), payload.toFloat());
}

QTEST_GUILESS_MAIN(tst_CVariantStreamPeer)
#include "tst_CVariantStreamPeer.moc"
