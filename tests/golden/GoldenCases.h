#ifndef TLXTEST_GOLDENCASES_H
#define TLXTEST_GOLDENCASES_H

#include <QByteArray>
#include <QDataStream>

#include <functional>
#include <vector>

/// One value whose bytes are kept.
struct SGoldenCase
{
    QByteArray className; ///< Names the file.
    QByteArray name;
    std::function<void(QDataStream&)> write;
    std::function<void(QDataStream& in, QDataStream& out)> copy; ///< Reads a value and writes what was read.
};

/// The cases of every value class.
std::vector<SGoldenCase> goldenCases();

#endif // TLXTEST_GOLDENCASES_H
