#include <core/text/CUnitParser.h>

#include <core/base/StaticObjects.h>
#include <core/text/UnitTable.h>
#include <core/types/TypeTable.h>

#include <cstring>
#include <utility>

// Names are found in a hash table that the compiler fills: 512 slots, each the number of a unit, the next slot taken
// when one is occupied. Nothing is allocated, and an absent text is refused after a comparison or two.

namespace {

using NUnits::EObjectUnit;
using NUnits::UNIT_COUNT;
using NUnits::UNIT_TABLE;

constexpr int SHORTEST_NAME = 6;
constexpr int LONGEST_NAME = 31;
constexpr quint32 SLOT_COUNT = 512;

constexpr int lengthOf(const char* text)
{
    int length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return length;
}

using Name = NStatic::Text<LONGEST_NAME>;

struct SNames
{
    Name rows[UNIT_COUNT];
};

template <std::size_t... Index>
constexpr SNames makeNames(std::index_sequence<Index...>)
{
    return {{NStatic::text<LONGEST_NAME>(UNIT_TABLE[Index].name, lengthOf(UNIT_TABLE[Index].name))...}};
}

constexpr SNames NAMES = makeNames(std::make_index_sequence<UNIT_COUNT>());

// The weights were searched for: no name is further than one slot from its own.
constexpr quint32 slotOf(quint32 inside, quint32 middle, quint32 nearEnd, quint32 last, quint32 length)
{
    return (inside * 104 + middle * 65 + nearEnd * 354 + last * 195 + length * 63) % SLOT_COUNT;
}

template <typename Unit>
constexpr quint32 slotOf(const Unit* text, int length)
{
    return slotOf(text[5], text[length / 2], text[length - 4], text[length - 1],
                  static_cast<quint32>(length));
}

struct SSlots
{
    static constexpr quint8 EMPTY = 0xFF;
    static_assert(UNIT_COUNT < EMPTY, "a unit's number fits");

    constexpr SSlots()
    {
        for (quint8& unit : units) {
            unit = EMPTY;
        }
        for (quint32 i = 0; i < UNIT_COUNT; ++i) {
            quint32 slot = slotOf(NAMES.rows[i].units, NAMES.rows[i].header.size);
            int steps = 1;
            for (; units[slot] != EMPTY; slot = (slot + 1) % SLOT_COUNT) {
                ++steps;
            }
            units[slot] = static_cast<quint8>(i);
            longestWalk = steps > longestWalk ? steps : longestWalk;
        }
    }

    quint8 units[SLOT_COUNT] = {};
    int longestWalk = 0;
};

constexpr SSlots SLOTS;
static_assert(SLOTS.longestWalk <= 2, "the weights suit the names");

// The number of the unit of that name, or UNIT_COUNT.
quint32 findUnit(const QString& text)
{
    const int length = text.size();
    if (length < SHORTEST_NAME || length > LONGEST_NAME) {
        return UNIT_COUNT;
    }
    const auto* units = reinterpret_cast<const qunicodechar*>(text.constData());
    for (quint32 slot = slotOf(units, length); SLOTS.units[slot] != SSlots::EMPTY;
         slot = (slot + 1) % SLOT_COUNT) {
        const Name& name = NAMES.rows[SLOTS.units[slot]];
        if (name.header.size == length
            && std::memcmp(name.units, units, static_cast<std::size_t>(length) * sizeof(*units)) == 0) {
            return SLOTS.units[slot];
        }
    }
    return UNIT_COUNT;
}

constexpr NTypes::ETypes typeOf(const NUnits::SUnitInfo& info)
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

QString nameOf(quint32 unit)
{
    return QString(NStatic::data(NAMES.rows[unit]));
}

} // namespace

const QMap<EObjectUnit, QString> CUnitParser::mcUNIT_TO_STR_MAP TLX_INIT_EARLY = CUnitParser::initUnitToStr();
const QHash<QString, EObjectUnit> CUnitParser::mcSTR_TO_UNIT_MAP TLX_INIT_EARLY =
    CUnitParser::initStrToUnit();
const QMap<QString, NTypes::ETypes> CUnitParser::mcTYPE_MAP TLX_INIT_EARLY = CUnitParser::initTypeMap();

QString CUnitParser::unitToStr(NUnits::EObjectUnit unit, bool* ok)
{
    return isUnit(unit, ok) ? nameOf(unit) : QString();
}

NUnits::EObjectUnit CUnitParser::strToUnit(const QString& text, bool* ok)
{
    const quint32 unit = findUnit(text);
    return isUnit(unit, ok) ? static_cast<EObjectUnit>(unit) : NUnits::UNIT_UNKNOWN;
}

bool CUnitParser::checkUnitStr(const QString& text)
{
    return text.startsWith(QLatin1String("UNIT"));
}

NTypes::ETypes CUnitParser::type(NUnits::EObjectUnit unit, bool* ok)
{
    return type(static_cast<unsigned int>(unit), ok);
}

NTypes::ETypes CUnitParser::type(unsigned int unit, bool* ok)
{
    return isUnit(unit, ok) ? typeOf(UNIT_TABLE[unit]) : NTypes::TYPE_UNKNOWN;
}

NTypes::ETypes CUnitParser::type(const QString& text, bool* ok)
{
    return checkUnitStr(text) ? type(findUnit(text), ok) : NTypes::TYPE_UNKNOWN;
}

int CUnitParser::size(NUnits::EObjectUnit unit, bool* ok)
{
    return size(static_cast<unsigned int>(unit), ok);
}

int CUnitParser::size(unsigned int unit, bool* ok)
{
    return isUnit(unit, ok) ? UNIT_TABLE[unit].size : 0;
}

int CUnitParser::size(const QString& text, bool* ok)
{
    return size(strToUnit(text), ok);
}

QMap<NUnits::EObjectUnit, QString> CUnitParser::initUnitToStr()
{
    QMap<EObjectUnit, QString> map;
    for (const NUnits::SUnitInfo& info : UNIT_TABLE) {
        map.insert(info.unit, nameOf(info.unit));
    }
    return map;
}

QHash<QString, NUnits::EObjectUnit> CUnitParser::initStrToUnit()
{
    QHash<QString, EObjectUnit> hash;
    for (const NUnits::SUnitInfo& info : UNIT_TABLE) {
        hash.insert(nameOf(info.unit), info.unit);
    }
    return hash;
}

QMap<QString, NTypes::ETypes> CUnitParser::initTypeMap()
{
    QMap<QString, NTypes::ETypes> map;
    for (quint32 i = 0; i < NTypes::TYPE_COUNT; ++i) {
        const NTypes::STypeInfo& info = NTypes::TYPE_TABLE[i];
        if (info.kind != NTypes::EKind::None) {
            map.insert(QLatin1String(info.name), static_cast<NTypes::ETypes>(i));
        }
    }
    return map;
}
