#ifndef TLXCORE_PLATFORM_H
#define TLXCORE_PLATFORM_H

#include <QString>

// What only the operating system knows. One source file a platform; the build picks the one that applies.
namespace NPlatform {

/// The user's documents folder as the shell names it; empty when the shell names none that can be used.
QString documentsFolder();

} // namespace NPlatform

#endif // TLXCORE_PLATFORM_H
