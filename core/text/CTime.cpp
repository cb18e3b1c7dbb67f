#include <core/text/CTime.h>

#include <core/base/FloatToInteger.h>
#include <core/base/StaticObjects.h>
#include <core/text/CMath.h>

#include <QDataStream>
#include <QDebug>
#include <QSharedData>

#include <algorithm>
#include <cmath>
#include <iterator>

struct CTime::SData : QSharedData
{
    quint64 value = 0;
    ETimeUnit unit = UNIT_UNKNOWN;
};

const QHash<QString, CTime::ETimeUnit> CTime::mUnitHash TLX_INIT_EARLY = CTime::createUnitHash();

namespace {

struct STimeUnit
{
    const char16_t* text;
    double seconds;
};

// By ETimeUnit.
constexpr STimeUnit TIME_UNITS[] = {{u"ps", 1e-12}, {u"ns", 1e-9}, {u"\u00B5s", 1e-6}, {u"ms", 0.001},
                                    {u"s", 1},      {u"min", 60},  {u"h", 3600}};
constexpr int TIME_UNIT_COUNT = std::size(TIME_UNITS);
static_assert(TIME_UNIT_COUNT == CTime::UNIT_UNKNOWN, "one row a unit");

// The unit's seconds, 1 for what is no unit; dividing by 1e-12 is not multiplying by 1e12, hence fromSeconds().
double secondsOf(CTime::ETimeUnit unit)
{
    return unit >= 0 && unit < TIME_UNIT_COUNT ? TIME_UNITS[unit].seconds : 1;
}

double fromSeconds(double seconds, CTime::ETimeUnit unit)
{
    constexpr double PER_SECOND[] = {1e12, 1e9, 1e6, 1000};
    return unit >= 0 && unit < CTime::UNIT_S ? seconds * PER_SECOND[unit] : seconds / secondsOf(unit);
}

quint64 rounded(double value)
{
    return floatToInteger<quint64>(CMath::round(value, 0));
}

} // namespace

QHash<QString, CTime::ETimeUnit> CTime::createUnitHash()
{
    QHash<QString, ETimeUnit> hash;
    for (int i = 0; i < TIME_UNIT_COUNT; ++i) {
        hash.insert(QString::fromUtf16(TIME_UNITS[i].text), static_cast<ETimeUnit>(i));
    }
    return hash;
}

CTime::CTime()
    : d(new SData)
{}

CTime::CTime(unsigned long long value, ETimeUnit unit)
    : CTime()
{
    setValue(value, unit);
}

CTime::CTime(const CTime& other) noexcept = default;

CTime& CTime::operator=(const CTime& other) noexcept = default;

CTime::~CTime() = default;

unsigned long long CTime::value() const
{
    return d->value;
}

unsigned long long CTime::value(ETimeUnit target) const
{
    return target == d->unit ? d->value
                             : rounded(convertValue(static_cast<double>(d->value), d->unit, target));
}

CTime::ETimeUnit CTime::unit() const
{
    return d->unit;
}

void CTime::setValue(unsigned long long value, ETimeUnit unit)
{
    SData& data = *d;
    data.value = value;
    data.unit = unit;
}

bool CTime::convertToPrevIntegerValue(long long& value, ETimeUnit& unit) const
{
    return convertToPrevIntegerValue(static_cast<double>(static_cast<qint64>(d->value)), d->unit, value,
                                     unit);
}

bool CTime::convertToPrevIntegerValue(const double& value, ETimeUnit unit, long long& outValue,
                                      ETimeUnit& outUnit)
{
    if (value == 0 || unit <= UNIT_PS || !std::isfinite(value)) {
        return false;
    }
    // The outputs may be the inputs.
    const double duration = value;
    const qint64 sign = duration < 0 ? -1 : 1;
    bool written = false;
    // What is no unit counts as seconds, whatever its number: one of them stands for all.
    for (qint32 step = std::min<qint32>(unit, UNIT_UNKNOWN); step >= UNIT_PS; --step) {
        const ETimeUnit stepUnit = static_cast<ETimeUnit>(step);
        const double count = std::fabs(convertValue(duration, unit, stepUnit));
        const double whole = std::trunc(count);
        if (!(count - whole > 0)) {
            return written;
        }
        outValue = floatToInteger<qint64>(whole) * sign;
        outUnit = stepUnit;
        written = true;
    }
    return false;
}

double CTime::convertValue(const double& value, ETimeUnit from, ETimeUnit to)
{
    return fromSeconds(toS(value, from), to);
}

double CTime::toS(const double& value, ETimeUnit unit)
{
    return value * secondsOf(unit);
}

CTime operator+(const CTime& a, const CTime& b)
{
    if (a.unit() == b.unit()) {
        // Not the sum of the counts: callers rely on it.
        return CTime(static_cast<quint64>(2 * static_cast<qint64>(a.unit())), a.unit());
    }
    const double sum = static_cast<double>(a.toNS() + b.toNS());
    return CTime(floatToInteger<quint64>(CTime::convertValue(sum, CTime::UNIT_NS, a.unit())), a.unit());
}

CTime operator*(const CTime& time, double factor)
{
    return CTime(rounded(static_cast<double>(time.value()) * factor), time.unit());
}

CTime operator*(double factor, const CTime& time)
{
    return time * factor;
}

QDataStream& operator<<(QDataStream& stream, const CTime& time)
{
    return stream << quint64(time.value()) << qint32(time.unit());
}

QDataStream& operator>>(QDataStream& stream, CTime& time)
{
    quint64 value = 0;
    qint32 unit = 0;
    stream >> value >> unit;
    time.setValue(value, static_cast<CTime::ETimeUnit>(unit));
    return stream;
}

NQtCompat::THash qHash(const CTime& time, NQtCompat::THash seed) noexcept
{
    return qHash(quint64(time.toNS()), seed);
}

QDebug operator<<(QDebug debug, const CTime& time)
{
    const QDebugStateSaver saver(debug);
    const QString unit = CTime::unitStr(time.unit());
    debug.nospace() << "CTime(" << time.value() << ' ';
    if (unit.isEmpty()) {
        debug << "unit " << qint32(time.unit());
    } else {
        debug.noquote() << unit;
    }
    debug << ')';
    return debug;
}
