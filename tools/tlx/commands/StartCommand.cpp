#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/CompanyCommand.h>
#include <tools/tlx/commands/PathsCommand.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/app/CCompanyStrings.h>
#include <core/device/CCommandLineParser.h>
#include <core/text/CDateTime.h>
#include <core/text/CStr.h>
#include <core/text/CTlString.h>
#include <core/text/CUnitParser.h>
#include <core/types/CVariant.h>

#include <QCommandLineParser>

// The road of one start of a tool, in the order in which a tool walks it.

namespace {

void showArguments(Report& report, const CCommandLineParser& start, QStringList arguments)
{
    report.setSection(QStringLiteral("given"), QStringLiteral("Arguments"));
    const QMap<QString, QString> map = CCommandLineParser::argumentsMap(&arguments);
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        report.add(it.key(), escapedForTerminal(it.key()), it.value());
    }
    report.setSection(QStringLiteral("arguments"), QStringLiteral("Understood as"));
    report.add(QStringLiteral("driveAddress"), QStringLiteral("Drive address"), start.driveAddress());
    report.add(QStringLiteral("powerAddress"), QStringLiteral("Power address"), start.powerAddress());
    report.add(QStringLiteral("comAddress"), QStringLiteral("Communication address"),
               static_cast<qint64>(start.comAddress()));
    report.add(QStringLiteral("abAddress"), QStringLiteral("Bus address"), start.abAddress());
    report.add(QStringLiteral("ip"), QStringLiteral("Network address"), start.ip());
    report.add(QStringLiteral("serverName"), QStringLiteral("Server"), start.serverName());
    report.add(QStringLiteral("port"), QStringLiteral("Port"), start.port());
    report.add(QStringLiteral("currentUnit"), QStringLiteral("Current unit"), start.currentUnit());
    report.add(QStringLiteral("userLevel"), QStringLiteral("User level"), start.userLevel());
    report.add(QStringLiteral("deviceFunction"), QStringLiteral("Device function"),
               static_cast<qint64>(start.deviceFunction()));
    report.add(QStringLiteral("deviceClass"), QStringLiteral("Device class"),
               static_cast<qint64>(start.deviceClass()));
    report.add(QStringLiteral("language"), QStringLiteral("Language"), start.language().name());
}

void showTitle(Report& report, const QCommandLineParser& parser, const CCommandLineParser& start)
{
    report.setSection(QStringLiteral("title"), QStringLiteral("Settings and title"));
    report.add(QStringLiteral("settings"), QStringLiteral("Settings file"), settingsFile());
    const QString product = parser.value(QStringLiteral("product"));
    const QString name =
        product.isEmpty() ? QStringLiteral("tlx") : CCompanyStrings::getProductName(product.toInt());
    report.add(QStringLiteral("company"), QStringLiteral("Company"), CCompanyStrings::getCompanyLongName());
    report.add(QStringLiteral("name"), QStringLiteral("Tool"), name);
    report.add(QStringLiteral("title"), QStringLiteral("Title"),
               CStr::createApplicationTitle(start.language(), parser.value(QStringLiteral("build-date")),
                                            name, QStringLiteral(TLX_VERSION), QString()));
}

// The name of a log file makes its directory, which would lie at the root of the disk when APPDATA is not set.
void showLogFile(Report& report, const QCommandLineParser& parser)
{
    report.setSection(QStringLiteral("log"), QStringLiteral("Log"));
    if (!qEnvironmentVariableIsSet("APPDATA")) {
        report.add(QStringLiteral("note"), QStringLiteral("Log file"),
                   QStringLiteral("not asked for: APPDATA is not set"));
        return;
    }
    const bool withThreadId = parser.isSet(QStringLiteral("thread-id"));
    report.add(QStringLiteral("logFile"), QStringLiteral("Log file"),
               CStr::createLogFileName(QString(), withThreadId));
}

