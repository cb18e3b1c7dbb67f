#ifndef TLXCORE_CODEUNITS_H
#define TLXCORE_CODEUNITS_H

#include <QString>

#include <cstring>

/**
 * The text of at most `codeUnits` UTF-16 code units in the machine's byte order, up to the first zero. `data` may lie at
 * any address. Byte-order marks are ordinary code units (QString::fromUtf16 would swallow or obey them).
 */
inline QString textOfCodeUnits(const void* data, int codeUnits)
{
    QString text(codeUnits, Qt::Uninitialized);
    if (codeUnits > 0) {
        std::memcpy(text.data(), data, static_cast<std::size_t>(codeUnits) * sizeof(QChar));
    }
    const auto end = text.indexOf(QChar(0));
    if (end >= 0) {
        text.truncate(end);
    }
    return text;
}

#endif // TLXCORE_CODEUNITS_H
