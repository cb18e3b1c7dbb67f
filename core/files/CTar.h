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
 * loadFile() indexes all members once; their contents are then read one by one, by index or by name. Nothing is
 * ever written or extracted to disk. Archives of GNU tar ("ustar" and a blank) are read as well.
 *
 * Of a header only name, size, kind, link target and magic are read. The prefix of a long name is not, so such a
 * name comes out as its last part; the checksum is not verified; a text ends at its first zero byte, not at the
 * end of its field, so a name of exactly 100 characters carries the text of the mode field behind it. The size is
 * such a text as well, of octal digits; one that fills its field may end with a blank. Names are Latin-1. Reading
 * a header never leaves its 512 bytes.
 *
 * Every failure returns false and leaves its text, translated with the context "CTar", in error(), where it stays
 * until the next error replaces it. Two failures are silent: a size that is not an octal number, and an unknown
 * member name.
 * @code
 * CTar tar;
 * QByteArray image;
 * if (!tar.loadFile(path) || !tar.file(QStringLiteral("firmware/image.bin"), image)) {
 *     qWarning() << tar.error();
 * }
 * @endcode
 */
class TLXCORE_EXPORT CTar
{
public:
    CTar();
    ~CTar();

    /**
     * @brief Closes the archive that was open, opens and indexes another.
     * @return False when it cannot be opened or a header cannot be read; the members before that header stay
     * indexed then, and the archive stays open.
     *
     * Regular files (and links to them) and Qt's resources are opened: a directory, pipe or device fails.
     */
    bool loadFile(const QString& fileName);

    /// Number of members.
    int count() const;

    /// Member names in archive order.
    QStringList names() const;

    /// Headers of all members in archive order, put together for each call; info() gives one.
    QList<CTarFileInfo> infos() const;

    /// The header of one member; an invalid info when @p index is not in 0 to count() - 1.
    CTarFileInfo info(int index) const;

    /// Index of the first member of this name (exact, case-sensitive), -1 when there is none.
    int index(const QString& name) const;

    /**
     * @brief Reads the contents of one member.
     * @param data takes the contents, and is untouched when the result is false.
     * @return False when no archive is open, there is no such index, or the archive does not hold all bytes that the
     * header promises. No more memory is reserved than the archive has bytes left; error() counts those. A member that
     * does not fit a QByteArray (2 GiB and more) is not read.
     */
    bool file(int index, QByteArray& data);

    /// Reads the contents of the first member of this name; false, without an error text, when there is none.
    bool file(const QString& name, QByteArray& data);

    /// The text of the last error; later successes do not clear it. Empty when there was none.
    QString error() const;

    /**
     * @brief Reads the header block at byte @p pos of the open archive, and adds the member to the index.
     * @param pos moves on to the next header; unchanged when the result is false or the archive ends here.
     * @param end is set when the block is all zero, which ends the archive; it is never cleared.
     * @return False when no archive is open, @p pos is negative, fewer than 512 bytes are left, the magic is not
     * "ustar", or the size is not an octal number from 0 to what a 64-bit position can reach (silently).
     *
     * loadFile() does this from 0 to the end; a member that is read again is in the index again.
     */
    bool readFileHeader(qint64& pos, bool& end);

private:
    Q_DISABLE_COPY(CTar)

    bool open(const QString& fileName);
    bool readHeader(TarReadAhead& blocks, qint64& pos, bool& end);
    bool readData(qint64 start, qint64 size, QByteArray& data);
    bool isMember(int index) const;
    bool fail(const QString& error);

    QString mError;
    QFile mFile;
    std::unique_ptr<TarIndex> mIndex;
};

#endif // TLXCORE_CTAR_H
