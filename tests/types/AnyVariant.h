#ifndef TLXTEST_ANYVARIANT_H
#define TLXTEST_ANYVARIANT_H

#include <core/types/CVariant.h>
#include <tests/support/StreamBytes.h>

/// A number outside the catalogue.
inline NTypes::ETypes outside(quint32 number)
{
    return static_cast<NTypes::ETypes>(number);
}

/// A variant as a stream may bring it: any payload under any tag.
inline CVariant anyVariant(const QVariant& payload, NTypes::ETypes type)
{
    CVariant variant;
    unstreamed(streamed(payload) + streamed(static_cast<quint32>(type)), variant);
    return variant;
}

#endif // TLXTEST_ANYVARIANT_H
