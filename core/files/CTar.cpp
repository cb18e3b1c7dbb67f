#include <core/files/CTar.h>

#include <core/files/Platform.h>
#include <core/files/TarHeader.h>
#include <core/files/TarIndex.h>
#include <core/files/TarReadAhead.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 BLOCK = TarHeader::BLOCK_SIZE;
constexpr qint64 BYTE_ARRAY_MAX =
    std::numeric_limits<int>::max() - 32; // room for Qt's own header and a zero byte
constexpr qint64 PIECE = 4096;
constexpr qint64 POSITION_MAX = std::numeric_limits<qint64>::max();

// Whole blocks that a 64-bit position can still move on by behind the header at `pos`.
qint64 largestSize(qint64 pos)
{
    return (POSITION_MAX - BLOCK - pos) / BLOCK * BLOCK;
}

// Qt would open the file whose name ends at a zero character.
bool isRegularOrMissing(const QString& fileName)
{
    if (fileName.contains(QChar(0))) {
        return false;
    }
    const QFileInfo info(fileName);
    return info.isFile() || info.isDir() || !info.exists();
}

} // namespace

CTar::CTar()
    : mIndex(std::make_unique<TarIndex>())
{}

CTar::~CTar() = default;

bool CTar::loadFile(const QString& fileName)
{
    mFile.close();
    mIndex = std::make_unique<TarIndex>();
    mFile.setFileName(fileName);
    // Qt opens a pipe as well, and waits there until somebody writes; a directory it refuses with a text of its own.
    if (!isRegularOrMissing(fileName)) {
        return fail(QCoreApplication::translate("CTar", "ERROR : This is not a regular file !"));
    }
    if (!mFile.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return fail(mFile.errorString());
    }
    TarReadAhead blocks(mFile);
    qint64 pos = 0;
    bool end = false;
    while (!end) {
        if (!readHeader(blocks, pos, end)) {
            return false;
        }
    }
    return true;
}

int CTar::count() const
{
    return mIndex->count();
}

QStringList CTar::names() const
{
    return mIndex->names();
}

QList<CTarFileInfo> CTar::infos() const
{
    return mIndex->infos();
}

CTarFileInfo CTar::info(int index) const
{
    return isMember(index) ? mIndex->info(index) : CTarFileInfo();
}

int CTar::index(const QString& name) const
{
    return mIndex->find(name);
}

bool CTar::file(int index, QByteArray& data)
{
    if (!mFile.isOpen()) {
        return fail(QCoreApplication::translate("CTar", "ERROR: You must open an archive first !"));
    }
    if (!isMember(index)) {
        return fail(
            QCoreApplication::translate("CTar", "ERROR: Index %1 must be between the limits 0 and %2. !")
                .arg(index)
                .arg(count()));
    }
    return readData(mIndex->position(index) + BLOCK, mIndex->size(index), data);
}

bool CTar::file(const QString& name, QByteArray& data)
{
    const int position = index(name);
    return position >= 0 && file(position, data);
}

bool CTar::readFileHeader(qint64& pos, bool& end)
{
    if (!mFile.isOpen()) {
        return fail(mFile.errorString());
    }
    TarReadAhead blocks(mFile);
    return readHeader(blocks, pos, end);
}

bool CTar::readHeader(TarReadAhead& blocks, qint64& pos, bool& end)
{
    if (pos < 0) {
        mFile.seek(pos); // sets the error
        return fail(mFile.errorString());
    }
    const qint64 count = blocks.read(pos);
    if (count < BLOCK) {
        return fail(QCoreApplication::translate(
                        "CTar", "ERROR : The file ist too short. Only %1 bytes read but %2 expected !")
                        .arg(count)
                        .arg(BLOCK));
    }
    const TarHeader header(blocks.data());
    if (header.isZero()) {
        end = true;
        return true;
    }
    if (!header.hasMagic()) {
        // The text names the block's size, not the magic that was found: callers know it so.
        return fail(QCoreApplication::translate("CTar", "ERROR : This is not a tar archive. Header.magic = "
                                                        "\"%1\" but \"ustar\" was expected !")
                        .arg(BLOCK));
    }
    const qint64 size = header.size();
    if (size < 0 || size > largestSize(pos)) {
        return false;
    }
    mIndex->append(header, size, pos);
    pos += BLOCK + (size + BLOCK - 1) / BLOCK * BLOCK;
    return true;
}

bool CTar::readData(qint64 start, qint64 size, QByteArray& data)
{
    const bool fits = size <= BYTE_ARRAY_MAX;
    qint64 count = qBound<qint64>(0, mFile.size() - start, size);
    QByteArray bytes;
    if (fits) {
        bytes.resize(static_cast<int>(count));
        count = NPlatform::readAt(mFile, start, bytes.data(), count);
        bytes.truncate(static_cast<int>(count));
    }
    // Some file systems do not know how large a file is: what can be read counts.
    char piece[PIECE];
    for (qint64 more = 1; more > 0 && count < size; count += more) {
        more = NPlatform::readAt(mFile, start + count, piece, std::min(size - count, PIECE));
        if (fits) {
            bytes.append(piece, static_cast<int>(more));
        }
    }
    if (fits && count == size) {
        data = std::move(bytes);
        return true;
    }
    return fail(QCoreApplication::translate("CTar", "ERROR: %1 bytes read but %2 are expected !")
                    .arg(count)
                    .arg(size));
}

bool CTar::isMember(int index) const
{
    return index >= 0 && index < count();
}

bool CTar::fail(const QString& error)
{
    mError = error;
    return false;
}
