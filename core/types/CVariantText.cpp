#include <core/types/CVariant.h>

#include <core/base/NumberReading.h>
#include <core/base/QtLocale.h>
#include <core/base/QtReady.h>
#include <core/base/QtTexts.h>
#include <core/types/VariantPayload.h>

#include <QDebug>

using namespace NPackedDateTime;
using namespace NTypeTable;
using NVariantPayload::as;

namespace {

constexpr int F32_DIGITS = 6;
constexpr int F64_DIGITS = 15;

template <typename Integer>
QString integerText(Integer number)
{
    constexpr int MAX_LENGTH = 20; // of 2^64 - 1, and of -2^63 with its sign
    QChar text[MAX_LENGTH];
    QChar* const end = text + MAX_LENGTH;
    const quint64 bits = static_cast<quint64>(number);
    QChar* begin = NDigits::writeDecimal(end, number < 0 ? 0 - bits : bits);
    if (number < 0) {
        *--begin = QLatin1Char('-');
    }
    return QString(begin, static_cast<int>(end - begin));
}

template <typename Float>
QString floatText(Float number)
{
    return QString::number(static_cast<double>(number), 'g',
                           sizeof(Float) == sizeof(float) ? F32_DIGITS : F64_DIGITS);
}

// A fixed-length string of any length; what is none has no text.
QString utf16Text(const QVariant& payload)
{
    return visitType(NMetaTypes::typeOfPayload(payload.userType()), [&payload](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (IS_FIXED_STRING<T>) {
            return static_cast<const T*>(payload.constData())->str();
        } else {
            return QString();
        }
    });
}

// Only a packed number shows. A record shows as nothing, and callers rely on it; so the record is not read here.
QString dateTimeText(const QVariant& payload)
{
    const NTypes::tsDateTime record = unpack(as<qlonglong>(payload));
    return QDateTime(dateOf(record.date), timeOf(record.time)).toString(Qt::ISODate);
}

// 0 on failure.
template <typename Number>
Number parsedNumber(const QString& text)
{
    bool ok = false;
    if constexpr (std::is_same<Number, float>::value) {
        return NNumberReading::readFloat(text, ok);
    } else if constexpr (IS_FLOAT<Number>) {
        return NNumberReading::readDouble(text, ok);
    } else if constexpr (std::is_unsigned<Number>::value) {
        const QString own = NQtCompat::integerText(text);
        return static_cast<Number>(sizeof(Number) == 8 ? own.toULongLong(&ok, 0) : own.toUInt(&ok, 0));
    } else {
        const QString own = NQtCompat::integerText(text);
        return static_cast<Number>(sizeof(Number) == 8 ? own.toLongLong(&ok, 0) : own.toInt(&ok, 0));
    }
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
    const int packed = NQtCompat::integerText(text).toInt(&ok, 10);
    if (ok) {
        return unpack(packed);
    }
    const QDateTime dateTime = QDateTime::fromString(text, Qt::ISODate);
    return dateTime.isValid() ? recordOf(dateTime) : NTypes::tsDateTime();
}

// Reads the value as operator== does: an unreadable payload, or one wider than its type, shows what is compared.
void showCompared(QDebug& debug, const CVariant& value)
{
    visitType(value.type(), [&](auto payload) {
        using T = typename decltype(payload)::Type;
        const auto compared = NVariantPayload::comparable<T>(value);
        if constexpr (IS_FLOAT<T>) {
            debug << floatText(compared);
        } else if constexpr (IS_DATE_TIME<T>) {
            debug << unpack(compared);
        } else if constexpr (IS_INTEGER<T>) {
            debug << integerText(compared);
        } else {
            debug << compared;
        }
    });
}

} // namespace

QString CVariant::toStr() const
{
    return visitType(mType, [this](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_INTEGER<T>) {
            return integerText(as<T>(mValue));
        } else if constexpr (IS_FLOAT<T>) {
            return floatText(as<T>(mValue));
        } else if constexpr (IS_FIXED_STRING<T>) {
            return utf16Text(mValue);
        } else if constexpr (IS_DATE_TIME<T>) {
            return dateTimeText(mValue);
        } else {
            return NQtVariant::toString(mValue);
        }
    });
}

QString CVariant::toLocaleStr() const
{
    return visitType(mType, [this](auto payload) {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_FLOAT<T>) {
            return NQtLocale::number(QLocale(), static_cast<double>(as<T>(mValue)), 'g', -1);
        } else {
            return toStr();
        }
    });
}

CVariant CVariant::fromStr(const QString& text, NTypes::ETypes type)
{
    return visitType(type, [&text, type](auto payload) -> CVariant {
        using T = typename decltype(payload)::Type;
        if constexpr (IS_INTEGER<T> || IS_FLOAT<T>) {
            return parsedNumber<T>(text);
        } else if constexpr (IS_FIXED_STRING<T>) {
            return T(text);
        } else if constexpr (IS_BYTES<T>) {
            CVariant result;
            result.mValue = latin1(text, typeInfo(type).width);
            result.mType = type;
            return result;
        } else if constexpr (IS_CHARACTER<T>) {
            return text.isEmpty() ? QChar(0) : text.at(0);
        } else if constexpr (IS_DATE_TIME<T>) {
            return parsedDateTime(text);
        } else {
            if (type != NTypes::TYPE_UNKNOWN) {
                qWarning("CVariant::fromStr : Data type %u is not supported in this method.",
                         static_cast<uint>(type));
            }
            return CVariant();
        }
    });
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
    if (static_cast<quint32>(type) < TYPE_COUNT) {
        mType = type;
        fromStr(text);
    }
}

QDebug operator<<(QDebug debug, const CVariant& value)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CVariant(";
    if (static_cast<quint32>(value.mType) < TYPE_COUNT) {
        debug << typeInfo(value.mType).name;
    } else {
        debug << static_cast<quint32>(value.mType);
    }
    debug << ", ";
    showCompared(debug, value);
    debug << ')';
    return debug;
}
