#include <core/tlxCoreQTest.h>
#include <tests/support/Comparisons.h>
#include <tests/support/StreamBytes.h>

#include <QtTest>

#include <ctime>

namespace {

void enter(const QByteArray& zone)
{
    qputenv("TZ", zone);
    tzset();
}

QDateTime inUtc(const QString& text)
{
    return QDateTime::fromString(text + QLatin1Char('Z'), Qt::ISODate);
}

QDateTime inLocalTime(const QString& text)
{
    return QDateTime::fromString(text, Qt::ISODate);
}

} // namespace

/// Local date-times in zones of the system: standard time before 1970, after 2037 the rule of the same day in 2037.
class tst_CDateTimeZones : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();
    void localTime_data();
    void localTime();
    void debugShowsTheOffset_data();
    void debugShowsTheOffset();
    void notValid_data();
    void notValid();
    void streamInUtc_data();
    void streamInUtc();
    void variantStreamInUtc();

private:
    QByteArray mZone;
    bool mHasZone = false;
};

void tst_CDateTimeZones::initTestCase()
{
#ifdef Q_OS_WIN
    QSKIP("Windows takes no zone from the environment of a running process");
#endif
    mHasZone = qEnvironmentVariableIsSet("TZ");
    mZone = qgetenv("TZ");
}

void tst_CDateTimeZones::cleanup()
{
    cleanupTestCase();
}

void tst_CDateTimeZones::cleanupTestCase()
{
    if (mHasZone) {
        enter(mZone);
    } else {
        qunsetenv("TZ");
        tzset();
    }
}

void tst_CDateTimeZones::localTime_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("local");
    QTest::addColumn<QString>("utc");

    const auto add = [](const char* tag, const char* zone, const char* local, const char* utc) {
        QTest::newRow(tag) << QByteArray(zone) << QString::fromLatin1(local) << QString::fromLatin1(utc);
    };
    add("Berlin, double summer time of 1945", "Europe/Berlin", "1945-07-01T12:00:00", "1945-07-01T11:00:00");
    add("Berlin, summer of 1916", "Europe/Berlin", "1916-07-01T12:00:00", "1916-07-01T11:00:00");
    add("Berlin, before standard time", "Europe/Berlin", "1880-01-01T12:00:00", "1880-01-01T11:00:00");
    add("Berlin, midnight of 1970", "Europe/Berlin", "1970-01-01T00:00:00", "1969-12-31T23:00:00");
    add("Berlin, summer", "Europe/Berlin", "2024-07-01T12:00:00", "2024-07-01T10:00:00");
    add("Berlin, winter", "Europe/Berlin", "2024-12-01T12:00:00", "2024-12-01T11:00:00");
    add("Berlin, summer of 2100", "Europe/Berlin", "2100-07-01T12:00:00", "2100-07-01T10:00:00");
    add("London, British Standard Time of 1969", "Europe/London", "1969-07-01T12:00:00",
        "1969-07-01T12:00:00");
    add("London, British Standard Time of 1970", "Europe/London", "1970-07-01T12:00:00",
        "1970-07-01T11:00:00");
    add("New York, summer of 1969", "America/New_York", "1969-07-01T12:00:00", "1969-07-01T17:00:00");
    add("New York, summer of 1970", "America/New_York", "1970-07-01T12:00:00", "1970-07-01T16:00:00");
    // Summer time begins on 8 March 2037 and on 11 March 2040.
    add("New York, day between the beginnings of summer time", "America/New_York", "2040-03-10T12:00:00",
        "2040-03-10T16:00:00");
    add("New York, leap day after 2037", "America/New_York", "2040-02-29T12:00:00", "2040-02-29T17:00:00");
    add("Tokyo, before standard time", "Asia/Tokyo", "1880-01-01T12:00:00", "1880-01-01T03:00:00");
    add("Kolkata, war time of 1944", "Asia/Kolkata", "1944-01-01T12:00:00", "1944-01-01T06:30:00");
    // The standard time of today: in 1960 it was two hours.
    add("Istanbul, 1960", "Europe/Istanbul", "1960-01-01T12:00:00", "1960-01-01T09:00:00");
}

void tst_CDateTimeZones::localTime()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, local);
    QFETCH(QString, utc);
    enter(zone);
    const CDateTime here(inLocalTime(local));
    const CDateTime there(inUtc(utc));

    QCOMPARE(here.toIsoDateTime(Qt::UTC), utc + QLatin1Char('Z'));
    QCOMPARE(there.toIsoDateTime(Qt::LocalTime), local);
    QCOMPARE(wrongComparisons(here, there, 0), QByteArray());
    QCOMPARE(wrongComparisons(there, here, 0), QByteArray());
    QCOMPARE(qHash(here), qHash(there));
    const CDateTime later(inUtc(utc).addSecs(1));
    QCOMPARE(wrongComparisons(here, later, -1), QByteArray());
    QCOMPARE(wrongComparisons(later, here, 1), QByteArray());
}

