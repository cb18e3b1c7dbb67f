#ifndef TLXTEST_PSEUDOTERMINAL_H
#define TLXTEST_PSEUDOTERMINAL_H

#include <QByteArray>
#include <QStringList>

#include <sys/types.h>

/// A terminal of some width that one program runs on, with nobody at it. Unix only.
class PseudoTerminal
{
public:
    explicit PseudoTerminal(int columns)
        : mColumns(columns)
    {}
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Starts the program in a directory; the terminal is its input, output and error output.
    void start(const QString& program, const QStringList& arguments, const QString& directory);

    /// What it showed since the last call, waiting up to a tenth of a second for some; empty when there is nothing.
    QByteArray read();

    /// What it shows until it ends, at most a minute.
    QByteArray readToEnd();

    /// A key that the user types; '\x03' is Ctrl-C.
    void type(char key);

    int exitCode() const;    ///< Of the program that has ended; -1 when a signal ended it.
    int signalOfEnd() const; ///< The signal that ended it; 0 for none.

private:
    bool hasEnded();

    int mColumns;
    int mMaster = -1;
    pid_t mProcess = -1;
    int mStatus = 0;
    bool mHasEnded = false;
};

#endif // TLXTEST_PSEUDOTERMINAL_H
