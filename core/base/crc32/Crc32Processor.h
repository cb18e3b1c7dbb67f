#ifndef TLXCORE_CRC32PROCESSOR_H
#define TLXCORE_CRC32PROCESSOR_H

#include <QtGlobal>

namespace NCrc32 {

/// Extensions of the x86 instruction set that processor and operating system both support.
struct SProcessor
{
    bool clmul;      ///< PCLMULQDQ and SSE4.1
    bool vpclmul256; ///< VPCLMULQDQ and AVX2
    bool vpclmul512; ///< VPCLMULQDQ and AVX-512 F and VL
};

/// What this processor has; nothing on other architectures.
SProcessor processor();

} // namespace NCrc32

#endif // TLXCORE_CRC32PROCESSOR_H
