#ifndef TLXCORE_CDEVICEITEM_H
#define TLXCORE_CDEVICEITEM_H

#include <core/base/QtCompat.h>
#include <core/device/CSubDeviceItem.h>
#include <core/tlxCoreExport.h>

#include <QHostAddress>
#include <QMap>
#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A device that can be reached over the network: its address and port, texts and flags, and its sub-devices.
 *
 * The fields are public and unchecked; isValid() returns whether the device can be connected to. The tool that fills
 * the further texts, flags and values defines their meaning.
 *
 * @code
 * CDeviceItem item(QStringLiteral("Lift"), type, QHostAddress(QStringLiteral("192.168.0.7")), 1700, QString());
 * item.value2 = 1;
 * item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CDeviceItem
{
public:
    /// The kind of a host address. The tools define the kinds, so any 32-bit value is allowed.
    enum EHostAddrType : qint32
    {
        HOST_ADDR_NONE = 0 ///< Not set; such an item is not valid.
    };

    /// Constructs an item with empty texts, a null address, numbers 0 and flags false.
    CDeviceItem() = default;

    /// Constructs an item with these five fields; the others are as in a default item.
    CDeviceItem(const QString& deviceName, EHostAddrType type, const QHostAddress& address,
                unsigned short devicePort, const QString& text);

    /// Shares texts, address and sub-devices. Moving does the same: what was moved from keeps its fields.
    CDeviceItem(const CDeviceItem& other) noexcept;
    /// Shares as the constructor does.
    CDeviceItem& operator=(const CDeviceItem& other) noexcept;

    /// Returns the name of the device's configuration.
    QString configurationName() const { return mConfigurationName; }
    /// Sets the name of the device's configuration.
    void setConfigurationName(const QString& configurationName) { mConfigurationName = configurationName; }

    /// Returns true if address, port, hostAddrType and value2 are all set: not null and not 0.
    bool isValid() const;

    /// Stores a copy under `key` and sets the copy's number to `key`. Replaces the first entry under this key.
    void addSubDevice(unsigned char key, const CSubDeviceItem& subDevice);

    /// Compares all fields; the sub-devices in order, with their keys.
    bool operator==(const CDeviceItem& other) const;
    /// The negation of operator==.
    bool operator!=(const CDeviceItem& other) const { return !(*this == other); }

    unsigned int number = 0; ///< Device number. CDeviceList::addDevice() sets it to the key.
    QString name;            ///< Device name.
    EHostAddrType hostAddrType = HOST_ADDR_NONE; ///< Kind of the address. Unset: the item is not valid.
    QHostAddress hostAddress;                    ///< Network address. Null: not set.
    unsigned short port = 0;                     ///< TCP or UDP port, 1 to 65535. 0: not set.
    QString extraText;                           ///< Free for the tools, as are the four fields that follow.
    QString extraText2;                          ///< See extraText.
    bool flag1 = false;                          ///< See extraText.
    bool flag2 = false;                          ///< See extraText.
    qint32 value1 = 0;                           ///< See extraText.
    qint32 value2 = 0;                           ///< Free for the tools. 0: the item is not valid.
    NQtCompat::TMap<unsigned char, CSubDeviceItem> subDevices; ///< By number, ascending.

private:
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem& item);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem& item);

    QString mConfigurationName;
};

Q_DECLARE_TYPEINFO(CDeviceItem, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CDeviceItem)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CDeviceItem& item, NQtCompat::THash seed = 0) noexcept;

/// Writes the kind as a signed 32-bit integer.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem::EHostAddrType& type);
/// Reads the kind as a signed 32-bit integer, unchecked.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem::EHostAddrType& type);

/**
 * @brief Writes number, name, hostAddrType, hostAddress, port (16 bits), extraText, extraText2, configurationName,
 * flag1, flag2 (a byte each), value1, value2 and the sub-devices.
 *
 * Other integers have 32 bits. Texts, address and map are in Qt's formats; the map has one-byte keys, highest first.
 */
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem& item);
/**
 * @brief Reads what operator<< wrote. Several sub-devices under one key stay, and a sub-device's number may differ from
 * its key.
 *
 * A truncated or damaged stream sets the stream's status. If it ends within the sub-devices, the item has none.
 */
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem& item);

/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDeviceItem& item);

#endif // TLXCORE_CDEVICEITEM_H
