#ifndef TLXCORE_TARBLOCKS_H
#define TLXCORE_TARBLOCKS_H

#include <QByteArray>
#include <QtGlobal>

class QFile;

/**
 * Hands out the header blocks of an archive in rising order. Where headers lie close together, many are fetched with
 * one large read; where members are large, only the headers are read. Nothing is mapped: a file that another program
 * cuts short gives a short block, not a fault.
 */
class TarBlocks
{
public:
    /// `file` is open.
    explicit TarBlocks(QFile& file);

    /// Makes the bytes at `pos` available, none behind the file's end; false when the file cannot be positioned there.
    bool read(qint64 pos);

    /// The bytes at the position read last.
    const char* data() const { return mBuffer.constData() + mOffset; }

    /// How many of them there are: TarHeader::BLOCK_SIZE, fewer where the file ends.
    int count() const;

private:
    bool fill(qint64 pos, qint64 bytes);
    qint64 bytesToFetch(qint64 pos) const;

    QFile& mFile;
    const qint64 mFileSize;
    QByteArray mBuffer;
    qint64 mStart = 0;    ///< Position of the buffer's first byte in the file.
    qint64 mFilled = 0;   ///< Bytes in the buffer.
    qint64 mOffset = 0;   ///< Offset in the buffer of the position read last.
    qint64 mLastPos = -1; ///< Position read last, -1 before the first.
};

#endif // TLXCORE_TARBLOCKS_H
