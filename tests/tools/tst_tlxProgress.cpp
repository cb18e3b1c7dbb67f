#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>
#include <tests/tools/PseudoTerminal.h>

#include <QtTest>

// The progress line of long work.
class tst_tlxProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shownOnTerminal();
    void silentElsewhere();
};

void tst_tlxProgress::shownOnTerminal()
{
    const FileTree tree({"from/a=1"_text, "from/b=2"_text});
    PseudoTerminal terminal(80);
    terminal.start(tlxProgram(), {"copy"_text, "--recursive"_text, "from"_text, "to"_text}, tree.path());

    const QByteArray shown = terminal.readToEnd();
    QCOMPARE(terminal.exitCode(), 0);
    const QByteArray line = "\rcopying: 1 of 2 (50 %)";
    QVERIFY2(shown.startsWith(line), shown.constData());
    // In the end the line is blank and the cursor at its start; only then follows the report.
    const int blank = shown.indexOf(QByteArray('\r' + QByteArray(line.size() - 1, ' ') + '\r'));
    const int report = shown.indexOf("Entries copied");
    QVERIFY2(blank > 0 && report > blank, shown.toHex().constData());
}

void tst_tlxProgress::silentElsewhere()
{
    const FileTree tree({"from/a=1"_text, "from/b=2"_text});

    const STlxRun run =
        runTlx({"copy"_text, "--recursive"_text, tree.path("from"_text), tree.path("to"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QVERIFY(!run.output.contains('\r'));
}

QTEST_GUILESS_MAIN(tst_tlxProgress)
#include "tst_tlxProgress.moc"
