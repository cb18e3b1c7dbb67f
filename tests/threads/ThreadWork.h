#ifndef TLXTEST_THREADWORK_H
#define TLXTEST_THREADWORK_H

#include <tests/support/StreamBytes.h>

#include <QDebug>
#include <QVector>

#include <atomic>
#include <thread>
#include <vector>

/// What one thread does with objects of its own; true when every result was right. `seed` differs from thread to thread.
struct SThreadWork
{
    const char* name;
    bool (*work)(int seed);
};

QVector<SThreadWork> valueWork();
QVector<SThreadWork> textWork();
QVector<SThreadWork> deviceWork();
QVector<SThreadWork> systemWork();

constexpr int THREAD_COUNT = 4;

/// Runs the work on four threads that begin together; true when all four gave true.
template <typename Work>
bool onAllThreads(Work work)
{
    std::atomic<int> waiting{THREAD_COUNT};
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    for (int seed = 0; seed < THREAD_COUNT; ++seed) {
        threads.emplace_back([&, seed] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            right += work(seed) ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return right == THREAD_COUNT;
}

/// What qDebug() shows of the value.
template <typename T>
QString shown(const T& value)
{
    QString text;
    QDebug(&text) << value;
    return text;
}

/// True when the value and a copy are equal, the stream gives it back, and both show the same text.
template <typename T>
bool survives(const T& value, T read = T())
{
    const T copy = value;
    const bool isRead = unstreamed(streamed(value), read) == QDataStream::Ok && read == value;
    return isRead && copy == value && !(copy != value) && qHash(copy) == qHash(read)
           && shown(copy) == shown(read);
}

#endif // TLXTEST_THREADWORK_H
