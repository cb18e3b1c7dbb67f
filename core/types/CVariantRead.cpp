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

bool isNumber(EKind kind)
{
    return kind == EKind::Unsigned || kind == EKind::Signed || kind == EKind::Float;
}

bool isText(EKind kind)
{
    return kind == EKind::Utf16Text || kind == EKind::Char8Text || kind == EKind::Utf16Char;
}

bool canConvertToNumber(const QVariant& payload, NTypes::ETypes target)
{
    // Qt's rule holds whatever it is: a payload of type unsigned char converts neither to unsigned short nor to float.
    // Only double takes the narrow types beyond that.
    if (target == NTypes::TYPE_F64) {
        switch (payload.userType()) {
        case QMetaType::Short:
        case QMetaType::Char:
        case QMetaType::UShort:
        case QMetaType::UChar:
        case QMetaType::Float:
            return true;
        default:
            break;
        }
    }
    return NQtVariant::canConvert(payload, NMetaTypes::metaTypeOf(target));
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
        return isNumber(source) || source == EKind::Char8Text || source == EKind::DateTime;
    case EKind::DateTime:
        return mType == NTypes::TYPE_U64 || mType == NTypes::TYPE_I64 || mType == NTypes::TYPE_DATETIME;
    }
    return false;
}

template <typename T>
T CVariant::toNumber(NTypes::ETypes target, bool* ok) const
{
    if (mType == target) {
        if (const T* own = NVariantPayload::exact<T>(mValue)) {
            if (ok) {
                *ok = true;
            }
            return *own;
        }
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
    if (ok) {
        *ok = done;
    }
    return done ? number : T(0);
}

signed char CVariant::toI8(bool* ok) const
{
    return toNumber<signed char>(NTypes::TYPE_I8, ok);
}

unsigned char CVariant::toU8(bool* ok) const
{
    return toNumber<unsigned char>(NTypes::TYPE_U8, ok);
}

short CVariant::toI16(bool* ok) const
{
    return toNumber<short>(NTypes::TYPE_I16, ok);
}

unsigned short CVariant::toU16(bool* ok) const
{
    return toNumber<unsigned short>(NTypes::TYPE_U16, ok);
}

int CVariant::toI32(bool* ok) const
{
    return toNumber<int>(NTypes::TYPE_I32, ok);
}

unsigned int CVariant::toU32(bool* ok) const
{
    return toNumber<unsigned int>(NTypes::TYPE_U32, ok);
}

float CVariant::toF32(bool* ok) const
{
    return toNumber<float>(NTypes::TYPE_F32, ok);
}

long long CVariant::toI64(bool* ok) const
{
    return toNumber<long long>(NTypes::TYPE_I64, ok);
}

unsigned long long CVariant::toU64(bool* ok) const
{
    return toNumber<unsigned long long>(NTypes::TYPE_U64, ok);
}

double CVariant::toF64(bool* ok) const
{
    return toNumber<double>(NTypes::TYPE_F64, ok);
}

template <typename T>
T CVariant::toText(NTypes::ETypes target, bool* ok) const
{
    T text;
    const bool done = canConvertTo(target);
    if (done) {
        if (const T* same = NVariantPayload::exact<T>(mValue)) {
            text = *same;
        } else {
            text = toStr();
        }
    }
    if (ok) {
        *ok = done;
    }
    return text;
}

CString32 CVariant::toString32(bool* ok) const
{
    return toText<CString32>(NTypes::TYPE_STRING32, ok);
}

bool CVariant::toString32(unsigned short (&dest)[32]) const
{
    bool ok = false;
    toString32(&ok).string32(dest);
    return ok;
}

CString64 CVariant::toString64(bool* ok) const
{
    return toText<CString64>(NTypes::TYPE_STRING64, ok);
}

bool CVariant::toString64(unsigned short (&dest)[64]) const
{
    bool ok = false;
    toString64(&ok).string64(dest);
    return ok;
}

CString128 CVariant::toString128(bool* ok) const
{
    return toText<CString128>(NTypes::TYPE_STRING128, ok);
}

bool CVariant::toString128(unsigned short (&dest)[128]) const
{
    bool ok = false;
    toString128(&ok).string128(dest);
    return ok;
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

bool CVariant::toCharStr64(char (&dest)[64]) const
{
    return toBytes(dest, 64, 1);
}

bool CVariant::toCharStr128(char (&dest)[128]) const
{
    return toBytes(dest, 128, 1);
}

bool CVariant::toCharStr256(char (&dest)[256]) const
{
    return toBytes(dest, 256, 1);
}

bool CVariant::toChar(char& dest) const
{
    return toBytes(&dest, 1, 0);
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
