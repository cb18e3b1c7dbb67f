#include <core/app/CBenchmarkTimer.h>

#include <core/app/CPublicWait.h>

namespace {

constexpr unsigned long CALIBRATION_MS = 100;
constexpr double CALIBRATION_US = 100000.0;

} // namespace

double CBenchmarkTimer::mTicksPerUs = -1.0;

QString CBenchmarkTimer::unit() const
{
    return QStringLiteral("CPU Ticks");
}

double CBenchmarkTimer::ticksPerUs()
{
    if (mTicksPerUs < 0.0) {
        CBenchmarkTimer timer;
        timer.start();
        CPublicWait::msleep(CALIBRATION_MS);
        mTicksPerUs = timer.elapsed() / CALIBRATION_US;
    }
    return mTicksPerUs;
}
