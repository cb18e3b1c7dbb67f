#include <tests/support/OutputCapture.h>

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
    mOutput = dup(fileno(stdout));
    if (!mFile || mOutput < 0 || dup2(fileno(mFile), fileno(stdout)) < 0) {
        qFatal("standard output cannot be captured");
    }
}

OutputCapture::~OutputCapture()
{
    std::fflush(stdout);
    dup2(mOutput, fileno(stdout));
    close(mOutput);
    std::fclose(mFile);
}

QByteArray OutputCapture::text() const
{
    std::fflush(stdout);
    std::rewind(mFile);
    QByteArray bytes;
    for (int byte = std::fgetc(mFile); byte != EOF; byte = std::fgetc(mFile)) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}
