#ifndef TLXCORE_CDEVICELIST_H
#define TLXCORE_CDEVICELIST_H

#include <core/device/CDeviceItem.h>
#include <core/tlxCoreExport.h>

#include <QMap>
#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A named list of devices by device number, to be kept, exchanged and compared.
 *
 * A number has one entry, except after unite() or in a list read from a stream, which may leave several: then the first
 * one is what device() gives and addDevice() replaces, removeDevice() removes all, and size() and the stream count each.
 *
 * `devices` is a QMap, whose insert() replaces as callers of an ordinary map expect. Code that adds entries beside others
 * of the same key does so through a QMultiMap made from it, as unite() does.
 *
 * @code
 * CDeviceList list(QStringLiteral("Hall 3"), CDeviceList::SOURCE_NONE);
 * list.addDevice(5, item);         // the copy's number is 5
 * list.device(7).isValid();        // false: there is none
 * @endcode
 */
class TLXCORE_EXPORT CDeviceList
{
public:
    /// Where a list came from. The tools define the sources: any 32-bit value may stand here.
    enum ESourceType : qint32
    {
        SOURCE_NONE = 0 ///< Not set.
    };

    /// Without name, source and devices.
    CDeviceList() = default;

    /// Without devices.
    CDeviceList(const QString& listName, ESourceType type);

    /// Shares name and devices. Moving does the same: what was moved from keeps them.
    CDeviceList(const CDeviceList& other) noexcept;
    CDeviceList& operator=(const CDeviceList& other) noexcept;

    /// The number of entries, each of several under one number counted.
    int size() const;
    /// The same as size().
    int count() const;

    /// Whether there is an entry of this number.
    bool contains(unsigned int number) const;

    /// A copy of the first entry of this number; a default item, which is not valid, where there is none.
    CDeviceItem device(unsigned int number) const;

    /// Stores a copy under `number`, in place of the first entry there, and sets the copy's number to `number`.
    void addDevice(unsigned int number, const CDeviceItem& item);

    /// Removes every entry of this number.
    void removeDevice(unsigned int number);

    /**
     * @brief Adds every entry of `other` in front of those of the same number here, and replaces none.
     *
     * The items come as they are, name and source of this list stay. A list united with itself has every entry twice.
     */
    void unite(const CDeviceList& other);

    /// Removes all devices; name and source stay.
    void clear();

    /// Compares name, source and the devices in order, with their keys.
    bool operator==(const CDeviceList& other) const;
    bool operator!=(const CDeviceList& other) const;

    QString name;                            ///< List name.
    ESourceType sourceType = SOURCE_NONE;    ///< Where the list came from.
    QMap<unsigned int, CDeviceItem> devices; ///< By number, ascending.
};

Q_DECLARE_TYPEINFO(CDeviceList, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CDeviceList)

/// Agrees with operator==.
TLXCORE_EXPORT uint qHash(const CDeviceList& list, uint seed = 0) noexcept;

/// A signed 32-bit integer.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceList::ESourceType& type);
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceList::ESourceType& type);

/// The name as QString, the source as a 32-bit integer, the devices in Qt's format of a map, the highest key first.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceList& list);
/**
 * @brief Reads what operator<< wrote. Several entries under one key stay, and an item's number may differ from its key.
 *
 * After a short or damaged stream the status says so, and there are no devices. The declared count reserves nothing.
 */
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceList& list);

TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDeviceList& list);

#endif // TLXCORE_CDEVICELIST_H
