#include <core/files/CFTPath.h>

#include <core/base/StaticObjects.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr QLatin1String operator""_text(const char* text, std::size_t size)
{
    return QLatin1String(text, static_cast<int>(size));
}

struct SEntryPoint
{
    CFTPath::EEntryPoint value;
    QLatin1String name;
    QLatin1String path;
};

// In ascending order of value, which is the order of every search.
constexpr SEntryPoint ENTRY_POINTS[] = {
    {CFTPath::EP_INVALID, "<invalid>"_text, "<invalid>"_text},
    {CFTPath::EP_CONSTCONFIG, "CONSTCONFIG"_text, "/opt/TARVENIK/etc/conf/"_text},
    {CFTPath::EP_TARVENIK, "TARVENIK"_text, "/TARVENIK/"_text},
    {CFTPath::EP_OPT_TARVENIK, "OPT/TARVENIK"_text, "/opt/TARVENIK/"_text},
    {CFTPath::EP_TMP, "TMP"_text, "/tmp/"_text},
    {CFTPath::EP_ROOT, "ROOT"_text, "/"_text},
    {CFTPath::EP_OPT, "OPT"_text, "/opt/"_text},
    {CFTPath::EP_APPDATA, "APPDATA"_text, "/appdata/"_text},
};

// The first row that matches, else that of EP_INVALID.
template <typename Matches>
const SEntryPoint& firstRow(Matches matches)
{
    const auto found = std::find_if(std::begin(ENTRY_POINTS), std::end(ENTRY_POINTS), matches);
    return found != std::end(ENTRY_POINTS) ? *found : ENTRY_POINTS[0];
}

const SEntryPoint& rowOf(CFTPath::EEntryPoint entryPoint)
{
    return firstRow([entryPoint](const SEntryPoint& row) { return row.value == entryPoint; });
}

} // namespace

const QString CFTPath::INVALID_STR TLX_INIT_EARLY = QStringLiteral("<invalid>");
const QString CFTPath::PATH_AUTOSTART TLX_INIT_EARLY = QStringLiteral("autostart/");
const QString CFTPath::PATH_BIN TLX_INIT_EARLY = QStringLiteral("bin/");
const QString CFTPath::PATH_CONFIGURATIONS TLX_INIT_EARLY = QStringLiteral("configurations/");
const QString CFTPath::PATH_CONF TLX_INIT_EARLY = QStringLiteral("conf/");
const QString CFTPath::PATH_PARAM TLX_INIT_EARLY = QStringLiteral("param/");
const QString CFTPath::PATH_FIRMWARE TLX_INIT_EARLY = QStringLiteral("firmware/");
const QString CFTPath::PATH_LOGIC TLX_INIT_EARLY = QStringLiteral("logic/");
const QString CFTPath::PATH_SUBDEVICES TLX_INIT_EARLY = QStringLiteral("subdevices/");

QMap<CFTPath::EEntryPoint, QString> CFTPath::entryStrMap()
{
    QMap<EEntryPoint, QString> map;
    for (const SEntryPoint& entry : ENTRY_POINTS) {
        map.insert(map.cend(), entry.value, entry.name);
    }
    return map;
}

QList<CFTPath::EEntryPoint> CFTPath::entryPoints()
{
    return entryStrMap().keys();
}

QString CFTPath::toString(EEntryPoint entryPoint)
{
    return rowOf(entryPoint).name;
}

CFTPath::EEntryPoint CFTPath::toEntryPoint(const QString& name)
{
    return firstRow([&name](const SEntryPoint& row) { return row.name == name; }).value;
}

QString CFTPath::toPath(EEntryPoint entryPoint)
{
    return rowOf(entryPoint).path;
}

// The order decides: "/" of EP_ROOT comes before EP_OPT and EP_APPDATA, and tools rely on what that gives.
CFTPath::EEntryPoint CFTPath::fromPath(const QString& path)
{
    const auto matches = [&path](const SEntryPoint& row) {
        return path.startsWith(row.name) || path.mid(1).startsWith(row.name) || path.startsWith(row.path);
    };
    return firstRow(matches).value;
}

QString CFTPath::toRelativePath(const QString& path, EEntryPoint entryPoint)
{
    const QLatin1String front = rowOf(entryPoint).path;
    return path.startsWith(front) ? path.mid(front.size()) : path;
}
