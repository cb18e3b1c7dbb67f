#include <tools/tlx/devices/DeviceListFile.h>

#include <QIODevice>

namespace {

// Reads entry by entry up to the first part that cannot be read, which becomes the fault with the byte where it begins.
SDeviceListContent readToDamage(QIODevice& device, QDataStream::ByteOrder order)
{
    device.seek(0);
    QDataStream stream(&device);
    stream.setByteOrder(order);
    SDeviceListContent content;
    quint32 count = 0;
    stream >> content.list.name >> content.list.sourceType >> count;
    content.faultByte = 0;
    QString part = QStringLiteral("the list's header");
    QMultiMap<unsigned int, CDeviceItem> devices;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        content.faultByte = device.pos();
        part = QStringLiteral("device %1 of %2").arg(i + 1).arg(count);
        quint32 key = 0;
        CDeviceItem item;
        stream >> key >> item;
        if (stream.status() == QDataStream::Ok) {
            devices.insert(key, item);
        }
    }
    content.list.devices = devices;
    const bool isCut = stream.status() == QDataStream::ReadPastEnd;
    content.fault =
        part + (isCut ? QStringLiteral(" is cut off by the end of the file") : QStringLiteral(" is damaged"));
    return content;
}

} // namespace

namespace NDeviceListFile {

SDeviceListContent read(QIODevice& device, QDataStream::ByteOrder order)
{
    device.seek(0);
    QDataStream stream(&device);
    stream.setByteOrder(order);
    SDeviceListContent content;
    stream >> content.list;
    if (stream.status() != QDataStream::Ok) {
        return readToDamage(device, order);
    }
    if (!device.atEnd()) {
        content.fault = QStringLiteral("%1 bytes follow the list").arg(device.size() - device.pos());
        content.faultByte = device.pos();
    }
    return content;
}

SDeviceListContent readWithHint(QIODevice& device, QDataStream::ByteOrder order)
{
    SDeviceListContent content = read(device, order);
    const bool isBig = order == QDataStream::BigEndian;
    const auto other = isBig ? QDataStream::LittleEndian : QDataStream::BigEndian;
    if (!content.fault.isEmpty() && read(device, other).fault.isEmpty()) {
        content.fault += isBig ? QStringLiteral(": reads with --little-endian")
                               : QStringLiteral(": reads without --little-endian");
    }
    return content;
}

QByteArray written(const CDeviceList& list, QDataStream::ByteOrder order)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(order);
    stream << list;
    return bytes;
}

} // namespace NDeviceListFile
