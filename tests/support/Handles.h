#ifndef TESTS_SUPPORT_HANDLES_H
#define TESTS_SUPPORT_HANDLES_H

#include <QtTest>

#include <type_traits>
#include <utility>

/// Whether a value class promises that its copies and moves do not throw.
template <typename T>
constexpr bool IS_NOTHROW_HANDLE =
    std::is_nothrow_copy_constructible_v<T>&& std::is_nothrow_move_constructible_v<T>&&
        std::is_nothrow_copy_assignable_v<T>&& std::is_nothrow_move_assignable_v<T>;

/// Moves `value` away twice and goes on using what it was moved from.
template <typename T>
void verifyMovedFromIsUsable(const T& value)
{
    T source(value);
    T target(std::move(source));
    QVERIFY(target == value);
    QVERIFY(source == source); // NOLINT: using it is what is tested
    source = value;
    QVERIFY(source == value);

    T assigned;
    assigned = std::move(source);
    QVERIFY(assigned == value);
    T copy(source); // NOLINT
    QVERIFY(copy == source);
    source = target;
    QVERIFY(source == value);
}

#endif // TESTS_SUPPORT_HANDLES_H
