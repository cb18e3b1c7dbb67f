#ifndef TLXCORE_CSUBDEVICEITEM_H
#define TLXCORE_CSUBDEVICEITEM_H

#include <core/base/QtCompat.h>
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
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CSubDeviceItem
{
public:
    /// Constructs number 0, named "Tollan Sub-Device".
    CSubDeviceItem();

    /// Constructs number 0 with this name.
    CSubDeviceItem(const QString& subDeviceName);

    /// Compares both fields.
    bool operator==(const CSubDeviceItem& other) const;
    /// The negation of operator==.
    bool operator!=(const CSubDeviceItem& other) const { return !(*this == other); }

    unsigned char number = 0; ///< Sub-device number. CDeviceItem::addSubDevice() sets it to the key.
    QString name;             ///< Display name.
};

Q_DECLARE_TYPEINFO(CSubDeviceItem, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CSubDeviceItem)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CSubDeviceItem& item, NQtCompat::THash seed = 0) noexcept;

/// Writes the number as one byte, then the name as QString.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CSubDeviceItem& item);
/// Reads what operator<< wrote; an empty name stays empty. Check the stream's status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CSubDeviceItem& item);

/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CSubDeviceItem& item);

#endif // TLXCORE_CSUBDEVICEITEM_H
