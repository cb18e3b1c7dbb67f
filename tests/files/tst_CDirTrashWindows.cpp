#include <core/files/CDir.h>

#include <tests/support/FileTree.h>

#include <QtTest>

/// The shell's recycle bin.
class tst_CDirTrashWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trashed_data();
    void trashed();
    void pathTooLong();
};

void tst_CDirTrashWindows::trashed_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("file") << "file"_text;
    QTest::newRow("directory") << "dir"_text;
    QTest::newRow("directory, separator behind") << "dir/"_text;
    QTest::newRow("directory, native separators") << "dir\\sub"_text;
}

void tst_CDirTrashWindows::trashed()
{
    QFETCH(QString, name);
    const FileTree tree({"file=1"_text, "dir/sub/f=2"_text, "stays=3"_text});

    QCOMPARE(CDir::moveToTrash(tree.path(name)), int(CDir::TRASH_DONE));
    QVERIFY(!QFileInfo::exists(tree.path(name)));
    QCOMPARE(tree.read("stays"_text), QByteArray("3"));

    QVERIFY(tree.make({"file=1"_text, "dir/sub/"_text}));
    const InDirectory inside(tree.path());
    QCOMPARE(CDir::moveToTrash(name), int(CDir::TRASH_DONE));
    QVERIFY(!QFileInfo::exists(tree.path(name)));
}

void tst_CDirTrashWindows::pathTooLong()
{
    const FileTree tree;
    const int room = 260 - tree.path().size() - 1; // for the directory's name, its "/" and the file's name
    const QString directory(100, QLatin1Char('d'));
    const QString file(room - 101, QLatin1Char('f'));
    QVERIFY(tree.make({directory + "/"_text + file + "=1"_text}));
    QCOMPARE(tree.path(directory + "/"_text + file).size(), 260);

    QCOMPARE(CDir::moveToTrash(tree.path(directory + "/"_text + file)), int(CDir::TRASH_FAILED));
    QCOMPARE(tree.read(directory + "/"_text + file), QByteArray("1"));
}

QTEST_GUILESS_MAIN(tst_CDirTrashWindows)
#include "tst_CDirTrashWindows.moc"
