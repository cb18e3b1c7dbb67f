#include <core/files/ApplicationPath.h>

#include <QCoreApplication>

#include <mutex>

namespace {

std::mutex gMutex;

} // namespace

QString NApplicationPath::directory()
{
    const std::lock_guard<std::mutex> lock(gMutex);
    return QCoreApplication::applicationDirPath();
}

QString NApplicationPath::file()
{
    const std::lock_guard<std::mutex> lock(gMutex);
    return QCoreApplication::applicationFilePath();
}
