#include <core/types/CFixedString.h>

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/Utf16Units.h>

#include <QHash>
#include <QtEndian>

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

#if defined(Q_PROCESSOR_X86_64) && defined(Q_CC_GNU)
__attribute__((target("avx2"))) bool equal128Wide(const unsigned short* left, const unsigned short* right)
{
    return equalUnits<MAX_UNITS>(left, right);
}

bool equal128(const unsigned short* left, const unsigned short* right)
{
    return __builtin_cpu_supports("avx2") ? equal128Wide(left, right) : equalUnits<MAX_UNITS>(left, right);
}
#else
bool equal128(const unsigned short* left, const unsigned short* right)
{
    return equalUnits<MAX_UNITS>(left, right);
}
#endif

int byteCount(int units)
{
    return units * static_cast<int>(sizeof(unsigned short));
}

} // namespace

namespace NFixedString {

QString text(const unsigned short* data, int units)
{
    return textOfUtf16Units(data, units);
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
    if (!stream.device()) {
        return;
    }
    unsigned short swapped[MAX_UNITS];
    if (stream.byteOrder() == QDataStream::BigEndian) {
        qToBigEndian<quint16>(data, units, swapped);
    } else {
        qToLittleEndian<quint16>(data, units, swapped);
    }
    if (stream.writeRawData(reinterpret_cast<const char*>(swapped), byteCount(units)) != byteCount(units)) {
        stream.setStatus(QDataStream::WriteFailed);
    }
}

void read(QDataStream& stream, unsigned short* data, int units)
{
    unsigned short raw[MAX_UNITS];
    const int count = stream.readRawData(reinterpret_cast<char*>(raw), byteCount(units));
    const int complete = std::max(count, 0) / byteCount(1);
    if (stream.byteOrder() == QDataStream::BigEndian) {
        qFromBigEndian<quint16>(raw, complete, data);
    } else {
        qFromLittleEndian<quint16>(raw, complete, data);
    }
    std::fill(data + complete, data + units, static_cast<unsigned short>(0));
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
