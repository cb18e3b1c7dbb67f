#include <core/base/crc32/Crc32.h>

#if defined(TLX_CRC32_INTRINSICS)

#include <core/base/crc32/Crc32Fold.h>

namespace NCrc32 {

namespace {

/// Two 128-bit parts.
struct SWide32
{
    using Type = __m256i;
    static constexpr int BYTES = 32;

    static Type load(const uchar* data) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data)); }
    static Type constants(SFold fold) { return _mm256_broadcastsi128_si256(pairOf(fold.low, fold.high)); }
    static Type fold(Type part, Type by, Type next)
    {
        return _mm256_xor_si256(next, _mm256_xor_si256(_mm256_clmulepi64_epi128(part, by, 0x00),
                                                       _mm256_clmulepi64_epi128(part, by, 0x11)));
    }
    static Type withRegister(Type first, quint32 crc)
    {
        return _mm256_xor_si256(first, _mm256_setr_epi32(static_cast<int>(crc), 0, 0, 0, 0, 0, 0, 0));
    }
    static __m128i last(Type part)
    {
        return fold16(_mm256_castsi256_si128(part), pairOf(OVER_16.low, OVER_16.high),
                      _mm256_extracti128_si256(part, 1));
    }
};

quint32 update32(quint32 crc, const uchar* data, std::size_t length)
{
    return length >= 256 ? folded<SWide32, 8>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

const Function VPCLMUL256 = update32;

} // namespace NCrc32

#else

const NCrc32::Function NCrc32::VPCLMUL256 = nullptr;

#endif
