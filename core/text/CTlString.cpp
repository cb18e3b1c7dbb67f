#include <core/text/CTlString.h>

#include <core/base/FloatToInteger.h>
#include <core/text/NumberText.h>

#include <QDebug>

#include <algorithm>

using namespace NNumberText;

namespace {

using SFormatValue = CTlString::SFormatValue;

// A double holds every integer up to here, and prints it in format "f" without a difference.
constexpr quint64 EXACT_IN_DOUBLE = Q_UINT64_C(1) << 53;

int widenedWidth(qint8 width)
{
    // Beyond the range of the byte: 127 becomes 129.
    return width == 0 ? 0 : width + (width > 0 ? 2 : -2);
}

QString doubleText(double value, SFormatValue format)
{
    return QStringLiteral("%1").arg(value, widenedWidth(format.width), format.fractionDigits < 0 ? 'g' : 'f',
                                    format.fractionDigits, QLatin1Char(' '));
}

template <typename Wide>
QString decimalText(Wide value, SFormatValue format)
{
    const quint64 bits = static_cast<quint64>(value);
    if (format.fractionDigits != 0 || (value < 0 ? 0 - bits : bits) > EXACT_IN_DOUBLE) {
        return doubleText(static_cast<double>(value), format);
    }
    QString text;
    appendDecimal(text, value, widenedWidth(format.width), u' ');
    return text;
}

// 10^digits modulo 2^64, which is 0 from 64 digits on.
quint64 powerOfTen(int digits)
{
    quint64 power = 1;
    for (int i = 0; i < digits; ++i) {
        power *= 10;
    }
    return power;
}

template <typename Wide>
QString fixedPointText(Wide value, SFormatValue format)
{
    QString text;
    const int digits = format.fractionDigits;
    if (digits <= 0) {
        appendDecimal(text, value, format.width, u' ');
        return text;
    }
    // The divisor is even, so never -1. Quotient and remainder keep their own signs: callers know "-12.-34".
    const Wide divisor = static_cast<Wide>(powerOfTen(digits));
    appendDecimal(text, divisor == 0 ? divisor : value / divisor, format.width - digits - 1, u' ');
    text += QLatin1Char('.');
    appendDecimal(text, divisor == 0 ? divisor : value % divisor, digits, u'0');
    return text;
}

template <typename Wide>
QString bitsText(Wide value, SFormatValue format, int bitsPerDigit)
{
    QString text;
    const int digits = std::max<int>(format.fractionDigits, 0);
    const int shift = digits * bitsPerDigit;
    appendBits(text, static_cast<quint64>(shifted(value, shift)), format.width - digits, bitsPerDigit);
    if (digits > 0) {
        text += QLatin1Char(':');
        const quint64 fraction = static_cast<quint64>(value) & ~shifted(~Q_UINT64_C(0), -shift);
        appendBits(text, fraction, digits, bitsPerDigit);
    }
    return text;
}

template <typename Wide>
QString bitNotationText(Wide value, SFormatValue format)
{
    const Wide moved = shifted(value, format.preShift);
    switch (format.notation) {
    case CTlString::NOTATION_FIXED_POINT:
        return fixedPointText(moved, format);
    case CTlString::NOTATION_HEX:
        return bitsText(moved, format, 4);
    case CTlString::NOTATION_DUAL:
        return bitsText(moved, format, 1);
    default:
        return QString();
    }
}

// Narrow types are shown through 64 bits, so that a shift to the left loses nothing that reading would need.
template <typename Wide>
QString integerText(Wide value, SFormatValue format)
{
    return format.notation == CTlString::NOTATION_DECIMAL ? decimalText(value, format)
                                                          : bitNotationText(value, format);
}

} // namespace

QString CTlString::toStr(const long long& value, unsigned int format)
{
    return integerText(value, format);
}

QString CTlString::toStr(const unsigned long long& value, unsigned int format)
{
    return integerText(value, format);
}

QString CTlString::toStr(const double& value, unsigned int format)
{
    const SFormatValue asked = format;
    return asked.notation == NOTATION_DECIMAL ? doubleText(value, asked)
                                              : bitNotationText(floatToInteger<qint64>(value), asked);
}

QString CTlString::insertPointSeparator(const QString& s)
{
    const int size = static_cast<int>(s.size());
    if (size < 5) {
        return s;
    }
    QString grouped(size + (size - 1) / 4, Qt::Uninitialized);
    QChar* out = grouped.data();
    for (int i = 0; i < size; ++i) {
        if (i > 0 && (size - i) % 4 == 0) {
            *out++ = QLatin1Char('.');
        }
        *out++ = s.at(i);
    }
    return grouped;
}

QDebug operator<<(QDebug debug, CTlString::SFormatValue format)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "SFormatValue(fraction " << int(format.fractionDigits) << ", width "
                    << int(format.width) << ", shift " << int(format.preShift) << ", notation "
                    << int(format.notation) << ')';
    return debug;
}
