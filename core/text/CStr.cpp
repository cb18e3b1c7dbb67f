#include <core/text/CStr.h>

#include <core/types/TypeTable.h>

QString CStr::nTypeToStr(NTypes::ETypes type)
{
    return static_cast<quint32>(type) < NTypes::TYPE_COUNT ? QLatin1String(NTypes::typeInfo(type).name)
                                                           : QString();
}
