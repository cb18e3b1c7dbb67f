#include <core/types/CFixedString.h>

#include <core/base/CodeUnits.h>
#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>

#include <QHash>
#include <QtEndian>

#include <algorithm>

namespace {

// A handle is the table of virtual functions and one pointer.
static_assert(sizeof(CString32) == 2 * sizeof(void*), "one pointer to the shared block");
static_assert(sizeof(CString64) == sizeof(CString32) && sizeof(CString128) == sizeof(CString32),
              "alike but for N");

constexpr int MAX_UNITS = 128;

// Combines every difference and looks at the result once: the time tells nothing about where two texts differ.
template <int Units>
Q_ALWAYS_INLINE bool equalUnits(const unsigned short* left, const unsigned short* right)
{
    quint64 difference = 0;
    for (int i = 0; i < Units; i += 4) {
        quint64 a = 0;
        quint64 b = 0;
        std::memcpy(&a, left + i, sizeof(a));
        std::memcpy(&b, right + i, sizeof(b));
        difference |= a ^ b;
    }
    return difference == 0;
}

// The units with the bytes of each one the other way round; `to` may be `from`.
Q_ALWAYS_INLINE void swapUnits(const unsigned short* from, unsigned short* to, int units)
{
    for (int i = 0; i < units; ++i) {
        to[i] = qbswap(from[i]);
    }
}

#if defined(Q_PROCESSOR_X86_64) && defined(Q_CC_GNU)
#define TLX_TARGET_AVX2 __attribute__((target("avx2")))

bool hasAvx2()
{
    return __builtin_cpu_supports("avx2");
}
#else
#define TLX_TARGET_AVX2

constexpr bool hasAvx2()
{
    return false;
}
#endif

TLX_TARGET_AVX2 bool equal128Avx2(const unsigned short* left, const unsigned short* right)
{
    return equalUnits<MAX_UNITS>(left, right);
}

TLX_TARGET_AVX2 void swapUnitsAvx2(const unsigned short* from, unsigned short* to, int units)
{
    swapUnits(from, to, units);
}

#undef TLX_TARGET_AVX2

bool equal128(const unsigned short* left, const unsigned short* right)
{
    return hasAvx2() ? equal128Avx2(left, right) : equalUnits<MAX_UNITS>(left, right);
}

// From the machine's byte order to the stream's, or back.
void convert(const unsigned short* from, unsigned short* to, int units, const QDataStream& stream)
{
    const bool swaps = (stream.byteOrder() == QDataStream::BigEndian) == (Q_BYTE_ORDER == Q_LITTLE_ENDIAN);
    if (!swaps) {
        std::memmove(to, from, static_cast<std::size_t>(units) * sizeof(*to));
    } else if (hasAvx2()) {
        swapUnitsAvx2(from, to, units);
    } else {
        swapUnits(from, to, units);
    }
}

int byteCount(int units)
{
    return units * static_cast<int>(sizeof(unsigned short));
}

} // namespace

namespace NFixedString {

QString text(const unsigned short* data, int units)
{
    return textOfCodeUnits(data, units);
}

bool equal(const unsigned short* left, const unsigned short* right, int units)
{
    switch (units) {
    case 32:
        return equalUnits<32>(left, right);
    case 64:
        return equalUnits<64>(left, right);
    default:
        return equal128(left, right);
    }
}

void write(QDataStream& stream, const unsigned short* data, int units)
{
    unsigned short converted[MAX_UNITS];
    convert(data, converted, units, stream);
    stream.writeRawData(reinterpret_cast<const char*>(converted),
                        byteCount(units)); // sets the status by itself
}

void read(QDataStream& stream, unsigned short* data, int units)
{
    const int count = stream.readRawData(reinterpret_cast<char*>(data), byteCount(units));
    if (Q_UNLIKELY(count != byteCount(units))) {
        std::fill(data + std::max(count, 0) / byteCount(1), data + units, static_cast<unsigned short>(0));
    }
    convert(data, data, units, stream);
}

uint hash(const unsigned short* data, int units, uint seed)
{
    return qHashBits(data, static_cast<std::size_t>(byteCount(units)), seed);
}

void show(QDebug& debug, const char* name, const unsigned short* data, int units)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << name << '(' << text(data, units) << ')';
}

} // namespace NFixedString
