#ifndef TLXCORE_TARINDEX_H
#define TLXCORE_TARINDEX_H

#include <core/files/CTarFileInfo.h>
#include <core/files/TarNames.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class TarHeader;

/**
 * What CTar knows of an archive's members. Most callers read a few of thousands, so loading keeps the texts in one
 * buffer, as the Latin-1 that they are; QStrings are made of them when somebody asks.
 *
 * Functions that take an index expect one of 0 to count() - 1.
 */
class TarIndex
{
public:
    void clear();
    void append(const TarHeader& header, qint64 size, qint64 pos);

    int count() const { return static_cast<int>(mMembers.size()); }
    bool contains(int index) const { return index >= 0 && index < count(); }

    qint64 size(int index) const { return member(index).size; }
    qint64 position(int index) const { return member(index).pos; }
    CTarFileInfo info(int index) const;
    QList<CTarFileInfo> infos() const;
    const QStringList& names() const;

    /// Index of the first member of this name, -1 when there is none.
    int find(const QString& name) const;

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

    std::vector<SMember> mMembers;
    std::vector<char> mTexts;
    mutable QStringList mNames;                ///< Of the first members, as far as somebody asked for names.
    mutable std::unique_ptr<TarNames> mLookup; ///< Made by the first find().
};

#endif // TLXCORE_TARINDEX_H
