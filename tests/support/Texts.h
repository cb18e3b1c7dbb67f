#ifndef TESTS_SUPPORT_TEXTS_H
#define TESTS_SUPPORT_TEXTS_H

#include <QString>

/// A literal as a text, for tables of rows.
inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

#endif // TESTS_SUPPORT_TEXTS_H
