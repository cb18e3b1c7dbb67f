#include <core/device/CMotorBaseName.h>

#include <core/base/DebugFields.h>
#include <core/base/QtTexts.h>
#include <core/base/TextScanner.h>

#include <QDataStream>
#include <QDebug>
#include <QFileInfo>
#include <QHash>

namespace {

/// "[0-9a-zA-Z\-&\+]".
bool isPartCharacter(QChar codeUnit)
{
    const ushort lower = codeUnit.unicode() | 0x20;
    return NCharacters::isAsciiDigit(codeUnit) || (lower >= 'a' && lower <= 'z')
           || codeUnit == QLatin1Char('-') || codeUnit == QLatin1Char('&') || codeUnit == QLatin1Char('+');
}

/// The same class, not sensitive to case: dotless i, long s and the Kelvin sign are cases of i, s and k.
bool isPartCharacterOfAnyCase(QChar codeUnit)
{
    return isPartCharacter(codeUnit) || codeUnit == QChar(0x0131) || codeUnit == QChar(0x017F)
           || codeUnit == QChar(0x212A);
}

/// The end of a part for the setters: "(\t\r|$)". A trailing tab and carriage return belong to the part.
bool isPartEnd(TextScanner& scanner)
{
    return scanner.atEnd() || (scanner.takeOne('\t') && scanner.takeOne('\r') && scanner.atEnd());
}

bool isPart(const QString& text)
{
    TextScanner scanner(text);
    return scanner.take(isPartCharacter) > 0 && isPartEnd(scanner);
}

/// Narrower than what the whole name admits, which is any count of digits: callers rely on both.
bool isNumericPart(const QString& text)
{
    TextScanner scanner(text);
    scanner.take(NCharacters::isAsciiDigit, 1);
    return isPartEnd(scanner);
}

/// What CMotorBaseName::fullRegExp() matches exactly.
bool isFullName(const QString& text, bool numeric)
{
    TextScanner scanner(text);
    for (int i = 0; i < 2; ++i) {
        if (scanner.take(isPartCharacterOfAnyCase) == 0 || !scanner.takeOne('_')) {
            return false;
        }
    }
    return scanner.take(numeric ? NCharacters::isAsciiDigit : isPartCharacterOfAnyCase) > 0
           && scanner.atEnd();
}

bool storeIf(bool accepted, QString& part, const QString& text)
{
    if (accepted) {
        part = text;
    }
    return accepted;
}

} // namespace

CMotorBaseName::CMotorBaseName(bool numeric)
    : mNumericNumber(numeric)
{}

CMotorBaseName::CMotorBaseName(const QString& manufacturer, const QString& name, const QString& number,
                               bool numeric)
    : mManufacturer(manufacturer)
    , mName(name)
    , mNumber(number)
    , mNumericNumber(numeric)
{
    if (mNumericNumber && !checkNumber(mNumber)) {
        // Log readers look for this text, although it does not name the class.
        qWarning("CParameterFileMotorName() : Invalid number '%s'", mNumber.toLocal8Bit().constData());
    }
}

CMotorBaseName::CMotorBaseName(const QString& fileName, bool numeric)
    : mNumericNumber(numeric)
{
    setFileBaseName(fileName);
}

CMotorBaseName::~CMotorBaseName() = default;

CMotorBaseName& CMotorBaseName::operator=(const CMotorBaseName& other) noexcept
{
    // mNumericNumber is left out: it says what this object accepts, and callers rely on its staying.
    mManufacturer = other.mManufacturer;
    mName = other.mName;
    mNumber = other.mNumber;
    return *this;
}

CMotorBaseName& CMotorBaseName::operator=(const QString& fileName)
{
    setFileBaseName(fileName);
    return *this;
}

QString CMotorBaseName::defaultMotorBaseName()
{
    return QStringLiteral("UNKNOWN_UNKNOWN_1");
}

QRegExp CMotorBaseName::fullRegExp(bool numeric)
{
    const QString part = QStringLiteral("[0-9a-zA-Z\\-&\\+]+");
    const QString number = numeric ? QStringLiteral("[0-9]") : part;
    return QRegExp(QStringLiteral("^(%1_){1}(%1_){1}(%2)+$").arg(part, number), Qt::CaseInsensitive);
}

bool CMotorBaseName::isValid(const QString& fileName, bool numeric)
{
    // Cut at the first ".", while setFileBaseName() takes the name with its extension: callers rely on both.
    return isFullName(QFileInfo(fileName).baseName(), numeric);
}

bool CMotorBaseName::checkNumber(const QString& number) const
{
    TextScanner scanner(number);
    return scanner.take(NCharacters::isAsciiDigit) > 0 && scanner.atEnd();
}

bool CMotorBaseName::setManufacturer(const QString& manufacturer)
{
    return storeIf(isPart(manufacturer), mManufacturer, manufacturer);
}

bool CMotorBaseName::setName(const QString& name)
{
    return storeIf(isPart(name), mName, name);
}

bool CMotorBaseName::setNumber(const QString& number)
{
    return storeIf(mNumericNumber ? isNumericPart(number) : isPart(number), mNumber, number);
}

QString CMotorBaseName::number() const
{
    return mNumber.isEmpty() ? QStringLiteral("0") : mNumber;
}

qint32 CMotorBaseName::numberAsI32() const
{
    bool ok = false;
    const qint32 number = NQtCompat::integerText(mNumber).toInt(&ok, 10);
    return ok ? number : -1;
}

QString CMotorBaseName::fileBaseName() const
{
    // One argument after the other: callers rely on how a part that itself contains "%2" is printed.
    return isEmpty() ? QString() : QStringLiteral("%1_%2_%3").arg(mManufacturer).arg(mName).arg(number());
}

bool CMotorBaseName::isValid() const
{
    return isFullName(fileBaseName(), mNumericNumber);
}

void CMotorBaseName::clear()
{
    mManufacturer.clear();
    mName.clear();
    mNumber.clear();
}

bool CMotorBaseName::setFileBaseName(const QString& fileName)
{
    const QFileInfo file(fileName);
    clear();
    if (!isFullName(file.fileName(), mNumericNumber)) {
        return true;
    }
    // The name has matched: it is three parts without a ".".
    const QStringList parts = file.completeBaseName().split(QLatin1Char('_'));
    return setManufacturer(parts.value(0)) && setName(parts.value(1)) && setNumber(parts.value(2));
}

bool CMotorBaseName::operator==(const CMotorBaseName& other) const
{
    return mManufacturer == other.mManufacturer && mName == other.mName && mNumber == other.mNumber;
}

NQtCompat::THash qHash(const CMotorBaseName& motor, NQtCompat::THash seed) noexcept
{
    return qHash(motor.mNumber, qHash(motor.mName, qHash(motor.mManufacturer, seed)));
}

QDataStream& operator<<(QDataStream& stream, const CMotorBaseName& motor)
{
    return stream << motor.mManufacturer << motor.mName << motor.mNumber;
}

QDataStream& operator>>(QDataStream& stream, CMotorBaseName& motor)
{
    return stream >> motor.mManufacturer >> motor.mName >> motor.mNumber;
}

QDebug operator<<(QDebug debug, const CMotorBaseName& motor)
{
    DebugFields(debug, "CMotorBaseName")
        .field("manufacturer", motor.mManufacturer)
        .field("name", motor.mName)
        .field("number", motor.mNumber);
    return debug;
}
