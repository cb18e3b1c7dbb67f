#ifndef TLXCORE_CVARIANT_H
#define TLXCORE_CVARIANT_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>
#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/NTypes.h>

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <type_traits>
#include <utility>

class QBitArray;
class QDataStream;
class QDebug;

/**
 * @brief A value of one of the types of NTypes::ETypes: a device parameter, a field of a parameter file, a table cell.
 *
 * A QVariant holds the payload and a tag says which type it is, so that an unsigned 16-bit parameter stays one through
 * copying, streaming and display. Payloads are the Qt numbers of the type's width ("U8": unsigned char), CStringN for
 * "STRINGN", a QByteArray for "CHARSTRN" and "CHAR", QChar for "UTF16CHAR" and NTypes::tsDateTime for "DATETIME".
 *
 * A variant without type is "UNKNOWN": null and not valid. Payload and tag may disagree after reading a stream or
 * setDefaultValue(); readers select by tag, then convert whatever the payload actually holds.
 *
 * Nothing here throws. A reader that fails returns 0 or an empty text and sets its flag to false. A number out of
 * the range of a reader is truncated.
 *
 * @code
 * CVariant speed(NTypes::TYPE_U16);          // the default, 0
 * speed.fromStr(QStringLiteral("0x1F"));     // 31, still "U16"
 * const int number = speed.toI32();          // 31
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref typed_values
 * @since 1.0
 */
class TLXCORE_EXPORT CVariant
{
    // The catalogue's integers that have the width of long.
    using TLong = std::conditional_t<sizeof(long) == sizeof(int), int, long long>;
    using TUnsignedLong = std::make_unsigned_t<TLong>;

public:
    CVariant() = default; ///< An "UNKNOWN" variant without payload.
    /// Shares the payload and copies the tag.
    // NOLINTNEXTLINE(modernize-use-equals-default): the copy of a QVariant is not declared noexcept
    CVariant(const CVariant& other) noexcept
        : mValue(other.mValue)
        , mType(other.mType)
    {}
    /// Takes payload and tag, and leaves the other variant "UNKNOWN".
    CVariant(CVariant&& other) noexcept { *this = std::move(other); }
    virtual ~CVariant() = default;

    /// @name Construction from a value
    /// @{

    /// Constructs a variant whose tag follows from the argument's type. Nothing is converted or checked.
    CVariant(signed char value)
        : mValue(QVariant::fromValue(value))
        , mType(NTypes::TYPE_I8)
    {}
    CVariant(unsigned char value)
        : mValue(QVariant::fromValue(value))
        , mType(NTypes::TYPE_U8)
    {}
    CVariant(short value)
        : mValue(QVariant::fromValue(value))
        , mType(NTypes::TYPE_I16)
    {}
    CVariant(unsigned short value)
        : mValue(QVariant::fromValue(value))
        , mType(NTypes::TYPE_U16)
    {}
    CVariant(int value) { set(value, NTypes::TYPE_I32); }
    CVariant(unsigned int value) { set(value, NTypes::TYPE_U32); }
    /// As the integer of the same width: "I32" where long has 32 bits, "I64" where it has 64.
    CVariant(long value) { *this = static_cast<TLong>(value); }
    /// As the integer of the same width: "U32" where long has 32 bits, "U64" where it has 64.
    CVariant(unsigned long value) { *this = static_cast<TUnsignedLong>(value); }
    CVariant(float value)
        : mValue(value)
        , mType(NTypes::TYPE_F32)
    {}
    CVariant(long long value) { set(value, NTypes::TYPE_I64); }
    CVariant(unsigned long long value) { set(value, NTypes::TYPE_U64); }
    CVariant(double value) { set(value, NTypes::TYPE_F64); }
    CVariant(QChar value) { set(value, NTypes::TYPE_UTF16CHAR); }
    CVariant(char value) { *this = value; }               ///< "CHAR": a byte array of this one byte.
    CVariant(const char (&value)[64]) { *this = value; }  ///< "CHARSTR64": all bytes, zeros included.
    CVariant(const char (&value)[128]) { *this = value; } ///< "CHARSTR128": all bytes.
    CVariant(const char (&value)[256]) { *this = value; } ///< "CHARSTR256": all bytes.
    CVariant(const CString32& value) { *this = value; }   ///< "STRING32".
    CVariant(const CString64& value) { *this = value; }   ///< "STRING64".
    CVariant(const CString128& value) { *this = value; }  ///< "STRING128".
    CVariant(const unsigned short (&value)[32]) { *this = value; }  ///< "STRING32": all units.
    CVariant(const unsigned short (&value)[64]) { *this = value; }  ///< "STRING64": all units.
    CVariant(const unsigned short (&value)[128]) { *this = value; } ///< "STRING128": all units.
    CVariant(const NTypes::tsDateTime& value) { *this = value; }    ///< "DATETIME".
    CVariant(NTypes::ETypes type) { *this = type; }    ///< The type's default value, see defaultValue().
    CVariant(const QVariant& value) { *this = value; } ///< As operator=(const QVariant&).

