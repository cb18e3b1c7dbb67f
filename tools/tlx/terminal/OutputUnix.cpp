#include <tools/tlx/terminal/Output.h>

void printText(FILE* file, const QString& text)
{
    printBytes(file, text.toLocal8Bit());
}

void printBytes(FILE* file, const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
}
