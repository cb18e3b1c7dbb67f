#include <core/files/TarIndex.h>

#include <QLatin1String>

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
    info.mName = QString::fromLatin1(text, at.nameLength);
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
    for (; mHashed < count(); ++mHashed) {
        if (mNames.size() == mHashed) {
            mNames.append(info(mHashed).mName); // beside its entry in the hash
        }
        const QString& own = mNames.at(mHashed);
        const uint hash = mHash(own);
        if (indexOf(own, hash) < 0) {
            mFirst.insert(hash, mHashed);
        }
    }
    return indexOf(name, mHash(name));
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
