#ifndef TLXCORE_EDIRFILTER_H
#define TLXCORE_EDIRFILTER_H

#include <QMetaType>
#include <QtGlobal>

/// Enumerations and constants that the tools share.
namespace NtlxGlobal {

/// What a listing of CDir returns; hidden entries always, "." and ".." never. CDir::toDirFilter() returns Qt's flags.
enum EDirFilter : quint32
{
    DIR_FILTER_ALL = 0,   ///< Files and directories.
    DIR_FILTER_FILES = 1, ///< Files only.
    DIR_FILTER_DIRS = 2   ///< Directories only. Any other number: nothing.
};

} // namespace NtlxGlobal

Q_DECLARE_METATYPE(NtlxGlobal::EDirFilter)

#endif // TLXCORE_EDIRFILTER_H