// A number as a display with a format descriptor shows it: integers hexadecimal, floats with three decimals. A date and
// time, whose record has no text form of its own, in ISO 8601 form.
QString formatted(const CVariant& value, int size)
{
    const NTypes::ETypes type = value.type();
    if (type == NTypes::TYPE_F32 || type == NTypes::TYPE_F64) {
        return CTlString::toStr(value.toF64(), CTlString::SFormatValue(3, 0, 0, CTlString::NOTATION_DECIMAL));
    }
    if (type == NTypes::TYPE_DATETIME) {
        return CDateTime(static_cast<qint64>(value.toU64()), Qt::LocalTime).toIsoDateTime(Qt::LocalTime);
    }
    if (type == NTypes::TYPE_UNKNOWN || type > NTypes::TYPE_I64) {
        return QString();
    }
    const auto digits = static_cast<qint8>(2 * size);
    return CTlString::toStr(value.toU64(), CTlString::SFormatValue(0, digits, 0, CTlString::NOTATION_HEX));
}

// "NAME=TEXT" as a row of the table; empty when there is no such unit.
QStringList unitRow(const QString& argument)
{
    const QString name = argument.section(QLatin1Char('='), 0, 0);
    bool ok = false;
    const NUnits::EObjectUnit unit = CUnitParser::strToUnit(name, &ok);
    if (!ok) {
        return QStringList();
    }
    const int size = CUnitParser::size(unit);
    CVariant value(CUnitParser::type(unit));
    const QString initial = value.toStr();
    if (argument.contains(QLatin1Char('='))) {
        value.fromStr(argument.section(QLatin1Char('='), 1));
    }
    return {name,          CStr::nTypeToStr(value.type()), QString::number(size), initial,
            value.toStr(), formatted(value, size)};
}

int showUnits(Report& report, const QStringList& units)
{
    report.setSection(QStringLiteral("values"), QStringLiteral("Values"));
    QList<QStringList> rows;
    int code = EXIT_DONE;
    for (const QString& argument : units) {
        const QStringList row = unitRow(argument);
        if (row.isEmpty()) {
            report.setError(QStringLiteral("no such unit: %1").arg(argument.section(QLatin1Char('='), 0, 0)));
            code = EXIT_INVALID;
        } else {
            rows << row;
        }
    }
    report.addTable(QStringLiteral("units"),
                    {QStringLiteral("unit"), QStringLiteral("type"), QStringLiteral("size"),
                     QStringLiteral("default"), QStringLiteral("value"), QStringLiteral("formatted")},
                    rows);
    return code;
}

} // namespace

void addStartOptions(QCommandLineParser& parser)
{
    parser.addOption({QStringLiteral("unit"),
                      QStringLiteral("A value of this unit, filled from the text. May be repeated."),
                      QStringLiteral("NAME=TEXT")});
    parser.addOption(
        {QStringLiteral("product"), QStringLiteral("The tool's product number."), QStringLiteral("NUMBER")});
    parser.addOption({QStringLiteral("build-date"),
                      QStringLiteral("The tool's build date, as in \"Nov  5 2026\"."), QStringLiteral("DATE"),
                      QStringLiteral(__DATE__)});
    parser.addOption({QStringLiteral("thread-id"), QStringLiteral("A log file for this thread alone.")});
    parser.addOption({QStringLiteral("create"), QStringLiteral("Makes the directories that are missing.")});
}

int runStart(const QCommandLineParser& parser, Report& report)
{
    const QString product = parser.value(QStringLiteral("product"));
    bool isNumber = true;
    if (!product.isEmpty() && (product.toInt(&isNumber), !isNumber)) {
        return wrongUsage(report, QStringLiteral("the product is a number: %1").arg(product));
    }
    QStringList arguments = parser.positionalArguments();
    const CCommandLineParser start(&arguments);
    showArguments(report, start, arguments);
    report.setSection(QStringLiteral("paths"), QStringLiteral("Directories"));
    addDirectories(report, parser.isSet(QStringLiteral("create")));
    showTitle(report, parser, start);
    showLogFile(report, parser);
    const QStringList units = parser.values(QStringLiteral("unit"));
    return units.isEmpty() ? EXIT_DONE : showUnits(report, units);
}
