#ifndef TLXCORE_TARINDEX_H
#define TLXCORE_TARINDEX_H

#include <core/files/CTarFileInfo.h>
#include <core/files/TarHeader.h>

#include <QHash>
#include <QList>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <array>
#include <deque>
#include <string>

/**
 * A hash of member names under random keys, so that nobody can choose names that crowd: Qt's text hash has collisions that
 * do not depend on its seed. It is multilinear (Carter and Wegman, "Universal Classes of Hash Functions", 1979), two
 * characters a step.
 */
class TarNameHash
{
public:
    TarNameHash()
    {
        QRandomGenerator::global()->fillRange(mKeys.data(), static_cast<qsizetype>(mKeys.size()));
    }

    uint operator()(const QString& name) const
    {
        const QChar* character = name.constData();
        const quint64* key = mKeys.data();
        quint64 sum = 0;
        auto left = std::min<qsizetype>(name.size(),
                                        TarHeader::BLOCK_SIZE); // a name ends with its header at the latest
        for (; left > 1; left -= 2, character += 2) {
            sum += *key++ * (character[0].unicode() + (static_cast<quint64>(character[1].unicode()) << 16));
        }
        return static_cast<uint>((left == 1 ? sum + *key * character->unicode() : sum) >> 32);
    }

private:
    std::array<quint64, TarHeader::BLOCK_SIZE / 2> mKeys;
};

/**
 * What CTar knows of an archive's members. Most callers read a few of thousands, so loading keeps the texts as the Latin-1
 * that they are; names() makes QStrings of them, and the first find() a hash of those.
 *
 * Functions that take an index expect one of 0 to count() - 1.
 */
class TarIndex
{
public:
    void append(const TarHeader& header, qint64 size, qint64 pos);

    int count() const { return static_cast<int>(mMembers.size()); }

    qint64 size(int index) const { return member(index).size; }
    qint64 position(int index) const { return member(index).pos; }
    CTarFileInfo info(int index) const;
    QList<CTarFileInfo> infos() const;
    const QStringList& names();

    /// Returns the index of the first member of this name, -1 for an unknown name.
    int find(const QString& name);

private:
    struct SMember
    {
        qint64 size;
        qint64 pos;
        std::size_t text; ///< Where in mTexts the name begins; the link name follows it.
        quint16 nameLength;
        quint16 linkLength;
        qint32 type;
    };

    const SMember& member(int index) const { return mMembers[static_cast<std::size_t>(index)]; }
    int indexOf(const QString& name, uint hash) const;

    std::deque<SMember> mMembers;
    std::string mTexts;
    QStringList mNames; ///< Of the first members, as far as names were asked for.
    TarNameHash mHash;
    QMultiHash<uint, int> mFirst; ///< Index of the first member of each name, by mHash.
    int mHashed = 0;              ///< Members whose names are in mFirst.
};

#endif // TLXCORE_TARINDEX_H
