#include <core/app/CBenchmarkTimer.h>

#include <core/app/CPublicWait.h>
#include <core/base/SharedDouble.h>
#include <core/base/Ticks.h>

namespace {

constexpr unsigned long CALIBRATION_MS = 100;
constexpr double CALIBRATION_US = 100000.0;

double calibrated()
{
    CBenchmarkTimer timer;
    timer.start();
    CPublicWait::msleep(CALIBRATION_MS);
    return timer.elapsed() / CALIBRATION_US;
}

} // namespace

double CBenchmarkTimer::mTicksPerUs = -1.0;

void CBenchmarkTimer::start()
{
    mStart = processorTicks();
}

double CBenchmarkTimer::elapsed() const
{
    return static_cast<double>(processorTicks() - mStart);
}

double CBenchmarkTimer::ticksPerUs()
{
    double ticks = NSharedDouble::load(mTicksPerUs);
    if (ticks < 0.0) {
        ticks = calibrated();
        NSharedDouble::store(mTicksPerUs, ticks);
    }
    return ticks;
}
