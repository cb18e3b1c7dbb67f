#include <core/files/CTarFileInfo.h>

#include <core/base/DebugFields.h>

#include <QDebug>
#include <QHash>

#include <iterator>

void CTarFileInfo::clear()
{
    *this = CTarFileInfo();
}

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
    const NQtCompat::THash fields[] = {::qHash(info.mType), ::qHash(info.mName), ::qHash(info.mLinkName),
                                       ::qHash(info.mSize), ::qHash(info.mPos)};
    return qHashRange(std::begin(fields), std::end(fields), seed);
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
