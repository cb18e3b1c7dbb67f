#ifndef TLXCORE_MAPSTREAM_H
#define TLXCORE_MAPSTREAM_H

#include <QDataStream>
#include <QMap>

/**
 * Writes a map in Qt's format, the last entry first, so that a reader that puts each entry in front of those with an equal
 * key restores the order. Qt's own operator does the same only as long as its deprecated part is compiled in; the files do
 * not depend on how the library is built. Reading is left to Qt's operator, which keeps every entry.
 */
template <typename Key, typename Value>
void writeMap(QDataStream& stream, const QMap<Key, Value>& map)
{
    stream << static_cast<quint32>(map.size());
    auto entry = map.constEnd();
    while (entry != map.constBegin()) {
        --entry;
        stream << entry.key() << entry.value();
    }
}

#endif // TLXCORE_MAPSTREAM_H
