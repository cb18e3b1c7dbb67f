#include <tests/reentrancy/LoggingCalls.h>
#include <tests/support/InstalledProgram.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

namespace {

// A call that waits for itself or for another thread waits for ever.
#ifdef Q_OS_WIN
constexpr int LIMIT_MS = 120000; // Wine
#else
constexpr int LIMIT_MS = 30000;
#endif

/// What Qt cannot read, and says so while it parses the file: a streamed value of a type that nobody registered.
const QByteArray gDamaged =
    "[COMPANY]\r\nNameShort=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\bUnknown\\0)\r\nNameLong=after\r\n";

bool writeSettings(const QString& installation)
{
    QFile file(installation + QStringLiteral("etc/conf/Setup.Ini"));
    return QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)
           && file.write(gDamaged) == gDamaged.size();
}

} // namespace

/// A message handler may call the library, whatever the library was doing when it logged. Each row is a process of its
/// own, which makes its first calls, and which is ended when it hangs.
class tst_MessageHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returns_data();
    void returns();
};

void tst_MessageHandler::returns_data()
{
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("threads");
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("damagedSettings");

    const auto rows = [](const SLoggingCall& call, const char* application, bool damagedSettings) {
        for (const char* threads : {"alone", "together"}) {
            const QByteArray tag = QByteArray(application) + ", " + threads + ": " + call.name
                                   + (damagedSettings ? ", damaged settings" : "");
            QTest::newRow(tag.constData()) << QString::fromLatin1(application) << QString::fromLatin1(threads)
                                           << QString::fromLatin1(call.name) << damagedSettings;
        }
    };
    const QVector<SLoggingCall> calls = loggingCalls();
    for (const SLoggingCall& call : calls) {
        rows(call, "none", false);
        if (call.logsWithApplication) {
            rows(call, "application", false);
        }
        if (QByteArray(call.name) == "CCompanyStrings::getCompanyShortName") {
            rows(call, "none", true);
            rows(call, "application", true);
        }
    }
}

void tst_MessageHandler::returns()
{
    QFETCH(QString, application);
    QFETCH(QString, threads);
    QFETCH(QString, call);
    QFETCH(bool, damagedSettings);
    const InstalledProgram program(QStringLiteral(REENTRANCY_PROBE));
    QVERIFY(program.isValid());
    // Without an application object the installation is the parent of the working directory.
    QVERIFY(!damagedSettings || (writeSettings(program.install()) && writeSettings(program.root())));

    QProcess process;
    process.setProcessEnvironment(program.variables());
    process.setWorkingDirectory(program.home());
    process.start(program.program(), {application, threads, call});
    const bool hasEnded = process.waitForFinished(LIMIT_MS);
    if (!hasEnded) {
        process.kill();
        process.waitForFinished();
    }

    QVERIFY2(hasEnded, "it hangs");
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
             process.readAllStandardError().constData());
    const QByteArray output = process.readAllStandardOutput();
    const QByteArray seen = output.mid(output.lastIndexOf("messages\t") + 9).trimmed();
    QVERIFY2(seen.toInt() > 0, "nothing was logged");
}

QTEST_GUILESS_MAIN(tst_MessageHandler)
#include "tst_MessageHandler.moc"
