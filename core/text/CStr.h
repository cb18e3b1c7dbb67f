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
 * @brief Parses numbers with a range check and holds the phrasings that the tools share: type names, versions, titles,
 * devices, revisions, serial numbers, memory sizes and log file names.
 *
 * Static functions only, no state. A template is filled one placeholder at a time: a "%1" inside an argument is
 * replaced by the next argument.
 *
 * Numbers are parsed in the C locale, as QString parses them. Blanks around the number are allowed. Base 0 takes the
 * base from the prefix, "0x" (hexadecimal) or "0" (octal); other bases are 2 to 36. A number out of the type's range
 * and an unknown base are failures.
 *
 * @code
 * unsigned char level = 1;
 * CStr::strToU8(QStringLiteral("256"), level, 10);        // false, level stays 1
 * CStr::strToU32(0U, QStringLiteral("0xff"), 0);          // 255
 * CStr::strToI16(short(-1), QStringLiteral("0x10"));      // -1: this form reads base 10 only
 * CStr::revisionToString(0x00010005U);                    // "1.005"
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref numbers_and_text
 * @since 1.0
 */
class TLXCORE_EXPORT CStr
{
public:
    CStr() = delete;

    /// Returns the name of a value type, "UNKNOWN" (0) to "CHAR" (20); a null text for any other number.
    static QString nTypeToStr(NTypes::ETypes type);

    /// @name Numbers into a variable
    /// @{

    /// Parses a number of exactly this type. Returns false and leaves `out` untouched if the text is not such a number.
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
    /// @}

    /// @name Numbers, 0 on failure
    /// @{

    /// Parses a number of exactly this type; returns 0 on failure. `ok`, if not null, receives whether it is such a
    /// number.
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
    /// @}

    /// @name Numbers, the fallback on failure
    /// @{

    /// Parses a number of exactly this type; returns the fallback on failure. The signed forms parse base 10 only.
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
    /// @}

    /// Returns a fixed-point number as text: the integer part, the separator and the raw fraction bits, in decimal. The
    /// fraction, the low `fracBits` bits (32 and more: all), is not converted into decimal digits: 5 with 2 fraction
    /// bits and "." is "1.1".
    static QString fixPointToStr(unsigned int value, unsigned int fracBits, const QChar& sep);

    /**
     * @brief Parses a text that fixPointToStr() made: two decimal numbers of at most 32 bits around the separator.
     *
     * Bits of the fraction beyond `fracBits`, and bits that leave 32 bits, are dropped. Returns 0 on failure. `ok`, if
     * not null, receives whether the text has this form.
     *
     * @code
     * bool ok = false;
     * CStr::strToFixPoint(QStringLiteral("3.7"), &ok, 4, QLatin1Char('.'));    // 0x37, ok is true
     * CStr::strToFixPoint(QStringLiteral("3"), &ok, 4, QLatin1Char('.'));      // 0, ok is false
     * @endcode
     */
    static unsigned int strToFixPoint(const QString& s, bool* ok, unsigned int fracBits, const QChar& sep);

    /// Returns a number with `precision` decimals, at most 65535, in the default locale, without group separators. A
    /// negative precision is 6, except QLocale::FloatingPointShortest, the shortest text that round-trips.
    static QString doubleToString(double value, int precision);

    /// Returns "[ V%1 ]" with the version, and " - %1" with the extra text if that is not empty.
    static QString getVersionString(const QString& version, const QString& extra);

    /// Returns "[ V%1 - %2 ]" with the version and createDate(), and " - %1" with the extra text if that is not empty.
    static QString getVersionString(const QString& version, const QString& date, const QLocale& locale,
                                    const QString& extra);

    /// Returns a compiler's build date in the locale's short format; empty if the text is not a date.
    static QString createDate(const QLocale& locale, const QString& compilerDate);

    /// Parses a compiler's __DATE__: English month abbreviation, day, year, separated by blanks: "Nov  5 2026". Returns
    /// an invalid date for a text of another form.
    static QDate createQDateFrom__DATE__(const QString& compilerDate);

    /// Returns the title of a tool: "%1 - %2 - %3" with its name, the company's long name and getVersionString(). The
    /// date is a compiler's __DATE__.
    static QString createApplicationTitle(const QLocale& locale, const QString& date, const QString& name,
                                          const QString& version, const QString& extra);

