#include <core/device/CIPv6Address.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

int runIp(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one IPv6 address is expected"));
    }
    const QString& text = arguments.first();
    CIPv6Address address;
    const bool accepted = address.setAddress(text);
    // Groups that the text leaves alone show when it is read over other bytes.
    CIPv6Address filled(QByteArray(16, '\xFF'));
    const bool complete = accepted && filled.setAddress(text) && filled == address;
    report.add("address", "Address", address.str());
    report.add("bytes", "Bytes as stored", QString::fromLatin1(address.byteArray().toHex(' ')));
    report.add("complete", "Sets all groups", complete);
    if (!accepted) {
        return invalid(report, QStringLiteral("not an IPv6 address: ") + text);
    }
    if (!complete) {
        return invalid(report,
                       QStringLiteral("groups are omitted, and the library reads %1: write all eight groups")
                           .arg(address.str()));
    }
    return EXIT_DONE;
}
