#include <core/app/CCompanyStrings.h>

#include <tests/support/InstalledProgram.h>

#include <QFileInfo>
#include <QScopeGuard>
#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <tests/support/OtherProcess.h>
#endif

namespace {

const QString gSettingsName = QStringLiteral("Prog/Tool/etc/conf/Setup.Ini");

/// Writes the installation's own settings file.
bool writeSettings(const InstalledProgram& probe, const QByteArray& content)
{
    const QString path = probe.root() + gSettingsName;
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
           && file.write(content) == content.size();
}

const QStringList gCompany{QStringLiteral("company")};

} // namespace

/// Each function runs a program in an installation of its own: a process opens its settings once.
class tst_CCompanyStrings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void builtIn_data();
    void builtIn();
    void builtInProducts_data();
    void builtInProducts();
    void everyKeyIsRead();
    void directoriesAreMade();
    void noImageNoDirectory();
    void programFolderIsMade();
    void installedFileReplacesWholly();
    void iniRules_data();
    void iniRules();
    void damaged_data();
    void damaged();
    void damagedInPart_data();
    void damagedInPart();
    void directoryInPlaceOfFile();
    void unreadableFile();
    void withoutTemporaryFolder();
    void diskIsFull();
    void choiceIsNotRevisited();
    void productSection_data();
    void productSection();
};

void tst_CCompanyStrings::builtIn_data()
{
    QTest::addColumn<QString>("value");

    const QString name = QStringLiteral("TARVENIK Antriebstechnik GmbH");
    QTest::newRow("longName") << name;
    QTest::newRow("mediumName") << QStringLiteral("TARVENIK Antriebstechnik");
    QTest::newRow("shortName") << QStringLiteral("TARVENIK");
    QTest::newRow("addressName") << name;
    QTest::newRow("addressStreet") << QString::fromUtf8("Am Läufer 7");
    QTest::newRow("addressCity") << QStringLiteral("00001 Tollan am Wehr");
    QTest::newRow("addressHtml") << QString::fromUtf8(
        "<b>TARVENIK Antriebstechnik GmbH</b><br>Am Läufer 7<br>00001 Tollan am Wehr<br><br>"
        "Tel.&nbsp;+00 1000 70-0,<br>Fax&nbsp;+00 1000 70-99");
    QTest::newRow("webUrl") << QStringLiteral("https://www.tarvenik.example");
    QTest::newRow("eMail") << QStringLiteral("info@tarvenik.example");
    QTest::newRow("logo145x52") << QStringLiteral("IMAGE/TarvenikLogoAndName_145x52.png");
    QTest::newRow("logo105x30") << QStringLiteral("IMAGE/TarvenikLogoAndName_105x30.png");
    QTest::newRow("logo105x30inverted") << QStringLiteral("IMAGE/TarvenikLogoAndName_105x30_inverted.png");
    QTest::newRow("logo32x32") << QStringLiteral("IMAGE/TarvenikLogo_32x32.png");
    QTest::newRow("logo16x16") << QStringLiteral("IMAGE/TarvenikLogo_16x16.png");
    QTest::newRow("updateVersionFile") << QString();
    QTest::newRow("updatePath") << QString();
    QTest::newRow("updateChangelogFile") << QString();
    QTest::newRow("openSourceUrl") << QStringLiteral("https://www.tarvenik.example/open-source");
}

void tst_CCompanyStrings::builtIn()
{
    QFETCH(QString, value);
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));

    const QMap<QString, QString> answers = probe.run(gCompany);

    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(answers.contains(name));
    QCOMPARE(answers.value(name),
             value.replace(QLatin1String("IMAGE/"), probe.install() + QLatin1String("etc/image/")));
}

