#ifndef TLXCORE_QTZONES_H
#define TLXCORE_QTZONES_H

#include <QFile>
#include <QTimeZone>

namespace NQtCompat {

/// Returns a time zone that the system knows. Qt 6 takes a POSIX rule such as "NOX0" for the name of a zone, too, where
/// zones are files.
inline QTimeZone systemZone(const QByteArray& name)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const auto isFile = [&name](const char* folder) {
        return QFile::exists(QFile::decodeName(folder + name));
    };
    if (!name.startsWith("UTC") && !isFile("/usr/share/zoneinfo/") && !isFile("/usr/lib/zoneinfo/")) {
        return QTimeZone();
    }
#endif
    return QTimeZone(name);
}

} // namespace NQtCompat

#endif // TLXCORE_QTZONES_H
