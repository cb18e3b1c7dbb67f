#ifndef TLXCORE_CSTR_H
#define TLXCORE_CSTR_H

#include <core/tlxCoreExport.h>
#include <core/types/NTypes.h>

#include <QChar>
#include <QString>

/**
 * @brief Range-checked numbers from text, fixed-point texts, and the names of the value types.
 *
 * Static functions only, no state. Numbers are read without any locale, with a point, as QString reads them: blanks
 * around the number are allowed, and base 0 obeys the prefixes "0x" (hexadecimal) and "0" (octal). A number that the
 * type cannot hold and a base that does not exist (bases are 0 and 2 to 36) are failures like any other.
 *
 * @code
 * unsigned char level = 1;
 * CStr::strToU8(QStringLiteral("256"), level, 10);        // false, level stays 1
 * CStr::strToU32(0U, QStringLiteral("0xff"), 0);          // 255
 * CStr::strToI16(short(-1), QStringLiteral("0x10"));      // -1: this form reads base 10 only
 * @endcode
 */
class TLXCORE_EXPORT CStr
{
public:
    CStr() = delete;

    /// The printable name of a value type, "UNKNOWN" (0) to "CHAR" (20); a null text for any other number.
    static QString nTypeToStr(NTypes::ETypes type);

    /**
     * @name Numbers into a variable
     * @{
     */
    /**
     * @brief Reads a number of exactly this type.
     *
     * @param s The text.
     * @param out Receives the number; untouched on failure.
     * @param base 0 or 2 to 36.
     * @return Whether the text is such a number.
     */
    static bool strToU8(const QString& s, unsigned char& out, int base);
    static bool strToU16(const QString& s, unsigned short& out, int base);
    static bool strToU32(const QString& s, unsigned int& out, int base);
    static bool strToU64(const QString& s, unsigned long long& out, int base);
    static bool strToI8(const QString& s, signed char& out, int base);
    static bool strToI16(const QString& s, short& out, int base);
    static bool strToI32(const QString& s, int& out, int base);
    static bool strToI64(const QString& s, long long& out, int base);
    static bool strToF32(const QString& s, float& out);
    static bool strToF64(const QString& s, double& out);
    /** @} */

    /**
     * @name Numbers, 0 on failure
     * @{
     */
    /**
     * @brief Reads a number of exactly this type.
     *
     * @param s The text.
     * @param ok When not null, receives whether the text is such a number.
     * @param base 0 or 2 to 36.
     * @return 0 on failure.
     */
    static unsigned char strToU8(const QString& s, bool* ok, int base);
    static unsigned short strToU16(const QString& s, bool* ok, int base);
    static unsigned int strToU32(const QString& s, bool* ok, int base);
    static unsigned long long strToU64(const QString& s, bool* ok, int base);
    static signed char strToI8(const QString& s, bool* ok, int base);
    static short strToI16(const QString& s, bool* ok, int base);
    static int strToI32(const QString& s, bool* ok, int base);
    static long long strToI64(const QString& s, bool* ok, int base);
    static float strToF32(const QString& s, bool* ok);
    static double strToF64(const QString& s, bool* ok);
    /** @} */

    /**
     * @name Numbers, the fallback on failure
     * @{
     */
    /**
     * @brief Reads a number of exactly this type; the signed forms read base 10 only.
     *
     * @param fallback What is returned when the text is no such number.
     * @param s The text.
     * @param base 0 or 2 to 36.
     */
    static unsigned char strToU8(unsigned char fallback, const QString& s, int base);
    static unsigned short strToU16(unsigned short fallback, const QString& s, int base);
    static unsigned int strToU32(unsigned int fallback, const QString& s, int base);
    static unsigned long long strToU64(unsigned long long fallback, const QString& s, int base);
    static signed char strToI8(signed char fallback, const QString& s);
    static short strToI16(short fallback, const QString& s);
    static int strToI32(int fallback, const QString& s);
    static long long strToI64(long long fallback, const QString& s);
    static float strToF32(float fallback, const QString& s);
    static double strToF64(double fallback, const QString& s);
    /** @} */

    /**
     * @brief A fixed-point number: its integer part, the separator and its raw fraction bits, each in decimal.
     *
     * The fraction is not turned into decimal digits: 5 with 2 fraction bits and "." is "1.1".
     *
     * @param value The raw number.
     * @param fracBits How many of its low bits are the fraction; with 32 and more all are.
     * @param sep The separator.
     */
    static QString fixPointToStr(unsigned int value, unsigned int fracBits, const QChar& sep);

    /**
     * @brief The raw number of a text that fixPointToStr() made.
     *
     * @param s Two decimal numbers of at most 32 bits, the separator between them. What the fraction has beyond its
     * bits, and the integer part beyond 32 bits after it is put in its place, is dropped.
     * @param ok When not null, receives whether the text has this form.
     * @param fracBits How many of the low bits are the fraction; with 32 and more all are.
     * @param sep The separator.
     * @return 0 on failure.
     */
    static unsigned int strToFixPoint(const QString& s, bool* ok, unsigned int fracBits, const QChar& sep);

    /**
     * @brief A number with a fixed count of decimals in the default locale, without group separators.
     *
     * @param value The number.
     * @param precision The decimals; below 0 they are 6, and no more than 1100 are shown (a double has fewer).
     */
    static QString doubleToString(double value, int precision);
};

#endif // TLXCORE_CSTR_H
