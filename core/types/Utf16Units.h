#ifndef TLXCORE_UTF16UNITS_H
#define TLXCORE_UTF16UNITS_H

#include <QString>

#include <cstring>

/**
 * The text of at most `units` UTF-16 code units in the machine's byte order, up to the first zero unit. `data` may
 * lie at any address. Byte-order marks are ordinary units (QString::fromUtf16 would swallow or obey them).
 */
inline QString textOfUtf16Units(const void* data, int units)
{
    QString text(units, Qt::Uninitialized);
    if (units > 0) {
        std::memcpy(text.data(), data, static_cast<std::size_t>(units) * sizeof(QChar));
    }
    const int end = text.indexOf(QChar(0));
    if (end >= 0) {
        text.truncate(end);
    }
    return text;
}

#endif // TLXCORE_UTF16UNITS_H
