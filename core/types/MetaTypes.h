#ifndef TLXCORE_METATYPES_H
#define TLXCORE_METATYPES_H

#include <core/types/NTypes.h>

namespace NTypes {

/// QMetaType numbers of the library's own payload types.
struct SMetaTypes
{
    int string32;
    int string64;
    int string128;
    int dateTime;
};

/// Registers the four types together with their stream operators on first use, on any thread. Whoever makes a payload of
/// one of them, asks for its number or streams a variant goes through here.
SMetaTypes metaTypes();

} // namespace NTypes

#endif // TLXCORE_METATYPES_H
