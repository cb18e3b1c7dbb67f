#ifndef TLXCORE_CPUBLICWAIT_H
#define TLXCORE_CPUBLICWAIT_H

#include <core/tlxCoreExport.h>

#include <QThread>

/**
 * @brief Makes the sleep functions of the thread class callable from anywhere. They block the calling thread for at
 * least the given time.
 * @code
 * CPublicWait::msleep(20);
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref application_support
 * @since 1.0
 */
class TLXCORE_EXPORT CPublicWait : public QThread
{
public:
    /// Sleeps for @p s seconds.
    static void sleep(unsigned long s) { QThread::sleep(s); }

    /// Sleeps for @p ms milliseconds.
    static void msleep(unsigned long ms) { QThread::msleep(ms); }

    /// Sleeps for @p us microseconds.
    static void usleep(unsigned long us) { QThread::usleep(us); }
};

#endif // TLXCORE_CPUBLICWAIT_H
