#ifndef TLXCORE_CRC32FOLD_H
#define TLXCORE_CRC32FOLD_H

#include <core/base/crc32/Crc32.h>

#include <immintrin.h>

/**
 * Folding with carry-less multiplication, for a source that is compiled for the instructions of its routine. Everything
 * is in an anonymous namespace, and no inline function of a library is called: the linker must not take one that was
 * compiled here for the rest of the program.
 *
 * A routine is folded() of a class Wide:
 *
 * - Type, a register of Wide::BYTES bytes, with load(), constants() and fold() on all its 128-bit parts;
 * - withRegister(), which adds the CRC's register to the first 32 bits;
 * - last(), which folds those parts into one.
 *
 * A polynomial is kept as its bytes lie in memory: bit 0 of the first byte is the highest power. Folding a 128-bit
 * part over D bits is part.low * (x^(D+32) mod P) + part.high * (x^(D-32) mod P), both constants reflected and moved up
 * by one bit, since the product of two reflected numbers is one bit too low.
 */

// Unrolled, the lanes of folded() are registers; in a loop they would be an array in memory.
#if defined(Q_CC_CLANG)
#define TLX_UNROLL _Pragma("unroll")
#elif defined(Q_CC_GNU)
#define TLX_UNROLL _Pragma("GCC unroll 8")
#else
#define TLX_UNROLL
#endif

