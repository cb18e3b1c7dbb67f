#ifndef TLXCORE_TARBLOCKS_H
#define TLXCORE_TARBLOCKS_H

#include <QtGlobal>

#include <memory>

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
    const char* data() const { return mPages.get()->bytes + mOffset; }

    /// How many of them there are: TarHeader::BLOCK_SIZE, fewer where the file ends.
    int count() const;

private:
    static constexpr qint64 PAGE = 4096;

    /// Pages of the file go to pages of memory: where the two lie slightly askew, some processors copy at half speed.
    struct alignas(PAGE) SPage
    {
        char bytes[PAGE];
    };

    bool fill(qint64 pos);
    void fetch(qint64 start, qint64 end);

    QFile& mFile;
    std::unique_ptr<SPage[]> mPages;
    qint64 mPageCount = 0;
    qint64 mStart = 0;    ///< Position of the buffer's first byte in the file.
    qint64 mFilled = 0;   ///< Bytes in the buffer.
    qint64 mOffset = 0;   ///< Offset in the buffer of the position read last.
    qint64 mLastPos = -1; ///< Position read last, -1 before the first.
};

#endif // TLXCORE_TARBLOCKS_H
