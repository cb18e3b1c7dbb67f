#include <core/text/CStr.h>

#include <core/base/NumberReading.h>
#include <core/base/QtLocale.h>

#include <algorithm>
#include <limits>

using namespace NNumberReading;

namespace {

constexpr int MOST_DECIMALS = 65535; // an absurd number would reserve gigabytes

template <typename T>
T inRange(quint64 value, bool& ok)
{
    ok = ok && value <= std::numeric_limits<T>::max();
    return ok ? static_cast<T>(value) : T(0);
}

template <typename T>
T inRange(qint64 value, bool& ok)
{
    ok = ok && value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
    return ok ? static_cast<T>(value) : T(0);
}

template <typename T>
T readNumber(const QString& s, bool& ok, int base)
{
    if constexpr (std::is_same<T, float>::value) {
        return readFloat(s, ok);
    } else if constexpr (std::is_same<T, double>::value) {
        return readDouble(s, ok);
    } else if constexpr (std::is_signed<T>::value) {
        return inRange<T>(readSigned(s, base, ok), ok);
    } else {
        return inRange<T>(readUnsigned(s, base, ok), ok);
    }
}

template <typename T>
bool into(const QString& s, T& out, int base)
{
    bool good = false;
    const T value = readNumber<T>(s, good, base);
    if (good) {
        out = value;
    }
    return good;
}

template <typename T>
T orZero(const QString& s, bool* ok, int base)
{
    bool good = false;
    const T value = readNumber<T>(s, good, base);
    return answer(ok, good, value);
}

template <typename T>
T orFallback(T fallback, const QString& s, int base)
{
    into(s, fallback, base);
    return fallback;
}

// The low `fracBits` of 32 bits.
quint32 fractionMask(unsigned int fracBits)
{
    return fracBits < 32 ? (1U << fracBits) - 1U : ~0U;
}

} // namespace

// NOLINTBEGIN(bugprone-macro-parentheses): types take none
// The three forms of one integer type. The signed fallback form has no base: callers rely on base 10 there.
#define TLX_INTEGER_FORMS(Name, Type)                                                                        \
    bool CStr::Name(const QString& s, Type& out, int base)                                                   \
    {                                                                                                        \
        return into(s, out, base);                                                                           \
    }                                                                                                        \
    Type CStr::Name(const QString& s, bool* ok, int base)                                                    \
    {                                                                                                        \
        return orZero<Type>(s, ok, base);                                                                    \
    }
#define TLX_DECIMAL_FALLBACK(Name, Type)                                                                     \
    Type CStr::Name(Type fallback, const QString& s)                                                         \
    {                                                                                                        \
        return orFallback(fallback, s, 10);                                                                  \
    }
#define TLX_UNSIGNED_FORMS(Name, Type)                                                                       \
    TLX_INTEGER_FORMS(Name, Type)                                                                            \
    Type CStr::Name(Type fallback, const QString& s, int base)                                               \
    {                                                                                                        \
        return orFallback(fallback, s, base);                                                                \
    }
#define TLX_SIGNED_FORMS(Name, Type)                                                                         \
    TLX_INTEGER_FORMS(Name, Type)                                                                            \
    TLX_DECIMAL_FALLBACK(Name, Type)
#define TLX_FLOAT_FORMS(Name, Type)                                                                          \
    bool CStr::Name(const QString& s, Type& out)                                                             \
    {                                                                                                        \
        return into(s, out, 10);                                                                             \
    }                                                                                                        \
    Type CStr::Name(const QString& s, bool* ok)                                                              \
    {                                                                                                        \
        return orZero<Type>(s, ok, 10);                                                                      \
    }                                                                                                        \
    TLX_DECIMAL_FALLBACK(Name, Type)

// NOLINTEND(bugprone-macro-parentheses)

TLX_UNSIGNED_FORMS(strToU8, unsigned char)
TLX_UNSIGNED_FORMS(strToU16, unsigned short)
TLX_UNSIGNED_FORMS(strToU32, unsigned int)
TLX_UNSIGNED_FORMS(strToU64, unsigned long long)
TLX_SIGNED_FORMS(strToI8, signed char)
TLX_SIGNED_FORMS(strToI16, short)
TLX_SIGNED_FORMS(strToI32, int)
TLX_SIGNED_FORMS(strToI64, long long)
TLX_FLOAT_FORMS(strToF32, float)
TLX_FLOAT_FORMS(strToF64, double)

#undef TLX_INTEGER_FORMS
#undef TLX_DECIMAL_FALLBACK
#undef TLX_UNSIGNED_FORMS
#undef TLX_SIGNED_FORMS
#undef TLX_FLOAT_FORMS

QString CStr::fixPointToStr(unsigned int value, unsigned int fracBits, const QChar& sep)
{
    const quint32 integer = fracBits < 32 ? value >> fracBits : 0U;
    return QString::number(integer) + sep + QString::number(value & fractionMask(fracBits));
}

unsigned int CStr::strToFixPoint(const QString& s, bool* ok, unsigned int fracBits, const QChar& sep)
{
    bool good = s.count(sep) == 1;
    quint32 value = 0;
    if (good) {
        const auto end = s.indexOf(sep);
        bool goodFraction = false;
        const quint32 integer = readNumber<quint32>(s.left(end), good, 10);
        const quint32 fraction = readNumber<quint32>(s.mid(end + 1), goodFraction, 10);
        good = good && goodFraction;
        value = (fraction & fractionMask(fracBits)) | (fracBits < 32 ? integer << fracBits : 0U);
    }
    return answer(ok, good, value);
}

QString CStr::doubleToString(double value, int precision)
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return NQtLocale::number(locale, value, 'f', std::min(precision, MOST_DECIMALS));
}
