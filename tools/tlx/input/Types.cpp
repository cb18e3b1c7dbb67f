#include <tools/tlx/input/Types.h>

#include <core/text/CStr.h>
#include <core/text/CUnitParser.h>
#include <tools/tlx/program/Suggestion.h>

namespace NLookup {

bool findType(const QString& word, NTypes::ETypes& type)
{
    for (quint32 number = 0; number <= NTypes::TYPE_CHAR; ++number) {
        type = static_cast<NTypes::ETypes>(number);
        if (word.compare(CStr::nTypeToStr(type), Qt::CaseInsensitive) == 0
            || word == QString::number(number)) {
            return true;
        }
    }
    return false;
}

QStringList typeNames()
{
    QStringList names;
    for (quint32 number = 0; number <= NTypes::TYPE_CHAR; ++number) {
        names << CStr::nTypeToStr(static_cast<NTypes::ETypes>(number));
    }
    return names;
}

QStringList unitNames()
{
    return CUnitParser::mcUNIT_TO_STR_MAP.values();
}

QString noSuchType(const QString& word)
{
    const QStringList names = typeNames();
    const QString types = QStringLiteral("the types are ") + names.join(QLatin1String(", "));
    const QString text = noSuch(QStringLiteral("type"), word, names, types);
    return text.endsWith(QLatin1Char('?')) ? text + QLatin1String(" (") + types + QLatin1Char(')') : text;
}

QString noSuchUnit(const QString& word)
{
    return noSuch(QStringLiteral("unit"), word, unitNames(),
                  QStringLiteral("\"tlx unit\" lists the units, \"tlx unit --search TEXT\" searches them"));
}

} // namespace NLookup
