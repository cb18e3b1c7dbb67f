#include <tools/tlx/terminal/Output.h>

void printText(FILE* file, const QString& text)
{
    printBytes(file, text.toLocal8Bit());
}

void makeBinary(FILE*) {}
