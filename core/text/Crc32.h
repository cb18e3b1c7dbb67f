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

/// Every way, the slowest first.
std::array<SPath, 1> paths();

/// The fastest way that this processor can go.
quint32 update(quint32 crc, const uchar* data, std::size_t length);

} // namespace NCrc32

#endif // TLXCORE_CRC32_H
