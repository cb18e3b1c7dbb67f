#include <core/base/crc32/Crc32.h>

#if defined(TLX_CRC32_INTRINSICS)

#include <core/base/crc32/Crc32Fold.h>

namespace NCrc32 {

namespace {

// The unmasked forms of these instructions make GCC 12 warn of its own headers.
template <int INDEX>
inline __m128i part16(__m512i parts)
{
    return _mm512_maskz_extracti32x4_epi32(0xF, parts, INDEX);
}

/// Four 128-bit parts.
struct SWide64
{
    using Type = __m512i;
    static constexpr int BYTES = 64;

    static Type load(const uchar* data) { return _mm512_loadu_si512(data); }
    static Type constants(SFold fold)
    {
        return _mm512_maskz_broadcast_i32x4(0xFFFF, pairOf(fold.low, fold.high));
    }
    static Type fold(Type part, Type by, Type next)
    {
        constexpr int XOR_OF_THREE = 0x96;
        return _mm512_ternarylogic_epi64(next, _mm512_clmulepi64_epi128(part, by, 0x00),
                                         _mm512_clmulepi64_epi128(part, by, 0x11), XOR_OF_THREE);
    }
    static Type withRegister(Type first, quint32 crc)
    {
        return _mm512_xor_si512(first, _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(crc))));
    }
    static __m128i last(Type part)
    {
        const __m128i by = pairOf(OVER_16.low, OVER_16.high);
        __m128i sum = part16<0>(part);
        sum = fold16(sum, by, part16<1>(part));
        sum = fold16(sum, by, part16<2>(part));
        return fold16(sum, by, part16<3>(part));
    }
};

quint32 update64(quint32 crc, const uchar* data, std::size_t length)
{
    if (length >= 1024) {
        return folded<SWide64, 8>(crc, data, length);
    }
    return length >= 256 ? folded<SWide64, 4>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

const Function VPCLMUL512 = update64;

} // namespace NCrc32

#else

const NCrc32::Function NCrc32::VPCLMUL512 = nullptr;

#endif
