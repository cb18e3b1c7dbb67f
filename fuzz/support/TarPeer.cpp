#include <fuzz/support/TarPeer.h>

#include <fuzz/support/Check.h>
#include <fuzz/support/TarReference.h>

#ifdef TLXFUZZ_LIBARCHIVE

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace {

QByteArray dataOf(struct archive* peer)
{
    QByteArray data;
    char buffer[4096];
    for (la_ssize_t count = 0; (count = archive_read_data(peer, buffer, sizeof(buffer))) > 0;) {
        data.append(buffer, static_cast<int>(count));
    }
    return data;
}

int kindOf(struct archive_entry* entry)
{
    const auto type = archive_entry_filetype(entry);
    return type == AE_IFREG   ? CTarFileInfo::TYPE_FILE
           : type == AE_IFLNK ? CTarFileInfo::TYPE_SYMLINK
                              : CTarFileInfo::TYPE_DIRECTORY;
}

} // namespace

void compareWithPeer(CTar& tar, const QByteArray& bytes)
{
    const std::unique_ptr<struct archive, int (*)(struct archive*)> peer(archive_read_new(),
                                                                         archive_read_free);
    archive_read_support_format_tar(peer.get());
    const auto size = static_cast<std::size_t>(bytes.size());
    if (archive_read_open_memory(peer.get(), bytes.constData(), size) != ARCHIVE_OK) {
        return;
    }
    struct archive_entry* entry = nullptr;
    int index = 0;
    for (int status = 0; (status = archive_read_next_header(peer.get(), &entry)) >= ARCHIVE_WARN; ++index) {
        if (status == ARCHIVE_EOF) {
            FUZZ_CHECK(index == tar.count());
            return;
        }
        FUZZ_CHECK(index < tar.count());
        const CTarFileInfo info = tar.info(index);
        if (status == ARCHIVE_RETRY) { // CTar does not look at the checksum
            FUZZ_CHECK(!hasChecksum(bytes.mid(static_cast<int>(info.mPos), 512)));
            return;
        }
        FUZZ_CHECK(info.mName == QString::fromLatin1(archive_entry_pathname(entry)));
        FUZZ_CHECK(info.mType == kindOf(entry));
        FUZZ_CHECK(info.mType != CTarFileInfo::TYPE_SYMLINK
                   || info.mLinkName == QString::fromLatin1(archive_entry_symlink(entry)));
        QByteArray data;
        FUZZ_CHECK(tar.file(index, data) && data == dataOf(peer.get()));
    }
}

#else

void compareWithPeer(CTar& /*tar*/, const QByteArray& /*bytes*/) {}

#endif
