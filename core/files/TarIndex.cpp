#include <core/files/TarIndex.h>

#include <core/files/TarHeader.h>

#include <QLatin1String>
#include <QRandomGenerator>

void TarIndex::append(const TarHeader& header, qint64 size, qint64 pos)
{
    const QLatin1String name = header.name();
    const QLatin1String link = header.linkName();
    mMembers.push_back({size, pos, mTexts.size(), static_cast<quint16>(name.size()),
                        static_cast<quint16>(link.size()), header.type()});
    mTexts.append(name.begin(), name.end()).append(link.begin(), link.end());
}

CTarFileInfo TarIndex::info(int index) const
{
    const SMember& at = member(index);
    const char* text = mTexts.data() + at.text;
    CTarFileInfo info;
    info.mType = at.type;
    info.mName = index < mNames.size() ? mNames.at(index) : QString::fromLatin1(text, at.nameLength);
    info.mLinkName = QString::fromLatin1(text + at.nameLength, at.linkLength);
    info.mSize = at.size;
    info.mPos = at.pos;
    return info;
}

QList<CTarFileInfo> TarIndex::infos() const
{
    QList<CTarFileInfo> infos;
    infos.reserve(count());
    for (int i = 0; i < count(); ++i) {
        infos.append(info(i));
    }
    return infos;
}

const QStringList& TarIndex::names()
{
    mNames.reserve(count());
    for (int i = static_cast<int>(mNames.size()); i < count(); ++i) {
        mNames.append(info(i).mName);
    }
    return mNames;
}

int TarIndex::find(const QString& name)
{
    if (mHashed < count()) {
        hashNames();
    }
    return name.size() <= mKeys.size() ? indexOf(name, hashOf(name)) : -1;
}

void TarIndex::hashNames()
{
    if (mKeys.isEmpty()) {
        mKeys.resize(TarHeader::BLOCK_SIZE); // a name ends with its header at the latest
        QRandomGenerator::global()->fillRange(mKeys.data(), mKeys.size());
    }
    mNames.reserve(count());
    mFirst.reserve(count());
    for (; mHashed < count(); ++mHashed) {
        if (mNames.size() == mHashed) {
            mNames.append(info(mHashed).mName); // beside its entry in the hash
        }
        const uint hash = hashOf(mNames.at(mHashed));
        if (indexOf(mNames.at(mHashed), hash) < 0) {
            mFirst.insert(hash, mHashed);
        }
    }
}

int TarIndex::indexOf(const QString& name, uint hash) const
{
    for (auto at = mFirst.constFind(hash); at != mFirst.cend() && at.key() == hash; ++at) {
        if (mNames.at(at.value()) == name) {
            return at.value();
        }
    }
    return -1;
}

// Multilinear hashing (Carter and Wegman, "Universal Classes of Hash Functions", 1979), two characters a step: without the
// keys, nobody can choose names that crowd. Qt's text hash has collisions that do not depend on its seed.
uint TarIndex::hashOf(const QString& name) const
{
    const QChar* unit = name.constData();
    const quint64* key = mKeys.constData();
    quint64 sum = 0;
    for (auto left = name.size(); left > 1; left -= 2, unit += 2) {
        sum += *key++ * (unit[0].unicode() + (static_cast<quint64>(unit[1].unicode()) << 16));
    }
    sum += *key * (name.size() % 2 != 0 ? unit->unicode() : 0U);
    return static_cast<uint>(sum >> 32);
}
