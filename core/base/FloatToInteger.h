#ifndef TLXCORE_FLOATTOINTEGER_H
#define TLXCORE_FLOATTOINTEGER_H

#include <QtGlobal>

#include <limits>
#include <type_traits>

/**
 * Truncates toward zero to a signed 64-bit number, then cuts to the width of Integer. NaN and what a signed 64-bit
 * number cannot hold give the bits of -2^63, as x86 does it, so 0 for the narrower types. An unsigned 64-bit target
 * takes 2^63 up to 2^64 as they are. The language leaves all of this undefined: no other place converts.
 */
template <typename Integer>
constexpr Integer floatToInteger(double value)
{
    static_assert(std::is_integral<Integer>::value, "an integer type");
    constexpr double TWO_63 = 9223372036854775808.0;
    if (value >= -TWO_63 && value < TWO_63) {
        return static_cast<Integer>(static_cast<qint64>(value));
    }
    if (std::is_unsigned<Integer>::value && sizeof(Integer) == 8 && value >= TWO_63 && value < 2 * TWO_63) {
        return static_cast<Integer>(static_cast<quint64>(value));
    }
    return static_cast<Integer>(std::numeric_limits<qint64>::min());
}

#endif // TLXCORE_FLOATTOINTEGER_H
