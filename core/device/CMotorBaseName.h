#ifndef TLXCORE_CMOTORBASENAME_H
#define TLXCORE_CMOTORBASENAME_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QRegExp>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief The base name of a motor's parameter file: manufacturer, motor name and number, joined by "_".
 *
 * A part is one or more ASCII letters, digits, "-", "&" or "+". A tab and a carriage return may follow; they are kept.
 * With the flag `numeric` the number is a single digit or empty. The setters check their argument; the constructor from
 * three parts and the stream do not. isValid() checks the whole name. The flag belongs to the object, not to the name:
 * assignment, comparison and the stream omit it.
 *
 * @code
 * const CMotorBaseName motor(QStringLiteral("C:/motors/ACME_M100_1"), false);
 * motor.name();            // "M100"
 * motor.fileBaseName();    // "ACME_M100_1"
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CMotorBaseName
{
public:
    /// Constructs an empty name that takes any number.
    CMotorBaseName() = default;

    /// Constructs an empty name. `numeric` restricts the number to a single digit.
    explicit CMotorBaseName(bool numeric);

    /// Stores the parts unchecked. Logs a warning if `numeric` is true and checkNumber() rejects the number.
    CMotorBaseName(const QString& manufacturer, const QString& name, const QString& number, bool numeric);

    /// Parses as setFileBaseName() does. Check isEmpty() and isValid().
    CMotorBaseName(const QString& fileName, bool numeric);

    /// Copies the parts and the flag.
    CMotorBaseName(const CMotorBaseName&) = default;
    virtual ~CMotorBaseName();

    /// Copies the three parts; the flag stays this object's own.
    CMotorBaseName& operator=(const CMotorBaseName& other) noexcept;

    /// Parses as setFileBaseName() does.
    CMotorBaseName& operator=(const QString& fileName);

    /// The same as fileBaseName().
    operator QString() const { return fileBaseName(); }

    /// Returns "UNKNOWN_UNKNOWN_1".
    static QString defaultMotorBaseName();

    /**
     * @brief Returns a new expression that matches a whole name, case-insensitively.
     *
     * Case-insensitive matching therefore also accepts U+0131, U+017F and U+212A. With `numeric` the number is one or
     * more digits.
     */
    static QRegExp fullRegExp(bool numeric);

    /// Returns true if the file name, without its directory and everything from its first "." on, is a motor base name.
    static bool isValid(const QString& fileName, bool numeric);

    /// Returns true if the whole text is one or more decimal digits (ASCII).
    bool checkNumber(const QString& number) const;

    /// Stores the part and returns true if the text is a valid part; otherwise returns false and changes nothing.
    bool setManufacturer(const QString& manufacturer);
    /// Stores the motor name as setManufacturer() does.
    bool setName(const QString& name);
    /// Stores the number as setManufacturer() does. With the flag, only an empty text or a single digit is valid.
    bool setNumber(const QString& number);

    /// Returns the stored text.
    QString manufacturer() const { return mManufacturer; }
    /// Returns the stored text.
    QString name() const { return mName; }
    /// Returns the number's text, or "0" if it is empty.
    QString number() const;

    /// Returns the number, or -1 if it is empty or not a signed 32-bit integer in base 10.
    qint32 numberAsI32() const;

    /// Returns the parts joined by "_", or an empty text if all three are empty.
    QString fileBaseName() const;

    /// Returns true if fullRegExp() with this object's flag matches fileBaseName().
    bool isValid() const;
    /// Returns true if all three parts are empty.
    bool isEmpty() const { return mManufacturer.isEmpty() && mName.isEmpty() && mNumber.isEmpty(); }
    /// The same as isEmpty().
    bool isNull() const { return isEmpty(); }

    /// Clears the three parts; the flag stays.
    void clear();

    /**
     * @brief Splits a file name, with or without a directory, into the three parts.
     *
     * @return true also for a file name that is not a motor base name, for example one with an extension; the object is
     * empty then. false only if fullRegExp() matches and a setter rejects a part: a number of more than one digit with
     * the flag, or a letter outside ASCII. That part and all after it are empty then.
     */
    bool setFileBaseName(const QString& fileName);

    /// Compares the three parts, not the flag.
    bool operator==(const CMotorBaseName& other) const;
    /// The negation of operator==.
    bool operator!=(const CMotorBaseName& other) const { return !(*this == other); }

private:
    friend TLXCORE_EXPORT NQtCompat::THash qHash(const CMotorBaseName& motor, NQtCompat::THash seed) noexcept;
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CMotorBaseName& motor);
    friend TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CMotorBaseName& motor);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CMotorBaseName& motor);

    QString mManufacturer;
    QString mName;
    QString mNumber;
    bool mNumericNumber = false;
};

Q_DECLARE_METATYPE(CMotorBaseName)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CMotorBaseName& motor, NQtCompat::THash seed = 0) noexcept;

/// Writes manufacturer, name and number, each as QString; not the flag.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CMotorBaseName& motor);
/// Reads what operator<< wrote, unchecked; the flag stays. Check the stream's status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CMotorBaseName& motor);

/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CMotorBaseName& motor);

#endif // TLXCORE_CMOTORBASENAME_H
