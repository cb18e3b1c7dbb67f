#include <tests/files/TarArchive.h>
#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <tests/tools/CommandLines.h>
#include <tests/tools/PseudoTerminal.h>

#include <QElapsedTimer>
#include <QtTest>

#include <csignal>

/// What a terminal of some width shows, and Ctrl-C.
class tst_tlxTerminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesFit_data();
    void linesFit();
    void wideTableInBlocks();
    void cellsOfWideLetters();
    void helpKeepsWords();
    void interruptLeavesNoFile();
};

namespace {

// What the program shows on a terminal of so many columns.
QString shownAt(int columns, const QStringList& arguments, const QString& directory)
{
    PseudoTerminal terminal(columns);
    terminal.start(tlxProgram(), arguments, directory);
    QStringList lines;
    const QList<QByteArray> shown = terminal.readToEnd().replace("\r\n", "\n").split('\n');
    for (const QByteArray& line : shown) {
        QByteArray last = line.mid(line.lastIndexOf('\r') + 1); // what was drawn over what came before
        lines << QString::fromUtf8(last.replace("\x1b[1m", "").replace("\x1b[0m", ""));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void tst_tlxTerminal::linesFit_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("columns");

    for (const int columns : {60, 80, 120}) {
        for (const char* line : {"devices a.devices", "unit", "tar list a.tar", "stream a.variants", "--help",
                                 "value --help", "number --help", "tar --help", "start --help", "help"}) {
            const QString tag = "%1 columns: %2"_text.arg(columns).arg(QLatin1String(line));
            QTest::newRow(qPrintable(tag)) << QString::fromLatin1(line).split(QLatin1Char(' ')) << columns;
        }
    }
}

void tst_tlxTerminal::linesFit()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, columns);
    const ExampleFiles files;
    const QStringList lines = shownAt(columns, arguments, files.directory()).split(QLatin1Char('\n'));
    QVERIFY(lines.size() > 3);
    for (const QString& line : lines) {
        QVERIFY2(line.size() <= columns || line.startsWith(QLatin1String("Example: ")), qPrintable(line));
    }
}

void tst_tlxTerminal::wideTableInBlocks()
{
    const ExampleFiles files;
    const QString narrow = shownAt(60, {"devices"_text, "a.devices"_text}, files.directory());
    QVERIFY2(narrow.contains(QRegularExpression("\\n  Configuration *\\n"_text)), qPrintable(narrow));
    QVERIFY2(narrow.contains(QRegularExpression("\\n  Address +192\\.168\\.0\\.7\\n"_text)),
             qPrintable(narrow));
    const QString wide = shownAt(200, {"devices"_text, "a.devices"_text}, files.directory());
    QVERIFY2(wide.contains(QRegularExpression("  Key +Number +Name +Address type +Address +Port"_text)),
             qPrintable(wide));
}

// Ideographs take two cells, combining marks none: the column after them begins where it does after plain letters.
void tst_tlxTerminal::cellsOfWideLetters()
{
    const FileTree tree({"t/plain=1"_text, "t/日本=1"_text, "t/e\u0301e\u0301=1"_text});
    qputenv("LC_ALL", "C.UTF-8");
    const QStringList lines = shownAt(80, {"tree"_text, "t"_text}, tree.path()).split(QLatin1Char('\n'));
    qunsetenv("LC_ALL");
    QMap<QString, int> units; // UTF-16 units before the second column
    for (const QString& line : lines) {
        const int column = line.indexOf(QLatin1String(" file "));
        if (column > 0) {
            units.insert(line.trimmed().section(QLatin1Char(' '), 0, 0), column);
        }
    }
    QCOMPARE(units.size(), 3);
    const int plain = units.value("plain"_text);
    QCOMPARE(units.value("日本"_text), plain - 2);
    QCOMPARE(units.value("e\u0301e\u0301"_text), plain + 2);
}

void tst_tlxTerminal::helpKeepsWords()
{
    const FileTree tree;
    const QString wide = shownAt(1000, {"number"_text, "--help"_text}, tree.path()).simplified();
    for (const int columns : {30, 40, 60}) {
        QCOMPARE(shownAt(columns, {"number"_text, "--help"_text}, tree.path()).simplified(), wide);
    }
}

// Ctrl-C while a member is extracted: the program ends at once, by the signal, and its unfinished file is gone.
void tst_tlxTerminal::interruptLeavesNoFile()
{
    const FileTree tree({"in/"_text});
    constexpr qint64 SIZE = 3LL << 30;
    STarMember hole;
    hole.name = "hole";
    hole.size = octal(SIZE, 11);
    QFile archive(tree.path() + "/x.tar"_text);
    QVERIFY(archive.open(QIODevice::WriteOnly));
    archive.write(tarHeader(hole));
    QVERIFY(archive.resize(512 + SIZE + 1024));
    archive.close();

    PseudoTerminal terminal(80);
    terminal.start(tlxProgram(), {"tar"_text, "extract"_text, "x.tar"_text, "-C"_text, "in"_text},
                   tree.path());
    QElapsedTimer timer;
    timer.start();
    QByteArray shown;
    while (!shown.contains("extracting: ") && timer.elapsed() < 60000) {
        shown += terminal.read();
    }
    QVERIFY2(shown.contains("extracting: "), shown.constData());
    terminal.type('\x03');
    const QByteArray rest = terminal.readToEnd();
    QCOMPARE(terminal.signalOfEnd(), SIGINT);
    QVERIFY2(rest.trimmed().isEmpty() || rest.endsWith('\r'), rest.constData());
    QCOMPARE(tree.entries("in"_text), QStringList());
}

QTEST_GUILESS_MAIN(tst_tlxTerminal)
#include "tst_tlxTerminal.moc"
