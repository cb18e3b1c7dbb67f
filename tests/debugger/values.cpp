// Values for the debugger's test: gdb stops in done() and prints those of main().
#include <core/tlxCore.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

CDeviceItem liftItem()
{
    CDeviceItem item(QStringLiteral("Lift"), CDeviceItem::EHostAddrType(2),
                     QHostAddress(QStringLiteral("192.168.0.7")), 1700, QStringLiteral("left"));
    item.flag2 = true;
    item.value2 = -1;
    item.setConfigurationName(QStringLiteral("std"));
    item.addSubDevice(9, CSubDeviceItem(QStringLiteral("Fan")));
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    item.addSubDevice(5, CSubDeviceItem(QStringLiteral("Gate")));
    return item;
}

CDeviceList hallList()
{
    CDeviceList list(QStringLiteral("Hall"), CDeviceList::ESourceType(4));
    CDeviceItem item;
    item.hostAddress = QHostAddress(QStringLiteral("fe80::1"));
    list.addDevice(70000, item);
    return list;
}

CDeviceList single(const QString& name)
{
    CDeviceList list;
    CDeviceItem item;
    item.name = name;
    list.addDevice(7, item);
    return list;
}

CDeviceList twinList()
{
    CDeviceList list = single(QStringLiteral("First"));
    list.unite(single(QStringLiteral("Second")));
    return list;
}

CTarFileInfo linkInfo()
{
    CTarFileInfo info;
    info.mType = CTarFileInfo::TYPE_SYMLINK;
    info.mName = QStringLiteral("now");
    info.mLinkName = QStringLiteral("v2");
    info.mPos = 512;
    return info;
}

volatile int gDone = 0;

void done()
{
    gDone = 1;
}

} // namespace

int main()
{
    const CString32 axis(QStringLiteral("Axis \"1\""));
    const CString128 empty;
    const CVariant nothing;
    const CVariant u16(static_cast<unsigned short>(31));
    const CVariant i64(-5LL);
    const CVariant f64(2.5);
    const CVariant narrowDefault(NTypes::TYPE_U8);
    const CVariant text(CString64(QStringLiteral("Feed")));
    const CVariant character(QChar(u'A'));
    const CVariant bytes(QStringLiteral("abc"), NTypes::TYPE_CHARSTR64);
    const CVariant record(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}});
    const CTime period(1500, CTime::UNIT_MS);
    const CTime odd(5, CTime::UNIT_UNKNOWN);
    const CDateTime made(0x07E803050D07092DLL, Qt::UTC);
    const CDateTime shifted(QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9, 450), Qt::OffsetFromUTC, 3600));
    const CDateTime never;
    const CIPv6Address address(QStringLiteral("fe80:0:0:0:0:0:0:1"));
    const CDeviceHardwareId board(QStringLiteral("A012_003_Board"));
    const CMotorBaseName motor(QStringLiteral("ACME_M100_1"), false);
    const CSubDeviceItem brake(QStringLiteral("Brake"));
    const CDeviceItem noItem;
    const CDeviceItem lift = liftItem();
    const CDeviceList hall = hallList();
    const CDeviceList twins = twinList();
    const CTarFileInfo link = linkInfo();
    const CTime micro(7, CTime::UNIT_US);
    alignas(std::max_align_t) unsigned char damaged[sizeof(CDeviceItem) + sizeof(CTarFileInfo)];
    std::memset(damaged, 0x5A, sizeof(damaged));
    // A list whose map has nodes in a ring: whatever is a pointer in its data leads back to them.
    const void* knot[16];
    std::fill_n(knot, 16, static_cast<const void*>(knot));
    const void* const data = knot;
    alignas(CDeviceList) unsigned char ring[sizeof(CDeviceList)];
    std::memcpy(ring, static_cast<const void*>(&hall), sizeof(ring));
    std::memcpy(ring + (reinterpret_cast<const char*>(&hall.devices) - reinterpret_cast<const char*>(&hall)),
                &data, sizeof(data));
    done();
    return 0;
}
