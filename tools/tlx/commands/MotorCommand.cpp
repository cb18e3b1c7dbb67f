#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/device/CMotorBaseName.h>

#include <QCommandLineParser>

void addMotorOptions(QCommandLineParser& parser)
{
    parser.addOption({QStringLiteral("numeric"), QStringLiteral("Demands a numeric number.")});
}

int runMotor(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one FILE is needed"));
    }
    const QString file = arguments.first();
    const bool numeric = parser.isSet(QStringLiteral("numeric"));
    CMotorBaseName motor(numeric);
    const bool parsed = motor.setFileBaseName(file);
    const bool validFile = CMotorBaseName::isValid(file, numeric);
    report.add(QStringLiteral("manufacturer"), QStringLiteral("manufacturer"), motor.manufacturer());
    report.add(QStringLiteral("name"), QStringLiteral("motor name"), motor.name());
    report.add(QStringLiteral("number"), QStringLiteral("number"), motor.number());
    report.add(QStringLiteral("numberAsI32"), QStringLiteral("number as I32"), motor.numberAsI32());
    report.add(QStringLiteral("fileBaseName"), QStringLiteral("file base name"), motor.fileBaseName());
    report.add(QStringLiteral("valid"), QStringLiteral("valid"), motor.isValid());
    report.add(QStringLiteral("validFileName"), QStringLiteral("valid without suffix"), validFile);
    if (parsed && motor.isValid()) {
        return EXIT_DONE;
    }
    const QString reason = !parsed     ? QStringLiteral("a part is refused")
                           : validFile ? QStringLiteral("a file name with a suffix is not taken over")
                                       : QStringLiteral("not a motor base name");
    report.setError(QStringLiteral("%1: \"%2\"").arg(reason, file));
    return EXIT_INVALID;
}
