#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/MessageLog.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

namespace {

// What printf-style output could take for a format.
const QString ODD_NAME = "100%s %n %1 %%"_text;

const QString WITH_ZERO = "file"_text + QChar(QChar::Null) + "name"_text;

} // namespace

static_assert(CDir::TRASH_DONE == 0 && CDir::TRASH_FAILED == 1 && CDir::TRASH_NO_PATH == 10,
              "tools compare the numbers");

/// Removing without links: those have tests of their own.
class tst_CDirRemove : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removeFile();
    void removeFileRefuses_data();
    void removeFileRefuses();
    void removeDirectory();
    void removeDirectoryIsRelativeToTemporary();
    void removeDirectoryRefuses_data();
    void removeDirectoryRefuses();
    void removeDirectoryRecursive_data();
    void removeDirectoryRecursive();
    void removeDirectoryRecursiveOfNothing();
    void removeDirectoryRecursiveDeep();
    void removeDirectoryRecursiveRefuses_data();
    void removeDirectoryRecursiveRefuses();
    void emptyPathLeavesCurrentDirectory();
    void removeFileOrDirectory_data();
    void removeFileOrDirectory();
    void removeFileOrDirectoryEmptyPath();
    void removeFileOrDirectoryOfZero();
    void removeFileOrDirectoryIsRelativeToTemporary();
    void removeFilesByPathList();
    void removeFilesByPathListOfNothing();
    void trashOfNothing_data();
    void trashOfNothing();
};

void tst_CDirRemove::removeFile()
{
    const FileTree tree({"a/file=1"_text, "a/.hidden=2"_text, "a/%s%n=3"_text, "a/stays=4"_text});
    const InDirectory inside(tree.path("a"_text));

    QVERIFY(CDir::removeFile(tree.path("a/file"_text)));
    QVERIFY(CDir::removeFile(tree.path("a/.hidden"_text)));
    QVERIFY(CDir::removeFile("%s%n"_text));
    QCOMPARE(tree.entries(), QStringList({"a/"_text, "a/stays=4"_text}));
}

void tst_CDirRemove::removeFileRefuses_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing there") << "missing"_text;
    QTest::newRow("empty directory") << "empty"_text;
    QTest::newRow("full directory") << "full"_text;
    QTest::newRow("below a file") << "file/x"_text;
    QTest::newRow("separator behind a file") << "file/"_text;
    QTest::newRow("zero character") << WITH_ZERO;
    QTest::newRow("name too long") << QString(300, QLatin1Char('n'));
}

void tst_CDirRemove::removeFileRefuses()
{
    QFETCH(QString, name);
    const FileTree tree({"empty/"_text, "full/f=1"_text, "file=2"_text});
    const QStringList before = tree.entries();
    const MessageLog log;

    QVERIFY(!CDir::removeFile(tree.path(name)));
    QCOMPARE(tree.entries(), before);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirRemove::removeDirectory()
{
    const FileTree tree({"empty/"_text, "full/f=1"_text});

    QVERIFY(CDir::removeDirectory(tree.path("empty"_text)));
    QCOMPARE(tree.entries(), QStringList({"full/"_text, "full/f=1"_text}));
}

void tst_CDirRemove::removeDirectoryIsRelativeToTemporary()
{
    const FileTree tree({"temporary/x/"_text, "current/x/"_text, "current/y/"_text});
    const InDirectory inside(tree.path("current"_text));
    const WithVariable unixName("TMPDIR", tree.path("temporary"_text));
    const WithVariable windowsName("TMP", tree.path("temporary"_text));

    QVERIFY(CDir::removeDirectory("x"_text));
    QVERIFY(!CDir::removeDirectory("y"_text));
    QCOMPARE(tree.entries(),
             QStringList({"current/"_text, "current/x/"_text, "current/y/"_text, "temporary/"_text}));
}

void tst_CDirRemove::removeDirectoryRefuses_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing there") << "missing"_text;
    QTest::newRow("full directory") << "full"_text;
    QTest::newRow("hidden content") << "hidden"_text;
    QTest::newRow("file") << "file"_text;
    QTest::newRow("zero character") << WITH_ZERO;
}

