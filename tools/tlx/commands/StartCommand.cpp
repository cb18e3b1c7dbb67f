#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/CompanyCommand.h>
#include <tools/tlx/commands/PathsCommand.h>
#include <tools/tlx/commands/UntouchedDirectories.h>
#include <tools/tlx/input/Judgement.h>
#include <tools/tlx/input/Types.h>
#include <tools/tlx/report/Report.h>

#include <core/app/CCompanyStrings.h>
#include <core/device/CCommandLineParser.h>
#include <core/text/CDateTime.h>
#include <core/text/CStr.h>
#include <core/text/CTlString.h>
#include <core/text/CUnitParser.h>
#include <core/types/CVariant.h>

#include <QCommandLineParser>

#include <optional>

// What one start of a tool asks the library, in a tool's order.

namespace {

void showArguments(Report& report, const CCommandLineParser& start, QStringList arguments)
{
    report.setSection(QStringLiteral("given"), QStringLiteral("Arguments"));
    const QMap<QString, QString> map = CCommandLineParser::argumentsMap(&arguments);
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        report.add(it.key(), escapedForTerminal(it.key()), it.value());
    }
    report.setSection(QStringLiteral("arguments"), QStringLiteral("Understood as"));
    report.add("driveAddress", "Drive address", start.driveAddress());
    report.add("powerAddress", "Power address", start.powerAddress());
    report.add("comAddress", "Communication address", static_cast<qint64>(start.comAddress()));
    report.add("abAddress", "Bus address", start.abAddress());
    report.add("ip", "Network address", start.ip());
    report.add("serverName", "Server", start.serverName());
    report.add("port", "Port", start.port());
    report.add("currentUnit", "Current unit", start.currentUnit());
    report.add("userLevel", "User level", start.userLevel());
    report.add("deviceFunction", "Device function", static_cast<qint64>(start.deviceFunction()));
    report.add("deviceClass", "Device class", static_cast<qint64>(start.deviceClass()));
    report.add("language", "Language", start.language().name());
}

void showTitle(Report& report, const QCommandLineParser& parser, const CCommandLineParser& start)
{
    report.setSection(QStringLiteral("title"), QStringLiteral("Settings and title"));
    report.add("settings", "Settings file", settingsFile());
    const QString product = parser.value(QStringLiteral("product"));
    const QString name =
        product.isEmpty() ? QStringLiteral("tlx") : CCompanyStrings::getProductName(product.toInt());
    report.add("company", "Company", CCompanyStrings::getCompanyLongName());
    report.add("name", "Tool", name);
    report.add("title", "Title",
               CStr::createApplicationTitle(start.language(), parser.value(QStringLiteral("build-date")),
                                            name, QStringLiteral(TLX_VERSION), QString()));
}

