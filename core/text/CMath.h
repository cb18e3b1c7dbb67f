#ifndef TLXCORE_CMATH_H
#define TLXCORE_CMATH_H

#include <core/tlxCoreExport.h>

#include <QtGlobal>

/**
 * @brief Decimal rounding in three directions, powers of ten, a plausibility test for doubles and the CRC-32 that
 * every checksum of bytes in the tools uses.
 *
 * Static functions only, no state. The rounding functions take the number of decimals to keep; from 2^31 on it counts
 * as a negative int, so that 4294967295 rounds to tens. If 10^digits is 0, the result is 0.
 *
 * @code
 * CMath::round(-2.5, 0);            // -3: half away from zero
 * CMath::crc32("123456789", 9);     // 0xCBF43926
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
 */
class TLXCORE_EXPORT CMath
{
public:
    CMath() = delete;

    /// The powers 0 to 4 of ten.
    static const double mPowTab[5];

    /**
     * @brief Rounds to `digits` decimals, half away from zero: trunc(value * 10^digits + 0.5) / 10^digits, with
     * - 0.5 for a value that is not above zero.
     *
     * The truncation goes through a signed 64-bit number: NaN and magnitudes of 2^63 / 10^digits and more become
     * -2^63 / 10^digits.
     */
    static double round(double value, unsigned int digits);

    /**
     * @brief Rounds to `digits` decimals toward minus infinity: floor(value * 10^digits) / 10^digits.
     *
     * A product out of the range of a double becomes the infinity of its sign. If 10^digits is infinite (309 digits and
     * more), the result is NaN.
     */
    static double roundOff(double value, unsigned int digits);

    /// Rounds to `digits` decimals toward plus infinity: ceil(value * 10^digits) / 10^digits; else like roundOff().
    static double roundUp(double value, unsigned int digits);

    /// Returns 10 to the power of `exponent`, which may be negative; infinity or 0 beyond the range of a double.
    static double exp10(int exponent);

    /**
     * @brief Plausibility check: returns false for ±inf, NaN and some numbers of the two extreme exponents.
     *
     * These are the largest finite exponent with a low word above 0xD7B9609A, and the smallest normal one with a low
     * word of at most 0x1111E1E4. Only the low word of the mantissa is compared. Zero and subnormal numbers are
     * plausible.
     *
     * @param data An IEEE 754 double in little-endian order, at any address; a null pointer yields false.
     */
    static bool checkDouble(const void* data);

    /**
     * @brief Returns the CRC-32 of Ethernet, zip and PNG (polynomial 0x04C11DB7, reflected, initial value and final
     * exclusive-or 0xFFFFFFFF).
     *
     * @param data The bytes, at any address.
     * @param length Their number. Below 1, or with a null pointer, the result is 0.
     */
    static quint32 crc32(const void* data, int length);
};

#endif // TLXCORE_CMATH_H
