#include <core/tlxCore.h>
#include <core/tlxCoreQTest.h>
#include <tests/support/ShownValue.h>

#include <QtTest>

#include <algorithm>
#include <functional>

/// What QTest, and so QDebug, shows of the library's values: unequal values never show the same text.
class tst_tlxCoreQTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void everyField_data();
    void everyField();
    void version();
};

namespace {

CDeviceItem lift()
{
    CDeviceItem item(QStringLiteral("Lift"), CDeviceItem::EHostAddrType(2),
                     QHostAddress(QStringLiteral("10.0.0.7")), 1700, QString());
    item.flag1 = true;
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    return item;
}

// Changes of one value each, from the value that all begin with.
template <typename T>
QVector<QByteArray> textsAfter(const T& first, const QVector<std::function<void(T&)>>& changes, bool& unequal)
{
    QVector<QByteArray> texts{shown(first)};
    for (const auto& change : changes) {
        T value(first);
        change(value);
        unequal = unequal && value != first;
        texts.append(shown(value));
    }
    return texts;
}

QVector<QByteArray> deviceItems(bool& unequal)
{
    return textsAfter<CDeviceItem>(
        CDeviceItem(),
        {[](CDeviceItem& item) { item.number = 1; },
         [](CDeviceItem& item) { item.name = QStringLiteral("a"); },
         [](CDeviceItem& item) { item.hostAddrType = CDeviceItem::EHostAddrType(1); },
         [](CDeviceItem& item) { item.hostAddress = QHostAddress(QStringLiteral("10.0.0.1")); },
         [](CDeviceItem& item) { item.port = 1; },
         [](CDeviceItem& item) { item.extraText = QStringLiteral("a"); },
         [](CDeviceItem& item) { item.extraText2 = QStringLiteral("a"); },
         [](CDeviceItem& item) { item.setConfigurationName(QStringLiteral("a")); },
         [](CDeviceItem& item) { item.flag1 = true; }, [](CDeviceItem& item) { item.flag2 = true; },
         [](CDeviceItem& item) { item.value1 = 1; }, [](CDeviceItem& item) { item.value2 = 1; },
         [](CDeviceItem& item) { item.addSubDevice(0, CSubDeviceItem()); },
         [](CDeviceItem& item) { item.addSubDevice(0, CSubDeviceItem(QStringLiteral("a"))); },
         [](CDeviceItem& item) { item.addSubDevice(1, CSubDeviceItem()); }},
        unequal);
}

QVector<QByteArray> deviceLists(bool& unequal)
{
    return textsAfter<CDeviceList>(CDeviceList(),
                                   {[](CDeviceList& list) { list.name = QStringLiteral("a"); },
                                    [](CDeviceList& list) { list.sourceType = CDeviceList::ESourceType(1); },
                                    [](CDeviceList& list) { list.addDevice(0, CDeviceItem()); },
                                    [](CDeviceList& list) { list.addDevice(1, CDeviceItem()); },
                                    [](CDeviceList& list) { list.addDevice(0, lift()); }},
                                   unequal);
}

QVector<QByteArray> motors(bool& unequal)
{
    const CMotorBaseName first(QStringLiteral("A_B"), QStringLiteral("C"), QString(), false);
    const auto made = [](const char* manufacturer, const char* name, const char* number) {
        return [=](CMotorBaseName& motor) {
            motor = CMotorBaseName(QLatin1String(manufacturer), QLatin1String(name), QLatin1String(number),
                                   false);
        };
    };
    return textsAfter<CMotorBaseName>(
        first, {made("A", "B_C", ""), made("A", "B", "C"), made("A_B", "C", "0")}, unequal);
}

QVector<QByteArray> hardwareIds(bool& unequal)
{
    return textsAfter<CDeviceHardwareId>(
        CDeviceHardwareId(),
        {[](CDeviceHardwareId& id) { id.setPrefix(QStringLiteral("A")); },
         [](CDeviceHardwareId& id) { id.setPlatform(static_cast<unsigned short>(1)); },
         [](CDeviceHardwareId& id) { id.setVersion(static_cast<unsigned short>(1)); },
         [](CDeviceHardwareId& id) { id.setRevision(static_cast<unsigned short>(1)); },
         [](CDeviceHardwareId& id) { id.setName(QStringLiteral("A")); }},
        unequal);
}

QVector<QByteArray> tarInfos(bool& unequal)
{
    return textsAfter<CTarFileInfo>(CTarFileInfo(),
                                    {[](CTarFileInfo& info) { info.mType = CTarFileInfo::TYPE_FILE; },
                                     [](CTarFileInfo& info) { info.mType = 4; },
                                     [](CTarFileInfo& info) { info.mName = QStringLiteral("a"); },
                                     [](CTarFileInfo& info) { info.mLinkName = QStringLiteral("a"); },
                                     [](CTarFileInfo& info) { info.mSize = 1; },
                                     [](CTarFileInfo& info) { info.mPos = 1; }},
                                    unequal);
}

using Texts = QVector<QByteArray> (*)(bool& unequal);

} // namespace

