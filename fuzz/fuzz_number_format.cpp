// Numbers under any format descriptor: what is shown reads back where the notations can do so, entries are normalised
// once for all, and the decimal notation equals Qt's.
#include <core/text/CTlString.h>
#include <fuzz/support/Fuzzer.h>

#include <cmath>

namespace {

using SFormat = CTlString::SFormatValue;

/// Enough characters for every number of 64 bits.
SFormat wide(SFormat format)
{
    const qint8 widths[] = {0, 0, 16, 64};
    return {0, widths[format.notation % 4], 0, static_cast<quint8>(format.notation % 4)};
}

void checkHex(qint64 number)
{
    const SFormat format(0, 16, 0, CTlString::NOTATION_HEX);
    bool ok = false;
    const QString shown = CTlString::toStr(number, format);
    FUZZ_CHECK(QString(shown).remove(QLatin1Char('.')).toULongLong(nullptr, 16)
               == static_cast<quint64>(number));
    FUZZ_CHECK(CTlString::toI64(shown, format, 1.0, &ok) == number && ok);
    FUZZ_CHECK(CTlString::toU64(shown, format, 1.0, &ok) == static_cast<quint64>(number) && ok);
    FUZZ_CHECK(CTlString::toI32(shown, format, 1.0, &ok) == static_cast<qint32>(number) && ok);
    FUZZ_CHECK(CTlString::toU8(shown, format, 1.0, &ok) == static_cast<quint8>(number) && ok);
}

/// These go through a double, which holds 53 bits.
void checkOthers(qint64 number)
{
    const qint64 small = number >> 12;
    for (const CTlString::ENotation notation :
         {CTlString::NOTATION_DECIMAL, CTlString::NOTATION_FIXED_POINT}) {
        const SFormat format(0, 0, 0, notation);
        bool ok = false;
        FUZZ_CHECK(CTlString::toI64(CTlString::toStr(small, format), format, 1.0, &ok) == small && ok);
    }
    const SFormat dual(0, 64, 0, CTlString::NOTATION_DUAL);
    const quint64 bits = static_cast<quint64>(number) >> 11;
    bool ok = false;
    FUZZ_CHECK(CTlString::toU64(CTlString::toStr(bits, dual), dual, 1.0, &ok) == bits && ok);
}

template <typename Number>
void checkShown(Number number, SFormat format)
{
    const QString shown = CTlString::toStr(number, format);
    FUZZ_CHECK(shown.size() <= 1024);
    FUZZ_CHECK(format.notation < 4 || shown.isEmpty());
    bool ok = false;
    CTlString::toI8(shown, format, 1.0, &ok);
    CTlString::toU64(shown, format, 0.001, &ok);
    CTlString::toF64(shown, format, 1.0, &ok);
}

void checkEntry(const QString& text, SFormat format)
{
    for (const auto& validate : {CTlString::validateHexStr, CTlString::validateDualStr}) {
        QString once = text;
        const bool good = validate(once, format);
        QString twice = once;
        const bool goodAgain = validate(twice, format);
        FUZZ_CHECK(!good || (goodAgain && twice == once));
    }
    CTlString::validateUpperString(text, format);
    CTlString::validateLowerString(text, format);
    FUZZ_CHECK(
        CTlString::insertPointSeparator(QString(text).remove(QLatin1Char('.'))).remove(QLatin1Char('.'))
        == QString(text).remove(QLatin1Char('.')));
}

void checkRead(const QString& text, SFormat format, double factor)
{
    bool ok = false;
    bool expected = false;
    const double number = text.toDouble(&expected);
    const double read = CTlString::toF64(text, format, factor, &ok);
    FUZZ_CHECK(ok == expected);
    const double product = ok ? number * factor : 0;
    FUZZ_CHECK(read == product || (std::isnan(read) && std::isnan(product)));
    CTlString::toI8(text, format, factor, &ok);
    CTlString::toU16(text, format, factor, &ok);
    const qint32 narrow = CTlString::toI32(text, format, factor, &ok);
    FUZZ_CHECK(ok || narrow == 0);
    bool okWide = false;
    CTlString::toI64(text, format, factor, &okWide);
    FUZZ_CHECK(ok == okWide);
    CTlString::toU64(text, format, factor, nullptr);
    CTlString::toF32(text, format, factor, &ok);
}

} // namespace

static void fuzz(Input& input)
{
    const SFormat format(input.take<quint32>());
    const auto number = input.take<qint64>();
    double real = 0;
    std::memcpy(&real, &number, sizeof(real));
    const QString text = input.text();
    FUZZ_CHECK(SFormat(static_cast<unsigned int>(format)) == format);
    checkHex(number);
    checkOthers(number);
    for (const SFormat each : {format, wide(format)}) {
        checkShown(number, each);
        checkShown(static_cast<quint64>(number), each);
        checkShown(static_cast<qint8>(number), each);
        checkShown(real, each);
        checkShown(static_cast<quint16>(number), each);
        checkEntry(text, each);
        checkRead(text, each, real);
        checkRead(text, each, 1.0);
    }
}
