#include <core/device/CDeviceHardwareId.h>
#include <core/device/CIPv6Address.h>
#include <core/device/CMotorBaseName.h>
#include <tests/support/AllocationCounter.h>

#include <QtTest>

/// How often the operations of the hot paths allocate.
class tst_DeviceAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsAtAll();
    void validation();
    void motorValidation();
    void address();

private:
    template <typename Work>
    static int allocationsOf(Work work)
    {
        const qint64 before = AllocationCounter::count();
        work();
        return static_cast<int>(AllocationCounter::count() - before);
    }
};

void tst_DeviceAllocations::countsAtAll()
{
    QCOMPARE(allocationsOf([] { QString(5, QLatin1Char('x')); }), 1);
}

void tst_DeviceAllocations::validation()
{
    const QStringList texts{QStringLiteral("A012_003_001_Name_More"), QStringLiteral("A12"), QString(),
                            QString(100000, QLatin1Char('1'))};
    const CDeviceHardwareId id;
    bool any = false;
    QCOMPARE(allocationsOf([&] {
                 for (const QString& text : texts) {
                     any |= CDeviceHardwareId::isMinimumHardwareId(text);
                     any |= CDeviceHardwareId::isShortHardwareId(text);
                     any |= CDeviceHardwareId::isFullHardwareId(text);
                     any |= id.checkIVR(text);
                 }
             }),
             0);
    QVERIFY(any);
}

void tst_DeviceAllocations::motorValidation()
{
    CMotorBaseName motor;
    const QString part = QStringLiteral("M100");
    bool all = true;
    QCOMPARE(allocationsOf(
                 [&] { all &= motor.setManufacturer(part) && motor.setName(part) && motor.setNumber(part); }),
             0);
    QVERIFY(all);
}

void tst_DeviceAllocations::address()
{
    const QString text = QStringLiteral("2001:db8:85a3:8d3:1319:8a2e:370:7348");
    CIPv6Address address;
    bool parsed = false;
    QCOMPARE(allocationsOf([&] { parsed = address.setAddress(text); }), 0);
    QVERIFY(parsed);
    QString printed;
    QCOMPARE(allocationsOf([&] { printed = address.str(); }), 1);
    QCOMPARE(printed, text);
}

QTEST_APPLESS_MAIN(tst_DeviceAllocations)
#include "tst_DeviceAllocations.moc"
