#ifndef TLXCORE_NUMBERTEXT_H
#define TLXCORE_NUMBERTEXT_H

#include <QString>

#include <algorithm>
#include <type_traits>

/**
 * What formatting and reading under a descriptor share: digits with fill, and shifts that have a result for every
 * number of bits.
 */
namespace NNumberText {

/// Appends a number as QString::arg writes it: at least |width| characters, a negative width aligned to the left;
/// zeros as fill on the left stand behind the sign. `base` is 2, 10 or 16.
inline void append(QString& text, quint64 magnitude, bool negative, int width, unsigned int base,
                   char16_t fill)
{
    char16_t digits[64];
    char16_t* const end = digits + 64;
    char16_t* first = end;
    do {
        const unsigned int digit = static_cast<unsigned int>(magnitude % base);
        *--first = static_cast<char16_t>(digit < 10 ? '0' + digit : 'a' + digit - 10);
        magnitude /= base;
    } while (magnitude != 0);

    const int count = static_cast<int>(end - first) + (negative ? 1 : 0);
    const int before = std::max(width - count, 0);
    const int after = std::max(-width - count, 0);
    const int old = text.size();
    text.resize(old + before + count + after);
    QChar* out = text.data() + old;
    if (negative && fill == u'0') {
        *out++ = QLatin1Char('-');
        negative = false;
    }
    out = std::fill_n(out, before, QChar(fill));
    if (negative) {
        *out++ = QLatin1Char('-');
    }
    out = std::copy(first, end, out);
    std::fill_n(out, after, QChar(fill));
}

/// Appends a signed or unsigned 64-bit number in base 10.
template <typename Wide>
void appendDecimal(QString& text, Wide value, int width, char16_t fill)
{
    const bool negative = value < 0;
    const quint64 bits = static_cast<quint64>(value);
    append(text, negative ? 0 - bits : bits, negative, width, 10, fill);
}

/// Shifts right by `bits`, left by the magnitude of a negative number; the right shift of a signed number keeps the
/// sign. Bits that leave the 64 are lost, however far the shift goes.
template <typename Wide>
Wide shifted(Wide value, int bits)
{
    static_assert(std::is_integral<Wide>::value && sizeof(Wide) == 8, "shifts are 64-bit shifts");
    if (bits < 0) {
        return bits <= -64 ? Wide(0) : static_cast<Wide>(static_cast<quint64>(value) << -bits);
    }
    return bits < 64 ? value >> bits : value < 0 ? Wide(-1) : Wide(0);
}

} // namespace NNumberText

#endif // TLXCORE_NUMBERTEXT_H
