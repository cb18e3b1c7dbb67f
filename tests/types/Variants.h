#ifndef TLXTEST_VARIANTS_H
#define TLXTEST_VARIANTS_H

#include <core/types/CVariant.h>

#include <QVariant>

#include <cstring>

Q_DECLARE_METATYPE(NTypes::ETypes)

/// The payload as it is.
inline QVariant payloadOf(const CVariant& value)
{
    return value;
}

/// The payload's Qt type.
inline int payloadType(const CVariant& value)
{
    return payloadOf(value).userType();
}

/// A char array of the size of `dest` that begins with the text; all bytes behind it, the terminator's place
/// included, hold `rest`.
template <int Size>
void fillBytes(char (&dest)[Size], const char* text, char rest)
{
    std::memset(dest, rest, Size);
    std::memcpy(dest, text, std::strlen(text));
}

/// A variant of a type made from a number, character, array or record.
inline CVariant sampleOf(NTypes::ETypes type)
{
    char text64[64] = "text";
    char text128[128] = "text";
    char text256[256] = "text";
    switch (type) {
    case NTypes::TYPE_U8:
        return CVariant(static_cast<unsigned char>(5));
    case NTypes::TYPE_I8:
        return CVariant(static_cast<signed char>(5));
    case NTypes::TYPE_U16:
        return CVariant(static_cast<unsigned short>(5));
    case NTypes::TYPE_I16:
        return CVariant(static_cast<short>(5));
    case NTypes::TYPE_U32:
        return CVariant(5U);
    case NTypes::TYPE_I32:
        return CVariant(5);
    case NTypes::TYPE_F32:
        return CVariant(5.0F);
    case NTypes::TYPE_U64:
        return CVariant(5ULL);
    case NTypes::TYPE_I64:
        return CVariant(5LL);
    case NTypes::TYPE_F64:
        return CVariant(5.0);
    case NTypes::TYPE_STRING32:
        return CVariant(CString32(QStringLiteral("text")));
    case NTypes::TYPE_CHARSTR64:
        return CVariant(text64);
    case NTypes::TYPE_STRING128:
        return CVariant(CString128(QStringLiteral("text")));
    case NTypes::TYPE_CHARSTR256:
        return CVariant(text256);
    case NTypes::TYPE_DATETIME:
        return CVariant(NTypes::tsDateTime{{56, 10, 22, 13}, {4, 5, 2018}});
    case NTypes::TYPE_STRING64:
        return CVariant(CString64(QStringLiteral("text")));
    case NTypes::TYPE_CHARSTR128:
        return CVariant(text128);
    case NTypes::TYPE_UTF16CHAR:
        return CVariant(QChar(QLatin1Char('t')));
    case NTypes::TYPE_CHAR:
        return CVariant('t');
    default:
        return CVariant(type);
    }
}

/// Catalogue numbers and what lies outside.
inline QVector<NTypes::ETypes> allTypes()
{
    QVector<NTypes::ETypes> types;
    for (quint32 number = 0; number <= 22; ++number) {
        types << static_cast<NTypes::ETypes>(number);
    }
    return types << static_cast<NTypes::ETypes>(255) << static_cast<NTypes::ETypes>(0x80000001)
                 << static_cast<NTypes::ETypes>(0xFFFFFFFF);
}

#endif // TLXTEST_VARIANTS_H