void tst_CCompanyStrings::builtInProducts_data()
{
    QTest::addColumn<int>("product");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("exeFile");
    QTest::addColumn<QString>("splashScreen");
    QTest::addColumn<QString>("eMail");

    const auto row = [](int product, const char* name, const char* exe, const char* splash,
                        const char* eMail) {
        QTest::newRow(QByteArray::number(product).constData())
            << product << QString::fromLatin1(name) << QString::fromLatin1(exe) << QString::fromLatin1(splash)
            << QString::fromLatin1(eMail);
    };
    row(89, "PRODUCT89", "", "", "");
    row(90, "Tollan Setup", "TollanSetup.exe", "TollanSetup.png", "");
    row(91, "Tollan Scope", "TollanScope.exe", "TollanScope.png", "");
    row(92, "Tollan Motor Editor", "TollanMotorEditor.exe", "", "");
    row(93, "Tollan Parameter Compare", "TollanParameterCompare.exe", "", "");
    row(94, "Tollan Firmware Loader", "TollanFirmwareLoader.exe", "", "");
    row(95, "PRODUCT95", "", "", "");
    row(100, "PRODUCT100", "", "", "");
    row(101, "Tollan Device Explorer", "TollanDeviceExplorer.exe", "TollanDeviceExplorer.png",
        "explorer@tarvenik.example");
    row(102, "Tollan Commissioning", "TollanCommissioning.exe", "TollanCommissioning.png",
        "commissioning@tarvenik.example");
    row(103, "Tollan Bus Monitor", "TollanBusMonitor.exe", "", "");
    row(104, "Tollan Safety Editor", "TollanSafetyEditor.exe", "TollanSafetyEditor.png",
        "safety@tarvenik.example");
    row(105, "Tollan Archive Viewer", "TollanArchiveViewer.exe", "", "");
    row(106, "Tollan FPGA Loader", "TollanFpgaLoader.exe", "", "");
    row(107, "Tollan Fault Log", "TollanFaultLog.exe", "", "");
    row(108, "Tollan License Manager", "TollanLicenseManager.exe", "", "license@tarvenik.example");
    row(109, "PRODUCT109", "", "", "");
    row(999, "PRODUCT999", "", "", "");
}

void tst_CCompanyStrings::builtInProducts()
{
    QFETCH(int, product);
    QFETCH(QString, name);
    QFETCH(QString, exeFile);
    QFETCH(QString, splashScreen);
    QFETCH(QString, eMail);
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    const QString number = QString::number(product);
    const QString prefix = number + QLatin1Char('.');

    const QMap<QString, QString> answers = probe.run({number});

    QCOMPARE(answers.size(), 8);
    QCOMPARE(answers.value(prefix + QStringLiteral("section")), QStringLiteral("PRODUCT") + number);
    QCOMPARE(answers.value(prefix + QStringLiteral("name")), name);
    QCOMPARE(answers.value(prefix + QStringLiteral("exeFile")),
             probe.install() + QStringLiteral("bin/") + exeFile);
    const QString image = probe.install() + QStringLiteral("etc/image/") + splashScreen;
    QCOMPARE(answers.value(prefix + QStringLiteral("splashScreen")),
             splashScreen.isEmpty() ? QString() : image);
    QCOMPARE(answers.value(prefix + QStringLiteral("productEMail")), eMail);
    QCOMPARE(answers.value(prefix + QStringLiteral("productUpdateVersionFile")), QString());
    QCOMPARE(answers.value(prefix + QStringLiteral("productUpdatePath")), QString());
    QCOMPARE(answers.value(prefix + QStringLiteral("productUpdateChangelogFile")), QString());
}

