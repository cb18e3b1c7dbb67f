#include <core/tlxCoreQTest.h>
#include <tests/support/MessageLog.h>

#include <QTimeZone>
#include <QtEndian>
#include <QtTest>

namespace {

constexpr long long PACKED = 0x07E803050D07092DLL; // 2024-03-05 13:07:09.45
constexpr NTypes::tsDateTime RECORD = {{45, 9, 7, 13}, {5, 3, 2024}};

QDateTime utc(int year, int month, int day, int hour, int minute, int second, int ms)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second, ms), Qt::UTC);
}

QDateTime moment()
{
    return utc(2024, 3, 5, 13, 7, 9, 456);
}

QDateTime withOffset()
{
    return QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::OffsetFromUTC, 7200);
}

QDateTime inZone()
{
    return QDateTime(QDate(2000, 1, 1), QTime(0, 0), QTimeZone("Asia/Tokyo"));
}

} // namespace

/// Construction, the packed forms, time specs. Comparison and streams: tst_CDateTimeValue.
class tst_CDateTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullByDefault();
    void wrapsQDateTime();
    void packs_data();
    void packs();
    void unpacks_data();
    void unpacks();
    void impossibleFields_data();
    void impossibleFields();
    void fieldsOneByOne();
    void impossibleTimeThenDate();
    void impossibleDateThenDate();
    void assignmentKeepsSpec_data();
    void assignmentKeepsSpec();
    void offsetAndZone();
    void timeSpecKeepsInstant();
    void sameTimeSpecChangesNothing();
    void toByteArray();
    void fromByteArray_data();
    void fromByteArray();
    void isoText();
    void wallClockInLocalTime();
    void convertsIntoLocalTime();
    void daylightGap();
};

void tst_CDateTime::nullByDefault()
{
    const CDateTime none;

    QVERIFY(none.isNull());
    QVERIFY(!none.isValid());
    QCOMPARE(none.timeSpec(), Qt::LocalTime);
    QCOMPARE(none.toQDateTime(Qt::UTC).isNull(), true);
    QCOMPARE(none.toIsoDateTime(Qt::UTC), QString());
    // A missing date has the fields 0, a missing time the fields -1.
    QCOMPARE(none.toI64(Qt::LocalTime), 0x00000000FFFFFF00ULL);
    QCOMPARE(none.toI64(Qt::UTC), 0x00000000FFFFFF00ULL);
}

void tst_CDateTime::wrapsQDateTime()
{
    const CDateTime made(moment());
    CDateTime assigned;
    assigned = moment();
    const CDateTime copied(assigned);

    QVERIFY(made.isValid() && !made.isNull());
    QCOMPARE(made.toQDateTime(Qt::UTC), moment());
    QCOMPARE(made.timeSpec(), Qt::UTC);
    QCOMPARE(assigned.toQDateTime(Qt::UTC), moment());
    QCOMPARE(copied.toQDateTime(Qt::UTC), moment());
}

void tst_CDateTime::packs_data()
{
    QTest::addColumn<QDateTime>("dateTime");
    QTest::addColumn<quint64>("packed");

    QTest::newRow("hundredths truncated") << moment() << Q_UINT64_C(0x07E803050D07092D);
    QTest::newRow("no milliseconds") << utc(2024, 3, 5, 13, 7, 9, 0) << Q_UINT64_C(0x07E803050D070900);
    QTest::newRow("9 ms") << utc(2024, 3, 5, 13, 7, 9, 9) << Q_UINT64_C(0x07E803050D070900);
    QTest::newRow("10 ms") << utc(2024, 3, 5, 13, 7, 9, 10) << Q_UINT64_C(0x07E803050D070901);
    QTest::newRow("last of a day") << utc(1999, 12, 31, 23, 59, 59, 999) << Q_UINT64_C(0x07CF0C1F173B3B63);
    QTest::newRow("year -1") << utc(-1, 1, 1, 0, 0, 0, 0) << Q_UINT64_C(0xFFFF010100000000);
    QTest::newRow("year 65537 loses a bit") << utc(65537, 1, 1, 0, 0, 0, 0) << Q_UINT64_C(0x0001010100000000);
}

void tst_CDateTime::packs()
{
    QFETCH(QDateTime, dateTime);
    QFETCH(quint64, packed);

    QCOMPARE(CDateTime(dateTime).toI64(Qt::UTC), packed);
}

