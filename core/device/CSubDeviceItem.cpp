#include <core/device/CSubDeviceItem.h>

#include <core/base/DebugFields.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

CSubDeviceItem::CSubDeviceItem()
    : name(QStringLiteral("Tollan Sub-Device"))
{}

CSubDeviceItem::CSubDeviceItem(const QString& subDeviceName)
    : name(subDeviceName)
{}

bool CSubDeviceItem::operator==(const CSubDeviceItem& other) const
{
    return number == other.number && name == other.name;
}

NQtCompat::THash qHash(const CSubDeviceItem& item, NQtCompat::THash seed) noexcept
{
    return qHash(item.name, qHash(item.number, seed));
}

QDataStream& operator<<(QDataStream& stream, const CSubDeviceItem& item)
{
    return stream << item.number << item.name;
}

QDataStream& operator>>(QDataStream& stream, CSubDeviceItem& item)
{
    return stream >> item.number >> item.name;
}

QDebug operator<<(QDebug debug, const CSubDeviceItem& item)
{
    const CSubDeviceItem standard;
    DebugFields(debug, "CSubDeviceItem")
        .field("number", int(item.number))
        .field("name", item.name, standard.name);
    return debug;
}
