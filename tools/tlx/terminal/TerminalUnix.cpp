#include <tools/tlx/terminal/Terminal.h>

#include <sys/ioctl.h>
#include <unistd.h>

namespace NTerminal {

bool isTerminal(std::FILE* file)
{
    return isatty(fileno(file)) != 0;
}

int reportedWidth()
{
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void blankErrorLine(int columns)
{
    bool isWritten = write(STDERR_FILENO, "\r", 1) == 1;
    for (int i = 0; i < columns && isWritten; ++i) {
        isWritten = write(STDERR_FILENO, " ", 1) == 1;
    }
    isWritten = isWritten && write(STDERR_FILENO, "\r", 1) == 1;
}

} // namespace NTerminal
