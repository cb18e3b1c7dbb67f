#ifndef TLXCORE_VARIANTPAYLOAD_H
#define TLXCORE_VARIANTPAYLOAD_H

#include <core/base/NumberReading.h>
#include <core/base/QtVariant.h>
#include <core/types/CVariant.h>
#include <core/types/MetaTypes.h>
#include <core/types/PackedDateTime.h>

// How a variant's payload is read: always as what it is, never as what the tag promises. A payload out of a stream or
// kept by setDefaultValue may be anything.
namespace NVariantPayload {

/// The value when the payload holds exactly this Qt type; null otherwise.
template <typename T>
const T* exact(const QVariant& payload)
{
    return payload.userType() == NMetaTypes::idOf<T>() ? static_cast<const T*>(payload.constData()) : nullptr;
}

/// The payload as the Qt type T: its value when it holds exactly T, else what QVariant::convert makes of it, else T().
template <typename T>
T as(const QVariant& payload, bool* ok = nullptr)
{
    if (const T* own = exact<T>(payload)) {
        return NNumberReading::answer(ok, true, *own);
    }
    QVariant copy = payload;
    const bool done = NQtVariant::convert(copy, NMetaTypes::idOf<T>());
    return NNumberReading::answer(ok, done, done ? *static_cast<const T*>(copy.constData()) : T());
}

/// The packed 64-bit number of a date-time payload: of a record, or the number itself; 0 when it is neither.
inline qint64 packedDateTime(const QVariant& payload, bool* ok)
{
    if (const NTypes::tsDateTime* record = exact<NTypes::tsDateTime>(payload)) {
        *ok = true;
        return NPackedDateTime::pack(*record);
    }
    return as<qlonglong>(payload, ok);
}

/// What values of a type are compared and hashed by, and shown to a debugger.
template <typename T>
auto comparable(const CVariant& value)
{
    if constexpr (std::is_unsigned<T>::value) {
        return value.toU64();
    } else if constexpr (NTypeTable::IS_INTEGER<T> || NTypeTable::IS_DATE_TIME<T>) {
        return value.toI64();
    } else if constexpr (NTypeTable::IS_FLOAT<T>) {
        return static_cast<T>(value);
    } else {
        return value.toStr();
    }
}

} // namespace NVariantPayload

#endif // TLXCORE_VARIANTPAYLOAD_H