    /**
     * @brief Returns the short title of a tool: "%1 %2 - V%3" with company, tool and version, then
     * " - [ Build " with the build number, " - " and the build date in ISO 8601 form, and " ]".
     *
     * @param locale Not used.
     * @param compilerDate A compiler's __DATE__; another text leaves its place empty.
     */
    static QString createShortApplicationTitle(const QLocale& locale, const QString& name,
                                               const QString& version, const QString& compilerDate,
                                               unsigned int build);

    /// Returns the entry of a device in a selection: "%1 [s/n: %2]" with its name and serial number.
    static QString createDeviceSelectionValue(const QString& name, unsigned int serial);

    /// Returns the entry of a sub-device: "%1 - %2" with its name and createDeviceSelectionValue().
    static QString createSubDeviceSelectionValue(const QString& subName, const QString& deviceName,
                                                 unsigned int serial);

    /**
     * @brief Shortens a text to maxLength characters; a cut text ends in " ...".
     *
     * @param maxLength The longest length of the result; below 4 a cut text is " ...".
     * @param wasCut Receives whether the text was cut.
     * @param atBlank Cut at the last blank before the limit, if any.
     */
    static QString cutString(const QString& text, unsigned int maxLength, bool& wasCut, bool atBlank);

    /// Returns the upper 16 bits, ".", the lower 16 bits with at least three digits: 0x00010005 is "1.005".
    static QString revisionToString(unsigned int revision);

    /// Returns the upper byte, ".", the lower byte with at least two digits: 0x0105 is "1.05".
    static QString revisionToString(unsigned short revision);

    /**
     * @brief Parses what revisionToString() returned. Without a dot the lower half is 0.
     *
     * @param text One or two decimal numbers from 0 to 65535. As everywhere, a sign is part of a number: "+1.005" and
     * "-0.5" are revisions, "-1.5" is not.
     * @param revision Receives them; untouched on failure.
     * @return Whether the text has this form.
     */
    static bool stringToRevision(QString text, unsigned int& revision);

    /// As above, with numbers from 0 to 255.
    static bool stringToRevision(QString text, unsigned short& revision);

    /**
     * @brief Splits "major.minor" or "major" into decimal numbers.
     *
     * @param major Receives the first number, 0 if it is not one; untouched if there are more than two parts.
     * @param minor Receives the second number, 0 if it is missing or not one.
     * @return true if every part is a number.
     */
    static bool _splitStringAtDot(QString text, int& major, int& minor);

    /// Returns a serial number in groups from the left, one digit, then three each: "1 234 567 890", "1 234 5".
    static QString serialToString(unsigned int serial);

    /// Returns a size in bytes in a readable unit, which is used once the value reaches ten of it: 10240 is "10.0 KiB".
    /// Smaller and negative sizes are in "Byte". "KiB" to "TiB" have one decimal and a point, "PiB" none.
    static QString memSizeToString(long long bytes);

    /**
     * @brief Returns the path of a log file in CPath::logPath(), which is created.
     *
     * @param baseName A file name; its directory and last suffix are omitted. Empty: the running program's.
     * @param withThreadId Appends "_TID" and the calling thread's identifier in hexadecimal to the name.
     */
    static QString createLogFileName(QString baseName, bool withThreadId);

    /// Returns true if a stream could be read. Otherwise sets a message for the user, which names what was read and is
    /// translated in the context "CStr".
    static bool inStreamStatus(const QDataStream& stream, const QString& valueName, QString& message);

    /**
     * @brief Returns where a menu text marks its accelerator: a single "&" before a letter, digit, mark or "_".
     *
     * @return The index of the first match of "(^|[^&])&(?!(&|\W|$))": that of the character before the ampersand,
     * 0 if the text begins with it, -1 if nothing is marked. "&&" marks nothing.
     */
    static int indexOfAmpersand(const QString& text);

    /// Copies the UTF-16 code units of a text into a buffer, which may be null, as many as fit, and a terminator if
    /// there is room. Returns the number of code units written, without the terminator.
    static int toUtf16(const QString& text, unsigned short* buffer, int bufferBytes);

    /// Returns the text of UTF-16 code units in the machine's byte order, up to the first zero. An odd last byte is
    /// omitted. Byte-order marks are ordinary code units.
    static QString fromUtf16(const QByteArray& bytes);

    /// As above, for a buffer of `bytes` bytes; empty for a null pointer or fewer than 2 bytes.
    static QString fromUtf16(const unsigned short* buffer, int bytes);
};

#endif // TLXCORE_CSTR_H
