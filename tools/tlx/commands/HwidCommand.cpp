#include <core/device/CDeviceHardwareId.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

namespace {

void addNumber(Report& report, const char* key, const char* label, unsigned short value)
{
    constexpr unsigned short NOT_SET = 65535;
    report.add(key, label, value == NOT_SET ? QJsonValue() : QJsonValue(int(value)),
               value == NOT_SET ? QStringLiteral("not set") : QString());
}

} // namespace

int runHwid(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one hardware identifier is expected"));
    }
    const QString& text = arguments.first();
    CDeviceHardwareId id;
    const bool parsed = id.setHardwareId(text);
    report.add("prefix", "Prefix", id.prefix());
    addNumber(report, "platform", "Platform", id.platform());
    addNumber(report, "version", "Version", id.version());
    addNumber(report, "revision", "Revision", id.revision());
    report.add("name", "Name", id.name());
    report.add("hardwareId", "Hardware identifier", id.hardwareId());
    report.add("minimum", "Minimum form", id.minimumHardwareId());
    report.add("short", "Short form", id.shortHardwareId());
    report.add("full", "Full form", id.fullHardwareId());
    report.add("strictlyMinimum", "Text is minimum form", CDeviceHardwareId::isMinimumHardwareId(text));
    report.add("strictlyShort", "Text is short form", CDeviceHardwareId::isShortHardwareId(text));
    report.add("strictlyFull", "Text is full form", CDeviceHardwareId::isFullHardwareId(text));
    if (!parsed || !id.isValid()) {
        return invalid(report, QStringLiteral("not a hardware identifier: %1").arg(text));
    }
    return EXIT_DONE;
}
