#include <core/base/QtStreams.h>
#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>
#include <tests/support/StreamBytes.h>

#include <QBuffer>
#include <QtTest>

#include <algorithm>

namespace {

struct SForeign
{
    qint32 number = 0;
};

int foreignReads = 0;

QDataStream& operator<<(QDataStream& stream, const SForeign& value)
{
    return stream << value.number;
}

QDataStream& operator>>(QDataStream& stream, SForeign& value)
{
    ++foreignReads;
    return stream >> value.number;
}

constexpr QDataStream::Version VERSIONS[] = {QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15};

// What a payload may be, by today's numbers.
const QVector<quint32> READ_TYPES = {QMetaType::UnknownType, QMetaType::Bool,     QMetaType::Int,
                                     QMetaType::UInt,        QMetaType::LongLong, QMetaType::ULongLong,
                                     QMetaType::Double,      QMetaType::QChar,    QMetaType::QString,
                                     QMetaType::QByteArray,  QMetaType::QDate,    QMetaType::QTime,
                                     QMetaType::QDateTime,   QMetaType::Long,     QMetaType::Short,
                                     QMetaType::Char,        QMetaType::ULong,    QMetaType::UShort,
                                     QMetaType::UChar,       QMetaType::Float,    QMetaType::SChar};

quint32 numberInQt4(quint32 type)
{
    return type >= QMetaType::VoidStar && type <= QMetaType::SChar ? type + 97 : type;
}

// A stream of a user type: number, null flag, name as it stands, four more bytes and a tag.
QByteArray userType(quint32 length, const QByteArray& name)
{
    return fromHexText("00000400 00") + streamed(length) + name + fromHexText("00000005 0000000c");
}

// A device without seeking, which hands out what came in so far.
class SequentialDevice : public QIODevice
{
public:
    explicit SequentialDevice(const QByteArray& bytes)
        : mBytes(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return mBytes.size() + QIODevice::bytesAvailable(); }
    void arrive(const QByteArray& bytes) { mBytes += bytes; }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        const int count = static_cast<int>(std::min<qint64>(size, mBytes.size()));
        std::copy_n(mBytes.constData(), count, data);
        mBytes.remove(0, count);
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray mBytes;
};

} // namespace

Q_DECLARE_METATYPE(SForeign)

/// Streams that no variant wrote: refusals, lying lengths, other devices.
class tst_CVariantStreamHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void otherTypeNumbers_data();
    void otherTypeNumbers();
    void userTypeNames_data();
    void userTypeNames();
    void foreignTypeIsNotRead();
    void lyingLengths_data();
    void lyingLengths();
    void refusalStopsAtTheHead();
    void randomBytes();
    void sequentialDevice();
    void transaction();
};

void tst_CVariantStreamHostile::otherTypeNumbers_data()
{
    QTest::addColumn<int>("version");

    QTest::newRow("4.6") << int(QDataStream::Qt_4_6);
    QTest::newRow("5.0") << int(QDataStream::Qt_5_0);
    QTest::newRow("5.15") << int(QDataStream::Qt_5_15);
}

