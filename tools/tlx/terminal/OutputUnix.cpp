#include <tools/tlx/terminal/Output.h>

#include <cerrno>

void printText(FILE* file, const QString& text)
{
    printBytes(file, text.toLocal8Bit());
}

void makeBinary(FILE*) {}

bool meansClosedPipe(int error)
{
    return error == EPIPE;
}
