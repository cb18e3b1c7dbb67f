// The settings file of an installation, as anybody may have edited it: every text beside a QSettings of its own. The
// library opens the file once in a process; the target reaches the private object that holds it, to open every input.
#include <core/app/CCompanyStrings.cpp>
#include <fuzz/support/Fuzzer.h>

#include <algorithm>
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
        delete settings->kept.exchange(nullptr);
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

// Only a name with a slash, in one of Qt's ways to write it, lies within a section: "[A/B]", "A\B=", "A%2fB=".
bool hasNameWithin(const QByteArray& bytes)
{
    const QList<QByteArray> lines = QByteArray(bytes).replace('\r', '\n').split('\n');
    return std::any_of(lines.begin(), lines.end(), [](const QByteArray& line) {
        const QByteArray name = line.trimmed().startsWith('[') ? line : line.left(line.indexOf('='));
        return name.contains('/') || name.contains('\\') || name.contains('%');
    });
}

/// Qt's answers about a file of the same bytes.
class Peer
{
public:
    Peer(const QString& path, const QByteArray& bytes)
        : mSlashes(hasNameWithin(bytes))
        , mByKey(copyOf(path + QLatin1String(".keys"), bytes), QSettings::IniFormat)
        , mWhole(copyOf(path + QLatin1String(".whole"), bytes), QSettings::IniFormat)
    {
        mWhole.allKeys();
    }

    ~Peer()
    {
        QFile::remove(mByKey.fileName());
        QFile::remove(mWhole.fileName());
    }

    // Asked key by key, Qt passes over a section while one whose name sorts between the section and the key is not parsed
    // yet ("PRODUCT1/A" before the key "PRODUCT1/Name"). The library reads the file whole, so it may know a key more.
    QString text(const QString& key) const
    {
        if (mByKey.contains(key)) {
            return NQtVariant::toString(mByKey.value(key));
        }
        FUZZ_CHECK(mSlashes || !mWhole.contains(key));
        return NQtVariant::toString(mWhole.value(key));
    }

private:
    static QString copyOf(const QString& path, const QByteArray& bytes)
    {
        writeFile(path, bytes);
        return path;
    }

    bool mSlashes;
    QSettings mByKey;
    QSettings mWhole;
};

void checkCompany(const Peer& peer)
{
    const auto text = [&peer](const char* key) {
        return peer.text(QLatin1String("COMPANY/") + QLatin1String(key));
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

void checkProduct(const Peer& peer, int number)
{
    const QString section = QLatin1String("PRODUCT") + QString::number(number);
    const auto text = [&peer, &section](const char* key) {
        return peer.text(section + QLatin1Char('/') + QLatin1String(key));
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
    {
        const Peer peer(directory + name, NQtCompat::settingsContent(bytes));
        reopen(name);
        checkCompany(peer);
        checkProduct(peer, number);
        reopen(name);
    }
    FUZZ_CHECK(readFile(directory + name) == bytes);
    QFile::remove(directory + name);
}
