#include <core/files/CTemporaryDir.h>

#include <tests/support/FileTree.h>

#include <QDir>
#include <QtTest>

#include <memory>
#include <type_traits>

class tst_CTemporaryDir : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void created();
    void unique();
    void removedWithObject();
    void keptWithoutAutoRemove();
    void remove();
    void invalid();
};

void tst_CTemporaryDir::created()
{
    static_assert(!std::is_copy_constructible_v<CTemporaryDir> && !std::is_copy_assignable_v<CTemporaryDir>,
                  "one object owns the directory");
    const FileTree tree({"temporary/"_text});
    const WithVariable unixName("TMPDIR", tree.path("temporary"_text));
    const WithVariable windowsName("TMP", tree.path("temporary"_text));
    const CTemporaryDir directory;

    QVERIFY(directory.isValid());
    QVERIFY(directory.autoRemove());
    QVERIFY(QFileInfo(directory.path()).isDir());
    QVERIFY(QDir::isAbsolutePath(directory.path()));
    QCOMPARE(QFileInfo(directory.path()).canonicalPath(), tree.path("temporary"_text));
    QCOMPARE(tree.entries("temporary"_text).size(), 1);
}

void tst_CTemporaryDir::unique()
{
    const CTemporaryDir first;
    const CTemporaryDir second;

    QVERIFY(first.path() != second.path());
}

void tst_CTemporaryDir::removedWithObject()
{
    const FileTree outside({"f=1"_text});
    QString path;
    {
        const CTemporaryDir directory;
        path = directory.path();
        QVERIFY(QDir(path).mkpath("a/.b"_text));
#ifdef Q_OS_UNIX
        QVERIFY(QFile::link(outside.path(), path + "/link"_text));
#endif
    }
    QVERIFY(!path.isEmpty() && !QFileInfo::exists(path));
    QCOMPARE(outside.entries(), QStringList{"f=1"_text});
}

void tst_CTemporaryDir::keptWithoutAutoRemove()
{
    QString path;
    {
        CTemporaryDir directory;
        directory.setAutoRemove(false);
        QVERIFY(!directory.autoRemove());
        path = directory.path();
    }
    QVERIFY(QFileInfo(path).isDir());
    QVERIFY(QDir(path).removeRecursively());
}

void tst_CTemporaryDir::remove()
{
    CTemporaryDir directory;
    directory.setAutoRemove(false);
    QVERIFY(QDir(directory.path()).mkpath("a/b"_text));

    QVERIFY(directory.remove());
    QVERIFY(!QFileInfo::exists(directory.path()));
}

void tst_CTemporaryDir::invalid()
{
    const FileTree tree({"file=1"_text});
    const WithVariable unixName("TMPDIR", tree.path("file"_text));
    const WithVariable windowsName("TMP", tree.path("file"_text));
    const WithVariable otherName("TEMP", tree.path("file"_text));
    CTemporaryDir directory;
    if (directory.isValid()) {
        QSKIP("this system takes another temporary directory than the one that is set: not tested");
    }

    QCOMPARE(directory.path(), QString());
    QVERIFY(!directory.remove());
    QCOMPARE(tree.entries(), QStringList{"file=1"_text});
}

QTEST_GUILESS_MAIN(tst_CTemporaryDir)
#include "tst_CTemporaryDir.moc"
