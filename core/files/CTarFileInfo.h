#ifndef TLXCORE_CTARFILEINFO_H
#define TLXCORE_CTARFILEINFO_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QString>
#include <QtGlobal>

class QDebug;

/**
 * @brief What the header of one archive member says: kind, name, link target, size and place.
 *
 * A plain value, filled by CTar from a header block in the ustar interchange format (IEEE Std 1003.1). A default
 * constructed one is cleared and not valid; so is every member of a kind that CTar does not know (hard links,
 * devices, the long-name records of GNU tar and so on), whose other fields are set nevertheless.
 * @code
 * const CTarFileInfo info = tar.info(tar.index(QStringLiteral("firmware/image.bin")));
 * const qint64 bytes = info.mType == CTarFileInfo::TYPE_FILE ? info.mSize : 0;
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CTarFileInfo
{
public:
    /// Member kinds.
    enum EType : qint32
    {
        TYPE_INVALID = 0,  ///< No member, or one of a kind that is not supported.
        TYPE_FILE = 1,     ///< Regular file.
        TYPE_SYMLINK = 2,  ///< Symbolic link.
        TYPE_DIRECTORY = 3 ///< Directory.
    };

    /// Constructs a cleared, invalid info.
    CTarFileInfo() = default;

    /// Sets the kind to TYPE_INVALID, both texts to empty and both numbers to 0.
    void clear() { *this = CTarFileInfo(); }

    /// Returns true if the kind is not TYPE_INVALID.
    bool isValid() const { return mType != TYPE_INVALID; }

    qint32 mType = TYPE_INVALID; ///< Member kind, an EType.
    QString mName;               ///< Member name.
    QString mLinkName;           ///< Target of a link.
    qint64 mSize = 0;            ///< Size of the member's data in bytes.
    qint64 mPos = 0;             ///< Byte offset of the header block; the data begins 512 bytes later.
};

/// Returns true if all fields are equal.
TLXCORE_EXPORT bool operator==(const CTarFileInfo& left, const CTarFileInfo& right);
/// Returns true if any field differs.
TLXCORE_EXPORT bool operator!=(const CTarFileInfo& left, const CTarFileInfo& right);
/// Returns a hash of all fields.
TLXCORE_EXPORT NQtCompat::THash qHash(const CTarFileInfo& info, NQtCompat::THash seed = 0) noexcept;
/// Shows the enumerator, CTarFileInfo::TYPE_FILE; another number as CTarFileInfo::EType(9).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, CTarFileInfo::EType type);
/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CTarFileInfo& info);

Q_DECLARE_TYPEINFO(CTarFileInfo, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CTarFileInfo)

#endif // TLXCORE_CTARFILEINFO_H
