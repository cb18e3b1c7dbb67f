#include <core/types/MetaTypes.h>

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/TypeTable.h>

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

int payloadMetaType(ETypes type)
{
    switch (type) {
    case TYPE_STRING32:
        return metaTypes().string32;
    case TYPE_STRING64:
        return metaTypes().string64;
    case TYPE_STRING128:
        return metaTypes().string128;
    case TYPE_DATETIME:
        return metaTypes().dateTime;
    default:
        return typeInfo(type).payload;
    }
}

void registerMetaTypes()
{
    metaTypes();
}

} // namespace NTypes
