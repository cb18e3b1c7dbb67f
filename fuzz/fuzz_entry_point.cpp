// Entry points of a drive's file system: any path beside the table that defines them, and the units' names.
#include <core/files/CFTPath.h>
#include <core/text/CUnitParser.h>
#include <fuzz/support/Fuzzer.h>

namespace {

struct SRow
{
    CFTPath::EEntryPoint value;
    QLatin1String name;
    QLatin1String path;
};

const SRow ROWS[] = {
    {CFTPath::EP_INVALID, QLatin1String("<invalid>"), QLatin1String("<invalid>")},
    {CFTPath::EP_CONSTCONFIG, QLatin1String("CONSTCONFIG"), QLatin1String("/opt/TARVENIK/etc/conf/")},
    {CFTPath::EP_TARVENIK, QLatin1String("TARVENIK"), QLatin1String("/TARVENIK/")},
    {CFTPath::EP_OPT_TARVENIK, QLatin1String("OPT/TARVENIK"), QLatin1String("/opt/TARVENIK/")},
    {CFTPath::EP_TMP, QLatin1String("TMP"), QLatin1String("/tmp/")},
    {CFTPath::EP_ROOT, QLatin1String("ROOT"), QLatin1String("/")},
    {CFTPath::EP_OPT, QLatin1String("OPT"), QLatin1String("/opt/")},
    {CFTPath::EP_APPDATA, QLatin1String("APPDATA"), QLatin1String("/appdata/")}};

CFTPath::EEntryPoint expectedEntryPoint(const QString& path)
{
    for (const SRow& row : ROWS) {
        const int place = path.indexOf(row.name);
        if (place == 0 || place == 1 || path.mid(1).indexOf(row.name) == 0 || path.indexOf(row.path) == 0) {
            return row.value;
        }
    }
    return CFTPath::EP_INVALID;
}

void checkRelativePath(const QString& path, const SRow& row)
{
    const QString relative = CFTPath::toRelativePath(path, row.value);
    FUZZ_CHECK(path.left(row.path.size()) == row.path ? row.path + relative == path : relative == path);
}

void checkUnit(const QString& text)
{
    bool ok = false;
    const NUnits::EObjectUnit unit = CUnitParser::strToUnit(text, &ok);
    FUZZ_CHECK(ok == CUnitParser::mcSTR_TO_UNIT_MAP.contains(text));
    FUZZ_CHECK(!ok || CUnitParser::unitToStr(unit) == text);
    FUZZ_CHECK(CUnitParser::checkUnitStr(text) == text.startsWith(QLatin1String("UNIT")));
    FUZZ_CHECK(CUnitParser::type(text) == (ok ? CUnitParser::type(unit) : NTypes::TYPE_UNKNOWN));
    FUZZ_CHECK(CUnitParser::size(text) == (ok ? CUnitParser::size(unit) : 0));
}

void checkUnitNumber(quint32 number)
{
    bool ok = false;
    const auto unit = static_cast<NUnits::EObjectUnit>(number);
    const QString name = CUnitParser::unitToStr(unit, &ok);
    FUZZ_CHECK(ok == CUnitParser::mcUNIT_TO_STR_MAP.contains(unit));
    FUZZ_CHECK(ok ? CUnitParser::strToUnit(name) == unit : name.isEmpty());
    FUZZ_CHECK(CUnitParser::type(number) == CUnitParser::type(unit));
    FUZZ_CHECK(CUnitParser::size(number) == CUnitParser::size(unit));
}

} // namespace

static void fuzz(Input& input)
{
    const auto number = input.take<quint32>();
    const auto entryPoint = static_cast<CFTPath::EEntryPoint>(number % 129);
    const QString text = input.text();
    const CFTPath::EEntryPoint found = CFTPath::fromPath(text);
    FUZZ_CHECK(found == expectedEntryPoint(text));
    const SRow* named = &ROWS[0];
    const SRow* numbered = &ROWS[0];
    for (const SRow& row : ROWS) {
        checkRelativePath(text, row);
        named = text == row.name ? &row : named;
        numbered = row.value == entryPoint ? &row : numbered;
    }
    FUZZ_CHECK(CFTPath::toString(entryPoint) == numbered->name
               && CFTPath::toPath(entryPoint) == numbered->path);
    FUZZ_CHECK(CFTPath::toEntryPoint(text) == named->value);
    FUZZ_CHECK(CFTPath::toEntryPoint(CFTPath::toString(found)) == found);
    checkUnit(text);
    checkUnitNumber(number % 256);
}
