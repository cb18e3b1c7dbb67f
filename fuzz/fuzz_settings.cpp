// The settings file of an installation, as anybody may have edited it: every text beside a QSettings of its own. The
// library opens the file once in a process; the target reaches the private object that holds it, to open every input.
#include <core/app/CCompanyStrings.cpp>
#include <fuzz/support/Fuzzer.h>

#include <unistd.h>

namespace {

/// The next call opens the file of this name.
void reopen(const QString& fileName);

// An explicit instantiation may name a private member.
template <auto* settings>
struct SSeam
{
    friend void reopen(const QString& fileName)
    {
        static QByteArray kept;
        settings->close();
        kept = fileName.toLatin1();
        settings->fileName = kept.constData();
    }
};

template struct SSeam<&CCompanyStrings::mSettings>;

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QString image(const QString& name)
{
    return name.isEmpty() ? QString() : CPath::imagePath(false) + name;
}

void checkCompany(const QSettings& settings)
{
    const auto text = [&settings](const char* key) {
        return settings.value(QLatin1String("COMPANY/") + QLatin1String(key)).toString();
    };
    FUZZ_CHECK(CCompanyStrings::getCompanyLongName() == text("NameLong"));
    FUZZ_CHECK(CCompanyStrings::getCompanyMediumName() == text("NameMedium"));
    FUZZ_CHECK(CCompanyStrings::getCompanyShortName() == text("NameShort"));
    FUZZ_CHECK(CCompanyStrings::getAddressHtml() == text("AddressHtml"));
    FUZZ_CHECK(CCompanyStrings::getWebUrl() == text("WebUrl"));
    FUZZ_CHECK(CCompanyStrings::getEMail() == text("eMail"));
    FUZZ_CHECK(CCompanyStrings::getUpdatePath() == text("UpdatePath"));
    FUZZ_CHECK(CCompanyStrings::getLogoBitmapFile_16x16() == image(text("Logo_16x16")));
}

void checkProduct(const QSettings& settings, int number)
{
    const QString section = QLatin1String("PRODUCT") + QString::number(number);
    const auto text = [&settings, &section](const char* key) {
        return settings.value(section + QLatin1Char('/') + QLatin1String(key)).toString();
    };
    const QString name = text("Name");
    FUZZ_CHECK(CCompanyStrings::getProductName(number) == (name.isEmpty() ? section : name));
    FUZZ_CHECK(CCompanyStrings::getProductExeFile(number) == CPath::binPath(false) + text("ExeFile"));
    FUZZ_CHECK(CCompanyStrings::getProductEMailAddress(number) == text("eMail"));
    FUZZ_CHECK(CCompanyStrings::getProductSplashScreenBitmapFile(number) == image(text("SplashScreen")));
}

} // namespace

static void fuzz(Input& input)
{
    static const QString directory =
        CPath::constConfigPath(true); // of the build, which is laid out as an installation
    static int count = 0;
    // A name of its own each time: QSettings keeps what it knows of a file while size and time are the same.
    const QString name = QStringLiteral("Setup-%1-%2.Ini").arg(getpid()).arg(++count);
    const int number = input.take<qint8>();
    const QByteArray bytes = input.bytes();
    writeFile(directory + name, bytes);
    writeFile(directory + QLatin1String("peer-") + name, bytes);
    {
        const QSettings settings(directory + QLatin1String("peer-") + name, QSettings::IniFormat);
        // The library reads the file whole. Asked key by key, Qt passes over a section while one whose name sorts between
        // the section and the key is not parsed yet ("PRODUCT1/a" before the key "PRODUCT1/Name").
        settings.allKeys();
        reopen(name);
        checkCompany(settings);
        checkProduct(settings, number);
        reopen(name);
    }
    FUZZ_CHECK(readFile(directory + name) == bytes);
    QFile::remove(directory + name);
    QFile::remove(directory + QLatin1String("peer-") + name);
}
