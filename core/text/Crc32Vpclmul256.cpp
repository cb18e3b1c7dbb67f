#include <core/text/Crc32Processor.h>

#if defined(TLX_CRC32_WIDE)

#define TLX_CRC32_TARGET TLX_TARGET("pclmul,ssse3,sse4.1,avx2,vpclmulqdq")
#include <core/text/Crc32Fold.h>

namespace NCrc32 {

namespace {

/// Two 128-bit parts.
struct SWide32
{
    using Type = __m256i;
    static constexpr int BYTES = 32;

    TLX_CRC32_TARGET static Type load(const uchar* data)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data));
    }
    TLX_CRC32_TARGET static Type constants(SFold fold)
    {
        return _mm256_broadcastsi128_si256(pairOf(fold.low, fold.high));
    }
    TLX_CRC32_TARGET static Type fold(Type part, Type by, Type next)
    {
        return _mm256_xor_si256(next, _mm256_xor_si256(_mm256_clmulepi64_epi128(part, by, 0x00),
                                                       _mm256_clmulepi64_epi128(part, by, 0x11)));
    }
    TLX_CRC32_TARGET static Type withRegister(Type first, quint32 crc)
    {
        return _mm256_xor_si256(first, _mm256_setr_epi32(static_cast<int>(crc), 0, 0, 0, 0, 0, 0, 0));
    }
    TLX_CRC32_TARGET static __m128i last(Type part)
    {
        return fold16(_mm256_castsi256_si128(part), pairOf(OVER_16.low, OVER_16.high),
                      _mm256_extracti128_si256(part, 1));
    }
};

TLX_CRC32_TARGET quint32 update32(quint32 crc, const uchar* data, std::size_t length)
{
    return length >= 256 ? folded<SWide32, 8>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

Function pathVpclmul256()
{
    return processor().vpclmul256 ? update32 : nullptr;
}

} // namespace NCrc32

#else

#include <core/text/Crc32.h>

NCrc32::Function NCrc32::pathVpclmul256()
{
    return nullptr;
}

#endif
