#ifndef TLXCORE_QT5CONVERSION_H
#define TLXCORE_QT5CONVERSION_H

#include <QVariant>

/**
 * The conversions of Qt 5.15's QVariant among numbers, booleans, characters, texts and bytes. With Qt 5 a test compares
 * them with QVariant; with Qt 6 the library converts by them.
 */
namespace NQt5Conversion {

/// QVariant::canConvert().
bool canConvert(const QVariant& value, int type);

/// QVariant::isNull().
bool isNull(const QVariant& value);

/// What QVariant::convert() and the readers of QVariant do once canConvert() and isNull() are asked: writes the value as
/// a number, character, text or bytes of the type. False, and nothing is written, where there is no way.
bool convert(const QVariant& value, int type, void* result);

} // namespace NQt5Conversion

#endif // TLXCORE_QT5CONVERSION_H
