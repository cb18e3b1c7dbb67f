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
        if (lines.at(i).at(2) != ' ') { // not the rest of a summary
            names << lines.at(i).trimmed().split(' ').first();
        }
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
    void version();
    void helpCommand();
};

void tst_tlx::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("says");

    QTest::newRow("no command") << QStringList() << QByteArray("Usage: tlx COMMAND");
    QTest::newRow("unknown command") << QStringList{QStringLiteral("walk")}
                                     << QByteArray("no such command: walk\n");
    const auto row = [](const char* line, const char* says) {
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' ')) << QByteArray(says);
    };
    row("vlaue", "tlx: no such command: vlaue: did you mean value?\nSee: tlx --help\n");
    row("help devcies", "no such command: devcies: did you mean devices?\nSee: tlx help --help\n");
    row("value U61 1", "no such type: U61: did you mean U16? (the types are UNKNOWN, U8, ");
    row("value Float 1", "no such type: Float: the types are UNKNOWN, U8, ");
    row("unit UNIT_U61", "no such unit: UNIT_U61: did you mean UNIT_U16?\n");
    row("unit speed", "no such unit: speed: \"tlx unit\" lists the units");
    row("start --unit UNIT_U61=1", "no such unit: UNIT_U61: did you mean UNIT_U16?\n");
    row("duration 1 mss", "no such unit: mss: did you mean ms?\n");
    row("stream --kind varient x", "no such kind: varient: did you mean variant?\n");
    row("stream --stream-version 7 x", "no such stream version: 7: the versions are 5.15, ");
    row("number --type U61 1", "no such type of numbers: U61: did you mean U64?\n");
    row("value --jsn U16", "no such option: jsn: did you mean json?\n");
    row("value I32 -5",
        "-5 looks like an option: put -- before the first argument that begins with a dash\n");
    row("duration -1.5 ms", "-1.5 looks like an option: put -- before");
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
        QVERIFY2(run.output.startsWith(QByteArray("Usage: tlx " + command)), command.constData());
        QVERIFY2(run.output.contains(QByteArray("\nExample: tlx " + command)), command.constData());
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
        QVERIFY2(run.output.contains(QByteArray("\n.SS " + command + "\n")), command.constData());
    }
}

void tst_tlx::version()
{
    const QList<QByteArray> lines = runTlx({QStringLiteral("--version")}).output.split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.at(0).startsWith("tlx "));
    QCOMPARE(lines.at(1), QByteArray("Qt ") + qVersion() + ", built with " + QT_VERSION_STR);
    QVERIFY(lines.at(2).startsWith("Compiler ") && lines.at(2).size() > 10);
    const QRegularExpression commit(QStringLiteral("^Commit ([0-9a-f]{7,40}|unknown)$"));
    QVERIFY2(commit.match(QString::fromLatin1(lines.at(3))).hasMatch(), lines.at(3).constData());
}

void tst_tlx::helpCommand()
{
    QCOMPARE(runTlx({QStringLiteral("help")}).output, runTlx({QStringLiteral("--help")}).output);
    for (const QByteArray& command : commandNames()) {
        const QString name = QString::fromLatin1(command);
        const STlxRun run = runTlx({QStringLiteral("help"), name});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output, runTlx({name, QStringLiteral("--help")}).output);
    }
    QCOMPARE(runTlx({QStringLiteral("help"), QStringLiteral("walk")}).exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_tlx)
#include "tst_tlx.moc"
