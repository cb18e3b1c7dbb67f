#ifndef TLXTEST_OUTPUTCAPTURE_H
#define TLXTEST_OUTPUTCAPTURE_H

#include <QByteArray>

#include <cstdio>

/// Takes what is written to standard output while it lives; one object at a time.
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
    std::FILE* mFile;
    int mOutput; // the real standard output
};

#endif // TLXTEST_OUTPUTCAPTURE_H
