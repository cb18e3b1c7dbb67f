#include <core/text/CStr.h>

#include <tests/support/InstalledProgram.h>
#include <tests/support/Texts.h>

#include <QFileInfo>
#include <QtTest>

namespace {

const QLocale gGerman(QLocale::German, QLocale::Germany);

} // namespace

/// The phrasings of versions, titles and devices, and the name of the log file.
class tst_CStrTitles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versionString_data();
    void versionString();
    void datedVersionString_data();
    void datedVersionString();
    void compilerDate_data();
    void compilerDate();
    void thisCompilersDate();
    void notACompilerDate_data();
    void notACompilerDate();
    void titles_data();
    void titles();
    void titlesMakeOnlyTheConfigurationDirectory();
    void deviceSelection();
    void logFileName();
};

void tst_CStrTitles::versionString_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("extra");
    QTest::addColumn<QString>("expected");
    QTest::newRow("version") << text("1.2") << QString() << text("[ V1.2 ]");
    QTest::newRow("extra") << text("1.2") << text("beta") << text("[ V1.2 ] - beta");
    QTest::newRow("nothing") << QString() << QString() << text("[ V ]");
    QTest::newRow("placeholder in the version stays") << text("%1") << text("beta") << text("[ V%1 ] - beta");
    QTest::newRow("placeholder in the extra text stays")
        << text("1.2") << text("%1") << text("[ V1.2 ] - %1");
}

void tst_CStrTitles::versionString()
{
    QFETCH(QString, version);
    QFETCH(QString, extra);
    QFETCH(QString, expected);

    QCOMPARE(CStr::getVersionString(version, extra), expected);
}

void tst_CStrTitles::datedVersionString_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("extra");
    QTest::addColumn<QString>("expected");
    const QString date = text("Nov  5 2026");
    QTest::newRow("no extra") << text("1.2") << date << QString() << text("[ V1.2 - 05.11.26 ]");
    QTest::newRow("extra") << text("1.2") << date << text("x") << text("[ V1.2 - 05.11.26 ] - x");
    QTest::newRow("no date") << text("1.2") << text("today") << QString() << text("[ V1.2 -  ]");
    // One after the other: the date goes where the version left a placeholder.
    QTest::newRow("placeholder in the version")
        << text("%1") << date << QString() << text("[ V05.11.26 - %2 ]");
}

void tst_CStrTitles::datedVersionString()
{
    QFETCH(QString, version);
    QFETCH(QString, date);
    QFETCH(QString, extra);
    QFETCH(QString, expected);

    QCOMPARE(CStr::getVersionString(version, date, gGerman, extra), expected);
}

void tst_CStrTitles::compilerDate_data()
{
    QTest::addColumn<QString>("compilerDate");
    QTest::addColumn<QDate>("expected");
    const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    int month = 0;
    for (const char* name : months) {
        QTest::newRow(name) << text(name) + QLatin1String(" 28 2026") << QDate(2026, ++month, 28);
    }
    QTest::newRow("blank-padded day") << text("Nov  5 2026") << QDate(2026, 11, 5);
    QTest::newRow("zero-padded day") << text("Nov 05 2026") << QDate(2026, 11, 5);
    QTest::newRow("many blanks") << text("  Nov   5    2026 ") << QDate(2026, 11, 5);
    QTest::newRow("leap day") << text("Feb 29 2024") << QDate(2024, 2, 29);
}

// English month names, whatever the default locale.
void tst_CStrTitles::compilerDate()
{
    QFETCH(QString, compilerDate);
    QFETCH(QDate, expected);
    QLocale::setDefault(gGerman);

    const QDate date = CStr::createQDateFrom__DATE__(compilerDate);
    const QString shown = CStr::createDate(QLocale(QLocale::English, QLocale::UnitedStates), compilerDate);

    QLocale::setDefault(QLocale::c());
    QVERIFY(expected.isValid());
    QCOMPARE(date, expected);
    QCOMPARE(shown, QStringLiteral("%1/%2/%3").arg(date.month()).arg(date.day()).arg(date.year() % 100));
}

void tst_CStrTitles::thisCompilersDate()
{
    const QDate date = CStr::createQDateFrom__DATE__(text(__DATE__));
    QVERIFY(date.isValid());
    QCOMPARE(date.year(), text(__DATE__).right(4).toInt());
}

