#include <core/base/crc32/Crc32.h>

#if defined(TLX_CRC32_INTRINSICS)

#include <core/base/crc32/Crc32Fold.h>

namespace NCrc32 {

namespace {

quint32 update16(quint32 crc, const uchar* data, std::size_t length)
{
    return length >= 256 ? folded<SPart16, 8>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

const Function CLMUL = update16;

} // namespace NCrc32

#else

const NCrc32::Function NCrc32::CLMUL = nullptr;

#endif
