#ifndef TLXCORE_CSUBDEVICEITEM_H
#define TLXCORE_CSUBDEVICEITEM_H

#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A part of a device that has a number of its own: an entry of CDeviceItem::subDevices.
 *
 * @code
 * item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));    // its number becomes 3
 * @endcode
 */
class TLXCORE_EXPORT CSubDeviceItem
{
public:
    /// Number 0, named "Tollan Sub-Device".
    CSubDeviceItem();

    /// Number 0 and this name.
    CSubDeviceItem(const QString& subDeviceName);

    /// Compares both fields.
    bool operator==(const CSubDeviceItem& other) const;
    bool operator!=(const CSubDeviceItem& other) const;

    unsigned char number = 0; ///< Set to the key where the sub-device is added to an item.
    QString name;             ///< What is displayed.
};

Q_DECLARE_TYPEINFO(CSubDeviceItem, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CSubDeviceItem)

/// Agrees with operator==.
TLXCORE_EXPORT uint qHash(const CSubDeviceItem& item, uint seed = 0) noexcept;

/// The number as one byte, the name as QString.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CSubDeviceItem& item);
/// Reads what operator<< wrote; an empty name stays empty. After a short stream check the status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CSubDeviceItem& item);

TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CSubDeviceItem& item);

#endif // TLXCORE_CSUBDEVICEITEM_H
