#include <core/text/CTime.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <new>

namespace {

// How often memory was taken; the counter "allocations" of a comparison must be 0.
long long allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

template <typename Duration, typename Other>
void compare(benchmark::State& state, const Duration& a, const Other& b)
{
    const long long before = allocations;
    for (auto _ : state) {
        benchmark::DoNotOptimize(&a);
        benchmark::DoNotOptimize(a < b);
    }
    state.counters["allocations"] = static_cast<double>(allocations - before);
}

void compareTime(benchmark::State& state)
{
    compare(state, CTime(1500, CTime::UNIT_MS), CTime(2, CTime::UNIT_S));
}

void compareNanoseconds(benchmark::State& state)
{
    compare(state, CTime(1500, CTime::UNIT_NS), CTime(2000, CTime::UNIT_NS));
}

void compareChrono(benchmark::State& state)
{
    using namespace std::chrono;
    compare(state, duration<double, std::milli>(1500), duration<double>(2));
}

BENCHMARK(compareTime)->Name("BM_Compare/tlx_units");
BENCHMARK(compareNanoseconds)->Name("BM_Compare/tlx_nanoseconds");
BENCHMARK(compareChrono)->Name("BM_Compare/chrono");

} // namespace
