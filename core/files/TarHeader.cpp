#include <core/files/TarHeader.h>

#include <core/base/QtTexts.h>
#include <core/files/CTarFileInfo.h>

#include <QString>

#include <algorithm>
#include <cstring>

namespace {

constexpr char MAGIC_TEXT[] = {'u', 's', 't', 'a', 'r'};
constexpr int OCTAL_DIGITS_MAX = 20; // 60 bits: what always fits

bool isOctalDigit(char byte)
{
    return byte >= '0' && byte <= '7';
}

// Negative when the text does not convert. Plain digits take a shorter road than Qt's conversion, to the same number.
qint64 octalNumber(const char* text, int length)
{
    if (length > 0 && length <= OCTAL_DIGITS_MAX) {
        qint64 value = 0;
        int i = 0;
        for (; i < length && isOctalDigit(text[i]); ++i) {
            value = value * 8 + (text[i] - '0');
        }
        if (i == length) {
            return value;
        }
    }
    bool ok = false;
    const qint64 value = NQtCompat::integerText(QString::fromLatin1(text, length)).toLongLong(&ok, 8);
    return ok ? value : -1;
}

} // namespace

bool TarHeader::isZero() const
{
    return std::all_of(mBlock, mBlock + BLOCK_SIZE, [](char byte) { return byte == 0; });
}

bool TarHeader::hasMagic() const
{
    static_assert(sizeof(MAGIC_TEXT) < MAGIC.width, "one byte follows the compared ones");
    return std::memcmp(mBlock + MAGIC.offset, MAGIC_TEXT, sizeof(MAGIC_TEXT)) == 0;
}

qint32 TarHeader::type() const
{
    switch (mBlock[TYPEFLAG.offset]) {
    case '0':
    case '\0':
        return CTarFileInfo::TYPE_FILE;
    case '2':
        return CTarFileInfo::TYPE_SYMLINK;
    case '5':
        return CTarFileInfo::TYPE_DIRECTORY;
    default:
        return CTarFileInfo::TYPE_INVALID;
    }
}

// Up to the first zero byte like a text. Only where that makes no number, the blank counts with which POSIX lets a
// number end as well: bsdtar fills the field up with it, and the time follows at once.
qint64 TarHeader::size() const
{
    const int length = textLength(SIZE);
    const qint64 value = octalNumber(mBlock + SIZE.offset, length);
    const bool endsWithBlank = length >= SIZE.width && mBlock[SIZE.offset + SIZE.width - 1] == ' ';
    return value < 0 && endsWithBlank ? octalNumber(mBlock + SIZE.offset, SIZE.width) : value;
}

// A text ends at its first zero byte, not with its field: callers know names of 100 characters with the mode behind.
int TarHeader::textLength(const SField& field) const
{
    const int rest = BLOCK_SIZE - field.offset;
    const char* begin = mBlock + field.offset;
    const void* zero = std::memchr(begin, '\0', static_cast<std::size_t>(rest));
    return zero ? static_cast<int>(static_cast<const char*>(zero) - begin) : rest;
}

QLatin1String TarHeader::text(const SField& field) const
{
    return QLatin1String(mBlock + field.offset, textLength(field));
}
