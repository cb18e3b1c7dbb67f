#ifndef TLXTEST_VARIANTVALUES_H
#define TLXTEST_VARIANTVALUES_H

#include <QDateTime>
#include <QVariant>

#include <limits>

/// Values of every type that a variant's payload may have, of which some convert to each other and some do not.
namespace NVariantValues {

template <typename T>
QVariant as(qlonglong number)
{
    return QVariant::fromValue(static_cast<T>(number));
}

constexpr qlonglong NUMBERS[] = {0,
                                 5,
                                 -1,
                                 127,
                                 128,
                                 -128,
                                 255,
                                 256,
                                 65535,
                                 65536,
                                 -32769,
                                 2147483647,
                                 2147483648,
                                 4294967295,
                                 16777217,
                                 9007199254740993,
                                 9223371761976868863,
                                 std::numeric_limits<qlonglong>::max(),
                                 std::numeric_limits<qlonglong>::min()};

/// The integers whose width is the same everywhere, booleans and characters.
inline QVariantList integers()
{
    QVariantList values;
    for (const qlonglong number : NUMBERS) {
        values << as<int>(number) << as<uint>(number) << as<qlonglong>(number) << as<qulonglong>(number)
               << as<short>(number) << as<ushort>(number) << as<char>(number) << as<signed char>(number)
               << as<uchar>(number) << QVariant(number != 0) << QVariant(QChar(static_cast<ushort>(number)));
    }
    return values;
}

inline QVariantList longs()
{
    QVariantList values;
    for (const qlonglong number : NUMBERS) {
        values << as<long>(number) << as<ulong>(number);
    }
    return values;
}

/// Floating-point numbers, texts, bytes, dates and nothing.
inline QVariantList others()
{
    QVariantList values = {QVariant(),
                           QDate(),
                           QDate(2024, 3, 5),
                           QTime(),
                           QDateTime(),
                           QString(),
                           QByteArray(),
                           QByteArray("ab\0cd", 5),
                           QByteArray("5\0", 2),
                           QString(QLatin1String("5\0", 2)),
                           QDateTime(QDate(2024, 3, 5), QTime(13, 7), Qt::UTC),
                           QTime(13, 7)};
    for (const double number : {0.0, 0.5, -0.5, 1.5, 2.5, -2.9, 300.7, 1e10, -1e10, 1e18, 0.1}) {
        values << number << QVariant::fromValue(static_cast<float>(number));
    }
    for (const char* text : {"",
                             "0",
                             "5",
                             "-5",
                             "70000",
                             "-70000",
                             "4294967296",
                             "18446744073709551615",
                             "1.5",
                             "1e400",
                             "nan",
                             " 7 ",
                             "0x10",
                             "abc",
                             "+3",
                             "true",
                             "1,000",
                             "\xd9\xa3",
                             "\xe2\x88\x92"
                             "5",
                             "\xef\xbc\x95",
                             "\xc2\xa0"
                             "5",
                             "5 ",
                             "\t5",
                             "-",
                             "1e",
                             ".5",
                             "5.",
                             "0b1",
                             "1e-400",
                             "1e39",
                             "inf",
                             "-0",
                             "5_000",
                             "9223372036854775808",
                             "-9223372036854775809"}) {
        values << QString::fromUtf8(text) << QByteArray(text);
    }
    return values;
}

} // namespace NVariantValues

#endif // TLXTEST_VARIANTVALUES_H
