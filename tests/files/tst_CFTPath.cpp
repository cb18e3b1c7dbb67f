#include <core/files/CFTPath.h>

#include <QtTest>

#include <type_traits>

using EEntryPoint = CFTPath::EEntryPoint;

namespace {

const QString gEarlyFirmware = CFTPath::PATH_FIRMWARE + CFTPath::PATH_BIN;

// The table as a drive's manual prints it.
struct SRow
{
    quint32 value;
    const char* name;
    const char* path;
};

const SRow ROWS[] = {
    {0, "<invalid>", "<invalid>"}, {1, "CONSTCONFIG", "/opt/TARVENIK/etc/conf/"},
    {2, "TARVENIK", "/TARVENIK/"}, {4, "OPT/TARVENIK", "/opt/TARVENIK/"},
    {8, "TMP", "/tmp/"},           {16, "ROOT", "/"},
    {32, "OPT", "/opt/"},          {64, "APPDATA", "/appdata/"},
};

EEntryPoint entryPointOf(quint32 value)
{
    return static_cast<EEntryPoint>(value);
}

} // namespace

class tst_CFTPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constants_data();
    void constants();
    void constantsInStaticObjects();
    void values();
    void entryStrMap();
    void entryPoints();
    void table_data();
    void table();
    void noEntryPoint_data();
    void noEntryPoint();
    void unknownName_data();
    void unknownName();
    void fromPath_data();
    void fromPath();
    void toRelativePath_data();
    void toRelativePath();
    void pathsComeBack_data();
    void pathsComeBack();
};

void tst_CFTPath::constants_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");

    QTest::newRow("invalid") << CFTPath::INVALID_STR << QStringLiteral("<invalid>");
    QTest::newRow("autostart") << CFTPath::PATH_AUTOSTART << QStringLiteral("autostart/");
    QTest::newRow("bin") << CFTPath::PATH_BIN << QStringLiteral("bin/");
    QTest::newRow("configurations") << CFTPath::PATH_CONFIGURATIONS << QStringLiteral("configurations/");
    QTest::newRow("conf") << CFTPath::PATH_CONF << QStringLiteral("conf/");
    QTest::newRow("param") << CFTPath::PATH_PARAM << QStringLiteral("param/");
    QTest::newRow("firmware") << CFTPath::PATH_FIRMWARE << QStringLiteral("firmware/");
    QTest::newRow("logic") << CFTPath::PATH_LOGIC << QStringLiteral("logic/");
    QTest::newRow("subdevices") << CFTPath::PATH_SUBDEVICES << QStringLiteral("subdevices/");
}

void tst_CFTPath::constants()
{
    QFETCH(QString, constant);
    QFETCH(QString, text);

    QCOMPARE(constant, text);
}

void tst_CFTPath::constantsInStaticObjects()
{
    QCOMPARE(gEarlyFirmware, QStringLiteral("firmware/bin/"));
}

void tst_CFTPath::values()
{
    static_assert(std::is_same_v<std::underlying_type_t<EEntryPoint>, quint32>, "holds any 32-bit number");
    QCOMPARE(quint32(CFTPath::EP_INVALID), 0u);
    QCOMPARE(quint32(CFTPath::EP_CONSTCONFIG), 1u);
    QCOMPARE(quint32(CFTPath::EP_TARVENIK), 2u);
    QCOMPARE(quint32(CFTPath::EP_OPT_TARVENIK), 4u);
    QCOMPARE(quint32(CFTPath::EP_TMP), 8u);
    QCOMPARE(quint32(CFTPath::EP_ROOT), 16u);
    QCOMPARE(quint32(CFTPath::EP_OPT), 32u);
    QCOMPARE(quint32(CFTPath::EP_APPDATA), 64u);
}

void tst_CFTPath::entryStrMap()
{
    const QMap<EEntryPoint, QString> map = CFTPath::entryStrMap();
    QMap<EEntryPoint, QString> expected;
    for (const SRow& row : ROWS) {
        expected.insert(entryPointOf(row.value), QLatin1String(row.name));
    }
    QCOMPARE(map, expected);
    QCOMPARE(map.size(), 8);

    QMap<EEntryPoint, QString> changed = CFTPath::entryStrMap();
    changed.clear();
    QCOMPARE(CFTPath::entryStrMap(), expected);
}

void tst_CFTPath::entryPoints()
{
    QList<EEntryPoint> expected;
    for (const SRow& row : ROWS) {
        expected << entryPointOf(row.value);
    }
    QCOMPARE(CFTPath::entryPoints(), expected);
}

void tst_CFTPath::table_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    for (const SRow& row : ROWS) {
        QTest::newRow(row.name) << row.value << QString(QLatin1String(row.name))
                                << QString(QLatin1String(row.path));
    }
}

void tst_CFTPath::table()
{
    QFETCH(quint32, value);
    QFETCH(QString, name);
    QFETCH(QString, path);

    QCOMPARE(CFTPath::toString(entryPointOf(value)), name);
    QCOMPARE(CFTPath::toPath(entryPointOf(value)), path);
    QCOMPARE(quint32(CFTPath::toEntryPoint(name)), value);
}

void tst_CFTPath::noEntryPoint_data()
{
    QTest::addColumn<quint32>("value");
    for (const quint32 value : {3u, 5u, 48u, 63u, 65u, 127u, 128u, 0x80000000u, 0xffffffffu}) {
        QTest::addRow("%u", value) << value;
    }
}

