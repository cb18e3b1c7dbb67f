#ifndef TLXCORE_CBENCHMARKTIMER_H
#define TLXCORE_CBENCHMARKTIMER_H

#include <core/tlxCoreExport.h>

#include <QString>
#include <QtGlobal>

#if defined(_MSC_VER) && (defined(_M_X64) || defined(_M_IX86))
#include <intrin.h>
#elif !((defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__)))
#include <chrono>
#endif

/**
 * @brief A stopwatch for short code paths that counts processor clock ticks.
 *
 * x86 processors give their time-stamp counter, read without serialising instructions; the counters of all cores are
 * taken to agree. Other processors give the nanoseconds of the steady clock. elapsed() / ticksPerUs() are
 * microseconds.
 * @code
 * CBenchmarkTimer timer;
 * timer.start();
 * work();
 * const double us = timer.elapsed() / CBenchmarkTimer::ticksPerUs();
 * @endcode
 */
class TLXCORE_EXPORT CBenchmarkTimer
{
public:
    /// A timer that was never started: its elapsed() is the counter itself.
    CBenchmarkTimer() = default;

    /// Keeps the current tick count as the start.
    void start() { mStart = ticks(); }

    /// Ticks since start(), an unsigned 64-bit difference.
    double elapsed() const { return static_cast<double>(ticks() - mStart); }

    /// The unit of elapsed(), "CPU Ticks" on every processor.
    QString unit() const;

    /// Ticks per microsecond. The first call measures them, which takes 100 ms; later ones return what it found.
    /// Threads that call it meanwhile wait.
    static double ticksPerUs();

    /// The result of the calibration; negative while there was none. Not guarded: read it behind a call of
    /// ticksPerUs(), write it on one thread.
    static double mTicksPerUs;

private:
    static quint64 ticks()
    {
#if defined(_MSC_VER) && (defined(_M_X64) || defined(_M_IX86))
        return __rdtsc();
#elif (defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__))
        return __builtin_ia32_rdtsc();
#else
        using namespace std::chrono;
        return static_cast<quint64>(
            duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count());
#endif
    }

    quint64 mStart = 0;
};

#endif // TLXCORE_CBENCHMARKTIMER_H
