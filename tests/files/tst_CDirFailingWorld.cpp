#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/OtherProcess.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

using namespace OtherProcess;

namespace {

// A file whose name no encoding of the system has; false where the file system refuses it.
bool makeUndecodable(const QString& directory, const char* name = "/bad\xFF\xFE")
{
    const QByteArray path = QFile::encodeName(directory) + name;
    FILE* const file = std::fopen(path.constData(), "w");
    return file && std::fputs("1", file) >= 0 && std::fclose(file) == 0;
}

} // namespace

/// A world that changes and refuses while a tree is copied or removed: what was not done is not said to be done.
class tst_CDirFailingWorld : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileVanishes();
    void directoryVanishes();
    void fileAppearsAtDestination();
    void destinationIsFile();
    void fullDiskInTree();
    void linksAcrossTheEdge();
    void longestNames();
    void undecodableNames();
};

void tst_CDirFailingWorld::fileVanishes()
{
    const FileTree tree({"source/a/f=1"_text, "source/b/g=2"_text, "source/c/h=3"_text});
    const auto removeLast = [&](int done, int total) {
        if (done == total - 1) {
            for (const char* file : {"a/f", "b/g", "c/h"}) {
                if (tree.read("copy/"_text + QLatin1String(file)).isNull()) {
                    QFile::remove(tree.path("source/"_text + QLatin1String(file)));
                }
            }
        }
    };

    QVERIFY(!printedRun([&] {
                 return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text),
                                                     removeLast);
             }).result);
    QCOMPARE(tree.entries("source"_text).filter("="_text).size(), 2);
    QCOMPARE(tree.entries("source"_text), tree.entries("copy"_text));
}

void tst_CDirFailingWorld::directoryVanishes()
{
    const FileTree tree({"source/a/f=1"_text, "source/b/g=2"_text});
    const auto removeAll = [&](int, int) { QDir(tree.path("source"_text)).removeRecursively(); };

    QVERIFY(!printedRun([&] {
                 return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text),
                                                     removeAll);
             }).result);
}

// The file that came meanwhile is neither overwritten nor taken for the copy.
void tst_CDirFailingWorld::fileAppearsAtDestination()
{
    const FileTree tree({"source/a/f=1"_text, "source/b/f=1"_text});
    const QStringList before = tree.entries("source"_text);
    const auto appear = [&](int, int) { tree.make({"copy/a/f=theirs"_text, "copy/b/f=theirs"_text}); };

    QVERIFY(!printedRun([&] {
                 return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text),
                                                     appear);
             }).result);
    QCOMPARE(tree.read("copy/a/f"_text), QByteArray("theirs"));
    QCOMPARE(tree.read("copy/b/f"_text), QByteArray("theirs"));
    QCOMPARE(tree.entries("source"_text), before);
}

void tst_CDirFailingWorld::destinationIsFile()
{
    const FileTree tree({"source/f=1"_text});
    QVERIFY(tree.make({"copy=a file in the way"_text}));

    QVERIFY(!printedRun([&] {
                 return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text));
             }).result);
    QCOMPARE(tree.entries(), QStringList({"copy=a file in the way"_text, "source/"_text, "source/f=1"_text}));
}

void tst_CDirFailingWorld::fullDiskInTree()
{
    const FileTree tree(
        {"source/small=1"_text, "source/sub/large="_text + QString(200000, QLatin1Char('x'))});
    const QStringList before = tree.entries("source"_text);

    VERIFY_OTHER_PROCESS(withFileSizeLimit(100000, [&] {
        return !printedRun([&] {
                    return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text));
                }).result;
    }));
    QCOMPARE(tree.entries("source"_text), before);
    QVERIFY(!QFileInfo::exists(tree.path("copy/sub/large"_text))); // nothing half-written
}

// Links lead out of the tree, into it from outside, and round in it: a copy ends, and writes and removes nothing there.
void tst_CDirFailingWorld::linksAcrossTheEdge()
{
    const FileTree tree({"outside/f=1"_text, "outside/in->../source"_text, "source/sub/g=2"_text,
                         "source/out->../outside"_text, "source/sub/up->../.."_text,
                         "source/sub/self->self"_text, "source/around->../outside/in/sub"_text});
    const QStringList before = tree.entries();

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("outside/in"_text), tree.path("copy"_text)));
    QCOMPARE(tree.entries("copy"_text),
             QStringList({"around/"_text, "out/"_text, "sub/"_text, "sub/g=2"_text, "sub/up/"_text}));
    QVERIFY(CDir::removeDirectoryRecursive(tree.path("copy"_text)));
    QCOMPARE(tree.entries(), before);
    QVERIFY(CDir::removeDirectoryRecursive(tree.path("source"_text)));
    QCOMPARE(tree.entries(),
             QStringList({"outside/"_text, "outside/f=1"_text, "outside/in->../source"_text}));
}

void tst_CDirFailingWorld::longestNames()
{
    const QString longest(255, QLatin1Char('n'));
    const FileTree tree({"source/"_text + longest + "=new"_text, "old/"_text + longest + "=old"_text});
    const QString source = tree.path("source/"_text + longest);
    const QStringList before = tree.entries();

    // There is no room for the "~" of the backup.
    QVERIFY(!CDir::copyFileF(source, tree.path("old/"_text + longest)));
    QCOMPARE(tree.entries(), before);
    QVERIFY(!printedRun([&] { return CDir::copyFile(source, tree.path("n"_text + longest)); }).result);
    QVERIFY(!CDir::copyFileF(source, tree.path("n"_text + longest)));
    QCOMPARE(tree.entries(), before);
    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));
    QCOMPARE(tree.entries("copy"_text), tree.entries("source"_text));
    QVERIFY(CDir::removeDirectoryRecursive(tree.path("copy"_text)));
    QVERIFY(!QFileInfo::exists(tree.path("copy"_text)));
}

// Qt's listings leave such a name out: its directory is neither removed nor copied whole, and that is no success.
void tst_CDirFailingWorld::undecodableNames()
{
    const FileTree tree({"source/f=1"_text, "only/"_text, "hidden/f=1"_text});
    if (!makeUndecodable(tree.path("source"_text)) || !makeUndecodable(tree.path("only"_text))) {
        QSKIP("the file system takes no name in an invalid encoding: not tested");
    }

    for (const char* name : {"source", "only"}) {
        const QString directory = tree.path(QLatin1String(name));
        QVERIFY(!CDir::removeDirectoryRecursive(directory));
        QVERIFY(QFileInfo::exists(directory));
        QVERIFY(!CDir::copyDirectoryRecursive(directory, tree.path("copy"_text)));
    }
    QVERIFY(!CDir::copyDirectoryRecursive(tree.path(), tree.path("copy"_text)));
    QVERIFY(makeUndecodable(tree.path("hidden"_text), "/.bad\xFF"));
    QVERIFY(CDir::copyDirectoryRecursive(tree.path("hidden"_text), tree.path("whole"_text)));
    QCOMPARE(tree.entries("whole"_text), QStringList{"f=1"_text});
}

QTEST_GUILESS_MAIN(tst_CDirFailingWorld)
#include "tst_CDirFailingWorld.moc"
