#ifndef TLXTEST_FIXEDSTRINGS_H
#define TLXTEST_FIXEDSTRINGS_H

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>

#include <QtTest>

/// One of the three fixed-length strings, for tests that hold for each of them.
template <typename String, int N>
struct SFixedString
{
    using Type = String;
    using TArray = unsigned short[N];
    static constexpr int UNITS = N;
};

/// Rows "CString32", "CString64" and "CString128" in the column `units`.
inline void addFixedStringRows()
{
    QTest::addColumn<int>("units");
    QTest::newRow("CString32") << 32;
    QTest::newRow("CString64") << 64;
    QTest::newRow("CString128") << 128;
}

/// Calls `check` with the SFixedString of the class of this row.
template <typename Check>
void forRow(Check check)
{
    QFETCH(int, units);
    switch (units) {
    case 32:
        check(SFixedString<CString32, 32>());
        break;
    case 64:
        check(SFixedString<CString64, 64>());
        break;
    case 128:
        check(SFixedString<CString128, 128>());
        break;
    default:
        QFAIL("no such class");
    }
}

inline bool copyUnits(const CString32& text, unsigned short* dest)
{
    return text.string32(dest);
}

inline bool copyUnits(const CString64& text, unsigned short* dest)
{
    return text.string64(dest);
}

inline bool copyUnits(const CString128& text, unsigned short* dest)
{
    return text.string128(dest);
}

/// `length` different letters and signs, from 'A' on.
inline QString letters(int length)
{
    QString text;
    for (int i = 0; i < length; ++i) {
        text += QChar(ushort('A' + i));
    }
    return text;
}

#endif // TLXTEST_FIXEDSTRINGS_H
