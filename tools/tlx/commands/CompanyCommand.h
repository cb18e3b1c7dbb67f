#ifndef TLX_COMPANYCOMMAND_H
#define TLX_COMPANYCOMMAND_H

#include <QString>

/// The settings file that CCompanyStrings opens on its first question; to be asked before that.
QString settingsFile();

/// Whether the settings have a name for the product.
bool isProduct(int product);

/// Says that they have none.
QString noSuchProduct(int product);

#endif // TLX_COMPANYCOMMAND_H
