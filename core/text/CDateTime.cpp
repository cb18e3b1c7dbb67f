#include <core/text/CDateTime.h>

#include <core/base/QtReady.h>
#include <core/base/QtZones.h>
#include <core/types/DateTimeStream.h>
#include <core/types/PackedDateTime.h>

#include <QDataStream>
#include <QDebug>
#include <QTimeZone>
#include <QtEndian>

using namespace NPackedDateTime;

namespace {

// Qt has no offset and no zone to go with these two, and takes UTC and local time. A QDateTime with a date takes
// midnight for a time that is none: without a date it stays not valid.
QDateTime dateTimeOf(const QDate& date, const QTime& time, Qt::TimeSpec spec)
{
    const bool utc = spec == Qt::UTC || spec == Qt::OffsetFromUTC;
    return QDateTime(time.isValid() ? date : QDate(), time, utc ? Qt::UTC : Qt::LocalTime);
}

void showSpec(QDebug& debug, const QDateTime& dateTime)
{
    if (dateTime.timeSpec() == Qt::LocalTime) {
        debug << ", local time";
    } else if (dateTime.timeSpec() == Qt::TimeZone) {
        debug << ", " << dateTime.timeZone().id().constData();
    }
}

// With the offset, which tells the two passes through the hour that the end of daylight saving repeats. A zone's offset
// before its standard time has seconds, which the text lacks; Qt has no text of years beyond 0 to 9999.
void showInstant(QDebug& debug, const QDateTime& dateTime)
{
    constexpr int MINUTE = 60;
    if (dateTime.isNull()) {
        return;
    }
    if (!dateTime.isValid()) {
        debug << "not valid, " << dateTime.date() << ", " << dateTime.time();
    } else {
        const int offset = NQtCompat::offsetFromUtc(dateTime) / MINUTE * MINUTE;
        const QDateTime utc = NQtCompat::toTimeSpec(dateTime, Qt::UTC);
        const QString text = utc.toOffsetFromUtc(offset).toString(Qt::ISODateWithMs);
        if (text.isEmpty()) {
            debug << utc.toMSecsSinceEpoch() << " ms since 1970";
        } else {
            debug << text;
        }
    }
    showSpec(debug, dateTime);
}

} // namespace

CDateTime::CDateTime(const long long& packed, Qt::TimeSpec spec)
    : CDateTime(unpack(packed), spec)
{}

CDateTime::CDateTime(const NTypes::tsDateTime& record, Qt::TimeSpec spec)
    : mDateTime(dateTimeOf(dateOf(record.date), timeOf(record.time), spec))
{}

CDateTime::~CDateTime() = default;

CDateTime& CDateTime::operator=(const long long& packed)
{
    return *this = unpack(packed);
}

CDateTime& CDateTime::operator=(const NTypes::tsDateTime& record)
{
    const Qt::TimeSpec spec = mDateTime.timeSpec();
    const QTime time = timeOf(record.time);
    if (spec == Qt::LocalTime || spec == Qt::UTC) {
        mDateTime = dateTimeOf(dateOf(record.date), time, spec);
    } else {
        mDateTime.setDate(time.isValid() ? dateOf(record.date) : QDate());
        mDateTime.setTime(time);
    }
    return *this;
}

void CDateTime::setDate(const NTypes::tsDate& date)
{
    mDateTime.setDate(dateOf(date));
}

void CDateTime::setTime(const NTypes::tsTime& time)
{
    const QTime value = timeOf(time);
    if (!value.isValid()) {
        mDateTime.setDate(QDate());
    }
    mDateTime.setTime(value);
}

void CDateTime::setTimeSpec(Qt::TimeSpec spec)
{
    if (spec != mDateTime.timeSpec()) {
        mDateTime = toQDateTime(spec);
    }
}

QDateTime CDateTime::toQDateTime(Qt::TimeSpec spec) const
{
    return NQtCompat::toTimeSpec(mDateTime, spec);
}

QString CDateTime::toIsoDateTime(Qt::TimeSpec spec) const
{
    return toQDateTime(spec).toString(Qt::ISODate);
}

unsigned long long CDateTime::toI64(Qt::TimeSpec spec) const
{
    return static_cast<quint64>(pack(recordOf(toQDateTime(spec))));
}

QByteArray CDateTime::toI64ByteArray(Qt::TimeSpec spec) const
{
    QByteArray bytes(int(sizeof(quint64)), Qt::Uninitialized);
    qToLittleEndian<quint64>(toI64(spec), bytes.data());
    return bytes;
}

CDateTime CDateTime::fromI64ByteArray(const QByteArray& bytes, Qt::TimeSpec spec)
{
    const QByteArray eight = bytes.leftJustified(int(sizeof(quint64)), '\0');
    return CDateTime(qFromLittleEndian<qint64>(eight.constData()), spec);
}

bool CDateTime::operator==(const CDateTime& other) const
{
    return NQtCompat::isEqual(mDateTime, other.mDateTime);
}

bool CDateTime::operator<(const CDateTime& other) const
{
    return NQtCompat::isBefore(mDateTime, other.mDateTime);
}

QDataStream& operator<<(QDataStream& stream, const CDateTime& dateTime)
{
    NQtCompat::write(stream, NDateTimeStream::writable(dateTime.mDateTime));
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CDateTime& dateTime)
{
    NDateTimeStream::read(stream, dateTime.mDateTime);
    return stream;
}

NQtCompat::THash qHash(const CDateTime& dateTime, NQtCompat::THash seed) noexcept
{
    return NQtCompat::hashOf(dateTime.mDateTime, seed);
}

QDebug operator<<(QDebug debug, const CDateTime& dateTime)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CDateTime(";
    showInstant(debug, dateTime.mDateTime);
    debug << ')';
    return debug;
}
