#include <core/types/CVariant.h>

#include <core/base/QtVariant.h>
#include <core/types/MetaTypes.h>

CVariant& CVariant::setBytes(const char* bytes, int size, NTypes::ETypes type)
{
    return set(QByteArray(bytes, size), type);
}

CVariant& CVariant::operator=(const CString32& value)
{
    NMetaTypes::idOf<CString32>();
    return set(value, NTypes::TYPE_STRING32);
}

CVariant& CVariant::operator=(const CString64& value)
{
    NMetaTypes::idOf<CString64>();
    return set(value, NTypes::TYPE_STRING64);
}

CVariant& CVariant::operator=(const CString128& value)
{
    NMetaTypes::idOf<CString128>();
    return set(value, NTypes::TYPE_STRING128);
}

CVariant& CVariant::operator=(const NTypes::tsDateTime& value)
{
    NMetaTypes::idOf<NTypes::tsDateTime>();
    return set(value, NTypes::TYPE_DATETIME);
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
