#include <core/text/CMath.h>
#include <core/text/CTime.h>
#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>

#include <QCommandLineParser>

#include <cmath>

namespace {

constexpr double HIGHEST_COUNT = 9223372036854775808.0; // 2^63, where the library's counts end

struct SDuration
{
    QString text;
    double value;
    CTime::ETimeUnit unit;
};

QStringList unitNames()
{
    QStringList names;
    for (int number = 0; number < CTime::UNIT_UNKNOWN; ++number) {
        names << CTime::unitStr(static_cast<CTime::ETimeUnit>(number));
    }
    return names;
}

// As CTime reads it; "us" for those whose keyboard has no micro sign.
CTime::ETimeUnit unitOf(const QString& text)
{
    return text.compare(QLatin1String("us"), Qt::CaseInsensitive) == 0 ? CTime::UNIT_US : CTime::unit(text);
}

// The whole count in another unit: of a whole count what CTime has, of others the rounded number.
QJsonValue countIn(const SDuration& duration, CTime::ETimeUnit target, bool& fits)
{
    bool whole = false;
    const quint64 count = duration.text.toULongLong(&whole);
    const double converted = CTime::convertValue(duration.value, duration.unit, target);
    if (whole && (target == duration.unit || converted < HIGHEST_COUNT)) {
        return wideNumber(CTime(count, duration.unit).value(target));
    }
    if (!(std::fabs(converted) < HIGHEST_COUNT)) {
        fits = false;
        return whole ? wideNumber(CTime(count, duration.unit).value(target)) : QJsonValue();
    }
    return QString::number(CMath::round(converted, 0), 'f', 0);
}

bool addUnits(Report& report, const SDuration& duration)
{
    QList<QJsonArray> rows;
    bool fits = true;
    for (int number = 0; number < CTime::UNIT_UNKNOWN; ++number) {
        const auto target = static_cast<CTime::ETimeUnit>(number);
        rows << QJsonArray{CTime::unitStr(target),
                           floatingNumber(CTime::convertValue(duration.value, duration.unit, target)),
                           countIn(duration, target, fits)};
    }
    report.setSection(QString(), QStringLiteral("In every unit"));
    report.addTable("units", {"unit", "value", "count"}, rows);
    return fits;
}

bool addConverted(Report& report, const SDuration& duration, CTime::ETimeUnit target)
{
    bool fits = true;
    report.setSection(QStringLiteral("converted"), QStringLiteral("Converted"));
    report.add("value", "Value", floatingNumber(CTime::convertValue(duration.value, duration.unit, target)));
    report.add("unit", "Unit", CTime::unitStr(target));
    report.add("count", "Whole count", countIn(duration, target, fits));
    return fits;
}

void addPreviousInteger(Report& report, const SDuration& duration)
{
    long long whole = 0;
    auto wholeUnit = CTime::UNIT_UNKNOWN;
    const bool found = CTime::convertToPrevIntegerValue(duration.value, duration.unit, whole, wholeUnit);
    report.setSection(QStringLiteral("previousInteger"), QStringLiteral("Previous integer form"));
    report.add("found", "Found", found);
    if (found) {
        report.add("value", "Value", wideNumber(whole));
        report.add("unit", "Unit", CTime::unitStr(wholeUnit));
    }
}

} // namespace

QStringList durationWords(int position)
{
    return position == 2 || position == 3 ? unitNames() << QStringLiteral("us") : QStringList();
}

int runDuration(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        return wrongUsage(report,
                          QStringLiteral("a number, its unit and at most one other unit are expected"));
    }
    for (const QString& text : arguments.mid(1)) {
        if (unitOf(text) == CTime::UNIT_UNKNOWN) {
            return wrongUsage(
                report, noSuch(QStringLiteral("unit"), text, unitNames(),
                               QStringLiteral("the units are ") + unitNames().join(QLatin1String(", "))));
        }
    }
    bool ok = false;
    const SDuration duration{arguments.first(), arguments.first().toDouble(&ok), unitOf(arguments.at(1))};
    if (!ok) {
        return invalid(report, QStringLiteral("not a number: ") + arguments.first());
    }
    report.add("value", "Value", floatingNumber(duration.value));
    report.add("unit", "Unit", CTime::unitStr(duration.unit));
    const bool fits = arguments.size() == 3 ? addConverted(report, duration, unitOf(arguments.last()))
                                            : addUnits(report, duration);
    addPreviousInteger(report, duration);
    if (!fits) {
        report.setError(QStringLiteral("a whole count does not fit: the library's counts end at 2^63"));
    }
    return EXIT_DONE;
}
