#ifndef TLXCORE_VARIANTTYPENUMBERS_H
#define TLXCORE_VARIANTTYPENUMBERS_H

#include <core/base/QtVariant.h>

#include <QDataStream>
#include <QMetaType>

#include <initializer_list>

// The numbers that a QVariant's type has in streams of Qt 3, 4 and 5, and which types a variant takes from a stream.
namespace NVariantStream {

constexpr quint32 REFUSED = ~quint32(0);

using NQtVariant::USER_TYPE;

struct STypeNumbers
{
    quint8 old;
    quint8 current;
};

// Numbers that Qt 3 gave to what is read here.
constexpr STypeNumbers QT3_NUMBERS[] = {
    {0, QMetaType::UnknownType}, {3, QMetaType::QString},   {16, QMetaType::Int},
    {17, QMetaType::UInt},       {18, QMetaType::Bool},     {19, QMetaType::Double},
    {26, QMetaType::QDate},      {27, QMetaType::QTime},    {28, QMetaType::QDateTime},
    {29, QMetaType::QByteArray}, {33, QMetaType::LongLong}, {34, QMetaType::ULongLong}};

// Qt 4 kept void* to signed char, which follow QUuid today, from 128 on, and user types at 127.
constexpr quint32 QT4_USER = 127;
// Qt 6 numbers user types from here on, in the streams of its own versions.
constexpr quint32 QT6_USER = 65536;
constexpr quint32 QT4_FIRST_EXTENDED = 128;
constexpr quint32 QT4_LAST_EXTENDED = 137;
constexpr quint32 QT4_SHIFT = QT4_FIRST_EXTENDED - QMetaType::VoidStar;

constexpr quint32 fromQt3(quint32 number)
{
    for (const STypeNumbers& row : QT3_NUMBERS) {
        if (row.old == number) {
            return row.current;
        }
    }
    return REFUSED;
}

constexpr quint32 fromQt4(quint32 number)
{
    if (number == QT4_USER) {
        return USER_TYPE;
    }
    if (number >= QT4_FIRST_EXTENDED && number <= QT4_LAST_EXTENDED) {
        return number - QT4_SHIFT;
    }
    return number;
}

// The number that the type has today.
constexpr quint32 typeNumber(quint32 number, int version)
{
    if (version < QDataStream::Qt_4_0) {
        return fromQt3(number);
    }
    if (version < QDataStream::Qt_5_0) {
        return fromQt4(number);
    }
    return number == QT6_USER ? USER_TYPE : number;
}

// Which of the first 64 types of Qt are in the list, a bit each.
constexpr quint64 typeSet(std::initializer_list<int> types)
{
    quint64 set = 0;
    for (const int type : types) {
        set |= quint64(1) << type;
    }
    return set;
}

// Numbers, characters, texts, bytes and dates: what a variant's payload may be besides the library's own types.
constexpr quint64 PLAIN_TYPES =
    typeSet({QMetaType::UnknownType, QMetaType::Bool,       QMetaType::Int,    QMetaType::UInt,
             QMetaType::LongLong,    QMetaType::ULongLong,  QMetaType::Double, QMetaType::QChar,
             QMetaType::QString,     QMetaType::QByteArray, QMetaType::QDate,  QMetaType::QTime,
             QMetaType::QDateTime,   QMetaType::Long,       QMetaType::Short,  QMetaType::Char,
             QMetaType::ULong,       QMetaType::UShort,     QMetaType::UChar,  QMetaType::Float,
             QMetaType::SChar});

constexpr bool isIn(quint64 set, quint32 type)
{
    return type < 64 && (set >> type & 1) != 0;
}

} // namespace NVariantStream

#endif // TLXCORE_VARIANTTYPENUMBERS_H
