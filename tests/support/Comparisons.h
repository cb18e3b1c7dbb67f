#ifndef TLXTEST_COMPARISONS_H
#define TLXTEST_COMPARISONS_H

#include <QByteArray>

/// The comparison operators that answer wrongly for two values of which `a` is below (-1), equal to (0) or above (1)
/// `b`; empty when all six are right.
template <typename T>
QByteArray wrongComparisons(const T& a, const T& b, int order)
{
    QByteArray wrong;
    wrong += (a == b) != (order == 0) ? "== " : "";
    wrong += (a != b) != (order != 0) ? "!= " : "";
    wrong += (a < b) != (order < 0) ? "< " : "";
    wrong += (a > b) != (order > 0) ? "> " : "";
    wrong += (a <= b) != (order <= 0) ? "<= " : "";
    wrong += (a >= b) != (order >= 0) ? ">= " : "";
    return wrong;
}

#endif // TLXTEST_COMPARISONS_H
