#include <core/types/CVariant.h>

#include <core/base/FloatToInteger.h>
#include <core/base/QtVariant.h>
#include <core/types/TypeTable.h>
#include <core/types/VariantPayload.h>

#include <algorithm>
#include <cstring>
#include <type_traits>

using NTypeTable::EKind;
using NTypeTable::typeInfo;

namespace {

bool isText(EKind kind)
{
    return kind == EKind::Utf16Text || kind == EKind::Char8Text || kind == EKind::Utf16Char;
}

bool canConvertToNumber(const QVariant& payload, NTypes::ETypes target)
{
    // Qt's rule holds whatever it is: a payload of type unsigned char converts neither to unsigned short nor to float.
    // Only double takes the narrow types beyond that.
    const int type = payload.userType();
    const bool isNarrow = type == QMetaType::Short || type == QMetaType::Char || type == QMetaType::UShort
                          || type == QMetaType::UChar || type == QMetaType::Float;
    return (isNarrow && target == NTypes::TYPE_F64)
           || NQtVariant::canConvert(payload, NMetaTypes::metaTypeOf(target));
}

template <typename To, typename From>
To converted(From value)
{
    if constexpr (std::is_floating_point<From>::value && std::is_integral<To>::value) {
        return floatToInteger<To>(value);
    } else {
        return static_cast<To>(value);
    }
}

} // namespace

bool CVariant::isNull() const
{
    return mType == NTypes::TYPE_UNKNOWN || NQtVariant::isNull(mValue);
}

bool CVariant::canConvertTo(NTypes::ETypes type) const
{
    const EKind source = typeInfo(mType).kind;
    switch (typeInfo(type).kind) {
    case EKind::None:
        return false;
    case EKind::Unsigned:
    case EKind::Signed:
    case EKind::Float:
        return source == EKind::DateTime || canConvertToNumber(mValue, type);
    case EKind::Utf16Text:
    case EKind::Utf16Char:
        return isText(source);
    case EKind::Char8Text:
        return source != EKind::None && source != EKind::Utf16Text && source != EKind::Utf16Char;
    case EKind::DateTime:
        return mType == NTypes::TYPE_U64 || mType == NTypes::TYPE_I64 || mType == NTypes::TYPE_DATETIME;
    }
    return false;
}

template <typename T>
T CVariant::toNumber(NTypes::ETypes target, bool* ok) const
{
    if (const T* own = mType == target ? NVariantPayload::exact<T>(mValue) : nullptr) {
        return NNumberReading::answer(ok, true, *own);
    }
    bool done = false;
    T number = 0;
    if (canConvertTo(target)) {
        const NTypeTable::STypeInfo& info = typeInfo(mType);
        const bool wide = info.width == 8;
        switch (info.kind) {
        case EKind::Unsigned:
            number = wide ? converted<T>(NQtVariant::toULongLong(mValue, &done))
                          : converted<T>(NQtVariant::toUInt(mValue, &done));
            break;
        case EKind::Signed:
            number = wide ? converted<T>(NQtVariant::toLongLong(mValue, &done))
                          : converted<T>(NQtVariant::toInt(mValue, &done));
            break;
        case EKind::Float:
            number = converted<T>(NQtVariant::toDouble(mValue, &done));
            break;
        case EKind::DateTime:
            number = converted<T>(NVariantPayload::packedDateTime(mValue, &done));
            break;
        default:
            break;
        }
    }
    return NNumberReading::answer(ok, done, number);
}

quint64 CVariant::toBits(NTypes::ETypes integer, bool* ok) const
{
    return NTypeTable::visitType(integer, [this, integer, ok](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (NTypeTable::IS_INTEGER<T>) {
            return static_cast<quint64>(toNumber<T>(integer, ok));
        } else {
            return quint64(0);
        }
    });
}

float CVariant::toF32(bool* ok) const
{
    return toNumber<float>(NTypes::TYPE_F32, ok);
}

double CVariant::toF64(bool* ok) const
{
    return toNumber<double>(NTypes::TYPE_F64, ok);
}

template <typename T>
T CVariant::toText(bool* ok) const
{
    const bool isOne = isText(typeInfo(mType).kind);
    if (ok) {
        *ok = isOne;
    }
    const T* const same = isOne ? NVariantPayload::exact<T>(mValue) : nullptr;
    return same ? *same : isOne ? T(toStr()) : T();
}

CString32 CVariant::toString32(bool* ok) const
{
    return toText<CString32>(ok);
}

CString64 CVariant::toString64(bool* ok) const
{
    return toText<CString64>(ok);
}

CString128 CVariant::toString128(bool* ok) const
{
    return toText<CString128>(ok);
}

bool CVariant::copyUnits(const QByteArray& units, unsigned short* dest) const
{
    std::memcpy(dest, units.constData(), static_cast<std::size_t>(units.size()));
    return canConvertTo(NTypes::TYPE_STRING32);
}

bool CVariant::toBytes(char* dest, int size, int terminator) const
{
    if (typeInfo(mType).kind != EKind::Char8Text) {
        return false;
    }
    const QByteArray bytes = NVariantPayload::as<QByteArray>(mValue);
    std::memset(dest, 0, static_cast<std::size_t>(size));
    std::memcpy(dest, bytes.constData(),
                static_cast<std::size_t>(std::min<qsizetype>(bytes.size(), size - terminator)));
    return true;
}

CVariant::operator char() const
{
    char value = 0;
    toChar(value);
    return value;
}

bool CVariant::toUtf16Char(QChar& dest) const
{
    dest = QChar(0);
    if (!canConvertTo(NTypes::TYPE_UTF16CHAR)) {
        return false;
    }
    if (mType == NTypes::TYPE_UTF16CHAR) {
        dest = NVariantPayload::as<QChar>(mValue);
        return true;
    }
    const QString text = toStr();
    if (!text.isEmpty()) {
        dest = text.at(0);
    }
    return true;
}

bool CVariant::toUtf16Char(unsigned short& dest) const
{
    QChar value;
    const bool ok = toUtf16Char(value);
    dest = value.unicode();
    return ok;
}

CVariant::operator QChar() const
{
    QChar value;
    toUtf16Char(value);
    return value;
}
