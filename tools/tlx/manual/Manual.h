#ifndef TLX_MANUAL_H
#define TLX_MANUAL_H

#include <QString>

struct SCommand;

/// Help, manual page and completion, all made from the one table of commands.
namespace NManual {

/// What `tlx --help` prints.
QString overview();

/// What `tlx COMMAND --help` prints.
QString commandHelp(const SCommand& command);

/// The manual page tlx(1), in man's own language.
QString manualPage();

/// The completion script for bash.
QString bashCompletion();

} // namespace NManual

#endif // TLX_MANUAL_H
