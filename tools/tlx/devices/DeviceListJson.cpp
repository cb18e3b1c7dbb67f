#include <tools/tlx/devices/DeviceListJson.h>

#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace {

QJsonObject objectOf(const QStringList& keys, const QJsonArray& values)
{
    QJsonObject object;
    for (int i = 0; i < keys.size(); ++i) {
        object.insert(keys.at(i), values.at(i));
    }
    return object;
}

// Reads the values of one object; the first that is missing or has the wrong type is named in `fault`.
class Reader
{
public:
    Reader(const QJsonObject& object, const QString& place, QString& fault)
        : mObject(object)
        , mPlace(place)
        , mFault(fault)
    {}

    template <typename Integer>
    Integer integer(const char* key)
    {
        const QJsonValue value = mObject.value(QLatin1String(key));
        const double number = value.toDouble();
        const bool isInteger = value.isDouble() && std::floor(number) == number
                               && number >= std::numeric_limits<Integer>::lowest()
                               && number <= std::numeric_limits<Integer>::max();
        return check(isInteger, key) ? static_cast<Integer>(number) : Integer(0);
    }

    QString text(const char* key)
    {
        const QJsonValue value = mObject.value(QLatin1String(key));
        check(value.isString(), key);
        return value.toString();
    }

    bool flag(const char* key)
    {
        const QJsonValue value = mObject.value(QLatin1String(key));
        check(value.isBool(), key);
        return value.toBool();
    }

    QHostAddress address(const char* key)
    {
        const QJsonValue value = mObject.value(QLatin1String(key));
        const QHostAddress address(value.toString());
        check(value.isNull() || (value.isString() && !address.isNull()), key);
        return value.isNull() ? QHostAddress() : address;
    }

    QJsonArray array(const char* key)
    {
        const QJsonValue value = mObject.value(QLatin1String(key));
        check(value.isArray(), key);
        return value.toArray();
    }

private:
    bool check(bool isRight, const char* key)
    {
        if (!isRight && mFault.isEmpty()) {
            mFault =
                QStringLiteral("%1\"%2\" is missing or has the wrong type").arg(mPlace, QLatin1String(key));
        }
        return isRight;
    }

    const QJsonObject& mObject;
    QString mPlace;
    QString& mFault;
};

CSubDeviceItem subDeviceOf(const QJsonObject& object, const QString& place, unsigned char& key,
                           QString& fault)
{
    Reader reader(object, place, fault);
    CSubDeviceItem item;
    key = reader.integer<unsigned char>("key");
    item.number = reader.integer<unsigned char>("number");
    item.name = reader.text("name");
    return item;
}

// Of several entries under one key a map has the one that was inserted last first.
QMultiMap<unsigned char, CSubDeviceItem> subDevicesOf(const QJsonArray& array, const QString& place,
                                                      QString& fault)
{
    QMultiMap<unsigned char, CSubDeviceItem> items;
    for (int i = array.size(); i-- > 0;) {
        unsigned char key = 0;
        const QString where = place + QStringLiteral("sub-device %1: ").arg(i);
        const CSubDeviceItem item = subDeviceOf(array.at(i).toObject(), where, key, fault);
        items.insert(key, item);
    }
    return items;
}

CDeviceItem deviceOf(const QJsonObject& object, const QString& place, unsigned int& key, QString& fault)
{
    Reader reader(object, place, fault);
    CDeviceItem item;
    key = reader.integer<unsigned int>("key");
    item.number = reader.integer<unsigned int>("number");
    item.name = reader.text("name");
    item.hostAddrType = static_cast<CDeviceItem::EHostAddrType>(reader.integer<qint32>("addressType"));
    item.hostAddress = reader.address("address");
    item.port = reader.integer<unsigned short>("port");
    item.setConfigurationName(reader.text("configuration"));
    item.extraText = reader.text("extraText");
    item.extraText2 = reader.text("extraText2");
    item.flag1 = reader.flag("flag1");
    item.flag2 = reader.flag("flag2");
    item.value1 = reader.integer<qint32>("value1");
    item.value2 = reader.integer<qint32>("value2");
    item.subDevices = subDevicesOf(reader.array("subDevices"), place, fault);
    return item;
}

} // namespace

namespace NDeviceListJson {

QStringList deviceKeys()
{
    return {QStringLiteral("key"),           QStringLiteral("number"),    QStringLiteral("name"),
            QStringLiteral("addressType"),   QStringLiteral("address"),   QStringLiteral("port"),
            QStringLiteral("configuration"), QStringLiteral("extraText"), QStringLiteral("extraText2"),
            QStringLiteral("flag1"),         QStringLiteral("flag2"),     QStringLiteral("value1"),
            QStringLiteral("value2"),        QStringLiteral("valid")};
}

QJsonArray deviceRow(unsigned int key, const CDeviceItem& item)
{
    return {static_cast<qint64>(key),
            static_cast<qint64>(item.number),
            item.name,
            static_cast<qint32>(item.hostAddrType),
            item.hostAddress.isNull() ? QJsonValue() : QJsonValue(item.hostAddress.toString()),
            item.port,
            item.configurationName(),
            item.extraText,
            item.extraText2,
            item.flag1,
            item.flag2,
            item.value1,
            item.value2,
            item.isValid()};
}

QStringList subDeviceKeys()
{
    return {QStringLiteral("key"), QStringLiteral("number"), QStringLiteral("name")};
}

QJsonArray subDeviceRow(unsigned char key, const CSubDeviceItem& item)
{
    return {key, item.number, item.name};
}

QJsonObject toJson(const CDeviceList& list)
{
    QJsonArray devices;
    for (auto entry = list.devices.constBegin(); entry != list.devices.constEnd(); ++entry) {
        QJsonObject device = objectOf(deviceKeys(), deviceRow(entry.key(), entry.value()));
        QJsonArray subDevices;
        const auto& subs = entry.value().subDevices;
        for (auto sub = subs.constBegin(); sub != subs.constEnd(); ++sub) {
            subDevices.append(objectOf(subDeviceKeys(), subDeviceRow(sub.key(), sub.value())));
        }
        device.insert(QStringLiteral("subDevices"), subDevices);
        devices.append(device);
    }
    return {{QStringLiteral("name"), list.name},
            {QStringLiteral("sourceType"), static_cast<qint32>(list.sourceType)},
            {QStringLiteral("devices"), devices}};
}

QByteArray toText(const CDeviceList& list)
{
    return QJsonDocument(toJson(list)).toJson();
}

bool hasPlaceFor(const CDeviceList& list)
{
    CDeviceList again;
    QString fault;
    return fromJson(QJsonDocument::fromJson(toText(list)).object(), again, fault) && again == list;
}

bool fromJson(const QJsonObject& object, CDeviceList& list, QString& fault)
{
    Reader reader(object, QString(), fault);
    list.name = reader.text("name");
    list.sourceType = static_cast<CDeviceList::ESourceType>(reader.integer<qint32>("sourceType"));
    const QJsonArray array = reader.array("devices");
    QMultiMap<unsigned int, CDeviceItem> devices;
    for (int i = array.size(); i-- > 0;) {
        unsigned int key = 0;
        const CDeviceItem item =
            deviceOf(array.at(i).toObject(), QStringLiteral("device %1: ").arg(i), key, fault);
        devices.insert(key, item);
    }
    list.devices = std::move(devices);
    return fault.isEmpty();
}

} // namespace NDeviceListJson
