#include <core/device/DeviceStatus.h>

#include <QtTest>

class tst_DeviceStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void classify_data();
    void classify();
    void patterns();
};

void tst_DeviceStatus::classify_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("setup");
    QTest::addColumn<bool>("failsafe");
    QTest::addColumn<bool>("mountError");
    const auto row = [](const char* status, bool setup, bool failsafe, bool mountError) {
        QTest::newRow(status) << QString::fromUtf8(status) << setup << failsafe << mountError;
    };
    row("setup", true, false, false);
    row("Device in SetUp mode", true, false, false);
    row("FAILSAFE", false, true, false);
    row("2: failsafe, setup", true, true, false);
    row("Mount Error on sda1", false, false, true);
    row("mount  error", false, false, false);
    row("set up", false, false, false);
    row("ready", false, false, false);
}

void tst_DeviceStatus::classify()
{
    QFETCH(QString, status);
    QFETCH(bool, setup);
    QFETCH(bool, failsafe);
    QFETCH(bool, mountError);

    QCOMPARE(NDeviceStatus::mcSETUP.exactMatch(status), setup);
    QCOMPARE(NDeviceStatus::mcFAILSAFE.exactMatch(status), failsafe);
    QCOMPARE(NDeviceStatus::mcMOUNT_ERROR.exactMatch(status), mountError);
    QCOMPARE(NDeviceStatus::mcANY.exactMatch(status), setup || failsafe || mountError);
}

void tst_DeviceStatus::patterns()
{
    QCOMPARE(NDeviceStatus::mcSETUP.pattern(), QStringLiteral(".*(setup){1,}.*"));
    QCOMPARE(NDeviceStatus::mcFAILSAFE.pattern(), QStringLiteral(".*(failsafe){1,}.*"));
    QCOMPARE(NDeviceStatus::mcMOUNT_ERROR.pattern(), QStringLiteral(".*(mount error){1,}.*"));
    QCOMPARE(NDeviceStatus::mcANY.pattern(), QStringLiteral(".*(setup|failsafe|mount error){1,}.*"));
    QCOMPARE(NDeviceStatus::mcANY.caseSensitivity(), Qt::CaseInsensitive);
}

QTEST_APPLESS_MAIN(tst_DeviceStatus)
#include "tst_DeviceStatus.moc"
