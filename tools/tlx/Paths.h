#ifndef TLX_PATHS_H
#define TLX_PATHS_H

class CReport;

/// Adds a table of every directory that a tool asks for; makes the missing ones first when `create` is true.
void addDirectories(CReport& report, bool create);

#endif // TLX_PATHS_H
