#include <tests/support/MessageLog.h>

#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex gMutex;
QStringList gMessages;
QtMessageHandler gPrevious = nullptr;

const char* severity(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug: ";
    case QtInfoMsg:
        return "info: ";
    case QtWarningMsg:
        return "warning: ";
    case QtCriticalMsg:
        return "critical: ";
    case QtFatalMsg:
        return "fatal: ";
    }
    return "other: ";
}

void record(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    QString row = QLatin1String(severity(type)) + text;
    if (qstrcmp(context.category, "default") != 0) {
        row.prepend(QLatin1Char('[') + QLatin1String(context.category) + QLatin1String("] "));
    }
    const QMutexLocker locker(&gMutex);
    gMessages << row;
}

} // namespace

MessageLog::MessageLog()
{
    gMessages.clear();
    gPrevious = qInstallMessageHandler(record);
}

MessageLog::~MessageLog()
{
    qInstallMessageHandler(gPrevious);
}

QStringList MessageLog::messages() const
{
    const QMutexLocker locker(&gMutex);
    return gMessages;
}

QStringList MessageLog::take()
{
    const QMutexLocker locker(&gMutex);
    const QStringList messages = gMessages;
    gMessages.clear();
    return messages;
}
