#include <tests/support/TlxProcess.h>

#include <QtTest>

/// The program's own grammar: help on every level, version, exit codes.
class tst_tlx : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongUsage_data();
    void wrongUsage();
    void help();
    void everyCommandHasHelp();
};

void tst_tlx::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("says");

    QTest::newRow("no command") << QStringList() << QByteArray("Usage: tlx COMMAND");
    QTest::newRow("unknown command") << QStringList{QStringLiteral("walk")}
                                     << QByteArray("no such command: walk");
}

void tst_tlx::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, says);

    const STlxRun run = runTlx(arguments);

    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errorOutput.contains(says), run.errorOutput.constData());
}

void tst_tlx::help()
{
    const STlxRun run = runTlx({QStringLiteral("--help")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("Usage: tlx COMMAND [OPTIONS] [ARGUMENTS]"));
    QCOMPARE(run.errorOutput, QByteArray());
}

void tst_tlx::everyCommandHasHelp()
{
    const QList<QByteArray> lines = runTlx({QStringLiteral("--help")}).output.split('\n');
    const int first = lines.indexOf("Commands:") + 1;
    QVERIFY(first > 0);
    for (int i = first; i < lines.size() && lines.at(i).startsWith("  "); ++i) {
        const QString command = QString::fromLatin1(lines.at(i)).trimmed().section(QLatin1Char(' '), 0, 0);
        const STlxRun run = runTlx({command, QStringLiteral("--help")});
        QVERIFY2(run.exitCode == 0, qPrintable(command));
        QVERIFY2(run.output.startsWith("Usage: tlx " + command.toLatin1()), qPrintable(command));
        QVERIFY2(run.output.contains("\nExample: tlx " + command.toLatin1()), qPrintable(command));
        QVERIFY2(run.output.contains("--json"), qPrintable(command));
    }
}

QTEST_GUILESS_MAIN(tst_tlx)
#include "tst_tlx.moc"
