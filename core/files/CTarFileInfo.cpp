#include <core/files/CTarFileInfo.h>

#include <core/base/DebugFields.h>

#include <QDebug>
#include <QHash>

bool operator==(const CTarFileInfo& left, const CTarFileInfo& right)
{
    return left.mType == right.mType && left.mName == right.mName && left.mLinkName == right.mLinkName
           && left.mSize == right.mSize && left.mPos == right.mPos;
}

bool operator!=(const CTarFileInfo& left, const CTarFileInfo& right)
{
    return !(left == right);
}

NQtCompat::THash qHash(const CTarFileInfo& info, NQtCompat::THash seed) noexcept
{
    seed = qHash(info.mLinkName, qHash(info.mName, qHash(info.mType, seed)));
    return qHash(info.mPos, qHash(info.mSize, seed));
}

QDebug operator<<(QDebug debug, const CTarFileInfo& info)
{
    DebugFields(debug, "CTarFileInfo")
        .field("type", CTarFileInfo::EType(info.mType))
        .field("name", info.mName)
        .field("linkName", info.mLinkName)
        .field("size", info.mSize)
        .field("pos", info.mPos);
    return debug;
}
