#ifndef TLX_PATHSCOMMAND_H
#define TLX_PATHSCOMMAND_H

class Report;

/// Adds a table of every directory that a tool asks for; makes the missing ones first when `create` is true.
void addDirectories(Report& report, bool create);

#endif // TLX_PATHSCOMMAND_H
