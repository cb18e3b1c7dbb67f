// Durations of any count, unit and factor: conversions beside a wider arithmetic, comparisons that agree.
#include <core/text/CTime.h>
#include <fuzz/support/Fuzzer.h>

#include <cmath>

namespace {

constexpr long double SECONDS[] = {1e-12L, 1e-9L, 1e-6L, 1e-3L, 1.0L, 60.0L, 3600.0L};

long double secondsOf(CTime::ETimeUnit unit)
{
    return unit >= CTime::UNIT_PS && unit <= CTime::UNIT_H ? SECONDS[unit] : 1.0L;
}

CTime::ETimeUnit anyUnit(Input& input)
{
    const int number = input.choose(10);
    return number < 9 ? static_cast<CTime::ETimeUnit>(number)
                      : static_cast<CTime::ETimeUnit>(input.take<qint32>());
}

bool isNear(long double left, long double right)
{
    return std::fabs(left - right) <= std::fabs(right) * 1e-12L;
}

void checkConversion(const CTime& time, CTime::ETimeUnit target)
{
    const long double expected =
        static_cast<long double>(time.value()) * secondsOf(time.unit()) / secondsOf(target);
    const quint64 value = time.value(target);
    if (target == time.unit()) {
        FUZZ_CHECK(value == time.value());
    } else if (expected < 9.2e18L) {
        FUZZ_CHECK(std::fabs(static_cast<long double>(value) - expected) <= 0.5L + expected * 1e-12L);
    }
    CTime moved(0, target);
    moved.fromValue(time);
    FUZZ_CHECK(moved.unit() == target);
    FUZZ_CHECK(moved.value() == value);
}

void checkOrder(const CTime& left, const CTime& right)
{
    const quint64 first = left.toNS();
    const quint64 second = right.toNS();
    FUZZ_CHECK((left == right) == (first == second) && (left != right) == (first != second));
    FUZZ_CHECK((left < right) == (first < second) && (left > right) == (first > second));
    FUZZ_CHECK((left <= right) == (first <= second) && (left >= right) == (first >= second));
    FUZZ_CHECK(first != second || qHash(left) == qHash(right));
}

void checkReal(double value, CTime::ETimeUnit from, CTime::ETimeUnit to)
{
    const double converted = CTime::convertValue(value, from, to);
    const long double expected = static_cast<long double>(value) * secondsOf(from) / secondsOf(to);
    if (std::isfinite(value) && std::fabs(expected) < 1e290L && std::fabs(expected) > 1e-290L
        && std::fabs(value) > 1e-290 && std::fabs(value) < 1e290) {
        FUZZ_CHECK(isNear(static_cast<long double>(converted), expected));
    }
    long long count = 77;
    auto unit = CTime::UNIT_UNKNOWN;
    const bool written = CTime::convertToPrevIntegerValue(value, from, count, unit);
    FUZZ_CHECK(!written || (unit >= CTime::UNIT_PS && unit <= CTime::UNIT_UNKNOWN));
}

void checkUnitText(const QString& text)
{
    const CTime::ETimeUnit unit = CTime::unit(text);
    FUZZ_CHECK(unit == CTime::mUnitHash.value(text.toLower(), CTime::UNIT_UNKNOWN));
    FUZZ_CHECK(unit == CTime::UNIT_UNKNOWN || CTime::unit(CTime::unitStr(unit)) == unit);
}

} // namespace

static void fuzz(Input& input)
{
    const CTime left(input.take<quint64>(), anyUnit(input));
    const CTime right(input.take<quint64>(), anyUnit(input));
    const auto real = input.take<double>();
    checkConversion(left, right.unit());
    checkConversion(right, CTime::UNIT_MS);
    checkOrder(left, right);
    checkReal(real, left.unit(), right.unit());
    checkUnitText(input.text());
    FUZZ_CHECK((left + right).unit() == left.unit());
    FUZZ_CHECK((left * real).unit() == left.unit() && (left * real).value() == (real * left).value());
    long long count = 0;
    auto unit = CTime::UNIT_UNKNOWN;
    left.convertToPrevIntegerValue(count, unit);
    FUZZ_CHECK(left.isValid() == (left.unit() >= CTime::UNIT_NS && left.unit() <= CTime::UNIT_H));
}
