#include <tools/tlx/terminal/Interrupt.h>
#include <tools/tlx/terminal/Terminal.h>

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

// What the signal handler may look at: it can neither allocate nor lock.
char unfinished[4096];
volatile std::sig_atomic_t blankColumns = 0;

void tidyUp(int signal)
{
    if (unfinished[0] != 0) {
        std::remove(unfinished);
    }
    if (blankColumns > 0) {
        NTerminal::blankErrorLine(blankColumns);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void install()
{
    std::signal(SIGINT, blankColumns > 0 || unfinished[0] != 0 ? tidyUp : SIG_DFL);
}

} // namespace

namespace NInterrupt {

RemoveFile::RemoveFile(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    if (name.size() < static_cast<int>(sizeof unfinished)) {
        std::memcpy(unfinished, name.constData(), static_cast<std::size_t>(name.size()) + 1);
    }
    install();
}

RemoveFile::~RemoveFile()
{
    unfinished[0] = 0;
    install();
}

void blankLine(int columns)
{
    blankColumns = columns;
    install();
}

} // namespace NInterrupt
