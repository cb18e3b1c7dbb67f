#include <core/device/CMotorBaseName.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

QList<SOption> motorOptions()
{
    return {{"numeric", QStringLiteral("The number must be numeric.")}};
}

int runMotor(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("the name of one file is expected"));
    }
    const QString& file = arguments.first();
    const bool numeric = parser.isSet(QStringLiteral("numeric"));
    CMotorBaseName motor(numeric);
    const bool parsed = motor.setFileBaseName(file);
    const bool validFile = CMotorBaseName::isValid(file, numeric);
    report.add("manufacturer", "Manufacturer", motor.manufacturer());
    report.add("name", "Motor name", motor.name());
    report.add("number", "Number", motor.number());
    report.add("numberAsI32", "Number as I32", motor.numberAsI32());
    report.add("fileBaseName", "File base name", motor.fileBaseName());
    report.add("valid", "Valid", motor.isValid());
    report.add("validFileName", "Valid without suffix", validFile);
    if (parsed && motor.isValid()) {
        return EXIT_DONE;
    }
    const QString reason = !parsed     ? QStringLiteral("a part is not valid")
                           : validFile ? QStringLiteral("a file name with a suffix is not parsed")
                                       : QStringLiteral("not a motor base name");
    return invalid(report, reason + QStringLiteral(": ") + file);
}
