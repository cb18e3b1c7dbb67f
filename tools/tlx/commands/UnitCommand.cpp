#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/text/CStr.h>
#include <core/text/CUnitParser.h>

#include <QCommandLineParser>

namespace {

void showCatalogue(Report& report)
{
    QList<QStringList> rows;
    for (auto it = CUnitParser::mcUNIT_TO_STR_MAP.cbegin(); it != CUnitParser::mcUNIT_TO_STR_MAP.cend();
         ++it) {
        rows << QStringList{QString::number(static_cast<quint32>(it.key())), it.value(),
                            QString::number(CUnitParser::size(it.key())),
                            CStr::nTypeToStr(CUnitParser::type(it.key()))};
    }
    report.addTable(
        QStringLiteral("units"),
        {QStringLiteral("code"), QStringLiteral("name"), QStringLiteral("size"), QStringLiteral("type")},
        rows);
}

// The unit of a code (decimal, or hexadecimal behind 0x) or a name.
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

int runUnit(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() > 1) {
        return wrongUsage(report, QStringLiteral("takes at most one unit"));
    }
    if (arguments.isEmpty()) {
        showCatalogue(report);
        return EXIT_DONE;
    }
    bool ok = false;
    const NUnits::EObjectUnit unit = findUnit(arguments.first(), ok);
    if (!ok) {
        report.setError(QStringLiteral("no such unit: %1").arg(arguments.first()));
        return EXIT_INVALID;
    }
    const NTypes::ETypes type = CUnitParser::type(unit);
    report.add(QStringLiteral("code"), QStringLiteral("Code"), static_cast<qint64>(unit));
    report.add(QStringLiteral("name"), QStringLiteral("Name"), CUnitParser::unitToStr(unit));
    report.add(QStringLiteral("size"), QStringLiteral("Size in bytes"), CUnitParser::size(unit));
    report.add(QStringLiteral("typeCode"), QStringLiteral("Code of the value type"),
               static_cast<qint64>(type));
    report.add(QStringLiteral("type"), QStringLiteral("Value type"), CStr::nTypeToStr(type));
    return EXIT_DONE;
}
