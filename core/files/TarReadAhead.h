#ifndef TLXCORE_TARREADAHEAD_H
#define TLXCORE_TARREADAHEAD_H

#include <QtGlobal>

#include <vector>

class QFile;

/**
 * Reads the header blocks of an archive in ascending order. Where headers lie close together, many are read at once;
 * where members are large, only the headers are.
 */
class TarReadAhead
{
public:
    /// `file` is open.
    explicit TarReadAhead(QFile& file);

    /// Reads the block at `pos`, which is not negative. Returns its size: TarHeader::BLOCK_SIZE, less at the file's end.
    qint64 read(qint64 pos);

    /// The block that was read last.
    const char* data() const { return mBuffer.data() + (mLastPos - mStart); }

private:
    QFile& mFile;
    std::vector<char> mBuffer;
    qint64 mStart = 0;  ///< Position in the file of the buffer's first byte.
    qint64 mFilled = 0; ///< Bytes in the buffer.
    qint64 mLastPos = -1;
};

#endif // TLXCORE_TARREADAHEAD_H
