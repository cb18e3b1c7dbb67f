#ifndef TLXCORE_CTIME_H
#define TLXCORE_CTIME_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QHash>
#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A duration: an unsigned 64-bit count of a unit, picoseconds to hours.
 *
 * Conversions run in double through seconds and round half away from zero. Out of range is defined: 2^63 and above, and
 * NaN, become 2^63; negative values wrap.
 *
 * A default object counts 0 of CTime::UNIT_UNKNOWN. isValid() accepts nanoseconds to hours only. An unknown unit is
 * treated as seconds.
 *
 * @code
 * const CTime period(1500, CTime::UNIT_MS);
 * period.toS();                                        // 2
 * period.value(CTime::UNIT_US);                        // 1500000
 * period == CTime(1500000000, CTime::UNIT_NS);         // true
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
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

    /// Maps the seven unit texts to units. Initialised before the program's own static objects.
    static const QHash<QString, ETimeUnit> mUnitHash;

    /// Returns the pairs of mUnitHash.
    static QHash<QString, ETimeUnit> createUnitHash();

    /// Constructs a count of 0 of UNIT_UNKNOWN.
    CTime();
    /// Constructs a count of a unit.
    CTime(unsigned long long value, ETimeUnit unit);

    /// Shares the data. Moving does the same: what was moved from keeps its duration.
    CTime(const CTime& other) noexcept;
    /// Shares the data, as the constructor does.
    CTime& operator=(const CTime& other) noexcept;
    virtual ~CTime();

    /// Returns the count, in the unit held.
    unsigned long long value() const;

    /// Returns the duration as a count of `target`, rounded half away from zero; unchanged in the unit held.
    unsigned long long value(ETimeUnit target) const;

    /// Returns the unit held.
    ETimeUnit unit() const;

    void setValue(unsigned long long value) { setValue(value, unit()); } ///< Sets the count; the unit stays.
    void setUnit(ETimeUnit unit) { setValue(value(), unit); } ///< Sets the unit; the count stays as it is.
    void setValue(unsigned long long value, ETimeUnit unit);  ///< Sets the count and the unit.

    /// Returns true for nanoseconds to hours. A duration in picoseconds is not valid.
    bool isValid() const { return unit() >= UNIT_NS && unit() <= UNIT_H; }

    unsigned long long toNS() const { return value(UNIT_NS); } ///< Returns value() in nanoseconds.
    unsigned long long toMS() const { return value(UNIT_MS); } ///< Returns value() in milliseconds.
    unsigned long long toS() const { return value(UNIT_S); }   ///< Returns value() in seconds.

    /// Takes the duration of `other` and counts it in this object's unit, rounded half away from zero.
    void fromValue(const CTime& other) { setValue(other.value(unit())); }

    /// Calls the static convertToPrevIntegerValue() with the count, as a signed number, and the unit.
    bool convertToPrevIntegerValue(long long& value, ETimeUnit& unit) const;

    /**
     * @brief Finds the first smaller unit in which a duration is whole, and writes the whole part in the unit before.
     *
     * The arithmetic runs in double through seconds. Rounding may make a whole count look fractional (3 ns).
     *
     * @code
     * long long count = 0;
     * CTime::ETimeUnit unit = CTime::UNIT_UNKNOWN;
     * CTime::convertToPrevIntegerValue(1.5, CTime::UNIT_S, count, unit);    // true: 1500 ms is whole; 1 and UNIT_S
     * CTime::convertToPrevIntegerValue(2.0, CTime::UNIT_S, count, unit);    // false: whole already, nothing written
     * @endcode
     *
     * @return true if such a pair was written. false with nothing written for 0, for picoseconds, for a value that is
     *         whole in `unit` and for NaN and infinities. false with the picoseconds written for a value that is whole
     *         in no unit.
     */
    static bool convertToPrevIntegerValue(const double& value, ETimeUnit unit, long long& outValue,
                                          ETimeUnit& outUnit);

    /// Returns `value`, which counts `from`, as a count of `to`. Unknown units are treated as seconds.
    static double convertValue(const double& value, ETimeUnit from, ETimeUnit to);

    /// Returns `value`, which counts `unit`, in seconds; unchanged for an unknown unit.
    static double toS(const double& value, ETimeUnit unit);

    /// Returns the unit's text; empty for an unknown unit.
    static QString unitStr(ETimeUnit unit) { return mUnitHash.key(unit); }

    /// Returns the unit of a text, ignoring its case (QString::toLower()); UNIT_UNKNOWN for any other text.
    static ETimeUnit unit(const QString& text) { return mUnitHash.value(text.toLower(), UNIT_UNKNOWN); }

    /// Compares two durations in whole nanoseconds, also if their units are equal: 1 ps equals 2 ps.
    bool operator==(const CTime& other) const { return toNS() == other.toNS(); }
    /// The negation of operator==.
    bool operator!=(const CTime& other) const { return toNS() != other.toNS(); }

    /// @name Order of durations
    /// @{

    /// Compares in whole nanoseconds.
    bool operator<(const CTime& other) const { return toNS() < other.toNS(); }
    bool operator>(const CTime& other) const { return toNS() > other.toNS(); }
    bool operator<=(const CTime& other) const { return toNS() <= other.toNS(); }
    bool operator>=(const CTime& other) const { return toNS() >= other.toNS(); }
    /// @}

private:
    struct SData;

    QSharedDataPointer<SData> d;
};

/**
 * @brief Returns the sum of two durations of different units, in the unit of `a`, truncated.
 *
 * For equal units the result is twice the unit's number (6 ms for any two durations in milliseconds), not the sum.
 * Callers rely on this, and add counts of equal units themselves. Sums beyond 64 bits of nanoseconds wrap.
 */
TLXCORE_EXPORT CTime operator+(const CTime& a, const CTime& b);

/// Returns the count times the factor, rounded half away from zero, in the same unit.
TLXCORE_EXPORT CTime operator*(const CTime& time, double factor);
/// The same as time * factor.
TLXCORE_EXPORT CTime operator*(double factor, const CTime& time);

/// Writes the count as an unsigned 64-bit and the unit as a signed 32-bit number, in the stream's byte order.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CTime& time);

/// Reads both numbers and stores them as they are. Fields missing from a truncated stream read as 0.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CTime& time);

/// Equal for durations that are equal in nanoseconds.
TLXCORE_EXPORT NQtCompat::THash qHash(const CTime& time, NQtCompat::THash seed = 0) noexcept;

/// Shows the type, the count and the unit: CTime(1500 ms), CTime(5 unit 7).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CTime& time);

/// Shows the enumerator, CTime::UNIT_MS; another number as CTime::ETimeUnit(99).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, CTime::ETimeUnit unit);

Q_DECLARE_TYPEINFO(CTime, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CTime)
Q_DECLARE_METATYPE(CTime::ETimeUnit)

#endif // TLXCORE_CTIME_H
