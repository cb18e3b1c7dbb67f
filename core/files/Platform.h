#ifndef TLXCORE_PLATFORM_H
#define TLXCORE_PLATFORM_H

#include <QHash>
#include <QString>
#include <QStringList>
#include <QtGlobal>

class QFile;

// What only the operating system knows. One source file a platform; the build picks the one that applies.
namespace NPlatform {

/// The user's documents folder as the shell names it; empty when the shell names none that can be used.
QString documentsFolder();

/// Moves what lies at an absolute path (a link as a link) to the recycle bin; false when it stays where it is.
bool moveToTrash(const QString& path);

/// Renames a file or link; fails when there is something at `to`, also when that came into being just now.
bool renameNew(const QString& from, const QString& to);

/// The directory has an entry, not a hidden one, that Qt's listings lack: its name is in no encoding of the system.
bool hasUnlistedEntry(const QString& directory);

/// Copies files one by one, and writes the copies through to the disk together where the system can.
class FileCopier
{
public:
    FileCopier() = default;
    ~FileCopier();

    /// Copies a file with its permissions. `to` comes into being as a whole; fails when there is something at `to`.
    bool copyNew(const QString& from, const QString& to);

    /// Waits until all copies are on the disk; removes them when that fails.
    bool writeThrough();

private:
    Q_DISABLE_COPY(FileCopier)

    QStringList mCopies;
    QHash<quint64, int> mFileSystems; ///< An open file of each one that has copies.
};

/// Reads up to `size` bytes at a position of an open, unbuffered file; how many there were, 0 after an error.
qint64 readAt(QFile& file, qint64 pos, char* data, qint64 size);

/// The key of a settings file in the form by which QSettings compares keys here.
QString settingsKey(const QString& key);

} // namespace NPlatform

#endif // TLXCORE_PLATFORM_H
