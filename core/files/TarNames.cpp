#include <core/files/TarNames.h>

#include <core/files/TarHeader.h>

#include <QRandomGenerator>

#include <array>

namespace {

// One key for each character that a name can have; it ends with its header block at the latest.
using NameKeys = std::array<quint64, TarHeader::BLOCK_SIZE>;

const NameKeys& nameKeys()
{
    static const NameKeys keys = [] {
        NameKeys made;
        QRandomGenerator::global()->generate(made.begin(), made.end());
        return made;
    }();
    return keys;
}

} // namespace

// Multilinear hashing: of two different names, whoever chose them, one in 2^32 pairs falls together.
uint qHash(const TarNames::SKey& key, uint seed)
{
    const NameKeys& keys = nameKeys();
    const QChar* characters = key.text.constData();
    quint64 sum = seed;
    for (int i = 0; i < key.text.size(); ++i) {
        sum += keys[static_cast<std::size_t>(i)] * characters[i].unicode();
    }
    return static_cast<uint>(sum >> 32);
}

int TarNames::find(const QStringList& names, const QString& name)
{
    for (; mKnown < names.size(); ++mKnown) {
        const SKey key{names.at(mKnown)};
        if (!mFirst.contains(key)) {
            mFirst.insert(key, mKnown);
        }
    }
    return name.size() > TarHeader::BLOCK_SIZE ? -1 : mFirst.value(SKey{name}, -1);
}
