#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

namespace {

STlxRun runJson(const QString& command, const QStringList& arguments, const QStringList& environment = {})
{
    return runTlx(QStringList{command, "--json"_text} + arguments, environment);
}

// One column of a table of the result.
QStringList column(const STlxRun& run, const char* table, const char* name)
{
    QStringList texts;
    const QJsonArray rows = run.result().value(QLatin1String(table)).toArray();
    for (const QJsonValue& row : rows) {
        texts << row.toObject().value(QLatin1String(name)).toVariant().toString();
    }
    return texts;
}

QString errorOf(const STlxRun& run)
{
    return run.json().value("error"_text).toObject().value("message"_text).toString();
}

} // namespace

// `tlx tree`, `tlx copy`, `tlx trash` and `tlx entry`.
class tst_tlxFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree_data();
    void tree();
    void copyFile();
    void copyForced();
    void copyTree();
    void copyFails_data();
    void copyFails();
    void trash();
    void trashFails();
    void entry();
    void entryInvalid();
    void escapedNames();
    void wrongUsage_data();
    void wrongUsage();
};

void tst_tlxFiles::tree_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QStringList>("kinds");
    QTest::addColumn<QString>("bytes");

    const QString file = "file"_text;
    const QString directory = "directory"_text;
    QTest::newRow("all") << QStringList() << QStringList{".hidden"_text, "a"_text, "sub"_text, "sub/b"_text}
                         << QStringList{file, file, directory, file} << "6"_text;
    QTest::newRow("files") << QStringList{"--files"_text}
                           << QStringList{".hidden"_text, "a"_text, "sub/b"_text}
                           << QStringList{file, file, file} << "6"_text;
    QTest::newRow("dirs") << QStringList{"--dirs"_text} << QStringList{"sub"_text} << QStringList{directory}
                          << "0"_text;
}

