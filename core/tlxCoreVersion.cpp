#include <core/tlxCoreVersion.h>

const char* tlxCoreVersion() noexcept
{
    return TLXCORE_VERSION_STR;
}
