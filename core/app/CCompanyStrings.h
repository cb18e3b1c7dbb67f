#ifndef TLXCORE_CCOMPANYSTRINGS_H
#define TLXCORE_CCOMPANYSTRINGS_H

#include <core/tlxCoreExport.h>

#include <QString>

/**
 * @brief The maker's identity and the data of each product, out of the settings file "Setup.Ini".
 *
 * The file is in INI format as QSettings reads it: Latin-1, other characters as \\xNNNN, values with commas or
 * semicolons in double quotes. The section "COMPANY" holds the maker's data, the sections "PRODUCT90" and the like
 * one product each.
 *
 * The first call of any function here opens the file: the installation's own in CPath::constConfigPath() (which is
 * created if missing), or the one built into the library, ":/tlxCore/data/Setup.Ini". An installation's file
 * replaces the built-in one completely. The file is read once, and the choice holds for the life of the
 * process. Of two first calls at once each reads it.
 *
 * A missing key reads as an empty text, as does every key of a file that cannot be opened. Of a damaged file every
 * key that QSettings still finds is read; a line that assigns nothing is skipped.
 *
 * An "image file" is the absolute path of the named file in CPath::imagePath(), which is created when it is missing;
 * it is empty when the key is.
 *
 * @code
 * setWindowTitle(CCompanyStrings::getCompanyShortName() + QLatin1Char(' ') + CCompanyStrings::getProductName(101));
 * @endcode
 *
 * Any thread may call these functions, message handlers included, see \ref threads.
 * @see \ref application_support
 * @since 1.0
 */
class TLXCORE_EXPORT CCompanyStrings
{
public:
    static QString getCompanyLongName();   ///< The full name.
    static QString getCompanyMediumName(); ///< A name of medium length.
    static QString getCompanyShortName();  ///< The abbreviation.
    static QString getAddressName();       ///< The name line of the postal address.
    static QString getAddressStreet();     ///< The street line.
    static QString getAddressCity();       ///< Postcode and city.
    static QString getAddressHtml();       ///< The whole address with telephone and fax, an HTML fragment.
    static QString getWebUrl();            ///< The web address.
    static QString getEMail();             ///< The general mail address.
    static QString getLogoAndNameBitmapFile_145x52();          ///< Image file, 145×52 pixels.
    static QString getLogoAndNameBitmapFile_105x30();          ///< Image file, 105×30 pixels.
    static QString getLogoAndNameBitmapFile_105x30_inverted(); ///< The same for dark backgrounds.
    static QString getLogoBitmapFile_32x32();                  ///< Image file, 32×32 pixels.
    static QString getLogoBitmapFile_16x16();                  ///< Image file, 16×16 pixels.
    static QString getUpdateVersionFile();   ///< Address of the text that names the current version.
    static QString getUpdatePath();          ///< Address of the download folder.
    static QString getUpdateChangelogFile(); ///< Address of the change log.
    static QString getOpenSourceUrl();       ///< Web address of the open-source notices.

    /// Returns the section of product `n`: "PRODUCT12" for 12.
    static QString productSection(int n);

    /// Returns the product's display name, or the name of its section if it has none.
    static QString getProductName(int n);

    /// Returns the executable in CPath::binPath(), which is created if missing; that directory alone if none is named.
    static QString getProductExeFile(int n);

    static QString getProductSplashScreenBitmapFile(int n); ///< Image file of the splash screen.
    static QString getProductEMailAddress(int n);           ///< The product's own mail address.
    static QString getProductUpdateVersionFile(int n);      ///< As getUpdateVersionFile(), for the product.
    static QString getProductUpdatePath(int n);             ///< As getUpdatePath(), for the product.
    static QString getProductUpdateChangelogFile(int n);    ///< As getUpdateChangelogFile(), for the product.

    /// Returns the image file that `key` names, such as "COMPANY/Logo_16x16".
    static QString getImageFile(const QString& key);

private:
    struct SSettings;
    static SSettings mSettings;
};

#endif // TLXCORE_CCOMPANYSTRINGS_H
