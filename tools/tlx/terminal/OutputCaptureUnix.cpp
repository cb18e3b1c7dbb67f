#include <tools/tlx/terminal/OutputCapture.h>

#include <unistd.h>

std::FILE* OutputCapture::temporaryFile()
{
    return std::tmpfile();
}

int OutputCapture::divert(std::FILE* from, std::FILE* to)
{
    const int kept = dup(fileno(from));
    if (kept >= 0) {
        dup2(fileno(to), fileno(from));
    }
    return kept;
}

void OutputCapture::restore(std::FILE* file, int descriptor)
{
    dup2(descriptor, fileno(file));
    close(descriptor);
}
