#include <core/base/QtZones.h>

#include <QDataStream>
#include <QTimeZone>
#include <QVariant>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

#include <QFile>

namespace NQtCompat {

namespace {

// The end of 2037, after which Qt 5 knows no rule.
constexpr qint64 LAST_KNOWN_MSECS = 2145916799000;
constexpr qint64 MSECS_PER_SECOND = 1000;

bool isKnown(qint64 msecs)
{
    return msecs >= 0 && msecs <= LAST_KNOWN_MSECS;
}

QDateTime inYear2037(const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    const bool isLeapDay = date.month() == 2 && date.day() == 29;
    return QDateTime(QDate(2037, date.month(), isLeapDay ? 28 : date.day()), dateTime.time(),
                     dateTime.timeSpec());
}

// Seconds that local time is ahead of UTC at a time that is given in either.
int localOffset(const QDateTime& dateTime)
{
    const qint64 msecs = dateTime.toMSecsSinceEpoch();
    if (msecs < 0) {
        const QDateTime last = QDateTime::fromMSecsSinceEpoch(LAST_KNOWN_MSECS, Qt::UTC);
        return QTimeZone::systemTimeZone().standardTimeOffset(last);
    }
    const QDateTime known = isKnown(msecs) ? dateTime : inYear2037(dateTime);
    return known.toLocalTime().offsetFromUtc();
}

// Of a valid date-time.
qint64 msecsOf(const QDateTime& dateTime)
{
    const qint64 msecs = dateTime.toMSecsSinceEpoch();
    if (dateTime.timeSpec() != Qt::LocalTime || isKnown(msecs)) {
        return msecs;
    }
    const QDateTime fields(dateTime.date(), dateTime.time(), Qt::UTC);
    return fields.toMSecsSinceEpoch() - MSECS_PER_SECOND * localOffset(dateTime);
}

bool areValid(const QDateTime& left, const QDateTime& right)
{
    return left.isValid() && right.isValid();
}

} // namespace

QTimeZone systemZone(const QByteArray& name)
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const auto isFile = [&name](const char* folder) {
        return QFile::exists(QFile::decodeName(folder + name));
    };
    if (!name.startsWith("UTC") && !isFile("/usr/share/zoneinfo/") && !isFile("/usr/lib/zoneinfo/")) {
        return QTimeZone();
    }
#endif
    return QTimeZone(name);
}

QDateTime toTimeSpec(const QDateTime& dateTime, Qt::TimeSpec spec)
{
    const bool isToLocal = spec == Qt::LocalTime;
    const bool isFromLocal = dateTime.timeSpec() == Qt::LocalTime;
    if (!dateTime.isValid() || isToLocal == isFromLocal || isKnown(dateTime.toMSecsSinceEpoch())) {
        return dateTime.toTimeSpec(spec);
    }
    if (isFromLocal) {
        return QDateTime::fromMSecsSinceEpoch(msecsOf(dateTime), Qt::UTC).toTimeSpec(spec);
    }
    const QDateTime utc = dateTime.toUTC();
    const QDateTime local = utc.addSecs(localOffset(utc));
    return QDateTime(local.date(), local.time(), Qt::LocalTime);
}

int offsetFromUtc(const QDateTime& dateTime)
{
    const bool isLocal = dateTime.isValid() && dateTime.timeSpec() == Qt::LocalTime;
    return isLocal ? localOffset(dateTime) : dateTime.offsetFromUtc();
}

bool isEqual(const QDateTime& left, const QDateTime& right)
{
    return areValid(left, right) ? msecsOf(left) == msecsOf(right) : left == right;
}

bool isBefore(const QDateTime& left, const QDateTime& right)
{
    return areValid(left, right) ? msecsOf(left) < msecsOf(right) : left < right;
}

THash hashOf(const QDateTime& dateTime, THash seed)
{
    return dateTime.isValid() ? qHash(msecsOf(dateTime), seed) : qHash(dateTime, seed);
}

void write(QDataStream& stream, const QDateTime& dateTime)
{
    const bool isLocal = dateTime.isValid() && dateTime.timeSpec() == Qt::LocalTime;
    if (isLocal && stream.version() == QDataStream::Qt_5_0) {
        const QDateTime utc = toTimeSpec(dateTime, Qt::UTC);
        stream << utc.date() << utc.time() << static_cast<qint8>(Qt::LocalTime);
    } else {
        stream << dateTime;
    }
}

void write(QDataStream& stream, const QVariant& value)
{
    if (value.userType() == QMetaType::QDateTime && stream.version() == QDataStream::Qt_5_0) {
        stream << static_cast<quint32>(QMetaType::QDateTime) << static_cast<qint8>(value.isNull());
        write(stream, *static_cast<const QDateTime*>(value.constData()));
    } else {
        stream << value;
    }
}

} // namespace NQtCompat

#else

namespace NQtCompat {

QTimeZone systemZone(const QByteArray& name)
{
    return QTimeZone(name);
}

QDateTime toTimeSpec(const QDateTime& dateTime, Qt::TimeSpec spec)
{
    return dateTime.toTimeSpec(spec);
}

int offsetFromUtc(const QDateTime& dateTime)
{
    return dateTime.offsetFromUtc();
}

bool isEqual(const QDateTime& left, const QDateTime& right)
{
    return left == right;
}

bool isBefore(const QDateTime& left, const QDateTime& right)
{
    return left < right;
}

THash hashOf(const QDateTime& dateTime, THash seed)
{
    return qHash(dateTime, seed);
}

void write(QDataStream& stream, const QDateTime& dateTime)
{
    stream << dateTime;
}

void write(QDataStream& stream, const QVariant& value)
{
    stream << value;
}

} // namespace NQtCompat

#endif
