#include <core/device/CDeviceItem.h>

#include <core/base/DebugFields.h>
#include <core/base/MapStream.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

CDeviceItem::CDeviceItem(const QString& deviceName, EHostAddrType type, const QHostAddress& address,
                         unsigned short devicePort, const QString& text)
    : name(deviceName)
    , hostAddrType(type)
    , hostAddress(address)
    , port(devicePort)
    , extraText(text)
{}

CDeviceItem::CDeviceItem(const CDeviceItem& other) noexcept = default;

CDeviceItem& CDeviceItem::operator=(const CDeviceItem& other) noexcept = default;

bool CDeviceItem::isValid() const
{
    return !hostAddress.isNull() && port != 0 && hostAddrType != HOST_ADDR_NONE && value2 != 0;
}

void CDeviceItem::addSubDevice(unsigned char key, const CSubDeviceItem& subDevice)
{
    subDevices.insert(key, subDevice)->number = key;
}

bool CDeviceItem::operator==(const CDeviceItem& other) const
{
    return number == other.number && name == other.name && hostAddrType == other.hostAddrType
           && hostAddress == other.hostAddress && port == other.port && extraText == other.extraText
           && extraText2 == other.extraText2 && mConfigurationName == other.mConfigurationName
           && subDevices == other.subDevices && flag1 == other.flag1 && flag2 == other.flag2
           && value1 == other.value1 && value2 == other.value2;
}

NQtCompat::THash qHash(const CDeviceItem& item, NQtCompat::THash seed) noexcept
{
    seed = qHash(item.number, seed);
    seed = qHash(item.name, seed);
    seed = qHash(item.port, seed);
    seed = qHash(item.configurationName(), seed);
    seed = qHash(item.value1, seed);
    return qHash(item.value2, seed);
}

QDataStream& operator<<(QDataStream& stream, const CDeviceItem::EHostAddrType& type)
{
    return stream << static_cast<qint32>(type);
}

QDataStream& operator>>(QDataStream& stream, CDeviceItem::EHostAddrType& type)
{
    return ::operator>><CDeviceItem::EHostAddrType>(stream, type); // Qt's, of any enumeration
}

QDataStream& operator<<(QDataStream& stream, const CDeviceItem& item)
{
    stream << item.number << item.name << item.hostAddrType << item.hostAddress << item.port << item.extraText
           << item.extraText2 << item.mConfigurationName << item.flag1 << item.flag2 << item.value1
           << item.value2;
    NQtCompat::writeMap(stream, item.subDevices);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CDeviceItem& item)
{
    stream >> item.number >> item.name >> item.hostAddrType >> item.hostAddress >> item.port >> item.extraText
        >> item.extraText2 >> item.mConfigurationName >> item.flag1 >> item.flag2 >> item.value1
        >> item.value2;
    NQtCompat::readMap(stream, item.subDevices);
    return stream;
}

QDebug operator<<(QDebug debug, const CDeviceItem& item)
{
    DebugFields(debug, "CDeviceItem")
        .field("number", item.number)
        .field("name", item.name)
        .field("hostAddrType", qint32(item.hostAddrType))
        .field("hostAddress", item.hostAddress)
        .field("port", item.port)
        .field("extraText", item.extraText)
        .field("extraText2", item.extraText2)
        .field("configurationName", item.configurationName())
        .field("flag1", item.flag1)
        .field("flag2", item.flag2)
        .field("value1", item.value1)
        .field("value2", item.value2)
        .field("subDevices", item.subDevices);
    return debug;
}