void tst_tlxCoreQTest::text_data()
{
    QTest::addColumn<QByteArray>("actual");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* tag, const QByteArray& actual, const char* expected) {
        QTest::newRow(tag) << actual << QByteArray(expected);
    };
    row("default item", shown(CDeviceItem()), "CDeviceItem()");
    row("item", shown(lift()),
        "CDeviceItem(name \"Lift\", hostAddrType 2, hostAddress QHostAddress(\"10.0.0.7\"), port 1700, flag1 "
        "true, "
        "subDevices QMap((3, CSubDeviceItem(number 3, name \"Brake\"))))");
    row("default sub-device", shown(CSubDeviceItem()), "CSubDeviceItem()");
    row("nameless sub-device", shown(CSubDeviceItem(QString())), "CSubDeviceItem(name \"\")");
    row("list", shown(CDeviceList(QStringLiteral("H"), CDeviceList::ESourceType(-1))),
        "CDeviceList(name \"H\", sourceType -1)");
    row("motor", shown(CMotorBaseName(QStringLiteral("ACME_M100_1"), false)),
        "CMotorBaseName(manufacturer \"ACME\", name \"M100\", number \"1\")");
    row("hardware", shown(CDeviceHardwareId(QStringLiteral("A12_3_Board"))),
        "CDeviceHardwareId(prefix \"A\", platform 12, version 3, name \"Board\")");
    row("type", shown(NTypes::TYPE_STRING128), "NTypes::TYPE_STRING128");
    row("first type", shown(NTypes::TYPE_UNKNOWN), "NTypes::TYPE_UNKNOWN");
    row("last type", shown(NTypes::TYPE_CHAR), "NTypes::TYPE_CHAR");
    row("no type", shown(static_cast<NTypes::ETypes>(21)), "NTypes::ETypes(21)");
    row("time unit", shown(CTime::UNIT_US), "CTime::UNIT_US");
    row("unknown time unit", shown(CTime::UNIT_UNKNOWN), "CTime::UNIT_UNKNOWN");
    row("no time unit", shown(static_cast<CTime::ETimeUnit>(-1)), "CTime::ETimeUnit(-1)");
    row("object unit", shown(NUnits::UNIT_RPM), "NUnits::UNIT_RPM");
    row("last object unit", shown(NUnits::UNIT_J), "NUnits::UNIT_J");
    row("no object unit", shown(static_cast<NUnits::EObjectUnit>(126)), "NUnits::EObjectUnit(126)");
    row("entry point", shown(CFTPath::EP_OPT_TARVENIK), "CFTPath::EP_OPT_TARVENIK");
    row("invalid entry point", shown(CFTPath::EP_INVALID), "CFTPath::EP_INVALID");
    row("no entry point", shown(static_cast<CFTPath::EEntryPoint>(3)), "CFTPath::EEntryPoint(3)");
    row("member kind", shown(CTarFileInfo::TYPE_SYMLINK), "CTarFileInfo::TYPE_SYMLINK");
}

void tst_tlxCoreQTest::text()
{
    QFETCH(QByteArray, actual);
    QFETCH(QByteArray, expected);
    QCOMPARE(actual, expected);
}

void tst_tlxCoreQTest::everyField_data()
{
    QTest::addColumn<void*>("texts");
    const auto row = [](const char* tag, Texts texts) {
        QTest::newRow(tag) << reinterpret_cast<void*>(texts);
    };
    row("CDeviceItem", deviceItems);
    row("CDeviceList", deviceLists);
    row("CMotorBaseName", motors);
    row("CDeviceHardwareId", hardwareIds);
    row("CTarFileInfo", tarInfos);
}

void tst_tlxCoreQTest::everyField()
{
    QFETCH(void*, texts);
    bool unequal = true;
    QVector<QByteArray> all = reinterpret_cast<Texts>(texts)(unequal);
    QVERIFY2(unequal, "a row changes nothing that == compares");
    std::sort(all.begin(), all.end());
    const auto twice = std::adjacent_find(all.constBegin(), all.constEnd());
    QVERIFY2(twice == all.constEnd(), twice == all.constEnd() ? "" : twice->constData());
}

void tst_tlxCoreQTest::version()
{
    QCOMPARE(QByteArray(TLXCORE_VERSION_STR), QByteArray(TLX_PROJECT_VERSION));
    QCOMPARE(QByteArray(tlxCoreVersion()), QByteArray(TLX_PROJECT_VERSION));
    const QByteArray numbers = QByteArray::number(TLXCORE_VERSION_MAJOR) + '.'
                               + QByteArray::number(TLXCORE_VERSION_MINOR) + '.'
                               + QByteArray::number(TLXCORE_VERSION_PATCH);
    QCOMPARE(numbers, QByteArray(TLX_PROJECT_VERSION));
    QCOMPARE(TLXCORE_VERSION,
             QT_VERSION_CHECK(TLXCORE_VERSION_MAJOR, TLXCORE_VERSION_MINOR, TLXCORE_VERSION_PATCH));
}

QTEST_GUILESS_MAIN(tst_tlxCoreQTest)
#include "tst_tlxCoreQTest.moc"