    /// Parses the text as the static fromStr() does. A type without values ("F80") sets the tag and leaves no payload.
    /// A type above NTypes::TYPE_CHAR leaves the variant "UNKNOWN", without a warning.
    CVariant(const QString& text, NTypes::ETypes type);

    /// As the static fromBitArray().
    CVariant(const QBitArray& bits, NTypes::ETypes type) { *this = fromBitArray(bits, type); }
    /// @}

    /// Shares the payload and copies the tag.
    CVariant& operator=(const CVariant& other) noexcept { return share(other.mValue, other.mType); }
    /// Swaps the two variants.
    CVariant& operator=(CVariant&& other) noexcept
    {
        mValue.swap(other.mValue);
        std::swap(mType, other.mType);
        return *this;
    }

    /// @name Assignment of a value
    /// @{

    /// Replaces payload and tag as the constructor from the same argument sets them. The value is never converted to
    /// the type that the variant had before.
    CVariant& operator=(signed char value) { return set(value, NTypes::TYPE_I8); }
    CVariant& operator=(unsigned char value) { return set(value, NTypes::TYPE_U8); }
    CVariant& operator=(short value) { return set(value, NTypes::TYPE_I16); }
    CVariant& operator=(unsigned short value) { return set(value, NTypes::TYPE_U16); }
    CVariant& operator=(int value) { return set(value, NTypes::TYPE_I32); }
    CVariant& operator=(unsigned int value) { return set(value, NTypes::TYPE_U32); }
    CVariant& operator=(long value) { return *this = static_cast<TLong>(value); }
    CVariant& operator=(unsigned long value) { return *this = static_cast<TUnsignedLong>(value); }
    CVariant& operator=(float value) { return set(value, NTypes::TYPE_F32); }
    CVariant& operator=(long long value) { return set(value, NTypes::TYPE_I64); }
    CVariant& operator=(unsigned long long value) { return set(value, NTypes::TYPE_U64); }
    CVariant& operator=(double value) { return set(value, NTypes::TYPE_F64); }
    CVariant& operator=(QChar value) { return set(value, NTypes::TYPE_UTF16CHAR); }
    CVariant& operator=(char value) { return setBytes(&value, 1, NTypes::TYPE_CHAR); }
    CVariant& operator=(const char (&value)[64]) { return setBytes(value, 64, NTypes::TYPE_CHARSTR64); }
    CVariant& operator=(const char (&value)[128]) { return setBytes(value, 128, NTypes::TYPE_CHARSTR128); }
    CVariant& operator=(const char (&value)[256]) { return setBytes(value, 256, NTypes::TYPE_CHARSTR256); }
    CVariant& operator=(const CString32& value);
    CVariant& operator=(const CString64& value);
    CVariant& operator=(const CString128& value);
    CVariant& operator=(const unsigned short (&value)[32]) { return *this = CString32(value); }
    CVariant& operator=(const unsigned short (&value)[64]) { return *this = CString64(value); }
    CVariant& operator=(const unsigned short (&value)[128]) { return *this = CString128(value); }
    CVariant& operator=(const NTypes::tsDateTime& value);
    CVariant& operator=(NTypes::ETypes type) { return share(defaultValue(type), type); }

