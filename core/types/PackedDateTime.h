#ifndef TLXCORE_PACKEDDATETIME_H
#define TLXCORE_PACKEDDATETIME_H

#include <core/types/NTypes.h>

#include <QDateTime>

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
    const NTypes::tsTime& time = record.time;
    const NTypes::tsDate& date = record.date;
    const qint8 fields[] = {time.hundredths, time.second, time.minute, time.hour, date.day, date.month};
    quint64 packed = static_cast<quint16>(date.year);
    for (int i = 5; i >= 0; --i) {
        packed = packed << 8 | static_cast<quint8>(fields[i]);
    }
    return static_cast<qint64>(packed);
}

constexpr NTypes::tsDateTime unpack(qint64 number)
{
    const quint64 packed = static_cast<quint64>(number);
    return {{byteOf(packed, 0), byteOf(packed, 1), byteOf(packed, 2), byteOf(packed, 3)},
            {byteOf(packed, 4), byteOf(packed, 5), static_cast<qint16>(packed >> 48)}};
}

inline QDate dateOf(const NTypes::tsDate& date)
{
    return QDate(date.year, date.month, date.day);
}

inline QTime timeOf(const NTypes::tsTime& time)
{
    return QTime(time.hour, time.minute, time.second, time.hundredths * 10);
}

/// The fields of a date-time. A date that is missing is 0; of a missing time hour, minute and second are -1.
inline NTypes::tsDateTime recordOf(const QDateTime& dateTime)
{
    int year = 0;
    int month = 0;
    int day = 0;
    dateTime.date().getDate(&year, &month, &day);
    const QTime time = dateTime.time();
    return {{static_cast<qint8>(time.msec() / 10), static_cast<qint8>(time.second()),
             static_cast<qint8>(time.minute()), static_cast<qint8>(time.hour())},
            {static_cast<qint8>(day), static_cast<qint8>(month), static_cast<qint16>(year)}};
}

} // namespace NPackedDateTime

#endif // TLXCORE_PACKEDDATETIME_H
