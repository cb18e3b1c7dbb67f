#ifndef TLXCORE_TYPETABLE_H
#define TLXCORE_TYPETABLE_H

#include <core/types/NTypes.h>

// The one table of what is true of each value type; whoever needs to know asks here.
namespace NTypes {

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
    int payload; // QMetaType of the payload; QMetaType::User for the library's own types, which have no fixed number
};

constexpr STypeInfo TYPE_TABLE[] = {
    {"UNKNOWN", EKind::None, 0, QMetaType::UnknownType},
    {"U8", EKind::Unsigned, 1, QMetaType::UChar},
    {"I8", EKind::Signed, 1, QMetaType::SChar},
    {"U16", EKind::Unsigned, 2, QMetaType::UShort},
    {"I16", EKind::Signed, 2, QMetaType::Short},
    {"U32", EKind::Unsigned, 4, QMetaType::UInt},
    {"I32", EKind::Signed, 4, QMetaType::Int},
    {"F32", EKind::Float, 4, QMetaType::Float},
    {"U64", EKind::Unsigned, 8, QMetaType::ULongLong},
    {"I64", EKind::Signed, 8, QMetaType::LongLong},
    {"F64", EKind::Float, 8, QMetaType::Double},
    {"F80", EKind::None, 10, QMetaType::UnknownType},
    {"STRING32", EKind::Utf16Text, 64, QMetaType::User},
    {"CHARSTR64", EKind::Char8Text, 64, QMetaType::QByteArray},
    {"STRING128", EKind::Utf16Text, 256, QMetaType::User},
    {"CHARSTR256", EKind::Char8Text, 256, QMetaType::QByteArray},
    {"DATETIME", EKind::DateTime, 8, QMetaType::User},
    {"STRING64", EKind::Utf16Text, 128, QMetaType::User},
    {"CHARSTR128", EKind::Char8Text, 128, QMetaType::QByteArray},
    {"UTF16CHAR", EKind::Utf16Char, 2, QMetaType::QChar},
    {"CHAR", EKind::Char8Text, 1, QMetaType::QByteArray},
};

constexpr quint32 TYPE_COUNT = sizeof(TYPE_TABLE) / sizeof(TYPE_TABLE[0]);
static_assert(TYPE_COUNT == TYPE_CHAR + 1, "one row a type");

/// The row of a type; that of "UNKNOWN" for a number outside the catalogue.
constexpr const STypeInfo& typeInfo(ETypes type)
{
    return TYPE_TABLE[static_cast<quint32>(type) < TYPE_COUNT ? static_cast<quint32>(type) : 0];
}

} // namespace NTypes

#endif // TLXCORE_TYPETABLE_H
