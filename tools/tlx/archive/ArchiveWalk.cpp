#include <tools/tlx/archive/ArchiveWalk.h>

#include <QIODevice>
#include <QStringList>

#include <algorithm>
#include <cstring>
#include <limits>

// The format: IEEE Std 1003.1, pax, "ustar Interchange Format" and "pax Extended Header"; GNU tar's manual, "Basic Tar
// Format", for long names ('L', 'K'), sparse members ('S') and sizes in base-256.

namespace {

constexpr qint64 BLOCK = 512;
constexpr int CHECKSUM_OFFSET = 148;
constexpr int CHECKSUM_WIDTH = 8;

// What extended headers say about the next member.
struct SExtension
{
    QByteArray paxName;
    QByteArray gnuName;
    QByteArray linkName;
    qint64 size = -1;
    bool isSparse = false;
};

QByteArray field(const QByteArray& header, int offset, int width)
{
    return header.mid(offset,
                      static_cast<int>(qstrnlen(header.constData() + offset, static_cast<uint>(width))));
}

bool isChecksumRight(const QByteArray& header)
{
    QByteArray blanked = header;
    blanked.replace(CHECKSUM_OFFSET, CHECKSUM_WIDTH, QByteArray(CHECKSUM_WIDTH, ' '));
    uint sum = 0;
    for (const char byte : qAsConst(blanked)) {
        sum += static_cast<uchar>(byte);
    }
    bool ok = false;
    return field(header, CHECKSUM_OFFSET, CHECKSUM_WIDTH).trimmed().toUInt(&ok, 8) == sum && ok;
}

// The size field: octal digits, or, when its first bit is set, a number in base 256. False when it is neither.
bool readSize(const QByteArray& header, SArchiveMember& member)
{
    constexpr int OFFSET = 124;
    constexpr int WIDTH = 12;
    if ((static_cast<uchar>(header.at(OFFSET)) & 0x80) == 0) {
        bool ok = false;
        member.size = field(header, OFFSET, WIDTH).trimmed().toLongLong(&ok, 8);
        return ok && member.size >= 0;
    }
    member.sizeFrom = "base-256";
    quint64 size = static_cast<uchar>(header.at(OFFSET)) & 0x7F;
    bool fits = true;
    for (int i = 1; i < WIDTH; ++i) {
        fits = fits && size <= (std::numeric_limits<qint64>::max() >> 8);
        size = (size << 8) | static_cast<uchar>(header.at(OFFSET + i));
    }
    member.size = static_cast<qint64>(size);
    return fits && member.size >= 0;
}

// Records "LENGTH KEY=VALUE\n"; what is none ends the reading.
void readPax(const QByteArray& data, SExtension& extension)
{
    int start = 0;
    while (start < data.size()) {
        const int blank = data.indexOf(' ', start);
        const int length = blank < 0 ? 0 : data.mid(start, blank - start).toInt();
        if (length <= blank - start + 1 || length > data.size() - start) {
            return;
        }
        const QByteArray record = data.mid(blank + 1, start + length - blank - 2);
        const QByteArray key = record.left(record.indexOf('='));
        const QByteArray value = record.mid(key.size() + 1);
        if (key == "path" || key == "GNU.sparse.name") {
            extension.paxName = value;
        } else if (key == "linkpath") {
            extension.linkName = value;
        } else if (key == "size") {
            extension.size = value.toLongLong();
        }
        extension.isSparse = extension.isSparse || key.startsWith("GNU.sparse.");
        start += length;
    }
}

void readExtension(QIODevice& archive, const SArchiveMember& member, SExtension& extension)
{
    constexpr qint64 LONGEST = 1 << 20; // no name is longer
    const QByteArray data = archive.read(std::min(member.size, LONGEST));
    if (member.typeflag == 'x') {
        readPax(data, extension);
    } else if (member.typeflag == 'L') {
        extension.gnuName =
            data.left(static_cast<int>(qstrnlen(data.constData(), static_cast<uint>(data.size()))));
    } else if (member.typeflag == 'K') {
        extension.linkName =
            data.left(static_cast<int>(qstrnlen(data.constData(), static_cast<uint>(data.size()))));
    }
}

void readName(const QByteArray& header, const SExtension& extension, SArchiveMember& member)
{
    const bool isPosix = header.mid(257, 6) == QByteArray("ustar\0", 6); // others have no prefix there
    const QByteArray prefix = isPosix ? field(header, 345, 155) : QByteArray();
    member.name = field(header, 0, 100);
    if (!extension.paxName.isEmpty()) {
        member.name = extension.paxName;
        member.nameFrom = "pax";
    } else if (!extension.gnuName.isEmpty()) {
        member.name = extension.gnuName;
        member.nameFrom = "GNU";
    } else if (!prefix.isEmpty()) {
        member.name = prefix + '/' + member.name;
        member.nameFrom = "prefix";
    }
    member.linkName = extension.linkName.isEmpty() ? field(header, 157, 100) : extension.linkName;
}

SArchiveMember memberOf(const QByteArray& header, const SExtension& extension)
{
    SArchiveMember member;
    member.typeflag = header.at(156);
    member.isSizeKnown = readSize(header, member);
    if (extension.size >= 0 && extension.size != member.size) {
        member.size = extension.size;
        member.sizeFrom = "pax";
        member.isSizeKnown = true;
    }
    member.isChecksumRight = isChecksumRight(header);
    member.isSparse = extension.isSparse || member.typeflag == 'S';
    readName(header, extension, member);
    return member;
}

bool isUtf8(const QByteArray& bytes)
{
    return !QString::fromUtf8(bytes).contains(QChar::ReplacementCharacter);
}

bool isAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(),
                       [](char byte) { return static_cast<uchar>(byte) < 0x80; });
}

} // namespace

