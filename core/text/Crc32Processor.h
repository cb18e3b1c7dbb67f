#ifndef TLXCORE_CRC32PROCESSOR_H
#define TLXCORE_CRC32PROCESSOR_H

#include <QtGlobal>

/**
 * What the sources of one path need to know of the compiler and the processor. TLX_CRC32_X86 is defined where the
 * intrinsics are, TLX_CRC32_WIDE where those of more than 128 bits are safe: GCC does not align the stack of Windows
 * for them. TLX_TARGET(features) lets one function use instructions that the rest of the build does not.
 */
#if defined(Q_PROCESSOR_X86_64) && (defined(Q_CC_GNU) || defined(Q_CC_CLANG))
#define TLX_CRC32_X86
#define TLX_TARGET(features) __attribute__((target(features)))
#elif defined(Q_PROCESSOR_X86_64) && defined(Q_CC_MSVC)
#define TLX_CRC32_X86
#define TLX_TARGET(features)
#endif

#if defined(TLX_CRC32_X86) && !(defined(Q_OS_WIN) && defined(Q_CC_GNU) && !defined(Q_CC_CLANG))
#define TLX_CRC32_WIDE
#endif

#if defined(Q_CC_CLANG)
#define TLX_UNROLL _Pragma("unroll")
#elif defined(Q_CC_GNU)
#define TLX_UNROLL _Pragma("GCC unroll 8")
#else
#define TLX_UNROLL
#endif

namespace NCrc32 {

/// Extensions of the x86 instruction set that processor and operating system both support.
struct SProcessor
{
    bool clmul = false;      ///< PCLMULQDQ and SSE4.1
    bool vpclmul256 = false; ///< VPCLMULQDQ and AVX2
    bool vpclmul512 = false; ///< VPCLMULQDQ and AVX-512 F and VL
};

/// What this processor has; nothing on other architectures.
SProcessor processor();

} // namespace NCrc32

#endif // TLXCORE_CRC32PROCESSOR_H
