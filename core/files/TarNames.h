#ifndef TLXCORE_TARNAMES_H
#define TLXCORE_TARNAMES_H

#include <QString>
#include <QStringList>

#include <vector>

/**
 * Finds the first of equal names in a list that only grows: a hash table with linear probing, at most half full.
 *
 * Qt's text hash is fast, but an archive can be made whose names all have the same one. Where names crowd like that,
 * the table is made again with a hash that is keyed with random numbers, so that every archive is indexed in a time
 * that grows with its members.
 */
class TarNames
{
public:
    /// Index of the first `name` in `names`, -1 when there is none. `names` is always the same list, or a longer one.
    int find(const QStringList& names, const QString& name);

private:
    struct SSlot
    {
        uint hash;
        int index; ///< -1 in a free slot.
    };

    uint hashOf(const QString& name) const;
    void addNew(const QStringList& names);
    void rebuild(const QStringList& names, std::size_t count);
    std::size_t slotOf(const QStringList& names, const QString& name, uint hash) const;

    std::vector<SSlot> mSlots; ///< A power of two of them.
    std::size_t mUsed = 0;
    int mKnown = 0; ///< Names of the list that are in the table.
    bool mIsKeyed = false;
};

#endif // TLXCORE_TARNAMES_H
