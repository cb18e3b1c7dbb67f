#include <core/app/CBenchmarkTimer.h>

#include <core/app/CPublicWait.h>
#include <core/base/SharedDouble.h>
#include <core/base/Ticks.h>

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
    constexpr unsigned long CALIBRATION_MS = 100;
    double ticks = NSharedDouble::load(mTicksPerUs);
    if (ticks < 0.0) {
        CBenchmarkTimer timer;
        timer.start();
        CPublicWait::msleep(CALIBRATION_MS);
        ticks = timer.elapsed() / (CALIBRATION_MS * 1000.0);
        NSharedDouble::store(mTicksPerUs, ticks);
    }
    return ticks;
}
