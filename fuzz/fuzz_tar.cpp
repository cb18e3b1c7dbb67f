// Archives beside a reference that walks over the bytes; plain ustar archives beside libarchive, too.
#include <core/files/CTar.h>
#include <fuzz/support/Fuzzer.h>
#include <fuzz/support/TarPeer.h>
#include <fuzz/support/TarReference.h>

#include <QFile>

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// One file in memory that every input is written to; CTar opens it by its name.
class MemoryFile
{
public:
    MemoryFile()
        : mHandle(memfd_create("archive", 0))
        , mName(QStringLiteral("/proc/self/fd/%1").arg(mHandle))
    {
        FUZZ_CHECK(mHandle >= 0);
    }

    const QString& name() const { return mName; }

    void set(const QByteArray& bytes) const
    {
        FUZZ_CHECK(ftruncate(mHandle, 0) == 0);
        const auto size = static_cast<std::size_t>(bytes.size());
        FUZZ_CHECK(pwrite(mHandle, bytes.constData(), size, 0) == bytes.size());
    }

private:
    int mHandle;
    QString mName;
};

void checkMember(CTar& tar, int index, const TarReference::SMember& expected)
{
    const CTarFileInfo info = tar.info(index);
    FUZZ_CHECK(info.mName == expected.name && info.mLinkName == expected.linkName);
    FUZZ_CHECK(info.mPos == expected.pos && info.mSize == expected.size && info.mType == expected.type);
    QByteArray data("untouched");
    const bool done = tar.file(index, data);
    FUZZ_CHECK(done == expected.whole);
    FUZZ_CHECK(data == (done ? expected.data : QByteArray("untouched")));
    FUZZ_CHECK(done || !tar.error().isEmpty());
    const int first = tar.index(info.mName);
    FUZZ_CHECK(first >= 0 && first <= index && tar.info(first).mName == info.mName);
}

void checkArchive(CTar& tar, const TarReference& expected, bool loaded)
{
    FUZZ_CHECK(loaded == expected.isGood());
    FUZZ_CHECK(tar.count() == expected.members().size() && tar.names().size() == tar.count());
    for (int i = 0; i < tar.count(); ++i) {
        checkMember(tar, i, expected.members().at(i));
    }
    FUZZ_CHECK(!tar.info(tar.count()).isValid() && !tar.info(-1).isValid());
}

} // namespace

static void fuzz(Input& input)
{
    static const MemoryFile file;
    const bool mended = input.choose(4) != 0;
    const qint64 anywhere = input.take<qint16>();
    QByteArray bytes = input.bytes();
    if (mended) {
        mendHeaders(bytes);
    }
    file.set(bytes);
    CTar tar;
    const bool loaded = tar.loadFile(file.name());
    const TarReference expected(bytes);
    checkArchive(tar, expected, loaded);
    if (loaded && expected.isPlain()) {
        compareWithPeer(tar, bytes);
    }
    qint64 pos = anywhere;
    bool end = false;
    const bool read = tar.readFileHeader(pos, end);
    FUZZ_CHECK(read ? end == (pos == anywhere) : pos == anywhere);
}
