#ifndef TLXCORE_CSTR_H
#define TLXCORE_CSTR_H

#include <core/tlxCoreExport.h>
#include <core/types/NTypes.h>

#include <QChar>
#include <QDate>
#include <QLocale>
#include <QString>

class QByteArray;
class QDataStream;

/**
 * @brief Range-checked numbers from text, fixed-point texts, the names of the value types, and the fixed phrasings in
 * which the tools show versions, titles, devices, revisions, serial numbers and memory sizes.
 *
 * Static functions only, no state. Phrasings are filled placeholder by placeholder: a text that itself contains "%1"
 * takes the place of a placeholder for the texts that follow it.
 *
 * Numbers are read without any locale, with a point, as QString reads them: blanks
 * around the number are allowed, and base 0 obeys the prefixes "0x" (hexadecimal) and "0" (octal). A number that the
 * type cannot hold and a base that does not exist (bases are 0 and 2 to 36) are failures like any other.
 *
 * @code
 * unsigned char level = 1;
 * CStr::strToU8(QStringLiteral("256"), level, 10);        // false, level stays 1
 * CStr::strToU32(0U, QStringLiteral("0xff"), 0);          // 255
 * CStr::strToI16(short(-1), QStringLiteral("0x10"));      // -1: this form reads base 10 only
 * CStr::revisionToString(0x00010005U);                    // "1.005"
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
     * @param precision The decimals, at most 65535: more are not shown. Negative: 6, except
     * QLocale::FloatingPointShortest, the shortest text that round-trips.
     */
    static QString doubleToString(double value, int precision);

    /// "[ V%1 ]" with the version, and " - %1" with the extra text when that is not empty.
    static QString getVersionString(const QString& version, const QString& extra);

    /// "[ V%1 - %2 ]" with the version and createDate(), and " - %1" with the extra text when that is not empty.
    static QString getVersionString(const QString& version, const QString& date, const QLocale& locale,
                                    const QString& extra);

    /// A compiler's build date in the locale's short format; empty when it is none.
    static QString createDate(const QLocale& locale, const QString& compilerDate);

    /**
     * @brief The date of a compiler's __DATE__.
     *
     * @param compilerDate English month abbreviation, day, year, any number of blanks between: "Nov  5 2026".
     * @return An invalid date when the text is none.
     */
    static QDate createQDateFrom__DATE__(const QString& compilerDate);

    /**
     * @brief The title of a tool: "%1 - %2 - %3" with its name, the company's long name and the long version string.
     *
     * @param locale For the date.
     * @param date The build date as the compiler gives it.
     * @param name The tool's name.
     * @param version The tool's version.
     * @param extra Behind the version when not empty.
     */
    static QString createApplicationTitle(const QLocale& locale, const QString& date, const QString& name,
                                          const QString& version, const QString& extra);

    /**
     * @brief The short title of a tool: "%1 %2 - V%3" with the company's short name, the tool's name and version, then
     * " - [ Build " with the build number, " - " and the build date in ISO 8601 form, and " ]".
     *
     * @param locale Not used: the date is the same everywhere.
     * @param name The tool's name.
     * @param version The tool's version.
     * @param compilerDate The build date as the compiler gives it; its place stays empty when it is no date.
     * @param build The build number.
     */
    static QString createShortApplicationTitle(const QLocale& locale, const QString& name,
                                               const QString& version, const QString& compilerDate,
                                               unsigned int build);

    /// A device to choose: "%1 [s/n: %2]" with its name and serial number.
    static QString createDeviceSelectionValue(const QString& name, unsigned int serial);

    /// A sub-device to choose: "%1 - %2" with its name and createDeviceSelectionValue().
    static QString createSubDeviceSelectionValue(const QString& subName, const QString& deviceName,
                                                 unsigned int serial);

    /**
     * @brief A text of at most so many characters: what is longer is cut and ends in " ...".
     *
     * @param text The text.
     * @param maxLength Its longest length; below 4 the result is " ..." all the same.
     * @param wasCut Receives whether the text was cut.
     * @param atBlank Cut at the last blank that is left of the limit, when there is one.
     */
    static QString cutString(const QString& text, unsigned int maxLength, bool& wasCut, bool atBlank);

    /// The upper 16 bits, ".", the lower 16 bits with at least three digits: 0x00010005 is "1.005".
    static QString revisionToString(unsigned int revision);

    /// The upper byte, ".", the lower byte with at least two digits: 0x0105 is "1.05".
    static QString revisionToString(unsigned short revision);

    /**
     * @brief Reads what revisionToString() wrote; without a dot the lower half is 0.
     *
     * @param text One or two decimal numbers from 0 to 65535. As everywhere, a sign is part of a number: "+1.005" and
     * "-0.5" are revisions, "-1.5" is not.
     * @param revision Receives them; untouched on failure.
     * @return Whether the text has this form.
     */
    static bool stringToRevision(QString text, unsigned int& revision);

    /// The same with numbers from 0 to 255.
    static bool stringToRevision(QString text, unsigned short& revision);

    /**
     * @brief Splits "major.minor" or "major" into decimal numbers.
     *
     * @param text The text.
     * @param major Receives the first number, 0 when it is none; untouched when there are more than two parts.
     * @param minor Receives the second number; 0 when there is none.
     * @return Whether every part is a number.
     */
    static bool _splitStringAtDot(QString text, int& major, int& minor);

    /// A serial number in groups counted from the left, one digit and then three each: "1 234 567 890", "1 234 5".
    static QString serialToString(unsigned int serial);

    /**
     * @brief A count of bytes for people, such as "10.0 KiB".
     *
     * @param bytes The count; a unit is used from ten of it on. Below 10240, negative counts included, it is shown in
     * "Byte"; "KiB" to "TiB" have one decimal and a point, "PiB" none.
     */
    static QString memSizeToString(long long bytes);

    /**
     * @brief The path of a log file in the log directory, which is created: CPath::logPath().
     *
     * @param baseName A file name, of which directories and the last suffix are left away; when empty, that of the
     * running program.
     * @param withThreadId Puts "_TID" and the calling thread's identifier in hexadecimal behind the name.
     */
    static QString createLogFileName(QString baseName, bool withThreadId);

    /**
     * @brief Whether a stream could be read, and what to tell the user when not.
     *
     * @param stream The stream that was read from.
     * @param valueName What was read.
     * @param message Receives the message, translated in the context "CStr"; untouched when all is well.
     */
    static bool inStreamStatus(const QDataStream& stream, const QString& valueName, QString& message);

    /**
     * @brief Where a menu text marks its accelerator: a single "&" before a letter, digit, mark or "_".
     *
     * @return The index of the first match of "(^|[^&])&(?!(&|\W|$))": that of the character before the ampersand,
     * 0 when the text begins with it, -1 when there is none. "&&" marks nothing.
     */
    static int indexOfAmpersand(const QString& text);

    /**
     * @brief Copies a text's UTF-16 units into a buffer, as many as it holds, and a zero unit behind them when there
     * is room.
     *
     * @param text The text.
     * @param buffer The buffer; may be null.
     * @param bufferBytes Its size in bytes.
     * @return The units written, the zero not counted.
     */
    static int toUtf16(const QString& text, unsigned short* buffer, int bufferBytes);

    /// The text of bytes that are UTF-16 units of the machine's byte order, up to the first zero unit; an odd last
    /// byte is left away. Byte-order marks are ordinary units.
    static QString fromUtf16(const QByteArray& bytes);

    /// The text of a buffer of so many bytes, up to the first zero unit; empty for a null pointer or less than 2 bytes.
    static QString fromUtf16(const unsigned short* buffer, int bytes);
};

#endif // TLXCORE_CSTR_H
