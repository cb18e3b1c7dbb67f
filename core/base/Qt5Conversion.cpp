#include <core/base/Qt5Conversion.h>

#include <core/base/FloatToInteger.h>
#include <core/base/QtTexts.h>

#include <QDateTime>
#include <QLocale>

namespace NQt5Conversion {

namespace {

template <typename T>
const T& held(const QVariant& value)
{
    return *static_cast<const T*>(value.constData());
}

bool signedNumber(const QVariant& value, qlonglong& number)
{
    switch (value.userType()) {
    case QMetaType::Int:
        number = held<int>(value);
        return true;
    case QMetaType::LongLong:
        number = held<qlonglong>(value);
        return true;
    case QMetaType::Char:
        number = held<char>(value);
        return true;
    case QMetaType::SChar:
        number = held<signed char>(value);
        return true;
    case QMetaType::Short:
        number = held<short>(value);
        return true;
    case QMetaType::Long:
        number = held<long>(value);
        return true;
    default:
        return false;
    }
}

bool unsignedNumber(const QVariant& value, qulonglong& number)
{
    switch (value.userType()) {
    case QMetaType::UInt:
        number = held<uint>(value);
        return true;
    case QMetaType::ULongLong:
        number = held<qulonglong>(value);
        return true;
    case QMetaType::UChar:
        number = held<uchar>(value);
        return true;
    case QMetaType::UShort:
        number = held<ushort>(value);
        return true;
    case QMetaType::ULong:
        number = held<ulong>(value);
        return true;
    default:
        return false;
    }
}

bool realNumber(const QVariant& value, double& number)
{
    if (value.userType() == QMetaType::Float) {
        number = static_cast<double>(held<float>(value));
    } else if (value.userType() == QMetaType::Double) {
        number = held<double>(value);
    } else {
        return false;
    }
    return true;
}

// As qRound64() of Qt 5, which rounds halves up, negative ones, too.
template <typename Float>
qlonglong rounded(Float number)
{
    if (number >= 0) {
        return floatToInteger<qlonglong>(static_cast<double>(number + Float(0.5)));
    }
    const qlonglong below = floatToInteger<qlonglong>(static_cast<double>(number - 1));
    return below
           + floatToInteger<qlonglong>(static_cast<double>(number - static_cast<Float>(below) + Float(0.5)));
}

// The 64 bits of a number that is no text.
bool integerBits(const QVariant& value, qulonglong& bits)
{
    qlonglong number = 0;
    double real = 0;
    if (unsignedNumber(value, bits)) {
        return true;
    }
    if (signedNumber(value, number)) {
        bits = static_cast<qulonglong>(number);
    } else if (value.userType() == QMetaType::Float) {
        bits = static_cast<qulonglong>(rounded(held<float>(value)));
    } else if (realNumber(value, real)) {
        bits = static_cast<qulonglong>(rounded(real));
    } else if (value.userType() == QMetaType::Bool) {
        bits = held<bool>(value) ? 1 : 0;
    } else if (value.userType() == QMetaType::QChar) {
        bits = held<QChar>(value).unicode();
    } else {
        return false;
    }
    return true;
}

// Texts are read as 64-bit numbers whatever the target, so that 70000 is cut, not refused, for 16 bits.
template <typename Text>
bool textBits(const Text& text, bool isUnsigned, qulonglong& bits)
{
    bool ok = false;
    const qulonglong read =
        isUnsigned ? text.toULongLong(&ok) : static_cast<qulonglong>(text.toLongLong(&ok));
    if (ok) {
        bits = read;
    }
    return ok;
}

bool bitsFor(const QVariant& value, bool isUnsigned, qulonglong& bits)
{
    switch (value.userType()) {
    case QMetaType::QString:
        return textBits(NQtCompat::integerText(held<QString>(value)), isUnsigned, bits);
    case QMetaType::QByteArray:
        return textBits(held<QByteArray>(value), isUnsigned, bits);
    default:
        return integerBits(value, bits);
    }
}

template <typename Integer>
bool toInteger(const QVariant& value, void* result)
{
    qulonglong bits = 0;
    const bool ok = bitsFor(value, std::is_unsigned<Integer>::value, bits);
    if (ok) {
        *static_cast<Integer*>(result) = static_cast<Integer>(bits);
    }
    return ok;
}

bool toReal(const QVariant& value, double& number)
{
    qlonglong signedValue = 0;
    qulonglong unsignedValue = 0;
    if (realNumber(value, number)) {
        return true;
    }
    if (signedNumber(value, signedValue)) {
        number = static_cast<double>(signedValue);
    } else if (unsignedNumber(value, unsignedValue)) {
        number = static_cast<double>(unsignedValue);
    } else if (value.userType() == QMetaType::Bool) {
        number = held<bool>(value) ? 1 : 0;
    } else {
        return false;
    }
    return true;
}

bool toDouble(const QVariant& value, double& number)
{
    bool ok = false;
    if (value.userType() == QMetaType::QString) {
        number = held<QString>(value).toDouble(&ok);
    } else if (value.userType() == QMetaType::QByteArray) {
        number = held<QByteArray>(value).toDouble(&ok);
    } else {
        ok = toReal(value, number);
    }
    return ok;
}

bool toFloat(const QVariant& value, float& number)
{
    bool ok = false;
    double wide = 0;
    qlonglong signedValue = 0;
    qulonglong unsignedValue = 0;
    if (value.userType() == QMetaType::QString) {
        number = held<QString>(value).toFloat(&ok);
    } else if (value.userType() == QMetaType::QByteArray) {
        number = held<QByteArray>(value).toFloat(&ok);
    } else if (signedNumber(value, signedValue)) {
        number = static_cast<float>(signedValue); // rounded once
        ok = true;
    } else if (unsignedNumber(value, unsignedValue)) {
        number = static_cast<float>(unsignedValue);
        ok = true;
    } else if (toReal(value, wide)) {
        number = static_cast<float>(wide);
        ok = true;
    }
    return ok;
}

bool toCharacter(const QVariant& value, QChar& character)
{
    switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return false;
    default:
        break;
    }
    qulonglong bits = 0;
    const bool ok = integerBits(value, bits);
    if (ok) {
        character = QChar(static_cast<ushort>(bits));
    }
    return ok;
}

bool toBytes(const QVariant& value, QByteArray& bytes)
{
    qlonglong signedValue = 0;
    qulonglong unsignedValue = 0;
    double real = 0;
    switch (value.userType()) {
    case QMetaType::QString:
        bytes = held<QString>(value).toUtf8();
        return true;
    case QMetaType::QByteArray:
        bytes = held<QByteArray>(value);
        return true;
    case QMetaType::Bool:
        bytes = held<bool>(value) ? "true" : "false";
        return true;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        bytes = QByteArray(1, held<char>(value));
        return true;
    case QMetaType::Float:
        bytes =
            QByteArray::number(static_cast<double>(held<float>(value)), 'g', QLocale::FloatingPointShortest);
        return true;
    default:
        break;
    }
    if (realNumber(value, real)) {
        bytes = QByteArray::number(real, 'g', QLocale::FloatingPointShortest);
    } else if (signedNumber(value, signedValue)) {
        bytes = QByteArray::number(signedValue);
    } else if (unsignedNumber(value, unsignedValue)) {
        bytes = QByteArray::number(unsignedValue);
    } else {
        return false;
    }
    return true;
}

// Bytes are read as UTF-8 up to the first zero byte.
bool toText(const QVariant& value, QString& text)
{
    if (value.userType() != QMetaType::QByteArray) {
        return false;
    }
    const QByteArray& bytes = held<QByteArray>(value);
    text = bytes.isNull() ? QString()
                          : QString::fromUtf8(
                              bytes.constData(),
                              static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(bytes.size()))));
    return true;
}

} // namespace

