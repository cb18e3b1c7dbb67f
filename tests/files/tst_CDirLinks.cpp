#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

void makePipe(const QString& path)
{
    QVERIFY(mkfifo(native(path).constData(), 0600) == 0);
}

// What links point to, and what must therefore stay as it is.
const QStringList OUTSIDE{"outside/"_text, "outside/f=1"_text, "outside/sub/"_text, "outside/sub/g=2"_text};

} // namespace

/// Symbolic links, hard links, pipes and devices.
class tst_CDirLinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removedAsLink_data();
    void removedAsLink();
    void linksInTree();
    void pathThroughLink();
    void listed();
    void loopEnds();
    void copyFileOfLink();
    void copyFileOntoLink_data();
    void copyFileOntoLink();
    void copyFileOfPipe_data();
    void copyFileOfPipe();
    void copyFileFSameFile_data();
    void copyFileFSameFile();
    void copyFileFOntoLink();
    void copyFileFOntoHardLink();
    void copyFileFRefuses_data();
    void copyFileFRefuses();
    void copyTree();
    void copyTreeWithDevice();
    void permissionsOfNewDirectory();
};

void tst_CDirLinks::removedAsLink_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<int>("operation");

    const char* const operations[] = {"removeFile", "removeDirectory", "removeDirectoryRecursive",
                                      "removeFileOrDirectory"};
    for (int i = 0; i < 4; ++i) {
        for (const char* link :
             {"file", "directory", "directory/", "directory//", "directory/.", "nothing"}) {
            QTest::addRow("%s of %s", operations[i], link) << QString(QLatin1String(link)) << i;
        }
    }
}

void tst_CDirLinks::removedAsLink()
{
    QFETCH(QString, link);
    QFETCH(int, operation);
    const FileTree tree(
        OUTSIDE
        + QStringList{"file->outside/f"_text, "directory->outside"_text, "nothing->outside/missing"_text});
    QStringList expected = tree.entries();
    expected.erase(std::find_if(expected.begin(), expected.end(), [&](const QString& entry) {
        return entry.startsWith(link.section(QLatin1Char('/'), 0, 0) + "->"_text);
    }));
    bool (*const remove[])(const QString&) = {CDir::removeFile, CDir::removeDirectory,
                                              CDir::removeDirectoryRecursive, CDir::removeFileOrDirectory};

    QVERIFY(remove[operation](tree.path(link)));
    QCOMPARE(tree.entries(), expected);
}

void tst_CDirLinks::linksInTree()
{
    const FileTree tree(OUTSIDE
                        + QStringList{"gone/file->../outside/f"_text, "gone/sub/dir->../../outside"_text,
                                      "gone/nothing->missing"_text, "gone/self->."_text,
                                      "gone/.hidden->../outside"_text, "gone/up->.."_text});
    makePipe(tree.path("gone/pipe"_text));

    QVERIFY(CDir::removeDirectoryRecursive(tree.path("gone"_text)));
    QCOMPARE(tree.entries(), OUTSIDE);
}

// "link/.." is the directory above the link's target: what the system says, not what the text says.
void tst_CDirLinks::pathThroughLink()
{
    const FileTree tree({"a/link->../b/target"_text, "a/stays=1"_text, "b/target/f=2"_text});

    QVERIFY(CDir::removeDirectoryRecursive(tree.path("a/link/.."_text)));
    QCOMPARE(tree.entries(), QStringList({"a/"_text, "a/link->../b/target"_text, "a/stays=1"_text}));
}

void tst_CDirLinks::listed()
{
    const FileTree tree(OUTSIDE
                        + QStringList{"list/dir->../outside"_text, "list/file->../outside/f"_text,
                                      "list/nothing->missing"_text});
    makePipe(tree.path("list/pipe"_text));
    QVERIFY(tree.make({"list/to-pipe->pipe"_text}));

    QStringList found = CDir::listFilesAndDirectories(tree.path("list"_text));
    found.sort();
    QCOMPARE(found, QStringList({tree.path("list"_text), tree.path("list/dir"_text),
                                 tree.path("list/file"_text), tree.path("list/to-pipe"_text)}));
    const auto none = static_cast<NtlxGlobal::EDirFilter>(3);
    QCOMPARE(CDir::entryInfoList(tree.path("list"_text), {}, none), QFileInfoList());
    QCOMPARE(CDir::entryInfoList(tree.path("list"_text), none, {}), QFileInfoList());
    QCOMPARE(CDir::entryInfoList(tree.path("list"_text), {}, CDir::toDirFilter(none)), QFileInfoList());
    QCOMPARE(CDir::entryInfoListRecursive(tree.path("list"_text), {}, none), QFileInfoList());
}

