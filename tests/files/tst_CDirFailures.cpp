#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/OtherProcess.h>
#include <tools/tlx/terminal/OutputCapture.h>

#include <QtTest>

#include <sys/stat.h>

using namespace OtherProcess;

namespace {

bool setMode(const QString& path, mode_t mode)
{
    return chmod(QFile::encodeName(path).constData(), mode) == 0;
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777;
}

} // namespace

/// Operations that the system refuses half-way. Those that need rights which the test lacks are skipped, and say so.
class tst_CDirFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removeTreeWithReadOnlyDirectory();
    void removeFileInReadOnlyDirectory();
    void copyIntoReadOnlyDirectory();
    void copyTreeWithUnreadableDirectory();
    void forcedCopyWithUnreadableSource();
    void copyToFullDisk();
    void copyToFullFileSystem();
    void removeRoot();
    void copyFileFOntoOtherMount();
};

void tst_CDirFailures::removeTreeWithReadOnlyDirectory()
{
    const FileTree tree({"gone/locked/f=1"_text, "gone/locked/link->../../outside"_text, "outside=2"_text});
    QVERIFY(setMode(tree.path(), 0777) && setMode(tree.path("gone"_text), 0777));
    QVERIFY(setMode(tree.path("gone/locked/f"_text), 0444) && setMode(tree.path("outside"_text), 0444));
    QVERIFY(setMode(tree.path("gone/locked"_text), 0555));
    const QStringList before = tree.entries();

    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::removeDirectoryRecursive(tree.path("gone"_text)); }));
    QCOMPARE(tree.entries(), before);
    QCOMPARE(modeOf(tree.path("gone/locked/f"_text)), mode_t(0444));
    QCOMPARE(modeOf(tree.path("outside"_text)), mode_t(0444));
    QVERIFY(setMode(tree.path("gone/locked"_text), 0755));
}

void tst_CDirFailures::removeFileInReadOnlyDirectory()
{
    const FileTree tree({"locked/f=1"_text});
    QVERIFY(setMode(tree.path(), 0755) && setMode(tree.path("locked"_text), 0555));
    const QString file = tree.path("locked/f"_text);

    VERIFY_OTHER_PROCESS(asOrdinaryUser([&] { return !CDir::removeFile(file); }));
    VERIFY_OTHER_PROCESS(asOrdinaryUser([&] {
        const OutputCapture capture;
        return !CDir::removeFileOrDirectory(file)
               && capture.text() == "\n CDir::removeFileOrDirectory: unable to remove " + file.toLocal8Bit();
    }));
    QCOMPARE(tree.entries(), QStringList({"locked/"_text, "locked/f=1"_text}));
    QVERIFY(setMode(tree.path("locked"_text), 0755));
}

void tst_CDirFailures::copyIntoReadOnlyDirectory()
{
    const FileTree tree({"source=new"_text, "locked/f=old"_text});
    QVERIFY(setMode(tree.path(), 0755) && setMode(tree.path("locked"_text), 0555));
    const QString source = tree.path("source"_text);

    VERIFY_OTHER_PROCESS(asOrdinaryUser([&] {
        const OutputCapture capture;
        return !CDir::copyFile(source, tree.path("locked/g"_text))
               && !CDir::copyDirectory(QString(), tree.path("locked/d"_text));
    }));
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyFileF(source, tree.path("locked/f"_text)); }));
    QCOMPARE(tree.entries(), QStringList({"locked/"_text, "locked/f=old"_text, "source=new"_text}));
    QVERIFY(setMode(tree.path("locked"_text), 0755));
}

void tst_CDirFailures::copyTreeWithUnreadableDirectory()
{
    const FileTree tree({"source/secret/f=1"_text, "copies/"_text});
    QVERIFY(setMode(tree.path(), 0755) && setMode(tree.path("copies"_text), 0777));
    const QString source = tree.path("source"_text);

    QVERIFY(setMode(tree.path("source/secret"_text), 0));
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyDirectoryRecursive(source, tree.path("copies/a"_text)); }));
    QVERIFY(setMode(tree.path("source/secret"_text), 0755) && setMode(source, 0));
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyDirectoryRecursive(source, tree.path("copies/b"_text)); }));
    const QString link = tree.path("link"_text);
    QVERIFY(QFile::link(source, link));
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyDirectoryRecursive(link, tree.path("copies/c"_text)); }));
    QVERIFY(setMode(source, 0755) && setMode(tree.path("source/secret"_text), 0444)); // names, but no entries
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyDirectoryRecursive(source, tree.path("copies/d"_text)); }));
    QVERIFY(setMode(tree.path("source/secret"_text), 0755));
    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return CDir::copyDirectoryRecursive(source, tree.path("copies/e"_text)); }));
    QCOMPARE(tree.entries("copies/e"_text), QStringList({"secret/"_text, "secret/f=1"_text}));
}

