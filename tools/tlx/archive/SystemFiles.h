#ifndef TLX_SYSTEMFILES_H
#define TLX_SYSTEMFILES_H

#include <QString>

/// What extraction asks of the system that it runs on.
namespace NSystemFiles {

/// Why the system would not take the name as the archive has it, but for another name or for a device; empty when it would.
QString nameRefusal(const QString& name);

/// Makes a symbolic link in a directory that exists; returns why there is none.
QString makeLink(const QString& target, const QString& path);

} // namespace NSystemFiles

#endif // TLX_SYSTEMFILES_H
