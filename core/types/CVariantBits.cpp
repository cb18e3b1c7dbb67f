#include <core/types/CVariant.h>

#include <core/base/Digits.h>
#include <core/types/TypeTable.h>
#include <core/types/VariantPayload.h>

#include <QBitArray>
#include <QtEndian>

#include <algorithm>

using namespace NTypeTable;
using NVariantPayload::as;

namespace {

constexpr int BITS_PER_BYTE = 8;
constexpr int BITS_PER_DIGIT = 4;
constexpr int MAX_DIGITS = 16;

// Appends the number's digits: at least `least` (filled with 0), the last `most` of them.
QString withNumber(const QString& prefix, quint64 number, int least, int most)
{
    QChar digits[MAX_DIGITS];
    QChar* const end = digits + MAX_DIGITS;
    QChar* begin = std::max(NDigits::writeBits(end, number, BITS_PER_DIGIT), end - most);
    while (begin > end - least) {
        *--begin = QLatin1Char('0');
    }
    const int count = static_cast<int>(end - begin);
    QString text(prefix.size() + count, Qt::Uninitialized);
    std::copy(begin, end, std::copy(prefix.cbegin(), prefix.cend(), text.begin()));
    return text;
}

// Appends two digits a byte.
QString withBytes(const QString& prefix, const QByteArray& bytes)
{
    return prefix + QString::fromLatin1(bytes.toHex());
}

// Each code unit low byte first, whatever the byte order of the machine.
QString withCodeUnits(const QString& prefix, const QByteArray& units)
{
    QByteArray bytes(units.size(), Qt::Uninitialized);
    qToLittleEndian<quint16>(units.constData(), units.size() / static_cast<int>(sizeof(quint16)),
                             bytes.data());
    return withBytes(prefix, bytes);
}

} // namespace

QBitArray CVariant::toBitArray() const
{
    return visitType(mType, [this](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_INTEGER<T>) {
            const T value = qToLittleEndian(as<T>(mValue));
            return QBitArray::fromBits(reinterpret_cast<const char*>(&value), BITS_PER_BYTE * int(sizeof(T)));
        } else {
            qWarning("CVariant::toBitArray() : Data type %u is not supported in this method.",
                     static_cast<quint32>(mType));
            return QBitArray();
        }
    });
}

CVariant CVariant::fromBitArray(const QBitArray& bits, NTypes::ETypes type)
{
    return visitType(type, [&bits, type](auto payload) -> CVariant {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_INTEGER<T>) {
            quint64 value = 0;
            const int count =
                static_cast<int>(std::min<qsizetype>(bits.size(), BITS_PER_BYTE * int(sizeof(T))));
            for (int i = 0; i < count; ++i) {
                value |= static_cast<quint64>(bits.testBit(i)) << i;
            }
            return static_cast<T>(value);
        } else {
            qWarning("CVariant::fromBitArray : Data type %u is not supported in this method.",
                     static_cast<quint32>(type));
            return CVariant();
        }
    });
}

CVariant& CVariant::operator=(const QBitArray& bits)
{
    return *this = fromBitArray(bits, mType == NTypes::TYPE_UNKNOWN ? NTypes::TYPE_U64 : mType);
}

QString CVariant::toHex(const QString& prefix) const
{
    return visitType(mType, [this, &prefix](auto payload) -> QString {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_INTEGER<T>) {
            // Negative numbers have 16 digits; callers rely on it that only 8- and 16-bit ones are cut to their width.
            constexpr int DIGITS_OF_T = 2 * int(sizeof(T));
            return withNumber(prefix, static_cast<quint64>(as<T>(mValue)), DIGITS_OF_T,
                              sizeof(T) < sizeof(int) ? DIGITS_OF_T : MAX_DIGITS);
        } else if constexpr (IS_CHARACTER<T>) {
            return withNumber(prefix, as<QChar>(mValue).unicode(), 4, 4);
        } else if constexpr (IS_DATE_TIME<T>) {
            // The record converts to no number and shows as 0; the packed number shows.
            return withNumber(prefix, static_cast<quint64>(as<qlonglong>(mValue)), 1, MAX_DIGITS);
        } else if constexpr (IS_BYTES<T>) {
            return withBytes(prefix, mValue.toByteArray());
        } else if constexpr (IS_FIXED_STRING<T>) {
            return withCodeUnits(prefix, this->operator T().byteArray());
        } else {
            return prefix;
        }
    });
}
