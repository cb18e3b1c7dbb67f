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

    const QDateTime utc(QDate(2024, 3, 5), QTime(13, 7, 9, 456), Qt::UTC);
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("bool") << QVariant(true);
    QTest::newRow("int") << QVariant(std::numeric_limits<int>::min());
    QTest::newRow("unsigned int") << QVariant(std::numeric_limits<uint>::max());
    QTest::newRow("long long") << QVariant(std::numeric_limits<qlonglong>::min());
    QTest::newRow("unsigned long long") << QVariant(std::numeric_limits<qulonglong>::max());
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("float") << valueOf(0.1F);
    QTest::newRow("long") << valueOf(-7L);
    QTest::newRow("unsigned long") << valueOf(7UL);
    QTest::newRow("short") << valueOf(short(-7));
    QTest::newRow("unsigned short") << valueOf(ushort(65535));
    QTest::newRow("char") << valueOf('A');
    QTest::newRow("unsigned char") << valueOf(uchar(200));
    QTest::newRow("signed char") << valueOf(static_cast<signed char>(-7));
    QTest::newRow("character") << QVariant(QChar(0x20AC));
    QTest::newRow("text") << QVariant(QString(QChar(0x20AC)) + QStringLiteral("drive"));
    QTest::newRow("empty text") << QVariant(QStringLiteral(""));
    QTest::newRow("null text") << QVariant(QString());
    QTest::newRow("bytes") << QVariant(QByteArray("A\0B", 3));
    QTest::newRow("empty bytes") << QVariant(QByteArray(""));
    QTest::newRow("null bytes") << QVariant(QByteArray());
    QTest::newRow("date") << QVariant(QDate(2024, 3, 5));
    QTest::newRow("null date") << QVariant(QDate());
    QTest::newRow("time") << QVariant(QTime(13, 7, 9, 456));
    QTest::newRow("null time") << QVariant(QTime());
    QTest::newRow("date-time in UTC") << QVariant(utc);
    QTest::newRow("date-time with an offset") << QVariant(utc.toOffsetFromUtc(5400));
    QTest::newRow("date-time in a zone") << QVariant(utc.toTimeZone(QTimeZone("Europe/Berlin")));
    QTest::newRow("date-time in a custom zone")
        << QVariant(utc.toTimeZone(QTimeZone("Drive", 5400, QStringLiteral("Drive"), QStringLiteral("DR"))));
    QTest::newRow("local date-time") << QVariant(QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9)));
    QTest::newRow("CString32") << valueOf(CString32(QStringLiteral("drive")));
    QTest::newRow("CString64") << valueOf(CString64(QStringLiteral("drive")));
    QTest::newRow("CString128") << valueOf(CString128(QStringLiteral("drive")));
    QTest::newRow("date-time record") << valueOf(NTypes::tsDateTime{{45, 9, 7, 13}, {5, 3, 2024}});
    QTest::newRow("null int") << QVariant(QVariant::Int);
    QTest::newRow("null text by type") << QVariant(QVariant::String);
    QTest::newRow("null bytes by type") << QVariant(QVariant::ByteArray);
}

void tst_CVariantStreamPeer::sameAsQt()
{
    QFETCH(QVariant, payload);
    // Takes what QVariant says of names that end too early.
    const MessageLog log;

    for (const auto version : {QDataStream::Qt_3_3, QDataStream::Qt_4_0, QDataStream::Qt_4_2,
                               QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            QByteArray bytes = streamed(payload, order, version) + streamed(qint32(6), order, version);
            for (int length = bytes.size(); length >= 0; --length) {
                const QByteArray part = bytes.left(length);
                const QByteArray wrong =
                    difference(readByVariant(part, version, order), readByQt(part, version, order));
                QVERIFY2(wrong.isEmpty(),
                         QByteArray(wrong + "differs at version " + QByteArray::number(int(version)) + " for "
                                    + part.toHex(' '))
                             .constData());
            }
            if (version < QDataStream::Qt_4_2) {
                continue;
            }
            // Any bit of the null flag may be set.
            for (const char flag : {'\x01', '\x02', '\xff'}) {
                bytes[4] = flag;
                QCOMPARE(difference(readByVariant(bytes, version, order), readByQt(bytes, version, order)),
                         QByteArray());
            }
        }
    }
}

void tst_CVariantStreamPeer::writesAsQt_data()
{
    sameAsQt_data();
}

void tst_CVariantStreamPeer::writesAsQt()
{
    QFETCH(QVariant, payload);
    const CVariant variant = anyVariant(payload, 6);

    for (const auto version : {QDataStream::Qt_3_3, QDataStream::Qt_4_0, QDataStream::Qt_4_2,
                               QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const QByteArray expected =
                streamed(QVariant(variant), order, version) + streamed(qint32(6), order, version);
            QCOMPARE(streamed(variant, order, version).toHex(' '), expected.toHex(' '));
        }
    }
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
    const CVariant variant = anyVariant(payload, 6);
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
