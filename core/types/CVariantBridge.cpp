#include <core/types/CVariant.h>

#include <core/base/QtVariant.h>
#include <core/types/VariantPayload.h>
#include <core/types/VariantStream.h>

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <functional>
#include <type_traits>

using namespace NTypeTable;
using NVariantPayload::as;
using NVariantPayload::comparable;
using NVariantPayload::exact;

namespace {

// Callers rely on the thresholds: bytes of UTF-8 are held against the bytes of the UTF-16 texts, so that 40 letters
// become a "STRING32" and lose 8.
constexpr int STRING64_FROM = 64;
constexpr int STRING128_FROM = 128;

template <typename Text>
CVariant sizedText(const Text& text, int bytes)
{
    if (bytes < STRING64_FROM) {
        return CString32(text);
    }
    if (bytes < STRING128_FROM) {
        return CString64(text);
    }
    return CString128(text);
}

// Floats: |a - b| * precision <= min(|a|, |b|); infinities, NaN and 0 follow from the formula.
template <typename T>
bool isEqual(const T& a, const T& b)
{
    if constexpr (IS_FLOAT<T>) {
        constexpr T PRECISION = std::is_same<T, float>::value ? T(1e5) : T(1e12);
        return std::fabs(a - b) * PRECISION <= std::min(std::fabs(a), std::fabs(b));
    } else {
        return a == b;
    }
}

// The left operand's tag chooses the reader of both.
template <typename Compare>
bool ordered(const CVariant& left, const CVariant& right, Compare compare)
{
    return visitType(left.type(), [&](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (std::is_void<T>::value) {
            return false;
        } else {
            return compare(comparable<T>(left), comparable<T>(right));
        }
    });
}

} // namespace

CVariant& CVariant::operator=(const QVariant& value)
{
    const int metaType = value.userType();
    switch (metaType) {
    case QMetaType::Long:
        return *this = as<int>(value);
    case QMetaType::ULong:
        return *this = as<uint>(value);
    case QMetaType::Char:
        return *this = as<char>(value);
    case QMetaType::QString:
        return *this = sizedText(NQtVariant::toString(value), static_cast<int>(value.toByteArray().size()));
    case QMetaType::QByteArray:
        return *this = sizedText(value.toByteArray(), static_cast<int>(value.toByteArray().size()));
    default:
        break;
    }
    return visitType(NMetaTypes::typeOfPayload(metaType), [&](auto payload) -> CVariant& {
        using T = typename decltype(payload)::Type;
        if constexpr (!std::is_void<T>::value && !IS_BYTES<T> && !IS_DATE_TIME<T>) {
            return *this = as<T>(value);
        } else {
            // A date-time, too: callers rely on it that none comes back out of a QVariant.
            const char* const name = value.typeName();
            const QByteArray shown = name && *name ? QByteArray(name) : QByteArray::number(metaType);
            qWarning("CVariant::operator=() : userType() %s is not supported in this method.",
                     shown.constData());
            return *this = CVariant();
        }
    });
}

bool CVariant::operator==(const CVariant& other) const
{
    if (mType != other.mType) {
        return false;
    }
    return visitType(mType, [&](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (std::is_void<T>::value) {
            return true;
        } else {
            // Payloads of another type may be equal values, too, and other payloads equal texts up to their zero.
            constexpr bool ENDS_AT_ZERO = IS_FIXED_STRING<T> || IS_BYTES<T>;
            const T* const left = exact<T>(mValue);
            const T* const right = exact<T>(other.mValue);
            if (left && right && (!ENDS_AT_ZERO || *left == *right)) {
                return isEqual(*left, *right);
            }
            return isEqual(comparable<T>(*this), comparable<T>(other));
        }
    });
}

bool CVariant::operator<(const CVariant& other) const
{
    return ordered(*this, other, std::less<>());
}

bool CVariant::operator>(const CVariant& other) const
{
    return ordered(*this, other, std::greater<>());
}

QDataStream& operator<<(QDataStream& stream, const CVariant& value)
{
    NVariantStream::write(stream, value.mValue, static_cast<qint32>(value.mType));
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CVariant& value)
{
    qint32 type = 0;
    NVariantStream::read(stream, value.mValue, type);
    value.mType = static_cast<NTypes::ETypes>(type);
    return stream;
}

NQtCompat::THash qHash(const CVariant& value, NQtCompat::THash seed)
{
    const quint32 tag = value.mType;
    return visitType(value.mType, [&](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (std::is_void<T>::value || IS_FLOAT<T>) {
            // Fuzzy equality is no equivalence: only the tag is the same for all that are equal to each other.
            return qHash(tag, seed);
        } else {
            return qHash(qMakePair(tag, comparable<T>(value)), seed);
        }
    });
}
