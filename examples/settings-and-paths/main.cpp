// Settings and paths: who made the tool, and where its files lie.
#include <core/tlxCore.h>

#include <QCoreApplication>
#include <QDebug>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);

    //! [paths]
    const QString log = CPath::logPath(false);      // <appdata>/TARVENIK/<product>/log/, not created
    const QString motors = CPath::motorPath(false); // <documents>/TARVENIK/<product>/motor/
    const QString file = CPath::addFileNameToPath(motors, QStringLiteral("ACME_M100_1"));
    //! [paths]

    //! [settings]
    // From etc/conf/Setup.Ini of the installation when it supplies one, else from the built-in copy.
    const QString maker = CCompanyStrings::getCompanyLongName();
    const QString product = CCompanyStrings::getProductName(999); // no such product: "PRODUCT999"
    //! [settings]

    //! [entry]
    // The same places on a device, by entry point.
    const CFTPath::EEntryPoint entry = CFTPath::fromPath(QStringLiteral("/tmp/trace.bin")); // EP_TMP
    const QString relative = CFTPath::toRelativePath(QStringLiteral("/tmp/trace.bin"), entry);
    //! [entry]

    qInfo() << log << file << maker << product << relative;
    return log.endsWith(QLatin1String("/log/")) && !maker.isEmpty() && product == QLatin1String("PRODUCT999")
                   && entry == CFTPath::EP_TMP && relative == QLatin1String("trace.bin")
               ? 0
               : 1;
}
