// Range-checked numbers from text beside Qt's conversions to 64 bits; the three forms of every function agree.
#include <core/base/QtTexts.h>
#include <core/text/CStr.h>
#include <fuzz/support/Fuzzer.h>

#include <limits>

namespace {

template <typename Integer>
bool fits(const QString& text, int base, Integer& value)
{
    bool ok = false;
    if (std::is_signed<Integer>::value) {
        const qint64 wide = NQtCompat::integerText(text).toLongLong(&ok, base);
        value = static_cast<Integer>(wide);
        return ok && wide >= std::numeric_limits<Integer>::min()
               && wide <= std::numeric_limits<Integer>::max();
    }
    const quint64 wide = NQtCompat::integerText(text).toULongLong(&ok, base);
    value = static_cast<Integer>(wide);
    return ok && wide <= static_cast<quint64>(std::numeric_limits<Integer>::max());
}

/// The form that stores, and the form that gives 0.
template <typename Integer>
bool check(bool (*store)(const QString&, Integer&, int), Integer (*zero)(const QString&, bool*, int),
           const QString& text, int base, Integer& expected)
{
    const bool isBase = base == 0 || (base >= 2 && base <= 36);
    const bool good = isBase && fits(text, base, expected);
    Integer value = 77;
    FUZZ_CHECK(store(text, value, base) == good);
    FUZZ_CHECK(value == (good ? expected : Integer(77)));
    bool ok = !good;
    FUZZ_CHECK(zero(text, &ok, base) == (good ? expected : Integer(0)) && ok == good);
    return good;
}

template <typename Integer>
void checkUnsigned(bool (*store)(const QString&, Integer&, int), Integer (*zero)(const QString&, bool*, int),
                   Integer (*fallback)(Integer, const QString&, int), const QString& text, int base)
{
    Integer expected = 0;
    const bool good = check<Integer>(store, zero, text, base, expected);
    FUZZ_CHECK(fallback(78, text, base) == (good ? expected : Integer(78)));
}

template <typename Integer>
void checkSigned(bool (*store)(const QString&, Integer&, int), Integer (*zero)(const QString&, bool*, int),
                 Integer (*fallback)(Integer, const QString&), const QString& text, int base)
{
    Integer expected = 0;
    check<Integer>(store, zero, text, base, expected);
    const bool good = fits(text, 10, expected);
    FUZZ_CHECK(fallback(78, text) == (good ? expected : Integer(78)));
}

void checkFloats(const QString& text)
{
    bool ok = false;
    const double wide = text.toDouble(&ok);
    double value = 77;
    FUZZ_CHECK(CStr::strToF64(text, value) == ok);
    FUZZ_CHECK(ok ? std::memcmp(&value, &wide, sizeof(wide)) == 0 : value == 77);
    FUZZ_CHECK(ok || (CStr::strToF64(text, &ok) == 0 && CStr::strToF64(78.0, text) == 78));
    const float narrow = text.toFloat(&ok);
    float number = 77;
    FUZZ_CHECK(CStr::strToF32(text, number) == ok);
    FUZZ_CHECK(ok ? std::memcmp(&number, &narrow, sizeof(narrow)) == 0 : number == 77);
    FUZZ_CHECK(ok || (CStr::strToF32(text, &ok) == 0 && CStr::strToF32(78.0F, text) == 78));
}

void checkFixPoint(const QString& text, quint32 number, quint32 fracBits, QChar separator)
{
    bool ok = false;
    CStr::strToFixPoint(text, &ok, fracBits, separator);
    if (!separator.isDigit() && !separator.isSpace() && separator != QLatin1Char('-')
        && separator != QLatin1Char('+')) {
        const QString shown = CStr::fixPointToStr(number, fracBits, separator);
        FUZZ_CHECK(CStr::strToFixPoint(shown, &ok, fracBits, separator) == number && ok);
    }
}

} // namespace

static void fuzz(Input& input)
{
    const int base = input.choose(40) - 1;
    const auto number = input.take<quint32>();
    const quint32 fracBits = input.take<quint8>() % 70U;
    const QString text = input.text();
    checkUnsigned<unsigned char>(CStr::strToU8, CStr::strToU8, CStr::strToU8, text, base);
    checkUnsigned<unsigned short>(CStr::strToU16, CStr::strToU16, CStr::strToU16, text, base);
    checkUnsigned<unsigned int>(CStr::strToU32, CStr::strToU32, CStr::strToU32, text, base);
    checkUnsigned<unsigned long long>(CStr::strToU64, CStr::strToU64, CStr::strToU64, text, base);
    checkSigned<signed char>(CStr::strToI8, CStr::strToI8, CStr::strToI8, text, base);
    checkSigned<short>(CStr::strToI16, CStr::strToI16, CStr::strToI16, text, base);
    checkSigned<int>(CStr::strToI32, CStr::strToI32, CStr::strToI32, text, base);
    checkSigned<long long>(CStr::strToI64, CStr::strToI64, CStr::strToI64, text, base);
    checkFloats(text);
    checkFixPoint(text, number, fracBits, text.isEmpty() ? QLatin1Char('.') : text.at(0));
}
