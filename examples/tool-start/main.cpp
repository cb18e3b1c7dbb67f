// A complete start-up of a tool: arguments, directories, settings, title, log file, and a value of a drive's object.
//! [head]
#include <core/tlxCore.h>

#include <QCoreApplication>
#include <QTextStream>

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}
//! [head]

//! [arguments]
// "drvadr=3 lang=de level=2 port=0x1F40" on the command line.
void showArguments(const CCommandLineParser& arguments)
{
    out() << "drive " << arguments.driveAddress() << " at level " << arguments.userLevel() << ", port "
          << arguments.port() << '\n';
}
//! [arguments]

//! [directories]
// The installation is one level above the program's directory. The tool's directories are below it and below the user's
// own directories. They are created on request.
void showDirectories()
{
    out() << "product " << CPath::productName() << " in " << CPath::installPath() << '\n';
    const auto directories = {CPath::configPath, CPath::paramPath, CPath::motorPath, CPath::logPath,
                              CPath::imagePath};
    for (const auto directory : directories) {
        out() << "  " << directory(true) << '\n';
    }
}
//! [directories]

//! [title]
// The first question opens the settings: the installation's own file, or the built-in one.
void showTitle(const QLocale& locale)
{
    out() << CStr::createApplicationTitle(locale, QStringLiteral(__DATE__),
                                          CCompanyStrings::getProductName(101), QStringLiteral("1.0.0"),
                                          QString())
          << '\n'
          << "log: " << CStr::createLogFileName(QString(), false) << '\n';
}
//! [title]

//! [value]
// The unit determines the type and the size of an object's value. The user's text fills it.
void showValue(const QString& unit, const QString& text)
{
    CVariant value(CUnitParser::type(unit));
    value.fromStr(text);
    const int size = CUnitParser::size(unit);
    const CTlString::SFormatValue hex(0, static_cast<qint8>(2 * size), 0, CTlString::NOTATION_HEX);
    out() << unit << " = " << value.toStr() << " (" << size << " bytes, shown as "
          << CTlString::toStr(value.toU64(), hex) << ")\n";
}
//! [value]

//! [main]
} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const CCommandLineParser arguments;

    showArguments(arguments);
    showDirectories();
    showTitle(arguments.language());
    const QMap<QString, QString> given = CCommandLineParser::argumentsMap();
    for (auto it = given.cbegin(); it != given.cend(); ++it) {
        if (CUnitParser::checkUnitStr(it.key())) {
            showValue(it.key(), it.value());
        }
    }
    return CCompanyStrings::getCompanyLongName().isEmpty() ? 1 : 0;
}
//! [main]
