#include <core/text/CUnitParser.h>

#include <core/base/StaticObjects.h>
#include <core/text/UnitTable.h>
#include <core/types/TypeTable.h>

namespace {

using NUnits::EObjectUnit;
using NUnitTable::SUnitInfo;
using NUnitTable::UNIT_COUNT;
using NUnitTable::UNIT_TABLE;

// The number of the unit of that name, or UNIT_COUNT.
quint32 findUnit(const QString& text)
{
    const auto found = CUnitParser::mcSTR_TO_UNIT_MAP.constFind(text);
    return found == CUnitParser::mcSTR_TO_UNIT_MAP.constEnd() ? UNIT_COUNT : quint32(found.value());
}

constexpr NTypes::ETypes typeOf(const SUnitInfo& info)
{
    if (info.unit == NUnits::UNIT_DATE_TIME) {
        return NTypes::TYPE_DATETIME; // stored like a 64-bit integer
    }
    switch (info.storage) {
    case NUnits::UNIT_STRING64:
        return NTypes::TYPE_STRING64;
    case NUnits::UNIT_CHARSTR128:
        return NTypes::TYPE_CHARSTR128;
    case NUnits::UNIT_UTF16CHAR:
        return NTypes::TYPE_UTF16CHAR;
    case NUnits::UNIT_CHAR:
        return NTypes::TYPE_CHAR;
    case NUnits::UNIT_F80:
        return NTypes::TYPE_UNKNOWN;
    default: // the other basic units bear the numbers of their types
        return info.storage <= NUnits::UNIT_CHARSTR256 ? static_cast<NTypes::ETypes>(info.storage)
                                                       : NTypes::TYPE_UNKNOWN;
    }
}

// Whether the number is one of a unit; says so in `ok`.
bool isUnit(quint32 unit, bool* ok)
{
    const bool found = unit < UNIT_COUNT;
    if (ok) {
        *ok = found;
    }
    return found;
}

} // namespace

const QMap<EObjectUnit, QString> CUnitParser::mcUNIT_TO_STR_MAP TLX_INIT_EARLY = CUnitParser::initUnitToStr();
const QHash<QString, EObjectUnit> CUnitParser::mcSTR_TO_UNIT_MAP TLX_INIT_EARLY =
    CUnitParser::initStrToUnit();
const QMap<QString, NTypes::ETypes> CUnitParser::mcTYPE_MAP TLX_INIT_EARLY = CUnitParser::initTypeMap();

QString CUnitParser::unitToStr(NUnits::EObjectUnit unit, bool* ok)
{
    return isUnit(unit, ok) ? mcUNIT_TO_STR_MAP.value(unit) : QString();
}

NUnits::EObjectUnit CUnitParser::strToUnit(const QString& text, bool* ok)
{
    const quint32 unit = findUnit(text);
    return isUnit(unit, ok) ? static_cast<EObjectUnit>(unit) : NUnits::UNIT_UNKNOWN;
}

NTypes::ETypes CUnitParser::type(unsigned int unit, bool* ok)
{
    return isUnit(unit, ok) ? typeOf(UNIT_TABLE[unit]) : NTypes::TYPE_UNKNOWN;
}

NTypes::ETypes CUnitParser::type(const QString& text, bool* ok)
{
    return checkUnitStr(text) ? type(findUnit(text), ok) : NTypes::TYPE_UNKNOWN;
}

int CUnitParser::size(unsigned int unit, bool* ok)
{
    return isUnit(unit, ok) ? UNIT_TABLE[unit].size : 0;
}

QMap<NUnits::EObjectUnit, QString> CUnitParser::initUnitToStr()
{
    QMap<EObjectUnit, QString> map;
    for (const SUnitInfo& info : UNIT_TABLE) {
        map.insert(info.unit, QLatin1String(info.name));
    }
    return map;
}

QHash<QString, NUnits::EObjectUnit> CUnitParser::initStrToUnit()
{
    QHash<QString, EObjectUnit> hash;
    for (const SUnitInfo& info : UNIT_TABLE) {
        hash.insert(QLatin1String(info.name), info.unit);
    }
    return hash;
}

QMap<QString, NTypes::ETypes> CUnitParser::initTypeMap()
{
    QMap<QString, NTypes::ETypes> map;
    for (quint32 i = 0; i < NTypeTable::TYPE_COUNT; ++i) {
        const NTypeTable::STypeInfo& info = NTypeTable::TYPE_TABLE[i];
        if (info.kind != NTypeTable::EKind::None) {
            map.insert(QLatin1String(info.name), static_cast<NTypes::ETypes>(i));
        }
    }
    return map;
}