    /**
     * @brief Takes over a QVariant: its Qt type decides the tag.
     *
     * Numbers, QChar, char and CStringN keep their type. A QString or QByteArray becomes "STRING32" below 64 bytes
     * (of UTF-8 for a QString), "STRING128" above 127 and "STRING64" between, and is truncated to fit. The bytes of a
     * QByteArray are taken as UTF-16 code units. Anything else, a date-time included, becomes "UNKNOWN" with a warning.
     */
    CVariant& operator=(const QVariant& value);

    /// Rebuilds the variant in its own type, an "UNKNOWN" one as "U64"; see the static fromBitArray().
    CVariant& operator=(const QBitArray& bits);
    /// @}

    /// Returns the tag.
    NTypes::ETypes type() const { return mType; }

    /// Returns true if the payload is a null QVariant or the tag is "UNKNOWN".
    bool isNull() const;

    /// Returns true if there is a payload and the tag is not "UNKNOWN".
    bool isValid() const { return mType != NTypes::TYPE_UNKNOWN && mValue.isValid(); }

    /**
     * @brief Returns true if a conversion to the type is admitted. The reader may fail nevertheless: numbers are read
     * from numbers and dates only, 8-bit texts from 8-bit texts only.
     *
     * Numbers: Qt's own rule for the payload, so an unsigned char does not convert to unsigned short or float, and
     * 8-bit texts convert to every number. A number converts to "F64", a "DATETIME" to every number. UTF-16 texts and
     * "UTF16CHAR": from any text or character. 8-bit texts: from numbers, 8-bit texts and "DATETIME". "DATETIME": from
     * the 64-bit integers and "DATETIME". Nothing converts to "UNKNOWN", "F80" or a number above NTypes::TYPE_CHAR.
     */
    bool canConvertTo(NTypes::ETypes type) const;

    /// Returns the default payload of the type: 0 (an int for the 8- and 16-bit types), zero bytes of the full length,
    /// an empty text or record; invalid for "UNKNOWN", "F80" and above NTypes::TYPE_CHAR.
    QVariant defaultValue(NTypes::ETypes type) const;

    /// Sets the tag and the default payload. A type without default changes the tag only; operator QVariant() still
    /// returns the old payload.
    CVariant& setDefaultValue(NTypes::ETypes type);

    /// @name Numbers
    /// @{

    /// Returns the number, truncated to the width of the result (a float toward zero first); 0 and false if the value
    /// is not a number or date, or canConvertTo() is false. A "DATETIME" is its packed 64-bit number.
    signed char toI8(bool* ok = nullptr) const { return qint8(toBits(NTypes::TYPE_I8, ok)); }
    unsigned char toU8(bool* ok = nullptr) const { return quint8(toBits(NTypes::TYPE_U8, ok)); }
    short toI16(bool* ok = nullptr) const { return qint16(toBits(NTypes::TYPE_I16, ok)); }
    unsigned short toU16(bool* ok = nullptr) const { return quint16(toBits(NTypes::TYPE_U16, ok)); }
    int toI32(bool* ok = nullptr) const { return qint32(toBits(NTypes::TYPE_I32, ok)); }
    unsigned int toU32(bool* ok = nullptr) const { return quint32(toBits(NTypes::TYPE_U32, ok)); }
    float toF32(bool* ok = nullptr) const;
    long long toI64(bool* ok = nullptr) const { return qint64(toBits(NTypes::TYPE_I64, ok)); }
    unsigned long long toU64(bool* ok = nullptr) const { return toBits(NTypes::TYPE_U64, ok); }
    double toF64(bool* ok = nullptr) const;
    operator signed char() const { return toI8(); }
    operator unsigned char() const { return toU8(); }
    operator short() const { return toI16(); }
    operator unsigned short() const { return toU16(); }
    operator int() const { return toI32(); }
    operator unsigned int() const { return toU32(); }
    operator long() const { return operator TLong(); }
    operator unsigned long() const { return operator TUnsignedLong(); }
    operator float() const { return toF32(); }
    operator long long() const { return toI64(); }
    operator unsigned long long() const { return toU64(); }
    operator double() const { return toF64(); }
    /// @}

