#ifndef TLXCORE_CRC32_H
#define TLXCORE_CRC32_H

#include <QtGlobal>

#include <array>
#include <cstddef>

/**
 * The CRC-32 of CMath::crc32 by four routines, from tables to carry-less multiplication. All take and return the raw
 * register: callers invert it before the first byte and after the last.
 *
 * A message is a polynomial over GF(2), its first bit the highest power, and its CRC is the remainder of that polynomial
 * divided by P, the polynomial of degree 32. The register of a byte-wise CRC is the remainder of what was read so far, and
 * each step waits for the one before. Two ideas break that chain:
 *
 * - Braiding (updatePortable(), every machine). The message is taken as rows of five words, and each column has a
 *   register of its own: a word and its register are replaced by their remainder one whole row further on, looked up
 *   byte by byte in tables for that distance. The five registers do not wait for each other, and the last row, read
 *   word by word, brings them together.
 *   M. E. Kadatch, B. Jenkins: "Everything we know about CRC but afraid to forget", 2010.
 * - Folding (x86-64, Crc32Fold.h). 128 bits A with D bits after them are worth A * x^D. Modulo P, x^(D + 64) and x^D are
 *   constants of 32 bits, so that two carry-less multiplications, one a half of A, make A short enough to be added to
 *   the 128 bits that follow D bits later. Several registers fold at once, at the end into one, whose remainder comes from
 *   Barrett's reduction. With VPCLMULQDQ one instruction does this for two or four parts of 128 bits.
 *   V. Gopal et al.: "Fast CRC Computation for Generic Polynomials Using PCLMULQDQ Instruction", Intel, 2009.
 */
namespace NCrc32 {

using Function = quint32 (*)(quint32 crc, const uchar* data, std::size_t length);

/// One routine; `function` is null where this build or this processor does not have it.
struct SRoutine
{
    const char* name;
    Function function;
};

/// The reflected polynomial 0x04C11DB7.
constexpr quint32 POLYNOMIAL = 0xEDB88320U;

/// Tables, 40 bytes a step.
quint32 updatePortable(quint32 crc, const uchar* data, std::size_t length);

// Folding in parts of 128 bits, two such parts (AVX2) and four (AVX-512). Null where the compiler has no such
// instructions. They are constants and not functions: code of their sources runs on a processor that has the
// instructions, and there alone.
extern const Function CLMUL;
extern const Function VPCLMUL256;
extern const Function VPCLMUL512;

/// Every routine, the slowest first.
std::array<SRoutine, 4> routines();

/// Takes the fastest routine of this processor.
quint32 update(quint32 crc, const uchar* data, std::size_t length);

} // namespace NCrc32

#endif // TLXCORE_CRC32_H