// Qt 5 forgot these three where it lists what converts to what.
bool canConvert(const QVariant& value, int type)
{
    const int source = value.userType();
    if (source == QMetaType::Float && type == QMetaType::QChar) {
        return false;
    }
    if (source != QMetaType::UChar && source != QMetaType::Long && source != QMetaType::ULong) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        return value.canConvert(QMetaType(type));
#else
        return value.canConvert(type);
#endif
    }
    switch (type) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::SChar:
        return true;
    default:
        return type == source;
    }
}

bool isNull(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QChar:
        return held<QChar>(value).isNull();
    case QMetaType::QString:
        return held<QString>(value).isNull();
    case QMetaType::QByteArray:
        return held<QByteArray>(value).isNull();
    case QMetaType::QDate:
        return held<QDate>(value).isNull();
    case QMetaType::QTime:
        return held<QTime>(value).isNull();
    case QMetaType::QDateTime:
        return held<QDateTime>(value).isNull();
    default:
        return value.isNull();
    }
}

bool convert(const QVariant& value, int type, void* result)
{
    switch (type) {
    case QMetaType::Int:
        return toInteger<int>(value, result);
    case QMetaType::UInt:
        return toInteger<uint>(value, result);
    case QMetaType::LongLong:
        return toInteger<qlonglong>(value, result);
    case QMetaType::ULongLong:
        return toInteger<qulonglong>(value, result);
    case QMetaType::Short:
        return toInteger<short>(value, result);
    case QMetaType::UShort:
        return toInteger<ushort>(value, result);
    case QMetaType::Char: // read as a signed number, also where the machine's char has no sign
    case QMetaType::SChar:
        return toInteger<signed char>(value, result);
    case QMetaType::UChar:
        return toInteger<uchar>(value, result);
    case QMetaType::Double:
        return toDouble(value, *static_cast<double*>(result));
    case QMetaType::Float:
        return toFloat(value, *static_cast<float*>(result));
    case QMetaType::QChar:
        return toCharacter(value, *static_cast<QChar*>(result));
    case QMetaType::QByteArray:
        return toBytes(value, *static_cast<QByteArray*>(result));
    case QMetaType::QString:
        return toText(value, *static_cast<QString*>(result));
    default:
        return false;
    }
}

} // namespace NQt5Conversion
