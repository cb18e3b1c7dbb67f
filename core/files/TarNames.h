#ifndef TLXCORE_TARNAMES_H
#define TLXCORE_TARNAMES_H

#include <QHash>
#include <QString>
#include <QStringList>

/**
 * Finds the first of equal names in a list that only grows. The hash is keyed with random numbers, so that no archive
 * can be made whose names all fall together and make the search slow (Qt's own text hash lets that happen).
 */
class TarNames
{
public:
    /// Index of the first `name` in `names`, -1 when there is none. `names` is always the same list, or a longer one.
    int find(const QStringList& names, const QString& name);

private:
    struct SKey
    {
        QString text;
        bool operator==(const SKey& other) const { return text == other.text; }
    };
    friend uint qHash(const SKey& key, uint seed);

    QHash<SKey, int> mFirst;
    int mKnown = 0; ///< Names of the list that are in the hash.
};

#endif // TLXCORE_TARNAMES_H
