#include <core/device/CCommandLineParser.h>
#include <core/device/CDeviceHardwareId.h>
#include <core/device/CDeviceList.h>
#include <core/device/CIPv6Address.h>
#include <core/device/CMotorBaseName.h>
#include <tests/threads/ThreadWork.h>

namespace {

bool hardwareIds(int seed)
{
    CDeviceHardwareId id(QStringLiteral("A012_003_00%1_Name").arg(seed));
    const QString text = id.fullHardwareId();
    return survives(id) && id.revision() == seed && CDeviceHardwareId::isFullHardwareId(text)
           && CDeviceHardwareId::fullRegExp().exactMatch(text);
}

bool motors(int seed)
{
    CMotorBaseName motor(QStringLiteral("ACME_M100_%1").arg(seed), true);
    const CMotorBaseName copy = motor;
    return survives(motor, CMotorBaseName(true)) && copy == motor && motor.isValid()
           && CMotorBaseName::isValid(motor.fileBaseName(), true) && motor.numberAsI32() == seed
           && CMotorBaseName::fullRegExp(true).isValid() && !CMotorBaseName::defaultMotorBaseName().isEmpty();
}

CDeviceItem device(int seed)
{
    CDeviceItem item(QStringLiteral("drive"), static_cast<CDeviceItem::EHostAddrType>(1),
                     QHostAddress(QStringLiteral("192.0.2.1")), static_cast<unsigned short>(1000 + seed),
                     QStringLiteral("text"));
    item.value2 = 1;
    item.addSubDevice(2, CSubDeviceItem(QStringLiteral("sub")));
    return item;
}

bool devices(int seed)
{
    CDeviceList list(QStringLiteral("hall"), static_cast<CDeviceList::ESourceType>(1));
    list.addDevice(7, device(seed));
    list.addDevice(8, device(seed));
    CDeviceList other;
    other.unite(list);
    return survives(list) && survives(device(seed)) && survives(CSubDeviceItem(QStringLiteral("sub")))
           && other.devices == list.devices && list.device(7).isValid();
}

bool addresses(int seed)
{
    CIPv6Address address;
    const QString text = QStringLiteral("2001:db8::%1").arg(seed + 1);
    const bool parsed = address.setAddress(text);
    return parsed && survives(address) && CIPv6Address(address.str()) == address
           && CIPv6Address(address.byteArray()) == address;
}

bool commandLines(int seed)
{
    QStringList list{QStringLiteral("tool"), QStringLiteral("ip=192.0.2.%1").arg(seed),
                     QStringLiteral("port=0x10")};
    const CCommandLineParser parser(&list);
    const CCommandLineParser copy = parser;
    return copy.count() == parser.count() && copy.ip() == QStringLiteral("192.0.2.%1").arg(seed)
           && copy.port() == 16 && CCommandLineParser::argumentsMap(&list).size() == parser.count();
}

} // namespace

QVector<SThreadWork> deviceWork()
{
    return {{"CDeviceHardwareId", hardwareIds},
            {"CMotorBaseName", motors},
            {"CDeviceList, CDeviceItem, CSubDeviceItem", devices},
            {"CIPv6Address", addresses},
            {"CCommandLineParser", commandLines}};
}