// NOLINTBEGIN(misc-definitions-in-headers): each source that includes this has its own
namespace NCrc32 {
namespace {

/// The reflected remainder of x^n.
constexpr quint32 powerOfX(int n)
{
    quint32 power = 0x80000000U;
    for (int i = 0; i < n; ++i) {
        power = (power >> 1) ^ ((power & 1U) ? POLYNOMIAL : 0U);
    }
    return power;
}

struct SFold
{
    quint64 low;
    quint64 high;
};

/// The constants that fold over `bytes` bytes.
constexpr SFold foldOver(int bytes)
{
    return {static_cast<quint64>(powerOfX(bytes * 8 + 32)) << 1,
            static_cast<quint64>(powerOfX(bytes * 8 - 32)) << 1};
}

constexpr SFold OVER_16 = foldOver(16);
constexpr qint64 OVER_8 = static_cast<qint64>(powerOfX(64)) << 1;
constexpr quint64 DIVISOR = static_cast<quint64>(POLYNOMIAL) << 1 | 1U;
constexpr quint64 QUOTIENT = 0x1F7011641U; // of x^64 and the polynomial, reflected: 33 bits
static_assert(OVER_16.low == 0x1751997D0U && OVER_16.high == 0x0CCAA009EU && OVER_8 == 0x163CD6124U
                  && DIVISOR == 0x1DB710641U,
              "like the quotient, the constants that Gopal et al. print for this polynomial");

inline __m128i pairOf(quint64 low, quint64 high)
{
    return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

inline __m128i load16(const uchar* data)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(data));
}

inline __m128i fold16(__m128i part, __m128i constants, __m128i next)
{
    return _mm_xor_si128(next, _mm_xor_si128(_mm_clmulepi64_si128(part, constants, 0x00),
                                             _mm_clmulepi64_si128(part, constants, 0x11)));
}

/// The register of 16 bytes, by Barrett's reduction.
inline quint32 reduced(__m128i part)
{
    const __m128i lowWords = _mm_setr_epi32(-1, 0, -1, 0);
    const __m128i division = pairOf(DIVISOR, QUOTIENT);
    part = _mm_xor_si128(_mm_srli_si128(part, 8),
                         _mm_clmulepi64_si128(part, pairOf(OVER_16.low, OVER_16.high), 0x10));
    part = _mm_xor_si128(_mm_srli_si128(part, 4), _mm_clmulepi64_si128(_mm_and_si128(part, lowWords),
                                                                       _mm_cvtsi64_si128(OVER_8), 0x00));
    __m128i multiple = _mm_clmulepi64_si128(_mm_and_si128(part, lowWords), division, 0x10);
    multiple = _mm_clmulepi64_si128(_mm_and_si128(multiple, lowWords), division, 0x00);
    return static_cast<quint32>(_mm_extract_epi32(_mm_xor_si128(part, multiple), 1));
}

/// Where the bytes of a register move when it is shifted: 16 bytes from offset n shift by n - 16.
alignas(16) constexpr uchar SHIFTS[] = {
    0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80,
    0,    1,    2,    3,    4,    5,    6,    7,    8,    9,    10,   11,   12,   13,   14,   15,
    0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80};

/// Takes in the last 1 to 15 bytes; 16 bytes precede them in memory.
inline __m128i foldTail(__m128i part, const uchar* data, std::size_t length, __m128i constants)
{
    const __m128i front = _mm_shuffle_epi8(part, load16(SHIFTS + length));
    const __m128i back = _mm_shuffle_epi8(part, load16(SHIFTS + 16 + length));
    const __m128i isTail = load16(SHIFTS + 16 + length); // its high bits: what `back` leaves free
    return fold16(front, constants, _mm_blendv_epi8(back, load16(data + length - 16), isTail));
}

/// Ends a computation: takes in what is left, of which 16 bytes and more have been taken in before.
inline quint32 finished(__m128i part, const uchar* data, std::size_t length)
{
    const __m128i constants = pairOf(OVER_16.low, OVER_16.high);
    for (; length >= 16; data += 16, length -= 16) {
        part = fold16(part, constants, load16(data));
    }
    if (length > 0) {
        part = foldTail(part, data, length, constants);
    }
    return reduced(part);
}

/// Folds `LANES` registers at a time; at least that many bytes are there.
template <typename Wide, int LANES>
quint32 folded(quint32 crc, const uchar* data, std::size_t length)
{
    constexpr std::size_t BLOCK = static_cast<std::size_t>(LANES) * Wide::BYTES;
    typename Wide::Type lanes[LANES];
    TLX_UNROLL
    for (int i = 0; i < LANES; ++i) {
        lanes[i] = Wide::load(data + i * Wide::BYTES);
    }
    lanes[0] = Wide::withRegister(lanes[0], crc);
    const typename Wide::Type overBlock = Wide::constants(foldOver(LANES * Wide::BYTES));
    for (data += BLOCK, length -= BLOCK; length >= BLOCK; data += BLOCK, length -= BLOCK) {
        TLX_UNROLL
        for (int i = 0; i < LANES; ++i) {
            lanes[i] = Wide::fold(lanes[i], overBlock, Wide::load(data + i * Wide::BYTES));
        }
    }
    const typename Wide::Type overOne = Wide::constants(foldOver(Wide::BYTES));
    TLX_UNROLL
    for (int i = 1; i < LANES; ++i) {
        lanes[i] = Wide::fold(lanes[i - 1], overOne, lanes[i]);
    }
    typename Wide::Type last = lanes[LANES - 1];
    for (; length >= Wide::BYTES; data += Wide::BYTES, length -= Wide::BYTES) {
        last = Wide::fold(last, overOne, Wide::load(data));
    }
    return finished(Wide::last(last), data, length);
}

/// One 128-bit part.
struct SPart16
{
    using Type = __m128i;
    static constexpr int BYTES = 16;

    static Type load(const uchar* data) { return load16(data); }
    static Type constants(SFold fold) { return pairOf(fold.low, fold.high); }
    static Type fold(Type part, Type by, Type next) { return fold16(part, by, next); }
    static Type withRegister(Type first, quint32 crc)
    {
        return _mm_xor_si128(first, _mm_cvtsi32_si128(static_cast<int>(crc)));
    }
    static __m128i last(Type part) { return part; }
};

/// Lengths that do not fill the wide registers.
inline quint32 updateShort(quint32 crc, const uchar* data, std::size_t length)
{
    if (length >= 64) {
        return folded<SPart16, 4>(crc, data, length);
    }
    return length >= 16 ? folded<SPart16, 1>(crc, data, length) : updatePortable(crc, data, length);
}

} // namespace
} // namespace NCrc32
// NOLINTEND(misc-definitions-in-headers)

#endif // TLXCORE_CRC32FOLD_H
