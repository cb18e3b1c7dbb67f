#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <core/app/CBenchmarkTimer.h>

#include <QCommandLineParser>

#include <algorithm>

int runBenchTicks(const QCommandLineParser& parser, Report& report)
{
    if (!parser.positionalArguments().isEmpty()) {
        return wrongUsage(report, QStringLiteral("no arguments are expected"));
    }
    constexpr int ROUNDS = 1000;
    CBenchmarkTimer timer;
    timer.start();
    double shortest = timer.elapsed();
    for (int i = 0; i < ROUNDS; ++i) {
        timer.start();
        shortest = std::min(shortest, timer.elapsed());
    }
    report.add("unit", "Unit", timer.unit());
    report.add("ticksPerUs", "Ticks per microsecond", CBenchmarkTimer::ticksPerUs());
    report.add("shortest", "Shortest measurement", shortest);
    return EXIT_DONE;
}
