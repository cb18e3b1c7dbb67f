#ifndef TLXTEST_PRINTEDRUN_H
#define TLXTEST_PRINTEDRUN_H

#include <tools/tlx/terminal/OutputCapture.h>

/// What an operation gave, and what it printed on standard output meanwhile.
struct SPrintedRun
{
    bool result;
    QByteArray output;
};

/// Runs an operation; checks belong behind it, where a failure's own text is not captured.
template <typename Work>
SPrintedRun printedRun(Work work)
{
    const OutputCapture capture;
    const bool result = work();
    return {result, capture.text()};
}

#endif // TLXTEST_PRINTEDRUN_H
