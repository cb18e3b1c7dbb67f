#include <core/base/crc32/Crc32.h>

#include <core/base/crc32/Crc32Processor.h>

#include <QtEndian>

namespace NCrc32 {

namespace {

constexpr int WORD = 8;    // bytes
constexpr int COLUMNS = 5; // words of a row

using Slice = std::array<quint32, 256>;
using Table = std::array<Slice, WORD>;

constexpr Slice makeSlice()
{
    Slice slice{};
    for (quint32 byte = 0; byte < 256; ++byte) {
        quint32 crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) ? POLYNOMIAL : 0U);
        }
        slice[byte] = crc;
    }
    return slice;
}

constexpr Slice BYTE_SLICE = makeSlice();

// Row k holds the registers that a byte leaves behind when k + `more` zero bytes follow it.
constexpr Table makeTable(int more)
{
    Table table{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        quint32 crc = BYTE_SLICE[byte];
        for (int zeros = 0; zeros < WORD + more; ++zeros) {
            if (zeros >= more) {
                table[static_cast<std::size_t>(zeros - more)][byte] = crc;
            }
            crc = (crc >> 8) ^ BYTE_SLICE[crc & 0xFFU];
        }
    }
    return table;
}

constexpr Table WORD_TABLE = makeTable(0);
constexpr Table ROW_TABLE = makeTable((COLUMNS - 1) * WORD);

// The remainder of a little-endian word at the table's distance.
inline quint32 remainder(const Table& table, quint64 word)
{
    const auto low = static_cast<quint32>(word);
    const auto high = static_cast<quint32>(word >> 32);
    return table[7][low & 0xFFU] ^ table[6][(low >> 8) & 0xFFU] ^ table[5][(low >> 16) & 0xFFU]
           ^ table[4][low >> 24] ^ table[3][high & 0xFFU] ^ table[2][(high >> 8) & 0xFFU]
           ^ table[1][(high >> 16) & 0xFFU] ^ table[0][high >> 24];
}

inline quint32 nextWord(quint32 crc, const uchar* data)
{
    return remainder(WORD_TABLE, qFromLittleEndian<quint64>(data) ^ crc);
}

} // namespace

quint32 updatePortable(quint32 crc, const uchar* data, std::size_t length)
{
    constexpr std::size_t ROW = COLUMNS * WORD;
    if (length >= 2 * ROW) {
        quint32 columns[COLUMNS] = {crc};
        for (; length >= 2 * ROW; data += ROW, length -= ROW) {
            for (int i = 0; i < COLUMNS; ++i) {
                columns[i] = remainder(ROW_TABLE, qFromLittleEndian<quint64>(data + i * WORD) ^ columns[i]);
            }
        }
        crc = 0;
        for (int i = 0; i < COLUMNS; ++i, data += WORD, length -= WORD) {
            crc = nextWord(crc ^ columns[i], data);
        }
    }
    for (; length >= WORD; data += WORD, length -= WORD) {
        crc = nextWord(crc, data);
    }
    for (; length > 0; ++data, --length) {
        crc = (crc >> 8) ^ WORD_TABLE[0][(crc ^ *data) & 0xFFU];
    }
    return crc;
}

std::array<SRoutine, 4> routines()
{
    const SProcessor has = processor();
    return {{{"portable", updatePortable},
             {"pclmulqdq", has.clmul ? CLMUL : nullptr},
             {"vpclmulqdq-avx2", has.vpclmul256 ? VPCLMUL256 : nullptr},
             {"vpclmulqdq-avx512", has.vpclmul512 ? VPCLMUL512 : nullptr}}};
}

quint32 update(quint32 crc, const uchar* data, std::size_t length)
{
    static const Function fastest = [] {
        Function best = updatePortable;
        for (const SRoutine& routine : routines()) {
            best = routine.function ? routine.function : best;
        }
        return best;
    }();
    return fastest(crc, data, length);
}

} // namespace NCrc32
