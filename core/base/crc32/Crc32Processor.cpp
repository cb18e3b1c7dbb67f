#include <core/base/crc32/Crc32Processor.h>

#if defined(Q_PROCESSOR_X86_64) && defined(Q_CC_MSVC)
#include <immintrin.h>
#include <intrin.h>
#endif

namespace NCrc32 {

#if !defined(Q_PROCESSOR_X86_64)

SProcessor processor()
{
    return {};
}

#elif defined(Q_CC_MSVC)

SProcessor processor()
{
    constexpr int OSXSAVE = 1 << 27;
    constexpr unsigned long long YMM_STATE = 0x06;
    constexpr unsigned long long ZMM_STATE = 0xE6;
    int leaf1[4] = {};
    int leaf7[4] = {};
    __cpuid(leaf1, 0);
    const int leaves = leaf1[0];
    __cpuid(leaf1, 1);
    if (leaves >= 7) {
        __cpuidex(leaf7, 7, 0);
    }
    const unsigned long long state = (leaf1[2] & OSXSAVE) ? _xgetbv(0) : 0;
    const auto has = [](int word, int bit) { return ((word >> bit) & 1) != 0; };
    SProcessor found = {};
    found.clmul = has(leaf1[2], 1) && has(leaf1[2], 19);
    const bool vpclmul = found.clmul && has(leaf7[2], 10);
    found.vpclmul256 = vpclmul && has(leaf7[1], 5) && (state & YMM_STATE) == YMM_STATE;
    found.vpclmul512 = vpclmul && has(leaf7[1], 16) && has(leaf7[1], 31) && (state & ZMM_STATE) == ZMM_STATE;
    return found;
}

#else

SProcessor processor()
{
    __builtin_cpu_init();
    SProcessor found = {};
    found.clmul = __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("sse4.1");
    const bool vpclmul = found.clmul && __builtin_cpu_supports("vpclmulqdq");
    found.vpclmul256 = vpclmul && __builtin_cpu_supports("avx2");
    found.vpclmul512 = vpclmul && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl");
    return found;
}

#endif

} // namespace NCrc32
