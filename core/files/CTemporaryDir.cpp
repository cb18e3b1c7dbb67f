#include <core/files/CTemporaryDir.h>

CTemporaryDir::CTemporaryDir() = default;

CTemporaryDir::~CTemporaryDir() = default;

bool CTemporaryDir::isValid() const
{
    return mDirectory.isValid();
}

QString CTemporaryDir::path() const
{
    return mDirectory.path();
}

bool CTemporaryDir::autoRemove() const
{
    return mDirectory.autoRemove();
}

void CTemporaryDir::setAutoRemove(bool autoRemove)
{
    mDirectory.setAutoRemove(autoRemove);
}

bool CTemporaryDir::remove()
{
    return mDirectory.remove();
}
