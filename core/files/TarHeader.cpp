#include <core/files/TarHeader.h>

#include <core/base/QtTexts.h>
#include <core/files/CTarFileInfo.h>

#include <QString>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

constexpr int OCTAL_DIGITS_MAX = 20; // 60 bits: what always fits

// Negative when the text does not convert. Plain digits take a shorter road than Qt's conversion, to the same number.
qint64 octalNumber(QLatin1String text)
{
    const auto isDigit = [](char byte) { return byte >= '0' && byte <= '7'; };
    const auto append = [](qint64 value, char digit) { return value * 8 + (digit - '0'); };
    if (!text.isEmpty() && text.size() <= OCTAL_DIGITS_MAX
        && std::all_of(text.begin(), text.end(), isDigit)) {
        return std::accumulate(text.begin(), text.end(), Q_INT64_C(0), append);
    }
    bool ok = false;
    const qint64 value = NQtCompat::integerText(text).toLongLong(&ok, 8);
    return ok ? value : -1;
}

} // namespace

bool TarHeader::isZero() const
{
    return std::all_of(mBlock, mBlock + BLOCK_SIZE, [](char byte) { return byte == 0; });
}

bool TarHeader::hasMagic() const
{
    return std::memcmp(mBlock + MAGIC.offset, "ustar", 5) == 0;
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
    const QLatin1String digits = text(SIZE);
    const qint64 value = octalNumber(digits);
    const bool endsWithBlank = digits.data()[SIZE.width - 1] == ' '; // no number has a zero byte before it
    return value < 0 && endsWithBlank ? octalNumber(QLatin1String(digits.data(), SIZE.width)) : value;
}

// A text ends at its first zero byte, not with its field: callers know names of 100 characters with the mode behind.
QLatin1String TarHeader::text(const SField& field) const
{
    const char* begin = mBlock + field.offset;
    return QLatin1String(begin, std::find(begin, mBlock + BLOCK_SIZE, '\0'));
}