void tst_CDirLinks::loopEnds()
{
    const FileTree tree({"a/b/up->../.."_text, "a/here->."_text, "a/x->y"_text, "a/y->x"_text});

    QStringList found = CDir::listFilesAndDirectories(tree.path("a"_text));
    found.sort();
    QCOMPARE(found, QStringList({tree.path("a"_text), tree.path("a/b"_text), tree.path("a/b/up"_text),
                                 tree.path("a/here"_text)}));
    QVERIFY(CDir::copyDirectoryRecursive(tree.path("a"_text), tree.path("copy"_text)));
    QCOMPARE(tree.entries("copy"_text), QStringList({"b/"_text, "b/up/"_text, "here/"_text}));
    QVERIFY(CDir::removeDirectoryRecursive(tree.path("a"_text)));
}

void tst_CDirLinks::copyFileOfLink()
{
    const FileTree tree(OUTSIDE + QStringList{"link->outside/f"_text});

    QVERIFY(CDir::copyFile(tree.path("link"_text), tree.path("copy"_text)));
    QVERIFY(!QFileInfo(tree.path("copy"_text)).isSymLink());
    QCOMPARE(tree.read("copy"_text), QByteArray("1"));
}

void tst_CDirLinks::copyFileOntoLink_data()
{
    QTest::addColumn<QString>("target");

    QTest::newRow("to a file") << "outside/f"_text;
    QTest::newRow("to a directory") << "outside"_text;
    QTest::newRow("to nothing") << "outside/missing"_text;
}

void tst_CDirLinks::copyFileOntoLink()
{
    QFETCH(QString, target);
    const FileTree tree(OUTSIDE + QStringList{"link->"_text + target, "source=new"_text});
    const QStringList before = tree.entries();

    QVERIFY(
        !printedRun([&] { return CDir::copyFile(tree.path("source"_text), tree.path("link"_text)); }).result);
    QCOMPARE(tree.entries(), before);
}

void tst_CDirLinks::copyFileOfPipe_data()
{
    QTest::addColumn<QString>("source");

    QTest::newRow("pipe") << "pipe"_text;
    QTest::newRow("link to a pipe") << "to-pipe"_text;
    QTest::newRow("link to an endless device") << "to-zero"_text;
    QTest::newRow("link to a directory") << "to-directory"_text;
}

void tst_CDirLinks::copyFileOfPipe()
{
    QFETCH(QString, source);
    const FileTree tree({"to-pipe->pipe"_text, "to-zero->/dev/zero"_text, "to-directory->."_text});
    makePipe(tree.path("pipe"_text));
    const QStringList before = tree.entries();

    QVERIFY(!printedRun([&] { return CDir::copyFile(tree.path(source), tree.path("copy"_text)); }).result);
    QVERIFY(!CDir::copyFileF(tree.path(source), tree.path("copy"_text)));
    QCOMPARE(tree.entries(), before);
}

void tst_CDirLinks::copyFileFSameFile_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");

    QTest::newRow("onto a link to it") << "file"_text
                                       << "link"_text;
    QTest::newRow("from a link to it") << "link"_text
                                       << "file"_text;
    QTest::newRow("link onto link") << "link"_text
                                    << "link2"_text;
    QTest::newRow("through a linked directory") << "file"_text
                                                << "here/file"_text;
    QTest::newRow("from a linked directory") << "here/./file"_text
                                             << "file"_text;
}

void tst_CDirLinks::copyFileFSameFile()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const FileTree tree({"file=1"_text, "link->file"_text, "link2->link"_text, "here->."_text});
    const QStringList before = tree.entries();

    QVERIFY(!CDir::copyFileF(tree.path(from), tree.path(to)));
    QCOMPARE(tree.entries(), before);
}

