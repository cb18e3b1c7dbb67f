#include <tests/exchange/RandomValues.h>

#include <core/tlxCore.h>

#include <QTimeZone>

#include <cstring>

namespace {

constexpr int DEVICE_LIMIT = 4;

template <typename Float>
Float anyFloat(Random& random)
{
    if (random.below(2)) {
        return static_cast<Float>(random.below(2000001) - 1000000) / 1000;
    }
    const quint64 bits = random.bits();
    Float number = 0;
    std::memcpy(&number, &bits, sizeof(number));
    return number;
}

template <int Size>
CVariant anyBytes(Random& random)
{
    char array[Size];
    std::memcpy(array, random.bytes(Size).constData(), Size);
    return CVariant(array);
}

template <typename Text>
Text fixedString(Random& random)
{
    Text text(random.text(150));
    if (random.below(3) == 0) {
        text = random.text(20); // leaves old code units after the terminator
    }
    return text;
}

NTypes::tsDate recordDate(Random& random)
{
    return {random.integer<qint8>(), random.integer<qint8>(), random.integer<qint16>()};
}

NTypes::tsTime recordTime(Random& random)
{
    return {random.integer<qint8>(), random.integer<qint8>(), random.integer<qint8>(),
            random.integer<qint8>()};
}

NTypes::tsDateTime record(Random& random)
{
    return {recordTime(random), recordDate(random)};
}

CVariant typedValue(Random& random)
{
    switch (random.below(20)) {
    case 0:
        return random.integer<unsigned char>();
    case 1:
        return random.integer<signed char>();
    case 2:
        return random.integer<unsigned short>();
    case 3:
        return random.integer<short>();
    case 4:
        return random.integer<unsigned int>();
    case 5:
        return random.integer<int>();
    case 6:
        return random.integer<unsigned long long>();
    case 7:
        return random.integer<long long>();
    case 8:
        return anyFloat<float>(random);
    case 9:
        return anyFloat<double>(random);
    case 10:
        return fixedString<CString32>(random);
    case 11:
        return fixedString<CString64>(random);
    case 12:
        return fixedString<CString128>(random);
    case 13:
        return anyBytes<64>(random);
    case 14:
        return anyBytes<128>(random);
    case 15:
        return anyBytes<256>(random);
    case 16:
        return random.integer<char>();
    case 17:
        return QChar(random.integer<ushort>());
    case 18:
        return record(random);
    default:
        return static_cast<NTypes::ETypes>(random.below(NTypes::TYPE_CHAR + 2));
    }
}

// Parsed values and payloads of another form than their tag, too.
CVariant variant(Random& random)
{
    CVariant value = typedValue(random);
    switch (random.below(4)) {
    case 0:
        value.fromStr(random.below(2) ? QString::number(random.integer<qint64>()) : random.text(40));
        return value;
    case 1:
        value.setDefaultValue(static_cast<NTypes::ETypes>(random.below(NTypes::TYPE_CHAR + 2)));
        return value;
    default:
        return value;
    }
}

CDateTime dateTime(Random& random)
{
    const QDate date = random.below(20) ? QDate(2024, 1, 1).addDays(random.below(800000) - 700000) : QDate();
    const QTime time = random.below(20) ? QTime(0, 0).addMSecs(random.below(86400000)) : QTime();
    switch (random.below(4)) {
    case 0:
        return QDateTime(date, time, Qt::LocalTime);
    case 1:
        return QDateTime(date, time, Qt::UTC);
    case 2:
        return QDateTime(date, time, Qt::OffsetFromUTC, random.below(100801) - 50400);
    default: {
        // Before 1970 Qt 5 takes standard time in every zone, Qt 6 what was in force.
        const QDate recent = QDate(1971, 1, 1).addDays(random.below(23000));
        const char* const zones[] = {"Asia/Tokyo", "America/New_York", "Australia/Lord_Howe", "UTC"};
        return QDateTime(recent, time, QTimeZone(zones[random.below(4)]));
    }
    }
}

CTime duration(Random& random)
{
    return CTime(random.integer<quint64>(), static_cast<CTime::ETimeUnit>(random.below(8)));
}

CDeviceHardwareId hardwareId(Random& random)
{
    return CDeviceHardwareId(random.below(2) ? random.text(30)
                                             : QStringLiteral("A012_003_") + random.text(10));
}

CMotorBaseName motorName(Random& random)
{
    const QString manufacturer = random.text(10);
    const QString name = random.text(10);
    return CMotorBaseName(manufacturer, name, random.text(10), random.below(2) != 0);
}

CIPv6Address ipv6Address(Random& random)
{
    return CIPv6Address(random.bytes(16));
}

CSubDeviceItem subDevice(Random& random)
{
    CSubDeviceItem item(random.text(20));
    item.number = random.integer<unsigned char>();
    return item;
}

QHostAddress hostAddress(Random& random)
{
    switch (random.below(4)) {
    case 0:
        return QHostAddress(random.integer<quint32>());
    case 1: {
        QHostAddress address(reinterpret_cast<const quint8*>(random.bytes(16).constData()));
        address.setScopeId(random.below(2) ? QString() : QString::number(random.below(100)));
        return address;
    }
    case 2:
        return QHostAddress(static_cast<QHostAddress::SpecialAddress>(random.below(7)));
    default:
        return QHostAddress();
    }
}

CDeviceItem device(Random& random)
{
    const QString name = random.text(20);
    const auto type = static_cast<CDeviceItem::EHostAddrType>(random.integer<qint32>());
    const QHostAddress address = hostAddress(random);
    CDeviceItem item(name, type, address, random.integer<quint16>(), random.text(20));
    item.setConfigurationName(random.text(20));
    item.number = random.integer<unsigned int>();
    item.flag1 = random.below(2) != 0;
    item.flag2 = random.below(2) != 0;
    item.value1 = random.integer<qint32>();
    item.value2 = random.integer<qint32>();
    for (int i = random.below(DEVICE_LIMIT); i > 0; --i) {
        const unsigned char key = random.integer<unsigned char>();
        item.addSubDevice(key, subDevice(random));
    }
    return item;
}

// Lists that were united have several devices under a number.
CDeviceList deviceList(Random& random)
{
    const QString name = random.text(20);
    CDeviceList list(name, static_cast<CDeviceList::ESourceType>(random.integer<qint32>()));
    for (int parts = random.below(3); parts >= 0; --parts) {
        CDeviceList part;
        for (int i = random.below(DEVICE_LIMIT); i > 0; --i) {
            const unsigned int key = random.below(2) ? 5 : random.integer<unsigned int>();
            part.addDevice(key, device(random));
        }
        list.unite(part);
    }
    return list;
}

template <typename T>
SRandomClass randomClass(const char* name, T (*make)(Random&))
{
    const auto copy = [](QDataStream& in, QDataStream& out) {
        T value;
        in >> value;
        out << value;
    };
    const auto makeCase = [name, make, copy](Random& random) {
        const T value = make(random);
        return SGoldenCase{name, QByteArray(), [value](QDataStream& stream) { stream << value; }, copy};
    };
    return {name, makeCase, copy};
}

} // namespace

