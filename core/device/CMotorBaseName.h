#ifndef TLXCORE_CMOTORBASENAME_H
#define TLXCORE_CMOTORBASENAME_H

#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QRegExp>
#include <QString>

class QDataStream;
class QDebug;

/**
 * @brief The base name of a motor's parameter file: manufacturer, motor name and number, joined by "_".
 *
 * A part is one or more ASCII letters, digits, "-", "&" or "+", and may be followed by a tab and a carriage return, which
 * stay in it. With the flag `numeric` the number is a single digit or empty. The setters check, the constructor from
 * three parts and the stream do not; isValid() says whether the whole name is one. The flag belongs to the object, not to
 * the name: assignment, comparison and the stream leave it out.
 *
 * @code
 * const CMotorBaseName motor(QStringLiteral("C:/motors/ACME_M100_1"), false);
 * motor.name();            // "M100"
 * motor.fileBaseName();    // "ACME_M100_1"
 * @endcode
 */
class TLXCORE_EXPORT CMotorBaseName
{
public:
    /// Empty, any number.
    CMotorBaseName() = default;

    /// Empty; `numeric` says whether the number must be numeric.
    explicit CMotorBaseName(bool numeric);

    /// Stores the parts unchecked. Logs a warning when `numeric` is true and checkNumber() refuses the number.
    CMotorBaseName(const QString& manufacturer, const QString& name, const QString& number, bool numeric);

    /// Parses as setFileBaseName() does; what was not understood shows in isEmpty() and isValid().
    CMotorBaseName(const QString& fileName, bool numeric);

    /// Copies the parts and the flag.
    CMotorBaseName(const CMotorBaseName&) = default;
    virtual ~CMotorBaseName();

    /// Copies the three parts; the flag stays this object's own.
    CMotorBaseName& operator=(const CMotorBaseName& other) noexcept;

    /// Parses as setFileBaseName() does.
    CMotorBaseName& operator=(const QString& fileName);

    /// The same as fileBaseName().
    operator QString() const;

    /// "UNKNOWN_UNKNOWN_1".
    static QString defaultMotorBaseName();

    /**
     * @brief A fresh expression of the whole name, not sensitive to case.
     *
     * Being so, it also takes the letters whose other case is an ASCII letter (U+0131, U+017F, U+212A). With `numeric` the
     * number is one or more digits.
     */
    static QRegExp fullRegExp(bool numeric);

    /// Whether the file name, without its directory and all that follows its first ".", is a motor base name.
    static bool isValid(const QString& fileName, bool numeric);

    /// Whether the whole text is one or more decimal digits (ASCII).
    bool checkNumber(const QString& number) const;

    /// Stores the part and is true if the text is one; otherwise false, and the part stays as it was.
    bool setManufacturer(const QString& manufacturer);
    bool setName(const QString& name);
    /// With the flag, only an empty text or a single digit is a number.
    bool setNumber(const QString& number);

    /// The text stored.
    QString manufacturer() const;
    QString name() const;
    /// The number's text, "0" when it is empty.
    QString number() const;

    /// The number, -1 when it is empty or not a signed 32-bit integer in base 10.
    qint32 numberAsI32() const;

    /// The parts joined by "_"; empty when all three are empty.
    QString fileBaseName() const;

    /// Whether fullRegExp() of this object's flag matches fileBaseName().
    bool isValid() const;
    /// Whether all three parts are empty.
    bool isEmpty() const;
    /// The same as isEmpty().
    bool isNull() const;

    /// Empties the three parts.
    void clear();

    /**
     * @brief Splits a file name, with or without a directory, into the three parts.
     *
     * A file name that is not a motor base name, one with an extension included, leaves the object empty and is no
     * failure. False only when fullRegExp() takes the name and a setter refuses a part, which then stays empty with all
     * that follow it: a number of more than one digit with the flag, or a letter that is not ASCII.
     */
    bool setFileBaseName(const QString& fileName);

    /// Compares the three parts, not the flag.
    bool operator==(const CMotorBaseName& other) const;
    bool operator!=(const CMotorBaseName& other) const;

private:
    friend TLXCORE_EXPORT uint qHash(const CMotorBaseName& motor, uint seed) noexcept;
    friend TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CMotorBaseName& motor);
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CMotorBaseName& motor);

    QString mManufacturer;
    QString mName;
    QString mNumber;
    bool mNumericNumber = false;
};

Q_DECLARE_METATYPE(CMotorBaseName)

/// Agrees with operator==.
TLXCORE_EXPORT uint qHash(const CMotorBaseName& motor, uint seed = 0) noexcept;

/// Manufacturer, name and number as stored, each as QString; not the flag.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CMotorBaseName& motor);
/// Reads what operator<< wrote, unchecked; the flag stays. After a short stream check the status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CMotorBaseName& motor);

TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CMotorBaseName& motor);

#endif // TLXCORE_CMOTORBASENAME_H
