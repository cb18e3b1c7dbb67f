#ifndef TLX_MANUAL_H
#define TLX_MANUAL_H

#include <QString>

struct SCommand;

/// Help and manual page, made from the one table of commands. Help is wrapped to the terminal's width.
namespace NManual {

/// What `tlx --help` prints.
QString overview();

/// What `tlx COMMAND --help` prints.
QString commandHelp(const SCommand& command);

/// The manual page tlx(1), in man's own language.
QString manualPage();

} // namespace NManual

#endif // TLX_MANUAL_H