void tst_CDateTime::unpacks_data()
{
    QTest::addColumn<qint64>("packed");
    QTest::addColumn<QDateTime>("dateTime");

    QTest::newRow("every field") << qint64(PACKED) << utc(2024, 3, 5, 13, 7, 9, 450);
    QTest::newRow("99 hundredths") << Q_INT64_C(0x07CF0C1F173B3B63) << utc(1999, 12, 31, 23, 59, 59, 990);
    QTest::newRow("midnight") << Q_INT64_C(0x07E8021D00000000) << utc(2024, 2, 29, 0, 0, 0, 0);
    QTest::newRow("year -1") << qint64(Q_UINT64_C(0xFFFF010100000000)) << utc(-1, 1, 1, 0, 0, 0, 0);
    QTest::newRow("year 32767") << Q_INT64_C(0x7FFF010100000000) << utc(32767, 1, 1, 0, 0, 0, 0);
}

void tst_CDateTime::unpacks()
{
    QFETCH(qint64, packed);
    QFETCH(QDateTime, dateTime);
    const CDateTime made(packed, Qt::UTC);

    QVERIFY(made.isValid());
    QCOMPARE(made.timeSpec(), Qt::UTC);
    QCOMPARE(made.toQDateTime(Qt::UTC), dateTime);
    QCOMPARE(qint64(made.toI64(Qt::UTC)), packed);
}

void tst_CDateTime::impossibleFields_data()
{
    QTest::addColumn<qint64>("packed");

    QTest::newRow("all zero") << Q_INT64_C(0);
    QTest::newRow("month 13") << Q_INT64_C(0x07E80D050D07092D);
    QTest::newRow("month 0") << Q_INT64_C(0x07E800050D07092D);
    QTest::newRow("30 February") << Q_INT64_C(0x07E8021E0D07092D);
    QTest::newRow("29 February 2023") << Q_INT64_C(0x07E7021D0D07092D);
    QTest::newRow("year 0") << Q_INT64_C(0x000003050D07092D);
    QTest::newRow("hour 25") << Q_INT64_C(0x07E803051907092D);
    QTest::newRow("hour 24") << Q_INT64_C(0x07E803051800002D);
    QTest::newRow("hour -1") << Q_INT64_C(0x07E80305FF07092D);
    QTest::newRow("minute 60") << Q_INT64_C(0x07E803050D3C092D);
    QTest::newRow("second 60") << Q_INT64_C(0x07E803050D073C2D);
    QTest::newRow("100 hundredths") << Q_INT64_C(0x07E803050D070964);
    QTest::newRow("-1 hundredths") << Q_INT64_C(0x07E803050D0709FF);
    QTest::newRow("all ones") << Q_INT64_C(-1);
}

