#include <core/types/CVariant.h>

#include <core/base/QtVariant.h>
#include <core/types/MetaTypes.h>

CVariant::CVariant(char value)
    : mValue(QByteArray(1, value))
    , mType(NTypes::TYPE_CHAR)
{}

CVariant::CVariant(const char (&value)[64])
    : mValue(QByteArray(value, sizeof(value)))
    , mType(NTypes::TYPE_CHARSTR64)
{}

CVariant::CVariant(const char (&value)[128])
    : mValue(QByteArray(value, sizeof(value)))
    , mType(NTypes::TYPE_CHARSTR128)
{}

CVariant::CVariant(const char (&value)[256])
    : mValue(QByteArray(value, sizeof(value)))
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
    return set(QByteArray(value, sizeof(value)), NTypes::TYPE_CHARSTR64);
}

CVariant& CVariant::operator=(const char (&value)[128])
{
    return set(QByteArray(value, sizeof(value)), NTypes::TYPE_CHARSTR128);
}

CVariant& CVariant::operator=(const char (&value)[256])
{
    return set(QByteArray(value, sizeof(value)), NTypes::TYPE_CHARSTR256);
}

CVariant& CVariant::operator=(const CString32& value)
{
    return setOwn(value, NTypes::TYPE_STRING32);
}

CVariant& CVariant::operator=(const CString64& value)
{
    return setOwn(value, NTypes::TYPE_STRING64);
}

CVariant& CVariant::operator=(const CString128& value)
{
    return setOwn(value, NTypes::TYPE_STRING128);
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
    return setOwn(value, NTypes::TYPE_DATETIME);
}

CVariant& CVariant::operator=(NTypes::ETypes type)
{
    return *this = CVariant(type);
}

QVariant CVariant::defaultValue(NTypes::ETypes type) const
{
    return NTypeTable::visitType(type, [type](auto payload) -> QVariant {
        using T = typename decltype(payload)::Type;
        if constexpr (std::is_void<T>::value) {
            return QVariant();
        } else if constexpr (NTypeTable::IS_BYTES<T>) {
            return QByteArray(NTypeTable::typeInfo(type).width, '\0');
        } else if constexpr (NTypeTable::IS_INTEGER<T> && sizeof(T) < sizeof(int)) {
            return 0; // only the tag says how wide it is
        } else {
            const T value = T();
            return NQtVariant::make(NMetaTypes::idOf<T>(), &value);
        }
    });
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
CVariant& CVariant::setOwn(const T& value, NTypes::ETypes type)
{
    NMetaTypes::idOf<T>();
    return set(value, type);
}
