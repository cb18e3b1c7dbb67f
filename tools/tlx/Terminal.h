#ifndef TLX_TERMINAL_H
#define TLX_TERMINAL_H

/// What the standard output is, for the text form of a report.
namespace NTerminal {

/// True when standard output goes to a terminal.
bool isOutputTerminal();

/// True when standard error goes to a terminal: where progress is shown.
bool isErrorTerminal();

/// Columns of the terminal that standard output goes to; 0 when it is none, so that nothing is cut in files and pipes.
int outputWidth();

/// True when output may be coloured: a terminal, not a dumb one, and NO_COLOR (https://no-color.org) not set.
bool wantsColour();

} // namespace NTerminal

#endif // TLX_TERMINAL_H
