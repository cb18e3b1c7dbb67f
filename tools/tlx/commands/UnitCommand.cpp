#include <core/text/CStr.h>
#include <core/text/CUnitParser.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/Types.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

namespace {

// The units whose code, name or type holds the text; all of them for an empty text.
int showCatalogue(const QString& text, Report& report)
{
    QList<QJsonArray> rows;
    const auto& units = CUnitParser::mcUNIT_TO_STR_MAP;
    for (auto it = units.cbegin(); it != units.cend(); ++it) {
        const QString code = QString::number(static_cast<quint32>(it.key()));
        const QString type = CStr::nTypeToStr(CUnitParser::type(it.key()));
        if (it.value().contains(text, Qt::CaseInsensitive) || code == text
            || type.compare(text, Qt::CaseInsensitive) == 0) {
            rows << QJsonArray{static_cast<qint64>(it.key()), it.value(), CUnitParser::size(it.key()), type};
        }
    }
    report.addTable("units", {"code", "name", "size", "type"}, rows);
    return rows.isEmpty() ? invalid(report, QStringLiteral("no unit has this in its name: ") + text)
                          : int(EXIT_DONE);
}

// The unit of a code (decimal, or hexadecimal after 0x) or a name.
NUnits::EObjectUnit findUnit(const QString& text, bool& ok)
{
    const uint code = text.toUInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    if (!ok) {
        return CUnitParser::strToUnit(text, &ok);
    }
    CUnitParser::size(code, &ok);
    return static_cast<NUnits::EObjectUnit>(code);
}

} // namespace

QList<SOption> unitOptions()
{
    return {{"search",
             QStringLiteral("Lists the units whose name contains this text, in upper or lower case."),
             "TEXT"}};
}

QStringList unitWords(int position)
{
    return position == 1 ? NLookup::unitNames() : QStringList();
}

int runUnit(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const bool isSearch = parser.isSet(QStringLiteral("search"));
    if (arguments.size() > (isSearch ? 0 : 1)) {
        return wrongUsage(report, QStringLiteral("a unit or --search is expected, not both"));
    }
    if (arguments.isEmpty()) {
        return showCatalogue(parser.value(QStringLiteral("search")), report);
    }
    bool ok = false;
    const NUnits::EObjectUnit unit = findUnit(arguments.first(), ok);
    if (!ok) {
        return wrongUsage(report, NLookup::noSuchUnit(arguments.first()));
    }
    const NTypes::ETypes type = CUnitParser::type(unit);
    report.add("code", "Code", static_cast<qint64>(unit));
    report.add("name", "Name", CUnitParser::unitToStr(unit));
    report.add("size", "Size in bytes", CUnitParser::size(unit));
    report.add("typeCode", "Code of the value type", static_cast<qint64>(type));
    report.add("type", "Value type", CStr::nTypeToStr(type));
    return EXIT_DONE;
}
