#include <core/types/CVariant.h>

#include <core/types/MetaTypes.h>
#include <core/types/TypeTable.h>
#include <core/types/VariantPayload.h>
#include <core/types/VariantStream.h>

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>

using NTypes::EKind;
using NTypes::typeInfo;
using NVariantPayload::as;
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

// |a - b| * precision <= min(|a|, |b|): infinities, NaN and 0 follow from the formula.
template <typename Float>
bool fuzzyEqual(Float a, Float b, Float precision)
{
    return std::fabs(a - b) * precision <= std::min(std::fabs(a), std::fabs(b));
}

template <typename T>
bool areEqual(const QVariant& left, const QVariant& right)
{
    const T* const a = exact<T>(left);
    const T* const b = exact<T>(right);
    return a && b && *a == *b;
}

// Payloads of the type's own form that are equal as they stand, without a reader or a text. What is not may still be
// equal: as a number of another form, or as a text up to its first zero.
bool areSamePayload(const QVariant& left, const QVariant& right, NTypes::ETypes type)
{
    const NTypes::STypeInfo& info = typeInfo(type);
    switch (info.kind) {
    case EKind::Unsigned:
    case EKind::Signed:
        return NVariantPayload::metaType(left) == info.payload
               && NVariantPayload::metaType(right) == info.payload
               && std::memcmp(NVariantPayload::data(left), NVariantPayload::data(right), info.width) == 0;
    case EKind::Char8Text:
        return areEqual<QByteArray>(left, right);
    case EKind::Utf16Char:
        return areEqual<QChar>(left, right);
    case EKind::Utf16Text:
        return areEqual<CString32>(left, right) || areEqual<CString64>(left, right)
               || areEqual<CString128>(left, right);
    default:
        return false;
    }
}

// The left operand's tag chooses the reader of both.
template <template <typename> class Compare>
bool ordered(const CVariant& left, const CVariant& right)
{
    switch (typeInfo(left.type()).kind) {
    case EKind::None:
        return false;
    case EKind::Unsigned:
        return Compare<quint64>()(left.toU64(), right.toU64());
    case EKind::Signed:
    case EKind::DateTime:
        return Compare<qint64>()(left.toI64(), right.toI64());
    case EKind::Float:
        return left.type() == NTypes::TYPE_F32 ? Compare<float>()(left.toF32(), right.toF32())
                                               : Compare<double>()(left.toF64(), right.toF64());
    case EKind::Utf16Text:
    case EKind::Char8Text:
    case EKind::Utf16Char:
        break;
    }
    return Compare<QString>()(left.toStr(), right.toStr());
}

} // namespace

CVariant::CVariant(const QVariant& value)
    : mType(NTypes::TYPE_UNKNOWN)
{
    *this = value;
}

CVariant& CVariant::operator=(const QVariant& value)
{
    const int type = value.userType();
    switch (type) {
    case QMetaType::Int:
    case QMetaType::Long:
        return *this = as<int>(value);
    case QMetaType::UInt:
    case QMetaType::ULong:
        return *this = as<uint>(value);
    case QMetaType::LongLong:
        return *this = as<qlonglong>(value);
    case QMetaType::ULongLong:
        return *this = as<qulonglong>(value);
    case QMetaType::Double:
        return *this = as<double>(value);
    case QMetaType::Float:
        return *this = as<float>(value);
    case QMetaType::Short:
        return *this = as<short>(value);
    case QMetaType::UShort:
        return *this = as<ushort>(value);
    case QMetaType::UChar:
        return *this = as<uchar>(value);
    case QMetaType::SChar:
        return *this = as<signed char>(value);
    case QMetaType::QChar:
        return *this = as<QChar>(value);
    case QMetaType::Char:
        return *this = as<char>(value);
    case QMetaType::QString:
        return *this = sizedText(*exact<QString>(value), value.toByteArray().size());
    case QMetaType::QByteArray:
        return *this = sizedText(*exact<QByteArray>(value), exact<QByteArray>(value)->size());
    default:
        break;
    }
    const NTypes::SMetaTypes& own = NTypes::metaTypes();
    if (type == own.string32) {
        return *this = *exact<CString32>(value);
    }
    if (type == own.string64) {
        return *this = *exact<CString64>(value);
    }
    if (type == own.string128) {
        return *this = *exact<CString128>(value);
    }
    // A date-time, too: callers rely on it that none comes back out of a QVariant.
    const char* const name = value.typeName();
    const QByteArray shown = name && *name ? QByteArray(name) : QByteArray::number(type);
    qWarning("CVariant::operator=() : userType() %s is not supported in this method.", shown.constData());
    return *this = CVariant();
}

bool CVariant::operator==(const CVariant& other) const
{
    if (mType != other.mType) {
        return false;
    }
    switch (typeInfo(mType).kind) {
    case EKind::None:
        return true;
    case EKind::Float:
        return mType == NTypes::TYPE_F32 ? fuzzyEqual(toF32(), other.toF32(), 100000.0F)
                                         : fuzzyEqual(toF64(), other.toF64(), 1e12);
    default:
        return areSamePayload(mValue, other.mValue, mType) || ordered<std::equal_to>(*this, other);
    }
}

bool CVariant::operator<(const CVariant& other) const
{
    return ordered<std::less>(*this, other);
}

bool CVariant::operator>(const CVariant& other) const
{
    return ordered<std::greater>(*this, other);
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

uint qHash(const CVariant& value, uint seed)
{
    const quint32 tag = value.mType;
    switch (typeInfo(value.mType).kind) {
    case EKind::None:
    case EKind::Float:
        // Fuzzy equality is no equivalence: only the tag is the same for all that are equal to each other.
        return qHash(tag, seed);
    case EKind::Unsigned:
        return qHash(qMakePair(tag, quint64(value.toU64())), seed);
    case EKind::Signed:
    case EKind::DateTime:
        return qHash(qMakePair(tag, qint64(value.toI64())), seed);
    default:
        return qHash(qMakePair(tag, value.toStr()), seed);
    }
}
