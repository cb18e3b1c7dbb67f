#ifndef TLX_OPENARCHIVE_H
#define TLX_OPENARCHIVE_H

#include <core/files/CTar.h>
#include <tools/tlx/archive/ArchiveWalk.h>
#include <tools/tlx/archive/Extraction.h>
#include <tools/tlx/input/InputFile.h>

/// An archive as the library indexes it, and beside it what the library does not read.
class OpenArchive
{
public:
    /**
     * @brief Opens the file, or standard input for "-".
     *
     * False when it cannot be opened. A damaged archive is open with the members before the damage, which is said in the
     * report with its byte.
     */
    bool open(const QString& name, Report& report);

    CTar& tar() { return mTar; }
    const CTar& tar() const { return mTar; }
    QIODevice& device() { return mInput.device(); }

    QString kindName(int index) const;    ///< "file", "link", "directory" or "other".
    bool isExtension(int index) const;    ///< The header only says something about other members.
    QStringList losses(int index) const;  ///< What the library's view of the member lacks.
    QString wholeName(int index) const;   ///< With what the library does not read of it.
    QString wholeTarget(int index) const; ///< The same of a link's target.
    bool
    hasWholeData(int index) const;     ///< The library reads its data from first to last byte, without holes.
    qint64 dataStart(int index) const; ///< The byte at which the data begins.
    int find(const QString& name) const; ///< The first member of this name, as shown or whole; -1 for none.

private:
    SArchiveMember member(int index) const;
    void reportDamage(Report& report);

    InputFile mInput;
    CTar mTar;
    QMap<qint64, SArchiveMember> mMembers; // by the byte of the header
};

#endif // TLX_OPENARCHIVE_H
