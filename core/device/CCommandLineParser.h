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
 * Arguments have the form key=value. Keys are case-sensitive; no prefix is removed ("-port=4000" has the key
 * "-port") and blanks belong to key and value. The last of several arguments with one key wins. What has no "=", or
 * begins with it, is ignored.
 *
 * The typed functions give 0 for a text that is no number of their width and sign; for an absent key too, except
 * where stated. Numbers are decimal, in the C locale.
 *
 * @code
 * QStringList list{"tool", "drvadr=3", "port=0x1F40"};
 * CCommandLineParser arguments(&list);
 * arguments.port(); // 8000
 * @endcode
 */
class TLXCORE_EXPORT CCommandLineParser
{
public:
    /// The application's own arguments, the program's path included.
    CCommandLineParser();

    /// The arguments of a list, the first included; null is an empty list.
    explicit CCommandLineParser(QStringList* list);

    CCommandLineParser(const CCommandLineParser& other) noexcept;
    CCommandLineParser& operator=(const CCommandLineParser& other) noexcept;
    virtual ~CCommandLineParser();

    /// The map of a list of arguments of the form key=value; empty for null.
    static QMap<QString, QString> argumentsMap(QStringList* list);

    /// The same over the application's own arguments, the program's path included.
    static QMap<QString, QString> argumentsMap();

    /**
     * @brief The application's arguments in the form "-option word word".
     *
     * Every argument that begins with `option`, but not the program's path, is a key. Its value is the arguments
     * that follow it up to the next one that begins with "-", joined by blanks and trimmed at the ends: "-f" in
     * "tool -files a b -v" gives "-files" with "a b". An empty option gives an empty map.
     */
    static QMap<QString, QString> argumentsMap(const QString& option);

    int count() const;                       ///< How many keys there are.
    bool contains(const QString& key) const; ///< Whether the key is there, with or without a value.
    QString value(const QString& key) const; ///< The key's value; empty when it is absent.

    QString abAddress() const;  ///< "abadr": the bus address.
    QString ip() const;         ///< "ip": the drive's network address.
    QString serverName() const; ///< "server": the server's name.
    int currentUnit() const;    ///< "cu": the current unit.
    int userLevel() const;      ///< "level": the user level.
    quint32 comAddress() const; ///< "comadr": the communication address.
    quint32
    deviceFunction() const;   ///< "df": the device function. Absent it is 0, unlike the two addresses below.
    int powerAddress() const; ///< "powadr": the power module's address, -1 when absent.
    int driveAddress() const; ///< "drvadr": the drive's address, -1 when absent.
    quint32 deviceClass() const; ///< "devtype": the device class.
    int port() const;            ///< "port": hexadecimal after "0x", else decimal.
    QLocale language() const;    ///< "lang": the locale of that name; the C locale when empty or absent.

    /// Stores the language of a locale ("de" of "de_DE") under "lang".
    void setLanguage(const QLocale& locale);

private:
    QMap<QString, QString> arguments;
};

#endif // TLXCORE_CCOMMANDLINEPARSER_H
