#include <core/types/MetaTypes.h>

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>

namespace NTypes {

namespace {

template <typename T>
int registerWithStream()
{
    const int number = qMetaTypeId<T>();
    qRegisterMetaTypeStreamOperators<T>(QMetaType::typeName(number));
    return number;
}

} // namespace

const SMetaTypes& metaTypes()
{
    static const SMetaTypes numbers = {registerWithStream<CString32>(), registerWithStream<CString64>(),
                                       registerWithStream<CString128>(), registerWithStream<tsDateTime>()};
    return numbers;
}

void registerMetaTypes()
{
    metaTypes();
}

} // namespace NTypes
