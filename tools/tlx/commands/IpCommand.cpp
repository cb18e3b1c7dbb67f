#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/device/CIPv6Address.h>

#include <QCommandLineParser>

int runIp(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one TEXT is needed"));
    }
    const QString text = arguments.first();
    CIPv6Address address;
    const bool accepted = address.setAddress(text);
    // Groups that the text leaves alone show when it is read over other bytes.
    CIPv6Address filled(QByteArray(16, '\xFF'));
    const bool complete = accepted && filled.setAddress(text) && filled == address;
    report.add(QStringLiteral("address"), QStringLiteral("address"), address.str());
    report.add(QStringLiteral("bytes"), QStringLiteral("bytes as stored"),
               QString::fromLatin1(address.byteArray().toHex(' ')));
    report.add(QStringLiteral("complete"), QStringLiteral("sets all groups"), complete);
    if (!accepted) {
        report.setError(QStringLiteral("not an IPv6 address: \"%1\"").arg(text));
        return EXIT_INVALID;
    }
    return EXIT_DONE;
}
