// The CRC-32 beside zlib's and libdeflate's. The paths behind CMath::crc32 stand beside them too: the library takes the
// fastest, and a machine without its instructions has the others.
#include <core/base/crc32/Crc32.h>
#include <core/text/CMath.h>

#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

const std::vector<uchar>& bytes()
{
    static const std::vector<uchar> data = [] {
        std::vector<uchar> filled(64U << 20);
        std::uint32_t state = 1;
        for (uchar& byte : filled) {
            state = state * 1664525U + 1013904223U;
            byte = static_cast<uchar>(state >> 24);
        }
        return filled;
    }();
    return data;
}

template <typename Operation>
void measure(benchmark::State& state, Operation operation)
{
    const uchar* data = bytes().data();
    const auto length = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(data);
        benchmark::DoNotOptimize(operation(data, length));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void withSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(64)->Arg(4 << 10)->Arg(64 << 10)->Arg(1 << 20)->Arg(64 << 20);
}

quint32 tlx(const uchar* data, std::size_t length)
{
    return CMath::crc32(data, static_cast<int>(length));
}

quint32 zlib(const uchar* data, std::size_t length)
{
    return static_cast<quint32>(crc32(0, data, static_cast<uInt>(length)));
}

quint32 libdeflate(const uchar* data, std::size_t length)
{
    return libdeflate_crc32(0, data, length);
}

void registerOperation(const std::string& name, quint32 (*operation)(const uchar*, std::size_t))
{
    withSizes(benchmark::RegisterBenchmark(
        name.c_str(), [operation](benchmark::State& state) { measure(state, operation); }));
}

void registerRoutine(const NCrc32::SRoutine& routine)
{
    const std::string name = std::string("BM_Crc32 ") + routine.name;
    withSizes(benchmark::RegisterBenchmark((name + "/tlx").c_str(), [routine](benchmark::State& state) {
        measure(state, [routine](const uchar* data, std::size_t length) {
            return routine.function(~0U, data, length);
        });
    }));
    registerOperation(name + "/zlib", zlib);
    registerOperation(name + "/libdeflate", libdeflate);
}

} // namespace

int main(int argc, char** argv)
{
    registerOperation("BM_Crc32/tlx", tlx);
    registerOperation("BM_Crc32/zlib", zlib);
    registerOperation("BM_Crc32/libdeflate", libdeflate);
    for (const NCrc32::SRoutine& routine : NCrc32::routines()) {
        if (routine.function) {
            registerRoutine(routine);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
