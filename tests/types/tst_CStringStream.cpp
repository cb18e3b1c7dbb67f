#include <core/tlxCoreQTest.h>
#include <tests/support/StreamBytes.h>
#include <tests/types/FixedStrings.h>

#include <QBuffer>

// The stream of a fixed-length string is its units, one after the other, each as a 16-bit integer.
class tst_CStringStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_data() { addFixedStringRows(); }
    void bytes();
    void everyVersion_data() { addFixedStringRows(); }
    void everyVersion();
    void readDetaches_data() { addFixedStringRows(); }
    void readDetaches();
    void truncated_data() { addFixedStringRows(); }
    void truncated();
    void followsStatus_data() { addFixedStringRows(); }
    void followsStatus();
    void failingDevice_data() { addFixedStringRows(); }
    void failingDevice();
    void noDevice_data() { addFixedStringRows(); }
    void noDevice();
    void sequence();
};

namespace {

// Takes so many bytes, then fails.
class FullDevice : public QBuffer
{
public:
    explicit FullDevice(qint64 room)
        : mRoom(room)
    {}

protected:
    qint64 writeData(const char* data, qint64 size) override
    {
        return QBuffer::writeData(data, std::min(size, mRoom - pos()));
    }

private:
    qint64 mRoom;
};

} // namespace

void tst_CStringStream::bytes()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String text(QStringLiteral("abcdef"));
        text = QString(QChar(0x1234)) + QChar(0xFFEE);
        const QByteArray rest(2 * row.UNITS - 12, '\0');
        const QByteArray big = fromHexText("1234 ffee 0000 0064 0065 0066") + rest;
        const QByteArray little = fromHexText("3412 eeff 0000 6400 6500 6600") + rest;
        QCOMPARE(streamed(text, QDataStream::BigEndian), big);
        QCOMPARE(streamed(text, QDataStream::LittleEndian), little);
        String read(letters(row.UNITS));
        QCOMPARE(unstreamed(big, read, QDataStream::BigEndian), QDataStream::Ok);
        QCOMPARE(read, text);
        read = letters(row.UNITS);
        QCOMPARE(unstreamed(little, read, QDataStream::LittleEndian), QDataStream::Ok);
        QCOMPARE(read, text);
    });
}

void tst_CStringStream::everyVersion()
{
    forRow([](auto row) {
        const typename decltype(row)::Type text(letters(row.UNITS));
        const QByteArray expected = streamed(text);
        for (int version = QDataStream::Qt_1_0; version <= QDataStream::Qt_5_15; ++version) {
            QCOMPARE(streamed(text, QDataStream::BigEndian, QDataStream::Version(version)), expected);
        }
    });
}

void tst_CStringStream::readDetaches()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String text(QStringLiteral("before"));
        const String copy(text);
        QCOMPARE(unstreamed(streamed(String(QStringLiteral("after"))), text), QDataStream::Ok);
        QCOMPARE(text, String(QStringLiteral("after")));
        QCOMPARE(copy, String(QStringLiteral("before")));
    });
}

void tst_CStringStream::truncated()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        const QByteArray whole = streamed(String(letters(row.UNITS)));
        for (int size = 0; size < whole.size(); ++size) {
            String text(QString(row.UNITS, QLatin1Char('#')));
            QCOMPARE(unstreamed(whole.left(size), text), QDataStream::ReadPastEnd);
            QCOMPARE(text, String(letters(size / 2)));
        }
    });
}

// A stream that failed before still writes nothing, and still reads what is there, as for Qt's own numbers.
void tst_CStringStream::followsStatus()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setStatus(QDataStream::WriteFailed);
        out << String(QStringLiteral("x"));
        QVERIFY(bytes.isEmpty());
        QCOMPARE(out.status(), QDataStream::WriteFailed);

        QDataStream in(streamed(String(QStringLiteral("x"))));
        in.setStatus(QDataStream::ReadCorruptData);
        String text;
        in >> text;
        QCOMPARE(text.str(), QStringLiteral("x"));
        QCOMPARE(in.status(), QDataStream::ReadCorruptData);
    });
}

void tst_CStringStream::failingDevice()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        FullDevice device(2 * row.UNITS);
        QVERIFY(device.open(QIODevice::WriteOnly));
        QDataStream stream(&device);
        stream << String(letters(row.UNITS));
        QCOMPARE(stream.status(), QDataStream::Ok);
        stream << String(letters(row.UNITS));
        QCOMPARE(stream.status(), QDataStream::WriteFailed);
    });
}

void tst_CStringStream::noDevice()
{
    forRow([](auto row) {
        typename decltype(row)::Type text(QStringLiteral("x"));
        QDataStream stream;
        stream << text;
        QCOMPARE(stream.status(), QDataStream::Ok);
        stream >> text;
        QCOMPARE(text.byteArray(), QByteArray(2 * row.UNITS, '\0'));
    });
}

void tst_CStringStream::sequence()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << CString32(QStringLiteral("a")) << CString128(letters(128)) << CString64(QStringLiteral("c"))
        << qint8(7);
    QCOMPARE(bytes.size(), 64 + 256 + 128 + 1);
    QDataStream in(bytes);
    CString32 first;
    CString128 second;
    CString64 third;
    qint8 last = 0;
    in >> first >> second >> third >> last;
    QCOMPARE(in.status(), QDataStream::Ok);
    QCOMPARE(first.str(), QStringLiteral("a"));
    QCOMPARE(second.str(), letters(128));
    QCOMPARE(third.str(), QStringLiteral("c"));
    QCOMPARE(int(last), 7);
}

QTEST_APPLESS_MAIN(tst_CStringStream)
#include "tst_CStringStream.moc"
