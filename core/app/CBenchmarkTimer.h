#ifndef TLXCORE_CBENCHMARKTIMER_H
#define TLXCORE_CBENCHMARKTIMER_H

#include <core/tlxCoreExport.h>

#include <QString>
#include <QtGlobal>

/**
 * @brief A stopwatch for short code paths that counts processor clock ticks.
 *
 * Ticks are those of an x86 processor's time-stamp counter, read without serialising instructions; the counters of all
 * cores are taken to agree. On other processors they are nanoseconds of the steady clock. elapsed() / ticksPerUs() are
 * microseconds.
 * @code
 * CBenchmarkTimer timer;
 * timer.start();
 * work();
 * const double us = timer.elapsed() / CBenchmarkTimer::ticksPerUs();
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref application_support
 * @since 1.0
 */
class TLXCORE_EXPORT CBenchmarkTimer
{
public:
    /// Constructs a timer that was not started: elapsed() is the counter itself.
    CBenchmarkTimer() = default;

    /// Stores the current tick count as the start.
    void start();

    /// Returns the ticks since start(), an unsigned 64-bit difference.
    double elapsed() const;

    /// Returns the unit of elapsed(), "CPU Ticks" on every processor.
    QString unit() const { return QLatin1String("CPU Ticks"); }

    /// Returns the ticks per microsecond. The first call measures them, which takes 100 ms; later ones return what it
    /// found. Threads that call it meanwhile measure, too; the last result is kept.
    static double ticksPerUs();

    /// The result of the calibration, -1 before it; any negative value makes ticksPerUs() measure. Not synchronised:
    /// read it only after ticksPerUs(), write it on one thread.
    static double mTicksPerUs;

private:
    quint64 mStart = 0;
};

#endif // TLXCORE_CBENCHMARKTIMER_H
