#ifndef TLXCORE_DIGITS_H
#define TLXCORE_DIGITS_H

#include <QString>

#include <array>

/// The one writer and the one reader of decimal, hexadecimal and binary digits. A code unit is a QChar or, in a buffer that
/// nobody clears first, a char16_t.
namespace NDigits {

/// The most digits of a 64-bit number: binary ones.
constexpr int MOST = 64;

/// "00", "01" ... "99".
constexpr std::array<char16_t, 200> makePairs()
{
    std::array<char16_t, 200> pairs = {};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char16_t>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char16_t>('0' + i % 10);
    }
    return pairs;
}

inline constexpr std::array<char16_t, 200> PAIRS = makePairs();

/// The digit of a value from 0 to 15, in lower case.
constexpr char16_t digit(quint64 value)
{
    return u"0123456789abcdef"[value];
}

/// Writes a number in decimal so that its last digit is in front of `end`; returns where the first digit is. 0 has one.
template <typename CodeUnit>
CodeUnit* writeDecimal(CodeUnit* end, quint64 number)
{
    while (number >= 10) {
        const std::size_t pair = 2 * static_cast<std::size_t>(number % 100);
        number /= 100;
        *--end = CodeUnit(PAIRS[pair + 1]);
        *--end = CodeUnit(PAIRS[pair]);
        if (number == 0) {
            return end;
        }
    }
    *--end = CodeUnit(digit(number));
    return end;
}

/// As writeDecimal(), in hexadecimal (4 bits a digit) or binary (1 bit).
template <typename CodeUnit>
CodeUnit* writeBits(CodeUnit* end, quint64 number, int bitsPerDigit)
{
    do {
        *--end = CodeUnit(digit(number & ((1U << bitsPerDigit) - 1)));
        number >>= bitsPerDigit;
    } while (number != 0);
    return end;
}

/// A text of what was written.
inline QString text(const char16_t* begin, const char16_t* end)
{
    return QString(reinterpret_cast<const QChar*>(begin), static_cast<int>(end - begin));
}

/// The value of an ASCII digit up to "f" in either case; 16 for every other code unit.
inline unsigned int valueOf(QChar codeUnit)
{
    const unsigned int decimal = codeUnit.unicode() - unsigned('0');
    if (decimal < 10) {
        return decimal;
    }
    const unsigned int letter = (codeUnit.unicode() | 0x20U) - unsigned('a');
    return letter < 6 ? letter + 10 : 16;
}

/// Reads digits of a base up to 16; false for an empty text or any other code unit. Digits beyond 64 bits are
/// lost.
inline bool read(const QChar* begin, const QChar* end, unsigned int base, quint64& number)
{
    quint64 value = 0;
    for (const QChar* codeUnit = begin; codeUnit != end; ++codeUnit) {
        const unsigned int digit = valueOf(*codeUnit);
        if (digit >= base) {
            return false;
        }
        value = value * base + digit;
    }
    number = value;
    return begin != end;
}

} // namespace NDigits

#endif // TLXCORE_DIGITS_H
