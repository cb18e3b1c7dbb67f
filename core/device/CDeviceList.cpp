#include <core/device/CDeviceList.h>

#include <core/base/DebugFields.h>
#include <core/base/MapStream.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

CDeviceList::CDeviceList(const QString& listName, ESourceType type)
    : name(listName)
    , sourceType(type)
{}

CDeviceList::CDeviceList(const CDeviceList& other) noexcept = default;

CDeviceList& CDeviceList::operator=(const CDeviceList& other) noexcept = default;

void CDeviceList::addDevice(unsigned int number, const CDeviceItem& item)
{
    devices.insert(number, item)->number = number;
}

void CDeviceList::unite(const CDeviceList& other)
{
    const auto added = other.devices; // `other` may be this very list
    NQtCompat::unite(devices, added);
}

bool CDeviceList::operator==(const CDeviceList& other) const
{
    return name == other.name && sourceType == other.sourceType && devices == other.devices;
}

NQtCompat::THash qHash(const CDeviceList& list, NQtCompat::THash seed) noexcept
{
    seed = qHash(list.name, qHash(static_cast<qint32>(list.sourceType), seed));
    for (auto entry = list.devices.constBegin(); entry != list.devices.constEnd(); ++entry) {
        seed = qHash(entry.value(), qHash(entry.key(), seed));
    }
    return seed;
}

QDataStream& operator<<(QDataStream& stream, const CDeviceList::ESourceType& type)
{
    return stream << static_cast<qint32>(type);
}

QDataStream& operator>>(QDataStream& stream, CDeviceList::ESourceType& type)
{
    return ::operator>><CDeviceList::ESourceType>(stream, type); // Qt's, of any enumeration
}

QDataStream& operator<<(QDataStream& stream, const CDeviceList& list)
{
    stream << list.name << list.sourceType;
    NQtCompat::writeMap(stream, list.devices);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CDeviceList& list)
{
    stream >> list.name >> list.sourceType;
    NQtCompat::readMap(stream, list.devices);
    return stream;
}

QDebug operator<<(QDebug debug, const CDeviceList& list)
{
    DebugFields(debug, "CDeviceList")
        .field("name", list.name)
        .field("sourceType", qint32(list.sourceType))
        .field("devices", list.devices);
    return debug;
}