void tst_CVariantStreamHostile::otherTypeNumbers()
{
    QFETCH(int, version);
    const auto streamVersion = static_cast<QDataStream::Version>(version);
    const bool qt4 = streamVersion < QDataStream::Qt_5_0;
    QVector<quint32> allowed;
    for (const quint32 type : READ_TYPES) {
        // Qt takes today's numbers in a stream of Qt 4, too.
        allowed << type << (qt4 ? numberInQt4(type) : type);
    }
    QVector<quint32> numbers{0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    for (quint32 number = 0; number < 2000; ++number) {
        numbers << number;
    }
    const MessageLog log;
    int refused = 0;
    for (const quint32 number : numbers) {
        // The value claims two thousand million elements.
        const QByteArray bytes = streamed(number) + fromHexText("00 7fffffff") + QByteArray(100, '\x7f');
        CVariant read(5);
        const QDataStream::Status status = unstreamed(bytes, read, QDataStream::BigEndian, streamVersion);
        if (!allowed.contains(number)) {
            QVERIFY2(status == QDataStream::ReadCorruptData, QByteArray::number(number).constData());
            QCOMPARE(read.type(), NTypes::TYPE_UNKNOWN);
            QVERIFY(!QVariant(read).isValid());
            ++refused;
        }
    }
    QCOMPARE(refused, numbers.size() - (qt4 ? 29 : 21));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStreamHostile::userTypeNames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("status");

    const int corrupt = QDataStream::ReadCorruptData;
    const int pastEnd = QDataStream::ReadPastEnd;
    QTest::newRow("a registered foreign type") << userType(9, QByteArray("SForeign\0", 9)) << corrupt;
    QTest::newRow("a container by its name") << userType(12, QByteArray("QVariantMap\0", 12)) << corrupt;
    QTest::newRow("a list by its name") << userType(16, QByteArray("QList<QVariant>\0", 16)) << corrupt;
    QTest::newRow("a number by its name") << userType(4, QByteArray("int\0", 4)) << corrupt;
    QTest::newRow("a type that nobody knows") << userType(6, QByteArray("Drive\0", 6)) << corrupt;
    QTest::newRow("other case") << userType(10, QByteArray("CSTRING32\0", 10)) << corrupt;
    QTest::newRow("one letter more") << userType(11, QByteArray("CString32x\0", 11)) << corrupt;
    QTest::newRow("one letter less") << userType(9, QByteArray("CString3\0", 9)) << corrupt;
    QTest::newRow("no name") << userType(0, QByteArray()) << corrupt;
    QTest::newRow("null name") << userType(0xFFFFFFFF, QByteArray()) << corrupt;
    QTest::newRow("length of 2 GiB") << userType(0x7FFFFFFF, QByteArray("CString32\0", 10)) << corrupt;
    QTest::newRow("length of 100 bytes that are there") << userType(100, QByteArray(100, 'C')) << corrupt;
    QTest::newRow("ends inside the name") << userType(31, QByteArray()).left(20) << pastEnd;
}

void tst_CVariantStreamHostile::userTypeNames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, status);
    NQtCompat::registerWithStream<SForeign>();
    const MessageLog log;
    CVariant read(5);

    QCOMPARE(int(unstreamed(bytes, read)), status);
    QCOMPARE(read.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(!QVariant(read).isValid());
    CVariant old(5);
    QCOMPARE(int(unstreamed(bytes, old, QDataStream::BigEndian, QDataStream::Qt_4_6)), status);
    QCOMPARE(old.type(), NTypes::TYPE_UNKNOWN);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStreamHostile::foreignTypeIsNotRead()
{
    NQtCompat::registerWithStream<SForeign>();
    const QByteArray bytes = streamed(QVariant::fromValue(SForeign())) + streamed(qint32(6));
    QVariant control;
    QCOMPARE(unstreamed(bytes, control), QDataStream::Ok);
    QCOMPARE(foreignReads, 1);
    CVariant read;

    QCOMPARE(unstreamed(bytes, read), QDataStream::ReadCorruptData);
    QCOMPARE(foreignReads, 1);
}

void tst_CVariantStreamHostile::lyingLengths_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("status");

    const int corrupt = QDataStream::ReadCorruptData;
    const int pastEnd = QDataStream::ReadPastEnd;
    QTest::newRow("bytes: 2 of 3") << fromHexText("0000000c 00 00000003 4142") << pastEnd;
    QTest::newRow("bytes: 1 GiB less 1") << fromHexText("0000000c 00 3fffffff 4142") << pastEnd;
    QTest::newRow("bytes: 1 GiB") << fromHexText("0000000c 00 40000000 4142") << corrupt;
    QTest::newRow("bytes: 4 GiB less 2") << fromHexText("0000000c 00 fffffffe 4142") << corrupt;
    QTest::newRow("text: 1 GiB") << fromHexText("0000000a 00 40000000 00410042") << pastEnd;
    QTest::newRow("text: 4 GiB less 2") << fromHexText("0000000a 00 fffffffe 00410042") << pastEnd;
    QTest::newRow("text: odd number of bytes") << fromHexText("0000000a 00 00000003 00410042") << corrupt;
    QTest::newRow("date-time of time spec 127")
        << fromHexText("00000010 00 0000000000258ad7 02d0aa10 7f 00000010") << corrupt;
    QTest::newRow("date-time in a zone that is nowhere")
        << fromHexText("00000010 00 0000000000258ad7 02d0aa10 03 00000006 004e 004f 0058 00000010")
        << corrupt;
    QTest::newRow("text of Qt 4's invalid variant") << fromHexText("00000000 01 7ffffffe 0041") << pastEnd;
}

