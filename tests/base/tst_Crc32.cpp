// The routines of CMath::crc32, which chooses one for the processor: no public call reaches the others.
#include <core/base/crc32/Crc32.h>

#include <core/text/CMath.h>

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>
#include <new>

namespace {

// The definition: one bit a step.
quint32 bitwise(quint32 crc, uchar byte)
{
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
        crc = (crc >> 1) ^ ((crc & 1U) ? 0xEDB88320U : 0U);
    }
    return crc;
}

QByteArray randomBytes(int length)
{
    QRandomGenerator random(32);
    QByteArray bytes(length, Qt::Uninitialized);
    for (char& byte : bytes) {
        byte = static_cast<char>(random.bounded(256));
    }
    return bytes;
}

// Bytes that begin at a multiple of 64; a sanitizer sees a step behind the last.
class AlignedBytes
{
public:
    explicit AlignedBytes(int size)
        : mData(static_cast<uchar*>(::operator new[](static_cast<std::size_t>(size), ALIGNMENT)))
    {}
    ~AlignedBytes() { ::operator delete[](mData, ALIGNMENT); }
    AlignedBytes(const AlignedBytes&) = delete;
    AlignedBytes& operator=(const AlignedBytes&) = delete;

    uchar* data() const { return mData; }

private:
    static constexpr std::align_val_t ALIGNMENT{64};
    uchar* mData;
};

} // namespace

class tst_Crc32 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLengthAndAddress_data();
    void everyLengthAndAddress();
    void longBytes_data();
    void longBytes();
    void inPieces_data();
    void inPieces();
    void chosen();

private:
    void addRoutines();
};

void tst_Crc32::addRoutines()
{
    QTest::addColumn<int>("routine");
    int i = 0;
    for (const NCrc32::SRoutine& routine : NCrc32::routines()) {
        QTest::newRow(routine.name) << i++;
    }
}

#define FETCH_ROUTINE()                                                                                      \
    QFETCH(int, routine);                                                                                    \
    const NCrc32::Function update = NCrc32::routines().at(static_cast<std::size_t>(routine)).function;       \
    if (!update) {                                                                                           \
        QSKIP("this processor or compiler does not have the instructions");                                  \
    }

void tst_Crc32::everyLengthAndAddress_data()
{
    addRoutines();
}

// Every length and misalignment, in memory that ends with the last byte, from two registers.
void tst_Crc32::everyLengthAndAddress()
{
    FETCH_ROUTINE()
    constexpr int LONGEST = 1100;
    const QByteArray bytes = randomBytes(LONGEST);
    for (const quint32 start : {0xFFFFFFFFU, 0x1234567U}) {
        quint32 expected = start;
        for (int length = 0; length <= LONGEST; ++length) {
            for (int misalignment = 0; misalignment < 64; ++misalignment) {
                const AlignedBytes memory(misalignment + length);
                uchar* const data = memory.data() + misalignment;
                std::memcpy(data, bytes.constData(), static_cast<std::size_t>(length));
                QCOMPARE(update(start, data, static_cast<std::size_t>(length)), expected);
            }
            if (length < LONGEST) {
                expected = bitwise(expected, static_cast<uchar>(bytes.at(length)));
            }
        }
    }
}

void tst_Crc32::longBytes_data()
{
    addRoutines();
}

void tst_Crc32::longBytes()
{
    FETCH_ROUTINE()
    const QByteArray bytes = randomBytes(300000);
    const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
    quint32 expected = 0xFFFFFFFFU;
    int length = 0;
    for (const int next : {4095, 4096, 4097, 65535, 65536, 65537, 131072 + 777, 299999, 300000}) {
        for (; length < next; ++length) {
            expected = bitwise(expected, data[length]);
        }
        QCOMPARE(update(0xFFFFFFFFU, data, static_cast<std::size_t>(length)), expected);
    }
}

void tst_Crc32::inPieces_data()
{
    addRoutines();
}

// The register carries over: two pieces give what the whole gives, wherever it is cut.
void tst_Crc32::inPieces()
{
    FETCH_ROUTINE()
    const QByteArray bytes = randomBytes(2500);
    const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
    const quint32 whole = update(0xFFFFFFFFU, data, 2500);
    for (std::size_t cut = 0; cut <= 2500; ++cut) {
        QCOMPARE(update(update(0xFFFFFFFFU, data, cut), data + cut, 2500 - cut), whole);
    }
}

// What CMath takes is the bitwise definition too, and the fastest routine that is there.
void tst_Crc32::chosen()
{
    const QByteArray bytes = randomBytes(5000);
    quint32 expected = 0xFFFFFFFFU;
    for (int length = 1; length <= bytes.size(); ++length) {
        expected = bitwise(expected, static_cast<uchar>(bytes.at(length - 1)));
        QCOMPARE(CMath::crc32(bytes.constData(), length), ~expected);
    }
    QVERIFY(NCrc32::routines().front().function == NCrc32::updatePortable);
}

QTEST_APPLESS_MAIN(tst_Crc32)
#include "tst_Crc32.moc"