// The copy fails behind the rename: neither the old nor a new file, and no backup.
void tst_CDirFailures::forcedCopyWithUnreadableSource()
{
    const FileTree tree({"source=new"_text, "open/f=old"_text});
    QVERIFY(setMode(tree.path(), 0755) && setMode(tree.path("open"_text), 0777));
    QVERIFY(setMode(tree.path("source"_text), 0));

    VERIFY_OTHER_PROCESS(
        asOrdinaryUser([&] { return !CDir::copyFileF(tree.path("source"_text), tree.path("open/f"_text)); }));
    QVERIFY(setMode(tree.path("source"_text), 0644));
    QCOMPARE(tree.entries(), QStringList({"open/"_text, "source=new"_text}));
}

void tst_CDirFailures::copyToFullDisk()
{
    const FileTree tree({"source/small=1"_text, "copy/old=2"_text});
    QFile file(tree.path("large"_text));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(200000, 'x')) == 200000);
    file.close();

    VERIFY_OTHER_PROCESS(withFileSizeLimit(100000, [&] {
        const OutputCapture capture;
        return !CDir::copyFile(file.fileName(), tree.path("copy/new"_text));
    }));
    QCOMPARE(tree.entries("copy"_text), QStringList{"old=2"_text}); // nothing half-written
    VERIFY_OTHER_PROCESS(withFileSizeLimit(
        100000, [&] { return !CDir::copyFileF(file.fileName(), tree.path("copy/old"_text)); }));
    QCOMPARE(tree.entries("copy"_text), QStringList());
}

void tst_CDirFailures::copyToFullFileSystem()
{
    const FileTree tree(
        {"source/a=1"_text, "source/b="_text + QString(200000, QLatin1Char('x')), "disk/"_text});
    const QStringList before = tree.entries("source"_text);
    const QByteArray disk = QFile::encodeName(tree.path("disk"_text));
    const QString large = tree.path("source/b"_text);

    VERIFY_OTHER_PROCESS(withSmallDisk(disk.constData(), "64k", [&] {
        const OutputCapture capture;
        return !CDir::copyFile(large, tree.path("disk/b"_text)) && tree.entries("disk"_text).isEmpty();
    }));
    VERIFY_OTHER_PROCESS(withSmallDisk(disk.constData(), "64k", [&] {
        return tree.make({"disk/b=old"_text}) && !CDir::copyFileF(large, tree.path("disk/b"_text))
               && tree.entries("disk"_text).isEmpty();
    }));
    VERIFY_OTHER_PROCESS(withSmallDisk(disk.constData(), "64k", [&] {
        const OutputCapture capture;
        const bool copied = CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("disk"_text));
        return !copied && tree.read("disk/b"_text).isNull();
    }));
    QCOMPARE(tree.entries("source"_text), before);
}

void tst_CDirFailures::removeRoot()
{
    const FileTree tree({"a/f=1"_text, "g=2"_text});
    const QStringList before = tree.entries();
    const QByteArray root = QFile::encodeName(tree.path());

    VERIFY_OTHER_PROCESS(inRoot(root.constData(), [] {
        return !CDir::removeDirectoryRecursive("/"_text) && !CDir::removeDirectoryRecursive("//"_text)
               && !CDir::removeDirectoryRecursive("/a/.."_text)
               && CDir::moveToTrash("/"_text) == CDir::TRASH_FAILED;
    }));
    QCOMPARE(tree.entries(), before);
}

// Source and destination are one file that is seen in two places: no path tells, and the rename moves both.
void tst_CDirFailures::copyFileFOntoOtherMount()
{
    const FileTree tree({"a/file=1"_text, "b/"_text});
    const QByteArray from = QFile::encodeName(tree.path("a"_text));
    const QByteArray to = QFile::encodeName(tree.path("b"_text));

    VERIFY_OTHER_PROCESS(withMount(from.constData(), to.constData(), [&] {
        return tree.read("b/file"_text) == "1"
               && !CDir::copyFileF(tree.path("a/file"_text), tree.path("b/file"_text));
    }));
    QCOMPARE(tree.entries(), QStringList({"a/"_text, "a/file=1"_text, "b/"_text}));
}

QTEST_GUILESS_MAIN(tst_CDirFailures)
#include "tst_CDirFailures.moc"
