#include <core/types/CVariant.h>

#include <core/base/QtReady.h>
#include <core/types/TypeTable.h>
#include <core/types/VariantPayload.h>

#include <QDateTime>
#include <QDebug>

#include <array>
#include <limits>

using NTypes::EKind;
using NTypes::typeInfo;
using NVariantPayload::as;
using NVariantPayload::exact;

namespace {

constexpr int F32_DIGITS = 6;
constexpr int F64_DIGITS = 15;

// "00", "01" … "99"
constexpr std::array<char16_t, 200> digitPairs()
{
    std::array<char16_t, 200> pairs = {};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char16_t>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char16_t>('0' + i % 10);
    }
    return pairs;
}

constexpr std::array<char16_t, 200> PAIRS = digitPairs();

int digitCount(quint64 number)
{
    int count = 1;
    for (quint64 power = 10; number >= power; power *= 10) {
        if (++count == std::numeric_limits<quint64>::digits10 + 1) {
            break; // the next power would not fit
        }
    }
    return count;
}

// Written from the last digit to the first, two at a time, in their place.
QString decimal(quint64 magnitude, bool negative)
{
    const int length = digitCount(magnitude) + (negative ? 1 : 0);
    QString text(length, Qt::Uninitialized);
    QChar* const begin = text.data();
    QChar* out = begin + length;
    while (magnitude >= 10) {
        const std::size_t pair = 2 * static_cast<std::size_t>(magnitude % 100);
        magnitude /= 100;
        *--out = QChar(PAIRS[pair + 1]);
        *--out = QChar(PAIRS[pair]);
    }
    if (out > begin + (negative ? 1 : 0)) {
        *--out = QChar(static_cast<char16_t>('0' + magnitude));
    }
    if (negative) {
        *begin = QLatin1Char('-');
    }
    return text;
}

QString integerText(const QVariant& payload, NTypes::ETypes type)
{
    const quint64 bits = NVariantPayload::integerBits(payload, type);
    const bool negative = typeInfo(type).kind == EKind::Signed && static_cast<qint64>(bits) < 0;
    return decimal(negative ? 0 - bits : bits, negative);
}

double floatValue(const QVariant& payload, NTypes::ETypes type)
{
    return type == NTypes::TYPE_F32 ? static_cast<double>(as<float>(payload)) : as<double>(payload);
}

QString utf16Text(const QVariant& payload)
{
    if (const CString32* text = exact<CString32>(payload)) {
        return text->str();
    }
    if (const CString64* text = exact<CString64>(payload)) {
        return text->str();
    }
    if (const CString128* text = exact<CString128>(payload)) {
        return text->str();
    }
    return QString();
}

// Only a packed number shows. A record shows as nothing, and callers rely on it; so the record is not read here.
QString dateTimeText(const QVariant& payload)
{
    const NTypes::tsDateTime record = NTypes::unpackDateTime(as<qlonglong>(payload));
    const QDate date(record.date.year, record.date.month, record.date.day);
    const QTime time(record.time.hour, record.time.minute, record.time.second, record.time.hundredths * 10);
    return QDateTime(date, time).toString(Qt::ISODate);
}

quint64 parsedInteger(const QString& text, NTypes::ETypes type)
{
    const bool wide = typeInfo(type).width == 8;
    if (typeInfo(type).kind == EKind::Unsigned) {
        return wide ? text.toULongLong(nullptr, 0) : text.toUInt(nullptr, 0);
    }
    return static_cast<quint64>(wide ? text.toLongLong(nullptr, 0) : text.toInt(nullptr, 0));
}

QVariant parsedFloat(const QString& text, NTypes::ETypes type)
{
    // A failure is 0, also where Qt hands back infinity for a number that is too large.
    bool ok = false;
    if (type == NTypes::TYPE_F32) {
        const float value = text.toFloat(&ok);
        return ok ? value : 0.0F;
    }
    const double value = text.toDouble(&ok);
    return ok ? value : 0.0;
}

