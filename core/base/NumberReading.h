#ifndef TLXCORE_NUMBERREADING_H
#define TLXCORE_NUMBERREADING_H

#include <core/base/Digits.h>
#include <core/base/QtTexts.h>

#include <QString>

/**
 * QString's own conversions to 64-bit numbers, with one answer to every failure: 0 and `ok` false. The result does
 * not depend on the width of `long`, an impossible base fails silently, and plain digits take a short cut.
 */
namespace NNumberReading {

/// The value, or 0 on failure; `ok`, if not null, receives whether it is one.
template <typename T>
T answer(bool* ok, bool good, T value)
{
    if (ok) {
        *ok = good;
    }
    return good ? value : T();
}

/// Whether `text` is nothing but ASCII digits of base 2, 10 or 16, so few that the number is below 2^63.
inline bool plainDigits(const QString& text, int base, quint64& value)
{
    const int longest = base == 10 ? 18 : base == 16 ? 15 : base == 2 ? 62 : 0;
    return text.size() <= longest
           && NDigits::read(text.cbegin(), text.cend(), static_cast<unsigned int>(base), value);
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
    const qint64 value = isBase(base) ? NQtCompat::integerText(text).toLongLong(&ok, base) : 0;
    return ok ? value : 0;
}

/// An unsigned 64-bit number in `base`; a sign "-" fails.
inline quint64 readUnsigned(const QString& text, int base, bool& ok)
{
    quint64 value = 0;
    ok = plainDigits(text, base, value);
    if (!ok && isBase(base)) {
        value = NQtCompat::integerText(text).toULongLong(&ok, base);
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

} // namespace NNumberReading

#endif // TLXCORE_NUMBERREADING_H
