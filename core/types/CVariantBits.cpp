#include <core/types/CVariant.h>

#include <core/types/MetaTypes.h>
#include <core/types/TypeTable.h>
#include <core/types/VariantPayload.h>

#include <QBitArray>

#include <algorithm>
#include <cstring>

using NTypes::EKind;
using NTypes::typeInfo;

namespace {

constexpr int BITS_PER_BYTE = 8;
constexpr int BITS_PER_DIGIT = 4;
constexpr int MAX_DIGITS = 16;
constexpr char DIGITS[] = "0123456789abcdef";

// The number of bits of an integer type, 0 for all others.
int bitsOf(NTypes::ETypes type)
{
    const NTypes::STypeInfo& info = typeInfo(type);
    return info.kind == EKind::Unsigned || info.kind == EKind::Signed ? info.width * BITS_PER_BYTE : 0;
}

// Appends the number's digits: at least `least` (filled with 0), the last `most` of them.
QString withNumber(const QString& prefix, quint64 number, int least, int most)
{
    QChar digits[MAX_DIGITS];
    int first = MAX_DIGITS;
    do {
        digits[--first] = QLatin1Char(DIGITS[number & 0xF]);
        number >>= BITS_PER_DIGIT;
    } while (number != 0);
    first = std::max(first, MAX_DIGITS - most);
    while (first > MAX_DIGITS - least) {
        digits[--first] = QLatin1Char('0');
    }
    const int count = MAX_DIGITS - first;
    QString text(prefix.size() + count, Qt::Uninitialized);
    std::copy(prefix.cbegin(), prefix.cend(), text.begin());
    std::copy(digits + first, digits + MAX_DIGITS, text.begin() + prefix.size());
    return text;
}

// Appends two digits a byte.
QString withBytes(const QString& prefix, const QByteArray& bytes)
{
    QString text(prefix.size() + 2 * bytes.size(), Qt::Uninitialized);
    QChar* digit = std::copy(prefix.cbegin(), prefix.cend(), text.data());
    for (const char byte : bytes) {
        const quint8 value = static_cast<quint8>(byte);
        *digit++ = QLatin1Char(DIGITS[value >> BITS_PER_DIGIT]);
        *digit++ = QLatin1Char(DIGITS[value & 0xF]);
    }
    return text;
}

// The bits of a payload that is not the type's own number, or the warning of a type that has no bits.
QBitArray bitsOfOther(const QVariant& payload, NTypes::ETypes type, int width)
{
    if (width == 0) {
        qWarning("CVariant::toBitArray() : Data type %u is not supported in this method.",
                 static_cast<quint32>(type));
        return QBitArray();
    }
    const quint64 value = NVariantPayload::integerBits(payload, type);
    char bytes[sizeof(value)];
    for (int i = 0; i < width / BITS_PER_BYTE; ++i) {
        bytes[i] = static_cast<char>(value >> (BITS_PER_BYTE * i));
    }
    return QBitArray::fromBits(bytes, width);
}

} // namespace

QBitArray CVariant::toBitArray() const
{
    const int width = bitsOf(mType);
    const bool isImage = Q_BYTE_ORDER == Q_LITTLE_ENDIAN && width > 0
                         && NVariantPayload::metaType(mValue) == typeInfo(mType).payload;
    return isImage ? QBitArray::fromBits(static_cast<const char*>(NVariantPayload::data(mValue)), width)
                   : bitsOfOther(mValue, mType, width);
}

CVariant CVariant::fromBitArray(const QBitArray& bits, NTypes::ETypes type)
{
    CVariant result;
    const int width = bitsOf(type);
    if (width == 0) {
        qWarning("CVariant::fromBitArray : Data type %u is not supported in this method.",
                 static_cast<quint32>(type));
        return result;
    }
    quint64 value = 0;
    const int count = std::min(bits.size(), width);
    for (int i = 0; i < count; ++i) {
        value |= static_cast<quint64>(bits.testBit(i)) << i;
    }
    result.mValue = NVariantPayload::integerPayload(value, type);
    result.mType = type;
    return result;
}

CVariant::CVariant(const QBitArray& bits, NTypes::ETypes type)
    : CVariant(fromBitArray(bits, type))
{}

CVariant& CVariant::operator=(const QBitArray& bits)
{
    return *this = fromBitArray(bits, mType == NTypes::TYPE_UNKNOWN ? NTypes::TYPE_U64 : mType);
}

CVariant& CVariant::fromBitArray(const QBitArray& bits)
{
    return *this = bits;
}

QString CVariant::toHex(const QString& prefix) const
{
    const NTypes::STypeInfo& info = typeInfo(mType);
    const int digits = 2 * info.width;
    switch (info.kind) {
    case EKind::None:
    case EKind::Float:
        return prefix;
    case EKind::Unsigned:
    case EKind::Signed:
        // Negative numbers have 16 digits; callers rely on it that only the 8- and 16-bit types are cut to their width.
        return withNumber(prefix, NVariantPayload::integerBits(mValue, mType), digits,
                          info.width < 4 ? digits : MAX_DIGITS);
    case EKind::Utf16Char:
        return withNumber(prefix, NVariantPayload::as<QChar>(mValue).unicode(), digits, digits);
    case EKind::Char8Text:
        return withBytes(prefix, mValue.toByteArray());
    case EKind::DateTime:
        // The record converts to no number and shows as 0; the packed number shows.
        return withNumber(prefix, static_cast<quint64>(NVariantPayload::as<qlonglong>(mValue)), 1,
                          MAX_DIGITS);
    case EKind::Utf16Text:
        break;
    }
    switch (mType) {
    case NTypes::TYPE_STRING32:
        return withBytes(prefix, toString32().byteArray());
    case NTypes::TYPE_STRING64:
        return withBytes(prefix, toString64().byteArray());
    default:
        return withBytes(prefix, toString128().byteArray());
    }
}