    /// @name UTF-16 texts
    /// @{

    /// Returns any text or character, truncated to the length of the result; an empty text and false for anything else.
    /// The array forms copy all code units of the result, zeros on failure.
    CString32 toString32(bool* ok = nullptr) const;
    bool toString32(unsigned short (&dest)[32]) const { return copyUnits(toString32().byteArray(), dest); }
    CString64 toString64(bool* ok = nullptr) const;
    bool toString64(unsigned short (&dest)[64]) const { return copyUnits(toString64().byteArray(), dest); }
    CString128 toString128(bool* ok = nullptr) const;
    bool toString128(unsigned short (&dest)[128]) const { return copyUnits(toString128().byteArray(), dest); }
    operator CString32() const { return toString32(); }
    operator CString64() const { return toString64(); }
    operator CString128() const { return toString128(); }
    /// @}

    /// @name 8-bit texts
    /// @{

    /// Copies the bytes of an 8-bit text or character, zero-filled and always terminated (toChar(): the one byte).
    /// Returns false and leaves the destination untouched for anything else, numbers and dates included.
    bool toCharStr64(char (&dest)[64]) const { return toBytes(dest, 64, 1); }
    bool toCharStr128(char (&dest)[128]) const { return toBytes(dest, 128, 1); }
    bool toCharStr256(char (&dest)[256]) const { return toBytes(dest, 256, 1); }
    bool toChar(char& dest) const { return toBytes(&dest, 1, 0); }
    operator char() const; ///< 0 on failure.
    /// @}

    /// @name One UTF-16 code unit
    /// @{

    /// Copies the first code unit of any text or character, 0 of an empty one; 0 and false for anything else.
    bool toUtf16Char(unsigned short& dest) const;
    bool toUtf16Char(QChar& dest) const;
    operator QChar() const;
    /// @}

    /**
     * @brief Returns the neutral text: numbers in decimal ("F32" with 6, "F64" with 15 significant digits), texts up to
     * their first zero (8-bit ones read as UTF-8).
     *
     * A "DATETIME" shows as yyyy-MM-ddTHH:mm:ss (ISO 8601, local time) if its payload is the packed 64-bit number.
     * Callers rely on a record, as the constructor makes it, showing as an empty text. So does an impossible date. An
     * impossible time of a possible date shows as midnight. Unreadable payloads show as 0 or as an empty text.
     */
    QString toStr() const;

    /// Returns toStr(), but "F32" and "F64" with the decimal separator and digit groups of the default QLocale.
    QString toLocaleStr() const;

    operator QString() const { return toStr(); } ///< toStr().

    /// Returns the prefix and the value's lowercase hexadecimal digits: two a byte of integers and characters (16 of a
    /// negative 32-bit number), all bytes of texts (code units low byte first), a packed date-time without leading
    /// zeros. Floats and "UNKNOWN" have no digits.
    QString toHex(const QString& prefix) const;

    /**
     * @brief Parses text as a type; malformed numbers and dates become a valid 0.
     *
     * Integers: 0x means hexadecimal, a leading 0 octal; a number out of 32 bits (64 bits for "U64", "I64") is
     * malformed; otherwise it is truncated to the width. Floats: C locale. Texts are truncated to the type's length;
     * 8-bit ones are the text's Latin-1 bytes, not padded. "DATETIME": a decimal 32-bit number is the packed form,
     * otherwise ISO 8601 (yyyy-MM-ddTHH:mm:ss.zzz). "F80" and above NTypes::TYPE_CHAR: "UNKNOWN" and a warning.
     */
    static CVariant fromStr(const QString& text, NTypes::ETypes type);

