#ifndef TLXCORE_CTIME_H
#define TLXCORE_CTIME_H

#include <core/tlxCoreExport.h>

#include <QHash>
#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

class CTimeData;
class QDataStream;
class QDebug;

/**
 * @brief A duration: an unsigned 64-bit count of a unit, picoseconds to hours.
 *
 * Conversions run in double through seconds and round half away from zero. What a conversion makes of a duration
 * that leaves 64 bits is defined: a number from 2^63 up counts as 2^63 (CMath::round takes no more), a negative one
 * as its two's complement, NaN as 2^63.
 *
 * A default object counts 0 of CTime::UNIT_UNKNOWN. isValid() accepts nanoseconds to hours only; a unit that is none
 * converts as if it were seconds.
 *
 * @code
 * const CTime period(1500, CTime::UNIT_MS);
 * period.toS();                                        // 2
 * period.value(CTime::UNIT_US);                        // 1500000
 * period == CTime(1500000000, CTime::UNIT_NS);         // true
 * @endcode
 */
class TLXCORE_EXPORT CTime
{
public:
    /// Units; the numbers travel in streams. A stream stores whatever 32-bit number it reads.
    enum ETimeUnit : qint32
    {
        UNIT_PS = 0,     ///< Picosecond, "ps".
        UNIT_NS = 1,     ///< Nanosecond, "ns".
        UNIT_US = 2,     ///< Microsecond, U+00B5 and "s".
        UNIT_MS = 3,     ///< Millisecond, "ms".
        UNIT_S = 4,      ///< Second, "s".
        UNIT_MIN = 5,    ///< Minute, "min".
        UNIT_H = 6,      ///< Hour, "h".
        UNIT_UNKNOWN = 7 ///< No unit.
    };

    /// From a unit's text to the unit: the seven units. Ready before the static objects of a program are made.
    static const QHash<QString, ETimeUnit> mUnitHash;

    /// The pairs of mUnitHash.
    static QHash<QString, ETimeUnit> createUnitHash();

    /// Counts 0 of UNIT_UNKNOWN.
    CTime();
    CTime(unsigned long long value, ETimeUnit unit);

    /// Shares the data. Moving does the same: what was moved from keeps its duration.
    CTime(const CTime& other) noexcept;
    CTime& operator=(const CTime& other) noexcept;
    virtual ~CTime();

    /// The count, in the unit held.
    unsigned long long value() const;

    /// The duration as a count of `target`, rounded half away from zero; the count itself in the unit held.
    unsigned long long value(ETimeUnit target) const;

    /// The unit held.
    ETimeUnit unit() const;

    /// Sets the count, the unit (the count stays as it is), or both.
    void setValue(unsigned long long value);
    void setUnit(ETimeUnit unit);
    void setValue(unsigned long long value, ETimeUnit unit);

    /// True for nanoseconds to hours; picoseconds are no valid unit of a duration.
    bool isValid() const;

    /// value() in nanoseconds, milliseconds and seconds.
    unsigned long long toNS() const;
    unsigned long long toMS() const;
    unsigned long long toS() const;

    /// Takes the duration of `other`, counted in this object's unit, rounded half away from zero.
    void fromValue(const CTime& other);

    /// convertToPrevIntegerValue() of the count, as a signed number, and the unit.
    bool convertToPrevIntegerValue(long long& value, ETimeUnit& unit) const;

    /**
     * @brief Goes down from `unit` to the first smaller unit in which the duration is whole, and gives the whole part
     * in the unit before it: 1.5 s gives 1 and seconds, since 1500 ms is whole.
     *
     * The arithmetic runs in double through seconds, so that a count which is whole is not always seen as whole
     * (3 ns).
     *
     * @return true when such a pair was written. false with nothing written for 0, for picoseconds, for a value that
     *         is whole in `unit` and for one that is no finite number; false with the picoseconds written for a value
     *         that is whole in no unit.
     */
    static bool convertToPrevIntegerValue(const double& value, ETimeUnit unit, long long& outValue,
                                          ETimeUnit& outUnit);

    /// `value` in `from`, counted in `to`. UNIT_UNKNOWN and numbers that are no unit count as seconds.
    static double convertValue(const double& value, ETimeUnit from, ETimeUnit to);

    /// `value` in `unit`, counted in seconds; unchanged for what is no unit.
    static double toS(const double& value, ETimeUnit unit);

    /// The unit's text; empty for what is no unit.
    static QString unitStr(ETimeUnit unit);

    /// The unit of a text, whose case does not matter (QString::toLower()); UNIT_UNKNOWN when there is none.
    static ETimeUnit unit(const QString& text);

    /// Comparisons of the two durations in whole nanoseconds, of equal units too: 1 ps equals 2 ps.
    bool operator==(const CTime& other) const;
    bool operator!=(const CTime& other) const;
    bool operator<(const CTime& other) const;
    bool operator>(const CTime& other) const;
    bool operator<=(const CTime& other) const;
    bool operator>=(const CTime& other) const;

private:
    QSharedDataPointer<CTimeData> d;
};

/**
 * @brief The sum of two durations of different units, in the unit of `a`, truncated.
 *
 * For equal units the result counts twice the unit's number (6 ms for any two durations in milliseconds) and not the
 * sum: callers rely on it, and add counts of equal units themselves. Sums beyond 64 bits of nanoseconds wrap.
 */
TLXCORE_EXPORT CTime operator+(const CTime& a, const CTime& b);

/// The count times the factor, rounded half away from zero, in the same unit.
TLXCORE_EXPORT CTime operator*(const CTime& time, double factor);
TLXCORE_EXPORT CTime operator*(double factor, const CTime& time);

/// Writes the count as unsigned 64-bit and the unit as signed 32-bit number, in the stream's byte order.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CTime& time);

/// Reads both numbers and stores them as they are; what a stream that ended too early lacks reads as 0.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CTime& time);

/// Equal for durations that are equal in nanoseconds.
TLXCORE_EXPORT uint qHash(const CTime& time, uint seed = 0) noexcept;

/// Shows the type, the count and the unit: CTime(1500 ms), CTime(5 unit 7).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CTime& time);

Q_DECLARE_TYPEINFO(CTime, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CTime)
Q_DECLARE_METATYPE(CTime::ETimeUnit)

#endif // TLXCORE_CTIME_H
