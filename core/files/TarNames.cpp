#include <core/files/TarNames.h>

#include <core/files/TarHeader.h>

#include <QHash>
#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace {

constexpr int NONE = -1;
constexpr std::size_t SLOTS_MIN = 64;
constexpr std::size_t CROWD = 128; // slots passed for one name; a good hash passes a few
constexpr uint QT_SEED = 1;        // with 0 Qt takes a slower hash

// One key for each character that a name can have; it ends with its header block at the latest.
using NameKeys = std::array<quint64, TarHeader::BLOCK_SIZE>;

NameKeys makeKeys()
{
    NameKeys keys;
    std::generate(keys.begin(), keys.end(), [] { return QRandomGenerator::global()->generate64(); });
    return keys;
}

// Multilinear hashing: of two different names, whoever chose them, one pair in 2^32 has the same hash.
uint keyedHash(const QString& name)
{
    static const NameKeys keys = makeKeys();
    quint64 sum = 0;
    for (int i = 0; i < name.size(); ++i) {
        sum += keys[static_cast<std::size_t>(i)] * name.at(i).unicode();
    }
    return static_cast<uint>(sum >> 32);
}

} // namespace

int TarNames::find(const QStringList& names, const QString& name)
{
    if (mKnown < names.size()) {
        addNew(names);
    }
    if (mSlots.empty() || name.size() > TarHeader::BLOCK_SIZE) {
        return NONE;
    }
    return mSlots[slotOf(names, name, hashOf(name))].index;
}

uint TarNames::hashOf(const QString& name) const
{
    return mIsKeyed ? keyedHash(name) : qHash(name, QT_SEED);
}

void TarNames::addNew(const QStringList& names)
{
    for (; mKnown < names.size(); ++mKnown) {
        if (2 * mUsed >= mSlots.size()) {
            rebuild(names, std::max(2 * mSlots.size(), SLOTS_MIN));
        }
        const QString& name = names.at(mKnown);
        uint hash = hashOf(name);
        std::size_t slot = slotOf(names, name, hash);
        const std::size_t passed = (slot - hash) & (mSlots.size() - 1);
        if (passed > CROWD && !mIsKeyed) {
            mIsKeyed = true;
            rebuild(names, mSlots.size());
            hash = hashOf(name);
            slot = slotOf(names, name, hash);
        }
        if (mSlots[slot].index == NONE) {
            mSlots[slot] = {hash, mKnown};
            ++mUsed;
        }
    }
}

// Puts the names that are in the table into a new one of `count` slots.
void TarNames::rebuild(const QStringList& names, std::size_t count)
{
    std::vector<SSlot> old(count, SSlot{0, NONE});
    old.swap(mSlots);
    for (const SSlot& entry : old) {
        if (entry.index != NONE) {
            const QString& name = names.at(entry.index);
            const uint hash = hashOf(name);
            mSlots[slotOf(names, name, hash)] = {hash, entry.index};
        }
    }
}

// The slot that holds the name, or the free one where it belongs.
std::size_t TarNames::slotOf(const QStringList& names, const QString& name, uint hash) const
{
    std::size_t i = hash & (mSlots.size() - 1);
    while (mSlots[i].index != NONE && !(mSlots[i].hash == hash && names.at(mSlots[i].index) == name)) {
        i = (i + 1) & (mSlots.size() - 1);
    }
    return i;
}
