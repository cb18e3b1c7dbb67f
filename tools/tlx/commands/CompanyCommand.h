#ifndef TLX_COMPANYCOMMAND_H
#define TLX_COMPANYCOMMAND_H

class QString;

/// The settings file that CCompanyStrings opens on its first question; to be asked before that.
QString settingsFile();

#endif // TLX_COMPANYCOMMAND_H
