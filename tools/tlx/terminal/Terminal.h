#ifndef TLX_TERMINAL_H
#define TLX_TERMINAL_H

#include <cstdio>

/// What the standard streams are, for the text form of a report.
namespace NTerminal {

/// True when the stream goes to a terminal.
bool isTerminal(std::FILE* file);

/// Columns as the terminal of standard output reports them; 0 when it reports none.
int reportedWidth();

/// Columns of the terminal that standard output goes to; 0 for files and pipes, where nothing is cut.
int outputWidth();

/// Blanks that many columns of the line that the cursor is in on standard error; safe in a signal handler.
void blankErrorLine(int columns);

/// True when output may be coloured: a terminal, not a dumb one, and NO_COLOR (https://no-color.org) not set.
bool wantsColour();

} // namespace NTerminal

#endif // TLX_TERMINAL_H
