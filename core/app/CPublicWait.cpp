#include <core/app/CPublicWait.h>

void CPublicWait::sleep(unsigned long s)
{
    QThread::sleep(s);
}

void CPublicWait::msleep(unsigned long ms)
{
    QThread::msleep(ms);
}

void CPublicWait::usleep(unsigned long us)
{
    QThread::usleep(us);
}
