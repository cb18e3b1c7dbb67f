#include <fuzz/support/TarReference.h>

#include <QRegularExpression>
#include <core/base/QtTexts.h>

#include <limits>

namespace {

constexpr int BLOCK = 512;

QByteArray textAt(const QByteArray& block, int offset)
{
    const int end = block.indexOf('\0', offset);
    return block.mid(offset, end < 0 ? -1 : end - offset);
}

qint64 octal(const QByteArray& text)
{
    bool ok = false;
    const qint64 value = NQtCompat::integerText(QString::fromLatin1(text)).toLongLong(&ok, 8);
    return ok ? value : -1;
}

qint64 sizeOf(const QByteArray& block)
{
    const QByteArray text = textAt(block, 124);
    const qint64 size = octal(text);
    return size < 0 && text.size() >= 12 && text.at(11) == ' ' ? octal(text.left(12)) : size;
}

int kindOf(char flag)
{
    return flag == '0' || flag == '\0' ? 1 : flag == '2' ? 2 : flag == '5' ? 3 : 0;
}

bool isOctalField(const QByteArray& block, int offset, int width)
{
    for (int i = 0; i < width - 1; ++i) {
        if (block.at(offset + i) < '0' || block.at(offset + i) > '7') {
            return false;
        }
    }
    return block.at(offset + width - 1) == '\0';
}

bool isPlainText(const QByteArray& text, int width)
{
    for (const char byte : text) {
        if (byte <= ' ' || byte > '~') {
            return false;
        }
    }
    return text.size() < width;
}

bool isPlainHeader(const QByteArray& block, const TarReference::SMember& member)
{
    const QByteArray name = textAt(block, 0);
    const bool numbers = isOctalField(block, 100, 8) && isOctalField(block, 108, 8)
                         && isOctalField(block, 116, 8) && isOctalField(block, 124, 12)
                         && isOctalField(block, 136, 12);
    return numbers && !name.isEmpty() && isPlainText(name, 100) && isPlainText(textAt(block, 157), 100)
           && member.type != 0 && (member.type == 1 ? !name.endsWith('/') : member.size == 0)
           && block.mid(257, 8)
                  == QByteArray("ustar\0"
                                "00",
                                8)
           && block.at(345) == '\0' && member.whole;
}

QByteArray checksum(QByteArray block)
{
    block.replace(148, 8, "        ");
    uint sum = 0;
    for (const char byte : qAsConst(block)) {
        sum += static_cast<uchar>(byte);
    }
    return QByteArray::number(sum, 8).rightJustified(6, '0') + QByteArray("\0 ", 2);
}

} // namespace

TarReference::TarReference(const QByteArray& bytes)
    : mBytes(bytes)
{
    qint64 pos = 0;
    while (pos <= bytes.size() - BLOCK) {
        const QByteArray block = bytes.mid(static_cast<int>(pos), BLOCK);
        if (block == QByteArray(BLOCK, '\0')) {
            mGood = true;
            return;
        }
        if (!readMember(block, pos)) {
            return;
        }
        pos += BLOCK + (mMembers.last().size + BLOCK - 1) / BLOCK * BLOCK;
    }
}

bool TarReference::readMember(const QByteArray& block, qint64 pos)
{
    const qint64 size = sizeOf(block);
    if (!block.mid(257).startsWith("ustar") || size < 0
        || size > std::numeric_limits<qint64>::max() - pos - 2 * BLOCK) {
        return false;
    }
    SMember member{QString::fromLatin1(textAt(block, 0)),
                   QString::fromLatin1(textAt(block, 157)),
                   kindOf(block.at(156)),
                   pos,
                   size,
                   size <= mBytes.size() - pos - BLOCK,
                   QByteArray()};
    if (member.whole) {
        member.data = mBytes.mid(static_cast<int>(pos) + BLOCK, static_cast<int>(size));
    }
    mPlain = mPlain && isPlainHeader(block, member);
    mMembers.append(member);
    return true;
}

bool hasChecksum(const QByteArray& block)
{
    return block.mid(148, 8) == checksum(block);
}

void mendHeaders(QByteArray& bytes)
{
    qint64 pos = 0;
    while (pos <= bytes.size() - BLOCK) {
        const int offset = static_cast<int>(pos);
        const QByteArray block = bytes.mid(offset, BLOCK);
        if (block == QByteArray(BLOCK, '\0')) {
            return;
        }
        bytes.replace(offset + 257, 5, "ustar");
        bytes.replace(offset + 148, 8, checksum(bytes.mid(offset, BLOCK)));
        const qint64 size = qMax<qint64>(sizeOf(block), 0);
        if (size > bytes.size()) {
            return;
        }
        pos += BLOCK + (size + BLOCK - 1) / BLOCK * BLOCK;
    }
}