void tst_CFTPath::noEntryPoint()
{
    QFETCH(quint32, value);

    QCOMPARE(CFTPath::toString(entryPointOf(value)), QStringLiteral("<invalid>"));
    QCOMPARE(CFTPath::toPath(entryPointOf(value)), QStringLiteral("<invalid>"));
    QCOMPARE(CFTPath::toRelativePath(QStringLiteral("/tmp/a"), entryPointOf(value)),
             QStringLiteral("/tmp/a"));
}

void tst_CFTPath::unknownName_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"", "tmp", "TMP/", "/TMP", " TMP", "TMP ", "OPT/TARVENIK/", "opt", "INVALID"}) {
        QTest::addRow("'%s'", name) << QString(QLatin1String(name));
    }
}

void tst_CFTPath::unknownName()
{
    QFETCH(QString, name);

    QCOMPARE(CFTPath::toEntryPoint(name), CFTPath::EP_INVALID);
}

void tst_CFTPath::fromPath_data()
{
    QTest::addColumn<quint32>("value");
    const struct
    {
        const char* path;
        quint32 value;
    } rows[] = {
        {"", 0},
        {"/opt/TARVENIK/etc/conf/x.ini", 1},
        {"CONSTCONFIG/a.ini", 1},
        {"/CONSTCONFIG/a.ini", 1},
        {"/TARVENIK/x", 2},
        {"TARVENIK/x", 2},
        {"/TARVENIK", 2},
        {"/opt/TARVENIK/x", 4},
        {"/opt/TARVENIK/etc/conf", 4}, // without the last "/" it is no path below the configuration
        {"OPT/TARVENIK/x", 4},
        {"/OPT/TARVENIK/x", 4},
        {"/tmp/x", 8},
        {"TMP", 8},
        {"/TMP/x", 8},
        {"/opt/x", 16},
        {"/opt", 16},
        {"/tmp", 16},
        {"/appdata/x", 16},
        {"/APPDATA/x", 16}, // the root's "/" is asked before the name
        {"/OPT/x", 16},
        {"/", 16},
        {"//TMP/x", 16}, // the name at position 2 does not count
        {"ROOT/x", 16},
        {"/ROOT", 16},
        {"OPT/x", 32},
        {"APPDATA/x", 64},
        {"xAPPDATA/x", 64}, // any character may stand before the name
        {"TMPFILES", 8},    // and any behind it
        {"OPTION", 32},
        {"ROOTED", 16},
        {"x/TMP", 0},
        {"xxTMP", 0},
        {"tmp/x", 0},
        {"opt/TARVENIK/x", 0},
        {"<invalid>", 0},
        {"/<invalid>/x", 0}, // the name of no entry point comes before the root's "/"
        {"<TMP", 8},
    };
    QTest::addColumn<QString>("path");
    for (const auto& row : rows) {
        QTest::addRow("'%s'", row.path) << row.value << QString(QLatin1String(row.path));
    }
}

void tst_CFTPath::fromPath()
{
    QFETCH(quint32, value);
    QFETCH(QString, path);

    QCOMPARE(quint32(CFTPath::fromPath(path)), value);
}

void tst_CFTPath::toRelativePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<quint32>("value");
    QTest::addColumn<QString>("relative");
    const struct
    {
        const char* path;
        quint32 value;
        const char* relative;
    } rows[] = {
        {"/tmp/a/b", 8, "a/b"},
        {"/var/a", 8, "/var/a"},
        {"/tmp", 8, "/tmp"},
        {"/tmp/", 8, ""},
        {"/tmp/tmp/a", 8, "tmp/a"},
        {"/tmp//tmp/a", 8, "/tmp/a"}, // once only
        {"a/tmp/b", 8, "a/tmp/b"},    // at the front only
        {"/TMP/a", 8, "/TMP/a"},
        {"/tmp/a", 16, "tmp/a"},
        {"//a", 16, "/a"},
        {"/opt/TARVENIK/etc/conf/a", 1, "a"},
        {"/opt/TARVENIK/etc/conf/a", 4, "etc/conf/a"},
        {"/opt/TARVENIK/etc/conf/a", 32, "TARVENIK/etc/conf/a"},
        {"<invalid>/a", 0, "/a"},
        {"<invalid>", 3, ""},
        {"/tmp/a", 0, "/tmp/a"},
        {"", 8, ""},
    };
    for (const auto& row : rows) {
        QTest::addRow("'%s' from %u", row.path, row.value)
            << QString(QLatin1String(row.path)) << row.value << QString(QLatin1String(row.relative));
    }
}

void tst_CFTPath::toRelativePath()
{
    QFETCH(QString, path);
    QFETCH(quint32, value);
    QFETCH(QString, relative);

    QCOMPARE(CFTPath::toRelativePath(path, entryPointOf(value)), relative);
}

void tst_CFTPath::pathsComeBack_data()
{
    table_data();
}

void tst_CFTPath::pathsComeBack()
{
    QFETCH(quint32, value);
    QFETCH(QString, path);
    const QString file = QStringLiteral("trace/a.bin");

    QCOMPARE(CFTPath::toRelativePath(path + file, entryPointOf(value)), file);
    const quint32 found = value == CFTPath::EP_OPT || value == CFTPath::EP_APPDATA ? 16u : value;
    QCOMPARE(quint32(CFTPath::fromPath(path + file)), found);
}

QTEST_APPLESS_MAIN(tst_CFTPath)
#include "tst_CFTPath.moc"
