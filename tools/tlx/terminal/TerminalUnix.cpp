#include <tools/tlx/terminal/Terminal.h>

#include <QByteArray>

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

} // namespace NTerminal
