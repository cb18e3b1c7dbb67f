#ifndef TLXTEST_ANYVARIANT_H
#define TLXTEST_ANYVARIANT_H

#include <core/types/CVariant.h>
#include <tests/support/StreamBytes.h>

/// A variant as a stream may bring it: any payload under any tag.
inline CVariant anyVariant(const QVariant& payload, quint32 tag)
{
    CVariant variant;
    unstreamed(streamed(payload) + streamed(tag), variant);
    return variant;
}

#endif // TLXTEST_ANYVARIANT_H