// The name of a log file makes its directory, which would lie at the root of the disk when APPDATA is not set.
void showLogFile(Report& report, const QCommandLineParser& parser)
{
    report.setSection(QStringLiteral("log"), QStringLiteral("Log"));
    if (!qEnvironmentVariableIsSet("APPDATA")) {
        report.add("note", "Log file", QStringLiteral("not asked for: APPDATA is not set"));
        return;
    }
    const bool withThreadId = parser.isSet(QStringLiteral("thread-id"));
    report.add("logFile", "Log file", CStr::createLogFileName(QString(), withThreadId));
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

// "NAME=TEXT" as a row of the table; says what the library did with the text.
QJsonArray unitRow(const QString& argument, Report& report)
{
    const QString name = argument.section(QLatin1Char('='), 0, 0);
    const NUnits::EObjectUnit unit = CUnitParser::strToUnit(name);
    const int size = CUnitParser::size(unit);
    CVariant value(CUnitParser::type(unit));
    const QString initial = value.toStr();
    if (argument.contains(QLatin1Char('='))) {
        const QString text = argument.section(QLatin1Char('='), 1);
        value.fromStr(text);
        const QString said = judgement(text, value);
        if (!said.isEmpty()) {
            report.setError(argument + QLatin1String(": ") + said);
        }
    }
    return {name, CStr::nTypeToStr(value.type()), size, initial, value.toStr(), formatted(value, size)};
}

void showUnits(Report& report, const QStringList& units)
{
    report.setSection(QStringLiteral("values"), QStringLiteral("Values"));
    QList<QJsonArray> rows;
    for (const QString& argument : units) {
        rows << unitRow(argument, report);
    }
    report.addTable("units", {"unit", "type", "size", "default", "value", "formatted"}, rows);
}

// The first unit that the catalogue does not have; empty when it has all.
QString unknownUnit(const QStringList& units)
{
    for (const QString& argument : units) {
        bool ok = false;
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        CUnitParser::strToUnit(name, &ok);
        if (!ok) {
            return name;
        }
    }
    return QString();
}

// What the library reads a text of the arguments as.
enum EArgument
{
    ARGUMENT_SIGNED,
    ARGUMENT_UNSIGNED,
    ARGUMENT_PORT,
    ARGUMENT_LANGUAGE
};

const QMap<QString, EArgument>& readArguments()
{
    static const QMap<QString, EArgument> arguments{
        {QStringLiteral("cu"), ARGUMENT_SIGNED},        {QStringLiteral("level"), ARGUMENT_SIGNED},
        {QStringLiteral("powadr"), ARGUMENT_SIGNED},    {QStringLiteral("drvadr"), ARGUMENT_SIGNED},
        {QStringLiteral("comadr"), ARGUMENT_UNSIGNED},  {QStringLiteral("df"), ARGUMENT_UNSIGNED},
        {QStringLiteral("devtype"), ARGUMENT_UNSIGNED}, {QStringLiteral("port"), ARGUMENT_PORT},
        {QStringLiteral("lang"), ARGUMENT_LANGUAGE}};
    return arguments;
}

bool isTaken(EArgument kind, const QString& text)
{
    bool ok = false;
    switch (kind) {
    case ARGUMENT_SIGNED:
        text.toInt(&ok);
        return ok;
    case ARGUMENT_UNSIGNED:
        text.toUInt(&ok);
        return ok;
    case ARGUMENT_PORT:
        text.toInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
        return ok;
    default:
        return text.isEmpty() || text.startsWith(QLatin1String("C")) || QLocale(text) != QLocale::c();
    }
}

// Says which arguments the library passes over, and which it reads otherwise than they are written.
void judgeArguments(const QStringList& arguments, Report& report)
{
    QStringList seen;
    for (int i = arguments.size(); i-- > 0;) {
        const QString& argument = arguments.at(i);
        const int sign = argument.indexOf(QLatin1Char('='));
        const QString key = argument.left(sign);
        const QString text = argument.mid(sign + 1);
        const auto kind = readArguments().constFind(key);
        if (sign < 1) {
            report.setError(QStringLiteral("ignored: %1: an argument has the form KEY=VALUE").arg(argument));
        } else if (seen.contains(key)) {
            report.setError(QStringLiteral("ignored: %1: a later argument has the same key").arg(argument));
        } else if (kind != readArguments().constEnd() && !isTaken(*kind, text)) {
            report.setError(*kind == ARGUMENT_LANGUAGE
                                ? QStringLiteral("not a language: %1: the library reads C").arg(argument)
                                : QStringLiteral("not a number: %1: the library reads 0").arg(argument));
        }
        seen << key;
    }
}

} // namespace

QList<SOption> startOptions()
{
    return {{"unit", QStringLiteral("A value of this unit, filled from the text. May be repeated."),
             "NAME=TEXT", "", 0, NLookup::unitNames},
            {"product", QStringLiteral("The tool's product number."), "NUMBER"},
            {"build-date", QStringLiteral("The tool's build date, as in \"Nov  5 2026\"."), "DATE", __DATE__},
            {"thread-id", QStringLiteral("A log file for this thread alone.")},
            {"create", QStringLiteral("Makes the directories that are missing.")}};
}

int runStart(const QCommandLineParser& parser, Report& report)
{
    const QString product = parser.value(QStringLiteral("product"));
    bool isNumber = true;
    if (!product.isEmpty() && (product.toInt(&isNumber), !isNumber)) {
        return wrongUsage(report, QStringLiteral("not a product number: ") + product);
    }
    const QStringList units = parser.values(QStringLiteral("unit"));
    const QString unknown = unknownUnit(units);
    if (!unknown.isNull()) {
        return wrongUsage(report, NLookup::noSuchUnit(unknown));
    }
    const bool isCreating = parser.isSet(QStringLiteral("create"));
    std::optional<UntouchedDirectories> untouched;
    if (!isCreating) {
        untouched.emplace();
    }
    QStringList arguments = parser.positionalArguments();
    const CCommandLineParser start(&arguments);
    showArguments(report, start, arguments);
    report.setSection(QStringLiteral("paths"), QStringLiteral("Directories"));
    addDirectories(report, isCreating);
    showTitle(report, parser, start);
    showLogFile(report, parser);
    if (!units.isEmpty()) {
        showUnits(report, units);
    }
    judgeArguments(arguments, report);
    if (!product.isEmpty() && !isProduct(product.toInt())) {
        report.setError(noSuchProduct(product.toInt()));
    }
    return EXIT_DONE;
}
