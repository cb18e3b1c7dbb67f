#include <tools/tlx/commands/CompanyCommand.h>

#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/commands/UntouchedDirectories.h>
#include <tools/tlx/report/Report.h>

#include <core/app/CCompanyStrings.h>
#include <core/files/CPath.h>

#include <QCommandLineParser>
#include <QFile>

namespace {

constexpr int HIGHEST_PRODUCT = 999; // searched for names; the numbers of tools have three digits

struct SCompanyRow
{
    const char* key;
    const char* label;
    QString (*value)();
};

const SCompanyRow COMPANY[] = {
    {"longName", "Name", CCompanyStrings::getCompanyLongName},
    {"mediumName", "Medium name", CCompanyStrings::getCompanyMediumName},
    {"shortName", "Short name", CCompanyStrings::getCompanyShortName},
    {"addressName", "Address", CCompanyStrings::getAddressName},
    {"addressStreet", "Street", CCompanyStrings::getAddressStreet},
    {"addressCity", "City", CCompanyStrings::getAddressCity},
    {"addressHtml", "Address in HTML", CCompanyStrings::getAddressHtml},
    {"webUrl", "Web address", CCompanyStrings::getWebUrl},
    {"eMail", "Mail address", CCompanyStrings::getEMail},
    {"logoAndName145x52", "Logo and name, 145x52", CCompanyStrings::getLogoAndNameBitmapFile_145x52},
    {"logoAndName105x30", "Logo and name, 105x30", CCompanyStrings::getLogoAndNameBitmapFile_105x30},
    {"logoAndName105x30Inverted", "The same, inverted",
     CCompanyStrings::getLogoAndNameBitmapFile_105x30_inverted},
    {"logo32x32", "Logo, 32x32", CCompanyStrings::getLogoBitmapFile_32x32},
    {"logo16x16", "Logo, 16x16", CCompanyStrings::getLogoBitmapFile_16x16},
    {"updateVersionFile", "Version to update to", CCompanyStrings::getUpdateVersionFile},
    {"updatePath", "Updates", CCompanyStrings::getUpdatePath},
    {"updateChangelogFile", "Change log of updates", CCompanyStrings::getUpdateChangelogFile},
    {"openSourceUrl", "Open-source notices", CCompanyStrings::getOpenSourceUrl},
};

struct SProductRow
{
    const char* key;
    const char* label;
    QString (*value)(int);
};

const SProductRow PRODUCT[] = {
    {"section", "Section", CCompanyStrings::productSection},
    {"name", "Name", CCompanyStrings::getProductName},
    {"exeFile", "Program", CCompanyStrings::getProductExeFile},
    {"splashScreen", "Splash screen", CCompanyStrings::getProductSplashScreenBitmapFile},
    {"eMail", "Mail address", CCompanyStrings::getProductEMailAddress},
    {"updateVersionFile", "Version to update to", CCompanyStrings::getProductUpdateVersionFile},
    {"updatePath", "Updates", CCompanyStrings::getProductUpdatePath},
    {"updateChangelogFile", "Change log of updates", CCompanyStrings::getProductUpdateChangelogFile},
};

void showProducts(Report& report)
{
    QList<QJsonArray> rows;
    for (int product = 0; product <= HIGHEST_PRODUCT; ++product) {
        if (isProduct(product)) {
            rows << QJsonArray{product, CCompanyStrings::getProductName(product)};
        }
    }
    report.addTable("products", {"product", "name"}, rows);
}

void showCompany(Report& report)
{
    for (const SCompanyRow& row : COMPANY) {
        report.add(QLatin1String(row.key), QLatin1String(row.label), row.value());
    }
    showProducts(report);
}

void showProduct(Report& report, int product)
{
    for (const SProductRow& row : PRODUCT) {
        report.add(QLatin1String(row.key), QLatin1String(row.label), row.value(product));
    }
}

} // namespace

QString settingsFile()
{
    const QString installed = CPath::constConfigPath(false) + QStringLiteral("Setup.Ini");
    return QFile::exists(installed) ? installed : QStringLiteral(":/tlxCore/data/Setup.Ini");
}

bool isProduct(int product)
{
    return CCompanyStrings::getProductName(product) != CCompanyStrings::productSection(product);
}

int runCompany(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    bool isNumber = true;
    const int product = arguments.isEmpty() ? 0 : arguments.first().toInt(&isNumber);
    if (arguments.size() > 1 || !isNumber) {
        return wrongUsage(report, QStringLiteral("at most one product number is expected"));
    }
    const UntouchedDirectories untouched;
    report.add("settings", "Settings file", settingsFile());
    if (arguments.isEmpty()) {
        showCompany(report);
        return EXIT_DONE;
    }
    showProduct(report, product);
    return isProduct(product) ? int(EXIT_DONE) : invalid(report, noSuchProduct(product));
}

QString noSuchProduct(int product)
{
    return QStringLiteral("no such product: %1: \"tlx company\" lists the products").arg(product);
}
