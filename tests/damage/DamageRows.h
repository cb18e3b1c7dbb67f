#ifndef TLXTEST_DAMAGEROWS_H
#define TLXTEST_DAMAGEROWS_H

#include <QByteArray>

#ifdef TLX_COUNT_ALLOCATIONS
#include <tests/support/AllocationCounter.h>
#endif

/// The most bytes that the work held at once; 0 where allocations are not counted.
template <typename Work>
qint64 peakOf(Work work)
{
#ifdef TLX_COUNT_ALLOCATIONS
    AllocationCounter::startPeak();
    work();
    return AllocationCounter::peak();
#else
    work();
    return 0;
#endif
}

/// Calls `work` with every other value that a byte of the golden bytes may get: all 255 when `allValues` says so of its
/// position, otherwise those that most often break a reader.
template <typename AllValues, typename Work>
void forEachFlippedByte(const QByteArray& golden, AllValues allValues, Work work)
{
    constexpr int SAMPLE[] = {0x00, 0x01, 0x20, 0x7F, 0x80, 0xFE, 0xFF};
    for (int at = 0; at < golden.size(); ++at) {
        const char right = golden.at(at);
        QByteArray damaged = golden;
        const auto flipTo = [&](int value) {
            damaged[at] = static_cast<char>(value);
            if (damaged.at(at) != right) {
                work(damaged, at);
            }
        };
        if (allValues(at)) {
            for (int value = 0; value < 256; ++value) {
                flipTo(value);
            }
            continue;
        }
        for (const int value : SAMPLE) {
            flipTo(value);
        }
        flipTo(right ^ 0x01);
        flipTo(right ^ 0xFF);
    }
}

#endif // TLXTEST_DAMAGEROWS_H
