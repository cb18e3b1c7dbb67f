#ifndef TLX_COMMAND_H
#define TLX_COMMAND_H

#include <QString>
#include <QStringList>

class QCommandLineParser;
class Report;

/// Exit codes of tlx.
enum EExit : int
{
    EXIT_DONE = 0, ///< The command did what it was asked, and the library took every value as it was written.
    EXIT_INVALID =
        1, ///< The input is damaged or not valid, two inputs differ, or the output could not be written.
    EXIT_USAGE = 2 ///< The command line is wrong.
};

/// One option of a command: parser, help, manual page and completions are made from it.
struct SOption
{
    const char* name;                   ///< With two dashes on the command line.
    QString summary;                    ///< One sentence.
    const char* value = "";             ///< What its value is called; empty when it takes none.
    const char* fallback = "";          ///< The value when the option is not given.
    char letter = 0;                    ///< The short form; 0 when it has none.
    QStringList (*choices)() = nullptr; ///< The values that completion offers.
};

/// One command: a row of the table in CommandTable.cpp, from which the help texts are made.
struct SCommand
{
    const char* name;       ///< The word on the command line.
    const char* arguments;  ///< The positional arguments as the help shows them, e.g. "TYPE TEXT".
    const char* summary;    ///< One line on what it does.
    const char* example;    ///< One complete command line.
    QList<SOption> options; ///< Its own.
    QStringList (*words)(
        int position); ///< What completion offers for an argument beside files; null: files alone.
    int (*run)(const QCommandLineParser& parser, Report& report); ///< Does the work; returns an EExit.
};

/// All commands, in the order in which the help lists them.
const QList<SCommand>& commands();

/// The command of this name; null when there is none.
const SCommand* findCommand(const QString& name);

/// The names of all commands.
QStringList commandNames();

/// The options that every command takes, then the command's own.
QList<SOption> optionsOf(const SCommand& command);

/// Parses the command line (program name first), runs the command and prints its report; returns the exit code.
int runCommandLine(const QStringList& arguments);

/// Ends a command because of wrong usage: `message` says what is wrong and what to do.
int wrongUsage(Report& report, const QString& message);

/// Ends a command because of its input.
int invalid(Report& report, const QString& message, qint64 offset = -1);

#endif // TLX_COMMAND_H
