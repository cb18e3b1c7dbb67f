#ifndef TLXCORE_VARIANTPAYLOAD_H
#define TLXCORE_VARIANTPAYLOAD_H

#include <core/types/MetaTypes.h>
#include <core/types/PackedDateTime.h>

#include <QVariant>

// How a variant's payload is read: always as what it is, never as what the tag promises. A payload out of a stream or
// kept by setDefaultValue may be anything.
namespace NVariantPayload {

/// The value when the payload holds exactly this Qt type; null otherwise.
template <typename T>
const T* exact(const QVariant& payload)
{
    return payload.userType() == qMetaTypeId<T>() ? static_cast<const T*>(payload.constData()) : nullptr;
}

/// The payload as the Qt type T: its value when it holds exactly T, else what QVariant::convert makes of it, else T().
template <typename T>
T as(const QVariant& payload, bool* ok = nullptr)
{
    QVariant converted;
    const T* value = exact<T>(payload);
    if (!value) {
        converted = payload;
        value = converted.convert(qMetaTypeId<T>()) ? static_cast<const T*>(converted.constData()) : nullptr;
    }
    if (ok) {
        *ok = value != nullptr;
    }
    return value ? *value : T();
}

/// The packed 64-bit number of a date-time payload: of a record, or the number itself; 0 when it is neither.
inline qint64 packedDateTime(const QVariant& payload, bool* ok = nullptr)
{
    if (payload.userType() == NTypes::metaTypes().dateTime) {
        if (ok) {
            *ok = true;
        }
        return NTypes::packDateTime(*static_cast<const NTypes::tsDateTime*>(payload.constData()));
    }
    return as<qlonglong>(payload, ok);
}

/// The bits of an integer type's value, sign-extended to 64 bits where the type is signed; 0 for other types.
quint64 integerBits(const QVariant& payload, NTypes::ETypes type);

/// The payload of an integer type from its bits, cut to the type's width; invalid for other types.
QVariant integerPayload(quint64 bits, NTypes::ETypes type);

} // namespace NVariantPayload

#endif // TLXCORE_VARIANTPAYLOAD_H
