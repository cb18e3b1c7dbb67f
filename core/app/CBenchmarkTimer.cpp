#include <core/app/CBenchmarkTimer.h>

#include <core/app/CPublicWait.h>

#include <mutex>

namespace {

constexpr unsigned long CALIBRATION_MS = 100;
constexpr double CALIBRATION_US = 100000.0;

std::mutex gCalibration;

} // namespace

double CBenchmarkTimer::mTicksPerUs = -1.0;

QString CBenchmarkTimer::unit() const
{
    return QStringLiteral("CPU Ticks");
}

double CBenchmarkTimer::ticksPerUs()
{
    const std::lock_guard<std::mutex> lock(gCalibration);
    if (mTicksPerUs < 0.0) {
        CBenchmarkTimer timer;
        timer.start();
        CPublicWait::msleep(CALIBRATION_MS);
        mTicksPerUs = timer.elapsed() / CALIBRATION_US;
    }
    return mTicksPerUs;
}
