#include <core/types/DateTimeStream.h>

#include <core/base/QtReady.h>
#include <core/base/QtZones.h>

#include <QDataStream>
#include <QDateTime>
#include <QTimeZone>

// The layout: date and time of day; from Qt 4.0 the time spec (8 bits), whose numbers are those of Qt::TimeSpec in
// Qt 5.0 and from 5.2, and Qt 4's own in between and before; from 5.2 an offset (32 bits) or a time zone behind it. The
// fields are in the time spec, but in UTC at 5.0.
namespace NDateTimeStream {

namespace {

// Qt 4's numbers: three kinds of local time, then these.
constexpr qint8 QT4_UTC = 2;
constexpr qint8 QT4_OFFSET = 3;

struct SFields
{
    QDate date;
    QTime time;
    qint8 spec = Qt::LocalTime;
};

// A zone is a file in the system's folder of zones.
bool isZoneName(const QString& name)
{
    return !name.startsWith(QLatin1Char('/')) && !name.contains(QLatin1String(".."));
}

// Only a zone that is known here: Qt crashes when it writes a date-time in any other.
bool readZone(QDataStream& stream, QTimeZone& zone)
{
    QString name;
    stream >> name;
    if (name != QLatin1String("OffsetFromUtc")) {
        zone = isZoneName(name) ? NQtCompat::systemZone(name.toUtf8()) : QTimeZone();
        return zone.isValid();
    }
    qint32 offset = 0;
    qint32 country = 0;
    QString longName;
    QString abbreviation;
    QString comment;
    stream >> name >> offset >> longName >> abbreviation >> country >> comment;
    if (!isZoneName(name)) {
        return false;
    }
    zone = NQtCompat::systemZone(name.toUtf8());
    if (!zone.isValid()) {
        zone = QTimeZone(name.toUtf8(), offset, longName, abbreviation,
                         static_cast<QLocale::Country>(country), comment);
    }
    return zone.isValid();
}

bool readInSpec(QDataStream& stream, const SFields& fields, QDateTime& dateTime)
{
    switch (fields.spec) {
    case Qt::LocalTime:
    case Qt::UTC:
        dateTime = QDateTime(fields.date, fields.time, static_cast<Qt::TimeSpec>(fields.spec));
        return true;
    case Qt::OffsetFromUTC: {
        qint32 offset = 0;
        stream >> offset;
        dateTime = QDateTime(fields.date, fields.time, Qt::OffsetFromUTC, offset);
        return true;
    }
    case Qt::TimeZone: {
        QTimeZone zone;
        const bool named = readZone(stream, zone);
        dateTime = QDateTime(fields.date, fields.time, zone);
        return named;
    }
    default:
        return false;
    }
}

bool readAtVersion(QDataStream& stream, QDateTime& dateTime)
{
    SFields fields;
    stream >> fields.date >> fields.time;
    const int version = stream.version();
    if (version >= QDataStream::Qt_4_0) {
        stream >> fields.spec;
    }
    if (version >= QDataStream::Qt_5_2) {
        return readInSpec(stream, fields, dateTime);
    }
    if (version == QDataStream::Qt_5_0) {
        if (fields.spec < Qt::LocalTime || fields.spec > Qt::TimeZone) {
            return false;
        }
        // There is no zone to go with one: Qt 5 takes local time, Qt 6 does so with a warning.
        const auto written = static_cast<Qt::TimeSpec>(fields.spec);
        const Qt::TimeSpec spec = written == Qt::TimeZone ? Qt::LocalTime : written;
        dateTime = NQtCompat::toTimeSpec(QDateTime(fields.date, fields.time, Qt::UTC), spec);
        return true;
    }
    const bool utc = version >= QDataStream::Qt_4_0 && (fields.spec == QT4_UTC || fields.spec == QT4_OFFSET);
    dateTime = QDateTime(fields.date, fields.time, utc ? Qt::UTC : Qt::LocalTime);
    return true;
}

} // namespace

bool read(QDataStream& stream, QDateTime& dateTime)
{
    const bool wasCorrupt = stream.status() == QDataStream::ReadCorruptData;
    const bool done = readAtVersion(stream, dateTime);
    // A name that Qt calls corrupt, such as half a UTF-16 unit, is none.
    if (done && (wasCorrupt || stream.status() != QDataStream::ReadCorruptData)) {
        return true;
    }
    dateTime = QDateTime();
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

QDateTime writable(const QDateTime& dateTime)
{
    const bool hasNoZone = dateTime.timeSpec() == Qt::TimeZone && !dateTime.timeZone().isValid();
    return hasNoZone ? QDateTime() : dateTime;
}

} // namespace NDateTimeStream
