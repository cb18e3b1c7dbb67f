#include <core/files/TarIndex.h>

#include <core/files/TarHeader.h>

#include <QLatin1String>

void TarIndex::clear()
{
    *this = TarIndex();
}

void TarIndex::append(const TarHeader& header, qint64 size, qint64 pos)
{
    const QLatin1String name = header.name();
    const QLatin1String link = header.linkName();
    mMembers.push_back({size, pos, mTexts.size(), static_cast<quint16>(name.size()),
                        static_cast<quint16>(link.size()), header.type()});
    mTexts.insert(mTexts.end(), name.begin(), name.end());
    mTexts.insert(mTexts.end(), link.begin(), link.end());
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

const QStringList& TarIndex::names() const
{
    if (mNames.isEmpty()) {
        mNames.reserve(count());
    }
    for (int i = mNames.size(); i < count(); ++i) {
        mNames.append(QString::fromLatin1(mTexts.data() + member(i).text, member(i).nameLength));
    }
    return mNames;
}

int TarIndex::find(const QString& name) const
{
    if (!mLookup) {
        mLookup = std::make_unique<TarNames>();
    }
    return mLookup->find(names(), name);
}
