#include <core/files/TarBlocks.h>

#include <core/files/TarHeader.h>

#include <QFile>

#include <algorithm>

namespace {

constexpr qint64 BLOCK = TarHeader::BLOCK_SIZE;
constexpr qint64 NEAR = 4 * 1024;         // closer headers cost less when they are read together
constexpr qint64 READ_AHEAD = 128 * 1024; // stays in the processor's cache

} // namespace

TarBlocks::TarBlocks(QFile& file)
    : mFile(file)
    , mFileSize(file.size())
{}

bool TarBlocks::read(qint64 pos)
{
    const bool isBuffered = pos >= mStart && pos - mStart <= mFilled - BLOCK;
    if (!isBuffered && !fill(pos, bytesToFetch(pos))) {
        return false;
    }
    mOffset = pos - mStart;
    mLastPos = pos;
    return true;
}

int TarBlocks::count() const
{
    return static_cast<int>(std::min(mFilled - mOffset, BLOCK));
}

bool TarBlocks::fill(qint64 pos, qint64 bytes)
{
    mStart = pos;
    mFilled = 0;
    if (pos >= mFileSize) {
        return true; // Qt warns in its log of positions that the file system cannot reach
    }
    if (!mFile.seek(pos)) {
        return false;
    }
    if (mBuffer.size() < bytes) {
        mBuffer = QByteArray(static_cast<int>(bytes), Qt::Uninitialized);
    }
    mFilled = std::max<qint64>(mFile.read(mBuffer.data(), bytes), 0);
    return true;
}

qint64 TarBlocks::bytesToFetch(qint64 pos) const
{
    const bool isNear = mLastPos >= 0 && pos - mLastPos <= NEAR;
    return isNear ? std::max(std::min(mFileSize - pos, READ_AHEAD), BLOCK) : BLOCK;
}
