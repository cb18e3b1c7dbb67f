#include <core/types/MetaTypes.h>

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>

#include <atomic>

namespace NTypes {

namespace {

// Two first calls at once register twice, which Qt takes for once. Nobody waits.
template <typename T>
int numberOf()
{
    static std::atomic<int> known{QMetaType::UnknownType};
    int number = known.load(std::memory_order_acquire);
    if (number == QMetaType::UnknownType) {
        number = qMetaTypeId<T>();
        qRegisterMetaTypeStreamOperators<T>(QMetaType::typeName(number));
        known.store(number, std::memory_order_release);
    }
    return number;
}

} // namespace

SMetaTypes metaTypes()
{
    return {numberOf<CString32>(), numberOf<CString64>(), numberOf<CString128>(), numberOf<tsDateTime>()};
}

void registerMetaTypes()
{
    metaTypes();
}

} // namespace NTypes
