#include <core/device/CDeviceHardwareId.h>

#include <core/base/DebugFields.h>
#include <core/base/TextScanner.h>

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

bool CDeviceHardwareId::checkIVR(const QString& text) const
{
    return numberOf(text) >= 0;
}

QString CDeviceHardwareId::hardwareId() const
{
    const int count = numbers();
    return count > 0 ? form(count) : mName;
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

// What the expression of the form with this many numbers matches exactly.
bool CDeviceHardwareId::isOfForm(const QString& text, int count)
{
    TextScanner scanner(text);
    scanner.take(NCharacters::isNonDigit, 1);
    for (int i = 0; i < count; ++i) {
        if ((i > 0 && !scanner.takeOne('_')) || scanner.take(NCharacters::isDigit, DIGITS) != DIGITS) {
            return false;
        }
    }
    return scanner.atEnd()
           || (scanner.takeOne('_') && scanner.take(NCharacters::isWord) > 0 && scanner.atEnd());
}

bool CDeviceHardwareId::setNumber(unsigned short& field, const QString& text)
{
    return storeNumber(field, numberOf(text));
}

QString CDeviceHardwareId::numberText(unsigned short number)
{
    return number == NOT_SET ? QString() : QStringLiteral("%1").arg(number, DIGITS, 10, QLatin1Char('0'));
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

// The number of numbers in the richest form that the value has; 0 if it has none.
int CDeviceHardwareId::numbers() const
{
    if (mPrefix.size() > 1 || (mPrefix.size() == 1 && NCharacters::isDigit(mPrefix.at(0)))) {
        return 0;
    }
    int count = 0;
    for (const unsigned short number : {mPlatform, mVersion, mRevision}) {
        if (number >= NUMBER_LIMIT) {
            break;
        }
        ++count;
    }
    return count;
}

QString CDeviceHardwareId::form(int count) const
{
    if (count > numbers()) {
        return QString();
    }
    QStringList values = QStringList{mPrefix, platformStr(), versionStr(), revisionStr()}.mid(0, count + 1);
    if (!mName.isEmpty()) {
        values << mName;
    }
    // One placeholder a value, and "_" before every one but the first two. A value that itself looks like a placeholder,
    // alone or with what follows it, is filled by the next one: callers rely on names printed that way.
    QString text = QStringLiteral("%1%2_%3_%4_%5").left(3 * values.size() - 2);
    for (const QString& value : qAsConst(values)) {
        text = text.arg(value);
    }
    return text;
}

NQtCompat::THash qHash(const CDeviceHardwareId& id, NQtCompat::THash seed) noexcept
{
    const quint64 numbers =
        quint64(id.platform()) | quint64(id.version()) << 16 | quint64(id.revision()) << 32;
    return qHash(id.name(), qHash(numbers, qHash(id.prefix(), seed)));
}

QDataStream& operator<<(QDataStream& stream, const CDeviceHardwareId& id)
{
    return stream << id.prefix() << id.platform() << id.version() << id.revision() << id.name();
}

QDataStream& operator>>(QDataStream& stream, CDeviceHardwareId& id)
{
    return stream >> id.mPrefix >> id.mPlatform >> id.mVersion >> id.mRevision >> id.mName;
}

QDebug operator<<(QDebug debug, const CDeviceHardwareId& id)
{
    DebugFields(debug, "CDeviceHardwareId")
        .field("prefix", id.prefix())
        .field("platform", id.platform(), NOT_SET)
        .field("version", id.version(), NOT_SET)
        .field("revision", id.revision(), NOT_SET)
        .field("name", id.name());
    return debug;
}
