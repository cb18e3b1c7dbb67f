#ifndef TLX_OUTPUTCAPTURE_H
#define TLX_OUTPUTCAPTURE_H

#include <QByteArray>

#include <cstdio>

/**
 * @brief Takes what is written to standard output while it lives: the lines that the library's file operations print.
 *
 * One object at a time. Where the system gives no temporary file, the lines go to standard output as ever.
 */
class OutputCapture
{
public:
    OutputCapture();
    ~OutputCapture();
    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    /// What was written so far.
    QByteArray text() const;

private:
    static std::FILE* temporaryFile();
    static int divert(std::FILE* from, std::FILE* to); // returns what is to be restored, or -1
    static void restore(std::FILE* file, int descriptor);

    std::FILE* mFile;
    int mOutput = -1; // the real standard output; -1 when it is not diverted
};

#endif // TLX_OUTPUTCAPTURE_H
