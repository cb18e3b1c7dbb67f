#ifndef TLXCORE_CDEVICELIST_H
#define TLXCORE_CDEVICELIST_H

#include <core/base/QtCompat.h>
#include <core/device/CDeviceItem.h>
#include <core/tlxCoreExport.h>

#include <QMap>
#include <QMetaType>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief A named list of devices, ordered by device number.
 *
 * A number has one entry, except after unite() or in a list read from a stream. If it has several, device() returns the
 * first one, addDevice() replaces the first one, removeDevice() removes all, and size() and the stream count each.
 *
 * `devices` is a QMap, whose insert() replaces. Make a QMultiMap from it to add a second entry under one key.
 *
 * @code
 * CDeviceList list(QStringLiteral("Hall 3"), CDeviceList::SOURCE_NONE);
 * list.addDevice(5, item);         // the copy's number is 5
 * list.device(7).isValid();        // false: no such device
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CDeviceList
{
public:
    /// Where a list came from. The tools define the sources, so any 32-bit value is allowed.
    enum ESourceType : qint32
    {
        SOURCE_NONE = 0 ///< Not set.
    };

    /// Constructs a list without name, source and devices.
    CDeviceList() = default;

    /// Constructs a named list without devices.
    CDeviceList(const QString& listName, ESourceType type);

    /// Shares name and devices. Moving does the same: what was moved from keeps them.
    CDeviceList(const CDeviceList& other) noexcept;
    /// Shares as the constructor does.
    CDeviceList& operator=(const CDeviceList& other) noexcept;

    /// Returns the number of entries. Several entries under one number count each.
    int size() const { return static_cast<int>(devices.size()); }
    /// The same as size().
    int count() const { return size(); }

    /// Returns true if the list has an entry of this number.
    bool contains(unsigned int number) const { return devices.contains(number); }

    /// Returns a copy of the first entry of this number, or a default item, which is not valid.
    CDeviceItem device(unsigned int number) const { return devices.value(number); }

    /// Stores a copy under `number` and sets the copy's number to `number`. Replaces the first entry of this number.
    void addDevice(unsigned int number, const CDeviceItem& item);

    /// Removes every entry of this number.
    void removeDevice(unsigned int number) { devices.remove(number); }

    /**
     * @brief Adds every entry of `other` before those of the same number here, and replaces none.
     *
     * The items are not changed; name and source of this list stay. A list united with itself has every entry twice.
     */
    void unite(const CDeviceList& other);

    /// Removes all devices. Name and source stay.
    void clear() { devices.clear(); }

    /// Compares name, source and the devices in order, with their keys.
    bool operator==(const CDeviceList& other) const;
    /// The negation of operator==.
    bool operator!=(const CDeviceList& other) const { return !(*this == other); }

    QString name;                                       ///< List name.
    ESourceType sourceType = SOURCE_NONE;               ///< Where the list came from.
    NQtCompat::TMap<unsigned int, CDeviceItem> devices; ///< By number, ascending.
};

Q_DECLARE_TYPEINFO(CDeviceList, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CDeviceList)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CDeviceList& list, NQtCompat::THash seed = 0) noexcept;

/// Writes the source as a signed 32-bit integer.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceList::ESourceType& type);
/// Reads the source as a signed 32-bit integer, unchecked.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceList::ESourceType& type);

/// Writes the name as QString, the source as a 32-bit integer, then the devices in Qt's map format, highest key first.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceList& list);
/**
 * @brief Reads what operator<< wrote. Several entries under one key stay, and an item's number may differ from its key.
 *
 * A truncated or damaged stream sets the stream's status and leaves no devices. No memory is reserved for the declared
 * count.
 */
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceList& list);

/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDeviceList& list);

#endif // TLXCORE_CDEVICELIST_H