void tst_CDateTimeZones::debugShowsTheOffset_data()
{
    QTest::addColumn<QString>("local");
    QTest::addColumn<QString>("shown");

    const auto add = [](const char* tag, const char* local, const char* shown) {
        QTest::newRow(tag) << QString::fromLatin1(local)
                           << QStringLiteral("CDateTime(\"%1\", local time)").arg(QLatin1String(shown));
    };
    add("1945", "1945-07-01T12:00:00", "1945-07-01T12:00:00.000+01:00");
    add("before standard time", "1880-01-01T12:00:00", "1880-01-01T12:00:00.000+01:00");
    add("summer of 2100", "2100-07-01T12:00:00", "2100-07-01T12:00:00.000+02:00");
}

void tst_CDateTimeZones::debugShowsTheOffset()
{
    QFETCH(QString, local);
    QFETCH(QString, shown);
    enter("Europe/Berlin");
    QString text;
    QDebug(&text).nospace() << CDateTime(inLocalTime(local));

    QCOMPARE(text, shown);
}

void tst_CDateTimeZones::notValid_data()
{
    QTest::addColumn<QDateTime>("left");
    QTest::addColumn<QDateTime>("right");
    QTest::addColumn<int>("order");

    const QTime noon(12, 0);
    const QDateTime timeAlone(QDate(), noon, Qt::UTC);
    QTest::newRow("nothing and a time of day") << QDateTime() << timeAlone << 0;
    QTest::newRow("times of day, UTC and local") << timeAlone << QDateTime(QDate(), noon) << 0;
    QTest::newRow("a time of day, noon of 1970")
        << timeAlone << QDateTime(QDate(1970, 1, 1), noon, Qt::UTC) << -1;
    QTest::newRow("nothing, a year before Christ")
        << QDateTime() << QDateTime(QDate(-4000, 1, 1), noon) << -1;
}

void tst_CDateTimeZones::notValid()
{
    QFETCH(QDateTime, left);
    QFETCH(QDateTime, right);
    QFETCH(int, order);
    enter("Europe/Berlin");

    QCOMPARE(wrongComparisons(CDateTime(left), CDateTime(right), order), QByteArray());
    QCOMPARE(wrongComparisons(CDateTime(right), CDateTime(left), -order), QByteArray());
    QCOMPARE(qHash(CDateTime(left)) == qHash(CDateTime(right)), order == 0);
}

void tst_CDateTimeZones::streamInUtc_data()
{
    QTest::addColumn<QString>("local");
    QTest::addColumn<QByteArray>("bytes");

    // Days of Julian's calendar; 11:00 is 39,600,000 ms (0x025C3F80) into the day, 10:00 36,000,000 (0x02255100). Then
    // the time spec, 0.
    QTest::newRow("1945") << QStringLiteral("1945-07-01T12:00:00")
                          << fromHexText("0000000000251a96 025c3f80 00");
    QTest::newRow("2024") << QStringLiteral("2024-07-01T12:00:00")
                          << fromHexText("0000000000258b4d 02255100 00");
}

void tst_CDateTimeZones::streamInUtc()
{
    QFETCH(QString, local);
    QFETCH(QByteArray, bytes);
    enter("Europe/Berlin");
    const CDateTime dateTime(inLocalTime(local));

    QCOMPARE(streamed(dateTime, QDataStream::BigEndian, QDataStream::Qt_5_0).toHex(), bytes.toHex());
    CDateTime read;
    QCOMPARE(unstreamed(bytes, read, QDataStream::BigEndian, QDataStream::Qt_5_0), QDataStream::Ok);
    QCOMPARE(read.toIsoDateTime(Qt::LocalTime), local);
}

void tst_CDateTimeZones::variantStreamInUtc()
{
    enter("Europe/Berlin");
    // A local date-time (16) that is not null, 12:00 on 1 July 1945 as in Qt 5.15; then the tag "I64".
    const QByteArray newer = fromHexText("00000010 00 0000000000251a96 02932e00 00 00000009");
    const QByteArray older = fromHexText("00000010 00 0000000000251a96 025c3f80 00 00000009");
    CVariant variant;

    QCOMPARE(unstreamed(newer, variant), QDataStream::Ok);
    QCOMPARE(streamed(variant).toHex(), newer.toHex());
    QCOMPARE(streamed(variant, QDataStream::BigEndian, QDataStream::Qt_5_0).toHex(), older.toHex());
    CVariant read;
    QCOMPARE(unstreamed(older, read, QDataStream::BigEndian, QDataStream::Qt_5_0), QDataStream::Ok);
    QCOMPARE(streamed(read).toHex(), newer.toHex());
}

QTEST_GUILESS_MAIN(tst_CDateTimeZones)
#include "tst_CDateTimeZones.moc"
