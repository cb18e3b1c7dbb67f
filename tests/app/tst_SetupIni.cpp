#include <core/app/CCompanyStrings.h>

#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QtTest>

/// The settings file that the library carries.
class tst_SetupIni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isTheOneOfTheTree();
    void lineEnds();
    void isLatin1WithoutSpecialBytes();
    void sections();
    void everyValueIsAText();
    void installerSection();

private:
    QByteArray mContent;
};

void tst_SetupIni::initTestCase()
{
#ifdef TLXCORE_STATIC
    Q_INIT_RESOURCE(tlxCore);
#endif
    QFile file(QStringLiteral(":/tlxCore/data/Setup.Ini"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    mContent = file.readAll();
    QVERIFY(!mContent.isEmpty());
}

void tst_SetupIni::isTheOneOfTheTree()
{
    QFile file(QStringLiteral(SETUP_INI));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(mContent, file.readAll());
}

void tst_SetupIni::lineEnds()
{
    QCOMPARE(mContent.count('\n'), mContent.count("\r\n"));
    QCOMPARE(mContent.count('\r'), mContent.count("\r\n"));
    QVERIFY(mContent.endsWith("\r\n"));
}

void tst_SetupIni::isLatin1WithoutSpecialBytes()
{
    for (const char c : qAsConst(mContent)) {
        QVERIFY((c >= ' ' && c <= '~') || c == '\r' || c == '\n');
    }
}

void tst_SetupIni::sections()
{
    const QSettings settings(QStringLiteral(":/tlxCore/data/Setup.Ini"), QSettings::IniFormat);

    QCOMPARE(settings.status(), QSettings::NoError);
    QStringList expected{QStringLiteral("COMPANY"), QStringLiteral("INSTALLER")};
    for (const int product : {90, 91, 92, 93, 94, 101, 102, 103, 104, 105, 106, 107, 108}) {
        expected << CCompanyStrings::productSection(product);
    }
    QStringList groups = settings.childGroups();
    expected.sort();
    groups.sort();
    QCOMPARE(groups, expected);
}

// A comma or a semicolon outside quotes would have made a list of it, or cut it.
void tst_SetupIni::everyValueIsAText()
{
    const QSettings settings(QStringLiteral(":/tlxCore/data/Setup.Ini"), QSettings::IniFormat);
    const QStringList keys = settings.allKeys();

    QCOMPARE(keys.size(), 18 + 13 * 4 + 3);
    for (const QString& key : keys) {
        QVERIFY2(settings.value(key).type() == QVariant::String, qPrintable(key));
    }
}

void tst_SetupIni::installerSection()
{
    const QSettings settings(QStringLiteral(":/tlxCore/data/Setup.Ini"), QSettings::IniFormat);

    QCOMPARE(settings.value(QStringLiteral("INSTALLER/ProductName")).toString(),
             QStringLiteral("Tollan Tools"));
    QCOMPARE(settings.value(QStringLiteral("INSTALLER/SplashScreen")).toString(),
             QStringLiteral("TollanTools.png"));
    QCOMPARE(settings.value(QStringLiteral("INSTALLER/CompanyDirectory")).toString(),
             QStringLiteral("TARVENIK"));
}

QTEST_GUILESS_MAIN(tst_SetupIni)
#include "tst_SetupIni.moc"
