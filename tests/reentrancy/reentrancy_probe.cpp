#include <tests/reentrancy/EveryStatic.h>
#include <tests/reentrancy/LoggingCalls.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QtGlobal>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <thread>

// reentrancy_probe {application|none} {alone|together} CALL: makes one call that logs, with a message handler that calls
// every static function of the library. "together": the handler holds a mutex of its own, and a second thread that logs
// holds it when the call begins. Prints how many messages the handler saw.

namespace {

std::atomic<int> gInHandler{0};
std::atomic<int> gSeen{0};
std::mutex gMutex;

void handler(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    ++gSeen;
    callEveryStatic();
}

void waitForHandlers(int count)
{
    QElapsedTimer clock;
    clock.start();
    while (gInHandler < count && clock.elapsed() < 5000) {
        std::this_thread::yield();
    }
}

// The thread that has the mutex calls the library once the other thread logs, out of whatever it does.
void handlerWithMutex(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    ++gInHandler;
    const std::lock_guard<std::mutex> lock(gMutex);
    waitForHandlers(2);
    handler(type, context, text);
}

void callTogether(void (*call)())
{
    qInstallMessageHandler(handlerWithMutex);
    std::thread second([] { qWarning("the second thread logs"); });
    waitForHandlers(1);
    call();
    second.join();
}

void callAlone(void (*call)())
{
    qInstallMessageHandler(handler);
    call();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4) {
        return 2;
    }
    const bool isTogether = std::strcmp(argv[2], "together") == 0;
    const QScopedPointer<QCoreApplication> application(
        std::strcmp(argv[1], "application") == 0 ? new QCoreApplication(argc, argv) : nullptr);
    const QVector<SLoggingCall> calls = loggingCalls();
    for (const SLoggingCall& row : calls) {
        if (std::strcmp(argv[3], row.name) == 0) {
            isTogether ? callTogether(row.call) : callAlone(row.call);
            qInstallMessageHandler(nullptr);
            std::printf("messages\t%d\n", gSeen - (isTogether ? 1 : 0));
            return 0;
        }
    }
    return 2;
}