// Never a null byte array: an empty text is a value.
QByteArray latin1(const QString& text, int size)
{
    const QByteArray bytes = text.left(size).toLatin1();
    return bytes.isNull() ? QByteArray("") : bytes;
}

NTypes::tsDateTime parsedDateTime(const QString& text)
{
    bool ok = false;
    const int packed = text.toInt(&ok, 10);
    if (ok) {
        return NTypes::unpackDateTime(packed);
    }
    const QDateTime dateTime = QDateTime::fromString(text, Qt::ISODate);
    if (!dateTime.isValid()) {
        return NTypes::tsDateTime();
    }
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    return {
        {static_cast<qint8>(time.msec() / 10), static_cast<qint8>(time.second()),
         static_cast<qint8>(time.minute()), static_cast<qint8>(time.hour())},
        {static_cast<qint8>(date.day()), static_cast<qint8>(date.month()), static_cast<qint16>(date.year())}};
}

CVariant parsedUtf16Text(const QString& text, NTypes::ETypes type)
{
    switch (type) {
    case NTypes::TYPE_STRING32:
        return CString32(text);
    case NTypes::TYPE_STRING64:
        return CString64(text);
    default:
        return CString128(text);
    }
}

} // namespace

QString CVariant::toStr() const
{
    switch (typeInfo(mType).kind) {
    case EKind::Unsigned:
    case EKind::Signed:
        return integerText(mValue, mType);
    case EKind::Float:
        return QString::number(floatValue(mValue, mType), 'g',
                               mType == NTypes::TYPE_F32 ? F32_DIGITS : F64_DIGITS);
    case EKind::Utf16Text:
        return utf16Text(mValue);
    case EKind::DateTime:
        return dateTimeText(mValue);
    case EKind::None:
    case EKind::Char8Text:
    case EKind::Utf16Char:
        break;
    }
    return mValue.toString();
}

QString CVariant::toLocaleStr() const
{
    if (typeInfo(mType).kind == EKind::Float) {
        return QStringLiteral("%L1").arg(floatValue(mValue, mType), 0, 'g', -1, QLatin1Char(' '));
    }
    return toStr();
}

CVariant CVariant::fromStr(const QString& text, NTypes::ETypes type)
{
    CVariant result;
    switch (typeInfo(type).kind) {
    case EKind::Unsigned:
    case EKind::Signed:
        result.mValue = NVariantPayload::integerPayload(parsedInteger(text, type), type);
        break;
    case EKind::Float:
        result.mValue = parsedFloat(text, type);
        break;
    case EKind::Utf16Text:
        return parsedUtf16Text(text, type);
    case EKind::Char8Text:
        result.mValue = latin1(text, typeInfo(type).width);
        break;
    case EKind::Utf16Char:
        result.mValue = text.isEmpty() ? QChar(0) : text.at(0);
        break;
    case EKind::DateTime:
        return parsedDateTime(text);
    case EKind::None:
        if (type != NTypes::TYPE_UNKNOWN) {
            qWarning("CVariant::fromStr : Data type %u is not supported in this method.",
                     static_cast<uint>(type));
        }
        return result;
    }
    result.mType = type;
    return result;
}

CVariant& CVariant::fromStr(const QString& text)
{
    CVariant parsed = fromStr(text, mType);
    if (parsed.isNull() || !parsed.isValid()) {
        mValue = defaultValue(mType);
        return *this;
    }
    return *this = std::move(parsed);
}

CVariant::CVariant(const QString& text, NTypes::ETypes type)
    : CVariant()
{
    if (static_cast<quint32>(type) < NTypes::TYPE_COUNT) {
        mType = type;
        fromStr(text);
    }
}

QDebug operator<<(QDebug debug, const CVariant& value)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CVariant(";
    if (static_cast<quint32>(value.mType) < NTypes::TYPE_COUNT) {
        debug << typeInfo(value.mType).name;
    } else {
        debug << static_cast<quint32>(value.mType);
    }
    debug << ", " << value.toStr() << ')';
    return debug;
}
