#ifndef TLXCORE_CDATETIME_H
#define TLXCORE_CDATETIME_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>
#include <core/types/NTypes.h>

#include <QByteArray>
#include <QDateTime>
#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A date-time with its time spec, and the forms in which devices carry it.
 *
 * Wraps a QDateTime (Gregorian calendar, milliseconds, local time, UTC or an offset). Devices carry a calendar
 * breakdown without a zone: the record NTypes::tsDateTime, or the same eight bytes as one packed number, least
 * significant byte first: hundredths of a second, second, minute, hour, day, month, year (16 bits).
 *
 * A default object is null and not valid. An impossible date (month 13) or time (hour 25) makes the date-time not
 * valid; QDateTime alone would take midnight for the latter.
 *
 * @code
 * const CDateTime made(0x07E803050D07092DLL, Qt::UTC);
 * made.toIsoDateTime(Qt::UTC);                         // "2024-03-05T13:07:09Z"
 * made.toI64ByteArray(Qt::UTC).toHex(' ');             // "2d 09 07 0d 05 03 e8 07"
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
 */
class TLXCORE_EXPORT CDateTime
{
public:
    CDateTime() = default; ///< A null date-time in local time.

    /// Wraps `dateTime` as it is.
    CDateTime(const QDateTime& dateTime)
        : mDateTime(dateTime)
    {}

    /// Constructs a date-time from the packed form, whose fields are wall-clock fields in `spec`.
    CDateTime(const long long& packed, Qt::TimeSpec spec);

    /// Constructs a date-time from a record, whose fields are wall-clock fields in `spec`.
    CDateTime(const NTypes::tsDateTime& record, Qt::TimeSpec spec);

    /// Copies date, time and time spec.
    CDateTime(const CDateTime& other) = default;
    /// Copies date, time and time spec.
    CDateTime& operator=(const CDateTime& other) = default;
    virtual ~CDateTime();

    /// Takes `dateTime` with its time spec.
    CDateTime& operator=(const QDateTime& dateTime) { return *this = CDateTime(dateTime); }

    /// Takes the fields of the packed form; the time spec stays.
    CDateTime& operator=(const long long& packed);

    /// Takes the fields of the record; the time spec stays.
    CDateTime& operator=(const NTypes::tsDateTime& record);

    /// Sets the date; time and time spec stay. An impossible date makes the date-time not valid.
    void setDate(const NTypes::tsDate& date);

    /**
     * @brief Sets the time of day; date and time spec stay.
     *
     * An impossible time makes the date-time not valid, which takes its date away: a date set afterwards starts at
     * midnight.
     */
    void setTime(const NTypes::tsTime& time);

    /**
     * @brief Converts into `spec`: the instant stays, the fields change. The same time spec changes nothing.
     *
     * As with QDateTime, Qt::OffsetFromUTC means UTC and Qt::TimeZone local time. The fields of a date-time that is not
     * valid stay.
     */
    void setTimeSpec(Qt::TimeSpec spec);

    /// Returns the time spec held.
    Qt::TimeSpec timeSpec() const { return mDateTime.timeSpec(); }

    /// Returns true if neither a date nor a time is held.
    bool isNull() const { return mDateTime.isNull(); }

    /// Returns true for an existing date and time of day in the time spec held.
    bool isValid() const { return mDateTime.isValid(); }

    /// Returns the date-time converted into `spec`.
    QDateTime toQDateTime(Qt::TimeSpec spec) const;

    /// Returns ISO 8601 text in `spec`, to the second: "2024-03-05T13:07:09Z" in UTC, no suffix in local time. Empty
    /// if not valid.
    QString toIsoDateTime(Qt::TimeSpec spec) const;

    /**
     * @brief Returns the packed form of the fields in `spec`. Truncated to hundredths and 16 bits of the year.
     *
     * Without a date its fields are 0; without a time hour, minute and second are 0xFF each, the hundredths 0.
     */
    unsigned long long toI64(Qt::TimeSpec spec) const;

    /// Returns the packed form as 8 bytes, little-endian: the hundredths first, the high byte of the year last.
    QByteArray toI64ByteArray(Qt::TimeSpec spec) const;

    /// Returns the date-time of the first 8 bytes of `bytes`, little-endian. Missing bytes count as zero.
    static CDateTime fromI64ByteArray(const QByteArray& bytes, Qt::TimeSpec spec);

    /// Compares instants, whatever the time specs, as QDateTime does.
    bool operator==(const CDateTime& other) const;
    /// The negation of operator==.
    bool operator!=(const CDateTime& other) const { return !(*this == other); }

    /// @name Order of instants
    /// @{

    /// Compares instants.
    bool operator<(const CDateTime& other) const;
    bool operator>(const CDateTime& other) const { return other < *this; }
    bool operator<=(const CDateTime& other) const { return !(other < *this); }
    bool operator>=(const CDateTime& other) const { return !(*this < other); }
    /// @}

private:
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDateTime& dateTime);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDateTime& dateTime);
    friend TLXCORE_EXPORT NQtCompat::THash qHash(const CDateTime& dateTime, NQtCompat::THash seed) noexcept;
    friend TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDateTime& dateTime);

    QDateTime mDateTime;
};

/// Writes the date-time in QDateTime's stream format of the stream's version; null if the zone is unknown here.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDateTime& dateTime);

/// Reads QDateTime's stream format. A truncated stream sets its status and leaves what QDateTime leaves. An unknown
/// time spec or time zone sets ReadCorruptData and leaves a null date-time.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDateTime& dateTime);

/// Equal for equal instants.
TLXCORE_EXPORT NQtCompat::THash qHash(const CDateTime& dateTime, NQtCompat::THash seed = 0) noexcept;

/// Shows the type and the ISO 8601 text with milliseconds and offset, then the zone unless it is UTC or an offset:
/// CDateTime("2024-03-05T13:07:09.456Z"), CDateTime("2024-03-05T14:07:09.456+01:00", local time).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDateTime& dateTime);

Q_DECLARE_TYPEINFO(CDateTime, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CDateTime)

#endif // TLXCORE_CDATETIME_H
