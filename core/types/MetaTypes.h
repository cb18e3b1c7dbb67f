#ifndef TLXCORE_METATYPES_H
#define TLXCORE_METATYPES_H

#include <core/base/QtStreams.h>
#include <core/types/TypeTable.h>

#include <QMetaType>

#include <atomic>

namespace NMetaTypes {

/// The QMetaType of T. The first question registers a type of the library's own together with its stream operators. Two
/// first questions at once register twice, which Qt takes for once: nobody waits.
template <typename T>
int idOf()
{
    if constexpr (NTypeTable::IS_FIXED_STRING<T> || NTypeTable::IS_DATE_TIME<T>) {
        static std::atomic<int> known{QMetaType::UnknownType};
        int id = known.load(std::memory_order_acquire);
        if (id == QMetaType::UnknownType) {
            id = NQtCompat::registerWithStream<T>();
            known.store(id, std::memory_order_release);
        }
        return id;
    } else {
        return qMetaTypeId<T>();
    }
}

/// The QMetaType of the type's payloads; QMetaType::UnknownType where no value exists.
inline int metaTypeOf(NTypes::ETypes type)
{
    return NTypeTable::visitType(type, [](auto payload) -> int {
        using T = typename decltype(payload)::Type;
        if constexpr (std::is_void<T>::value) {
            return QMetaType::UnknownType;
        } else {
            return idOf<T>();
        }
    });
}

/// The first type whose payloads have this QMetaType; or one without values.
inline NTypes::ETypes typeOfPayload(int metaType)
{
    quint32 type = NTypes::TYPE_UNKNOWN;
    while (type < NTypeTable::TYPE_COUNT && metaTypeOf(static_cast<NTypes::ETypes>(type)) != metaType) {
        ++type;
    }
    return static_cast<NTypes::ETypes>(type);
}

} // namespace NMetaTypes

#endif // TLXCORE_METATYPES_H
