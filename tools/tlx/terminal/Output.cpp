#include <tools/tlx/terminal/Output.h>

#include <cerrno>
#include <cstring>

namespace {

int firstError = 0; // errno of the first write to standard output that failed

bool write(FILE* file, const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0;
}

} // namespace

void printBytes(FILE* file, const QByteArray& bytes)
{
    const bool isOutput = file == stdout;
    if (isOutput && firstError != 0) {
        return; // what follows a gap is of no use
    }
    makeBinary(file);
    errno = 0;
    if (!write(file, bytes) && isOutput) {
        firstError = errno == 0 ? EIO : errno;
    }
}

EOutputState outputState()
{
    return firstError == 0 ? OUTPUT_WRITTEN : meansClosedPipe(firstError) ? OUTPUT_CLOSED : OUTPUT_LOST;
}

QString outputError()
{
    return firstError == 0 ? QString() : QString::fromLocal8Bit(std::strerror(firstError));
}
