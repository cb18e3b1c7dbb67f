#ifndef TLX_TYPES_H
#define TLX_TYPES_H

#include <core/types/NTypes.h>

#include <QString>
#include <QStringList>

/// The value types and units as a command line names them.
namespace NLookup {

/// A type by its name, in any case, or its number; false when the catalogue has none.
bool findType(const QString& word, NTypes::ETypes& type);

/// The names of all types, in the catalogue's order.
QStringList typeNames();

/// The names of all units, in the order of their codes.
QStringList unitNames();

/// "no such type: …", with a suggestion or all types.
QString noSuchType(const QString& word);

/// "no such unit: …", with a suggestion or where all units are.
QString noSuchUnit(const QString& word);

} // namespace NLookup

#endif // TLX_TYPES_H
