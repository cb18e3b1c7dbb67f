#ifndef TLX_COMPLETION_H
#define TLX_COMPLETION_H

#include <QString>

/// Completion scripts, made from the table of commands: commands, their words, options, and the options' values.
namespace NCompletion {

QString bash();
QString zsh();
QString fish();

} // namespace NCompletion

#endif // TLX_COMPLETION_H
