#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/device/CDeviceHardwareId.h>

#include <QCommandLineParser>

namespace {

QJsonValue number(unsigned short value)
{
    return value == 65535 ? QJsonValue(QStringLiteral("not set")) : QJsonValue(int(value));
}

} // namespace

int runHwid(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one TEXT is needed"));
    }
    const QString text = arguments.first();
    CDeviceHardwareId id;
    const bool parsed = id.setHardwareId(text);
    report.add(QStringLiteral("prefix"), QStringLiteral("prefix"), id.prefix());
    report.add(QStringLiteral("platform"), QStringLiteral("platform"), number(id.platform()));
    report.add(QStringLiteral("version"), QStringLiteral("version"), number(id.version()));
    report.add(QStringLiteral("revision"), QStringLiteral("revision"), number(id.revision()));
    report.add(QStringLiteral("name"), QStringLiteral("name"), id.name());
    report.add(QStringLiteral("hardwareId"), QStringLiteral("hardware id"), id.hardwareId());
    report.add(QStringLiteral("minimum"), QStringLiteral("minimum form"), id.minimumHardwareId());
    report.add(QStringLiteral("short"), QStringLiteral("short form"), id.shortHardwareId());
    report.add(QStringLiteral("full"), QStringLiteral("full form"), id.fullHardwareId());
    report.add(QStringLiteral("strictlyMinimum"), QStringLiteral("text is minimum form"),
               CDeviceHardwareId::isMinimumHardwareId(text));
    report.add(QStringLiteral("strictlyShort"), QStringLiteral("text is short form"),
               CDeviceHardwareId::isShortHardwareId(text));
    report.add(QStringLiteral("strictlyFull"), QStringLiteral("text is full form"),
               CDeviceHardwareId::isFullHardwareId(text));
    if (!parsed || !id.isValid()) {
        report.setError(QStringLiteral("not a hardware identifier: \"%1\"").arg(text));
        return EXIT_INVALID;
    }
    return EXIT_DONE;
}
