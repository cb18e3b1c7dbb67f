#include <core/text/Crc32Processor.h>

#if defined(TLX_CRC32_WIDE)

#define TLX_CRC32_TARGET TLX_TARGET("pclmul,ssse3,sse4.1,avx512f,avx512vl,vpclmulqdq")
#include <core/text/Crc32Fold.h>

namespace NCrc32 {

namespace {

// The unmasked forms of these instructions make GCC 12 warn of its own headers.
template <int INDEX>
TLX_CRC32_TARGET inline __m128i part16(__m512i parts)
{
    return _mm512_maskz_extracti32x4_epi32(0xF, parts, INDEX);
}

/// Four 128-bit parts.
struct SWide64
{
    using Type = __m512i;
    static constexpr int BYTES = 64;

    TLX_CRC32_TARGET static Type load(const uchar* data) { return _mm512_loadu_si512(data); }
    TLX_CRC32_TARGET static Type constants(SFold fold)
    {
        return _mm512_maskz_broadcast_i32x4(0xFFFF, pairOf(fold.low, fold.high));
    }
    TLX_CRC32_TARGET static Type fold(Type part, Type by, Type next)
    {
        constexpr int XOR_OF_THREE = 0x96;
        return _mm512_ternarylogic_epi64(next, _mm512_clmulepi64_epi128(part, by, 0x00),
                                         _mm512_clmulepi64_epi128(part, by, 0x11), XOR_OF_THREE);
    }
    TLX_CRC32_TARGET static Type withRegister(Type first, quint32 crc)
    {
        return _mm512_xor_si512(first, _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(crc))));
    }
    TLX_CRC32_TARGET static __m128i last(Type part)
    {
        const __m128i by = pairOf(OVER_16.low, OVER_16.high);
        __m128i sum = part16<0>(part);
        sum = fold16(sum, by, part16<1>(part));
        sum = fold16(sum, by, part16<2>(part));
        return fold16(sum, by, part16<3>(part));
    }
};

TLX_CRC32_TARGET quint32 update64(quint32 crc, const uchar* data, std::size_t length)
{
    if (length >= 1024) {
        return folded<SWide64, 8>(crc, data, length);
    }
    return length >= 256 ? folded<SWide64, 4>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

Function pathVpclmul512()
{
    return processor().vpclmul512 ? update64 : nullptr;
}

} // namespace NCrc32

#else

#include <core/text/Crc32.h>

NCrc32::Function NCrc32::pathVpclmul512()
{
    return nullptr;
}

#endif
