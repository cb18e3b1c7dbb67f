#include <core/device/CDeviceHardwareId.h>

#include <core/base/DebugFields.h>
#include <core/base/TextScanner.h>
#include <core/device/TextTemplate.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

#include <utility>

namespace {

constexpr int DIGITS = 3;
constexpr unsigned short NOT_SET = 0xFFFF;
constexpr unsigned short NUMBER_LIMIT = 1000;

QRegExp expression(const char* pattern)
{
    return QRegExp(QString::fromLatin1(pattern).arg(DIGITS));
}

/// What the expression of the form with this many numbers matches exactly.
bool isOfForm(const QString& text, int numbers)
{
    TextScanner scanner(text);
    scanner.take(NCharacters::isNonDigit, 1);
    for (int i = 0; i < numbers; ++i) {
        if ((i > 0 && !scanner.takeOne('_')) || scanner.take(NCharacters::isDigit, DIGITS) != DIGITS) {
            return false;
        }
    }
    return scanner.atEnd()
           || (scanner.takeOne('_') && scanner.take(NCharacters::isWord) > 0 && scanner.atEnd());
}

/// Takes one to three digits; gives their value, -1 if there is none.
int takeNumber(TextScanner& scanner)
{
    int number = 0;
    const auto addDigit = [&number](QChar codeUnit) {
        if (!NCharacters::isDigit(codeUnit)) {
            return false;
        }
        number = number * 10 + (codeUnit.unicode() < 0x80 ? codeUnit.unicode() - '0' : codeUnit.digitValue());
        return true;
    };
    return scanner.take(addDigit, DIGITS) > 0 ? number : -1;
}

/// The value of a text that is one to three digits, -1 for any other.
int numberOf(QStringView text)
{
    TextScanner scanner(text);
    const int number = takeNumber(scanner);
    return scanner.atEnd() ? number : -1;
}

bool storeNumber(unsigned short& field, int number)
{
    if (number < 0) {
        return false;
    }
    field = static_cast<unsigned short>(number);
    return true;
}

QString numberText(unsigned short number)
{
    return number == NOT_SET ? QString() : QStringLiteral("%1").arg(number, DIGITS, 10, QLatin1Char('0'));
}

bool isPrefix(const QString& text)
{
    return text.isEmpty() || (text.size() == 1 && NCharacters::isNonDigit(text.at(0)));
}

} // namespace

CDeviceHardwareId::CDeviceHardwareId(const QString& text)
{
    parse(text);
}

CDeviceHardwareId::~CDeviceHardwareId() = default;

CDeviceHardwareId& CDeviceHardwareId::operator=(const QString& text)
{
    setHardwareId(text);
    return *this;
}

CDeviceHardwareId::operator QString() const
{
    return hardwareId();
}

QRegExp CDeviceHardwareId::minimumRegExp()
{
    return expression("^((\\D?\\d{%1}){1})(_{1}\\w+)?$");
}

QRegExp CDeviceHardwareId::shortRegExp()
{
    return expression("^((\\D?\\d{%1}_\\d{%1}){1})(_{1}\\w+)?$");
}

QRegExp CDeviceHardwareId::fullRegExp()
{
    return expression("^((\\D?\\d{%1}_\\d{%1}_\\d{%1}){1})(_{1}\\w+)?$");
}

bool CDeviceHardwareId::isMinimumHardwareId(const QString& text)
{
    return isOfForm(text, 1);
}

bool CDeviceHardwareId::isShortHardwareId(const QString& text)
{
    return isOfForm(text, 2);
}

bool CDeviceHardwareId::isFullHardwareId(const QString& text)
{
    return isOfForm(text, 3);
}

void CDeviceHardwareId::setPrefix(const QString& prefix)
{
    mPrefix = prefix;
}

QString CDeviceHardwareId::prefix() const
{
    return mPrefix;
}

void CDeviceHardwareId::setPlatform(unsigned short platform)
{
    mPlatform = platform;
}

void CDeviceHardwareId::setVersion(unsigned short version)
{
    mVersion = version;
}

void CDeviceHardwareId::setRevision(unsigned short revision)
{
    mRevision = revision;
}

bool CDeviceHardwareId::setPlatform(const QString& text)
{
    return storeNumber(mPlatform, numberOf(text));
}

bool CDeviceHardwareId::setVersion(const QString& text)
{
    return storeNumber(mVersion, numberOf(text));
}

bool CDeviceHardwareId::setRevision(const QString& text)
{
    return storeNumber(mRevision, numberOf(text));
}

unsigned short CDeviceHardwareId::platform() const
{
    return mPlatform;
}

unsigned short CDeviceHardwareId::version() const
{
    return mVersion;
}

unsigned short CDeviceHardwareId::revision() const
{
    return mRevision;
}

QString CDeviceHardwareId::platformStr() const
{
    return numberText(mPlatform);
}

QString CDeviceHardwareId::versionStr() const
{
    return numberText(mVersion);
}

QString CDeviceHardwareId::revisionStr() const
{
    return numberText(mRevision);
}

void CDeviceHardwareId::setName(const QString& name)
{
    mName = name;
}

