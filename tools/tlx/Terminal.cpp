#include "Terminal.h"

#include <QByteArray>
#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

bool isTerminal(FILE* file)
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) != 0;
#endif
}

int reportedWidth()
{
#ifdef Q_OS_WIN
    CONSOLE_SCREEN_BUFFER_INFO info;
    return GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)
               ? info.srWindow.Right - info.srWindow.Left + 1
               : 0;
#else
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
#endif
}

} // namespace

namespace NTerminal {

bool isOutputTerminal()
{
    return isTerminal(stdout);
}

bool isErrorTerminal()
{
    return isTerminal(stderr);
}

int outputWidth()
{
    constexpr int USUAL_WIDTH = 80;
    if (!isOutputTerminal()) {
        return 0;
    }
    const int width = reportedWidth();
    return width > 0 ? width : USUAL_WIDTH;
}

bool wantsColour()
{
    return isOutputTerminal() && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

} // namespace NTerminal
