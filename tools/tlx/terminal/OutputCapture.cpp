#include <tools/tlx/terminal/OutputCapture.h>

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <io.h>
#define dup _dup
#define dup2 _dup2
#define close _close
#define fileno _fileno
#else
#include <unistd.h>
#endif

OutputCapture::OutputCapture()
    : mFile(std::tmpfile())
{
    std::fflush(stdout);
    if (mFile) {
        mOutput = dup(fileno(stdout));
    }
    if (mOutput >= 0) {
        dup2(fileno(mFile), fileno(stdout));
    }
}

OutputCapture::~OutputCapture()
{
    std::fflush(stdout);
    if (mOutput >= 0) {
        dup2(mOutput, fileno(stdout));
        close(mOutput);
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
