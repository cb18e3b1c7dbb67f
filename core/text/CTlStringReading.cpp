#include <core/text/CTlString.h>

#include <core/base/FloatToInteger.h>
#include <core/text/NumberText.h>

#include <algorithm>
#include <cmath>

namespace {

using SFormatValue = CTlString::SFormatValue;

bool isSeparator(QChar codeUnit)
{
    return codeUnit == QLatin1Char('.') || codeUnit == QLatin1Char(':');
}

QString withoutSeparators(QString text)
{
    if (std::any_of(text.cbegin(), text.cend(), isSeparator)) {
        text.truncate(static_cast<int>(std::remove_if(text.begin(), text.end(), isSeparator) - text.begin()));
    }
    return text;
}

// The product as bits of a 64-bit number; narrower types take their own from it, so all but quint64 go by qint64.
template <typename T>
quint64 product(double value, double factor)
{
    using Wide = std::conditional_t<std::is_same<T, quint64>::value, quint64, qint64>;
    return static_cast<quint64>(floatToInteger<Wide>(value * factor));
}

bool isOne(double factor)
{
    return !(std::fabs(factor - 1.0) * 1e12 > std::fmin(std::fabs(factor), 1.0));
}

template <typename T>
quint64 hexBits(QString text, SFormatValue format, double factor, bool& ok)
{
    if (format.fractionDigits < 1 && format.width < 1) {
        format.width = 16;
    }
    quint64 plain = 0;
    if (format.fractionDigits < 1 && text.size() <= format.width && isOne(factor)
        && NNumberReading::plainDigits(text, 16, plain)) {
        ok = true; // nothing to normalise
        return plain;
    }
    CTlString::validateHexStr(text, format);
    if (text.startsWith(QLatin1Char('-'))) {
        const qint64 number = NNumberReading::readSigned(withoutSeparators(text), 16, ok);
        return isOne(factor) ? static_cast<quint64>(number) : product<T>(static_cast<double>(number), factor);
    }
    const auto colon = text.indexOf(QLatin1Char(':'));
    const quint64 bits = NNumberText::readHex(
        withoutSeparators(text.left(colon)), colon < 0 ? QString() : withoutSeparators(text.mid(colon)),
        format.width, std::max<int>(format.fractionDigits, 0), std::is_signed<T>::value, ok);
    return isOne(factor) ? bits : product<T>(static_cast<double>(bits), factor);
}

template <typename T>
quint64 binaryBits(QString text, SFormatValue format, double factor, bool& ok)
{
    CTlString::validateHexStr(text, format);
    const quint64 bits = NNumberReading::readUnsigned(withoutSeparators(text), 2, ok);
    return product<T>(static_cast<double>(bits), factor);
}

template <typename T>
quint64 notationBits(const QString& text, SFormatValue format, double factor, bool& ok)
{
    switch (format.notation) {
    case CTlString::NOTATION_DECIMAL:
        return product<T>(NNumberReading::readDouble(text, ok), factor);
    case CTlString::NOTATION_FIXED_POINT:
        // Base 0 makes a leading 0 octal; callers rely on it.
        return product<T>(static_cast<double>(NNumberReading::readSigned(withoutSeparators(text), 0, ok)),
                          factor);
    case CTlString::NOTATION_HEX:
        return hexBits<T>(text, format, factor, ok);
    case CTlString::NOTATION_DUAL:
        return binaryBits<T>(text, format, factor, ok);
    default:
        ok = false;
        return 0;
    }
}

template <typename T>
T readInteger(const QString& text, SFormatValue format, double factor, bool* ok)
{
    using Wide = std::conditional_t<std::is_signed<T>::value, qint64, quint64>;
    bool good = false;
    const quint64 bits = text.isEmpty() ? 0 : notationBits<T>(text, format, factor, good);
    // Cut, not range-checked: "ff" is what -1 prints as in two hexadecimal digits.
    const Wide number = NNumberText::shifted(static_cast<Wide>(bits), -format.preShift);
    return NNumberReading::answer(ok, good, static_cast<T>(number));
}

} // namespace

qint8 CTlString::toI8(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<qint8>(s, format, factor, ok);
}

quint8 CTlString::toU8(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<quint8>(s, format, factor, ok);
}

qint16 CTlString::toI16(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<qint16>(s, format, factor, ok);
}

quint16 CTlString::toU16(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<quint16>(s, format, factor, ok);
}

qint32 CTlString::toI32(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<qint32>(s, format, factor, ok);
}

quint32 CTlString::toU32(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<quint32>(s, format, factor, ok);
}

qint64 CTlString::toI64(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<qint64>(s, format, factor, ok);
}

quint64 CTlString::toU64(const QString& s, unsigned int format, double factor, bool* ok)
{
    return readInteger<quint64>(s, format, factor, ok);
}

float CTlString::toF32(const QString& s, unsigned int format, double factor, bool* ok)
{
    Q_UNUSED(format)
    bool good = false;
    const float value = NNumberReading::readFloat(s, good);
    return NNumberReading::answer(ok, good, static_cast<float>(static_cast<double>(value) * factor));
}

double CTlString::toF64(const QString& s, unsigned int format, double factor, bool* ok)
{
    Q_UNUSED(format)
    bool good = false;
    const double value = NNumberReading::readDouble(s, good);
    return NNumberReading::answer(ok, good, value * factor);
}
