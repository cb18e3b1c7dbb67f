#include <core/text/Crc32Processor.h>

#if defined(TLX_CRC32_X86)

#define TLX_CRC32_TARGET TLX_TARGET("pclmul,ssse3,sse4.1")
#include <core/text/Crc32Fold.h>

namespace NCrc32 {

namespace {

TLX_CRC32_TARGET quint32 update16(quint32 crc, const uchar* data, std::size_t length)
{
    return length >= 256 ? folded<SWide16, 8>(crc, data, length) : updateShort(crc, data, length);
}

} // namespace

Function pathClmul()
{
    return processor().clmul ? update16 : nullptr;
}

} // namespace NCrc32

#else

#include <core/text/Crc32.h>

NCrc32::Function NCrc32::pathClmul()
{
    return nullptr;
}

#endif
