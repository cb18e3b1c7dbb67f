#ifndef TLXCORE_MAPSTREAM_H
#define TLXCORE_MAPSTREAM_H

#include <core/base/QtCompat.h>

#include <QDataStream>
#include <QIODevice>

#include <utility>

namespace NQtCompat {

/// Adds the entries from the last to the first, each in front of those with an equal key, as Qt 5's QMap::unite().
template <typename Key, typename Value>
void unite(TMap<Key, Value>& map, const TMap<Key, Value>& added)
{
    QMultiMap<Key, Value> united(std::exchange(map, {}));
    auto entry = added.constEnd();
    while (entry != added.constBegin()) {
        --entry;
        united.insert(entry.key(), entry.value());
    }
    map = std::move(united);
}

/**
 * Writes a map in Qt's format, the last entry first, so that a reader that puts each entry in front of those with an equal
 * key restores the order. Qt 5's own operator does the same only as long as its deprecated part is compiled in, and Qt 6's
 * does it for QMultiMap; the files depend on neither.
 */
template <typename Key, typename Value>
void writeMap(QDataStream& stream, const TMap<Key, Value>& map)
{
    stream << static_cast<quint32>(map.size());
    auto entry = map.constEnd();
    while (entry != map.constBegin()) {
        --entry;
        stream << entry.key() << entry.value();
    }
}

/// Reads a map as Qt 5's operator: every entry is kept, an error empties the map, and a status that was bad before stays.
template <typename Key, typename Value>
void readMap(QDataStream& stream, TMap<Key, Value>& map)
{
    const QDataStream::Status before = stream.status();
    if (!stream.device() || !stream.device()->isTransactionStarted()) {
        stream.resetStatus();
    }
    QMultiMap<Key, Value> entries;
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        Key key = {};
        Value value;
        stream >> key >> value;
        if (stream.status() == QDataStream::Ok) {
            entries.insert(key, value);
        }
    }
    if (stream.status() != QDataStream::Ok) {
        entries.clear();
    }
    map = std::move(entries);
    if (before != QDataStream::Ok) {
        stream.resetStatus();
        stream.setStatus(before);
    }
}

} // namespace NQtCompat

#endif // TLXCORE_MAPSTREAM_H
