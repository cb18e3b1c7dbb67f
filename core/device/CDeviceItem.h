#ifndef TLXCORE_CDEVICEITEM_H
#define TLXCORE_CDEVICEITEM_H

#include <core/device/CSubDeviceItem.h>
#include <core/tlxCoreExport.h>

#include <QHostAddress>
#include <QMap>
#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A device that can be reached over the network: address and port, texts and flags of the tools, and its
 * sub-devices by number.
 *
 * A plain value: the fields are public and unchecked, isValid() says whether the device can be connected to. What the
 * further texts, flags and values mean is up to the tool that fills them.
 *
 * @code
 * CDeviceItem item(QStringLiteral("Lift"), type, QHostAddress(QStringLiteral("192.168.0.7")), 1700, QString());
 * item.value2 = 1;
 * item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
 * @endcode
 */
class TLXCORE_EXPORT CDeviceItem
{
public:
    /// The kind of a host address. The tools define the kinds: any 32-bit value may stand here.
    enum EHostAddrType : qint32
    {
        HOST_ADDR_NONE = 0 ///< Not set; such an item is not valid.
    };

    /// Empty texts, a null address, numbers 0, flags false.
    CDeviceItem() = default;

    /// Sets these five fields; the others are as in a default item.
    CDeviceItem(const QString& deviceName, EHostAddrType type, const QHostAddress& address,
                unsigned short devicePort, const QString& text);

    /// Shares texts, address and sub-devices. Moving does the same: what was moved from keeps its fields.
    CDeviceItem(const CDeviceItem& other) noexcept;
    CDeviceItem& operator=(const CDeviceItem& other) noexcept;

    /// The name of the device's configuration.
    QString configurationName() const;
    void setConfigurationName(const QString& configurationName);

    /// Whether address, port, hostAddrType and value2 are all set (not null, not 0).
    bool isValid() const;

    /// Stores a copy under `key`, in place of the first one there, and sets its number to `key`.
    void addSubDevice(unsigned char key, const CSubDeviceItem& subDevice);

    /// Compares all fields; the sub-devices in order, with their keys.
    bool operator==(const CDeviceItem& other) const;
    bool operator!=(const CDeviceItem& other) const;

    unsigned int number = 0; ///< Device number; set to the key where the item is added to a list.
    QString name;            ///< Device name.
    EHostAddrType hostAddrType = HOST_ADDR_NONE; ///< Kind of address; not valid while it is not set.
    QHostAddress hostAddress;                    ///< Null: not set.
    unsigned short port = 0;                     ///< 0: not set.
    QString extraText;  ///< Of the tools' own meaning, as the four fields that follow.
    QString extraText2; ///< See extraText.
    bool flag1 = false; ///< See extraText.
    bool flag2 = false; ///< See extraText.
    qint32 value1 = 0;  ///< See extraText.
    qint32 value2 = 0;  ///< 0: the item is not valid.
    QMap<unsigned char, CSubDeviceItem> subDevices; ///< By number, ascending.

private:
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem& item);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem& item);

    QString mConfigurationName;
};

Q_DECLARE_TYPEINFO(CDeviceItem, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CDeviceItem)

/// Agrees with operator==.
TLXCORE_EXPORT uint qHash(const CDeviceItem& item, uint seed = 0) noexcept;

/// A signed 32-bit integer.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem::EHostAddrType& type);
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem::EHostAddrType& type);

/**
 * @brief Writes number, name, hostAddrType, hostAddress, port (16 bits), extraText, extraText2, configurationName, flag1,
 * flag2 (a byte each), value1, value2 and the sub-devices.
 *
 * Integers are of 32 bits where nothing is said; texts, address and map are in Qt's formats, the map with its keys as
 * one byte, the highest first.
 */
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceItem& item);
/**
 * @brief Reads what operator<< wrote. Several sub-devices under one key stay, and a sub-device's number may differ from
 * its key.
 *
 * After a short or damaged stream the status says so; then the sub-devices are empty, if it is they that could not be
 * read.
 */
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceItem& item);

TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDeviceItem& item);

#endif // TLXCORE_CDEVICEITEM_H
