#include <tests/support/InstalledProgram.h>
#include <tests/support/TlxProcess.h>
#include <tests/tools/CommandLines.h>

#include <QProcess>
#include <QtTest>

/// Looking changes nothing: neither the installation nor the user's directories nor the files that are looked at.
class tst_tlxLooking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesNothing_data();
    void changesNothing();
    void keepsWhatWasThere();
};

void tst_tlxLooking::changesNothing_data()
{
    QTest::addColumn<QStringList>("arguments");

    const QList<QStringList> lines = showingCommandLines();
    for (const QStringList& line : lines) {
        QTest::newRow(qPrintable(line.join(QLatin1Char(' ')))) << line;
    }
}

void tst_tlxLooking::changesNothing()
{
    QFETCH(QStringList, arguments);
    const InstalledProgram tlx(tlxProgram());
    const ExampleFiles files;
    const QStringList installation = tlx.entries();
    const QStringList looked = files.entries();

    QProcess process;
    process.setProcessEnvironment(tlx.variables());
    process.setWorkingDirectory(files.directory());
    process.start(tlx.program(), arguments);
    QVERIFY(process.waitForFinished(60000));

    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    QCOMPARE(tlx.entries(), installation);
    QCOMPARE(files.entries(), looked);
}

// What the library would have made is there already: it stays, empty or not.
void tst_tlxLooking::keepsWhatWasThere()
{
    const InstalledProgram tlx(tlxProgram());
    QVERIFY(QDir().mkpath(tlx.install() + QStringLiteral("etc/conf")));
    QVERIFY(QDir().mkpath(tlx.appdata() + QStringLiteral("/TARVENIK")));
    const QStringList before = tlx.entries();

    for (const char* command : {"company", "start"}) {
        QCOMPARE(runTlx({QLatin1String(command)}, tlx.environment(), tlx.program()).exitCode, 0);
        QCOMPARE(tlx.entries(), before);
    }
}

QTEST_GUILESS_MAIN(tst_tlxLooking)
#include "tst_tlxLooking.moc"