void tst_CStrTitles::notACompilerDate_data()
{
    QTest::addColumn<QString>("compilerDate");
    for (const char* s : {"", "Nov", "Nov 5", "Nov 5 2026 10:00", "Okt 5 2026", "Nov 31 2026", "5 Nov 2026",
                          "Feb 29 2026", "Nov x 2026", "Nov 5 26"}) {
        QTest::addRow("\"%s\"", s) << text(s);
    }
}

void tst_CStrTitles::notACompilerDate()
{
    QFETCH(QString, compilerDate);

    QVERIFY(!CStr::createQDateFrom__DATE__(compilerDate).isValid());
    QCOMPARE(CStr::createDate(gGerman, compilerDate), QString());
}

void tst_CStrTitles::titles_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("title") << text("Scope - TARVENIK Antriebstechnik GmbH - [ V1.2 - 05.11.26 ] - beta");
    QTest::newRow("title without extra")
        << text("Scope - TARVENIK Antriebstechnik GmbH - [ V1.2 - 05.11.26 ]");
    QTest::newRow("title with placeholder")
        << text("TARVENIK Antriebstechnik GmbH - [ V1.2 - 05.11.26 ] - beta - %3");
    QTest::newRow("short") << text("TARVENIK Scope - V1.2 - [ Build 4000000000 - 2026-11-05 ]");
    QTest::newRow("short without date") << text("TARVENIK Scope - V1.2 - [ Build 0 -  ]");
}

void tst_CStrTitles::titles()
{
    QFETCH(QString, expected);
    const InstalledProgram probe(QStringLiteral(STR_PROBE));

    const QMap<QString, QString> answers = probe.run({QStringLiteral("titles")});

    QCOMPARE(answers.value(QString::fromLatin1(QTest::currentDataTag())), expected);
}

void tst_CStrTitles::titlesMakeOnlyTheConfigurationDirectory()
{
    const InstalledProgram probe(QStringLiteral(STR_PROBE));
    const QStringList before = probe.entries();

    QVERIFY(!probe.run({QStringLiteral("titles")}).isEmpty());

    QStringList made = probe.entries();
    for (const QString& entry : before) {
        made.removeAll(entry);
    }
    QCOMPARE(made, (QStringList{text("Prog/Tool/etc"), text("Prog/Tool/etc/conf")}));
}

void tst_CStrTitles::deviceSelection()
{
    QCOMPARE(CStr::createDeviceSelectionValue(text("Drive"), 4294967295U), text("Drive [s/n: 4294967295]"));
    QCOMPARE(CStr::createDeviceSelectionValue(QString(), 0U), text(" [s/n: 0]"));
    QCOMPARE(CStr::createDeviceSelectionValue(text("%1"), 7U), text("7 [s/n: %2]"));
    QCOMPARE(CStr::createSubDeviceSelectionValue(text("Axis"), text("Drive"), 12U),
             text("Axis - Drive [s/n: 12]"));
    QCOMPARE(CStr::createSubDeviceSelectionValue(text("%1"), text("D"), 1U), text("D [s/n: 1] - %2"));
}

void tst_CStrTitles::logFileName()
{
    const InstalledProgram probe(QStringLiteral(STR_PROBE));
    const QString directory = probe.appdata() + QLatin1String("/TARVENIK/Tool/log/");
    QVERIFY(!QFileInfo::exists(directory));

    const QMap<QString, QString> answers = probe.run();

    const QString thread = answers.value(text("thread id"));
    QVERIFY(!thread.isEmpty() && thread != text("0"));
    QCOMPARE(answers.value(text("own")), directory + QLatin1String("str_probe.log"));
    QCOMPARE(answers.value(text("named")), directory + QLatin1String("scope.old.log"));
    QCOMPARE(answers.value(text("bare")), directory + QLatin1String("scope.log"));
    QCOMPARE(answers.value(text("thread")),
             directory + QLatin1String("scope_TID") + thread + QLatin1String(".log"));
    QCOMPARE(answers.value(text("placeholder")),
             directory + QLatin1String("%1_TID") + thread + QLatin1String(".log"));
    QVERIFY(QFileInfo(directory).isDir());
}

QTEST_APPLESS_MAIN(tst_CStrTitles)
#include "tst_CStrTitles.moc"
