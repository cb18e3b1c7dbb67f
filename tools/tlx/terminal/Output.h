#ifndef TLX_OUTPUT_H
#define TLX_OUTPUT_H

#include <QString>

#include <cstdio>

/// Writes text for a person: in the locale's encoding; on Windows to a console as it is, to a pipe or file as UTF-8.
void printText(FILE* file, const QString& text);

/// Writes bytes as they are; a line end stays one line feed on every platform.
void printBytes(FILE* file, const QByteArray& bytes);

#endif // TLX_OUTPUT_H
