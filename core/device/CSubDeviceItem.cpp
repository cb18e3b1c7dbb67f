#include <core/device/CSubDeviceItem.h>

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

bool CSubDeviceItem::operator!=(const CSubDeviceItem& other) const
{
    return !(*this == other);
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
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CSubDeviceItem(" << int(item.number) << ", " << item.name << ')';
    return debug;
}