// A file whose every value names its own key shows which key an accessor reads.
void tst_CCompanyStrings::everyKeyIsRead()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QByteArray content = "[COMPANY]\r\n";
    for (const char* key :
         {"NameLong", "NameMedium", "NameShort", "AddressName", "AddressStreet", "AddressCity", "AddressHtml",
          "WebUrl", "eMail", "LogoAndNameBitmap_145x52", "LogoAndNameBitmap_105x30",
          "LogoAndNameBitmap_105x30_inverted", "Logo_32x32", "Logo_16x16", "UpdateVersionFile", "UpdatePath",
          "UpdateChangelogFile", "OpenSourceUrl"}) {
        content += QByteArray(key) + "=c " + key + "\r\n";
    }
    content += "[PRODUCT12]\r\n";
    for (const char* key : {"Name", "ExeFile", "SplashScreen", "eMail", "UpdateVersionFile", "UpdatePath",
                            "UpdateChangelogFile"}) {
        content += QByteArray(key) + "=p " + key + "\r\n";
    }
    QVERIFY(writeSettings(probe, content));

    const QMap<QString, QString> answers = probe.run({QStringLiteral("company"), QStringLiteral("12")});

    const QString image = probe.install() + QStringLiteral("etc/image/");
    const QMap<QString, QString> expected{
        {QStringLiteral("longName"), QStringLiteral("c NameLong")},
        {QStringLiteral("mediumName"), QStringLiteral("c NameMedium")},
        {QStringLiteral("shortName"), QStringLiteral("c NameShort")},
        {QStringLiteral("addressName"), QStringLiteral("c AddressName")},
        {QStringLiteral("addressStreet"), QStringLiteral("c AddressStreet")},
        {QStringLiteral("addressCity"), QStringLiteral("c AddressCity")},
        {QStringLiteral("addressHtml"), QStringLiteral("c AddressHtml")},
        {QStringLiteral("webUrl"), QStringLiteral("c WebUrl")},
        {QStringLiteral("eMail"), QStringLiteral("c eMail")},
        {QStringLiteral("logo145x52"), image + QStringLiteral("c LogoAndNameBitmap_145x52")},
        {QStringLiteral("logo105x30"), image + QStringLiteral("c LogoAndNameBitmap_105x30")},
        {QStringLiteral("logo105x30inverted"), image + QStringLiteral("c LogoAndNameBitmap_105x30_inverted")},
        {QStringLiteral("logo32x32"), image + QStringLiteral("c Logo_32x32")},
        {QStringLiteral("logo16x16"), image + QStringLiteral("c Logo_16x16")},
        {QStringLiteral("updateVersionFile"), QStringLiteral("c UpdateVersionFile")},
        {QStringLiteral("updatePath"), QStringLiteral("c UpdatePath")},
        {QStringLiteral("updateChangelogFile"), QStringLiteral("c UpdateChangelogFile")},
        {QStringLiteral("openSourceUrl"), QStringLiteral("c OpenSourceUrl")},
        {QStringLiteral("12.section"), QStringLiteral("PRODUCT12")},
        {QStringLiteral("12.name"), QStringLiteral("p Name")},
        {QStringLiteral("12.exeFile"), probe.install() + QStringLiteral("bin/p ExeFile")},
        {QStringLiteral("12.splashScreen"), image + QStringLiteral("p SplashScreen")},
        {QStringLiteral("12.productEMail"), QStringLiteral("p eMail")},
        {QStringLiteral("12.productUpdateVersionFile"), QStringLiteral("p UpdateVersionFile")},
        {QStringLiteral("12.productUpdatePath"), QStringLiteral("p UpdatePath")},
        {QStringLiteral("12.productUpdateChangelogFile"), QStringLiteral("p UpdateChangelogFile")},
    };
    QCOMPARE(answers, expected);
}

void tst_CCompanyStrings::directoriesAreMade()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));

    QVERIFY(!probe.run({QStringLiteral("COMPANY/Logo_16x16")}).isEmpty());

    const QStringList entries = probe.entries();
    QVERIFY(entries.contains(QStringLiteral("Prog/Tool/etc/conf")));
    QVERIFY(entries.contains(QStringLiteral("Prog/Tool/etc/image")));
    QVERIFY(!entries.contains(gSettingsName));
}

// Neither an empty value nor a missing key makes the image directory; opening makes that of the configuration.
void tst_CCompanyStrings::noImageNoDirectory()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    const QStringList keys{QStringLiteral("PRODUCT92/SplashScreen"), QStringLiteral("COMPANY/NoSuchKey")};

    const QMap<QString, QString> answers = probe.run(keys);

    QCOMPARE(answers, (QMap<QString, QString>{{keys.at(0), QString()}, {keys.at(1), QString()}}));
    QVERIFY(probe.entries().contains(QStringLiteral("Prog/Tool/etc/conf")));
    QVERIFY(!probe.entries().contains(QStringLiteral("Prog/Tool/etc/image")));
}

void tst_CCompanyStrings::programFolderIsMade()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE), QStringLiteral("start"));
    const QString bin = QStringLiteral("Prog/Tool/bin");
    QVERIFY(!probe.entries().contains(bin));

    const QMap<QString, QString> answers = probe.run({QStringLiteral("94")});

    QCOMPARE(answers.value(QStringLiteral("94.exeFile")),
             probe.root() + bin + QStringLiteral("/TollanFirmwareLoader.exe"));
    QVERIFY(probe.entries().contains(bin));
}

void tst_CCompanyStrings::installedFileReplacesWholly()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, "[COMPANY]\r\nNameShort=Own\r\n[PRODUCT90]\r\nExeFile=own.exe\r\n"));

    const QMap<QString, QString> answers = probe.run({QStringLiteral("company"), QStringLiteral("90")});

    QCOMPARE(answers.value(QStringLiteral("shortName")), QStringLiteral("Own"));
    QCOMPARE(answers.value(QStringLiteral("longName")), QString());
    QCOMPARE(answers.value(QStringLiteral("logo16x16")), QString());
    QCOMPARE(answers.value(QStringLiteral("90.name")), QStringLiteral("PRODUCT90"));
    QVERIFY(answers.value(QStringLiteral("90.exeFile")).endsWith(QLatin1String("/bin/own.exe")));
}

