#ifndef TLXTEST_LOGGINGCALLS_H
#define TLXTEST_LOGGINGCALLS_H

#include <QVector>

/// One use of the library that logs.
struct SLoggingCall
{
    const char* name;
    void (*call)();
    bool logsWithApplication; ///< Else only before there is an application object.
};

QVector<SLoggingCall> loggingCalls();

#endif // TLXTEST_LOGGINGCALLS_H
