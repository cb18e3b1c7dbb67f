#include <core/device/CDeviceHardwareId.h>

#include <benchmark/benchmark.h>

#include <QRegularExpression>
#include <QStringList>

#include <thread>
#include <vector>

namespace {

const QStringList& identifiers()
{
    static const QStringList list{QStringLiteral("A012_003_001"),
                                  QStringLiteral("012_003_001_Board"),
                                  QStringLiteral("A012_003_001_Name_More"),
                                  QStringLiteral("B999_000_123_PowerUnit7"),
                                  QStringLiteral("A012_003_0x1_Board"),
                                  QStringLiteral("AB12_003_001"),
                                  QStringLiteral("A012_003"),
                                  QStringLiteral("C100_200_300_x y")};
    return list;
}

template <typename Work>
void onAll(benchmark::State& state, Work work)
{
    for (auto _ : state) {
        for (const QString& text : identifiers()) {
            benchmark::DoNotOptimize(work(text));
        }
    }
    state.SetItemsProcessed(state.iterations() * identifiers().size());
}

bool validateByQt(const QString& text)
{
    static const QRegularExpression expression(
        QStringLiteral("\\A(?:\\D?\\d{3}_\\d{3}_\\d{3})(?:_\\w+)?\\z"));
    return expression.match(text).hasMatch();
}

bool validateByFreshQRegExp(const QString& text)
{
    return CDeviceHardwareId::fullRegExp().exactMatch(text);
}

CDeviceHardwareId parseByQt(const QString& text)
{
    static const QRegularExpression expression(
        QStringLiteral("\\A(\\D?)(\\d{1,3})(?:_(\\d{1,3})(?:_(\\d{1,3}))?)?(?:_(.*))?\\z"));
    CDeviceHardwareId id;
    const QRegularExpressionMatch match = expression.match(text);
    if (match.hasMatch()) {
        const auto number = [&match](int group) {
            const QStringRef digits = match.capturedRef(group);
            return digits.isEmpty() ? static_cast<unsigned short>(65535) : digits.toUShort();
        };
        id.setPrefix(match.captured(1));
        id.setPlatform(number(2));
        id.setVersion(number(3));
        id.setRevision(number(4));
        id.setName(match.captured(5));
    }
    return id;
}

CDeviceHardwareId parse(const QString& text)
{
    return CDeviceHardwareId(text);
}

void validate(benchmark::State& state, bool (*work)(const QString&))
{
    onAll(state, work);
}

void parseAll(benchmark::State& state, CDeviceHardwareId (*work)(const QString&))
{
    onAll(state, work);
}

/// A fixed amount of validation, shared among threads: half the time on two threads is twice the speed.
void validateOn(benchmark::State& state, int threadCount)
{
    constexpr int ROUNDS = 400000;
    for (auto _ : state) {
        std::vector<std::thread> threads;
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([rounds = ROUNDS / threadCount] {
                for (int round = 0; round < rounds; ++round) {
                    for (const QString& text : identifiers()) {
                        benchmark::DoNotOptimize(CDeviceHardwareId::isFullHardwareId(text));
                    }
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
}

} // namespace

BENCHMARK_CAPTURE(validate, tlx, CDeviceHardwareId::isFullHardwareId)->Name("BM_ValidateHardwareId/tlx");
BENCHMARK_CAPTURE(validate, QRegularExpression, validateByQt)
    ->Name("BM_ValidateHardwareId/QRegularExpression");
BENCHMARK_CAPTURE(validate, freshQRegExp, validateByFreshQRegExp)->Name("BM_ValidateHardwareId/freshQRegExp");
BENCHMARK_CAPTURE(parseAll, tlx, parse)->Name("BM_ParseHardwareId/tlx");
BENCHMARK_CAPTURE(parseAll, QRegularExpression, parseByQt)->Name("BM_ParseHardwareId/QRegularExpression");
BENCHMARK_CAPTURE(validateOn, tlx, 2)
    ->Name("BM_ValidateOnTwoThreads/tlx")
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(validateOn, oneThread, 1)
    ->Name("BM_ValidateOnTwoThreads/oneThread")
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
