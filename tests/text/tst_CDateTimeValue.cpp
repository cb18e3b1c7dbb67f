#include <core/tlxCoreQTest.h>
#include <tests/support/Comparisons.h>
#include <tests/support/Handles.h>
#include <tests/support/StreamBytes.h>

#include <QTimeZone>
#include <QtTest>

namespace {

QDateTime utc(int hour)
{
    return QDateTime(QDate(2024, 3, 5), QTime(hour, 7, 9, 456), Qt::UTC);
}

QDateTime ahead(int hour)
{
    return QDateTime(QDate(2024, 3, 5), QTime(hour, 7, 9, 456), Qt::OffsetFromUTC, 7200);
}

} // namespace

static_assert(IS_NOTHROW_HANDLE<CDateTime>, "containers move it without copying it back");

/// CDateTime as a value: comparison, hash, streams, QVariant, debug output.
class tst_CDateTimeValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void compares_data();
    void compares();
    void hashFollowsEquality();
    void streamBytes_data();
    void streamBytes();
    void streamTruncated_data();
    void streamTruncated();
    void streamAsQDateTime_data();
    void streamAsQDateTime();
    void streamHostile_data();
    void streamHostile();
    void streamWithoutZone();
    void movedFromIsUsable();
    void fitsIntoQVariant();
    void debugShowsTypeAndText();
};

void tst_CDateTimeValue::compares_data()
{
    QTest::addColumn<CDateTime>("a");
    QTest::addColumn<CDateTime>("b");
    QTest::addColumn<int>("order");

    QTest::newRow("same") << CDateTime(utc(13)) << CDateTime(utc(13)) << 0;
    QTest::newRow("same instant, other time spec") << CDateTime(utc(13)) << CDateTime(ahead(15)) << 0;
    QTest::newRow("earlier, same fields") << CDateTime(ahead(13)) << CDateTime(utc(13)) << -1;
    QTest::newRow("later") << CDateTime(utc(14)) << CDateTime(utc(13)) << 1;
    QTest::newRow("null and null") << CDateTime() << CDateTime() << 0;
    QTest::newRow("by a millisecond") << CDateTime(utc(13)) << CDateTime(utc(13).addMSecs(1)) << -1;
}

void tst_CDateTimeValue::compares()
{
    QFETCH(CDateTime, a);
    QFETCH(CDateTime, b);
    QFETCH(int, order);

    QCOMPARE(wrongComparisons(a, b, order), QByteArray());
    QCOMPARE(wrongComparisons(b, a, -order), QByteArray());
}

void tst_CDateTimeValue::hashFollowsEquality()
{
    QCOMPARE(qHash(CDateTime(utc(13))), qHash(CDateTime(ahead(15))));
    QCOMPARE(qHash(CDateTime(utc(13)), 99), qHash(CDateTime(ahead(15)), 99));
    QVERIFY(qHash(CDateTime(utc(13))) != qHash(CDateTime(utc(14))));
    QCOMPARE((QSet<CDateTime>{CDateTime(utc(13)), CDateTime(ahead(15)), CDateTime(utc(14))}).size(), 2);
}

void tst_CDateTimeValue::streamBytes_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<bool>("little");
    QTest::addColumn<QByteArray>("bytes");

    // 2024-03-05 is Julian day 2460375 (0x258AD7); 13:07:09.456 is 47229456 ms (0x02D0AA10) into the day.
    QTest::newRow("5.15, big-endian")
        << int(QDataStream::Qt_5_15) << false << fromHexText("0000000000258ad7 02d0aa10 01");
    QTest::newRow("5.15, little-endian")
        << int(QDataStream::Qt_5_15) << true << fromHexText("d78a250000000000 10aad002 01");
    QTest::newRow("4.6, big-endian") << int(QDataStream::Qt_4_6) << false
                                     << fromHexText("00258ad7 02d0aa10 02");
    QTest::newRow("4.6, little-endian")
        << int(QDataStream::Qt_4_6) << true << fromHexText("d78a2500 10aad002 02");
}

void tst_CDateTimeValue::streamBytes()
{
    QFETCH(int, version);
    QFETCH(bool, little);
    QFETCH(QByteArray, bytes);
    const auto order = little ? QDataStream::LittleEndian : QDataStream::BigEndian;
    const auto streamVersion = static_cast<QDataStream::Version>(version);

    QCOMPARE(streamed(CDateTime(utc(13)), order, streamVersion).toHex(), bytes.toHex());
    CDateTime read;
    QCOMPARE(unstreamed(bytes, read, order, streamVersion), QDataStream::Ok);
    QCOMPARE(read.toQDateTime(Qt::UTC), utc(13));
    QCOMPARE(read.timeSpec(), Qt::UTC);
}

void tst_CDateTimeValue::streamTruncated_data()
{
    QTest::addColumn<int>("length");

    for (int length = 0; length < 13; ++length) {
        QTest::addRow("%d bytes", length) << length;
    }
}

void tst_CDateTimeValue::streamTruncated()
{
    QFETCH(int, length);
    const QByteArray bytes = fromHexText("0000000000258ad7 02d0aa10 01");
    CDateTime read;

    QCOMPARE(unstreamed(bytes.left(length), read), QDataStream::ReadPastEnd);
}

