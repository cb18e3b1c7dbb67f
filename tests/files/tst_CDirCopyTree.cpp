#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/MessageLog.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

namespace {

const QString WITH_ZERO = "a"_text + QChar(QChar::Null);

bool copied(const FileTree& tree, const QString& from, const QString& to)
{
    return printedRun([&] { return CDir::copyDirectoryRecursive(tree.path(from), tree.path(to)); }).result;
}

} // namespace

/// Copying whole trees, without links: those have tests of their own.
class tst_CDirCopyTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyTree();
    void copyTreeProgress();
    void copyTreeRelative_data();
    void copyTreeRelative();
    void copyTreeIntoItself();
    void copyTreeOfNothing_data();
    void copyTreeOfNothing();
    void copyTreeStops();
    void copyTreeRefuses_data();
    void copyTreeRefuses();
};

void tst_CDirCopyTree::copyTree()
{
    const FileTree tree({"source/a=1"_text, "source/sub/b=2"_text, "source/sub/deep/c=3"_text,
                         "source/empty/"_text, "source/%1%n=4"_text, "source/.hidden=5"_text,
                         "source/.dir/d=6"_text});
    const QStringList copied{"%1%n=4"_text,  "a=1"_text,       "empty/"_text,      "sub/"_text,
                             "sub/b=2"_text, "sub/deep/"_text, "sub/deep/c=3"_text};
    const QStringList before = tree.entries("source"_text);

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("new/copy"_text)));
    QCOMPARE(tree.entries("new/copy"_text), copied);
    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source/"_text), tree.path("with separators/"_text)));
    QCOMPARE(tree.entries("with separators"_text), copied);
    QCOMPARE(tree.entries("source"_text), before);
}

void tst_CDirCopyTree::copyTreeProgress()
{
    const FileTree tree({"source/a=1"_text, "source/sub/b=2"_text, "source/.hidden=3"_text,
                         "blocked/a=4"_text, "empty/"_text});
    QStringList calls;
    const auto record = [&](int done, int total) { calls << "%1/%2"_text.arg(done).arg(total); };

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text), record));
    QCOMPARE(calls, QStringList({"1/3"_text, "2/3"_text, "3/3"_text}));
    calls.clear();
    QVERIFY(CDir::copyDirectoryRecursive(tree.path("empty"_text), tree.path("none"_text), record));
    QCOMPARE(calls, QStringList());
    QVERIFY(!printedRun([&] {
                 return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("blocked"_text),
                                                     record);
             }).result);
    QVERIFY(calls.size() < 3);
}

void tst_CDirCopyTree::copyTreeRelative_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("copy");

    QTest::newRow("both") << "source"_text
                          << "copy"_text;
    QTest::newRow("dots") << "./source"_text
                          << "source/../copy"_text;
    QTest::newRow("separators") << "source/"_text
                                << "copy/"_text;
}

void tst_CDirCopyTree::copyTreeRelative()
{
    QFETCH(QString, source);
    QFETCH(QString, copy);
    const FileTree tree({"source/a=1"_text, "source/sub/b=2"_text});
    const QStringList all{"copy/"_text,   "copy/a=1"_text,   "copy/sub/"_text,   "copy/sub/b=2"_text,
                          "source/"_text, "source/a=1"_text, "source/sub/"_text, "source/sub/b=2"_text};

    const InDirectory inside(tree.path());
    QVERIFY(CDir::copyDirectoryRecursive(source, copy));
    QCOMPARE(tree.entries(), all);
    QVERIFY(CDir::removeDirectoryRecursive(copy));
    QVERIFY(CDir::copyDirectoryRecursive(source, tree.path(copy)));
    QCOMPARE(tree.entries(), all);
    QVERIFY(CDir::removeDirectoryRecursive(copy));
    QVERIFY(CDir::copyDirectoryRecursive(tree.path(source), copy));
    QCOMPARE(tree.entries(), all);
}

void tst_CDirCopyTree::copyTreeIntoItself()
{
    const FileTree tree({"source/a=1"_text, "source/sub/b=2"_text});

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("source/sub/copy"_text)));
    QCOMPARE(tree.entries("source"_text),
             QStringList({"a=1"_text, "sub/"_text, "sub/b=2"_text, "sub/copy/"_text, "sub/copy/a=1"_text,
                          "sub/copy/sub/"_text, "sub/copy/sub/b=2"_text}));
}

void tst_CDirCopyTree::copyTreeOfNothing_data()
{
    QTest::addColumn<QString>("source");

    QTest::newRow("empty directory") << "empty"_text;
    QTest::newRow("hidden entries only") << "hidden"_text;
    QTest::newRow("missing directory") << "missing"_text;
    QTest::newRow("file") << "hidden/.f"_text;
}

void tst_CDirCopyTree::copyTreeOfNothing()
{
    QFETCH(QString, source);
    const FileTree tree({"empty/"_text, "hidden/.f=1"_text});
    const QStringList before = tree.entries();

    QVERIFY(CDir::copyDirectoryRecursive(tree.path(source), tree.path("copy"_text)));
    QCOMPARE(tree.entries(), before); // the destination is not created
}

void tst_CDirCopyTree::copyTreeStops()
{
    const FileTree tree({"source/a=new"_text, "copy/a=old"_text});

    const SPrintedRun done = printedRun(
        [&] { return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)); });
    QVERIFY(!done.result);
    QCOMPARE(done.output, "\nCDir::copyFile unable to copy " + tree.path("copy/a"_text).toLocal8Bit());
    QCOMPARE(tree.entries("copy"_text), QStringList{"a=old"_text});

    // A chain of directories has one order: nothing behind the failure is touched.
    QVERIFY(tree.make({"chain/x/y/z=1"_text, "blocked/x=file"_text}));
    QVERIFY(!copied(tree, "chain"_text, "blocked"_text));
    QCOMPARE(tree.entries("blocked"_text), QStringList{"x=file"_text});

    // Onto itself: the first file exists already.
    QVERIFY(!copied(tree, "chain"_text, "chain"_text));
    QCOMPARE(tree.entries("chain"_text), QStringList({"x/"_text, "x/y/"_text, "x/y/z=1"_text}));
}

void tst_CDirCopyTree::copyTreeRefuses_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("copy");

    QTest::newRow("empty source") << QString() << "copy"_text;
    QTest::newRow("empty destination") << "a"_text << QString();
    QTest::newRow("zero character in the source") << WITH_ZERO << "copy"_text;
    QTest::newRow("zero character in the destination") << "a"_text << WITH_ZERO;
}

void tst_CDirCopyTree::copyTreeRefuses()
{
    QFETCH(QString, source);
    QFETCH(QString, copy);
    const FileTree tree({"a/f=1"_text});
    const QStringList before = tree.entries();
    const InDirectory inside(tree.path());
    const MessageLog log;

    QVERIFY(!CDir::copyDirectoryRecursive(source, copy));
    QCOMPARE(tree.entries(), before);
    QCOMPARE(log.messages(), QStringList());
}

QTEST_GUILESS_MAIN(tst_CDirCopyTree)
#include "tst_CDirCopyTree.moc"
