#ifndef TLXTEST_ALLOCATIONCOUNTER_H
#define TLXTEST_ALLOCATIONCOUNTER_H

#include <QtGlobal>

/**
 * What a piece of work asks of the heap. Counts every allocation of the process where the C library allows it (see
 * tlx_count_allocations in tests/CMakeLists.txt); a sanitizer brings a heap of its own, which is not counted.
 */
namespace AllocationCounter {

/// How often memory was asked for so far, growing included.
qint64 count();

/// Forgets the peak of what came before.
void startPeak();

/// The most bytes that were in use at once since startPeak(), beyond those in use then.
qint64 peak();

} // namespace AllocationCounter

#endif // TLXTEST_ALLOCATIONCOUNTER_H
