#ifndef TLXCORE_CDEVICEHARDWAREID_H
#define TLXCORE_CDEVICEHARDWAREID_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QRegExp>
#include <QString>
#include <QStringView>

class QDataStream;
class QDebug;

/**
 * @brief Names a piece of drive hardware: an optional prefix of one character, up to three numbers of three digits
 * (platform, version, revision) and an optional free name.
 *
 * Numbers are 0 to 999; 65535 means "not set". A value has up to three forms, of which the richest is printed:
 *
 * | form | made of | example |
 * |---|---|---|
 * | minimum | prefix, platform | A012 |
 * | short | prefix, platform, version | A012_003 |
 * | full | prefix, platform, version, revision | A012_003_001 |
 *
 * "_" and the name follow when there is a name. The parser is more lenient than the static validators: it takes one to
 * three digits a number. A digit is a decimal digit of any script (in the basic plane), with the value of that digit.
 * One character is one UTF-16 unit. Validation and parsing take linear time.
 *
 * @code
 * const CDeviceHardwareId id(QStringLiteral("A12_3_Board"));
 * id.hardwareId();    // "A012_003_Board"
 * id.revision();      // 65535: not set
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CDeviceHardwareId
{
public:
    /// Constructs an empty identifier.
    CDeviceHardwareId() = default;

    /// Parses as setHardwareId() does. Check isValid().
    CDeviceHardwareId(const QString& text);

    /// Copies all fields.
    CDeviceHardwareId(const CDeviceHardwareId&) = default;
    /// Moves all fields.
    CDeviceHardwareId(CDeviceHardwareId&&) = default;
    virtual ~CDeviceHardwareId();

    /// Copies all fields.
    CDeviceHardwareId& operator=(const CDeviceHardwareId&) = default;
    /// Moves all fields.
    CDeviceHardwareId& operator=(CDeviceHardwareId&&) = default;

    /// Parses as setHardwareId() does.
    CDeviceHardwareId& operator=(const QString& text);

    /// The same as hardwareId().
    operator QString() const { return hardwareId(); }

    /// Returns a new expression of the minimum form, for validators of input fields.
    static QRegExp minimumRegExp();
    /// Returns a new expression of the short form.
    static QRegExp shortRegExp();
    /// Returns a new expression of the full form.
    static QRegExp fullRegExp();

    /// Returns true if the whole text has the minimum form, with exactly three digits for each number.
    static bool isMinimumHardwareId(const QString& text) { return isOfForm(text, 1); }
    /// Returns true if the whole text has the short form.
    static bool isShortHardwareId(const QString& text) { return isOfForm(text, 2); }
    /// Returns true if the whole text has the full form.
    static bool isFullHardwareId(const QString& text) { return isOfForm(text, 3); }

    /// Sets the prefix, unchecked. More than one character, or a digit, makes every form invalid.
    void setPrefix(const QString& prefix) { mPrefix = prefix; }
    /// Returns the prefix as it was stored.
    QString prefix() const { return mPrefix; }

    /// Sets the number, unchecked: 65535 means "not set", and from 1000 on the forms that need it are invalid.
    void setPlatform(unsigned short platform) { mPlatform = platform; }
    /// As setPlatform().
    void setVersion(unsigned short version) { mVersion = version; }
    /// As setPlatform().
    void setRevision(unsigned short revision) { mRevision = revision; }

    /// Sets the number from one to three decimal digits. Returns false and changes nothing for any other text.
    bool setPlatform(const QString& text) { return setNumber(mPlatform, text); }
    /// As setPlatform().
    bool setVersion(const QString& text) { return setNumber(mVersion, text); }
    /// As setPlatform().
    bool setRevision(const QString& text) { return setNumber(mRevision, text); }

    /// Returns the number, or 65535 if it is not set.
    unsigned short platform() const { return mPlatform; }
    /// As platform().
    unsigned short version() const { return mVersion; }
    /// As platform().
    unsigned short revision() const { return mRevision; }

    /// Returns the number in decimal, padded with "0" to three digits; empty if it is not set.
    QString platformStr() const { return numberText(mPlatform); }
    /// As platformStr().
    QString versionStr() const { return numberText(mVersion); }
    /// As platformStr().
    QString revisionStr() const { return numberText(mRevision); }

    /// Sets the name, unchecked.
    void setName(const QString& name) { mName = name; }
    /// Returns the name.
    QString name() const { return mName; }

    /// Returns true if the whole text is one to three decimal digits, as every number in a text must be.
    bool checkIVR(const QString& text) const;

    /// Returns true if the prefix is empty or one non-digit, and the platform is below 1000.
    bool isMinimumHardwareId() const { return numbers() >= 1; }
    /// Returns true if isMinimumHardwareId(), and the version is below 1000.
    bool isShortHardwareId() const { return numbers() >= 2; }
    /// Returns true if isShortHardwareId(), and the revision is below 1000.
    bool isFullHardwareId() const { return numbers() >= 3; }

    /// Returns the text of the form; empty if the value does not have it.
    QString minimumHardwareId() const { return form(1); }
    /// As minimumHardwareId(), for the short form.
    QString shortHardwareId() const { return form(2); }
    /// As minimumHardwareId(), for the full form.
    QString fullHardwareId() const { return form(3); }

    /// Returns the text of the richest form that the value has, or the name alone.
    QString hardwareId() const;

    /// Returns true if the value has one of the forms, each of which contains the minimum.
    bool isValid() const { return isMinimumHardwareId(); }
    /// Returns true if nothing is set.
    bool isEmpty() const { return *this == CDeviceHardwareId(); }
    /// The same as isEmpty().
    bool isNull() const { return isEmpty(); }

    /// Resets all fields to "not set".
    void clear() { *this = CDeviceHardwareId(); }

    /**
     * @brief Parses an identifier: an optional non-digit, up to three numbers of one to three digits with "_" between,
     * and the rest after a "_" as the name.
     *
     * @return true if the first number was parsed, or for an empty text, which clears. false otherwise; the numbers are
     * not set and the name is empty then, but a prefix that was found stays.
     */
    bool setHardwareId(const QString& text);

    /// Compares all five fields.
    bool operator==(const CDeviceHardwareId& other) const;
    /// The negation of operator==.
    bool operator!=(const CDeviceHardwareId& other) const { return !(*this == other); }

private:
    friend TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceHardwareId& id);

    static bool isOfForm(const QString& text, int count);
    static bool setNumber(unsigned short& field, const QString& text);
    static QString numberText(unsigned short number);
    bool parse(QStringView text);
    int numbers() const;
    QString form(int count) const;

    QString mPrefix;
    unsigned short mPlatform = 0xFFFF;
    unsigned short mVersion = 0xFFFF;
    unsigned short mRevision = 0xFFFF;
    QString mName;
};

Q_DECLARE_METATYPE(CDeviceHardwareId)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CDeviceHardwareId& id, NQtCompat::THash seed = 0) noexcept;

/// Writes the prefix as QString, the three numbers as signed 16-bit integers (-1: not set), then the name as QString.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CDeviceHardwareId& id);
/// Reads what operator<< wrote. Check the stream's status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CDeviceHardwareId& id);

/// Shows the type and every field that is not at its default.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CDeviceHardwareId& id);

#endif // TLXCORE_CDEVICEHARDWAREID_H