void tst_tlxFiles::tree()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, paths);
    QFETCH(QStringList, kinds);
    QFETCH(QString, bytes);
    const FileTree tree({"d/a=1"_text, "d/sub/b=22"_text, "d/.hidden=333"_text});

    const STlxRun run = runJson("tree"_text, options + QStringList{tree.path("d"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(column(run, "entries", "path"), paths);
    QCOMPARE(column(run, "entries", "kind"), kinds);
    QCOMPARE(run.result().value("count"_text).toInt(), paths.size());
    QCOMPARE(run.result().value("bytes"_text).toString(), bytes);
    QCOMPARE(run.result().value("directory"_text).toString(), tree.path("d"_text));

    const STlxRun missing = runJson("tree"_text, {tree.path("d/a"_text)});
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(errorOf(missing), "no such directory: "_text + tree.path("d/a"_text));
}

void tst_tlxFiles::copyFile()
{
    const FileTree tree({"a=text"_text});

    const STlxRun run = runJson("copy"_text, {tree.path("a"_text), tree.path("new/b"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value("destination"_text).toString(), tree.path("new/b"_text));
    QCOMPARE(run.result().value("bytes"_text).toString(), "4"_text);
    QCOMPARE(run.result().value("replaced"_text).toBool(true), false);
    QCOMPARE(tree.entries(), QStringList({"a=text"_text, "new/"_text, "new/b=text"_text}));
}

void tst_tlxFiles::copyForced()
{
    const FileTree tree({"a=new"_text, "b=old"_text});

    const STlxRun run = runJson("copy"_text, {"--force"_text, tree.path("a"_text), tree.path("b"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value("replaced"_text).toBool(), true);
    QCOMPARE(tree.entries(), QStringList({"a=new"_text, "b=new"_text}));
}

void tst_tlxFiles::copyTree()
{
    const FileTree tree({"from/a=1"_text, "from/sub/b=2"_text});

    const STlxRun run =
        runJson("copy"_text, {"--recursive"_text, tree.path("from"_text), tree.path("to"_text)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QCOMPARE(run.result().value("entries"_text).toInt(), 3);
    QCOMPARE(tree.entries("to"_text), QStringList({"a=1"_text, "sub/"_text, "sub/b=2"_text}));
}

// The system's reason in Qt's words on Windows, where the C library has others.
static QString reasonOfFileInTheWay()
{
#ifdef Q_OS_WIN
    const FileTree tree({"b=2"_text});
    QFile file(tree.path("b/c"_text));
    file.open(QIODevice::WriteOnly);
    return file.errorString();
#else
    return systemText(ENOTDIR);
#endif
}

void tst_tlxFiles::copyFails_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("message"); // %1: the directory

    const QStringList force{"--force"_text};
    const QStringList recursive{"--recursive"_text};
    QTest::newRow("exists") << QStringList() << "a"_text
                            << "b"_text
                            << "%1/b already exists; --force replaces it"_text;
    QTest::newRow("missing") << QStringList() << "missing"_text
                             << "c"_text
                             << "no such file: %1/missing"_text;
    QTest::newRow("missing, forced") << force << "missing"_text
                                     << "b"_text
                                     << "no such file: %1/missing"_text;
    QTest::newRow("directory") << QStringList() << "d"_text
                               << "c"_text
                               << "%1/d is a directory, which needs --recursive"_text;
    QTest::newRow("onto a directory, forced") << force << "a"_text
                                              << "d"_text
                                              << "%1/d: Is a directory"_text;
    QTest::newRow("file in the way") << QStringList() << "a"_text
                                     << "b/c"_text
                                     << "%1/b/c: "_text + reasonOfFileInTheWay();
    QTest::newRow("missing tree") << recursive << "missing"_text
                                  << "c"_text
                                  << "no such directory: %1/missing"_text;
    QTest::newRow("tree over a tree") << recursive << "d"_text
                                      << "e"_text
                                      << "CDir::copyFile unable to copy %1/e/f"_text;
}

void tst_tlxFiles::copyFails()
{
    QFETCH(QStringList, options);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, message);
    const FileTree tree({"a=1"_text, "b=2"_text, "d/f=3"_text, "e/f=4"_text});
    const QStringList before = tree.entries();

    const STlxRun run = runJson("copy"_text, options + QStringList{tree.path(from), tree.path(to)});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(!run.json().isEmpty()); // the library's own lines do not come between
    QCOMPARE(errorOf(run), message.arg(tree.path()));
    QCOMPARE(tree.entries(), before);
}

void tst_tlxFiles::trash()
{
    const FileTree tree({"a=1"_text, "d/f=2"_text, "stays=3"_text, "home/"_text});
    const QStringList environment{"HOME="_text + tree.path("home"_text), "XDG_DATA_HOME="_text};

    const STlxRun run = runJson("trash"_text, {tree.path("a"_text), tree.path("d"_text)}, environment);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(column(run, "paths", "code"), QStringList({"0"_text, "0"_text}));
    QVERIFY(!QFileInfo::exists(tree.path("a"_text)) && !QFileInfo::exists(tree.path("d"_text)));
    QCOMPARE(tree.read("stays"_text), QByteArray("3"));
}

void tst_tlxFiles::trashFails()
{
    const FileTree tree({"a=1"_text, "home/"_text});
    const QStringList environment{"HOME="_text + tree.path("home"_text), "XDG_DATA_HOME="_text};

    const STlxRun run = runJson("trash"_text, {tree.path("missing"_text), tree.path("a"_text)}, environment);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(column(run, "paths", "code"), QStringList({"10"_text, "0"_text}));
    QCOMPARE(errorOf(run), "1 of 2 paths were not moved"_text);
}

void tst_tlxFiles::entry()
{
    const STlxRun run = runJson("entry"_text, {"/opt/TARVENIK/etc/conf/x.ini"_text, "OPT/x"_text});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(column(run, "paths", "entryPoint"), QStringList({"CONSTCONFIG"_text, "OPT"_text}));
    QCOMPARE(column(run, "paths", "value"), QStringList({"1"_text, "32"_text}));
    QCOMPARE(column(run, "paths", "directory"), QStringList({"/opt/TARVENIK/etc/conf/"_text, "/opt/"_text}));
    QCOMPARE(column(run, "paths", "relative"), QStringList({"x.ini"_text, "OPT/x"_text}));
}

void tst_tlxFiles::entryInvalid()
{
    const STlxRun run = runJson("entry"_text, {"x/TMP"_text, "/tmp/x"_text});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(column(run, "paths", "entryPoint"), QStringList({"<invalid>"_text, "TMP"_text}));
    QCOMPARE(errorOf(run), "1 of 2 paths belong to no entry point"_text);
}

void tst_tlxFiles::escapedNames()
{
#ifdef Q_OS_WIN
    QSKIP("no file has such a name on Windows: not tested");
#endif
    const FileTree tree({"d/a\033[2J=1"_text, "e/a\033[2J=2"_text});

    const STlxRun listed = runTlx({"tree"_text, tree.path("d"_text)});
    QCOMPARE(listed.exitCode, 0);
    QVERIFY(listed.output.contains("a\\x1b[2J"));
    QVERIFY(!listed.output.contains('\033'));
    const STlxRun copied =
        runTlx({"copy"_text, "--recursive"_text, tree.path("d"_text), tree.path("e"_text)});
    QCOMPARE(copied.exitCode, 1);
    QVERIFY(copied.errorOutput.contains("a\\x1b[2J"));
    QVERIFY(!copied.errorOutput.contains('\033') && !copied.output.contains('\033'));
}

void tst_tlxFiles::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("tree of nothing") << QStringList{"tree"_text};
    QTest::newRow("tree of two") << QStringList{"tree"_text, "a"_text, "b"_text};
    QTest::newRow("tree of files and dirs")
        << QStringList{"tree"_text, "--files"_text, "--dirs"_text, "a"_text};
    QTest::newRow("copy of one") << QStringList{"copy"_text, "a"_text};
    QTest::newRow("copy to an empty path") << QStringList{"copy"_text, "a"_text, ""_text};
    QTest::newRow("copy of a tree, forced")
        << QStringList{"copy"_text, "--force"_text, "--recursive"_text, "a"_text, "b"_text};
    QTest::newRow("trash of nothing") << QStringList{"trash"_text};
    QTest::newRow("entry of nothing") << QStringList{"entry"_text};
}

void tst_tlxFiles::wrongUsage()
{
    QFETCH(QStringList, arguments);

    const STlxRun run = runTlx(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errorOutput.startsWith(QByteArray("tlx " + arguments.first().toLatin1() + ": ")));
}

QTEST_GUILESS_MAIN(tst_tlxFiles)
#include "tst_tlxFiles.moc"
