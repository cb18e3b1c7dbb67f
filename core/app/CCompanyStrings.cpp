#include <core/app/CCompanyStrings.h>

#include <core/files/CPath.h>
#include <core/files/Platform.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSettings>
#include <QTemporaryFile>

#include <atomic>
#include <memory>

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

using CValues = QHash<QString, QString>;

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
    const QByteArray content = file.readAll();
    return copy.write(content) == content.size() && copy.flush() ? copy.fileName() : path;
}

CValues readAll(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    CValues values;
    // Listing the keys has Qt parse every section. Asked key by key it passes over a section while another one, whose
    // name lies between the section's and the key ("A/B" before "A/Key"), waits to be parsed.
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        // Qt drops the slash, but takes a key of nothing else for one that is not empty.
        values.insert(NPlatform::settingsKey(key), settings.value(QLatin1Char('/') + key).toString());
    }
    return values;
}

} // namespace

/// What the opened file says. Two first calls at once read it twice, and one of them is kept.
struct Q_DECL_HIDDEN CCompanyStrings::SSettings
{
    constexpr SSettings() = default;
    ~SSettings() { close(); }

    QString value(const QString& key);
    QString productValue(int n, QLatin1String key);

    const CValues& values();
    CValues read() const;
    void close() { delete kept.exchange(nullptr); }

    const char* fileName = "Setup.Ini";
    std::atomic<const CValues*> kept{nullptr};
};

CCompanyStrings::SSettings CCompanyStrings::mSettings;

QString CCompanyStrings::SSettings::value(const QString& key)
{
    const CValues& all = values();
    if (key.isEmpty()) {
        qWarning("QSettings::value: Empty key passed"); // in Qt's words
        return QString();
    }
    return all.value(normalized(key));
}

QString CCompanyStrings::SSettings::productValue(int n, QLatin1String key)
{
    return value(productSection(n) + QLatin1Char('/') + key);
}

const CValues& CCompanyStrings::SSettings::values()
{
    const CValues* values = kept.load(std::memory_order_acquire);
    if (!values) {
        auto own = std::make_unique<const CValues>(read());
        if (kept.compare_exchange_strong(values, own.get(), std::memory_order_acq_rel)) {
            values = own.release();
        }
    }
    return *values;
}

CValues CCompanyStrings::SSettings::read() const
{
    const QString installed = CPath::constConfigPath(true) + QLatin1String(fileName);
    if (QFile::exists(installed)) {
        QTemporaryFile copy(QDir::tempPath() + QLatin1String("/Setup-XXXXXX.Ini"));
        return readAll(privateCopy(installed, copy));
    }
    registerResource();
    return readAll(QLatin1String(":/tlxCore/data/") + QLatin1String(fileName));
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