void tst_CCompanyStrings::iniRules_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");

    QTest::newRow("plain") << QByteArray("Drives & Co") << QStringLiteral("Drives & Co");
    QTest::newRow("blanks around") << QByteArray("  Drives  ") << QStringLiteral("Drives");
    QTest::newRow("quoted") << QByteArray("\"a, b; c\"") << QStringLiteral("a, b; c");
    QTest::newRow("comma unquoted is a list, no text") << QByteArray("a, b") << QString();
    QTest::newRow("latin-1 byte") << QByteArray("L\xe4ufer") << QString::fromUtf8("Läufer");
    QTest::newRow("utf-8 bytes are two letters")
        << QByteArray("L\xc3\xa4ufer") << QString::fromUtf8("LÃ¤ufer");
    QTest::newRow("escaped") << QByteArray("\\x20ac uro") << QString::fromUtf8("€ uro");
    QTest::newRow("escaped quote") << QByteArray("\"a \\\"b\\\"\"") << QStringLiteral("a \"b\"");
    QTest::newRow("empty") << QByteArray() << QString();
}

void tst_CCompanyStrings::iniRules()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, name);
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, "[COMPANY]\r\nNameLong=" + line + "\r\nNameShort=after\r\n"));

    const QMap<QString, QString> answers = probe.run(gCompany);

    QCOMPARE(answers.value(QStringLiteral("longName")), name);
    QCOMPARE(answers.value(QStringLiteral("shortName")), QStringLiteral("after"));
}

void tst_CCompanyStrings::damaged_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("no section") << QByteArray("NameLong=x\r\n");
    QTest::newRow("no equals sign") << QByteArray("[COMPANY]\r\nNameLong\r\n");
    QTest::newRow("zero bytes") << QByteArray(4096, '\0');
    QTest::newRow("all bytes") << [] {
        QByteArray bytes;
        for (int i = 0; i < 1024; ++i) {
            bytes += static_cast<char>(i * 37);
        }
        return bytes;
    }();
}

void tst_CCompanyStrings::damaged()
{
    QFETCH(QByteArray, content);
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, content));

    const QMap<QString, QString> answers = probe.run(gCompany);

    QCOMPARE(answers.size(), 18);
    QCOMPARE(answers.values().join(QString()), QString());
}

// What QSettings finds in spite of the damage is read, in whatever order it is asked for.
void tst_CCompanyStrings::damagedInPart_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("shortName");
    QTest::addColumn<QString>("product");

    const QByteArray product = "[PRODUCT12]\r\nName=Tool\r\n";
    const QString own = QStringLiteral("Own");
    const QString tool = QStringLiteral("Tool");
    const QString none = QStringLiteral("PRODUCT12");
    QTest::newRow("section without closing bracket")
        << QByteArray("[COMPANY\r\nNameShort=Own\r\n[PRODUCT12\r\nName=Tool\r\n") << own << tool;
    QTest::newRow("line without equals sign")
        << "[COMPANY]\r\nNameLong\r\nNameShort=Own\r\n" + product << own << tool;
    QTest::newRow("section twice") << "[COMPANY]\r\nNameShort=Old\r\n" + product
                                          + "[COMPANY]\r\nNameShort=Own\r\n"
                                   << own << tool;
    QTest::newRow("keys before the first section")
        << "NameShort=Own\r\nName=x\r\n" + product << QString() << tool;
    QTest::newRow("section cut in the middle")
        << QByteArray("[COMPANY]\r\nNameShort=Own\r\n[PRODUCT1") << own << none;
    QTest::newRow("quote that never ends")
        << "[COMPANY]\r\nNameShort=Own\r\nNameLong=\"a\r\n" + product << own << none;
    // Qt has a section of that name, which lies between "PRODUCT12/" and "PRODUCT12/Name".
    QTest::newRow("section within a section") << "[PRODUCT12/A]\r\nb=c\r\n" + product << QString() << tool;
    QTest::newRow("empty section within a section") << "[PRODUCT12/1]\r\n" + product << QString() << tool;
    QTest::newRow("broken section within a section") << "[PRODUCT12//x\r\n" + product << QString() << tool;
    QTest::newRow("section and key before the first section")
        << QByteArray("PRODUCT12\\Name=Tool\r\n") << QString() << tool;
}

