#ifndef TLX_OUTPUT_H
#define TLX_OUTPUT_H

#include <QString>

#include <cstdio>

/// Writes text for a person: in the locale's encoding; on Windows to a console as it is, to a pipe or file as UTF-8.
void printText(FILE* file, const QString& text);

/// Writes bytes as they are; a line end stays one line feed on every platform.
void printBytes(FILE* file, const QByteArray& bytes);

/// What became of the writes to standard output so far.
enum EOutputState
{
    OUTPUT_WRITTEN, ///< Everything was taken.
    OUTPUT_CLOSED,  ///< The reader of the pipe has gone: nobody wants the rest.
    OUTPUT_LOST     ///< A write failed; outputError() has the system's reason.
};
EOutputState outputState();

/// True when this error of a write means that the reader of the pipe has gone.
bool meansClosedPipe(int error);

/// The system's reason for the first write to standard output that failed; empty when none did.
QString outputError();

/// Bytes from standard input and to standard output pass unchanged from now on; matters on Windows alone.
void makeBinary(FILE* file);

#endif // TLX_OUTPUT_H
