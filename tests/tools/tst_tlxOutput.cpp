#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>
#include <tests/tools/CommandLines.h>

#include <QJsonDocument>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

/// What becomes of output that cannot be written, and of arguments that no text can hold.
class tst_tlxOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullDevice_data();
    void fullDevice();
    void closedPipe();
    void rowsAsTheyCome();
    void undecodableArgument();
    void undecodableNames();
    void unreadableFile();
    void noFile_data();
    void noFile();
};

namespace {

// Runs a line of the shell in which $TLX is the program.
STlxRun runShell(const QString& line, const QString& directory)
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QStringLiteral("TLX"), tlxProgram());
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(directory);
    process.start(QStringLiteral("bash"), {QStringLiteral("-c"), line});
    STlxRun run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
        run.exitCode = process.exitCode();
    }
    run.output = process.readAllStandardOutput();
    run.errorOutput = process.readAllStandardError();
    return run;
}

} // namespace

void tst_tlxOutput::fullDevice_data()
{
    QTest::addColumn<QStringList>("arguments");

    const QList<QStringList> lines = showingCommandLines();
    for (const QStringList& line : lines) {
        QTest::newRow(qPrintable(line.join(QLatin1Char(' ')))) << line;
    }
    QTest::newRow("--help") << QStringList{"--help"_text};
    QTest::newRow("--version") << QStringList{"--version"_text};
    QTest::newRow("value --help") << QStringList{"value"_text, "--help"_text};
}

void tst_tlxOutput::fullDevice()
{
    QFETCH(QStringList, arguments);
    const ExampleFiles files;
    for (const char* format : {"", "--json", "--csv", "--jsonl"}) {
        QProcess process;
        process.setWorkingDirectory(files.directory());
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        QStringList line = arguments;
        if (*format != 0 && !arguments.first().startsWith(QLatin1String("--"))) {
            line.insert(1, QLatin1String(format));
        }
        const InDirectory in(files.directory());
        const bool isSilent = runTlx(line).output.isEmpty(); // no row, no line of JSON
        process.start(tlxProgram(), line);
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), isSilent ? 0 : 1);
        if (isSilent) {
            continue;
        }
        const QByteArray said = process.readAllStandardError();
        QVERIFY2(said.contains(QByteArray("tlx: write error: " + systemText(ENOSPC).toLocal8Bit() + "\n")),
                 said.constData());
    }
}

// Who reads the first line only wants no message.
void tst_tlxOutput::closedPipe()
{
    const FileTree tree;
    const STlxRun run = runShell("seq 200000 | $TLX value U32 - | head -n 1"_text, tree.path());
    QCOMPARE(run.output.count('\n'), 1);
    QCOMPARE(run.errorOutput, QByteArray());

    const STlxRun ignored =
        runShell("trap '' PIPE; seq 200000 | $TLX value U32 - | head -n 1"_text, tree.path());
    QByteArray said = ignored.errorOutput;
    QCOMPARE(said.replace("seq: write error: Broken pipe\n", ""), QByteArray());
}

// Whoever feeds a program line by line has the answer to each before the next.
void tst_tlxOutput::rowsAsTheyCome()
{
    QProcess process;
    process.start(tlxProgram(), {"value"_text, "U16"_text, "-"_text, "--jsonl"_text});
    for (const char* number : {"31", "32", "33"}) {
        process.write(number + QByteArray("\n"));
        while (!process.canReadLine()) {
            QVERIFY(process.waitForReadyRead(10000));
        }
        const QJsonObject row = QJsonDocument::fromJson(process.readLine()).object();
        QCOMPARE(row.value(QLatin1String("text")).toString(), QString::fromLatin1(number));
        QCOMPARE(row.value(QLatin1String("value")).toString(), QString::fromLatin1(number));
    }
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(10000));
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void tst_tlxOutput::undecodableArgument()
{
    const FileTree tree;
    const STlxRun run = runShell("LC_ALL=C.UTF-8 $TLX crc $'a\\xff' $'\\xfe' b"_text, tree.path());
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(
        run.errorOutput,
        QByteArray("tlx: 2 an argument is not valid in the system's encoding: choose a locale that has it: "
                   "a\\xff, \\xfe\n"));
    QCOMPARE(run.output, QByteArray());
    // What the locale can tell is no question mark.
    const STlxRun plain = runShell(
        "touch $'gr\\xc3\\xb6\\xc3\\x9fe'; LC_ALL=C $TLX crc $'gr\\xc3\\xb6\\xc3\\x9fe'"_text, tree.path());
    QVERIFY2(plain.exitCode == 0, plain.errorOutput.constData());
}

