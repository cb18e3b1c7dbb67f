#include <core/files/Platform.h>

QString NPlatform::documentsFolder()
{
    return QString();
}
