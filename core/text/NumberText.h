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

/// Appends a number as QString::arg writes it in base 10: at least |width| characters, a negative width aligned to the
/// left; zeros as fill on the left stand behind the sign.
inline void appendDecimal(QString& text, quint64 magnitude, bool negative, int width, char16_t fill)
{
    char16_t digits[21];
    char16_t* const end = digits + 21;
    char16_t* first = end;
    do {
        *--first = static_cast<char16_t>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);

    const int count = static_cast<int>(end - first) + (negative ? 1 : 0);
    const int before = std::max(width - count, 0);
    const int after = std::max(-width - count, 0);
    if (before == 0 && after == 0) {
        if (negative) {
            *--first = u'-';
        }
        const auto* const units = reinterpret_cast<const QChar*>(first);
        text = text.isEmpty() ? QString(units, count) : text.append(units, count);
        return;
    }
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

/// Appends a signed or unsigned 64-bit number.
template <typename Wide>
void appendDecimal(QString& text, Wide value, int width, char16_t fill)
{
    const bool negative = value < 0;
    const quint64 bits = static_cast<quint64>(value);
    appendDecimal(text, negative ? 0 - bits : bits, negative, width, fill);
}

/// Appends the last `width` hexadecimal (4 bits) or binary (1 bit) digits of a number in groups of four; with a
/// negative width all digits, and zeros behind them up to |width|, as QString::arg fills.
inline void appendBits(QString& text, quint64 bits, int width, int bitsPerDigit)
{
    int digits = 1;
    while (digits * bitsPerDigit < 64 && (bits >> (digits * bitsPerDigit)) != 0) {
        ++digits;
    }
    const int total = width < 0 ? std::max(digits, -width) : width;
    const int behind = width < 0 ? total - digits : 0;
    const int old = text.size();
    text.resize(old + total + (total > 0 ? (total - 1) / 4 : 0));
    const quint64 mask = (Q_UINT64_C(1) << bitsPerDigit) - 1;
    QChar* out = text.data() + text.size();
    for (int i = 0; i < total; ++i) {
        if (i > 0 && i % 4 == 0) {
            *--out = QLatin1Char('.');
        }
        quint64 digit = 0;
        if (i >= behind) {
            digit = bits & mask;
            bits >>= bitsPerDigit;
        }
        *--out = QLatin1Char("0123456789abcdef"[digit]);
    }
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
