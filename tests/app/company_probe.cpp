#include <core/app/CCompanyStrings.h>
#include <core/files/CPath.h>

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

// Says what the settings answer in the installation that it runs in. With "later" it places a settings file after the
// first question and asks again.

namespace {

constexpr struct
{
    const char* name;
    QString (*get)();
} COMPANY[] = {
    {"longName", CCompanyStrings::getCompanyLongName},
    {"mediumName", CCompanyStrings::getCompanyMediumName},
    {"shortName", CCompanyStrings::getCompanyShortName},
    {"addressName", CCompanyStrings::getAddressName},
    {"addressStreet", CCompanyStrings::getAddressStreet},
    {"addressCity", CCompanyStrings::getAddressCity},
    {"addressHtml", CCompanyStrings::getAddressHtml},
    {"webUrl", CCompanyStrings::getWebUrl},
    {"eMail", CCompanyStrings::getEMail},
    {"logo145x52", CCompanyStrings::getLogoAndNameBitmapFile_145x52},
    {"logo105x30", CCompanyStrings::getLogoAndNameBitmapFile_105x30},
    {"logo105x30inverted", CCompanyStrings::getLogoAndNameBitmapFile_105x30_inverted},
    {"logo32x32", CCompanyStrings::getLogoBitmapFile_32x32},
    {"logo16x16", CCompanyStrings::getLogoBitmapFile_16x16},
    {"updateVersionFile", CCompanyStrings::getUpdateVersionFile},
    {"updatePath", CCompanyStrings::getUpdatePath},
    {"updateChangelogFile", CCompanyStrings::getUpdateChangelogFile},
    {"openSourceUrl", CCompanyStrings::getOpenSourceUrl},
};

constexpr struct
{
    const char* name;
    QString (*get)(int);
} PRODUCT[] = {
    {"section", CCompanyStrings::productSection},
    {"name", CCompanyStrings::getProductName},
    {"exeFile", CCompanyStrings::getProductExeFile},
    {"splashScreen", CCompanyStrings::getProductSplashScreenBitmapFile},
    {"productEMail", CCompanyStrings::getProductEMailAddress},
    {"productUpdateVersionFile", CCompanyStrings::getProductUpdateVersionFile},
    {"productUpdatePath", CCompanyStrings::getProductUpdatePath},
    {"productUpdateChangelogFile", CCompanyStrings::getProductUpdateChangelogFile},
};

void print(const QString& name, const QString& value)
{
    std::printf("%s\t%s\n", name.toUtf8().constData(), value.toUtf8().constData());
}

void placeSettings()
{
    QFile file(CPath::constConfigPath(true) + QStringLiteral("Setup.Ini"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write("[COMPANY]\r\nNameLong=Placed later\r\n");
    }
}

// "company" prints the maker's answers, a number those of that product, anything else the image file of that key.
void answer(const QString& question)
{
    bool isProduct = false;
    const int product = question.toInt(&isProduct);
    if (isProduct) {
        for (const auto& row : PRODUCT) {
            print(question + QLatin1Char('.') + QLatin1String(row.name), row.get(product));
        }
    } else if (question == QLatin1String("company")) {
        for (const auto& row : COMPANY) {
            print(QLatin1String(row.name), row.get());
        }
    } else if (question == QLatin1String("later")) {
        print(QStringLiteral("before"), CCompanyStrings::getCompanyLongName());
        placeSettings();
        print(QStringLiteral("after"), CCompanyStrings::getCompanyLongName());
    } else {
        print(question, CCompanyStrings::getImageFile(question));
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList questions = QCoreApplication::arguments().mid(1);
    for (const QString& question : questions) {
        answer(question);
    }
    return 0;
}
