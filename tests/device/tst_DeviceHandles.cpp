#include <core/device/CCommandLineParser.h>
#include <core/device/CDeviceHardwareId.h>
#include <core/device/CDeviceList.h>
#include <core/device/CIPv6Address.h>
#include <core/device/CMotorBaseName.h>

#include <tests/support/Handles.h>

#include <QtTest>

static_assert(IS_NOTHROW_HANDLE<CCommandLineParser>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CDeviceHardwareId>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CDeviceItem>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CDeviceList>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CIPv6Address>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CMotorBaseName>, "containers move it without copying it back");
static_assert(IS_NOTHROW_HANDLE<CSubDeviceItem>, "containers move it without copying it back");

/// Copies and moves of the device classes: nothing throws, and what was moved from can be used again.
class tst_DeviceHandles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hardwareId();
    void deviceItem();
    void deviceList();
    void ipv6Address();
    void motorBaseName();
    void subDeviceItem();
    void commandLineParser();
};

void tst_DeviceHandles::hardwareId()
{
    verifyMovedFromIsUsable(CDeviceHardwareId(QStringLiteral("A012_003_001_Board")));
}

void tst_DeviceHandles::deviceItem()
{
    CDeviceItem item(QStringLiteral("Lift"), static_cast<CDeviceItem::EHostAddrType>(1),
                     QHostAddress(QStringLiteral("192.168.0.7")), 1700, QStringLiteral("extra"));
    item.setConfigurationName(QStringLiteral("Hall"));
    item.value2 = 1;
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    verifyMovedFromIsUsable(item);
}

void tst_DeviceHandles::deviceList()
{
    CDeviceList list(QStringLiteral("Hall 3"), static_cast<CDeviceList::ESourceType>(2));
    list.addDevice(5, CDeviceItem());
    verifyMovedFromIsUsable(list);
}

void tst_DeviceHandles::ipv6Address()
{
    verifyMovedFromIsUsable(CIPv6Address(QStringLiteral("fe80:0:0:0:0:0:0:1")));
}

void tst_DeviceHandles::motorBaseName()
{
    verifyMovedFromIsUsable(CMotorBaseName(QStringLiteral("ACME_M100_1"), false));
}

void tst_DeviceHandles::subDeviceItem()
{
    verifyMovedFromIsUsable(CSubDeviceItem(QStringLiteral("Brake")));
}

void tst_DeviceHandles::commandLineParser()
{
    QStringList arguments{QStringLiteral("drvadr=3")};
    const CCommandLineParser parser(&arguments);
    CCommandLineParser source(parser);
    const CCommandLineParser target(std::move(source));
    QCOMPARE(target.driveAddress(), 3);
    QVERIFY(source.count() <= 1); // NOLINT: using it is what is tested
    source = target;
    QCOMPARE(source.driveAddress(), 3);
}

QTEST_APPLESS_MAIN(tst_DeviceHandles)
#include "tst_DeviceHandles.moc"
