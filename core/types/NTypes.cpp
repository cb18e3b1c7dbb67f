#include <core/types/NTypes.h>

#include <type_traits>

namespace NTypes {

static_assert(sizeof(tsDate) == 4 && sizeof(tsTime) == 4 && sizeof(tsDateTime) == 8, "packed without gaps");
static_assert(std::is_trivial<tsDateTime>::value && std::is_standard_layout<tsDateTime>::value,
              "the record is copied by its bytes");

} // namespace NTypes