namespace NArchiveWalk {

QMap<qint64, SArchiveMember> walk(QIODevice& archive)
{
    QMap<qint64, SArchiveMember> members;
    SExtension extension;
    qint64 position = 0;
    while (archive.seek(position)) {
        const QByteArray header = archive.read(BLOCK);
        if (header.size() < BLOCK || !header.mid(257).startsWith("ustar")) {
            break;
        }
        const SArchiveMember member = memberOf(header, extension);
        members.insert(position, member);
        if (!member.isSizeKnown || member.size > archive.size() - position) {
            break;
        }
        if (isExtension(member.typeflag)) {
            readExtension(archive, member, extension);
        } else {
            extension = SExtension();
        }
        position += BLOCK + (member.size + BLOCK - 1) / BLOCK * BLOCK;
    }
    return members;
}

bool isExtension(char typeflag)
{
    return typeflag != 0 && std::strchr("xgLK", typeflag);
}

QString otherFormat(QIODevice& file)
{
    const struct
    {
        QByteArray begin;
        const char* what;
    } formats[] = {{QByteArray("\x1f\x8b", 2), "gzip data: unpack it first, as with gunzip"},
                   {QByteArray("BZh", 3), "bzip2 data: unpack it first, as with bunzip2"},
                   {QByteArray("\xfd"
                               "7zXZ",
                               5),
                    "xz data: unpack it first, as with unxz"},
                   {QByteArray("\x28\xb5\x2f\xfd", 4), "Zstandard data: unpack it first, as with unzstd"},
                   {QByteArray("PK\x03\x04", 4), "a zip archive, not a tar archive"}};
    file.seek(0);
    const QByteArray header = file.read(BLOCK);
    for (const auto& format : formats) {
        if (header.startsWith(format.begin)) {
            return QLatin1String(format.what);
        }
    }
    const bool isOld = header.size() == BLOCK && isChecksumRight(header) && header.at(0) != 0;
    return isOld ? QStringLiteral(
               "a tar archive in the old v7 format, which the library does not read: pack it "
               "again as ustar")
                 : QString();
}

QStringList losses(const SArchiveMember& member, const QString& shown, qint64 shownSize)
{
    QStringList texts;
    const QString whole =
        isUtf8(member.name) ? QString::fromUtf8(member.name) : QString::fromLatin1(member.name);
    if (!member.isChecksumRight) {
        texts << QStringLiteral("wrong checksum: the library does not verify it");
    }
    if (isExtension(member.typeflag)) {
        return texts;
    }
    if (shown.toLatin1() != member.name) {
        texts << (*member.nameFrom == 0
                      ? QStringLiteral("name runs on: it is ") + whole
                      : QStringLiteral("name cut (%1): it is ").arg(QLatin1String(member.nameFrom)) + whole);
    } else if (!isAscii(member.name) && isUtf8(member.name)) {
        texts << QStringLiteral("UTF-8 name shown as Latin-1: it is ") + whole;
    }
    if (member.size != shownSize) {
        texts << QStringLiteral("size is %1 (%2)").arg(member.size).arg(QLatin1String(member.sizeFrom));
    }
    if (member.typeflag == '1') {
        texts << QStringLiteral("hard link without data: the data is that of ")
                     + QString::fromUtf8(member.linkName);
    } else if (member.isSparse) {
        texts << QStringLiteral("sparse: the library has the stored bytes, without the holes");
    } else if (member.typeflag != 0 && !std::strchr("0257", member.typeflag)) {
        texts << QStringLiteral("a kind that is not supported");
    }
    return texts;
}

} // namespace NArchiveWalk
