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

void write(QDataStream& stream, const unsigned short* data, int units)
{
    quint16 ordered[MAX_UNITS];
    if (stream.byteOrder() == QDataStream::BigEndian) {
        qToBigEndian<quint16>(data, units, ordered);
    } else {
        qToLittleEndian<quint16>(data, units, ordered);
    }
    stream.writeRawData(reinterpret_cast<const char*>(ordered), byteCount(units));
}

void read(QDataStream& stream, unsigned short* data, int units)
{
    quint16 ordered[MAX_UNITS];
    const int count = stream.readRawData(reinterpret_cast<char*>(ordered), byteCount(units));
    std::fill(ordered + std::max(count, 0) / byteCount(1), ordered + units, quint16(0));
    if (stream.byteOrder() == QDataStream::BigEndian) {
        qFromBigEndian<quint16>(ordered, units, data);
    } else {
        qFromLittleEndian<quint16>(ordered, units, data);
    }
}

NQtCompat::THash hash(const unsigned short* data, int units, NQtCompat::THash seed)
{
    return qHashBits(data, static_cast<std::size_t>(byteCount(units)), seed);
}

void show(QDebug& debug, const char* name, const unsigned short* data, int units)
{
    const QDebugStateSaver saver(debug);
    const QString shown = text(data, units);
    debug.nospace() << name << '(' << shown;
    int end = units;
    while (end > shown.size() && data[end - 1] == 0) {
        --end;
    }
    if (end > shown.size()) {
        debug << ", after the terminator "
              << QString(reinterpret_cast<const QChar*>(data) + shown.size() + 1, end - shown.size() - 1);
    }
    debug << ')';
}

} // namespace NFixedString
