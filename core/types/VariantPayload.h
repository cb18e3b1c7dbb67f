#ifndef TLXCORE_VARIANTPAYLOAD_H
#define TLXCORE_VARIANTPAYLOAD_H

#include <core/base/QtVariant.h>
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
    return payload.userType() == NMetaTypes::idOf<T>() ? static_cast<const T*>(payload.constData()) : nullptr;
}

/// The payload as the Qt type T: its value when it holds exactly T, else what QVariant::convert makes of it, else T().
template <typename T>
T as(const QVariant& payload, bool* ok = nullptr)
{
    if (const T* own = exact<T>(payload)) {
        if (ok) {
            *ok = true;
        }
        return *own;
    }
    QVariant copy = payload;
    const bool done = NQtVariant::convert(copy, NMetaTypes::idOf<T>());
    if (ok) {
        *ok = done;
    }
    return done ? *static_cast<const T*>(copy.constData()) : T();
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

} // namespace NVariantPayload

#endif // TLXCORE_VARIANTPAYLOAD_H
