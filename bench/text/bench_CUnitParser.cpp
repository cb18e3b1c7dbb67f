#include <core/text/CUnitParser.h>

#include <benchmark/benchmark.h>

#include <QStringList>

namespace {

// Texts of their own, as they come out of a file: no sharing with the catalogue's names.
QStringList names()
{
    QStringList list;
    for (quint32 unit = 0; unit < 126; ++unit) {
        const QString name = CUnitParser::unitToStr(static_cast<NUnits::EObjectUnit>(unit));
        list << QString(name.constData(), name.size());
    }
    return list;
}

QStringList absentNames()
{
    QStringList list = names();
    for (QString& name : list) {
        name[name.size() - 1] = QLatin1Char('~');
    }
    return list;
}

template <typename LookUp>
void lookUpAll(benchmark::State& state, const QStringList& list, LookUp lookUp)
{
    for (auto _ : state) {
        for (const QString& name : list) {
            benchmark::DoNotOptimize(lookUp(name));
        }
    }
    state.SetItemsProcessed(state.iterations() * list.size());
}

NUnits::EObjectUnit fromTable(const QString& name)
{
    bool ok = false;
    return CUnitParser::strToUnit(name, &ok);
}

NUnits::EObjectUnit fromHash(const QString& name)
{
    static const QHash<QString, NUnits::EObjectUnit> hash = CUnitParser::initStrToUnit();
    const auto found = hash.constFind(name);
    return found == hash.constEnd() ? NUnits::UNIT_UNKNOWN : found.value();
}

void unitByName(benchmark::State& state, NUnits::EObjectUnit (*lookUp)(const QString&))
{
    lookUpAll(state, names(), lookUp);
}

void noUnitByName(benchmark::State& state, NUnits::EObjectUnit (*lookUp)(const QString&))
{
    lookUpAll(state, absentNames(), lookUp);
}

QString nameFromTable(NUnits::EObjectUnit unit)
{
    return CUnitParser::unitToStr(unit);
}

QString nameFromMap(NUnits::EObjectUnit unit)
{
    return CUnitParser::mcUNIT_TO_STR_MAP.value(unit);
}

void nameOfUnit(benchmark::State& state, QString (*lookUp)(NUnits::EObjectUnit))
{
    for (auto _ : state) {
        for (quint32 unit = 0; unit < 126; ++unit) {
            benchmark::DoNotOptimize(lookUp(static_cast<NUnits::EObjectUnit>(unit)));
        }
    }
    state.SetItemsProcessed(state.iterations() * 126);
}

} // namespace

BENCHMARK_CAPTURE(unitByName, tlx, fromTable)->Name("BM_UnitByName/tlx");
BENCHMARK_CAPTURE(unitByName, QHash, fromHash)->Name("BM_UnitByName/QHash");
BENCHMARK_CAPTURE(noUnitByName, tlx, fromTable)->Name("BM_NoUnitByName/tlx");
BENCHMARK_CAPTURE(noUnitByName, QHash, fromHash)->Name("BM_NoUnitByName/QHash");
BENCHMARK_CAPTURE(nameOfUnit, tlx, nameFromTable)->Name("BM_NameOfUnit/tlx");
BENCHMARK_CAPTURE(nameOfUnit, QMap, nameFromMap)->Name("BM_NameOfUnit/QMap");
