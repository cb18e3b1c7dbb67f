#ifndef TLXCORE_CTLSTRING_H
#define TLXCORE_CTLSTRING_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QHash>
#include <QMetaType>
#include <QString>

class QDebug;

/**
 * @brief Shows and reads the numbers of device objects under a packed format descriptor, and normalises what a user
 * types into an editor for such a number.
 *
 * There are four notations: decimal, decimal with a fixed point, hexadecimal and binary. Hexadecimal and binary
 * digits are grouped by four with "." and a ":" separates the fraction. Static functions only, no state.
 *
 * A text that toStr() returns with enough width parses back to the same number, with three exceptions: the fixed-point
 * notation parses a leading 0 as octal, it cannot parse its own negative fractions, and it and the binary notation go
 * through a double, which holds 53 bits.
 *
 * @code
 * const CTlString::SFormatValue money(2, 6, 0, CTlString::NOTATION_FIXED_POINT);
 * CTlString::toStr(1234, money);                                  // " 12.34"
 * bool ok = false;
 * CTlString::toI32(QStringLiteral(" 12.34"), money, 1.0, &ok);    // 1234
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
 */
class TLXCORE_EXPORT CTlString
{
public:
    CTlString() = delete;

    /// How a number is written.
    enum ENotation : quint8
    {
        NOTATION_DECIMAL = 0,     ///< A double, with a point.
        NOTATION_FIXED_POINT = 1, ///< An integer with a point inserted.
        NOTATION_HEX = 2,         ///< Hexadecimal digits.
        NOTATION_DUAL = 3         ///< Binary digits.
    };

    /**
     * @brief The format descriptor: four bytes. In an unsigned int the first field is the lowest byte.
     *
     * It converts from and to unsigned int.
     */
    struct SFormatValue
    {
        /// Decimal: the precision, negative for the general ("g") format. Otherwise: the digits after the point.
        qint8 fractionDigits = 0;
        /// Total characters; the separator counts in decimal only. Negative: left-aligned.
        qint8 width = 0;
        /// Bits by which the raw number is shifted right before it is printed; negative: left. Not used in decimal.
        qint8 preShift = 0;
        /// An ENotation. An unknown one prints an empty text and parses nothing.
        quint8 notation = NOTATION_DECIMAL;

        /// Constructs a descriptor of zeros: decimal without fraction, as wide as needed.
        constexpr SFormatValue() = default;

        /// Constructs a descriptor from its four fields.
        constexpr SFormatValue(qint8 fraction, qint8 characters, qint8 shift, quint8 notationNumber)
            : fractionDigits(fraction)
            , width(characters)
            , preShift(shift)
            , notation(notationNumber)
        {}

        /// Constructs a descriptor from the packed form.
        constexpr SFormatValue(unsigned int packed)
            : fractionDigits(static_cast<qint8>(packed & 0xFFU))
            , width(static_cast<qint8>((packed >> 8) & 0xFFU))
            , preShift(static_cast<qint8>((packed >> 16) & 0xFFU))
            , notation(static_cast<quint8>(packed >> 24))
        {}

        /// Returns the packed form.
        constexpr operator unsigned int() const
        {
            return static_cast<quint8>(fractionDigits)
                   | static_cast<unsigned int>(static_cast<quint8>(width)) << 8
                   | static_cast<unsigned int>(static_cast<quint8>(preShift)) << 16
                   | static_cast<unsigned int>(notation) << 24;
        }
    };

    /// @name Printing
    /// @{

    /**
     * @brief Returns the text of a number.
     *
     * - Decimal: through a double, in format "f" or "g"; a width other than 0 is widened by 2. No shift.
     * - Fixed point: with d fraction digits above 0, the quotient and the remainder of 10^d with a point between, each
     *   with its own sign. The quotient has width - d - 1 characters. 10^d is modulo 2^64; a divisor of 0 yields 0.
     * - Hexadecimal, binary: the bits, filled with "0" to the width and truncated to it on the left, so width 0 prints
     *   nothing. A negative width truncates nothing.
     *
     * In the last three, floating-point numbers are first truncated to a signed 64-bit number; NaN and out-of-range
     * values print as -2^63.
     *
     * The format is a SFormatValue or its packed form. An unknown notation prints an empty text.
     */
    static QString toStr(const signed char& value, unsigned int format)
    {
        return toStr(qint64(value), format);
    }
    static QString toStr(const unsigned char& value, unsigned int format)
    {
        return toStr(quint64(value), format);
    }
    static QString toStr(const short& value, unsigned int format) { return toStr(qint64(value), format); }
    static QString toStr(const unsigned short& value, unsigned int format)
    {
        return toStr(quint64(value), format);
    }
    static QString toStr(const int& value, unsigned int format) { return toStr(qint64(value), format); }
    static QString toStr(const unsigned int& value, unsigned int format)
    {
        return toStr(quint64(value), format);
    }
    static QString toStr(const long long& value, unsigned int format);
    static QString toStr(const unsigned long long& value, unsigned int format);
    static QString toStr(const float& value, unsigned int format) { return toStr(double(value), format); }
    static QString toStr(const double& value, unsigned int format);
    /// @}

