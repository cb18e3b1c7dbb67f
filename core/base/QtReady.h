#ifndef TLXCORE_QTREADY_H
#define TLXCORE_QTREADY_H

#include <core/base/StaticObjects.h>

/**
 * What Qt makes at its first use and does not guard is made before a program has threads: the Gregorian calendar when
 * the library is loaded, the program's path when the application object comes into being. A lock around each use would
 * not do: Qt may log there, and a message handler may call the library.
 *
 * A source file that takes dates apart, shows or reads them, or asks for the program's path, includes this header. That
 * takes QtReady.cpp into a program that links the static library, which has no moment of loading.
 */
struct QtReady
{
    QtReady();
};

inline const QtReady gQtReady TLX_INIT_EARLY;

#endif // TLXCORE_QTREADY_H
