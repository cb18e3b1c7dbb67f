#ifndef TLXCORE_CCOMMANDLINEPARSER_H
#define TLXCORE_CCOMMANDLINEPARSER_H

#include <core/tlxCoreExport.h>

#include <QLocale>
#include <QMap>
#include <QString>
#include <QStringList>

/**
 * @brief The arguments that a tool was started with, as a map from key to text, and the keys that the tools share.
 *
 * Arguments have the form key=value. Keys are case-sensitive. No prefix is removed: "-port=4000" has the key "-port".
 * Blanks belong to key and value. The last of several arguments with one key wins. An argument without "=", or one that
 * begins with it, is ignored.
 *
 * The typed functions parse decimal numbers in the C locale. They return 0 for a text that is not a 32-bit number of
 * their sign, and for an absent key unless stated otherwise. A number within 32 bits is returned as it is: the tools
 * define the ranges of addresses, user levels and device classes.
 *
 * @code
 * QStringList list = QStringLiteral("tool drvadr=3 port=0x1F40").split(QLatin1Char(' '));
 * CCommandLineParser arguments(&list);
 * arguments.port(); // 8000
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CCommandLineParser
{
public:
    /// Takes the application's own arguments, the program's path included.
    CCommandLineParser();

    /// Takes the arguments of a list, the first one included. A null pointer is an empty list.
    explicit CCommandLineParser(QStringList* list);

    /// Copies the arguments.
    CCommandLineParser(const CCommandLineParser& other) noexcept;
    /// Copies the arguments.
    CCommandLineParser& operator=(const CCommandLineParser& other) noexcept;
    virtual ~CCommandLineParser();

    /// Returns the map of a list of arguments of the form key=value; empty for a null pointer.
    static QMap<QString, QString> argumentsMap(QStringList* list);

    /// Returns the map of the application's own arguments, the program's path included.
    static QMap<QString, QString> argumentsMap();

    /**
     * @brief Returns the map of the application's arguments of the form "-option word word".
     *
     * Every argument that begins with `option`, except the program's path, is a key. Its value is the arguments that
     * follow it up to the next one that begins with "-", joined by blanks and trimmed: "-f" in "tool -files a b -v"
     * yields "-files" with "a b". An empty option yields an empty map.
     */
    static QMap<QString, QString> argumentsMap(const QString& option);

    /// Returns the number of keys.
    int count() const { return static_cast<int>(arguments.size()); }

    /// Returns true if the key is present, with or without a value.
    bool contains(const QString& key) const { return arguments.contains(key); }

    /// Returns the key's value, or an empty text if it is absent.
    QString value(const QString& key) const { return arguments.value(key); }

    /// Returns "abadr", the bus address: any text, empty if absent.
    QString abAddress() const { return value(QLatin1String("abadr")); }

    /// Returns "ip", a network address: any text, empty if absent.
    QString ip() const { return value(QLatin1String("ip")); }

    /// Returns "server", the server's name; empty if absent.
    QString serverName() const { return value(QLatin1String("server")); }

    /// Returns "cu", the number of the current unit.
    int currentUnit() const;

    /// Returns "level", the user level: any signed number, 0 if absent.
    int userLevel() const;

    /// Returns "comadr", the communication address.
    quint32 comAddress() const;

    /// Returns "df", the device function. If absent it is 0, unlike the two addresses below.
    quint32 deviceFunction() const;

    /// Returns "powadr", the power module's address, or -1 if absent.
    int powerAddress() const;

    /// Returns "drvadr", the drive's address, or -1 if absent.
    int driveAddress() const;

    /// Returns "devtype", the device class.
    quint32 deviceClass() const;

    /// Returns "port", a port number: hexadecimal after "0x", else decimal. It is not limited to 65535.
    int port() const;

    /// Returns the locale named by "lang"; the C locale if it is empty or absent.
    QLocale language() const;

    /// Stores the first two letters of the locale's name ("de" of "de_DE") under "lang".
    void setLanguage(const QLocale& locale);

private:
    QMap<QString, QString> arguments;
};

#endif // TLXCORE_CCOMMANDLINEPARSER_H