void tst_CVariantStreamHostile::lyingLengths()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, status);
    const MessageLog log;

    CVariant read(5);
    const auto version = bytes.startsWith(QByteArray(4, '\0')) ? QDataStream::Qt_4_6 : QDataStream::Qt_5_15;
    QCOMPARE(int(unstreamed(bytes, read, QDataStream::BigEndian, version)), status);
    QCOMPARE(read.type(), NTypes::TYPE_UNKNOWN);
    QVERIFY(QVariant(read).toByteArray().isEmpty());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStreamHostile::refusalStopsAtTheHead()
{
    QByteArray bytes = fromHexText("00000009 00 00000002 00000005 00000006");
    QDataStream stream(bytes);
    CVariant read;
    stream >> read;

    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QCOMPARE(stream.device()->pos(), qint64(5));
}

void tst_CVariantStreamHostile::randomBytes()
{
    quint32 state = 20240305;
    const auto next = [&state] {
        state = state * 1664525 + 1013904223;
        return state >> 16;
    };
    const MessageLog log;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = streamed(numberInQt4(next() % 60)) + fromHexText("00");
        for (quint32 i = next() % 40; i > 0; --i) {
            bytes += static_cast<char>(next() % 3 == 0 ? next() : 0);
        }
        for (const auto version : VERSIONS) {
            CVariant read;
            const QDataStream::Status status = unstreamed(bytes, read, QDataStream::BigEndian, version);
            QVERIFY(status == QDataStream::Ok || read.type() == NTypes::TYPE_UNKNOWN);
            QVERIFY(read.toStr().size() <= bytes.size() + 64);
        }
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CVariantStreamHostile::sequentialDevice()
{
    SequentialDevice device(streamed(CVariant(CString64(QStringLiteral("drive")))) + streamed(CVariant('A')));
    QDataStream stream(&device);
    CVariant first;
    CVariant second;
    stream >> first >> second;

    QCOMPARE(stream.status(), QDataStream::Ok);
    QCOMPARE(first, CVariant(CString64(QStringLiteral("drive"))));
    QCOMPARE(second, CVariant('A'));
}

void tst_CVariantStreamHostile::transaction()
{
    const CVariant sent(CString64(QStringLiteral("drive")));
    const QByteArray bytes = streamed(sent);
    SequentialDevice device{QByteArray()};
    QDataStream stream(&device);
    for (int i = 0; i < bytes.size(); ++i) {
        CVariant read;
        stream.startTransaction();
        stream >> read;
        QVERIFY(!stream.commitTransaction());
        QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
        device.arrive(bytes.mid(i, 1));
    }
    CVariant read;
    stream.startTransaction();
    stream >> read;

    QVERIFY(stream.commitTransaction());
    QCOMPARE(read, sent);
}

QTEST_GUILESS_MAIN(tst_CVariantStreamHostile)
#include "tst_CVariantStreamHostile.moc"
