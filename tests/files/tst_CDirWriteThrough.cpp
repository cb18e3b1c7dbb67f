#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/OtherProcess.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QList<quint64> gFileSystems; // those that syncfs() was called for
int gFilesAlone = 0;         // calls of fsync() and fdatasync()
bool gDiskFails = false;
bool gOwnLinksFail = false; // every other call: Qt then names its own file
int gLinks = 0;

template <typename Function>
Function ofSystem(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These take the place of the system's: the library and Qt call them.
extern "C" {

Q_DECL_EXPORT int syncfs(int handle) noexcept
{
    struct stat status = {};
    fstat(handle, &status);
    gFileSystems << status.st_dev;
    errno = EIO;
    return gDiskFails ? -1 : ofSystem<int (*)(int)>("syncfs")(handle);
}

Q_DECL_EXPORT int fsync(int handle)
{
    ++gFilesAlone;
    return ofSystem<int (*)(int)>("fsync")(handle);
}

Q_DECL_EXPORT int fdatasync(int handle)
{
    ++gFilesAlone;
    return ofSystem<int (*)(int)>("fdatasync")(handle);
}

Q_DECL_EXPORT int linkat(int fromAt, const char* from, int toAt, const char* to, int flags) noexcept
{
    const bool fails = gOwnLinksFail && gLinks++ % 2 == 0;
    errno = ENOENT; // as where /proc is not mounted
    using Link = int (*)(int, const char*, int, const char*, int);
    return fails ? -1 : ofSystem<Link>("linkat")(fromAt, from, toAt, to, flags);
}
}

/// Trees are copied to the disk as a whole, not file by file.
class tst_CDirWriteThrough : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void onceForAll();
    void everyFileSystem();
    void nothingToWrite();
    void failingDisk();
    void withoutNamelessFiles();
    void permissions();
    void emptyAndLargeFiles();
};

void tst_CDirWriteThrough::init()
{
    gFileSystems.clear();
    gFilesAlone = 0;
    gDiskFails = false;
    gOwnLinksFail = false;
    gLinks = 0;
}

void tst_CDirWriteThrough::onceForAll()
{
    const FileTree tree(
        {"source/a=1"_text, "source/sub/b=2"_text, "source/sub/c=3"_text, "source/empty/"_text});
    struct stat status = {};
    QCOMPARE(stat(QFile::encodeName(tree.path()).constData(), &status), 0);

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));

    QCOMPARE(tree.entries("copy"_text), tree.entries("source"_text));
    QCOMPARE(gFileSystems, QList<quint64>{status.st_dev});
    QCOMPARE(gFilesAlone, 0);
}

void tst_CDirWriteThrough::everyFileSystem()
{
    const FileTree tree({"source/a=1"_text, "source/b=2"_text, "source/sub/c=3"_text, "source/sub/d=4"_text,
                         "copy/sub/"_text});
    const QByteArray other = QFile::encodeName(tree.path("copy/sub"_text));

    VERIFY_OTHER_PROCESS(OtherProcess::withSmallDisk(other.constData(), "64k", [&] {
        return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text))
               && tree.entries("copy"_text) == tree.entries("source"_text) && gFileSystems.size() == 2
               && gFileSystems.at(0) != gFileSystems.at(1) && gFilesAlone == 0;
    }));
}

void tst_CDirWriteThrough::nothingToWrite()
{
    const FileTree tree({"source/.hidden=1"_text});

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));

    QCOMPARE(gFileSystems, QList<quint64>());
}

// What may not be whole on the disk is not left there.
void tst_CDirWriteThrough::failingDisk()
{
    const FileTree tree({"source/a=1"_text, "source/sub/b=2"_text, "copy/theirs=3"_text});
    gDiskFails = true;

    const SPrintedRun run = printedRun(
        [&] { return CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)); });

    QVERIFY(!run.result);
    QCOMPARE(run.output, "\nCDir::copyFile unable to copy " + tree.path("copy"_text).toLocal8Bit());
    QCOMPARE(tree.entries("copy"_text), QStringList({"sub/"_text, "theirs=3"_text}));
    QCOMPARE(tree.entries("source"_text), QStringList({"a=1"_text, "sub/"_text, "sub/b=2"_text}));
}

// Each file by itself then, as Qt does it.
void tst_CDirWriteThrough::withoutNamelessFiles()
{
    const FileTree tree({"source/a=1"_text, "source/b=2"_text});
    gOwnLinksFail = true;

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));

    QCOMPARE(tree.entries("copy"_text), tree.entries("source"_text));
    QCOMPARE(gLinks, 4);
    QVERIFY(gFilesAlone >= 2);
    QCOMPARE(gFileSystems, QList<quint64>());
}

void tst_CDirWriteThrough::permissions()
{
    const FileTree tree({"source/plain=1"_text, "source/secret=2"_text, "source/program=3"_text});
    const QMap<QString, mode_t> modes{{"plain"_text, 0664}, {"secret"_text, 0600}, {"program"_text, 0755}};
    for (auto at = modes.begin(); at != modes.end(); ++at) {
        QCOMPARE(chmod(QFile::encodeName(tree.path("source/"_text + at.key())).constData(), at.value()), 0);
    }
    const mode_t before = umask(0077);
    const bool copied = CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text));
    umask(before);

    QVERIFY(copied);
    for (auto at = modes.begin(); at != modes.end(); ++at) {
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(tree.path("copy/"_text + at.key())).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, at.value());
    }
}

void tst_CDirWriteThrough::emptyAndLargeFiles()
{
    const QString large = QString(200000, QLatin1Char('x')) + "end"_text;
    const FileTree tree({"source/empty="_text, "source/large="_text + large});

    QVERIFY(CDir::copyDirectoryRecursive(tree.path("source"_text), tree.path("copy"_text)));

    QCOMPARE(tree.entries("copy"_text), tree.entries("source"_text));
}

QTEST_GUILESS_MAIN(tst_CDirWriteThrough)
#include "tst_CDirWriteThrough.moc"