void tst_tlxOutput::undecodableNames()
{
    const FileTree tree({"t/plain=1"_text, "t/d/"_text});
    const STlxRun run =
        runShell("touch t/$'a\\xff' t/d/$'\\xfe'; LC_ALL=C.UTF-8 $TLX tree t --json"_text, tree.path());
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.result().value(QLatin1String("count")).toInt(), 2);
    QCOMPARE(run.json().value(QLatin1String("error")).toObject().value(QLatin1String("message")).toString(),
             "2 names are not valid in the system's encoding and are omitted: t/a\\xff, t/d/\\xfe"_text);
    const STlxRun copy = runShell("LC_ALL=C.UTF-8 $TLX copy --recursive t u"_text, tree.path());
    QCOMPARE(copy.exitCode, 1);
    QVERIFY2(copy.errorOutput.contains("t/a\\xff"), copy.errorOutput.constData());
    runShell("rm -r t"_text, tree.path()); // what QTemporaryDir cannot
}

void tst_tlxOutput::unreadableFile()
{
    const FileTree tree({"secret=1"_text});
    const QString run = geteuid() == 0 ? "LC_ALL=C.UTF-8 setpriv --reuid=65534 --clear-groups $TLX "_text
                                       : "LC_ALL=C.UTF-8 $TLX "_text;
    if (runShell(run + "--version"_text, tree.path()).exitCode != 0) {
        QSKIP("this user cannot become another, who may not read a file");
    }
    QVERIFY(runShell("chmod 755 .; chmod 0 secret; mkdir -m 0 closed"_text, tree.path()).exitCode == 0);
    for (const char* command : {"crc", "tar list", "stream", "devices", "copy --force"}) {
        const QString tail =
            qstrcmp(command, "copy --force") == 0 ? " secret /tmp/tlx-no-copy"_text : " secret"_text;
        const STlxRun one = runShell(run + QLatin1String(command) + tail, tree.path());
        QCOMPARE(one.exitCode, 1);
        QVERIFY2(one.errorOutput.endsWith("secret: Permission denied\n"), one.errorOutput.constData());
    }
    const STlxRun walk = runShell(run + "tree ."_text, tree.path());
    runShell("rmdir closed; rm secret"_text, tree.path());
    QCOMPARE(walk.exitCode, 1);
    QVERIFY2(walk.errorOutput.contains("1 directories cannot be read: ./closed: Permission denied"),
             walk.errorOutput.constData());
}

void tst_tlxOutput::noFile_data()
{
    QTest::addColumn<QStringList>("command");

    QTest::newRow("tar") << QStringList{"tar"_text, "list"_text};
    QTest::newRow("devices") << QStringList{"devices"_text};
    QTest::newRow("stream") << QStringList{"stream"_text};
}

void tst_tlxOutput::noFile()
{
    QFETCH(QStringList, command);
    const STlxRun run = runTlx(command + QStringList{"/dev/null"_text});
    QCOMPARE(run.exitCode, 1);
    const QByteArray said = ": /dev/null: a pipe or a device, not a file: pass its content as \"-\"\n";
    QCOMPARE(run.errorOutput, "tlx " + command.first().toLatin1() + said);
}

QTEST_GUILESS_MAIN(tst_tlxOutput)
#include "tst_tlxOutput.moc"
