#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QDirIterator>
#include <QtTest>

/// The fuzzers' seeds and regressions as files and arguments: no crash, no hang, and a message where the exit code is 1.
class tst_tlxCorpora : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files_data();
    void files();
    void arguments_data();
    void arguments();
};

namespace {

// Every file is given to thirty programs, and a program takes a hundred times as long to start under Wine.
#ifdef Q_OS_WIN
constexpr int STEP = 10;
#else
constexpr int STEP = 1;
#endif

QStringList corpusFiles()
{
    QStringList files;
    for (const char* folder : {"seeds", "regressions"}) {
        QDirIterator walk(QStringLiteral(TLX_FUZZ_DATA "/") + QLatin1String(folder), QDir::Files,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            files << walk.next();
        }
    }
    files.sort();
    return files;
}

void addRows()
{
    QTest::addColumn<QString>("file");
    const QStringList files = corpusFiles();
    for (int i = 0; i < files.size(); i += STEP) {
        QTest::newRow(qPrintable(files.at(i).section(QLatin1Char('/'), -3))) << files.at(i);
    }
}

QString fault(const STlxRun& run)
{
    if (run.exitCode != 0 && run.exitCode != 1) {
        return "exit code %1"_text.arg(run.exitCode);
    }
    if (run.errorOutput.contains('\x1b') || run.errorOutput.contains('\x03')) {
        return "a terminal could act upon the message"_text;
    }
    return (run.exitCode == 1) == run.errorOutput.contains("tlx ")
               ? QString()
               : "message and exit code do not agree"_text;
}

} // namespace

void tst_tlxCorpora::files_data()
{
    addRows();
}

void tst_tlxCorpora::files()
{
    QFETCH(QString, file);
    const FileTree tree({"in/"_text});
    for (const char* line :
         {"crc", "crc --check", "stream", "stream --kind auto", "stream --little-endian --kind text",
          "stream diff %", "devices", "devices --little-endian", "devices export", "devices diff %",
          "devices import - %", "tar list --utf8", "tar check", "totp make --key-file"}) {
        QStringList arguments = QString::fromLatin1(line).split(QLatin1Char(' '));
        if (arguments.contains("-"_text)) {
            arguments = QStringList{"devices"_text, "import"_text, file, tree.path() + "/in/none"_text};
        } else {
            arguments.replaceInStrings("%"_text, file);
            arguments << file;
        }
        const STlxRun run = runTlx(arguments);
        QVERIFY2(fault(run).isEmpty(), qPrintable(fault(run) + ": "_text + arguments.join(QLatin1Char(' '))));
    }
    const STlxRun extracted = runTlx({"tar"_text, "extract"_text, file, "-C"_text, tree.path("in"_text)});
    QVERIFY2(fault(extracted).isEmpty(), qPrintable(fault(extracted)));
    const QStringList after = tree.entries();
    for (const QString& entry : after) {
        QVERIFY2(entry.startsWith("in/"_text), qPrintable(entry)); // nothing outside of the folder
    }
}

void tst_tlxCorpora::arguments_data()
{
    addRows();
}

// What a file holds as the text of the commands that take one; a zero character ends an argument.
void tst_tlxCorpora::arguments()
{
    QFETCH(QString, file);
    QFile bytes(file);
    QVERIFY(bytes.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(bytes.read(3000)).remove(QChar(0));
    for (const char* line : {"value U16", "value DATETIME", "value STRING32", "number", "datetime", "hwid",
                             "motor", "ip", "entry", "unit --search", "start", "tree"}) {
        const QStringList words = QString::fromLatin1(line).split(QLatin1Char(' '));
        const STlxRun run = runTlx(QStringList{words.first(), "--"_text} + words.mid(1) + QStringList{text});
        const STlxRun option =
            words.contains("--search"_text) ? runTlx({"unit"_text, "--search="_text + text}) : run;
        QVERIFY2(fault(option).isEmpty(), qPrintable(fault(option) + ": "_text + QLatin1String(line)));
    }
    for (const char* type : {"U16", "STRING32"}) {
        bytes.seek(0);
        const STlxRun lines = runTlx({"value"_text, QLatin1String(type), "-"_text}, {}, {}, bytes.readAll());
        QVERIFY2(fault(lines).isEmpty(), qPrintable(fault(lines)));
    }
}

QTEST_GUILESS_MAIN(tst_tlxCorpora)
#include "tst_tlxCorpora.moc"
