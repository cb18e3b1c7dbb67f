#include <core/app/CCompanyStrings.h>

#include <core/base/StaticObjects.h>
#include <core/files/CPath.h>

#include <QFile>
#include <QSettings>

#include <memory>
#include <mutex>

#ifdef TLXCORE_STATIC
// A static library has no moment of loading at which its resource would register itself.
static void registerResource()
{
    Q_INIT_RESOURCE(tlxCore);
}
#else
static void registerResource() {}
#endif

namespace {

constexpr auto FILE_NAME = NStatic::text("Setup.Ini");

// Threads share the one opened file, its opening included.
std::mutex gMutex;

} // namespace

/// The opened file; closed when the library is unloaded.
struct Q_DECL_HIDDEN CCompanyStrings::SSettings
{
    constexpr SSettings()
        : fileName(NStatic::data(FILE_NAME))
    {}

    QString value(const QString& key);
    QString productValue(int n, QLatin1String key);

    QString fileName;
    std::unique_ptr<QSettings> settings;

private:
    void open();
};

TLX_CONSTINIT CCompanyStrings::SSettings CCompanyStrings::mSettings;

QString CCompanyStrings::SSettings::value(const QString& key)
{
    const std::lock_guard<std::mutex> lock(gMutex);
    if (!settings) {
        open();
    }
    return settings->value(key).toString();
}

QString CCompanyStrings::SSettings::productValue(int n, QLatin1String key)
{
    return value(productSection(n) + QLatin1Char('/') + key);
}

void CCompanyStrings::SSettings::open()
{
    registerResource();
    const QString installed = CPath::constConfigPath(true) + fileName;
    const QString path = QFile::exists(installed) ? installed : QLatin1String(":/tlxCore/data/") + fileName;
    settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QString CCompanyStrings::getCompanyLongName()
{
    return mSettings.value(QStringLiteral("COMPANY/NameLong"));
}

QString CCompanyStrings::getCompanyMediumName()
{
    return mSettings.value(QStringLiteral("COMPANY/NameMedium"));
}

QString CCompanyStrings::getCompanyShortName()
{
    return mSettings.value(QStringLiteral("COMPANY/NameShort"));
}

QString CCompanyStrings::getAddressName()
{
    return mSettings.value(QStringLiteral("COMPANY/AddressName"));
}

QString CCompanyStrings::getAddressStreet()
{
    return mSettings.value(QStringLiteral("COMPANY/AddressStreet"));
}

QString CCompanyStrings::getAddressCity()
{
    return mSettings.value(QStringLiteral("COMPANY/AddressCity"));
}

QString CCompanyStrings::getAddressHtml()
{
    return mSettings.value(QStringLiteral("COMPANY/AddressHtml"));
}

QString CCompanyStrings::getWebUrl()
{
    return mSettings.value(QStringLiteral("COMPANY/WebUrl"));
}

QString CCompanyStrings::getEMail()
{
    return mSettings.value(QStringLiteral("COMPANY/eMail"));
}

QString CCompanyStrings::getLogoAndNameBitmapFile_145x52()
{
    return getImageFile(QStringLiteral("COMPANY/LogoAndNameBitmap_145x52"));
}

QString CCompanyStrings::getLogoAndNameBitmapFile_105x30()
{
    return getImageFile(QStringLiteral("COMPANY/LogoAndNameBitmap_105x30"));
}

QString CCompanyStrings::getLogoAndNameBitmapFile_105x30_inverted()
{
    return getImageFile(QStringLiteral("COMPANY/LogoAndNameBitmap_105x30_inverted"));
}

QString CCompanyStrings::getLogoBitmapFile_32x32()
{
    return getImageFile(QStringLiteral("COMPANY/Logo_32x32"));
}

QString CCompanyStrings::getLogoBitmapFile_16x16()
{
    return getImageFile(QStringLiteral("COMPANY/Logo_16x16"));
}

QString CCompanyStrings::getUpdateVersionFile()
{
    return mSettings.value(QStringLiteral("COMPANY/UpdateVersionFile"));
}

QString CCompanyStrings::getUpdatePath()
{
    return mSettings.value(QStringLiteral("COMPANY/UpdatePath"));
}

QString CCompanyStrings::getUpdateChangelogFile()
{
    return mSettings.value(QStringLiteral("COMPANY/UpdateChangelogFile"));
}

QString CCompanyStrings::getOpenSourceUrl()
{
    return mSettings.value(QStringLiteral("COMPANY/OpenSourceUrl"));
}

QString CCompanyStrings::productSection(int n)
{
    return QStringLiteral("PRODUCT%1").arg(n);
}

QString CCompanyStrings::getProductName(int n)
{
    const QString name = mSettings.productValue(n, QLatin1String("Name"));
    return name.isEmpty() ? productSection(n) : name;
}

QString CCompanyStrings::getProductExeFile(int n)
{
    return CPath::binPath(true) + mSettings.productValue(n, QLatin1String("ExeFile"));
}

QString CCompanyStrings::getProductSplashScreenBitmapFile(int n)
{
    return getImageFile(productSection(n) + QLatin1String("/SplashScreen"));
}

QString CCompanyStrings::getProductEMailAddress(int n)
{
    return mSettings.productValue(n, QLatin1String("eMail"));
}

QString CCompanyStrings::getProductUpdateVersionFile(int n)
{
    return mSettings.productValue(n, QLatin1String("UpdateVersionFile"));
}

QString CCompanyStrings::getProductUpdatePath(int n)
{
    return mSettings.productValue(n, QLatin1String("UpdatePath"));
}

QString CCompanyStrings::getProductUpdateChangelogFile(int n)
{
    return mSettings.productValue(n, QLatin1String("UpdateChangelogFile"));
}

QString CCompanyStrings::getImageFile(const QString& key)
{
    const QString file = mSettings.value(key);
    return file.isEmpty() ? QString() : CPath::imagePath(true) + file;
}