void tst_CCompanyStrings::damagedInPart()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, shortName);
    QFETCH(QString, product);
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, content));

    const QMap<QString, QString> answers = probe.run({QStringLiteral("12"), QStringLiteral("company")});

    QCOMPARE(answers.value(QStringLiteral("shortName")), shortName);
    QCOMPARE(answers.value(QStringLiteral("12.name")), product);
}

void tst_CCompanyStrings::directoryInPlaceOfFile()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(QDir().mkpath(probe.root() + gSettingsName));

    const QMap<QString, QString> answers = probe.run(gCompany);

    QCOMPARE(answers.size(), 18);
    QCOMPARE(answers.values().join(QString()), QString());
    QCOMPARE(probe.errors(), QByteArray()); // nothing was read from what could not be opened
}

void tst_CCompanyStrings::unreadableFile()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, "[COMPANY]\r\nNameLong=x\r\n"));
    QFile file(probe.root() + gSettingsName);
#ifdef Q_OS_WIN
    // No permission keeps its owner from reading; a program that shares the file with nobody does.
    const HANDLE held = CreateFileW(reinterpret_cast<const wchar_t*>(file.fileName().utf16()), GENERIC_READ,
                                    0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    QVERIFY(held != INVALID_HANDLE_VALUE);
    const auto release = qScopeGuard([held] { CloseHandle(held); });
#else
    QVERIFY(file.setPermissions({}));
#endif
    if (file.open(QIODevice::ReadOnly)) {
        QSKIP("this user or system reads every file");
    }

    const QMap<QString, QString> answers = probe.run(gCompany);

    QCOMPARE(answers.size(), 18);
    QCOMPARE(answers.values().join(QString()), QString());
}

// The settings are read from a copy of the file, and from the file itself where there can be no copy.
void tst_CCompanyStrings::withoutTemporaryFolder()
{
#ifdef Q_OS_WIN
    QSKIP("the system always has a folder for temporary files");
#else
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, "[COMPANY]\r\nNameLong=Own\r\n"));
    const QByteArray folder = qgetenv("TMPDIR");
    const auto restore =
        qScopeGuard([&] { folder.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", folder); });
    qputenv("TMPDIR", probe.root().toLocal8Bit() + "none");

    const QMap<QString, QString> answers = probe.run(gCompany);

    QCOMPARE(answers.value(QStringLiteral("longName")), QStringLiteral("Own"));
    QCOMPARE(probe.errors(), QByteArray()); // nothing was written to what could not be opened
#endif
}

void tst_CCompanyStrings::diskIsFull()
{
#ifdef Q_OS_WIN
    QSKIP("limits a process as only Unix can");
#else
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    QVERIFY(writeSettings(probe, "[COMPANY]\r\nNameLong=Own\r\n"));

    VERIFY_OTHER_PROCESS(OtherProcess::withFileSizeLimit(
        0, [&] { return probe.run(gCompany).value(QStringLiteral("longName")) == QStringLiteral("Own"); }));
#endif
}

void tst_CCompanyStrings::choiceIsNotRevisited()
{
    const InstalledProgram probe(QStringLiteral(COMPANY_PROBE));
    const QStringList later{QStringLiteral("later")};

    const QMap<QString, QString> first = probe.run(later);
    const QMap<QString, QString> next = probe.run(gCompany);

    QCOMPARE(first.value(QStringLiteral("before")), QStringLiteral("TARVENIK Antriebstechnik GmbH"));
    QCOMPARE(first.value(QStringLiteral("after")), first.value(QStringLiteral("before")));
    QCOMPARE(next.value(QStringLiteral("longName")), QStringLiteral("Placed later"));
}

void tst_CCompanyStrings::productSection_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("section");

    QTest::newRow("0") << 0 << QStringLiteral("PRODUCT0");
    QTest::newRow("12") << 12 << QStringLiteral("PRODUCT12");
    QTest::newRow("-1") << -1 << QStringLiteral("PRODUCT-1");
    QTest::newRow("greatest") << 2147483647 << QStringLiteral("PRODUCT2147483647");
}

void tst_CCompanyStrings::productSection()
{
    QFETCH(int, number);
    QFETCH(QString, section);

    QCOMPARE(CCompanyStrings::productSection(number), section);
}

QTEST_GUILESS_MAIN(tst_CCompanyStrings)
#include "tst_CCompanyStrings.moc"