void tst_CDateTime::impossibleFields()
{
    QFETCH(qint64, packed);
    const MessageLog log;

    for (const Qt::TimeSpec spec : {Qt::UTC, Qt::LocalTime, Qt::OffsetFromUTC, Qt::TimeZone}) {
        QVERIFY(!CDateTime(packed, spec).isValid());
        CDateTime assigned(QDateTime::currentDateTimeUtc());
        assigned = static_cast<long long>(packed);
        QVERIFY(!assigned.isValid());
        QCOMPARE(assigned.timeSpec(), Qt::UTC);
        QCOMPARE(assigned.toIsoDateTime(Qt::UTC), QString());
    }
    for (CDateTime target : {CDateTime(withOffset()), CDateTime(inZone())}) {
        const Qt::TimeSpec spec = target.timeSpec();
        target = static_cast<long long>(packed);
        QVERIFY(!target.isValid());
        QCOMPARE(target.timeSpec(), spec);
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDateTime::fieldsOneByOne()
{
    CDateTime made(utc(2000, 1, 1, 1, 2, 3, 456));

    made.setDate({5, 3, 2024});
    QCOMPARE(made.toQDateTime(Qt::UTC), utc(2024, 3, 5, 1, 2, 3, 456));
    made.setTime({45, 9, 7, 13});
    QCOMPARE(made.toQDateTime(Qt::UTC), utc(2024, 3, 5, 13, 7, 9, 450));
    QCOMPARE(made.timeSpec(), Qt::UTC);

    CDateTime onlyTime;
    onlyTime.setTime({45, 9, 7, 13});
    QVERIFY(!onlyTime.isValid());
    QVERIFY(!onlyTime.isNull());
    QCOMPARE(onlyTime.toI64(Qt::LocalTime), 0x000000000D07092DULL);
    onlyTime.setDate({5, 3, 2024});
    QCOMPARE(onlyTime.toI64(Qt::LocalTime), static_cast<unsigned long long>(PACKED));
}

void tst_CDateTime::impossibleTimeThenDate()
{
    CDateTime made(moment());

    made.setTime({0, 0, 0, 25});
    QVERIFY(!made.isValid());
    QCOMPARE(made.timeSpec(), Qt::UTC);
    made.setDate({5, 3, 2024});
    QCOMPARE(made.toQDateTime(Qt::UTC), utc(2024, 3, 5, 0, 0, 0, 0));
}

void tst_CDateTime::impossibleDateThenDate()
{
    CDateTime made(moment());

    made.setDate({5, 13, 2024});
    QVERIFY(!made.isValid());
    QVERIFY(!made.isNull());
    made.setDate({6, 3, 2024});
    QCOMPARE(made.toQDateTime(Qt::UTC), utc(2024, 3, 6, 13, 7, 9, 456));
}

void tst_CDateTime::assignmentKeepsSpec_data()
{
    QTest::addColumn<CDateTime>("target");
    QTest::addColumn<QDateTime>("expected");

    const QDate date(2024, 3, 5);
    const QTime time(13, 7, 9, 450);
    QTest::newRow("null, local") << CDateTime() << QDateTime(date, time, Qt::LocalTime);
    QTest::newRow("UTC") << CDateTime(utc(2000, 1, 1, 0, 0, 0, 0)) << QDateTime(date, time, Qt::UTC);
    QTest::newRow("offset") << CDateTime(withOffset()) << QDateTime(date, time, Qt::OffsetFromUTC, 7200);
    QTest::newRow("time zone") << CDateTime(inZone()) << QDateTime(date, time, QTimeZone("Asia/Tokyo"));
}

void tst_CDateTime::assignmentKeepsSpec()
{
    QFETCH(CDateTime, target);
    QFETCH(QDateTime, expected);
    CDateTime fromRecord = target;
    target = PACKED;
    fromRecord = RECORD;

    QCOMPARE(target.timeSpec(), expected.timeSpec());
    QCOMPARE(target.toQDateTime(Qt::UTC), expected);
    QCOMPARE(fromRecord.timeSpec(), expected.timeSpec());
    QCOMPARE(fromRecord.toQDateTime(Qt::UTC), expected);
}

void tst_CDateTime::offsetAndZone()
{
    // Without an offset or a zone to name, Qt takes UTC and local time for these two.
    QCOMPARE(CDateTime(PACKED, Qt::OffsetFromUTC).timeSpec(), Qt::UTC);
    QCOMPARE(CDateTime(PACKED, Qt::TimeZone).timeSpec(), Qt::LocalTime);
    QCOMPARE(CDateTime(RECORD, Qt::TimeZone).toI64(Qt::LocalTime), static_cast<unsigned long long>(PACKED));
}

void tst_CDateTime::timeSpecKeepsInstant()
{
    CDateTime made(QDateTime(QDate(2024, 7, 1), QTime(12, 0), Qt::OffsetFromUTC, 3 * 3600));
    const CDateTime before = made;

    made.setTimeSpec(Qt::UTC);
    QCOMPARE(made.timeSpec(), Qt::UTC);
    QCOMPARE(made, before);
    QCOMPARE(made.toI64(Qt::UTC), 0x07E8070109000000ULL);
    made.setTimeSpec(Qt::UTC);
    QCOMPARE(made.toI64(Qt::UTC), 0x07E8070109000000ULL);
    made.setTimeSpec(Qt::LocalTime);
    QCOMPARE(made.timeSpec(), Qt::LocalTime);
    QCOMPARE(made, before);
}

void tst_CDateTime::sameTimeSpecChangesNothing()
{
    CDateTime offset(withOffset());
    CDateTime zone(inZone());

    // Not Qt's conversion, which would take UTC for an offset and local time for a zone.
    offset.setTimeSpec(Qt::OffsetFromUTC);
    QCOMPARE(offset.timeSpec(), Qt::OffsetFromUTC);
    zone.setTimeSpec(Qt::TimeZone);
    QCOMPARE(zone.timeSpec(), Qt::TimeZone);
    QCOMPARE(offset.toI64(Qt::UTC), 0x07CF0C1F16000000ULL);
    QCOMPARE(zone.toI64(Qt::UTC), 0x07CF0C1F0F000000ULL);
}

void tst_CDateTime::toByteArray()
{
    const CDateTime made(moment());

    QCOMPARE(made.toI64ByteArray(Qt::UTC), QByteArray::fromHex("2d09070d0503e807"));
    QCOMPARE(CDateTime().toI64ByteArray(Qt::UTC), QByteArray::fromHex("00ffffff00000000"));
}

void tst_CDateTime::fromByteArray_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint64>("packed");

    const QByteArray all = QByteArray::fromHex("2d09070d0503e807");
    QTest::newRow("8 bytes") << all << quint64(PACKED);
    QTest::newRow("more bytes") << all + "\x11\x22" << quint64(PACKED);
    QTest::newRow("7 bytes: year 0x00E8") << all.left(7) << Q_UINT64_C(0x00E803050D07092D);
    QTest::newRow("6 bytes: no year") << all.left(6) << Q_UINT64_C(0x000000000D07092D);
    QTest::newRow("4 bytes: time only") << all.left(4) << Q_UINT64_C(0x000000000D07092D);
    QTest::newRow("1 byte: 45 hundredths") << all.left(1) << Q_UINT64_C(0x000000000000002D);
    QTest::newRow("no bytes") << QByteArray() << Q_UINT64_C(0);
}

void tst_CDateTime::fromByteArray()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint64, packed);

    QCOMPARE(CDateTime::fromI64ByteArray(bytes, Qt::UTC).toI64(Qt::UTC), packed);
}

