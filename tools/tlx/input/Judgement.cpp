#include <tools/tlx/input/Judgement.h>

#include <core/text/CStr.h>
#include <core/types/CVariant.h>

#include <QBitArray>
#include <QDateTime>

namespace {

QString reads(const QString& text)
{
    return QStringLiteral(": the library reads ") + (text.isEmpty() ? QStringLiteral("nothing") : text);
}

QString notA(const CVariant& value)
{
    return QStringLiteral("not a ") + CStr::nTypeToStr(value.type()) + reads(value.toStr());
}

QString doesNotFit(const CVariant& value, const QString& result)
{
    return QStringLiteral("does not fit ") + CStr::nTypeToStr(value.type()) + result;
}

QString integerJudgement(const QString& text, const CVariant& value)
{
    unsigned long long natural = 0;
    long long whole = 0;
    const bool isNatural = CStr::strToU64(text, natural, 0);
    if (!isNatural && !CStr::strToI64(text, whole, 0)) {
        return notA(value);
    }
    const QString meant = isNatural ? QString::number(natural) : QString::number(whole);
    if (meant == value.toStr()) {
        return QString();
    }
    // The library cuts a number of 32 bits to the width, and takes a longer one for 0.
    const qulonglong bits = isNatural ? natural : static_cast<qulonglong>(whole);
    const qulonglong mask = (1ULL << value.toBitArray().size()) - 1;
    const bool isCut = value.toBitArray().size() < 64 && (bits & mask) == (value.toU64() & mask);
    return doesNotFit(value,
                      isCut ? QStringLiteral(": truncated to ") + value.toStr() : reads(value.toStr()));
}

QString floatJudgement(const QString& text, const CVariant& value)
{
    double meant = 0;
    float narrow = 0;
    if (!CStr::strToF64(text, meant)) {
        return notA(value);
    }
    const bool fits = value.type() == NTypes::TYPE_F64 || CStr::strToF32(text, narrow);
    return fits ? QString() : doesNotFit(value, reads(value.toStr()));
}

QString dateTimeJudgement(const QString& text)
{
    bool isPacked = false;
    text.toInt(&isPacked, 10);
    const QDateTime meant = QDateTime::fromString(text, Qt::ISODate);
    if (!isPacked && !meant.isValid()) {
        return QStringLiteral("not a DATETIME: the library reads 0 in every field");
    }
    const bool hasZone = !isPacked && meant.timeSpec() != Qt::LocalTime;
    return hasZone
               ? QStringLiteral("the time zone is not kept: the library reads the fields as they are written")
               : QString();
}

QString textJudgement(const QString& text, const CVariant& value)
{
    const QString kept = value.toStr();
    if (kept == text) {
        return QString();
    }
    return text.startsWith(kept) && !kept.isEmpty()
               ? doesNotFit(value, QStringLiteral(": truncated to %1 characters").arg(kept.size()))
               : notA(value);
}

} // namespace

QString judgement(const QString& text, const CVariant& value)
{
    switch (value.type()) {
    case NTypes::TYPE_U8:
    case NTypes::TYPE_I8:
    case NTypes::TYPE_U16:
    case NTypes::TYPE_I16:
    case NTypes::TYPE_U32:
    case NTypes::TYPE_I32:
    case NTypes::TYPE_U64:
    case NTypes::TYPE_I64:
        return integerJudgement(text, value);
    case NTypes::TYPE_F32:
    case NTypes::TYPE_F64:
        return floatJudgement(text, value);
    case NTypes::TYPE_DATETIME:
        return dateTimeJudgement(text);
    case NTypes::TYPE_UNKNOWN:
    case NTypes::TYPE_F80:
        return QStringLiteral("no value of type %1 exists").arg(CStr::nTypeToStr(value.type()));
    default:
        return textJudgement(text, value);
    }
}