QString Random::text(int maxLength)
{
    const ushort limits[] = {0x80, 0x100, 0xFFFF};
    const ushort limit = limits[below(3)];
    QString text;
    for (int length = below(maxLength); length > 0; --length) {
        text += QChar(static_cast<ushort>(bits() % limit));
    }
    return text;
}

QByteArray Random::bytes(int size)
{
    QByteArray bytes;
    while (bytes.size() < size) {
        bytes += static_cast<char>(bits());
    }
    return bytes;
}

std::vector<SRandomClass> randomClasses()
{
    return {
        randomClass<CString32>("CString32", fixedString<CString32>),
        randomClass<CString64>("CString64", fixedString<CString64>),
        randomClass<CString128>("CString128", fixedString<CString128>),
        randomClass<CVariant>("CVariant", variant),
        randomClass<NTypes::tsDate>("NTypes::tsDate", recordDate),
        randomClass<NTypes::tsTime>("NTypes::tsTime", recordTime),
        randomClass<NTypes::tsDateTime>("NTypes::tsDateTime", record),
        randomClass<CDateTime>("CDateTime", dateTime),
        randomClass<CTime>("CTime", duration),
        randomClass<CDeviceHardwareId>("CDeviceHardwareId", hardwareId),
        randomClass<CMotorBaseName>("CMotorBaseName", motorName),
        randomClass<CIPv6Address>("CIPv6Address", ipv6Address),
        randomClass<CSubDeviceItem>("CSubDeviceItem", subDevice),
        randomClass<CDeviceItem>("CDeviceItem", device),
        randomClass<CDeviceList>("CDeviceList", deviceList),
        randomClass<CDeviceItem::EHostAddrType>(
            "CDeviceItem::EHostAddrType",
            [](Random& random) { return static_cast<CDeviceItem::EHostAddrType>(random.integer<qint32>()); }),
        randomClass<CDeviceList::ESourceType>(
            "CDeviceList::ESourceType",
            [](Random& random) { return static_cast<CDeviceList::ESourceType>(random.integer<qint32>()); }),
    };
}
