#ifndef TLXCORE_VARIANTTYPENUMBERS_H
#define TLXCORE_VARIANTTYPENUMBERS_H

#include <QDataStream>
#include <QMetaType>

#include <algorithm>

// The numbers that a QVariant's type has in streams of Qt 3, 4 and 5, and which types a variant takes out of a stream.
namespace NVariantStream {

constexpr quint32 REFUSED = ~quint32(0);

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
        return QMetaType::User;
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
    return version < QDataStream::Qt_5_0 ? fromQt4(number) : number;
}

// The number that the type has in a stream, from Qt 4 on.
constexpr quint32 numberInStream(quint32 type, int version)
{
    if (version >= QDataStream::Qt_5_0) {
        return std::min<quint32>(type, QMetaType::User);
    }
    if (type >= QMetaType::User) {
        return QT4_USER;
    }
    return type >= QMetaType::VoidStar ? type + QT4_SHIFT : type;
}

// Numbers, characters, texts, bytes and dates: what a variant's payload may be besides the library's own types.
constexpr bool isPlain(quint32 type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::SChar:
        return true;
    default:
        return false;
    }
}

} // namespace NVariantStream

#endif // TLXCORE_VARIANTTYPENUMBERS_H
