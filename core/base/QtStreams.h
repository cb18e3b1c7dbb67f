#ifndef TLXCORE_QTSTREAMS_H
#define TLXCORE_QTSTREAMS_H

#include <QDataStream>
#include <QMetaType>

/// What Qt 5 and Qt 6 do in different ways with types and streams.
namespace NQtCompat {

/// Registers a type with its stream operators, which Qt 6 finds by itself; returns its number.
template <typename T>
int registerWithStream()
{
    const int number = qMetaTypeId<T>();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    qRegisterMetaTypeStreamOperators<T>(QMetaType::typeName(number));
#endif
    return number;
}

} // namespace NQtCompat

#endif // TLXCORE_QTSTREAMS_H
