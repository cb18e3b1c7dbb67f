#ifndef TLXFUZZ_WORLD_H
#define TLXFUZZ_WORLD_H

#include <cstddef>

/// Messages that Qt's message handler has been given since the start; none of them is shown.
int loggedMessages();

/**
 * Fails where a single request for memory, made while it lives, is larger than an input of `inputSize` bytes justifies:
 * Qt reads texts and bytes in steps of up to 2 MiB whatever length is declared.
 */
class MemoryLimit
{
public:
    explicit MemoryLimit(std::size_t inputSize);
    ~MemoryLimit();
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
};

#endif // TLXFUZZ_WORLD_H
