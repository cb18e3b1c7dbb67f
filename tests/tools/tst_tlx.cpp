#include <tests/support/TlxProcess.h>

#include <QtTest>

namespace {

// The commands that the overview lists.
QList<QByteArray> commandNames()
{
    const QList<QByteArray> lines = runTlx({QStringLiteral("--help")}).output.split('\n');
    QList<QByteArray> names;
    for (int i = lines.indexOf("Commands:") + 1; i > 0 && i < lines.size() && lines.at(i).startsWith("  ");
         ++i) {
        names << lines.at(i).trimmed().split(' ').first();
    }
    return names;
}

} // namespace

/// The program's own grammar: help on every level, version, exit codes.
class tst_tlx : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrongUsage_data();
    void wrongUsage();
    void help();
    void everyCommandHasHelp();
    void manualPage();
    void bashCompletion();
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
    for (const QByteArray& command : commandNames()) {
        const STlxRun run = runTlx({QString::fromLatin1(command), QStringLiteral("--help")});
        QVERIFY2(run.exitCode == 0, command.constData());
        QVERIFY2(run.output.startsWith("Usage: tlx " + command), command.constData());
        QVERIFY2(run.output.contains("\nExample: tlx " + command), command.constData());
        QVERIFY2(run.output.contains("--json"), command.constData());
    }
}

void tst_tlx::manualPage()
{
    const STlxRun run = runTlx({QStringLiteral("--manual-page")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith(".TH TLX 1 "));
    QVERIFY(run.output.contains("\n.SH COMMANDS\n"));
    for (const QByteArray& command : commandNames()) {
        QVERIFY2(run.output.contains("\n.SS " + command + "\n"), command.constData());
    }
}

void tst_tlx::bashCompletion()
{
    const STlxRun run = runTlx({QStringLiteral("--bash-completion")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.endsWith("complete -o filenames -F _tlx tlx\n"));
    for (const QByteArray& command : commandNames()) {
        QVERIFY2(run.output.contains("        " + command + ") words=\"--help --json"), command.constData());
    }
}

QTEST_GUILESS_MAIN(tst_tlx)
#include "tst_tlx.moc"