void tst_CDateTimeValue::streamAsQDateTime_data()
{
    QTest::addColumn<QDateTime>("dateTime");

    QTest::newRow("null") << QDateTime();
    QTest::newRow("UTC") << utc(13);
    QTest::newRow("zone") << utc(13).toTimeZone(QTimeZone("Europe/Berlin"));
    QTest::newRow("custom zone") << utc(13).toTimeZone(
        QTimeZone("Drive", 5400, QStringLiteral("Drive"), QStringLiteral("DR")));
    QTest::newRow("offset") << ahead(13);
    QTest::newRow("local") << QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9));
}

void tst_CDateTimeValue::streamAsQDateTime()
{
    QFETCH(QDateTime, dateTime);
    const CDateTime value(dateTime);

    for (const auto version : {QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const QByteArray bytes = streamed(value, order, version);
            QCOMPARE(bytes, streamed(dateTime, order, version));
            QDateTime expected;
            CDateTime read;
            QCOMPARE(unstreamed(bytes, expected, order, version), QDataStream::Ok);
            QCOMPARE(unstreamed(bytes, read, order, version), QDataStream::Ok);
            QCOMPARE(read.timeSpec(), expected.timeSpec());
            QCOMPARE(read.toQDateTime(Qt::UTC), expected.toUTC());
        }
    }
}

void tst_CDateTimeValue::streamHostile_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("timeSpec");

    QTest::newRow("5.15, time spec 4") << int(QDataStream::Qt_5_15) << fromHexText("04");
    QTest::newRow("5.15, time spec 127") << int(QDataStream::Qt_5_15) << fromHexText("7f");
    QTest::newRow("5.15, time spec -1") << int(QDataStream::Qt_5_15) << fromHexText("ff");
    QTest::newRow("5.0, time spec 4") << int(QDataStream::Qt_5_0) << fromHexText("04");
    QTest::newRow("5.0, time spec 33") << int(QDataStream::Qt_5_0) << fromHexText("21");
    QTest::newRow("5.0, time spec 127") << int(QDataStream::Qt_5_0) << fromHexText("7f");
    QTest::newRow("5.0, time spec -1") << int(QDataStream::Qt_5_0) << fromHexText("ff");
    const QByteArray up = streamed(QStringLiteral("../../../etc/passwd"));
    const QByteArray offset = streamed(QStringLiteral("OffsetFromUtc"));
    QTest::newRow("zone above its folder") << int(QDataStream::Qt_5_15) << "\x03" + up;
    QTest::newRow("zone from the root")
        << int(QDataStream::Qt_5_15) << "\x03" + streamed(QStringLiteral("/dev/zero"));
    QTest::newRow("custom zone above its folder")
        << int(QDataStream::Qt_5_15) << "\x03" + offset + up + QByteArray(24, '\0');
    QTest::newRow("zone of a unit and a half")
        << int(QDataStream::Qt_5_15) << "\x03" + fromHexText("00000003 0041 00");
    QTest::newRow("zone that is nowhere")
        << int(QDataStream::Qt_5_15) << "\x03" + streamed(QStringLiteral("Europe/Atlantis"));
}

void tst_CDateTimeValue::streamHostile()
{
    QFETCH(int, version);
    QFETCH(QByteArray, timeSpec);
    const QByteArray bytes = fromHexText("0000000000258ad7 02d0aa10") + timeSpec;
    CDateTime read(utc(13));

    QCOMPARE(unstreamed(bytes, read, QDataStream::BigEndian, static_cast<QDataStream::Version>(version)),
             QDataStream::ReadCorruptData);
    QVERIFY(read.isNull());
    QCOMPARE(streamed(read), streamed(QDateTime()));
}

void tst_CDateTimeValue::streamWithoutZone()
{
    // Qt crashes when it writes a zone that there is not.
    const CDateTime nowhere(QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9), QTimeZone("Europe/Atlantis")));

    QVERIFY(!nowhere.isValid());
    for (const auto version : {QDataStream::Qt_4_6, QDataStream::Qt_5_0, QDataStream::Qt_5_15}) {
        QCOMPARE(streamed(nowhere, QDataStream::BigEndian, version),
                 streamed(QDateTime(), QDataStream::BigEndian, version));
    }
}

void tst_CDateTimeValue::movedFromIsUsable()
{
    verifyMovedFromIsUsable(CDateTime(utc(13)));
}

void tst_CDateTimeValue::fitsIntoQVariant()
{
    const QVariant variant = QVariant::fromValue(CDateTime(utc(13)));

    QCOMPARE(QByteArray(variant.typeName()), QByteArray("CDateTime"));
    QCOMPARE(variant.value<CDateTime>(), CDateTime(utc(13)));
}

void tst_CDateTimeValue::debugShowsTypeAndText()
{
    const QScopedArrayPointer<char> text(QTest::toString(CDateTime(utc(13))));

    QCOMPARE(QByteArray(text.data()), QByteArray("CDateTime(\"2024-03-05T13:07:09.456Z\")"));
    QString line;
    QDebug(&line) << CDateTime() << 1;
    QCOMPARE(line, QStringLiteral("CDateTime() 1 "));
}

QTEST_GUILESS_MAIN(tst_CDateTimeValue)
#include "tst_CDateTimeValue.moc"
