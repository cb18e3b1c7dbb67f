// QDebug shows the enumerations that travel by their enumerators, and other numbers as such.
#include <core/files/CFTPath.h>
#include <core/files/CTarFileInfo.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/text/CUnitParser.h>
#include <core/text/NUnits.h>
#include <core/types/NTypes.h>

#include <QDebug>

namespace {

// "CName::NAME", or "CName::EName(7)" for a number without a name.
QDebug show(QDebug debug, const char* scope, const QString& enumerator, const char* type, qint64 number)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << scope << "::";
    if (enumerator.isEmpty()) {
        debug << type << '(' << number << ')';
    } else {
        debug << enumerator;
    }
    return debug;
}

template <std::size_t N>
QString nameAt(const char* const (&names)[N], qint64 number)
{
    return number >= 0 && number < qint64(N) ? QString::fromLatin1(names[number]) : QString();
}

} // namespace

QDebug NTypes::operator<<(QDebug debug, ETypes type)
{
    const bool named = quint32(type) <= TYPE_CHAR;
    const QString name = named ? QStringLiteral("TYPE_") + CStr::nTypeToStr(type) : QString();
    return show(debug, "NTypes", name, "ETypes", quint32(type));
}

QDebug NUnits::operator<<(QDebug debug, EObjectUnit unit)
{
    return show(debug, "NUnits", CUnitParser::mcUNIT_TO_STR_MAP.value(unit), "EObjectUnit", quint32(unit));
}

QDebug operator<<(QDebug debug, CTime::ETimeUnit unit)
{
    static constexpr const char* NAMES[] = {"UNIT_PS", "UNIT_NS",  "UNIT_US", "UNIT_MS",
                                            "UNIT_S",  "UNIT_MIN", "UNIT_H",  "UNIT_UNKNOWN"};
    return show(debug, "CTime", nameAt(NAMES, qint32(unit)), "ETimeUnit", qint32(unit));
}

QDebug operator<<(QDebug debug, CFTPath::EEntryPoint entryPoint)
{
    QString name = QStringLiteral("INVALID");
    if (entryPoint != CFTPath::EP_INVALID) {
        name = CFTPath::entryStrMap().value(entryPoint);
        name.replace(QLatin1Char('/'), QLatin1Char('_'));
    }
    return show(debug, "CFTPath", name.isEmpty() ? name : QStringLiteral("EP_") + name, "EEntryPoint",
                quint32(entryPoint));
}

QDebug operator<<(QDebug debug, CTarFileInfo::EType type)
{
    static constexpr const char* NAMES[] = {"TYPE_INVALID", "TYPE_FILE", "TYPE_SYMLINK", "TYPE_DIRECTORY"};
    return show(debug, "CTarFileInfo", nameAt(NAMES, qint32(type)), "EType", qint32(type));
}
