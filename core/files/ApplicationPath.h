#ifndef TLXCORE_APPLICATIONPATH_H
#define TLXCORE_APPLICATIONPATH_H

#include <QString>

/**
 * Where the running program lies. Qt finds it out at the first call and keeps it in a text that it does not guard, so
 * that two first calls at once are a race: the library asks through here, one thread at a time.
 */
namespace NApplicationPath {

/// QCoreApplication::applicationDirPath().
QString directory();

/// QCoreApplication::applicationFilePath().
QString file();

} // namespace NApplicationPath

#endif // TLXCORE_APPLICATIONPATH_H
