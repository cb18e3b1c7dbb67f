#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

/// The completion scripts, as the shells run them.
class tst_tlxCompletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offers_data();
    void offers();
    void everyCommand();
    void accepted_data();
    void accepted();
};

namespace {

QByteArray output(const QString& shell, const QStringList& arguments)
{
    QProcess process;
    process.start(shell, arguments);
    process.waitForFinished(60000);
    return process.exitCode() == 0 ? process.readAllStandardOutput()
                                   : "failed: " + process.readAllStandardError();
}

QString scriptIn(const FileTree& tree, const QString& shell)
{
    QFile file(tree.path() + QLatin1Char('/') + shell);
    file.open(QIODevice::WriteOnly);
    file.write(runTlx({"--%1-completion"_text.arg(shell)}).output);
    return file.fileName();
}

// What bash offers for the last of the words.
QStringList bashOffers(const QStringList& words)
{
    const FileTree tree;
    const QString line =
        "source \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tlx; printf '%s\\n' \"${COMPREPLY[@]}\""_text;
    return QString::fromUtf8(
               output("bash"_text, QStringList{"-c"_text, line, scriptIn(tree, "bash"_text)} + words))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

void tst_tlxCompletion::offers_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offered");

    const auto row = [](const char* words, const char* offered) {
        QTest::newRow(words) << QString::fromLatin1(words).split(QLatin1Char(' '))
                             << QString::fromLatin1(offered).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    row("tlx va", "value");
    row("tlx --json va", "value");
    row("tlx tar ", "list check cat extract");
    row("tlx tar ex", "extract");
    row("tlx value STRING", "STRING32 STRING128 STRING64");
    row("tlx value --json F", "F32 F64 F80");
    row("tlx unit UNIT_STRING3", "UNIT_STRING32");
    row("tlx help du", "duration");
    row("tlx totp make --key", "--key-file");
    row("tlx stream --kind string", "string32 string64 string128");
    row("tlx number --notation h", "hex");
    row("tlx duration 5 m", "ms min");
    row("tlx start --unit UNIT_STRING3", "UNIT_STRING32");
}

void tst_tlxCompletion::offers()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, offered);
    QStringList found = bashOffers(words);
    found.removeAll(QString());
    if (words.last().isEmpty()) { // files are offered, too
        for (const QString& word : qAsConst(offered)) {
            QVERIFY2(found.contains(word), qPrintable(word));
        }
        return;
    }
    found.sort();
    offered.sort();
    QCOMPARE(found, offered);
}

void tst_tlxCompletion::everyCommand()
{
    const QStringList commands = bashOffers({"tlx"_text, QString()});
    QVERIFY(commands.size() > 20);
    for (const char* shell : {"zsh", "fish"}) {
        const QByteArray script = runTlx({"--%1-completion"_text.arg(QLatin1String(shell))}).output;
        for (const QString& command : commands) {
            QVERIFY2(command.startsWith(QLatin1Char('-')) || script.contains(command.toLatin1()),
                     qPrintable(command));
        }
        QVERIFY(script.contains("UNIT_STRING32") && script.contains("extract")
                && script.contains("string128"));
    }
}

void tst_tlxCompletion::accepted_data()
{
    QTest::addColumn<QString>("shell");
    QTest::newRow("bash") << "bash"_text;
    QTest::newRow("zsh") << "zsh"_text;
    QTest::newRow("fish") << "fish"_text;
}

// The shell's own parser takes the script.
void tst_tlxCompletion::accepted()
{
    QFETCH(QString, shell);
    if (QStandardPaths::findExecutable(shell).isEmpty()) {
        QSKIP("this shell is not here: not tested");
    }
    const FileTree tree;
    QCOMPARE(output(shell, {"-n"_text, scriptIn(tree, shell)}), QByteArray());
    if (shell == "fish"_text) {
        const QByteArray offered =
            output(shell, {"-c"_text,
                           "source %1; complete -C 'tlx va'; complete -C 'tlx number --notation h'"_text.arg(
                               tree.path() + "/fish"_text)});
        QVERIFY2(offered.contains("value\t") && offered.contains("hex"), offered.constData());
    }
}

QTEST_GUILESS_MAIN(tst_tlxCompletion)
#include "tst_tlxCompletion.moc"
