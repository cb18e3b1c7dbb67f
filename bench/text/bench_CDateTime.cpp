#include <core/text/CDateTime.h>

#include <benchmark/benchmark.h>

// Packing and unpacking beside the QDateTime calls that they cannot avoid. Argument: the time spec.
namespace {

constexpr long long PACKED = 0x07E803050D07092DLL;

Qt::TimeSpec specOf(const benchmark::State& state)
{
    return static_cast<Qt::TimeSpec>(state.range(0));
}

QDateTime moment(Qt::TimeSpec spec)
{
    return QDateTime(QDate(2024, 3, 5), QTime(13, 7, 9, 456), spec);
}

void pack(benchmark::State& state)
{
    const CDateTime dateTime(moment(specOf(state)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(dateTime.toI64(specOf(state)));
    }
}

void packByQt(benchmark::State& state)
{
    const QDateTime dateTime = moment(specOf(state));
    for (auto _ : state) {
        const QDateTime converted = dateTime.toTimeSpec(specOf(state));
        const QDate date = converted.date();
        const QTime time = converted.time();
        int year = 0;
        int month = 0;
        int day = 0;
        date.getDate(&year, &month, &day);
        benchmark::DoNotOptimize(year + month + day + time.hour() + time.minute() + time.second()
                                 + time.msec());
    }
}

void unpack(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(CDateTime(PACKED, specOf(state)));
    }
}

void unpackByQt(benchmark::State& state)
{
    long long packed = PACKED;
    for (auto _ : state) {
        benchmark::DoNotOptimize(packed);
        const int hour = static_cast<int>(packed >> 24 & 0xFF);
        benchmark::DoNotOptimize(QDateTime(QDate(2024, 3, 5), QTime(hour, 7, 9, 450), specOf(state)));
    }
}

BENCHMARK(pack)->Name("BM_Pack/tlx")->Arg(Qt::UTC)->Arg(Qt::LocalTime);
BENCHMARK(packByQt)->Name("BM_Pack/QDateTime")->Arg(Qt::UTC)->Arg(Qt::LocalTime);
BENCHMARK(unpack)->Name("BM_Unpack/tlx")->Arg(Qt::UTC)->Arg(Qt::LocalTime);
BENCHMARK(unpackByQt)->Name("BM_Unpack/QDateTime")->Arg(Qt::UTC)->Arg(Qt::LocalTime);

} // namespace
