#ifndef TLXCORE_TARINDEX_H
#define TLXCORE_TARINDEX_H

#include <core/files/CTarFileInfo.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <string>
#include <vector>

class TarHeader;

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
    void hashNames();
    int indexOf(const QString& name, uint hash) const;
    uint hashOf(const QString& name) const;

    std::vector<SMember> mMembers;
    std::string mTexts;
    QStringList mNames;           ///< Of the first members, as far as names were asked for.
    QVector<quint64> mKeys;       ///< Random, of hashOf(): more than a name has pairs of characters.
    QMultiHash<uint, int> mFirst; ///< Index of the first member of each name, by hashOf().
    int mHashed = 0;              ///< Names that are in mFirst.
};

#endif // TLXCORE_TARINDEX_H