    /// Parses text as the variant's own type. If that yields no value, the tag stays and the payload becomes the type's
    /// default (none for "UNKNOWN", "F80" and above NTypes::TYPE_CHAR).
    CVariant& fromStr(const QString& text);

    /// Returns the bits of an integer, the least significant first; an empty array and a warning for any other type.
    QBitArray toBitArray() const;

    /// Returns an integer of the type from its bits. Missing bits are 0, bits beyond the width are ignored. Other types
    /// return "UNKNOWN" and log a warning.
    static CVariant fromBitArray(const QBitArray& bits, NTypes::ETypes type);

    /// The same as operator=(const QBitArray&).
    CVariant& fromBitArray(const QBitArray& bits) { return *this = bits; }

    /// Returns a copy of the payload; the tag is lost.
    operator QVariant() const { return mValue; }

    /// Returns true for equal tags and equal values. Floats are compared fuzzily (relative 1e-5 and 1e-12), texts by
    /// toStr(). Two variants of one type without values ("UNKNOWN", "F80") are equal.
    bool operator==(const CVariant& other) const;
    /// The negation of operator==.
    bool operator!=(const CVariant& other) const { return !(*this == other); }

    /// @name Order
    /// @{

    /**
     * @brief Compares by the left operand's type, which reads both. An unreadable operand is 0 or an empty text.
     *
     * Strict among variants of one type only (and without NaN): of an "I32" -1 and a "U32" 5 each is less than the
     * other, and `a > b` is not `b < a`. `<=` and `>=` negate `>` and `<`.
     */
    bool operator<(const CVariant& other) const;
    bool operator>(const CVariant& other) const;
    bool operator>=(const CVariant& other) const { return !(*this < other); }
    bool operator<=(const CVariant& other) const { return !(*this > other); }
    /// @}

private:
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CVariant& value);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CVariant& value);
    friend TLXCORE_EXPORT NQtCompat::THash qHash(const CVariant& value, NQtCompat::THash seed);
    friend TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CVariant& value);

    CVariant& share(const QVariant& value, NTypes::ETypes type)
    {
        mValue = value;
        mType = type;
        return *this;
    }

    // In place when the payload holds a value of the same Qt type that is not shared; Qt 6 would keep its null flag then.
    template <typename T>
    CVariant& set(const T& value, NTypes::ETypes type)
    {
        if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && mValue.isNull()) {
            mValue.clear();
        }
        mValue.setValue(value);
        mType = type;
        return *this;
    }

    CVariant& setBytes(const char* bytes, int size, NTypes::ETypes type);

    template <typename T>
    T toNumber(NTypes::ETypes target, bool* ok) const;
    quint64 toBits(NTypes::ETypes integer, bool* ok) const;
    template <typename T>
    T toText(bool* ok) const;
    bool copyUnits(const QByteArray& units, unsigned short* dest) const;
    bool toBytes(char* dest, int size, int terminator) const;

    QVariant mValue;
    NTypes::ETypes mType = NTypes::TYPE_UNKNOWN;
};

/// Writes the payload as Qt writes a QVariant, then the tag as a signed 32-bit integer.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CVariant& value);

/// Reads payload and tag, without a check that they agree. A container or foreign user type is rejected before any
/// allocation: ReadCorruptData, "UNKNOWN". Check the status of a stream: one that ends early
/// leaves in the variant what Qt's own readers leave.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CVariant& value);

/// Consistent with operator==; floats, whose comparison is fuzzy, hash by their type alone.
TLXCORE_EXPORT NQtCompat::THash qHash(const CVariant& value, NQtCompat::THash seed = 0);

/// Shows the type's name and what operator== compares: the value's text, or the fields of a "DATETIME".
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CVariant& value);

Q_DECLARE_METATYPE(CVariant)

#endif // TLXCORE_CVARIANT_H
