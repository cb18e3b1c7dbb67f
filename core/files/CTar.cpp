#include <core/files/CTar.h>

#include <core/files/TarBlocks.h>
#include <core/files/TarHeader.h>
#include <core/files/TarNames.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 BLOCK = TarHeader::BLOCK_SIZE;
constexpr qint64 BYTE_ARRAY_MAX =
    std::numeric_limits<int>::max() - 32; // room for Qt's own header and a zero byte

constexpr qint64 POSITION_MAX = std::numeric_limits<qint64>::max();

qint64 roundedToBlocks(qint64 size)
{
    return (size / BLOCK + (size % BLOCK != 0 ? 1 : 0)) * BLOCK;
}

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

CTar::CTar() = default;

CTar::~CTar() = default;

bool CTar::loadFile(const QString& fileName)
{
    mFile.close();
    mNames.clear();
    mInfos.clear();
    mLookup.reset();
    if (!open(fileName)) {
        return false;
    }
    TarBlocks blocks(mFile);
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
    return mInfos.size();
}

QStringList CTar::names() const
{
    return mNames;
}

QList<CTarFileInfo> CTar::infos() const
{
    return mInfos;
}

CTarFileInfo CTar::info(int index) const
{
    return mInfos.value(index);
}

int CTar::index(const QString& name) const
{
    if (!mLookup) {
        mLookup = std::make_unique<TarNames>();
    }
    return mLookup->find(mNames, name);
}

bool CTar::file(int index, QByteArray& data)
{
    if (!mFile.isOpen()) {
        return fail(QCoreApplication::translate("CTar", "ERROR: You must open an archive first !"));
    }
    if (index < 0 || index >= count()) {
        return fail(
            QCoreApplication::translate("CTar", "ERROR: Index %1 must be between the limits 0 and %2. !")
                .arg(index)
                .arg(count()));
    }
    return readData(mInfos.at(index), data);
}

bool CTar::file(const QString& name, QByteArray& data)
{
    const int position = index(name);
    return position >= 0 && file(position, data);
}

QString CTar::error() const
{
    return mError;
}

bool CTar::readFileHeader(qint64& pos, bool& end)
{
    if (!mFile.isOpen()) {
        return fail(mFile.errorString());
    }
    TarBlocks blocks(mFile);
    return readHeader(blocks, pos, end);
}

// Qt opens a pipe as well, and waits there until somebody writes; a directory it refuses with a text of its own.
bool CTar::open(const QString& fileName)
{
    mFile.setFileName(fileName);
    if (!isRegularOrMissing(fileName)) {
        return fail(QCoreApplication::translate("CTar", "ERROR : This is not a regular file !"));
    }
    if (!mFile.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return fail(mFile.errorString());
    }
    mFileSize = mFile.size();
    return true;
}

bool CTar::readHeader(TarBlocks& blocks, qint64& pos, bool& end)
{
    if (!blocks.read(pos)) {
        return fail(mFile.errorString());
    }
    if (blocks.count() < BLOCK) {
        return fail(QCoreApplication::translate(
                        "CTar", "ERROR : The file ist too short. Only %1 bytes read but %2 expected !")
                        .arg(blocks.count())
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
    append(header, size, pos);
    pos += BLOCK + roundedToBlocks(size);
    return true;
}

void CTar::append(const TarHeader& header, qint64 size, qint64 pos)
{
    mInfos.append(CTarFileInfo());
    CTarFileInfo& info = mInfos.last();
    info.mType = header.type();
    info.mName = header.name();
    info.mLinkName = header.linkName();
    info.mSize = size;
    info.mPos = pos;
    mNames.append(info.mName);
}

bool CTar::readData(const CTarFileInfo& info, QByteArray& data)
{
    const qint64 start = info.mPos + BLOCK;
    if (!mFile.seek(start)) {
        return fail(mFile.errorString());
    }
    const bool fits = info.mSize <= BYTE_ARRAY_MAX;
    if (mFileSize - start < info.mSize) {
        mFileSize = mFile.size(); // it may have grown
    }
    qint64 count = fits ? std::max<qint64>(mFileSize - start, 0) : 0;
    if (count >= info.mSize) {
        QByteArray bytes(static_cast<int>(info.mSize), Qt::Uninitialized);
        count = std::max<qint64>(mFile.read(bytes.data(), info.mSize), 0);
        if (count == info.mSize) {
            data = std::move(bytes);
            return true;
        }
    }
    return fail(QCoreApplication::translate("CTar", "ERROR: %1 bytes read but %2 are expected !")
                    .arg(count)
                    .arg(info.mSize));
}

bool CTar::fail(const QString& error)
{
    mError = error;
    return false;
}
