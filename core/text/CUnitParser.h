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
 * Units are asked for by enumerator, by number or by name ("UNIT_U16", case-sensitive). `ok`, where given, says
 * whether there is such a unit, with two exceptions that callers rely on: type() of a text that does not begin with
 * "UNIT" leaves it as it was, and size() of a text sets it to true for any text.
 *
 * The functions and the maps can be used by static objects of a program.
 *
 * @code
 * CVariant value(CUnitParser::type(QStringLiteral("UNIT_DATE_TIME"))); // a date-time of 8 bytes
 * @endcode
 */
class TLXCORE_EXPORT CUnitParser
{
public:
    /// Every unit's name.
    static const QMap<NUnits::EObjectUnit, QString> mcUNIT_TO_STR_MAP;

    /// Every name's unit.
    static const QHash<QString, NUnits::EObjectUnit> mcSTR_TO_UNIT_MAP;

    /// Every value type by its name, e.g. "U8"; not "UNKNOWN" and "F80", of which no value exists.
    static const QMap<QString, NTypes::ETypes> mcTYPE_MAP;

    /// The unit's name; empty for a number that is no unit.
    static QString unitToStr(NUnits::EObjectUnit unit, bool* ok = nullptr);

    /// The unit of that name; UNIT_UNKNOWN when there is none.
    static NUnits::EObjectUnit strToUnit(const QString& text, bool* ok = nullptr);

    /// Whether the text begins with "UNIT".
    static bool checkUnitStr(const QString& text);

    /**
     * @brief The type of the unit's values; TYPE_UNKNOWN for a number that is no unit.
     *
     * UNIT_UNKNOWN and UNIT_F80 are units whose type is TYPE_UNKNOWN: `ok` is true.
     */
    static NTypes::ETypes type(NUnits::EObjectUnit unit, bool* ok = nullptr);

    /// As type(NUnits::EObjectUnit, bool*), for a number.
    static NTypes::ETypes type(unsigned int unit, bool* ok = nullptr);

    /// As type(NUnits::EObjectUnit, bool*), for a name. Without "UNIT" in front, `ok` stays as it was.
    static NTypes::ETypes type(const QString& text, bool* ok = nullptr);

    /// The size of the unit's values on the device in bytes; 0 for a number that is no unit.
    static int size(NUnits::EObjectUnit unit, bool* ok = nullptr);

    /// As size(NUnits::EObjectUnit, bool*), for a number.
    static int size(unsigned int unit, bool* ok = nullptr);

    /// The size for a name. An unknown name is UNIT_UNKNOWN, whose size is 0: `ok` is true all the same.
    static int size(const QString& text, bool* ok = nullptr);

    /// Builds the map from units to names.
    static QMap<NUnits::EObjectUnit, QString> initUnitToStr();

    /// Builds the map from names to units.
    static QHash<QString, NUnits::EObjectUnit> initStrToUnit();

    /// Builds the map from names of value types to types.
    static QMap<QString, NTypes::ETypes> initTypeMap();
};

#endif // TLXCORE_CUNITPARSER_H
