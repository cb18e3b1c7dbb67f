#include <core/types/NTypes.h>

#include <core/types/MetaTypes.h>
#include <core/types/PackedDateTime.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

#include <type_traits>

namespace NTypes {

static_assert(sizeof(tsDate) == 4 && sizeof(tsTime) == 4 && sizeof(tsDateTime) == 8, "packed without gaps");
static_assert(std::is_trivial<tsDate>::value, "copied by its bytes");
static_assert(std::is_trivial<tsTime>::value, "copied by its bytes");
static_assert(std::is_trivial<tsDateTime>::value, "copied by its bytes");
static_assert(std::is_standard_layout<tsDateTime>::value, "copied by its bytes");

NQtCompat::THash qHash(const tsDate& value, NQtCompat::THash seed)
{
    return qHash(tsDateTime{{}, value}, seed);
}

NQtCompat::THash qHash(const tsTime& value, NQtCompat::THash seed)
{
    return qHash(tsDateTime{value, {}}, seed);
}

NQtCompat::THash qHash(const tsDateTime& value, NQtCompat::THash seed)
{
    return ::qHash(NPackedDateTime::pack(value), seed);
}

QDebug operator<<(QDebug debug, const tsDate& value)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NTypes::tsDate(" << value.year << '-' << int(value.month) << '-' << int(value.day)
                    << ')';
    return debug;
}

QDebug operator<<(QDebug debug, const tsTime& value)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NTypes::tsTime(" << int(value.hour) << ':' << int(value.minute) << ':'
                    << int(value.second) << '.' << int(value.hundredths) << ')';
    return debug;
}

QDebug operator<<(QDebug debug, const tsDateTime& value)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NTypes::tsDateTime(" << value.date << ", " << value.time << ')';
    return debug;
}

QDataStream& operator<<(QDataStream& stream, const tsDate& value)
{
    return stream << value.day << value.month << value.year;
}

QDataStream& operator>>(QDataStream& stream, tsDate& value)
{
    return stream >> value.day >> value.month >> value.year;
}

QDataStream& operator<<(QDataStream& stream, const tsTime& value)
{
    return stream << value.hundredths << value.second << value.minute << value.hour;
}

QDataStream& operator>>(QDataStream& stream, tsTime& value)
{
    return stream >> value.hundredths >> value.second >> value.minute >> value.hour;
}

QDataStream& operator<<(QDataStream& stream, const tsDateTime& value)
{
    return stream << value.time << value.date;
}

QDataStream& operator>>(QDataStream& stream, tsDateTime& value)
{
    return stream >> value.time >> value.date;
}

void registerMetaTypes()
{
    for (quint32 type = 0; type < NTypeTable::TYPE_COUNT; ++type) {
        NMetaTypes::metaTypeOf(static_cast<ETypes>(type));
    }
}

} // namespace NTypes
