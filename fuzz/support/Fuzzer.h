#ifndef TLXFUZZ_FUZZER_H
#define TLXFUZZ_FUZZER_H

#include <fuzz/support/Check.h>
#include <fuzz/support/Input.h>
#include <fuzz/support/World.h>

#include <cstddef>
#include <cstdint>

/// What a target does with one input; every target has its own.
static void fuzz(Input& input);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryLimit limit(size);
    Input input(data, size);
    fuzz(input);
    return 0;
}

#endif // TLXFUZZ_FUZZER_H
