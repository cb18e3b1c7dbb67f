#ifndef TLXCORE_QTZONES_H
#define TLXCORE_QTZONES_H

#include <QDataStream>
#include <QDateTime>
#include <QFile>
#include <QTimeZone>

namespace NQtCompat {

/// Returns a time zone that the system knows. Qt 6 takes a POSIX rule such as "NOX0" for the name of a zone, too, where
/// zones are files.
inline QTimeZone systemZone(const QByteArray& name)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const auto isFile = [&name](const char* folder) {
        return QFile::exists(QFile::decodeName(folder + name));
    };
    if (!name.startsWith("UTC") && !isFile("/usr/share/zoneinfo/") && !isFile("/usr/lib/zoneinfo/")) {
        return QTimeZone();
    }
#endif
    return QTimeZone(name);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

/// The offset of a local time, in seconds. Qt 5 knows the zone's own rules from 1970 to 2037: it takes standard time before
/// and the same day of 2037 after that.
inline int localOffset(const QDateTime& local)
{
    const QDate date = local.date();
    if (date.year() < 1970) {
        return QTimeZone::systemTimeZone().standardTimeOffset(
            QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC));
    }
    const bool isLeapDay = date.month() == 2 && date.day() == 29;
    const QDate known = date.year() > 2037 ? QDate(2037, date.month(), isLeapDay ? 28 : date.day()) : date;
    return QDateTime(known, local.time(), Qt::LocalTime).offsetFromUtc();
}

/// QDateTime::toTimeSpec() of Qt 5.
inline QDateTime toTimeSpec(const QDateTime& dateTime, Qt::TimeSpec spec)
{
    const int year = dateTime.date().year();
    if (!dateTime.isValid() || (year > 1970 && year < 2037)
        || (spec == Qt::LocalTime) == (dateTime.timeSpec() == Qt::LocalTime)) {
        return dateTime.toTimeSpec(spec);
    }
    if (spec != Qt::LocalTime) {
        return QDateTime(dateTime.date(), dateTime.time(), Qt::UTC)
            .addSecs(-localOffset(dateTime))
            .toTimeSpec(spec);
    }
    const QDateTime utc = dateTime.toUTC();
    QDateTime local = utc.addSecs(localOffset(utc));
    local = utc.addSecs(localOffset(local));
    return QDateTime(local.date(), local.time(), Qt::LocalTime);
}

/// Writes a date-time. A stream of version 5.0 holds it in UTC.
inline void writeDateTime(QDataStream& stream, const QDateTime& dateTime)
{
    if (stream.version() == QDataStream::Qt_5_0 && dateTime.isValid()
        && dateTime.timeSpec() == Qt::LocalTime) {
        const QDateTime utc = toTimeSpec(dateTime, Qt::UTC);
        stream << utc.date() << utc.time() << static_cast<qint8>(Qt::LocalTime);
    } else {
        stream << dateTime;
    }
}

#else

inline QDateTime toTimeSpec(const QDateTime& dateTime, Qt::TimeSpec spec)
{
    return dateTime.toTimeSpec(spec);
}

inline void writeDateTime(QDataStream& stream, const QDateTime& dateTime)
{
    stream << dateTime;
}

#endif

} // namespace NQtCompat

#endif // TLXCORE_QTZONES_H
