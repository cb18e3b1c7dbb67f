#ifndef TLXCORE_TICKS_H
#define TLXCORE_TICKS_H

#include <QtGlobal>

#if defined(_MSC_VER) && (defined(_M_X64) || defined(_M_IX86))
#include <intrin.h>
#elif !((defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__)))
#include <chrono>
#endif

/// The time-stamp counter of an x86 processor; the steady clock's nanoseconds on others.
inline quint64 processorTicks()
{
#if defined(_MSC_VER) && (defined(_M_X64) || defined(_M_IX86))
    return __rdtsc();
#elif (defined(__GNUC__) || defined(__clang__)) && (defined(__x86_64__) || defined(__i386__))
    return __builtin_ia32_rdtsc();
#else
    using namespace std::chrono;
    return static_cast<quint64>(duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count());
#endif
}

#endif // TLXCORE_TICKS_H
