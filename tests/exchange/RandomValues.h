#ifndef TLXTEST_RANDOMVALUES_H
#define TLXTEST_RANDOMVALUES_H

#include <tests/golden/GoldenFile.h>

#include <QString>

#include <random>

/// Random numbers and texts that are the same wherever the seed is.
class Random
{
public:
    explicit Random(quint64 seed)
        : mEngine(seed)
    {}

    quint64 bits() { return mEngine(); }
    /// A number below the limit.
    int below(int limit) { return static_cast<int>(mEngine() % static_cast<quint64>(limit)); }
    /// An integer of any width: now small, now near a limit, now anything.
    template <typename T>
    T integer()
    {
        const quint64 number = bits();
        return static_cast<T>(below(2) ? number : number >> below(64));
    }
    /// A text of ASCII, Latin-1 or any code units, with zeros and halves of pairs among them; sometimes a null one.
    QString text(int maxLength);
    QByteArray bytes(int size);

private:
    std::mt19937_64 mEngine;
};

/// A value class: makes a random value, and copies one from a stream to another.
struct SRandomClass
{
    QByteArray name;
    std::function<SGoldenCase(Random&)> make;
    std::function<void(QDataStream& in, QDataStream& out)> copy;
};

/// Every value class that has stream operators.
std::vector<SRandomClass> randomClasses();

#endif // TLXTEST_RANDOMVALUES_H
