#ifndef TLXCORE_CTAR_H
#define TLXCORE_CTAR_H

#include <core/files/CTarFileInfo.h>
#include <core/tlxCoreExport.h>

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class TarIndex;
class TarReadAhead;

/**
 * @brief Reads archives in the ustar interchange format (IEEE Std 1003.1) from a file.
 *
 * loadFile() indexes all members once. Their contents are then read one by one, by index or by name. Nothing is written
 * or extracted to disk. Archives of GNU tar ("ustar" and a blank) are read, too.
 *
 * Only name, size, kind, link target and magic of a header are read:
 * - The prefix of a long name is ignored, so only the last part of such a name is returned.
 * - The checksum is not verified.
 * - A text ends at its first zero byte, not at the end of its field, so a name of exactly 100 characters continues with
 *   the text of the mode field. Reading never leaves the 512 bytes of the header. Names are Latin-1.
 * - The size is such a text of octal digits. One that fills its field may end with a blank.
 *
 * A failure returns false and sets error() to a text, translated in the context "CTar". The text stays until the next
 * error replaces it. Two failures are silent: a size that is not an octal number, and an unknown member name.
 * @code
 * CTar tar;
 * QByteArray image;
 * if (!tar.loadFile(path) || !tar.file(QStringLiteral("firmware/image.bin"), image)) {
 *     qWarning() << tar.error();
 * }
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CTar
{
public:
    CTar();
    ~CTar();

    /**
     * @brief Closes the open archive, then opens and indexes another.
     * @return false if it cannot be opened or a header cannot be read. The members before that header stay indexed
     * then, and the archive stays open.
     *
     * Regular files (and links to them) and Qt's resources are opened: a directory, pipe or device fails.
     */
    bool loadFile(const QString& fileName);

    /// Returns the number of members.
    int count() const;

    /// Returns the member names in archive order.
    QStringList names() const;

    /// Returns the headers of all members in archive order, assembled by each call; info() returns one.
    QList<CTarFileInfo> infos() const;

    /// Returns the header of one member; an invalid info if @p index is not in 0 to count() - 1.
    CTarFileInfo info(int index) const;

    /// Returns the index of the first member of this name (exact, case-sensitive), or -1 for an unknown name.
    int index(const QString& name) const;

    /**
     * @brief Reads the contents of one member.
     * @param data Receives the contents; untouched if the result is false.
     * @return false if no archive is open, the index is out of range, or the archive does not contain all bytes that
     * the header declares. No more memory is reserved than the archive has bytes left; error() counts those. A member
     * that does not fit a QByteArray (2 GiB and more) is not read.
     */
    bool file(int index, QByteArray& data);

    /// Reads the contents of the first member of this name. Returns false, without an error text, for an unknown name.
    bool file(const QString& name, QByteArray& data);

    /// Returns the text of the last error; later successes do not clear it. Empty if no error occurred.
    QString error() const { return mError; }

    /**
     * @brief Reads the header block at byte @p pos of the open archive, and adds the member to the index.
     * @param pos Moves to the next header; unchanged if the result is false or the archive ends here.
     * @param end Set if the block is all zero, which ends the archive; never cleared.
     * @return false if no archive is open, @p pos is negative, fewer than 512 bytes are left, the magic is not "ustar",
     * or (silently) the size is not an octal number from 0 to what a 64-bit position can reach.
     *
     * loadFile() does this from 0 to the end. A member that is read again is in the index again.
     */
    bool readFileHeader(qint64& pos, bool& end);

private:
    Q_DISABLE_COPY(CTar)

    bool readHeader(TarReadAhead& blocks, qint64& pos, bool& end);
    bool readData(qint64 start, qint64 size, QByteArray& data);
    bool isMember(int index) const;
    bool fail(const QString& error);

    QString mError;
    QFile mFile;
    std::unique_ptr<TarIndex> mIndex;
};

#endif // TLXCORE_CTAR_H
