#include <core/base/QtReady.h>

#include <QCalendar>
#include <QCoreApplication>

static void findProgram()
{
    QCoreApplication::applicationDirPath(); // asks for the file's path, too
}

Q_COREAPP_STARTUP_FUNCTION(findProgram)

QtReady::QtReady()
{
    const QCalendar gregorian;
    Q_UNUSED(gregorian)
}
