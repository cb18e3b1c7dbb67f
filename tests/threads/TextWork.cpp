#include <core/text/CDateTime.h>
#include <core/text/CMath.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/text/CTlString.h>
#include <core/text/CUnitParser.h>
#include <tests/threads/ThreadWork.h>

#include <QLocale>

namespace {

bool numberTexts(int seed)
{
    bool ok = false;
    const QString text = QString::number(1000 + seed);
    return CStr::strToU16(text, &ok, 10) == 1000 + seed && ok && CStr::strToF64(text, &ok) == 1000 + seed
           && CStr::nTypeToStr(NTypes::TYPE_U8) == QLatin1String("U8")
           && CStr::doubleToString(0.5, 3)
                  == QLatin1Char('0') + QString(QLocale().decimalPoint()) + QLatin1String("500");
}

bool phrases(int seed)
{
    unsigned int revision = 0;
    const auto number = static_cast<unsigned int>(0x10000 + seed);
    bool cut = false;
    return CStr::stringToRevision(CStr::revisionToString(number), revision) && revision == number
           && CStr::createQDateFrom__DATE__(QStringLiteral("Jun  1 2020")) == QDate(2020, 6, 1)
           && !CStr::createDate(QLocale::c(), QStringLiteral("Jun  1 2020")).isEmpty()
           && !CStr::cutString(QStringLiteral("one two"), 4, cut, true).isEmpty() && cut;
}

bool formats(int seed)
{
    const unsigned int format = CTlString::SFormatValue(2, 0, 0, CTlString::NOTATION_DECIMAL);
    bool ok = false;
    const double value = 12.25 + seed;
    return CTlString::toF64(CTlString::toStr(value, format), format, 1.0, &ok) == value && ok;
}

bool mathematics(int seed)
{
    return CMath::round(2.5 + seed, 1) == 2.5 + seed && CMath::exp10(3) == 1000.0
           && CMath::crc32("123456789", 9) == 0xCBF43926U;
}

bool durations(int seed)
{
    const CTime time(static_cast<unsigned long long>(1500 + seed), CTime::UNIT_MS);
    const CTime sum = time + CTime(1, CTime::UNIT_S);
    return survives(time) && time < sum && CTime::unit(QStringLiteral("ms")) == CTime::UNIT_MS
           && CTime::unitStr(CTime::UNIT_S) == QLatin1String("s")
           && (time * 2.0).toMS() == 3000ULL + 2ULL * static_cast<unsigned>(seed)
           && CTime::mUnitHash.size() == 7;
}

bool dateTimes(int seed)
{
    const CDateTime utc(QDateTime(QDate(2020, 6, 1 + seed), QTime(12, 0), Qt::UTC));
    const CDateTime local(QDateTime(QDate(2020, 6, 1 + seed), QTime(12, 0), Qt::LocalTime));
    const QByteArray bytes = utc.toI64ByteArray(Qt::UTC);
    return survives(utc) && survives(local) && CDateTime::fromI64ByteArray(bytes, Qt::UTC) == utc
           && !local.toIsoDateTime(Qt::UTC).isEmpty();
}

bool units(int seed)
{
    bool ok = false;
    const auto unit = static_cast<NUnits::EObjectUnit>(seed + 1);
    const QString text = CUnitParser::unitToStr(unit, &ok);
    return ok && CUnitParser::checkUnitStr(text) && CUnitParser::size(text, &ok) > 0 && ok
           && CUnitParser::mcSTR_TO_UNIT_MAP.contains(text);
}

} // namespace

QVector<SThreadWork> textWork()
{
    return {{"CStr numbers", numberTexts}, {"CStr phrases", phrases}, {"CTlString", formats},
            {"CMath", mathematics},        {"CTime", durations},      {"CDateTime", dateTimes},
            {"CUnitParser", units}};
}
