#include <core/text/CDateTime.h>

#include <core/base/QtReady.h>
#include <core/types/DateTimeStream.h>
#include <core/types/PackedDateTime.h>

#include <QDataStream>
#include <QDebug>
#include <QTimeZone>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr int MS_PER_HUNDREDTH = 10;

QDate dateOf(const NTypes::tsDate& date)
{
    return QDate(date.year, date.month, date.day);
}

QTime timeOf(const NTypes::tsTime& time)
{
    return QTime(time.hour, time.minute, time.second, time.hundredths * MS_PER_HUNDREDTH);
}

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
        const int offset = dateTime.offsetFromUtc() / MINUTE * MINUTE;
        const QString text = dateTime.toOffsetFromUtc(offset).toString(Qt::ISODateWithMs);
        if (text.isEmpty()) {
            debug << dateTime.toMSecsSinceEpoch() << " ms since 1970";
        } else {
            debug << text;
        }
    }
    showSpec(debug, dateTime);
}

} // namespace

CDateTime::CDateTime() = default;

CDateTime::CDateTime(const QDateTime& dateTime)
    : mDateTime(dateTime)
{}

CDateTime::CDateTime(const long long& packed, Qt::TimeSpec spec)
    : CDateTime(NPackedDateTime::unpack(packed), spec)
{}

CDateTime::CDateTime(const NTypes::tsDateTime& record, Qt::TimeSpec spec)
    : mDateTime(dateTimeOf(dateOf(record.date), timeOf(record.time), spec))
{}

CDateTime::~CDateTime() = default;

CDateTime& CDateTime::operator=(const QDateTime& dateTime)
{
    mDateTime = dateTime;
    return *this;
}

CDateTime& CDateTime::operator=(const long long& packed)
{
    return *this = NPackedDateTime::unpack(packed);
}

CDateTime& CDateTime::operator=(const NTypes::tsDateTime& record)
{
    setFields(dateOf(record.date), timeOf(record.time));
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

Qt::TimeSpec CDateTime::timeSpec() const
{
    return mDateTime.timeSpec();
}

bool CDateTime::isNull() const
{
    return mDateTime.isNull();
}

bool CDateTime::isValid() const
{
    return mDateTime.isValid();
}

QDateTime CDateTime::toQDateTime(Qt::TimeSpec spec) const
{
    return mDateTime.toTimeSpec(spec);
}

QString CDateTime::toIsoDateTime(Qt::TimeSpec spec) const
{
    return toQDateTime(spec).toString(Qt::ISODate);
}

unsigned long long CDateTime::toI64(Qt::TimeSpec spec) const
{
    const QDateTime dateTime = toQDateTime(spec);
    int year = 0;
    int month = 0;
    int day = 0;
    dateTime.date().getDate(&year, &month, &day);
    const QTime time = dateTime.time();
    const int ms = time.msec();
    const int hundredths = ms >= 1 ? ms / MS_PER_HUNDREDTH : 0;
    const NTypes::tsDateTime record = {
        {static_cast<qint8>(hundredths), static_cast<qint8>(time.second()), static_cast<qint8>(time.minute()),
         static_cast<qint8>(time.hour())},
        {static_cast<qint8>(day), static_cast<qint8>(month), static_cast<qint16>(year)}};
    return static_cast<quint64>(NPackedDateTime::pack(record));
}

QByteArray CDateTime::toI64ByteArray(Qt::TimeSpec spec) const
{
    QByteArray bytes(int(sizeof(quint64)), Qt::Uninitialized);
    qToLittleEndian<quint64>(toI64(spec), bytes.data());
    return bytes;
}

CDateTime CDateTime::fromI64ByteArray(const QByteArray& bytes, Qt::TimeSpec spec)
{
    char image[sizeof(quint64)] = {};
    std::memcpy(image, bytes.constData(), std::min(static_cast<std::size_t>(bytes.size()), sizeof(image)));
    return CDateTime(static_cast<long long>(qFromLittleEndian<quint64>(image)), spec);
}

bool CDateTime::operator==(const CDateTime& other) const
{
    return mDateTime == other.mDateTime;
}

bool CDateTime::operator!=(const CDateTime& other) const
{
    return mDateTime != other.mDateTime;
}

bool CDateTime::operator<(const CDateTime& other) const
{
    return mDateTime < other.mDateTime;
}

bool CDateTime::operator>(const CDateTime& other) const
{
    return mDateTime > other.mDateTime;
}

bool CDateTime::operator<=(const CDateTime& other) const
{
    return mDateTime <= other.mDateTime;
}

bool CDateTime::operator>=(const CDateTime& other) const
{
    return mDateTime >= other.mDateTime;
}

void CDateTime::setFields(const QDate& date, const QTime& time)
{
    const Qt::TimeSpec spec = mDateTime.timeSpec();
    if (spec == Qt::LocalTime || spec == Qt::UTC) {
        // One look into the time zone instead of the two that setDate() and setTime() take.
        mDateTime = dateTimeOf(date, time, spec);
        return;
    }
    mDateTime.setDate(time.isValid() ? date : QDate());
    mDateTime.setTime(time);
}

QDataStream& operator<<(QDataStream& stream, const CDateTime& dateTime)
{
    return stream << NDateTimeStream::writable(dateTime.mDateTime);
}

QDataStream& operator>>(QDataStream& stream, CDateTime& dateTime)
{
    NDateTimeStream::read(stream, dateTime.mDateTime);
    return stream;
}

NQtCompat::THash qHash(const CDateTime& dateTime, NQtCompat::THash seed) noexcept
{
    return qHash(dateTime.mDateTime, seed);
}

QDebug operator<<(QDebug debug, const CDateTime& dateTime)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CDateTime(";
    showInstant(debug, dateTime.mDateTime);
    debug << ')';
    return debug;
}
