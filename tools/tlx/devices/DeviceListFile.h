#ifndef TLX_DEVICELISTFILE_H
#define TLX_DEVICELISTFILE_H

#include <core/device/CDeviceList.h>

#include <QDataStream>
#include <QString>

class QIODevice;

/// A device list as far as it can be read from a file.
struct SDeviceListContent
{
    CDeviceList list; ///< Of a damaged file: the devices before the damage.
    QString fault;    ///< What is damaged; empty when the list was read whole and nothing follows it.
    qint64 faultByte = -1;
};

/// Device lists in files, in the library's stream format.
namespace NDeviceListFile {

/// Reads the device from its begin.
SDeviceListContent read(QIODevice& device, QDataStream::ByteOrder order);

/// The same; the fault says whether the other byte order fits.
SDeviceListContent readWithHint(QIODevice& device, QDataStream::ByteOrder order);

/// The bytes of a list.
QByteArray written(const CDeviceList& list, QDataStream::ByteOrder order);

} // namespace NDeviceListFile

#endif // TLX_DEVICELISTFILE_H
