#include <tests/support/AllocationCounter.h>

#include <atomic>
#include <cstddef>
#include <malloc.h>

namespace {

std::atomic<qint64> gCount{0};
std::atomic<qint64> gInUse{0};
std::atomic<qint64> gStart{0};
std::atomic<qint64> gPeak{0};

void* taken(void* memory)
{
    const auto size = static_cast<qint64>(malloc_usable_size(memory));
    const qint64 inUse = gInUse += size;
    if (inUse > gPeak) {
        gPeak = inUse;
    }
    ++gCount;
    return memory;
}

void* given(void* memory)
{
    gInUse -= static_cast<qint64>(malloc_usable_size(memory));
    return memory;
}

} // namespace

// The C library's own functions under the names that libraries call: every allocation of the process is counted.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);
extern "C" void __libc_free(void* memory);

extern "C" Q_DECL_EXPORT void* malloc(std::size_t size)
{
    return taken(__libc_malloc(size));
}

extern "C" Q_DECL_EXPORT void* calloc(std::size_t count, std::size_t size)
{
    return taken(__libc_calloc(count, size));
}

extern "C" Q_DECL_EXPORT void* realloc(void* memory, std::size_t size)
{
    const auto before = static_cast<qint64>(malloc_usable_size(memory));
    void* const moved = __libc_realloc(memory, size);
    gInUse -= moved || size == 0 ? before : 0;
    return taken(moved);
}

extern "C" Q_DECL_EXPORT void free(void* memory)
{
    __libc_free(given(memory));
}

qint64 AllocationCounter::count()
{
    return gCount;
}

void AllocationCounter::startPeak()
{
    gStart = gInUse.load();
    gPeak = gInUse.load();
}

qint64 AllocationCounter::peak()
{
    return gPeak - gStart;
}
