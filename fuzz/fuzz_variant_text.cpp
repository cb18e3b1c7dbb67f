// Text into a variant of every type: beside Qt's conversions, and through text, bits and streams back to itself.
#include <core/base/QtTexts.h>
#include <core/types/CVariant.h>
#include <fuzz/support/Fuzzer.h>

#include <QBitArray>
#include <QDataStream>
#include <QDateTime>
#include <QIODevice>

#include <cmath>

namespace {

struct SInteger
{
    int bits;
    bool isSigned;
};

SInteger integer(NTypes::ETypes type)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return {8, false};
    case NTypes::TYPE_I8:
        return {8, true};
    case NTypes::TYPE_U16:
        return {16, false};
    case NTypes::TYPE_I16:
        return {16, true};
    case NTypes::TYPE_U32:
        return {32, false};
    case NTypes::TYPE_I32:
        return {32, true};
    case NTypes::TYPE_U64:
        return {64, false};
    case NTypes::TYPE_I64:
        return {64, true};
    default:
        return {0, false};
    }
}

QString expectedInteger(const QString& text, const SInteger& type)
{
    quint64 bits = 0;
    if (type.bits == 64) {
        bits = type.isSigned ? static_cast<quint64>(NQtCompat::integerText(text).toLongLong(nullptr, 0))
                             : NQtCompat::integerText(text).toULongLong(nullptr, 0);
    } else {
        bits = type.isSigned ? static_cast<quint64>(NQtCompat::integerText(text).toInt(nullptr, 0))
                             : NQtCompat::integerText(text).toUInt(nullptr, 0);
    }
    const int unused = 64 - type.bits;
    return type.isSigned ? QString::number(static_cast<qint64>(bits << unused) >> unused)
                         : QString::number((bits << unused) >> unused);
}

void checkInteger(const CVariant& value, const QString& text)
{
    FUZZ_CHECK(value.toStr() == expectedInteger(text, integer(value.type())));
    FUZZ_CHECK(CVariant::fromStr(value.toStr(), value.type()) == value);
    const QBitArray bits = value.toBitArray();
    FUZZ_CHECK(bits.size() == integer(value.type()).bits);
    FUZZ_CHECK(CVariant::fromBitArray(bits, value.type()) == value);
    // The digits of a negative "I32" are those of 64 bits.
    const int unused = 64 - bits.size();
    FUZZ_CHECK(value.toHex(QString()).toULongLong(nullptr, 16) << unused == value.toU64() << unused);
}

void checkFloat(const CVariant& value, const QString& text)
{
    const bool narrow = value.type() == NTypes::TYPE_F32;
    bool ok = false;
    const double expected = narrow ? static_cast<double>(text.toFloat(&ok)) : text.toDouble(&ok);
    const QString shown = QString::number(ok ? expected : 0.0, 'g', narrow ? 6 : 15);
    FUZZ_CHECK(value.toStr() == shown);
    const double again = shown.toDouble(&ok);
    if (ok && !std::isnan(again)) { // the 15 digits of the largest numbers are beyond a double
        FUZZ_CHECK(CVariant::fromStr(shown, value.type()).toStr() == shown);
        FUZZ_CHECK((CVariant::fromStr(shown, value.type()) == value) == std::isfinite(again));
    }
}

void checkUtf16(const CVariant& value, const QString& text, int units)
{
    const int zero = text.indexOf(QChar(0));
    FUZZ_CHECK(value.toStr() == (zero < 0 ? text : text.left(zero)).left(units));
}

void checkChar8(const CVariant& value, const QString& text, int size)
{
    FUZZ_CHECK(QVariant(value).toByteArray() == text.left(size).toLatin1());
}

void checkDateTime(const CVariant& value, const QString& text)
{
    bool ok = false;
    const qint64 packed = NQtCompat::integerText(text).toInt(&ok, 10);
    const QDateTime dateTime = ok ? QDateTime() : QDateTime::fromString(text, Qt::ISODate);
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    const quint64 fields[] = {quint64(time.msec() / 10), quint64(time.second()), quint64(time.minute()),
                              quint64(time.hour()),      quint64(date.day()),    quint64(date.month())};
    quint64 expected = 0;
    for (int i = 0; i < 6; ++i) {
        expected |= (fields[i] & 0xFF) << (8 * i);
    }
    expected |= static_cast<quint64>(date.year()) << 48;
    expected = ok ? static_cast<quint64>(packed) : dateTime.isValid() ? expected : 0;
    FUZZ_CHECK(value.toU64() == expected);
}

void checkStreamed(const CVariant& value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << value;
    CVariant again;
    QDataStream stream(bytes);
    stream >> again;
    FUZZ_CHECK(stream.status() == QDataStream::Ok && stream.atEnd());
    FUZZ_CHECK(again.type() == value.type() && QVariant(again).userType() == QVariant(value).userType());
    FUZZ_CHECK(again.toStr() == value.toStr());
}

void checkValue(const CVariant& value, const QString& text)
{
    switch (value.type()) {
    case NTypes::TYPE_F32:
    case NTypes::TYPE_F64:
        return checkFloat(value, text);
    case NTypes::TYPE_STRING32:
        return checkUtf16(value, text, 32);
    case NTypes::TYPE_STRING64:
        return checkUtf16(value, text, 64);
    case NTypes::TYPE_STRING128:
        return checkUtf16(value, text, 128);
    case NTypes::TYPE_CHARSTR64:
        return checkChar8(value, text, 64);
    case NTypes::TYPE_CHARSTR128:
        return checkChar8(value, text, 128);
    case NTypes::TYPE_CHARSTR256:
        return checkChar8(value, text, 256);
    case NTypes::TYPE_CHAR:
        return checkChar8(value, text, 1);
    case NTypes::TYPE_UTF16CHAR:
        FUZZ_CHECK(static_cast<QChar>(value) == (text.isEmpty() ? QChar(0) : text.at(0)));
        return;
    case NTypes::TYPE_DATETIME:
        return checkDateTime(value, text);
    default:
        return checkInteger(value, text);
    }
}

} // namespace

static void fuzz(Input& input)
{
    const auto type = static_cast<NTypes::ETypes>(input.choose(23));
    const QString text = input.text();
    const CVariant value = CVariant::fromStr(text, type);
    const bool hasValues =
        type != NTypes::TYPE_UNKNOWN && type != NTypes::TYPE_F80 && type <= NTypes::TYPE_CHAR;
    FUZZ_CHECK(value.type() == (hasValues ? type : NTypes::TYPE_UNKNOWN));
    FUZZ_CHECK(value.isValid() == hasValues);
    if (hasValues) {
        checkValue(value, text);
        checkStreamed(value);
    }
}
