#include <tools/tlx/terminal/OutputCapture.h>

OutputCapture::OutputCapture()
    : mFile(temporaryFile())
{
    std::fflush(stdout);
    if (mFile) {
        mOutput = divert(stdout, mFile);
    }
}

OutputCapture::~OutputCapture()
{
    std::fflush(stdout);
    if (mOutput >= 0) {
        restore(stdout, mOutput);
    }
    if (mFile) {
        std::fclose(mFile);
    }
}

QByteArray OutputCapture::text() const
{
    QByteArray bytes;
    if (!mFile) {
        return bytes;
    }
    std::fflush(stdout);
    std::rewind(mFile);
    for (int byte = std::fgetc(mFile); byte != EOF; byte = std::fgetc(mFile)) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}
