#ifndef TLXCORE_CONSTANTTIME_H
#define TLXCORE_CONSTANTTIME_H

#include <QString>

/// Looks at every character, so that the time taken does not tell where a guess was wrong.
inline bool isEqualInConstantTime(const QString& left, const QString& right)
{
    uint difference = left.size() == right.size() ? 0 : 1;
    const auto count = qMin(left.size(), right.size());
    for (auto i = count; i-- > 0;) {
        difference |= static_cast<uint>(left.at(i).unicode() ^ right.at(i).unicode());
    }
    return difference == 0;
}

#endif // TLXCORE_CONSTANTTIME_H
