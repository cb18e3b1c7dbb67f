#include <core/text/Crc32.h>

#include <QtEndian>

namespace NCrc32 {

namespace {

constexpr int SLICES = 16;

using Table = std::array<std::array<quint32, 256>, SLICES>;

// Row k holds the registers that a byte leaves behind when k zero bytes follow it.
constexpr Table makeTable()
{
    Table table{};
    for (quint32 byte = 0; byte < 256; ++byte) {
        quint32 crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) ? POLYNOMIAL : 0U);
        }
        table[0][byte] = crc;
    }
    for (std::size_t slice = 1; slice < SLICES; ++slice) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const quint32 before = table[slice - 1][byte];
            table[slice][byte] = (before >> 8) ^ table[0][before & 0xFFU];
        }
    }
    return table;
}

constexpr Table TABLE = makeTable();

// The four bytes of a little-endian word, of which the last is followed by `slice` further bytes of the step.
inline quint32 ofWord(quint32 word, std::size_t slice)
{
    return TABLE[slice + 3][word & 0xFFU] ^ TABLE[slice + 2][(word >> 8) & 0xFFU]
           ^ TABLE[slice + 1][(word >> 16) & 0xFFU] ^ TABLE[slice][word >> 24];
}

} // namespace

quint32 updatePortable(quint32 crc, const uchar* data, std::size_t length)
{
    for (; length >= SLICES; data += SLICES, length -= SLICES) {
        crc = ofWord(qFromLittleEndian<quint32>(data) ^ crc, 12)
              ^ ofWord(qFromLittleEndian<quint32>(data + 4), 8)
              ^ ofWord(qFromLittleEndian<quint32>(data + 8), 4)
              ^ ofWord(qFromLittleEndian<quint32>(data + 12), 0);
    }
    for (; length > 0; ++data, --length) {
        crc = (crc >> 8) ^ TABLE[0][(crc ^ *data) & 0xFFU];
    }
    return crc;
}

std::array<SPath, 4> paths()
{
    return {{{"portable", updatePortable},
             {"pclmulqdq", pathClmul()},
             {"vpclmulqdq-avx2", pathVpclmul256()},
             {"vpclmulqdq-avx512", pathVpclmul512()}}};
}

quint32 update(quint32 crc, const uchar* data, std::size_t length)
{
    static const Function fastest = [] {
        Function best = updatePortable;
        for (const SPath& path : paths()) {
            best = path.function ? path.function : best;
        }
        return best;
    }();
    return fastest(crc, data, length);
}

} // namespace NCrc32
