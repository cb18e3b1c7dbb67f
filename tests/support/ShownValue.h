#ifndef TESTS_SUPPORT_SHOWNVALUE_H
#define TESTS_SUPPORT_SHOWNVALUE_H

#include <QtTest>

/// What a failing comparison prints of a value.
template <typename T>
QByteArray shown(const T& value)
{
    const QScopedArrayPointer<char> text(QTest::toString(value));
    return QByteArray(text.data());
}

#endif // TESTS_SUPPORT_SHOWNVALUE_H
