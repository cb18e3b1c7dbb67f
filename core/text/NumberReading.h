#ifndef TLXCORE_NUMBERREADING_H
#define TLXCORE_NUMBERREADING_H

#include <core/text/NumberText.h>

#include <QString>

/**
 * QString's own conversions to 64-bit numbers, with one answer to every failure: 0 and `ok` false. The result does
 * not depend on the width of `long`, an impossible base fails silently, and plain digits take a short way.
 */
namespace NNumberReading {

/// Whether `text` is nothing but ASCII digits of base 2, 10 or 16, so few that the number is below 2^63.
inline bool plainDigits(const QString& text, int base, quint64& value)
{
    const int longest = base == 10 ? 18 : base == 16 ? 15 : base == 2 ? 62 : 0;
    const int size = text.size();
    if (size < 1 || size > longest) {
        return false;
    }
    quint64 number = 0;
    for (const QChar *unit = text.constData(), *end = unit + size; unit != end; ++unit) {
        unsigned int digit = unit->unicode() - unsigned('0');
        if (digit > 9) {
            const unsigned int letter = (unit->unicode() | 0x20U) - unsigned('a');
            digit = letter < 6 ? letter + 10 : 36;
        }
        if (digit >= static_cast<unsigned int>(base)) {
            return false;
        }
        number = number * static_cast<unsigned int>(base) + digit;
    }
    value = number;
    return true;
}

inline bool isBase(int base)
{
    return base == 0 || (base >= 2 && base <= 36);
}

/// A signed 64-bit number in `base`; base 0 obeys "0x" and a leading 0.
inline qint64 readSigned(const QString& text, int base, bool& ok)
{
    quint64 plain = 0;
    const bool isDecimal = base == 0 && !text.startsWith(QLatin1Char('0'));
    ok = plainDigits(text, isDecimal ? 10 : base, plain);
    if (ok) {
        return static_cast<qint64>(plain);
    }
    const qint64 value = isBase(base) ? text.toLongLong(&ok, base) : 0;
    return ok ? value : 0;
}

/// An unsigned 64-bit number in `base`; a sign "-" fails.
inline quint64 readUnsigned(const QString& text, int base, bool& ok)
{
    quint64 value = 0;
    ok = plainDigits(text, base, value);
    if (!ok && isBase(base)) {
        value = text.toULongLong(&ok, base);
    }
    return ok ? value : 0;
}

/// A double; Qt hands back infinity for what is too large, which is 0 here as every failure.
inline double readDouble(const QString& text, bool& ok)
{
    quint64 plain = 0;
    ok = plainDigits(text, 10, plain);
    if (ok) {
        return static_cast<double>(plain);
    }
    const double value = text.toDouble(&ok);
    return ok ? value : 0.0;
}

/// A float; as readDouble().
inline float readFloat(const QString& text, bool& ok)
{
    const float value = text.toFloat(&ok);
    return ok ? value : 0.0F;
}

/// Two's complement hexadecimal digits, the last `fractionDigits` of them in `fraction`. More than 64 bits are a number
/// for a signed type alone, and only as toStr() prints a negative one in `width` characters: its integer part is shifted
/// arithmetically and cut to its width, which puts up to `fractionDigits` times "f" in front of the 64 bits.
inline quint64 readHex(const QString& integer, const QString& fraction, int width, int fractionDigits,
                       bool isSigned, bool& ok)
{
    const quint64 bits = readUnsigned(integer + fraction, 16, ok);
    if (ok || !isSigned || fraction.size() != fractionDigits) {
        return bits;
    }
    bool isFraction = false;
    const quint64 upper = readUnsigned(integer, 16, ok);
    const quint64 lower = readUnsigned(fraction, 16, isFraction);
    const quint64 value = NNumberText::shifted(upper, -4 * fractionDigits) | lower;
    const auto printed =
        static_cast<quint64>(NNumberText::shifted(static_cast<qint64>(value), 4 * fractionDigits));
    const int digits = width - fractionDigits;
    const quint64 shown = digits < 0 ? printed : printed & ~NNumberText::shifted(~Q_UINT64_C(0), -4 * digits);
    ok = ok && isFraction && static_cast<qint64>(value) < 0 && upper == shown;
    return ok ? value : 0;
}

} // namespace NNumberReading

#endif // TLXCORE_NUMBERREADING_H
