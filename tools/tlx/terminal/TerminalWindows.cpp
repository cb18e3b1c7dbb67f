#include <tools/tlx/terminal/Terminal.h>

#include <io.h>
#include <windows.h>

namespace NTerminal {

bool isTerminal(std::FILE* file)
{
    return _isatty(_fileno(file)) != 0;
}

int reportedWidth()
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    return GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info)
               ? info.srWindow.Right - info.srWindow.Left + 1
               : 0;
}

void blankErrorLine(int columns)
{
    _write(_fileno(stderr), "\r", 1);
    for (int i = 0; i < columns; ++i) {
        _write(_fileno(stderr), " ", 1);
    }
    _write(_fileno(stderr), "\r", 1);
}

} // namespace NTerminal
