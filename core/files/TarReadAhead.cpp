#include <core/files/TarReadAhead.h>

#include <core/files/Platform.h>
#include <core/files/TarHeader.h>

#include <algorithm>

namespace {

constexpr qint64 BLOCK = TarHeader::BLOCK_SIZE;
constexpr qint64 NEAR = 4 * 1024;         // closer headers cost less when they are read together
constexpr qint64 READ_AHEAD = 128 * 1024; // stays in the processor's cache

} // namespace

TarReadAhead::TarReadAhead(QFile& file)
    : mFile(file)
{}

qint64 TarReadAhead::read(qint64 pos)
{
    const bool isBuffered = pos >= mStart && pos - mStart <= mFilled - BLOCK;
    if (!isBuffered) {
        const bool isNear = mLastPos >= 0 && pos - mLastPos <= NEAR;
        // Twice as much as before, so that a small archive costs no large buffer.
        const qint64 wanted = isNear ? qBound(NEAR, 2 * mFilled, READ_AHEAD) : BLOCK;
        mBuffer.resize(std::max(mBuffer.size(), static_cast<std::size_t>(wanted)));
        mStart = pos;
        mFilled = NPlatform::readAt(mFile, pos, mBuffer.data(), wanted);
    }
    mLastPos = pos;
    return std::min(mFilled - (pos - mStart), BLOCK);
}
