#ifndef TLXCORE_QTZONES_H
#define TLXCORE_QTZONES_H

#include <core/base/QtCompat.h>

#include <QDateTime>

class QDataStream;
class QTimeZone;
class QVariant;

/**
 * Date-times by Qt 5.15's rules. It takes standard time for every local time before 1970, and for one after 2037 the rule of
 * the same day in 2037; Qt 6 follows the zone's own rules. With Qt 5 each function asks Qt.
 */
namespace NQtCompat {

/// Returns a time zone that the system knows. Qt 6 takes a POSIX rule such as "NOX0" for the name of a zone, too, where
/// zones are files.
QTimeZone systemZone(const QByteArray& name);

/// QDateTime::toTimeSpec().
QDateTime toTimeSpec(const QDateTime& dateTime, Qt::TimeSpec spec);

/// QDateTime::offsetFromUtc(), in seconds.
int offsetFromUtc(const QDateTime& dateTime);

/// Compares instants. Date-times that are not valid are equal, and before all others.
bool isEqual(const QDateTime& left, const QDateTime& right);
bool isBefore(const QDateTime& left, const QDateTime& right);
THash hashOf(const QDateTime& dateTime, THash seed);

/// Writes a date-time. A stream of version 5.0 holds it in UTC.
void write(QDataStream& stream, const QDateTime& dateTime);

/// Writes a variant, which may hold a date-time.
void write(QDataStream& stream, const QVariant& value);

} // namespace NQtCompat

#endif // TLXCORE_QTZONES_H
