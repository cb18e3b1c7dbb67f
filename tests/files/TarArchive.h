#ifndef TLXTEST_TARARCHIVE_H
#define TLXTEST_TARARCHIVE_H

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

/// What a header is made of; the defaults are those of a regular file written by a POSIX program.
struct STarMember
{
    QByteArray name;
    QByteArray data;
    char typeflag = '0';
    QByteArray linkName;
    QByteArray size; ///< The size field's bytes; empty: the octal size of `data`.
    QByteArray magic = QByteArray("ustar\0"
                                  "00",
                                  8); ///< Magic and version.
    QByteArray prefix;
};

inline void putField(QByteArray& block, int offset, int width, const QByteArray& bytes)
{
    block.replace(offset, qMin(width, bytes.size()), bytes.left(width));
}

inline QByteArray octal(qint64 value, int digits)
{
    return QByteArray::number(value, 8).rightJustified(digits, '0');
}

/// One header block of 512 bytes with a right checksum.
inline QByteArray tarHeader(const STarMember& member)
{
    QByteArray block(512, '\0');
    putField(block, 0, 100, member.name);
    putField(block, 100, 8, "0000644");
    putField(block, 108, 8, "0001750");
    putField(block, 116, 8, "0001750");
    putField(block, 124, 12, member.size.isEmpty() ? octal(member.data.size(), 11) : member.size);
    putField(block, 136, 12, "14721312345");
    putField(block, 148, 8, "        ");
    block[156] = member.typeflag;
    putField(block, 157, 100, member.linkName);
    putField(block, 257, 8, member.magic);
    putField(block, 345, 155, member.prefix);
    qint64 sum = 0;
    for (const char byte : qAsConst(block)) {
        sum += static_cast<uchar>(byte);
    }
    putField(block, 148, 8, octal(sum, 6) + QByteArray("\0 ", 2));
    return block;
}

/// Header and data, filled up to whole blocks.
inline QByteArray tarMember(const STarMember& member)
{
    const int rest = member.data.size() % 512;
    return tarHeader(member) + member.data + QByteArray(rest == 0 ? 0 : 512 - rest, '\0');
}

/// A member of the given name that holds `size` bytes, all different from their neighbours.
inline QByteArray tarFile(const QByteArray& name, int size)
{
    STarMember member;
    member.name = name;
    for (int i = 0; i < size; ++i) {
        member.data.append(static_cast<char>('A' + i % 53));
    }
    return tarMember(member);
}

/// The two zero blocks at the end of an archive.
inline QByteArray tarEnd()
{
    return QByteArray(1024, '\0');
}

/// Writes `bytes` into a new file of the directory and gives its path; empty when that fails.
inline QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes)
{
    QFile file(dir.filePath(name));
    file.remove(); // some file systems wait for the disk when a file is written over
    const bool ok = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return ok ? file.fileName() : QString();
}

#endif // TLXTEST_TARARCHIVE_H
