#ifndef TLX_VERSION_H
#define TLX_VERSION_H

#include <QString>

/// What `tlx --version` prints: the version, then Qt, the compiler and the commit that the program was built from.
QString versionText();

#endif // TLX_VERSION_H
