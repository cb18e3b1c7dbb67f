#ifndef TLXCORE_CRC32_H
#define TLXCORE_CRC32_H

#include <QtGlobal>

#include <array>
#include <cstddef>

/**
 * The ways to compute the CRC-32 of CMath::crc32, from tables to carry-less multiplication. All take and give the
 * raw register: the callers invert it before the first byte and after the last.
 */
namespace NCrc32 {

using Function = quint32 (*)(quint32 crc, const uchar* data, std::size_t length);

/// One way; `function` is null when this build or this processor cannot go it.
struct SPath
{
    const char* name;
    Function function;
};

/// The reflected polynomial 0x04C11DB7.
constexpr quint32 POLYNOMIAL = 0xEDB88320U;

/// Tables, 16 bytes a step. For every machine.
quint32 updatePortable(quint32 crc, const uchar* data, std::size_t length);

/// Carry-less multiplication of 128 bits, or null. x86-64 processors since about 2010.
Function pathClmul();

/// Carry-less multiplication of two times 128 bits (VPCLMULQDQ with AVX2), or null.
Function pathVpclmul256();

/// Carry-less multiplication of four times 128 bits (VPCLMULQDQ with AVX-512), or null.
Function pathVpclmul512();

/// Every way, the slowest first.
std::array<SPath, 4> paths();

/// The fastest way that this processor can go.
quint32 update(quint32 crc, const uchar* data, std::size_t length);

} // namespace NCrc32

#endif // TLXCORE_CRC32_H
