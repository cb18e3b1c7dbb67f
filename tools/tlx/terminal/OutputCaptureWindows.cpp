#include <tools/tlx/terminal/OutputCapture.h>

#include <io.h>
#include <windows.h>

// The C library's own temporary file lies in the root of the drive, where only administrators may write.
std::FILE* OutputCapture::temporaryFile()
{
    wchar_t folder[MAX_PATH + 1] = {};
    wchar_t name[MAX_PATH + 1] = {};
    const DWORD length = GetTempPathW(MAX_PATH, folder);
    const bool isNamed = length > 0 && length < MAX_PATH && GetTempFileNameW(folder, L"tlx", 0, name) != 0;
    return isNamed ? _wfopen(name, L"w+bTD") : nullptr; // removed when it is closed
}

int OutputCapture::divert(std::FILE* from, std::FILE* to)
{
    const int kept = _dup(_fileno(from));
    if (kept >= 0) {
        _dup2(_fileno(to), _fileno(from));
    }
    return kept;
}

void OutputCapture::restore(std::FILE* file, int descriptor)
{
    _dup2(descriptor, _fileno(file));
    _close(descriptor);
}
