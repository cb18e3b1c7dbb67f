#ifndef TLXCORE_VARIANTPAYLOAD_H
#define TLXCORE_VARIANTPAYLOAD_H

#include <core/types/MetaTypes.h>
#include <core/types/PackedDateTime.h>

#include <QVariant>

// How a variant's payload is read: always as what it is, never as what the tag promises. A payload out of a stream or
// kept by setDefaultValue may be anything.
namespace NVariantPayload {

/// QVariant::userType() and constData(), inline: they stand on the way of every comparison and every text.
inline int metaType(const QVariant& payload)
{
    return static_cast<int>(payload.data_ptr().type);
}

inline const void* data(const QVariant& payload)
{
    const QVariant::DataPtr& d = payload.data_ptr();
    return d.is_shared ? d.data.shared->ptr : static_cast<const void*>(&d.data.ptr);
}

/// The value when the payload holds exactly this Qt type; null otherwise.
template <typename T>
const T* exact(const QVariant& payload)
{
    return metaType(payload) == qMetaTypeId<T>() ? static_cast<const T*>(data(payload)) : nullptr;
}

/// The payload as the Qt type T: its value when it holds exactly T, else what QVariant::convert makes of it, else T().
template <typename T>
T as(const QVariant& payload, bool* ok = nullptr)
{
    if (const T* value = exact<T>(payload)) {
        if (ok) {
            *ok = true;
        }
        return *value;
    }
    QVariant copy = payload;
    const bool converted = copy.convert(qMetaTypeId<T>());
    if (ok) {
        *ok = converted;
    }
    return converted ? *static_cast<const T*>(copy.constData()) : T();
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
