#ifndef TLXCORE_PACKEDDATETIME_H
#define TLXCORE_PACKEDDATETIME_H

#include <core/types/NTypes.h>

// The packed 64-bit form of a date-time, least significant byte first: hundredths, second, minute, hour, day, month,
// year (two bytes). It is made byte by byte: a shifted negative field would spill over its neighbours.
namespace NPackedDateTime {

/// One byte of a packed number; 0 is the least significant.
constexpr qint8 byteOf(quint64 packed, int index)
{
    return static_cast<qint8>(static_cast<quint8>(packed >> (8 * index)));
}

constexpr qint64 pack(const NTypes::tsDateTime& record)
{
    const quint16 year = static_cast<quint16>(record.date.year);
    const quint8 bytes[] = {static_cast<quint8>(record.time.hundredths),
                            static_cast<quint8>(record.time.second),
                            static_cast<quint8>(record.time.minute),
                            static_cast<quint8>(record.time.hour),
                            static_cast<quint8>(record.date.day),
                            static_cast<quint8>(record.date.month),
                            static_cast<quint8>(year),
                            static_cast<quint8>(year >> 8)};
    quint64 packed = 0;
    for (int i = 0; i < 8; ++i) {
        packed |= static_cast<quint64>(bytes[i]) << (8 * i);
    }
    return static_cast<qint64>(packed);
}

constexpr NTypes::tsDateTime unpack(qint64 number)
{
    const quint64 packed = static_cast<quint64>(number);
    return {{byteOf(packed, 0), byteOf(packed, 1), byteOf(packed, 2), byteOf(packed, 3)},
            {byteOf(packed, 4), byteOf(packed, 5), static_cast<qint16>(packed >> 48)}};
}

} // namespace NPackedDateTime

#endif // TLXCORE_PACKEDDATETIME_H
