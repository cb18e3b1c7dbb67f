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
    const auto show = [](char character) { return write(STDERR_FILENO, &character, 1) == 1; };
    bool isShown = show('\r');
    for (int i = 0; i < columns && isShown; ++i) {
        isShown = show(' ');
    }
    if (isShown) {
        show('\r');
    }
}

} // namespace NTerminal
