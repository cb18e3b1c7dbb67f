#include <core/types/CVariant.h>

#include <core/types/MetaTypes.h>
#include <core/types/TypeTable.h>

using NTypes::EKind;
using NTypes::typeInfo;

namespace {

template <int Size>
QByteArray bytesOf(const char (&value)[Size])
{
    return QByteArray(value, Size);
}

} // namespace

CVariant::CVariant(char value)
    : mValue(QByteArray(1, value))
    , mType(NTypes::TYPE_CHAR)
{}

CVariant::CVariant(const char (&value)[64])
    : mValue(bytesOf(value))
    , mType(NTypes::TYPE_CHARSTR64)
{}

CVariant::CVariant(const char (&value)[128])
    : mValue(bytesOf(value))
    , mType(NTypes::TYPE_CHARSTR128)
{}

CVariant::CVariant(const char (&value)[256])
    : mValue(bytesOf(value))
    , mType(NTypes::TYPE_CHARSTR256)
{}

CVariant::CVariant(const CString32& value)
    : CVariant()
{
    *this = value;
}

CVariant::CVariant(const CString64& value)
    : CVariant()
{
    *this = value;
}

CVariant::CVariant(const CString128& value)
    : CVariant()
{
    *this = value;
}

CVariant::CVariant(const unsigned short (&value)[32])
    : CVariant(CString32(value))
{}

CVariant::CVariant(const unsigned short (&value)[64])
    : CVariant(CString64(value))
{}

CVariant::CVariant(const unsigned short (&value)[128])
    : CVariant(CString128(value))
{}

CVariant::CVariant(const NTypes::tsDateTime& value)
    : CVariant()
{
    *this = value;
}

CVariant::CVariant(NTypes::ETypes type)
    : mValue(defaultValue(type))
    , mType(type)
{}

CVariant& CVariant::operator=(CVariant&& other) noexcept
{
    mValue.swap(other.mValue);
    std::swap(mType, other.mType);
    return *this;
}

CVariant& CVariant::operator=(char value)
{
    return set(QByteArray(1, value), NTypes::TYPE_CHAR);
}

CVariant& CVariant::operator=(const char (&value)[64])
{
    return set(bytesOf(value), NTypes::TYPE_CHARSTR64);
}

CVariant& CVariant::operator=(const char (&value)[128])
{
    return set(bytesOf(value), NTypes::TYPE_CHARSTR128);
}

CVariant& CVariant::operator=(const char (&value)[256])
{
    return set(bytesOf(value), NTypes::TYPE_CHARSTR256);
}

CVariant& CVariant::operator=(const CString32& value)
{
    return setUserType(value, NTypes::TYPE_STRING32);
}

CVariant& CVariant::operator=(const CString64& value)
{
    return setUserType(value, NTypes::TYPE_STRING64);
}

CVariant& CVariant::operator=(const CString128& value)
{
    return setUserType(value, NTypes::TYPE_STRING128);
}

CVariant& CVariant::operator=(const unsigned short (&value)[32])
{
    return *this = CString32(value);
}

CVariant& CVariant::operator=(const unsigned short (&value)[64])
{
    return *this = CString64(value);
}

CVariant& CVariant::operator=(const unsigned short (&value)[128])
{
    return *this = CString128(value);
}

CVariant& CVariant::operator=(const NTypes::tsDateTime& value)
{
    return setUserType(value, NTypes::TYPE_DATETIME);
}

CVariant& CVariant::operator=(NTypes::ETypes type)
{
    return *this = CVariant(type);
}

QVariant CVariant::defaultValue(NTypes::ETypes type) const
{
    // Values are passed to QVariant, since one that it makes by itself is null.
    static constexpr quint64 ZERO = 0;
    const NTypes::STypeInfo& info = typeInfo(type);
    switch (info.kind) {
    case EKind::None:
        return QVariant();
    case EKind::Unsigned:
    case EKind::Signed:
    case EKind::Float:
        // Only the tag says how wide an 8- or 16-bit default is.
        return info.width < 4 ? QVariant(0) : QVariant(info.payload, &ZERO);
    case EKind::Char8Text:
        return QByteArray(info.width, '\0');
    case EKind::Utf16Char:
        return QChar(0);
    case EKind::DateTime:
    case EKind::Utf16Text:
        break;
    }
    NTypes::metaTypes();
    switch (type) {
    case NTypes::TYPE_DATETIME:
        return QVariant::fromValue(NTypes::tsDateTime());
    case NTypes::TYPE_STRING32:
        return QVariant::fromValue(CString32());
    case NTypes::TYPE_STRING64:
        return QVariant::fromValue(CString64());
    default:
        return QVariant::fromValue(CString128());
    }
}

CVariant& CVariant::setDefaultValue(NTypes::ETypes type)
{
    mType = type;
    const QVariant value = defaultValue(type);
    // Callers rely on it that a type without default keeps the payload. The "UTF16CHAR" default counts although Qt
    // calls its QChar(0) null.
    if (value.isValid()) {
        mValue = value;
    }
    return *this;
}

template <typename T>
CVariant& CVariant::setUserType(const T& value, NTypes::ETypes type)
{
    NTypes::metaTypes();
    return set(value, type);
}
