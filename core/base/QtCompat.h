#ifndef TLXCORE_QTCOMPAT_H
#define TLXCORE_QTCOMPAT_H

#include <QDebug>
#include <QMap>

/// What Qt 5 and Qt 6 have under different names. The same interface is built with both.
namespace NQtCompat {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

/// What qHash() takes and returns.
using THash = size_t;

/**
 * @brief A map that may hold several entries under a key, as Qt 5's QMap: Qt 6 has a class of its own for that.
 *
 * insert() replaces the first entry of the key, insertMulti() puts an entry in front of them.
 */
template <typename Key, typename Value>
class TMap : public QMultiMap<Key, Value>
{
    using Base = QMultiMap<Key, Value>;

public:
    using typename Base::const_iterator;
    using typename Base::iterator;

    /// An empty map.
    TMap() = default;
    /// Takes every entry.
    TMap(const Base& other)
        : Base(other)
    {}
    /// Takes every entry.
    TMap(const QMap<Key, Value>& other)
        : Base(other)
    {}
    /// Inserts one entry after the other.
    TMap(std::initializer_list<std::pair<Key, Value>> entries)
    {
        for (const auto& entry : entries) {
            insert(entry.first, entry.second);
        }
    }

    /// Replaces the first entry of the key, or adds one.
    iterator insert(const Key& key, const Value& value) { return Base::replace(key, value); }
    /// Adds an entry in front of those of the key.
    iterator insertMulti(const Key& key, const Value& value) { return Base::insert(key, value); }

    /// The first value of the key, or a default one, which is added.
    Value& operator[](const Key& key)
    {
        const iterator found = this->find(key);
        return found != this->end() ? found.value() : Base::insert(key, Value()).value();
    }
    /// The first value of the key, or a default one.
    Value operator[](const Key& key) const { return this->value(key); }
};

/// Shows the entries as Qt 5 shows those of a QMap.
template <typename Key, typename Value>
QDebug operator<<(QDebug debug, const TMap<Key, Value>& map)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "QMap(";
    for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry) {
        debug << '(' << entry.key() << ", " << entry.value() << ')';
    }
    debug << ')';
    return debug;
}

#else

using THash = uint;

template <typename Key, typename Value>
using TMap = QMap<Key, Value>;

#endif

} // namespace NQtCompat

#endif // TLXCORE_QTCOMPAT_H
