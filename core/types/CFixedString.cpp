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
    constexpr int LANES = 4; // four units a word, four words a round: every N is a multiple of both
    quint64 difference[LANES] = {};
    for (int i = 0; i < units; i += 4 * LANES) {
        quint64 a[LANES];
        quint64 b[LANES];
        std::memcpy(a, left + i, sizeof(a));
        std::memcpy(b, right + i, sizeof(b));
        for (int lane = 0; lane < LANES; ++lane) {
            difference[lane] |= a[lane] ^ b[lane];
        }
    }
    return (difference[0] | difference[1] | difference[2] | difference[3]) == 0;
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
