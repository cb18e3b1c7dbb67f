#ifndef TLXCORE_NUMBERTEXT_H
#define TLXCORE_NUMBERTEXT_H

#include <core/base/NumberReading.h>

#include <QString>

#include <algorithm>
#include <type_traits>

/// What formatting and reading under a descriptor share: digits with fill, shifts by any number of bits, and the sign in
/// front of 64 bits.
namespace NNumberText {

/// Appends a number as QString::arg writes it in base 10: at least |width| characters, a negative width aligned to the
/// left; zeros as fill on the left follow the sign.
inline void appendDecimal(QString& text, quint64 magnitude, bool negative, int width, char16_t fill)
{
    char16_t buffer[NDigits::MOST];
    char16_t* const end = buffer + NDigits::MOST;
    char16_t* first = NDigits::writeDecimal(end, magnitude);
    const bool signFirst = negative && fill == u'0';
    if (negative && !signFirst) {
        *--first = u'-';
    }
    const int count = static_cast<int>(end - first) + (signFirst ? 1 : 0);
    const int before = std::max(width - count, 0);
    const int after = std::max(-width - count, 0);
    if (text.isEmpty() && before + after == 0 && !signFirst) {
        text = NDigits::text(first, end);
        return;
    }
    const auto old = text.size();
    text.resize(old + before + count + after);
    QChar* out = text.data() + old;
    if (signFirst) {
        *out++ = QLatin1Char('-');
    }
    out = std::fill_n(out, before, QChar(fill));
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
/// negative width all digits, and zeros after them up to |width|, as QString::arg fills.
inline void appendBits(QString& text, quint64 bits, int width, int bitsPerDigit)
{
    char16_t buffer[NDigits::MOST];
    char16_t* end = buffer + NDigits::MOST;
    const char16_t* const first = NDigits::writeBits(end, bits, bitsPerDigit);
    const int digits = static_cast<int>(end - first);
    const int total = width < 0 ? std::max(digits, -width) : width;
    const int zerosAfter = width < 0 ? total - digits : 0;
    text.resize(text.size() + total + (total > 0 ? (total - 1) / 4 : 0));
    QChar* out = text.data() + text.size();
    for (int i = 0; i < total; ++i) {
        if (i > 0 && i % 4 == 0) {
            *--out = QLatin1Char('.');
        }
        *--out = QChar(i < zerosAfter || end == first ? u'0' : *--end);
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

/// Two's complement hexadecimal digits, the last `fractionDigits` of them in `fraction`. More than 64 bits are a number
/// for a signed type alone, and only as toStr() prints a negative one in `width` characters: its integer part is shifted
/// arithmetically and cut to its width, which puts up to `fractionDigits` times "f" in front of the 64 bits.
inline quint64 readHex(const QString& integer, const QString& fraction, int width, int fractionDigits,
                       bool isSigned, bool& ok)
{
    const quint64 bits = NNumberReading::readUnsigned(integer + fraction, 16, ok);
    if (ok || !isSigned || fraction.size() != fractionDigits) {
        return bits;
    }
    bool isFraction = false;
    const quint64 upper = NNumberReading::readUnsigned(integer, 16, ok);
    const quint64 lower = NNumberReading::readUnsigned(fraction, 16, isFraction);
    const quint64 value = shifted(upper, -4 * fractionDigits) | lower;
    const auto printed = static_cast<quint64>(shifted(static_cast<qint64>(value), 4 * fractionDigits));
    const int digits = width - fractionDigits;
    const quint64 shown = digits < 0 ? printed : printed & ~shifted(~Q_UINT64_C(0), -4 * digits);
    ok = ok && isFraction && static_cast<qint64>(value) < 0 && upper == shown;
    return ok ? value : 0;
}

} // namespace NNumberText

#endif // TLXCORE_NUMBERTEXT_H
