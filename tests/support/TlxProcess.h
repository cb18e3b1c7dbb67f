#ifndef TLXTEST_TLXPROCESS_H
#define TLXTEST_TLXPROCESS_H

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

#include <cerrno>
#include <cstring>

/// One finished run of the program tlx.
struct STlxRun
{
    int exitCode = -1;        ///< -1 when it did not start, crashed or took longer than a minute.
    QByteArray output;        ///< Standard output.
    QByteArray errorOutput;   ///< Standard error.
    QJsonObject json() const; ///< Standard output as the one JSON object; empty when it is not one.
    QJsonObject result() const { return json().value(QLatin1String("result")).toObject(); }
};

/// Where tlx was built.
QString tlxProgram();

/// Runs tlx with these arguments; `environment` holds "NAME=value" texts that are set in addition. `program` is a copy
/// of it elsewhere (empty: the one that was built). `input` is its standard input.
STlxRun runTlx(const QStringList& arguments, const QStringList& environment = {}, const QString& program = {},
               const QByteArray& input = {});

/// The system's reason for an error number, in the user's language.
inline QString systemText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

#endif // TLXTEST_TLXPROCESS_H
