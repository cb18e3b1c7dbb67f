#include <core/app/CCompanyStrings.h>

#include <core/base/QtTexts.h>
#include <core/base/QtVariant.h>
#include <core/files/CPath.h>
#include <core/files/Platform.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSettings>
#include <QTemporaryFile>

#include <atomic>
#include <memory>

// A static library has no moment of loading at which its resource would register itself. A second time does nothing.
static void registerResource()
{
    Q_INIT_RESOURCE(tlxCore);
}

namespace {

using Values = QHash<QString, QString>;

QString normalized(const QString& key)
{
    const QString single = key.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
    return NPlatform::settingsKey(single);
}

// Qt parses a settings file under a lock of the file's own, and warns meanwhile of a value that it cannot read. The
// message handler may come back here, so each reader has Qt parse a file that nobody else waits for.
QString privateCopy(const QString& path, QTemporaryFile& copy)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !copy.open()) {
        return path;
    }
    const QByteArray content = NQtCompat::settingsContent(file.readAll());
    return copy.write(content) == content.size() && copy.flush() ? copy.fileName() : path;
}

Values readAll(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    Values values;
    // Listing the keys has Qt parse every section. Asked key by key it passes over a section while another one, whose
    // name lies between the section's and the key ("A/B" before "A/Key"), waits to be parsed.
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        // Qt drops the slash, but takes a key of nothing else for one that is not empty.
        values.insert(NPlatform::settingsKey(key),
                      NQtVariant::toString(settings.value(QLatin1Char('/') + key)));
    }
    return values;
}

} // namespace

/// What the opened file says. Two first calls at once read it twice, and one of them is kept.
struct Q_DECL_HIDDEN CCompanyStrings::SSettings
{
    constexpr SSettings() = default;
    ~SSettings() { delete kept.exchange(nullptr); }

    QString value(const QString& key)
    {
        const Values& all = values();
        if (key.isEmpty()) {
            qWarning("QSettings::value: Empty key passed"); // in Qt's words
            return QString();
        }
        return all.value(normalized(key));
    }

    QString productValue(int n, QLatin1String key)
    {
        return value(productSection(n) + QLatin1Char('/') + key);
    }

    const Values& values()
    {
        const Values* values = kept.load(std::memory_order_acquire);
        if (!values) {
            auto own = std::make_unique<const Values>(read());
            if (kept.compare_exchange_strong(values, own.get(), std::memory_order_acq_rel)) {
                values = own.release();
            }
        }
        return *values;
    }

    Values read() const
    {
        const QString installed = CPath::constConfigPath(true) + QLatin1String(fileName);
        if (QFile::exists(installed)) {
            QTemporaryFile copy(QDir::tempPath() + QLatin1String("/Setup-XXXXXX.Ini"));
            return readAll(privateCopy(installed, copy));
        }
        registerResource();
        return readAll(QLatin1String(":/tlxCore/data/") + QLatin1String(fileName));
    }

    const char* fileName = "Setup.Ini";
    std::atomic<const Values*> kept{nullptr};
};

CCompanyStrings::SSettings CCompanyStrings::mSettings;

// A function for each key: of the company, of its image files, and of a product.
#define TLX_COMPANY_VALUE(function, key)                                                                     \
    QString CCompanyStrings::function()                                                                      \
    {                                                                                                        \
        return mSettings.value(QStringLiteral("COMPANY/" key));                                              \
    }
#define TLX_COMPANY_IMAGE(function, key)                                                                     \
    QString CCompanyStrings::function()                                                                      \
    {                                                                                                        \
        return getImageFile(QStringLiteral("COMPANY/" key));                                                 \
    }
#define TLX_PRODUCT_VALUE(function, key)                                                                     \
    QString CCompanyStrings::function(int n)                                                                 \
    {                                                                                                        \
        return mSettings.productValue(n, QLatin1String(key));                                                \
    }

TLX_COMPANY_VALUE(getCompanyLongName, "NameLong")
TLX_COMPANY_VALUE(getCompanyMediumName, "NameMedium")
TLX_COMPANY_VALUE(getCompanyShortName, "NameShort")
TLX_COMPANY_VALUE(getAddressName, "AddressName")
TLX_COMPANY_VALUE(getAddressStreet, "AddressStreet")
TLX_COMPANY_VALUE(getAddressCity, "AddressCity")
TLX_COMPANY_VALUE(getAddressHtml, "AddressHtml")
TLX_COMPANY_VALUE(getWebUrl, "WebUrl")
TLX_COMPANY_VALUE(getEMail, "eMail")
TLX_COMPANY_IMAGE(getLogoAndNameBitmapFile_145x52, "LogoAndNameBitmap_145x52")
TLX_COMPANY_IMAGE(getLogoAndNameBitmapFile_105x30, "LogoAndNameBitmap_105x30")
TLX_COMPANY_IMAGE(getLogoAndNameBitmapFile_105x30_inverted, "LogoAndNameBitmap_105x30_inverted")
TLX_COMPANY_IMAGE(getLogoBitmapFile_32x32, "Logo_32x32")
TLX_COMPANY_IMAGE(getLogoBitmapFile_16x16, "Logo_16x16")
TLX_COMPANY_VALUE(getUpdateVersionFile, "UpdateVersionFile")
TLX_COMPANY_VALUE(getUpdatePath, "UpdatePath")
TLX_COMPANY_VALUE(getUpdateChangelogFile, "UpdateChangelogFile")
TLX_COMPANY_VALUE(getOpenSourceUrl, "OpenSourceUrl")

TLX_PRODUCT_VALUE(getProductEMailAddress, "eMail")
TLX_PRODUCT_VALUE(getProductUpdateVersionFile, "UpdateVersionFile")
TLX_PRODUCT_VALUE(getProductUpdatePath, "UpdatePath")
TLX_PRODUCT_VALUE(getProductUpdateChangelogFile, "UpdateChangelogFile")

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

QString CCompanyStrings::getImageFile(const QString& key)
{
    const QString file = mSettings.value(key);
    return file.isEmpty() ? QString() : CPath::imagePath(true) + file;
}