void tst_CDirLinks::copyFileFOntoLink()
{
    const FileTree tree(
        OUTSIDE + QStringList{"source=new"_text, "link->outside/f"_text, "nothing->outside/missing"_text});

    QVERIFY(CDir::copyFileF(tree.path("source"_text), tree.path("link"_text)));
    QVERIFY(CDir::copyFileF(tree.path("source"_text), tree.path("nothing"_text)));
    QCOMPARE(tree.entries(),
             QStringList({"link=new"_text, "nothing=new"_text}) + OUTSIDE + QStringList{"source=new"_text});
}

// Two names of one file: the copy becomes a file of its own, and nothing is lost.
void tst_CDirLinks::copyFileFOntoHardLink()
{
    const FileTree tree({"source=1"_text});
    QVERIFY(link(native(tree.path("source"_text)).constData(), native(tree.path("other"_text)).constData())
            == 0);

    QVERIFY(CDir::copyFileF(tree.path("source"_text), tree.path("other"_text)));
    QCOMPARE(tree.entries(), QStringList({"other=1"_text, "source=1"_text}));
}

void tst_CDirLinks::copyFileFRefuses_data()
{
    QTest::addColumn<QString>("to");

    QTest::newRow("link to a directory") << "directory"_text;
    QTest::newRow("pipe") << "pipe"_text;
    QTest::newRow("link to a device") << "device"_text;
    QTest::newRow("the backup's name is a link to nothing") << "file"_text;
}

void tst_CDirLinks::copyFileFRefuses()
{
    QFETCH(QString, to);
    const FileTree tree(OUTSIDE
                        + QStringList{"source=new"_text, "directory->outside"_text, "device->/dev/null"_text,
                                      "file=old"_text, "~file->outside/missing"_text});
    makePipe(tree.path("pipe"_text));
    const QStringList before = tree.entries();

    QVERIFY(!CDir::copyFileF(tree.path("source"_text), tree.path(to)));
    QCOMPARE(tree.entries(), before);
}

void tst_CDirLinks::copyTree()
{
    const FileTree tree(OUTSIDE
                        + QStringList{"source/dir->../outside"_text, "source/file->../outside/f"_text,
                                      "source/nothing->missing"_text, "source/a=1"_text});
    makePipe(tree.path("source/pipe"_text));

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));
    QCOMPARE(tree.entries("copy"_text), QStringList({"a=1"_text, "dir/"_text, "file=1"_text}));
}

void tst_CDirLinks::copyTreeWithDevice()
{
    const FileTree tree({"source/zero->/dev/zero"_text});

    const SPrintedRun done = printedRun(
        [&] { return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)); });
    QVERIFY(!done.result);
    QCOMPARE(done.output, "\nCDir::copyFile unable to copy " + tree.path("copy/zero"_text).toLocal8Bit());
    QCOMPARE(tree.entries("copy"_text), QStringList());
}

void tst_CDirLinks::permissionsOfNewDirectory()
{
    const FileTree tree({"there/"_text, "source=1"_text});
    QVERIFY(chmod(native(tree.path("there"_text)).constData(), 0700) == 0);
    const mode_t previous = umask(077);
    const bool made = CDir::copyDirectory(QString(), tree.path("new/last"_text))
                      && CDir::copyDirectory(QString(), tree.path("there"_text))
                      && CDir::copyFile(tree.path("source"_text), tree.path("by-copy/f"_text))
                      && CDir::copyFileF(tree.path("source"_text), tree.path("by-force/f"_text));
    umask(previous);
    QVERIFY(made);
    const auto modeOf = [&](const QString& name) {
        struct stat status = {};
        stat(native(tree.path(name)).constData(), &status);
        return int(status.st_mode & 07777);
    };
    QCOMPARE(modeOf("new/last"_text), 0775);
    QCOMPARE(modeOf("by-copy"_text), 0775);
    QCOMPARE(modeOf("by-force"_text), 0775);
    QCOMPARE(modeOf("there"_text), 0700);
}

QTEST_GUILESS_MAIN(tst_CDirLinks)
#include "tst_CDirLinks.moc"
