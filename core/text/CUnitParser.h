#ifndef TLXCORE_CUNITPARSER_H
#define TLXCORE_CUNITPARSER_H

#include <core/text/NUnits.h>
#include <core/tlxCoreExport.h>
#include <core/types/NTypes.h>

#include <QHash>
#include <QMap>
#include <QString>

/**
 * @brief The catalogue of units: name, value type and size in bytes of each of the 126 units of device objects.
 *
 * A unit is given by enumerator, by number or by name ("UNIT_U16", case-sensitive). `ok`, if not null, receives whether
 * the unit is known, with two exceptions that callers rely on: type() of a text that does not begin with "UNIT" leaves
 * it unchanged, and size() of a text sets it to true for any text.
 *
 * The functions and the maps can be used by static objects of a program.
 *
 * @code
 * CUnitParser::type(QStringLiteral("UNIT_DATE_TIME"));    // NTypes::TYPE_DATETIME
 * CUnitParser::size(QStringLiteral("UNIT_DATE_TIME"));    // 8
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
 */
class TLXCORE_EXPORT CUnitParser
{
public:
    /// Maps every unit to its name.
    static const QMap<NUnits::EObjectUnit, QString> mcUNIT_TO_STR_MAP;

    /// Maps every name to its unit.
    static const QHash<QString, NUnits::EObjectUnit> mcSTR_TO_UNIT_MAP;

    /// Maps the names of the value types, such as "U8", to the types, without "UNKNOWN" and "F80".
    static const QMap<QString, NTypes::ETypes> mcTYPE_MAP;

    /// Returns the unit's name; empty for an unknown unit.
    static QString unitToStr(NUnits::EObjectUnit unit, bool* ok = nullptr);

    /// Returns the unit of that name; UNIT_UNKNOWN for an unknown name.
    static NUnits::EObjectUnit strToUnit(const QString& text, bool* ok = nullptr);

    /// Returns true if the text begins with "UNIT".
    static bool checkUnitStr(const QString& text) { return text.startsWith(QLatin1String("UNIT")); }

    /// @name Value type
    /// @{

    /// Returns the type of the unit's values; TYPE_UNKNOWN for an unknown unit, and for UNIT_UNKNOWN and UNIT_F80,
    /// which are known. For a name that does not begin with "UNIT", `ok` is unchanged.
    static NTypes::ETypes type(NUnits::EObjectUnit unit, bool* ok = nullptr) { return type(uint(unit), ok); }
    static NTypes::ETypes type(unsigned int unit, bool* ok = nullptr);
    static NTypes::ETypes type(const QString& text, bool* ok = nullptr);
    /// @}

    /// @name Size
    /// @{

    /// Returns the size of the unit's values on the device in bytes; 0 for an unknown unit. An unknown name is
    /// UNIT_UNKNOWN, so that `ok` is true.
    static int size(NUnits::EObjectUnit unit, bool* ok = nullptr) { return size(uint(unit), ok); }
    static int size(unsigned int unit, bool* ok = nullptr);
    static int size(const QString& text, bool* ok = nullptr) { return size(strToUnit(text), ok); }
    /// @}

    static QMap<NUnits::EObjectUnit, QString> initUnitToStr();  ///< Returns the map from units to names.
    static QHash<QString, NUnits::EObjectUnit> initStrToUnit(); ///< Returns the map from names to units.
    static QMap<QString, NTypes::ETypes> initTypeMap();         ///< Returns the map from type names to types.
};

#endif // TLXCORE_CUNITPARSER_H
