#include <core/tlxCore.h>
#include <core/tlxCoreQTest.h>
#include <tests/support/ShownValue.h>

#include <QDataStream>
#include <QTimeZone>
#include <QtTest>

/// Two values that operator== tells apart never show the same text in a failing test.
class tst_UnequalTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unequalValues_data();
    void unequalValues();
    void dateTime_data();
    void dateTime();
};

namespace {

struct SCompared
{
    int unequal = 0;
    QByteArrayList alike; ///< The texts that two unequal values share.
};

template <typename T>
SCompared compared(const QVector<T>& values)
{
    SCompared result;
    QByteArrayList texts;
    for (const T& value : values) {
        texts.append(shown(value));
    }
    for (int i = 0; i < values.size(); ++i) {
        for (int j = i + 1; j < values.size(); ++j) {
            const bool unequal = !(values.at(i) == values.at(j));
            result.unequal += unequal ? 1 : 0;
            if (unequal && texts.at(i) == texts.at(j)) {
                result.alike.append(texts.at(i));
            }
        }
    }
    return result;
}

SCompared dateTimes()
{
    const QDate day(2026, 10, 25);
    const QTimeZone berlin("Europe/Berlin");
    const qint64 twoOClock = QDateTime(day, QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
    constexpr int HOUR = 3600 * 1000;
    QVector<CDateTime> values;
    for (const QTimeZone& zone : {QTimeZone::utc(), QTimeZone(7200), berlin}) {
        // In Berlin the first two have the same fields.
        for (const qint64 instant :
             {twoOClock, twoOClock + HOUR, twoOClock + 1, twoOClock + 400LL * 366 * 24 * HOUR,
              253402300800000LL, 253402300800001LL, -62198755200000LL, -62198755200001LL}) {
            values.append(QDateTime::fromMSecsSinceEpoch(instant, zone));
        }
    }
    for (const Qt::TimeSpec spec : {Qt::LocalTime, Qt::UTC}) {
        values.append(QDateTime(day, QTime(2, 30), spec));
        values.append(QDateTime(day, QTime(2, 30, 0, 1), spec));
        values.append(QDateTime(QDate(), QTime(2, 30), spec));
        values.append(QDateTime(QDate(), QTime(2, 31), spec));
        values.append(QDateTime(QDate(10000, 1, 1), QTime(0, 0), spec));
        values.append(QDateTime(QDate(10000, 1, 2), QTime(0, 0), spec));
    }
    // The offset of 1893 has seconds in it.
    const QDateTime old(QDate(1890, 1, 1), QTime(12, 0), berlin);
    values.append(old);
    values.append(
        QDateTime(QDate(1890, 1, 1), QTime(12, 0), Qt::OffsetFromUTC, old.offsetFromUtc() / 60 * 60));
    values.append(CDateTime());
    return compared(values);
}

template <typename Text>
SCompared fixedStrings()
{
    QVector<Text> values{Text(), Text(QStringLiteral("ab")), Text(QStringLiteral("ab\"")),
                         Text(QStringLiteral("a"))};
    for (const char* before : {"abcdef", "abcdeg", "abc"}) {
        for (const char* after : {"", "a", "ab"}) {
            Text value(QString::fromLatin1(before));
            value = QString::fromLatin1(after);
            values.append(value);
        }
    }
    const ushort units[] = {'a', 0, 0, 'b', 0xFEFF, 0xD800, 0, 'c'};
    for (int size = 1; size <= 8; ++size) {
        values.append(Text(QByteArray(reinterpret_cast<const char*>(units), size * 2)));
    }
    return compared(values);
}

// Payloads under each tag, as a stream can leave them, too.
QVector<CVariant> variantsOf(const QVector<QVariant>& payloads)
{
    QVector<CVariant> values;
    for (int type = 0; type <= int(NTypes::TYPE_CHAR) + 1; ++type) {
        for (const QVariant& payload : payloads) {
            QByteArray bytes;
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out << payload << qint32(type);
            CVariant value;
            QDataStream stream(bytes);
            stream >> value;
            values.append(value);
        }
    }
    return values;
}

SCompared variants()
{
    NTypes::registerMetaTypes();
    const NTypes::tsDateTime noon{{0, 0, 0, 12}, {5, 3, 2024}};
    const NTypes::tsDateTime later{{1, 0, 0, 12}, {5, 3, 2024}};
    const NTypes::tsDateTime impossible{{0, 0, 0, 12}, {5, 13, 2024}};
    CString32 leftover(QStringLiteral("abcdef"));
    leftover = QStringLiteral("31");
    const auto of = [](const auto& value) { return QVariant::fromValue(value); };
    return compared(variantsOf({of(noon),
                                of(later),
                                of(impossible),
                                of(0x07E803050C000000LL),
                                of(0x07E803050C000001LL),
                                of(0),
                                of(31),
                                of(256),
                                of(287),
                                of(-1),
                                of(65536.5),
                                of(1.0),
                                of(1.0 + 2e-12),
                                of(1.0F),
                                of(1.0F + 2e-5F),
                                of(1e300),
                                of(31U),
                                of(QChar(u'3')),
                                of(QStringLiteral("31")),
                                of(QStringLiteral("0x1F")),
                                of(QByteArray("31")),
                                of(QByteArray("31\0x", 4)),
                                of(CString32(QStringLiteral("31"))),
                                of(CString64(QStringLiteral("31"))),
                                of(leftover),
                                of(true),
                                of(QString()),
                                of(QByteArray())}));
}

SCompared times()
{
    QVector<CTime> values;
    for (int unit = -1; unit <= int(CTime::UNIT_UNKNOWN); ++unit) {
        for (const quint64 count : {quint64(0), quint64(1), quint64(1000), quint64(60), ~quint64(0)}) {
            values.append(CTime(count, static_cast<CTime::ETimeUnit>(unit)));
        }
    }
    return compared(values);
}

SCompared addresses()
{
    QVector<CIPv6Address> values{CIPv6Address()};
    for (int i = 0; i < 16; ++i) {
        CIPv6Address address;
        address[i] = 0x10;
        values.append(address);
    }
    return compared(values);
}

SCompared records()
{
    using NTypes::tsDateTime;
    return compared(
        QVector<tsDateTime>{tsDateTime{}, tsDateTime{{1, 0, 0, 0}, {0, 0, 0}},
                            tsDateTime{{0, 1, 0, 0}, {0, 0, 0}}, tsDateTime{{0, 0, 1, 0}, {0, 0, 0}},
                            tsDateTime{{0, 0, 0, 1}, {0, 0, 0}}, tsDateTime{{0, 0, 0, -1}, {0, 0, 0}},
                            tsDateTime{{0, 0, 0, 0}, {1, 0, 0}}, tsDateTime{{0, 0, 0, 0}, {0, 1, 0}},
                            tsDateTime{{0, 0, 0, 0}, {0, 0, 1}}, tsDateTime{{0, 0, 0, 0}, {0, 0, -1}}});
}

using Comparison = SCompared (*)();

} // namespace

void tst_UnequalTexts::unequalValues_data()
{
    QTest::addColumn<void*>("comparison");
    const auto row = [](const char* tag, Comparison comparison) {
        QTest::newRow(tag) << reinterpret_cast<void*>(comparison);
    };
    row("CDateTime", dateTimes);
    row("CString32", fixedStrings<CString32>);
    row("CString64", fixedStrings<CString64>);
    row("CString128", fixedStrings<CString128>);
    row("CVariant", variants);
    row("CTime", times);
    row("CIPv6Address", addresses);
    row("tsDateTime", records);
}

void tst_UnequalTexts::unequalValues()
{
    QFETCH(void*, comparison);
    const SCompared result = reinterpret_cast<Comparison>(comparison)();
    QVERIFY(result.unequal > 30);
    QVERIFY2(result.alike.isEmpty(), result.alike.join("\n").constData());
}

void tst_UnequalTexts::dateTime_data()
{
    QTest::addColumn<CDateTime>("value");
    QTest::addColumn<QByteArray>("text");
    const QDate day(2024, 3, 5);
    const QTime time(13, 7, 9, 456);
    const QTimeZone berlin("Europe/Berlin");
    const auto row = [](const char* tag, const CDateTime& value, const char* text) {
        QTest::newRow(tag) << value << QByteArray(text);
    };
    row("UTC", QDateTime(day, time, Qt::UTC), "CDateTime(\"2024-03-05T13:07:09.456Z\")");
    row("offset", QDateTime(day, time, Qt::OffsetFromUTC, -5400),
        "CDateTime(\"2024-03-05T13:07:09.456-01:30\")");
    row("zone", QDateTime(day, time, berlin), "CDateTime(\"2024-03-05T13:07:09.456+01:00\", Europe/Berlin)");
    row("null", CDateTime(), "CDateTime()");
    row("year 10000", QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC),
        "CDateTime(253402300800000 ms since 1970)");
    row("no date", QDateTime(QDate(), time, Qt::UTC),
        "CDateTime(not valid, QDate(Invalid), QTime(\"13:07:09.456\"))");
}

void tst_UnequalTexts::dateTime()
{
    QFETCH(CDateTime, value);
    QFETCH(QByteArray, text);
    QCOMPARE(shown(value), text);
}

QTEST_GUILESS_MAIN(tst_UnequalTexts)
#include "tst_UnequalTexts.moc"
