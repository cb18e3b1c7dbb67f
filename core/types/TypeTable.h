#ifndef TLXCORE_TYPETABLE_H
#define TLXCORE_TYPETABLE_H

#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/NTypes.h>

#include <QByteArray>
#include <QChar>

#include <iterator>
#include <type_traits>

// What is true of each value type: its row in the table, and its case in visitType(). Whoever needs to know asks here.
namespace NTypeTable {

/// How a value of a type is kept and read.
enum class EKind : quint8
{
    None,      // no value exists
    Unsigned,  // unsigned integer
    Signed,    // signed integer
    Float,     // floating point
    Utf16Text, // CStringN
    Char8Text, // bytes of a fixed-length 8-bit text, or the one byte of "CHAR"
    DateTime,  // tsDateTime
    Utf16Char  // QChar
};

struct STypeInfo
{
    const char* name;
    EKind kind;
    quint16 width; // bytes of the value on the device
};

constexpr STypeInfo TYPE_TABLE[] = {
    {"UNKNOWN", EKind::None, 0},
    {"U8", EKind::Unsigned, 1},
    {"I8", EKind::Signed, 1},
    {"U16", EKind::Unsigned, 2},
    {"I16", EKind::Signed, 2},
    {"U32", EKind::Unsigned, 4},
    {"I32", EKind::Signed, 4},
    {"F32", EKind::Float, 4},
    {"U64", EKind::Unsigned, 8},
    {"I64", EKind::Signed, 8},
    {"F64", EKind::Float, 8},
    {"F80", EKind::None, 10},
    {"STRING32", EKind::Utf16Text, 64},
    {"CHARSTR64", EKind::Char8Text, 64},
    {"STRING128", EKind::Utf16Text, 256},
    {"CHARSTR256", EKind::Char8Text, 256},
    {"DATETIME", EKind::DateTime, 8},
    {"STRING64", EKind::Utf16Text, 128},
    {"CHARSTR128", EKind::Char8Text, 128},
    {"UTF16CHAR", EKind::Utf16Char, 2},
    {"CHAR", EKind::Char8Text, 1},
};

constexpr quint32 TYPE_COUNT = std::size(TYPE_TABLE);
static_assert(TYPE_COUNT == NTypes::TYPE_CHAR + 1, "one row a type");

/// The row of a type; that of "UNKNOWN" for a number outside the catalogue.
constexpr const STypeInfo& typeInfo(NTypes::ETypes type)
{
    return TYPE_TABLE[static_cast<quint32>(type) < TYPE_COUNT ? static_cast<quint32>(type) : 0];
}

/// Names the C++ type of a payload to a visitor; void where no value exists.
template <typename T>
struct SPayload
{
    using Type = T;
};

/// Calls the visitor with the SPayload of the type: the one way from a type's number to its C++ type.
template <typename Visitor>
decltype(auto) visitType(NTypes::ETypes type, Visitor&& visit)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return visit(SPayload<unsigned char>());
    case NTypes::TYPE_I8:
        return visit(SPayload<signed char>());
    case NTypes::TYPE_U16:
        return visit(SPayload<unsigned short>());
    case NTypes::TYPE_I16:
        return visit(SPayload<short>());
    case NTypes::TYPE_U32:
        return visit(SPayload<unsigned int>());
    case NTypes::TYPE_I32:
        return visit(SPayload<int>());
    case NTypes::TYPE_F32:
        return visit(SPayload<float>());
    case NTypes::TYPE_U64:
        return visit(SPayload<unsigned long long>());
    case NTypes::TYPE_I64:
        return visit(SPayload<long long>());
    case NTypes::TYPE_F64:
        return visit(SPayload<double>());
    case NTypes::TYPE_STRING32:
        return visit(SPayload<CString32>());
    case NTypes::TYPE_STRING64:
        return visit(SPayload<CString64>());
    case NTypes::TYPE_STRING128:
        return visit(SPayload<CString128>());
    case NTypes::TYPE_CHARSTR64:
    case NTypes::TYPE_CHARSTR128:
    case NTypes::TYPE_CHARSTR256:
    case NTypes::TYPE_CHAR:
        return visit(SPayload<QByteArray>());
    case NTypes::TYPE_DATETIME:
        return visit(SPayload<NTypes::tsDateTime>());
    case NTypes::TYPE_UTF16CHAR:
        return visit(SPayload<QChar>());
    default:
        return visit(SPayload<void>());
    }
}

template <typename Text, int N>
std::true_type isFixedString(const CFixedString<Text, N>*);
std::false_type isFixedString(const void*);

template <typename T>
constexpr bool IS_FIXED_STRING = decltype(isFixedString(static_cast<T*>(nullptr)))::value;
template <typename T>
constexpr bool IS_INTEGER = std::is_integral<T>::value;
template <typename T>
constexpr bool IS_FLOAT = std::is_floating_point<T>::value;
template <typename T>
constexpr bool IS_DATE_TIME = std::is_same<T, NTypes::tsDateTime>::value;
template <typename T>
constexpr bool IS_BYTES = std::is_same<T, QByteArray>::value;
template <typename T>
constexpr bool IS_CHARACTER = std::is_same<T, QChar>::value;

} // namespace NTypeTable

#endif // TLXCORE_TYPETABLE_H
