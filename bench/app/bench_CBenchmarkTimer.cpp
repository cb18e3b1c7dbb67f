#include <core/app/CBenchmarkTimer.h>

#include <benchmark/benchmark.h>

#if defined(__x86_64__) || defined(__i386__)
#include <x86intrin.h>
#endif

namespace {

void StartElapsed_tlx(benchmark::State& state)
{
    CBenchmarkTimer timer;
    for (auto _ : state) {
        timer.start();
        benchmark::DoNotOptimize(timer.elapsed());
    }
}

#if defined(__x86_64__) || defined(__i386__)
void StartElapsed_rdtsc(benchmark::State& state)
{
    for (auto _ : state) {
        const unsigned long long start = __rdtsc();
        benchmark::DoNotOptimize(static_cast<double>(__rdtsc() - start));
    }
}
#endif

} // namespace

BENCHMARK(StartElapsed_tlx)->Name("BM_StartElapsed/tlx");
#if defined(__x86_64__) || defined(__i386__)
BENCHMARK(StartElapsed_rdtsc)->Name("BM_StartElapsed/rdtsc");
#endif
