#ifndef TLX_DEVICELISTJSON_H
#define TLX_DEVICELISTJSON_H

#include <core/device/CDeviceList.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

/// Device lists as JSON: what `devices` shows, and what its export writes and its import reads.
namespace NDeviceListJson {

/// The keys of a device without its sub-devices, in order.
QStringList deviceKeys();

/// The values of deviceKeys() for an entry of a list, and, last, whether the device is valid.
QJsonArray deviceRow(unsigned int key, const CDeviceItem& item);

/// The keys of a sub-device: its key in the map, its number, its name.
QStringList subDeviceKeys();
QJsonArray subDeviceRow(unsigned char key, const CSubDeviceItem& item);

/// The whole list, entries in the list's order, several under one key as well.
QJsonObject toJson(const CDeviceList& list);

/// The text of a file that holds the list.
QByteArray toText(const CDeviceList& list);

/// False when the list would not be read back equal, since an address has no text form that is read back.
bool hasPlaceFor(const CDeviceList& list);

/// Reads what toJson() made. False, with what is wrong and where in `fault`, when a value is missing or has the wrong type.
bool fromJson(const QJsonObject& object, CDeviceList& list, QString& fault);

} // namespace NDeviceListJson

#endif // TLX_DEVICELISTJSON_H