void tst_CDateTime::isoText()
{
    const QDateTime offset(QDate(2024, 3, 5), QTime(13, 7, 9, 456), Qt::OffsetFromUTC, 5400);

    QCOMPARE(CDateTime(moment()).toIsoDateTime(Qt::UTC), QStringLiteral("2024-03-05T13:07:09Z"));
    QCOMPARE(CDateTime(offset).toIsoDateTime(Qt::UTC), QStringLiteral("2024-03-05T11:37:09Z"));
    QCOMPARE(CDateTime(PACKED, Qt::LocalTime).toIsoDateTime(Qt::LocalTime),
             QStringLiteral("2024-03-05T13:07:09"));
}

void tst_CDateTime::wallClockInLocalTime()
{
    const CDateTime made(RECORD, Qt::LocalTime);
    const QDateTime expected(QDate(2024, 3, 5), QTime(13, 7, 9, 450), Qt::LocalTime);

    QCOMPARE(made.timeSpec(), Qt::LocalTime);
    QCOMPARE(made.toI64(Qt::LocalTime), static_cast<unsigned long long>(PACKED));
    QCOMPARE(made.toQDateTime(Qt::UTC), expected.toUTC());
}

// Other fields wherever local time is not UTC.
void tst_CDateTime::convertsIntoLocalTime()
{
    const CDateTime made(moment());
    const QDateTime local = moment().toLocalTime();
    const int fields[] = {45,
                          local.time().second(),
                          local.time().minute(),
                          local.time().hour(),
                          local.date().day(),
                          local.date().month(),
                          0xE8,
                          0x07};
    QByteArray bytes;
    for (const int field : fields) {
        bytes += static_cast<char>(field);
    }
    const CDateTime back = CDateTime::fromI64ByteArray(bytes, Qt::LocalTime);

    QCOMPARE(made.toQDateTime(Qt::LocalTime).timeSpec(), Qt::LocalTime);
    QCOMPARE(made.toIsoDateTime(Qt::LocalTime), local.toString(Qt::ISODate));
    QCOMPARE(made.toI64ByteArray(Qt::LocalTime), bytes);
    QCOMPARE(made.toI64(Qt::LocalTime), qFromLittleEndian<quint64>(bytes.constData()));
    QCOMPARE(back.timeSpec(), Qt::LocalTime);
    QCOMPARE(back.toQDateTime(Qt::UTC), utc(2024, 3, 5, 13, 7, 9, 450));
}

void tst_CDateTime::daylightGap()
{
    // 02:30 does not exist on this day in Berlin; neither order of the fields may move the hour on the way.
    const QDateTime zoned(QDate(2024, 3, 31), QTime(12, 0), QTimeZone("Europe/Berlin"));
    CDateTime made(zoned);
    made = 0x07E8031F021E0000LL;
    QVERIFY(!made.isValid());
    made = 0x07E8031F031E0000LL;
    QCOMPARE(made.toQDateTime(Qt::UTC), utc(2024, 3, 31, 1, 30, 0, 0));
}

QTEST_GUILESS_MAIN(tst_CDateTime)
#include "tst_CDateTime.moc"
