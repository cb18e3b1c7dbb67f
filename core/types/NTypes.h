#ifndef TLXCORE_NTYPES_H
#define TLXCORE_NTYPES_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QtGlobal>

class QDataStream;
class QDebug;

/**
 * @brief The catalogue of value types that device objects carry, and the plain records for dates and times.
 *
 * The numbers of NTypes::ETypes travel in streams and parameter files and never change. An ETypes can hold any 32-bit
 * number (a stream stores what it reads); numbers above NTypes::TYPE_CHAR are unknown types.
 *
 * @see \ref typed_values
 * @since 1.0
 */
namespace NTypes {

/// Value types, by number. Their printable names are those of CStr::nTypeToStr, e.g. "U8".
enum ETypes : quint32
{
    TYPE_UNKNOWN = 0,     ///< No type.
    TYPE_U8 = 1,          ///< Unsigned integer, 8 bits.
    TYPE_I8 = 2,          ///< Signed integer, 8 bits.
    TYPE_U16 = 3,         ///< Unsigned integer, 16 bits.
    TYPE_I16 = 4,         ///< Signed integer, 16 bits.
    TYPE_U32 = 5,         ///< Unsigned integer, 32 bits.
    TYPE_I32 = 6,         ///< Signed integer, 32 bits.
    TYPE_F32 = 7,         ///< Floating point, 32 bits.
    TYPE_U64 = 8,         ///< Unsigned integer, 64 bits.
    TYPE_I64 = 9,         ///< Signed integer, 64 bits.
    TYPE_F64 = 10,        ///< Floating point, 64 bits.
    TYPE_F80 = 11,        ///< Floating point, 80 bits: named only, no value of it exists.
    TYPE_STRING32 = 12,   ///< UTF-16 text of 32 code units, CString32.
    TYPE_CHARSTR64 = 13,  ///< 8-bit text of 64 bytes.
    TYPE_STRING128 = 14,  ///< UTF-16 text of 128 code units, CString128.
    TYPE_CHARSTR256 = 15, ///< 8-bit text of 256 bytes.
    TYPE_DATETIME = 16,   ///< Date and time, NTypes::tsDateTime.
    TYPE_STRING64 = 17,   ///< UTF-16 text of 64 code units, CString64.
    TYPE_CHARSTR128 = 18, ///< 8-bit text of 128 bytes.
    TYPE_UTF16CHAR = 19,  ///< One UTF-16 code unit.
    TYPE_CHAR = 20        ///< One 8-bit character.
};

/// A calendar date, 4 bytes.
struct tsDate
{
    qint8 day;   ///< Day of the month, 1 to 31.
    qint8 month; ///< Month, 1 to 12.
    qint16 year; ///< Year, four digits.
};

/// A time of day, 4 bytes.
struct tsTime
{
    qint8 hundredths; ///< Hundredths of a second, 0 to 99.
    qint8 second;     ///< 0 to 59.
    qint8 minute;     ///< 0 to 59.
    qint8 hour;       ///< 0 to 23.
};

/**
 * @brief A date and time, 8 bytes, the time first. All zero is the empty date-time, which is no valid date.
 *
 * It carries no time zone. Its memory image on a little-endian machine is the packed 64-bit form of CDateTime.
 */
struct tsDateTime
{
    tsTime time; ///< Low four bytes of the packed form.
    tsDate date; ///< High four bytes of the packed form.
};

/// @name Comparison
/// @{

/// Compares all fields.
constexpr bool operator==(const tsDate& left, const tsDate& right)
{
    return left.day == right.day && left.month == right.month && left.year == right.year;
}

constexpr bool operator==(const tsTime& left, const tsTime& right)
{
    return left.hundredths == right.hundredths && left.second == right.second && left.minute == right.minute
           && left.hour == right.hour;
}

constexpr bool operator==(const tsDateTime& left, const tsDateTime& right)
{
    return left.time == right.time && left.date == right.date;
}

/// The negation of operator==.
constexpr bool operator!=(const tsDate& left, const tsDate& right)
{
    return !(left == right);
}

/// The negation of operator==.
constexpr bool operator!=(const tsTime& left, const tsTime& right)
{
    return !(left == right);
}

/// The negation of operator==.
constexpr bool operator!=(const tsDateTime& left, const tsDateTime& right)
{
    return !(left == right);
}
/// @}

/// @name Hash
/// @{

/// Returns the hash of all fields.
TLXCORE_EXPORT NQtCompat::THash qHash(const tsDate& value, NQtCompat::THash seed = 0);
TLXCORE_EXPORT NQtCompat::THash qHash(const tsTime& value, NQtCompat::THash seed = 0);
TLXCORE_EXPORT NQtCompat::THash qHash(const tsDateTime& value, NQtCompat::THash seed = 0);
/// @}

/// @name Debug output
/// @{

/// Shows the enumerator, NTypes::TYPE_U16; another number as NTypes::ETypes(99).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, ETypes type);

/// Shows the type and all fields.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const tsDate& value);
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const tsTime& value);
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const tsDateTime& value);
/// @}

/// @name Stream
/// @{

/// Writes or reads the fields in declaration order, the year as signed 16 bits in the stream's byte order. A date-time
/// is 8 bytes: hundredths, second, minute, hour, day, month, year.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const tsDate& value);
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, tsDate& value);
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const tsTime& value);
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, tsTime& value);
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const tsDateTime& value);
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, tsDateTime& value);
/// @}

/**
 * @brief Registers CString32, CString64, CString128 and tsDateTime with QMetaType, and their stream operators.
 *
 * CVariant does it by itself before it needs them. Call it before plain QVariants that hold such values are read
 * from or written to a QDataStream. It may be called often and from any thread.
 */
TLXCORE_EXPORT void registerMetaTypes();

} // namespace NTypes

Q_DECLARE_TYPEINFO(NTypes::tsDate, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(NTypes::tsTime, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(NTypes::tsDateTime, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(NTypes::tsDate)
Q_DECLARE_METATYPE(NTypes::tsTime)
Q_DECLARE_METATYPE(NTypes::tsDateTime)

#endif // TLXCORE_NTYPES_H