    /// @name Parsing integers
    /// @{

    /**
     * @brief Parses an integer and multiplies it by a factor.
     *
     * - Decimal: a double with a point.
     * - Fixed point: the digits without their separators, as a signed 64-bit number; "0x" means hexadecimal, a leading
     *   0 octal.
     * - Hexadecimal: normalised as by validateHexStr(), to 16 digits when the descriptor has neither width nor
     *   fraction. A text of more than 64 bits is a number for the signed types only, and only if the excess is exactly
     *   the "f" that toStr() prints for a negative number. A factor other than 1 multiplies the unsigned bits, or the
     *   signed number after a "-".
     * - Binary: normalised likewise; always multiplied as a double.
     *
     * Then the pre-shift is undone, and the result is truncated to the type: "ff" is -1 as an 8-bit signed number.
     * Products are truncated toward zero. Beyond a signed 64-bit number, for toU64() also beyond an unsigned one, they are
     * the bits of -2^63.
     *
     * Returns 0 if the text was not a number. `ok`, if not null, receives whether it was.
     */
    static qint8 toI8(const QString& s, unsigned int format, double factor, bool* ok);
    static quint8 toU8(const QString& s, unsigned int format, double factor, bool* ok);
    static qint16 toI16(const QString& s, unsigned int format, double factor, bool* ok);
    static quint16 toU16(const QString& s, unsigned int format, double factor, bool* ok);
    static qint32 toI32(const QString& s, unsigned int format, double factor, bool* ok);
    static quint32 toU32(const QString& s, unsigned int format, double factor, bool* ok);
    static qint64 toI64(const QString& s, unsigned int format, double factor, bool* ok);
    static quint64 toU64(const QString& s, unsigned int format, double factor, bool* ok);
    /// @}

    /// @name Parsing floating-point numbers
    /// @{

    /// Parses a decimal number with a point and multiplies it by a factor; 0 on failure. The format is not used. `ok`,
    /// if not null, receives whether the text was a number in the type's range.
    static float toF32(const QString& s, unsigned int format, double factor, bool* ok);
    static double toF64(const QString& s, unsigned int format, double factor, bool* ok);
    /// @}

    /// Inserts a "." between every four characters, counted from the right.
    static QString insertPointSeparator(const QString& s);

    /**
     * @brief Normalises the integer part of an entry: width - fractionDigits digits in groups of four.
     *
     * Without "." the text is one group of eight, otherwise each part is a group of four. Groups are filled with "0" on
     * the left and truncated to their rightmost characters. The result is empty if there are no integer digits; a
     * negative number of digits truncates nothing more.
     */
    static QString validateUpperString(const QString& s, SFormatValue format);

    /// Normalises the fraction part of an entry: fractionDigits digits, else as validateUpperString().
    static QString validateLowerString(const QString& s, SFormatValue format);

    /**
     * @brief Normalises a hexadecimal entry in place to what toStr() would print for it.
     *
     * A leading "-" stays, a "+" or "0x" is removed, an empty text becomes "0". Groups after a "." and the digits after
     * the ":" are filled on the left. Digits beyond the width are cut on the left, unless the width is below 1. A text
     * with any other character is not changed, so no conversion accepts it.
     *
     * @code
     * QString entry = QStringLiteral("1f");
     * CTlString::validateHexStr(entry, CTlString::SFormatValue(0, 4, 0, CTlString::NOTATION_HEX));    // true: "001f"
     * @endcode
     *
     * @param s The entry.
     * @param format Its descriptor; under the binary notation the digits are binary.
     * @return true if the text is a number in that notation, only zeros were cut and it fits 64 bits; false for empty
     * text and for a binary number with a sign. The "f" that toStr() prints before the 64 bits of a negative number, if
     * a fraction makes the text wider than 16 digits, are not counted.
     */
    static bool validateHexStr(QString& s, SFormatValue format);

    /// The same as validateHexStr(): the descriptor's notation decides.
    static bool validateDualStr(QString& s, SFormatValue format);
};

static_assert(sizeof(CTlString::SFormatValue) == 4, "the descriptor travels as 32 bits");

/// Returns the hash of the packed form.
inline NQtCompat::THash qHash(CTlString::SFormatValue format, NQtCompat::THash seed = 0) noexcept
{
    return ::qHash(static_cast<unsigned int>(format), seed);
}

/// Shows the four fields: SFormatValue(fraction 2, width 6, shift 0, notation 1).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, CTlString::SFormatValue format);

Q_DECLARE_TYPEINFO(CTlString::SFormatValue, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(CTlString::SFormatValue)

#endif // TLXCORE_CTLSTRING_H
