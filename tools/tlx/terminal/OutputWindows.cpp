#include <tools/tlx/terminal/Output.h>

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

void printText(FILE* file, const QString& text)
{
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    DWORD mode = 0;
    if (!GetConsoleMode(console, &mode)) {
        printBytes(file, text.toUtf8());
        return;
    }
    SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING); // colours
    std::fflush(file);
    DWORD written = 0;
    WriteConsoleW(console, text.utf16(), static_cast<DWORD>(text.size()), &written, nullptr);
}

void makeBinary(FILE* file)
{
    _setmode(_fileno(file), _O_BINARY);
}

bool meansClosedPipe(int error)
{
    return error == EPIPE || error == EINVAL; // the latter is what the C library makes of ERROR_NO_DATA
}