void tst_CDirRemove::removeDirectoryRefuses()
{
    QFETCH(QString, name);
    const FileTree tree({"hidden/.f=1"_text, "full/f=1"_text, "file=2"_text});
    const QStringList before = tree.entries();
    const MessageLog log;

    QVERIFY(!CDir::removeDirectory(tree.path(name)));
    QCOMPARE(tree.entries(), before);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirRemove::removeDirectoryRecursive_data()
{
    QTest::addColumn<QStringList>("content");

    QTest::newRow("empty") << QStringList{"gone/"_text};
    QTest::newRow("files") << QStringList{"gone/a=1"_text, "gone/b=2"_text};
    QTest::newRow("tree") << QStringList{"gone/a/b/c=1"_text, "gone/a/d/"_text, "gone/e=2"_text};
    QTest::newRow("hidden") << QStringList{"gone/.a=1"_text, "gone/.b/.c=2"_text};
    QTest::newRow("odd names") << QStringList{"gone/%s%n/~a=1"_text, "gone/ /x=1"_text};
}

void tst_CDirRemove::removeDirectoryRecursive()
{
    QFETCH(QStringList, content);
    const FileTree tree(content + QStringList{"stays/f=1"_text});
    const QStringList rest{"stays/"_text, "stays/f=1"_text};

    QVERIFY(CDir::removeDirectoryRecursive(tree.path("gone"_text)));
    QCOMPARE(tree.entries(), rest);

    QVERIFY(tree.make(content));
    QFile::setPermissions(tree.path("gone/b"_text), QFile::ReadOwner); // a read-only file goes too
    const InDirectory inside(tree.path());
    QVERIFY(CDir::removeDirectoryRecursive("gone/"_text));
    QCOMPARE(tree.entries(), rest);
}

void tst_CDirRemove::removeDirectoryRecursiveOfNothing()
{
    const FileTree tree({"file=1"_text});

    QVERIFY(CDir::removeDirectoryRecursive(tree.path("missing"_text)));
    QVERIFY(CDir::removeDirectoryRecursive(tree.path("missing/below"_text)));
    QCOMPARE(tree.entries(), QStringList{"file=1"_text});
}

// More levels than a process may have open files.
void tst_CDirRemove::removeDirectoryRecursiveDeep()
{
    const FileTree tree({"stays=1"_text});
#ifdef Q_OS_WIN
    const int levels = 50;
#else
    const int levels = 1100;
#endif
    QVERIFY(tree.make(
        {"gone/"_text + "d/"_text.repeated(levels), "gone/"_text + "d/"_text.repeated(levels) + "f=1"_text}));

    QVERIFY(CDir::removeDirectoryRecursive(tree.path("gone"_text)));
    QCOMPARE(tree.entries(), QStringList{"stays=1"_text});
}

void tst_CDirRemove::removeDirectoryRecursiveRefuses_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("file") << "file"_text;
    QTest::newRow("hidden file") << ".file"_text;
    QTest::newRow("zero character") << WITH_ZERO;
    QTest::newRow("zero character behind a directory") << "full"_text + QChar(QChar::Null);
}

