#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/MessageLog.h>
#include <tests/support/PrintedRun.h>

#include <QtTest>

namespace {

const QString WITH_ZERO = "a"_text + QChar(QChar::Null);

} // namespace

/// Copying without links: those have tests of their own.
class tst_CDirCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyDirectory_data();
    void copyDirectory();
    void copyDirectoryFails_data();
    void copyDirectoryFails();
    void copyFile_data();
    void copyFile();
    void copyFileRelative();
    void copyFileContent_data();
    void copyFileContent();
    void copyFileFails_data();
    void copyFileFails();
    void copyFileF_data();
    void copyFileF();
    void copyFileFRefuses_data();
    void copyFileFRefuses();
    void copyFileFWithoutSourceLeavesNeither();
    void copyFileFReplacesReadOnly();
};

void tst_CDirCopy::copyDirectory_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("existing") << "there"_text;
    QTest::newRow("new") << "new"_text;
    QTest::newRow("with parents") << "new/a/b"_text;
    QTest::newRow("separator behind") << "new/"_text;
    QTest::newRow("odd name") << "100%s %n"_text;
}

void tst_CDirCopy::copyDirectory()
{
    QFETCH(QString, name);
    const FileTree tree({"source/f=1"_text, "there/g=2"_text});

    const SPrintedRun done =
        printedRun([&] { return CDir::copyDirectory(tree.path("source"_text), tree.path(name)); });
    QVERIFY(done.result);
    QCOMPARE(done.output, QByteArray());
    QVERIFY(QFileInfo(tree.path(name)).isDir());
    QCOMPARE(QFileInfo::exists(tree.path(name + "/f"_text)), false); // no contents
    QCOMPARE(tree.read("there/g"_text), QByteArray("2"));

    const InDirectory inside(tree.path("source"_text));
    QVERIFY(CDir::copyDirectory("missing"_text, "relative/a"_text));
    QVERIFY(QFileInfo(tree.path("source/relative/a"_text)).isDir());
}

void tst_CDirCopy::copyDirectoryFails_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("file in the place") << "file"_text;
    QTest::newRow("file in the way") << "file/a/b"_text;
    QTest::newRow("odd name") << "file/100%s %n"_text;
    QTest::newRow("name too long") << QString(300, QLatin1Char('n'));
}

void tst_CDirCopy::copyDirectoryFails()
{
    QFETCH(QString, name);
    const FileTree tree({"source/f=1"_text, "file=2"_text});
    const QStringList before = tree.entries();

    const SPrintedRun done =
        printedRun([&] { return CDir::copyDirectory(tree.path("source"_text), tree.path(name)); });
    QVERIFY(!done.result);
    QCOMPARE(done.output, "\nCDir::copyDirectory unable to create " + tree.path(name).toLocal8Bit());
    QCOMPARE(tree.entries(), before);
}

void tst_CDirCopy::copyFile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("same directory") << "copy"_text;
    QTest::newRow("new directory") << "new/a/copy"_text;
    QTest::newRow("odd name") << "new%1/%s%n"_text;
    QTest::newRow("hidden") << ".new/.copy"_text;
}

void tst_CDirCopy::copyFile()
{
    QFETCH(QString, name);
    const FileTree tree({"source=text"_text});

    const SPrintedRun done =
        printedRun([&] { return CDir::copyFile(tree.path("source"_text), tree.path(name)); });
    QVERIFY(done.result);
    QCOMPARE(done.output, QByteArray());
    QCOMPARE(tree.read(name), QByteArray("text"));
    QCOMPARE(tree.read("source"_text), QByteArray("text"));
}

void tst_CDirCopy::copyFileRelative()
{
    const FileTree tree({"a/source=text"_text});
    const InDirectory inside(tree.path("a"_text));

    QVERIFY(CDir::copyFile("source"_text, "copy"_text));
    QVERIFY(CDir::copyFile("./source"_text, "../b/copy"_text));
    QVERIFY(CDir::copyFileF("source"_text, "forced"_text));
    QCOMPARE(tree.entries(), QStringList({"a/"_text, "a/copy=text"_text, "a/forced=text"_text,
                                          "a/source=text"_text, "b/"_text, "b/copy=text"_text}));
}

void tst_CDirCopy::copyFileContent_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 4095, 4096, 4097, 1000000}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void tst_CDirCopy::copyFileContent()
{
    QFETCH(int, size);
    const FileTree tree;
    QByteArray content(size, '\0');
    for (int i = 0; i < size; ++i) {
        content[i] = static_cast<char>(i % 251);
    }
    QFile file(tree.path("source"_text));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == size);
    file.close();

    QVERIFY(CDir::copyFile(file.fileName(), tree.path("copy"_text)));
    QCOMPARE(tree.read("copy"_text), content);
    QVERIFY(CDir::copyFileF(file.fileName(), tree.path("copy"_text)));
    QCOMPARE(tree.read("copy"_text), content);
}