QString CDeviceHardwareId::name() const
{
    return mName;
}

bool CDeviceHardwareId::checkIVR(const QString& text) const
{
    return numberOf(text) >= 0;
}

bool CDeviceHardwareId::isMinimumHardwareId() const
{
    return isPrefix(mPrefix) && mPlatform < NUMBER_LIMIT;
}

bool CDeviceHardwareId::isShortHardwareId() const
{
    return isMinimumHardwareId() && mVersion < NUMBER_LIMIT;
}

bool CDeviceHardwareId::isFullHardwareId() const
{
    return isShortHardwareId() && mRevision < NUMBER_LIMIT;
}

QString CDeviceHardwareId::minimumHardwareId() const
{
    return isMinimumHardwareId() ? form(1) : QString();
}

QString CDeviceHardwareId::shortHardwareId() const
{
    return isShortHardwareId() ? form(2) : QString();
}

QString CDeviceHardwareId::fullHardwareId() const
{
    return isFullHardwareId() ? form(3) : QString();
}

QString CDeviceHardwareId::hardwareId() const
{
    if (isFullHardwareId()) {
        return fullHardwareId();
    }
    if (isShortHardwareId()) {
        return shortHardwareId();
    }
    return isMinimumHardwareId() ? minimumHardwareId() : mName;
}

bool CDeviceHardwareId::isValid() const
{
    // The forms contain each other: what satisfies a richer one satisfies the minimum.
    return isMinimumHardwareId();
}

bool CDeviceHardwareId::isEmpty() const
{
    return *this == CDeviceHardwareId();
}

bool CDeviceHardwareId::isNull() const
{
    return isEmpty();
}

void CDeviceHardwareId::clear()
{
    *this = CDeviceHardwareId();
}

bool CDeviceHardwareId::setHardwareId(const QString& text)
{
    // Into an object of its own: `text` may belong to this one.
    CDeviceHardwareId parsed;
    const bool ok = parsed.parse(text);
    *this = std::move(parsed);
    return ok;
}

bool CDeviceHardwareId::operator==(const CDeviceHardwareId& other) const
{
    return mPrefix == other.mPrefix && mPlatform == other.mPlatform && mVersion == other.mVersion
           && mRevision == other.mRevision && mName == other.mName;
}

bool CDeviceHardwareId::operator!=(const CDeviceHardwareId& other) const
{
    return !(*this == other);
}

bool CDeviceHardwareId::parse(QStringView text)
{
    if (text.isEmpty()) {
        return true;
    }
    TextScanner scanner(text);
    if (text.front() != QLatin1Char('_') && scanner.take(NCharacters::isNonDigit, 1) == 1) {
        mPrefix = text.front();
    }
    QStringView rest = scanner.rest();
    for (unsigned short* field : {&mPlatform, &mVersion, &mRevision}) {
        const int number = takeNumber(scanner);
        const bool isPart = scanner.atEnd() || scanner.takeOne('_');
        if (!isPart || !storeNumber(*field, number)) {
            if (field == &mPlatform) {
                return false;
            }
            break;
        }
        rest = scanner.rest();
    }
    // From the first part that is no number, or behind the third.
    if (!rest.isEmpty()) {
        mName = rest.toString();
    }
    return true;
}

QString CDeviceHardwareId::form(int numbers) const
{
    QStringList values = QStringList{mPrefix, platformStr(), versionStr(), revisionStr()}.mid(0, numbers + 1);
    if (!mName.isEmpty()) {
        values << mName;
    }
    // One placeholder a value, and "_" before every one but the first two.
    return filledTemplate(QStringLiteral("%1%2_%3_%4_%5").left(3 * values.size() - 2), values);
}

NQtCompat::THash qHash(const CDeviceHardwareId& id, NQtCompat::THash seed) noexcept
{
    const quint64 numbers =
        quint64(id.platform()) | quint64(id.version()) << 16 | quint64(id.revision()) << 32;
    return qHash(id.name(), qHash(numbers, qHash(id.prefix(), seed)));
}

QDataStream& operator<<(QDataStream& stream, const CDeviceHardwareId& id)
{
    return stream << id.prefix() << static_cast<qint16>(id.platform()) << static_cast<qint16>(id.version())
                  << static_cast<qint16>(id.revision()) << id.name();
}

QDataStream& operator>>(QDataStream& stream, CDeviceHardwareId& id)
{
    QString prefix;
    quint16 platform = 0;
    quint16 version = 0;
    quint16 revision = 0;
    QString name;
    stream >> prefix >> platform >> version >> revision >> name;
    id.setPrefix(prefix);
    id.setPlatform(platform);
    id.setVersion(version);
    id.setRevision(revision);
    id.setName(name);
    return stream;
}

QDebug operator<<(QDebug debug, const CDeviceHardwareId& id)
{
    constexpr unsigned short UNSET = 0xFFFF;
    DebugFields(debug, "CDeviceHardwareId")
        .field("prefix", id.prefix())
        .field("platform", id.platform(), UNSET)
        .field("version", id.version(), UNSET)
        .field("revision", id.revision(), UNSET)
        .field("name", id.name());
    return debug;
}
