#ifndef TLX_COMMAND_H
#define TLX_COMMAND_H

#include <QString>
#include <QStringList>

class Report;
class QCommandLineParser;

/// Exit codes of tlx.
enum EExit : int
{
    EXIT_DONE = 0,    ///< The command did what it was asked.
    EXIT_INVALID = 1, ///< The input is damaged or not valid.
    EXIT_USAGE = 2    ///< The command line is wrong.
};

/// One command: a row of the table in Commands.cpp, from which the help texts are made.
struct SCommand
{
    const char* name;      ///< The word on the command line.
    const char* arguments; ///< The positional arguments as the help shows them, e.g. "TYPE TEXT".
    const char* summary;   ///< One line on what it does.
    const char* example;   ///< One complete command line.
    void (*addOptions)(QCommandLineParser& parser);               ///< Adds its own options; may be null.
    int (*run)(const QCommandLineParser& parser, Report& report); ///< Does the work; gives an EExit.
};

/// All commands, in the order in which the help lists them.
const QList<SCommand>& commands();

/// Parses the command line (program name first), runs the command and prints its report; gives the exit code.
int runCommandLine(const QStringList& arguments);

/// Adds the options that every command takes, and the command's own.
void addOptions(QCommandLineParser& parser, const SCommand& command);

/// Ends a command because of wrong usage: `message` says what is wrong.
int wrongUsage(Report& report, const QString& message);

#endif // TLX_COMMAND_H
