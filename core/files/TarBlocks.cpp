#include <core/files/TarBlocks.h>

#include <core/files/Platform.h>
#include <core/files/TarHeader.h>

#include <QFile>

namespace {

constexpr qint64 BLOCK = TarHeader::BLOCK_SIZE;
constexpr qint64 NEAR = 4 * 1024;         // closer headers cost less when they are read together
constexpr qint64 READ_AHEAD = 128 * 1024; // stays in the processor's cache

} // namespace

TarBlocks::TarBlocks(QFile& file)
    : mFile(file)
{}

bool TarBlocks::read(qint64 pos)
{
    const bool isBuffered = pos >= mStart && pos - mStart <= mFilled - BLOCK;
    if (!isBuffered && !fill(pos)) {
        return false;
    }
    mOffset = pos - mStart;
    mLastPos = pos;
    return true;
}

int TarBlocks::count() const
{
    return static_cast<int>(qBound<qint64>(0, mFilled - mOffset, BLOCK));
}

bool TarBlocks::fill(qint64 pos)
{
    mStart = pos;
    mFilled = 0;
    if (pos < 0) {
        return mFile.seek(pos); // sets the file's error
    }
    const bool isNear = mLastPos >= 0 && pos - mLastPos <= NEAR;
    if (isNear) {
        const qint64 start = pos / PAGE * PAGE;
        fetch(start, start + READ_AHEAD);
    } else {
        fetch(pos, pos + BLOCK);
    }
    return true;
}

void TarBlocks::fetch(qint64 start, qint64 end)
{
    const qint64 count = (end - start + PAGE - 1) / PAGE;
    if (mPageCount < count) {
        mPages.reset(new SPage[static_cast<std::size_t>(count)]);
        mPageCount = count;
    }
    mStart = start;
    mFilled = NPlatform::readAt(mFile, start, mPages[0].bytes, end - start);
}
