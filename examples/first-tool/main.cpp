// The smallest useful tool: an argument, a directory, a setting and a typed value.
//! [tool]
#include <core/tlxCore.h>

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const CCommandLineParser arguments; // for example drvadr=3
    QTextStream out(stdout);
    out << CCompanyStrings::getCompanyLongName() << '\n';
    out << "log files in " << CPath::logPath(true) << '\n'; // created on request
    out << "drive " << arguments.driveAddress() << '\n';

    const QString unit = QStringLiteral("UNIT_Ampere");
    CVariant current(CUnitParser::type(unit)); // an F64 holding 0
    current.fromStr(QStringLiteral("2.5"));
    out << unit << " is a " << CStr::nTypeToStr(current.type()) << ": " << current.toStr() << '\n';
    return 0;
}
//! [tool]
