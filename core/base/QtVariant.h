#ifndef TLXCORE_QTVARIANT_H
#define TLXCORE_QTVARIANT_H

#include <QMetaType>
#include <QString>
#include <QVariant>

class QDataStream;

/**
 * QVariant as Qt 5.15 has it. With Qt 5 each function asks QVariant; with Qt 6, whose QVariant converts other types, calls
 * other values null and takes other texts for numbers, Qt 5's rules are applied (Qt5Conversion.h).
 */
namespace NQtVariant {

/// Whether the type of the value converts to the type.
bool canConvert(const QVariant& value, int type);

/// Whether the value is null: of texts, bytes, characters and dates the value itself decides.
bool isNull(const QVariant& value);

/// A value of a type from its memory; the default of the type without.
QVariant make(int type, const void* memory);

/// Converts in place; false where the value does not convert or is null, and then it is the type's default.
bool convert(QVariant& value, int type);

/// The readers of QVariant.
int toInt(const QVariant& value, bool* ok);
uint toUInt(const QVariant& value, bool* ok);
qlonglong toLongLong(const QVariant& value, bool* ok);
qulonglong toULongLong(const QVariant& value, bool* ok);
double toDouble(const QVariant& value, bool* ok);
QString toString(const QVariant& value);

/// Reads and writes a value of a type in a stream, without a head. False for a type that has no operators.
bool load(QDataStream& stream, int type, void* memory);
bool save(QDataStream& stream, int type, const void* memory);

/// What a type is called; null for a number that is no type's.
const char* typeName(int type);

/// QMetaType::User of Qt 5, from which on a type has no number of its own in a stream.
constexpr quint32 USER_TYPE = 1024;

} // namespace NQtVariant

#endif // TLXCORE_QTVARIANT_H
