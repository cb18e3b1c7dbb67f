#ifndef TLXCORE_CFTPATH_H
#define TLXCORE_CFTPATH_H

#include <core/tlxCoreExport.h>

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>

class QDebug;

/**
 * @brief The entry points of a drive's file transfer: names for the directories of its file system.
 *
 * A drive keeps its files in a small fixed set of directories. Tools name them by entry point ("CONSTCONFIG/file.ini"
 * for "/opt/TARVENIK/etc/conf/file.ini"). Paths on the drive are absolute, with "/", and do not depend on the host.
 *
 * | Value | Entry point        | Name           | Path on the drive         |
 * |-------|--------------------|----------------|---------------------------|
 * | 0     | EP_INVALID         | "<invalid>"    | "<invalid>": none         |
 * | 1     | EP_CONSTCONFIG     | "CONSTCONFIG"  | "/opt/TARVENIK/etc/conf/" |
 * | 2     | EP_TARVENIK        | "TARVENIK"     | "/TARVENIK/"              |
 * | 4     | EP_OPT_TARVENIK    | "OPT/TARVENIK" | "/opt/TARVENIK/"          |
 * | 8     | EP_TMP             | "TMP"          | "/tmp/"                   |
 * | 16    | EP_ROOT            | "ROOT"         | "/"                       |
 * | 32    | EP_OPT             | "OPT"          | "/opt/"                   |
 * | 64    | EP_APPDATA         | "APPDATA"      | "/appdata/"               |
 *
 * Names and paths are case-sensitive. An unknown number counts as EP_INVALID.
 *
 * @code
 * const QString path = QStringLiteral("/tmp/trace/a.bin");
 * const auto entryPoint = CFTPath::fromPath(path);       // CFTPath::EP_TMP
 * CFTPath::toString(entryPoint);                         // "TMP"
 * CFTPath::toRelativePath(path, entryPoint);             // "trace/a.bin"
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CFTPath
{
public:
    /// One entry point, never a combination.
    enum EEntryPoint : quint32
    {
        EP_INVALID = 0,      ///< No entry point.
        EP_CONSTCONFIG = 1,  ///< Constant configuration.
        EP_TARVENIK = 2,     ///< The maker's directory at the root.
        EP_OPT_TARVENIK = 4, ///< The installed firmware's directory.
        EP_TMP = 8,          ///< Temporary files.
        EP_ROOT = 16,        ///< The root of the file system.
        EP_OPT = 32,         ///< Optional packages.
        EP_APPDATA = 64      ///< Data of applications.
    };

    static const QString INVALID_STR;         ///< "<invalid>": name and path of an unknown entry point.
    static const QString PATH_AUTOSTART;      ///< "autostart/"
    static const QString PATH_BIN;            ///< "bin/"
    static const QString PATH_CONFIGURATIONS; ///< "configurations/"
    static const QString PATH_CONF;           ///< "conf/"
    static const QString PATH_PARAM;          ///< "param/"
    static const QString PATH_FIRMWARE;       ///< "firmware/"
    static const QString PATH_LOGIC;          ///< "logic/"
    static const QString PATH_SUBDEVICES;     ///< "subdevices/"

    CFTPath() = default;

    /// Returns the names of all eight rows, EP_INVALID included, ordered by value.
    static QMap<EEntryPoint, QString> entryStrMap();

    /// Returns all eight values in ascending order; the first is EP_INVALID.
    static QList<EEntryPoint> entryPoints();

    /// Returns the name; "<invalid>" for EP_INVALID and for unknown numbers.
    static QString toString(EEntryPoint entryPoint);

    /// Returns the entry point of exactly this name, else EP_INVALID.
    static EEntryPoint toEntryPoint(const QString& name);

    /// Returns the path on the drive; "<invalid>" for EP_INVALID and for unknown numbers.
    static QString toPath(EEntryPoint entryPoint);

    /**
     * @brief Returns the entry point that a path belongs to, else EP_INVALID.
     *
     * It is the first, by value, whose name is at position 0 or 1 of the path, or whose own path the given path
     * begins with. A name needs no boundary after it: "OPTION" belongs to EP_OPT. Every absolute path that matches
     * nothing before belongs to EP_ROOT ("/opt/x", "/OPT/x", "/appdata/x", "/APPDATA/x"): EP_OPT and EP_APPDATA are
     * found by names that do not follow a "/" ("OPT/x", "APPDATA/x").
     */
    static EEntryPoint fromPath(const QString& path);

    /// Returns `path` without the entry point's own path at its front; unchanged if it begins otherwise.
    static QString toRelativePath(const QString& path, EEntryPoint entryPoint);
};

/// Shows the enumerator, CFTPath::EP_TMP; another number as CFTPath::EEntryPoint(3).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, CFTPath::EEntryPoint entryPoint);

Q_DECLARE_METATYPE(CFTPath::EEntryPoint)

#endif // TLXCORE_CFTPATH_H
