#ifndef TLXCORE_PLATFORM_H
#define TLXCORE_PLATFORM_H

#include <QString>

// What only the operating system knows. One source file a platform; the build picks the one that applies.
namespace NPlatform {

/// The user's documents folder as the shell names it; empty when the shell names none that can be used.
QString documentsFolder();

/// Moves what lies at an absolute path (a link as a link) to the recycle bin; false when it stays where it is.
bool moveToTrash(const QString& path);

/// Renames a file or link; fails when there is something at `to`, also when that came into being just now.
bool renameNew(const QString& from, const QString& to);

} // namespace NPlatform

#endif // TLXCORE_PLATFORM_H