void tst_CDirCopy::copyFileFails_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QStringList>("added");

    QTest::newRow("existing file") << "source"_text
                                   << "file"_text << QStringList();
    QTest::newRow("itself") << "source"_text
                            << "source"_text << QStringList();
    QTest::newRow("existing directory") << "source"_text
                                        << "directory"_text << QStringList();
    QTest::newRow("missing source") << "missing"_text
                                    << "copy"_text << QStringList();
    QTest::newRow("missing source, new directory") << "missing"_text
                                                   << "new/copy"_text << QStringList{"new/"_text};
    QTest::newRow("directory as source") << "directory"_text
                                         << "copy"_text << QStringList();
    QTest::newRow("file in the way") << "source"_text
                                     << "file/copy"_text << QStringList();
    QTest::newRow("no name") << "source"_text
                             << "new/"_text << QStringList{"new/"_text};
    QTest::newRow("name too long") << "source"_text << QString(300, QLatin1Char('n')) << QStringList();
    QTest::newRow("odd name") << "missing"_text
                              << "%s%n"_text << QStringList();
    QTest::newRow("name outside ASCII") << "missing"_text
                                        << "\u00e4"_text << QStringList();
}

void tst_CDirCopy::copyFileFails()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QStringList, added);
    const FileTree tree({"source=1"_text, "file=2"_text, "directory/f=3"_text});
    QStringList expected = tree.entries() + added;
    expected.sort();
    const MessageLog log;

    const SPrintedRun done = printedRun([&] { return CDir::copyFile(tree.path(from), tree.path(to)); });
    QVERIFY(!done.result);
    QCOMPARE(done.output, "\nCDir::copyFile unable to copy " + tree.path(to).toLocal8Bit());
    QCOMPARE(tree.entries(), expected);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirCopy::copyFileF_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("new file") << "new"_text;
    QTest::newRow("new directory") << "new/a/file"_text;
    QTest::newRow("existing file") << "directory/file"_text;
    QTest::newRow("existing hidden file") << "directory/.file"_text;
    QTest::newRow("placeholders in the directory") << "100%1%2/%2"_text;
    QTest::newRow("odd name") << "directory/%s%n"_text;
    QTest::newRow("name with ~") << "directory/~file"_text;
}

void tst_CDirCopy::copyFileF()
{
    QFETCH(QString, name);
    const FileTree tree({"source=new"_text, "directory/file=old"_text, "directory/.file=old"_text,
                         "100%1%2/%2=old"_text, "directory/%s%n=old"_text});
    const QStringList before = tree.entries();
    const bool hadFile = QFileInfo::exists(tree.path(name));
    const MessageLog log;

    const SPrintedRun done =
        printedRun([&] { return CDir::copyFileF(tree.path("source"_text), tree.path(name)); });
    QVERIFY(done.result);
    QCOMPARE(done.output, QByteArray());
    QCOMPARE(tree.read(name), QByteArray("new"));
    QCOMPARE(tree.read("source"_text), QByteArray("new"));
    if (hadFile) {
        // The one file has changed, and nothing has come or gone.
        QStringList expected = before;
        expected.replace(expected.indexOf(name + "=old"_text), name + "=new"_text);
        expected.sort();
        QCOMPARE(tree.entries(), expected);
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirCopy::copyFileFRefuses_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");

    QTest::newRow("the same path") << "source"_text
                                   << "source"_text;
    QTest::newRow("the same file through .") << "source"_text
                                             << "./source"_text;
    QTest::newRow("the same file through ..") << "source"_text
                                              << "directory/../source"_text;
    QTest::newRow("existing directory") << "source"_text
                                        << "directory"_text;
    QTest::newRow("existing directory, separator behind") << "source"_text
                                                          << "directory/"_text;
    QTest::newRow("the backup's name is a file") << "source"_text
                                                 << "a"_text;
    QTest::newRow("the backup's name is a directory") << "source"_text
                                                      << "b"_text;
    QTest::newRow("the backup's name is the source") << "~a"_text
                                                     << "a"_text;
    QTest::newRow("the backup's name is too long") << "source"_text << QString(255, QLatin1Char('n'));
    QTest::newRow("zero character in the source") << WITH_ZERO << "source"_text;
    QTest::newRow("zero character in the destination") << "source"_text << WITH_ZERO;
}

void tst_CDirCopy::copyFileFRefuses()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const FileTree tree({"source=1"_text, "directory/f=2"_text, "a=3"_text, "~a=4"_text, "b=5"_text,
                         "~b/"_text, QString(255, QLatin1Char('n')) + "=6"_text});
    const QStringList before = tree.entries();
    const InDirectory inside(tree.path());

    QVERIFY(!CDir::copyFileF(from, to));
    QCOMPARE(tree.entries(), before);
    QVERIFY(!CDir::copyFileF(tree.path(from), tree.path(to)));
    QVERIFY(!CDir::copyFileF(from, tree.path(to)));
    QVERIFY(!CDir::copyFileF(QString(), "source"_text));
    QVERIFY(!CDir::copyFileF("source"_text, QString()));
    QCOMPARE(tree.entries(), before);
}

// The backup is removed whatever the copy gave: rather no file than an old one.
void tst_CDirCopy::copyFileFWithoutSourceLeavesNeither()
{
    const FileTree tree({"file=old"_text, "other=1"_text});

    QVERIFY(!CDir::copyFileF(tree.path("missing"_text), tree.path("file"_text)));
    QCOMPARE(tree.entries(), QStringList{"other=1"_text});
}

void tst_CDirCopy::copyFileFReplacesReadOnly()
{
    const FileTree tree({"source=new"_text, "file=old"_text});
    QVERIFY(QFile::setPermissions(tree.path("file"_text), QFile::ReadOwner));

    QVERIFY(CDir::copyFileF(tree.path("source"_text), tree.path("file"_text)));
    QCOMPARE(tree.entries(), QStringList({"file=new"_text, "source=new"_text}));
}

QTEST_GUILESS_MAIN(tst_CDirCopy)
#include "tst_CDirCopy.moc"