void tst_CDirRemove::removeDirectoryRecursiveRefuses()
{
    QFETCH(QString, name);
    const FileTree tree({"full/f=1"_text, "file=2"_text, ".file=3"_text});
    const QStringList before = tree.entries();
    const MessageLog log;

    QVERIFY(!CDir::removeDirectoryRecursive(tree.path(name)));
    QCOMPARE(tree.entries(), before);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirRemove::emptyPathLeavesCurrentDirectory()
{
    const FileTree tree({"full/f=1"_text, "empty/"_text});
    const QStringList before = tree.entries();
    const InDirectory inside(tree.path());
    const MessageLog log;

    for (const QString& path : {QString(), ""_text}) {
        QVERIFY(!CDir::removeFile(path));
        QVERIFY(!CDir::removeDirectory(path));
        QVERIFY(!CDir::removeDirectoryRecursive(path));
        QCOMPARE(CDir::moveToTrash(path), int(CDir::TRASH_NO_PATH));
    }
    QCOMPARE(tree.entries(), before);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirRemove::removeFileOrDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("left"); // as printed; empty: nothing is printed

    QTest::newRow("file") << "file"_text << true << QStringList();
    QTest::newRow("odd name") << ODD_NAME << true << QStringList();
    QTest::newRow("empty directory") << "empty"_text << true << QStringList();
    QTest::newRow("nothing there") << "missing"_text << true << QStringList{"missing"_text};
    QTest::newRow("nothing there, odd name")
        << ODD_NAME + "-"_text << true << QStringList{ODD_NAME + "-"_text};
    QTest::newRow("name outside ASCII") << "fehlt-\u00e4"_text << true << QStringList{"fehlt-\u00e4"_text};
    QTest::newRow("full directory") << "full"_text << false
                                    << QStringList{"full"_text, "full/sub"_text, "full/sub/f"_text};
    QTest::newRow("hidden content") << "hidden"_text << false << QStringList{"hidden"_text};
    QTest::newRow("odd content") << "odd"_text << false << QStringList{"odd"_text, "odd/"_text + ODD_NAME};
}

void tst_CDirRemove::removeFileOrDirectory()
{
    QFETCH(QString, name);
    QFETCH(bool, result);
    QFETCH(QStringList, left);
    const FileTree tree({"file=1"_text, ODD_NAME + "=2"_text, "empty/"_text, "full/sub/f=3"_text,
                         "hidden/.f=4"_text, "odd/"_text + ODD_NAME + "=5"_text});
    const QStringList before = tree.entries();
    QByteArray printed;
    if (!left.isEmpty()) {
        printed = "\n CDir::removeFileOrDirectory: unable to remove " + tree.path(name).toLocal8Bit();
        for (const QString& entry : left) {
            printed += "\n " + tree.path(entry).toLocal8Bit();
        }
        printed += "\n--------------";
    }
    const MessageLog log;
    const SPrintedRun done = printedRun([&] { return CDir::removeFileOrDirectory(tree.path(name)); });
    QCOMPARE(done.result, result);
    QCOMPARE(done.output, printed);
    QCOMPARE(tree.entries().size(), left.isEmpty() ? before.size() - 1 : before.size());
    QVERIFY(result != QFileInfo::exists(tree.path(name)));
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirRemove::removeFileOrDirectoryEmptyPath()
{
    const FileTree tree({"file=1"_text});
    const InDirectory inside(tree.path());
    const SPrintedRun done = printedRun([&] { return CDir::removeFileOrDirectory(QString()); });
    QVERIFY(!done.result);
    QCOMPARE(done.output, QByteArray("\n CDir::removeFileOrDirectory: unable to remove \n \n--------------"));
    QCOMPARE(tree.entries(), QStringList{"file=1"_text});
}

void tst_CDirRemove::removeFileOrDirectoryOfZero()
{
    const FileTree tree({"file=1"_text});

    QVERIFY(!printedRun([&] { return CDir::removeFileOrDirectory(tree.path(WITH_ZERO)); }).result);
    QCOMPARE(tree.entries(), QStringList{"file=1"_text});
}

// A directory goes through removeDirectory(), a file does not.
void tst_CDirRemove::removeFileOrDirectoryIsRelativeToTemporary()
{
    const FileTree tree({"temporary/"_text, "current/directory/"_text, "current/file=1"_text});
    const InDirectory inside(tree.path("current"_text));
    const auto removed = [&](const QString& path) {
        return printedRun([&] {
            const WithVariable unixName("TMPDIR", tree.path("temporary"_text));
            const WithVariable windowsName("TMP", tree.path("temporary"_text));
            return CDir::removeFileOrDirectory(path);
        });
    };

    const SPrintedRun file = removed("file"_text);
    QVERIFY(file.result);
    QCOMPARE(file.output, QByteArray());
    const SPrintedRun directory = removed("directory"_text);
    QVERIFY(!directory.result);
    QCOMPARE(directory.output, QByteArray("\n CDir::removeFileOrDirectory: unable to remove directory"
                                          "\n directory\n--------------"));
    QCOMPARE(tree.entries(), QStringList({"current/"_text, "current/directory/"_text, "temporary/"_text}));
}

void tst_CDirRemove::removeFilesByPathList()
{
    const FileTree tree({"a=1"_text, "full/f=2"_text, "b=3"_text, "empty/"_text, "stays=4"_text});
    const auto removed = [](const QStringList& paths) {
        return printedRun([&] { return CDir::removeFilesByPathList(paths); }).result;
    };

    QVERIFY(!removed(
        {tree.path("a"_text), tree.path("full"_text), tree.path("b"_text), tree.path("empty"_text)}));
    QCOMPARE(tree.entries(), QStringList({"full/"_text, "full/f=2"_text, "stays=4"_text}));
    QVERIFY(!removed({QString(), tree.path("full/f"_text)}));
    QVERIFY(removed({tree.path("full"_text), tree.path("missing"_text)}));
    QCOMPARE(tree.entries(), QStringList{"stays=4"_text});
}

void tst_CDirRemove::removeFilesByPathListOfNothing()
{
    QVERIFY(CDir::removeFilesByPathList({}));
}

void tst_CDirRemove::trashOfNothing_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing") << "missing"_text;
    QTest::newRow("below a file") << "file/x"_text;
    QTest::newRow("zero character") << WITH_ZERO;
}

void tst_CDirRemove::trashOfNothing()
{
    QFETCH(QString, name);
    const FileTree tree({"file=1"_text});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", QString());
    const MessageLog log;

    QCOMPARE(CDir::moveToTrash(tree.path(name)), int(CDir::TRASH_NO_PATH));
    // The system was not asked: there is no trash yet.
    QCOMPARE(tree.entries(), QStringList{"file=1"_text});
    QCOMPARE(log.messages(), QStringList());
}

QTEST_GUILESS_MAIN(tst_CDirRemove)
#include "tst_CDirRemove.moc"
