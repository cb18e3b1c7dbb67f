#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/text/CMath.h>
#include <core/text/CTime.h>

#include <QCommandLineParser>

namespace {

// As CTime reads it; "us" for those whose keyboard has no micro sign.
CTime::ETimeUnit unitOf(const QString& text)
{
    return text.compare(QLatin1String("us"), Qt::CaseInsensitive) == 0 ? CTime::UNIT_US : CTime::unit(text);
}

QString shown(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

// The whole count in another unit: of a whole count what CTime gives, of others the rounded number.
QString countIn(const QString& text, double value, CTime::ETimeUnit unit, CTime::ETimeUnit target)
{
    bool whole = false;
    const quint64 count = text.toULongLong(&whole);
    return whole ? QString::number(CTime(count, unit).value(target))
                 : QString::number(CMath::round(CTime::convertValue(value, unit, target), 0), 'f', 0);
}

void addUnits(Report& report, const QString& text, double value, CTime::ETimeUnit unit)
{
    QList<QStringList> rows;
    for (int number = CTime::UNIT_PS; number < CTime::UNIT_UNKNOWN; ++number) {
        const CTime::ETimeUnit target = static_cast<CTime::ETimeUnit>(number);
        rows << QStringList{CTime::unitStr(target), shown(CTime::convertValue(value, unit, target)),
                            countIn(text, value, unit, target)};
    }
    report.setSection(QString(), QStringLiteral("In every unit"));
    report.addTable(QStringLiteral("units"),
                    {QStringLiteral("unit"), QStringLiteral("value"), QStringLiteral("count")}, rows);
}

void addPreviousInteger(Report& report, double value, CTime::ETimeUnit unit)
{
    long long whole = 0;
    CTime::ETimeUnit wholeUnit = CTime::UNIT_UNKNOWN;
    const bool found = CTime::convertToPrevIntegerValue(value, unit, whole, wholeUnit);
    report.setSection(QStringLiteral("previousInteger"), QStringLiteral("Previous integer form"));
    report.add(QStringLiteral("found"), QStringLiteral("Found"), found);
    if (found) {
        report.add(QStringLiteral("value"), QStringLiteral("Value"), QString::number(whole));
        report.add(QStringLiteral("unit"), QStringLiteral("Unit"), CTime::unitStr(wholeUnit));
    }
}

} // namespace

int runDuration(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        return wrongUsage(report,
                          QStringLiteral("a number, its unit and at most one other unit are expected; put -- "
                                         "before a number that begins with a dash"));
    }
    for (const QString& text : arguments.mid(1)) {
        if (unitOf(text) == CTime::UNIT_UNKNOWN) {
            return wrongUsage(report, QStringLiteral("no such unit: %1").arg(text));
        }
    }
    bool ok = false;
    const double value = arguments.first().toDouble(&ok);
    if (!ok) {
        report.setError(QStringLiteral("not a number: %1").arg(arguments.first()));
        return EXIT_INVALID;
    }
    const CTime::ETimeUnit unit = unitOf(arguments.at(1));
    report.add(QStringLiteral("value"), QStringLiteral("Value"), shown(value));
    report.add(QStringLiteral("unit"), QStringLiteral("Unit"), CTime::unitStr(unit));
    if (arguments.size() == 3) {
        const CTime::ETimeUnit target = unitOf(arguments.last());
        report.setSection(QStringLiteral("converted"), QStringLiteral("Converted"));
        report.add(QStringLiteral("value"), QStringLiteral("Value"),
                   shown(CTime::convertValue(value, unit, target)));
        report.add(QStringLiteral("unit"), QStringLiteral("Unit"), CTime::unitStr(target));
        report.add(QStringLiteral("count"), QStringLiteral("Whole count"),
                   countIn(arguments.first(), value, unit, target));
    } else {
        addUnits(report, arguments.first(), value, unit);
    }
    addPreviousInteger(report, value, unit);
    return EXIT_DONE;
}
