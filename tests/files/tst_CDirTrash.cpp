#include <core/files/CDir.h>

#include <tests/support/FileTree.h>
#include <tests/support/MessageLog.h>

#include <QtTest>

namespace {

const QString TRASH = "data/Trash/"_text;

} // namespace

/// The trash of freedesktop.org. Home, data directory and what is trashed lie in one temporary directory.
class tst_CDirTrash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trashed_data();
    void trashed();
    void sameNameTwice();
    void dataDirectoryOfHome();
    void relativePath();
    void linkAsLink_data();
    void linkAsLink();
    void fails_data();
    void fails();
    void pathThroughLink();
};

void tst_CDirTrash::trashed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QByteArray>("note"); // the path as the note has it; empty: as Qt writes an odd one

    QTest::newRow("file") << "file"_text << QStringList{"file=1"_text} << QByteArray("file");
    QTest::newRow("directory") << "dir"_text << QStringList{"dir/"_text, "dir/.f=2"_text}
                               << QByteArray("dir");
    QTest::newRow("directory, separator behind")
        << "dir/"_text << QStringList{"dir/"_text, "dir/.f=2"_text} << QByteArray("dir");
    QTest::newRow("hidden file") << ".hidden"_text << QStringList{".hidden=3"_text} << QByteArray(".hidden");
    QTest::newRow("odd name") << "%s %n"_text << QStringList{"%s %n=4"_text} << QByteArray();
}

void tst_CDirTrash::trashed()
{
    QFETCH(QString, name);
    QFETCH(QStringList, entries);
    QFETCH(QByteArray, note);
    const FileTree tree({"from/file=1"_text, "from/dir/.f=2"_text, "from/.hidden=3"_text, "from/%s %n=4"_text,
                         "home/"_text, "current/"_text});
    const WithVariable home("HOME", tree.path("home"_text));
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text)); // it does not exist yet
    const InDirectory inside(tree.path("current"_text));
    const int before = tree.entries("from"_text).size();
    const MessageLog log;

    QCOMPARE(CDir::moveToTrash(tree.path("from/"_text + name)), int(CDir::TRASH_DONE));
    QCOMPARE(tree.entries(TRASH + "files"_text), entries);
    QCOMPARE(tree.entries("from"_text).size(), before - entries.size());
    const QString bare = name.section(QLatin1Char('/'), 0, 0);
    const QByteArray written = tree.read(TRASH + "info/"_text + bare + ".trashinfo"_text);
    const QByteArray from = QFile::encodeName(tree.path("from/"_text));
    const QByteArray head = "[Trash Info]\nPath=" + from + note + (note.isEmpty() ? "" : "\n");
    QVERIFY2(written.startsWith(head), written.constData());
    QCOMPARE(tree.entries(TRASH + "info"_text).size(), 1);
    QCOMPARE(tree.entries("current"_text), QStringList()); // where Qt's trash is when there is none
    QCOMPARE(tree.entries("home"_text), QStringList());
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirTrash::sameNameTwice()
{
    const FileTree tree({"a/file=1"_text, "b/file=2"_text});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text));

    QCOMPARE(CDir::moveToTrash(tree.path("a/file"_text)), int(CDir::TRASH_DONE));
    QCOMPARE(CDir::moveToTrash(tree.path("b/file"_text)), int(CDir::TRASH_DONE));
    const QStringList files = tree.entries(TRASH + "files"_text);
    QCOMPARE(files.size(), 2);
    QVERIFY(files.contains("file=1"_text));
    QCOMPARE(files.filter(QRegularExpression("^file.+=2$"_text)).size(), 1);
}

void tst_CDirTrash::dataDirectoryOfHome()
{
    const FileTree tree({"home/"_text, "file=1"_text});
    const WithVariable home("HOME", tree.path("home"_text));
    const WithVariable data("XDG_DATA_HOME", QString());

    QCOMPARE(CDir::moveToTrash(tree.path("file"_text)), int(CDir::TRASH_DONE));
    QCOMPARE(tree.entries("home/.local/share/Trash/files"_text), QStringList{"file=1"_text});
    const QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const QFile::Permissions all = QFile::permissions(tree.path("home/.local/share/Trash"_text));
    QCOMPARE(all & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser), own);
}

void tst_CDirTrash::relativePath()
{
    const FileTree tree({"a/file=1"_text});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text));
    const InDirectory inside(tree.path("a"_text));

    QCOMPARE(CDir::moveToTrash("file"_text), int(CDir::TRASH_DONE));
    QCOMPARE(tree.entries("a"_text), QStringList());
    QCOMPARE(tree.entries(TRASH + "files"_text), QStringList{"file=1"_text});
}

void tst_CDirTrash::linkAsLink_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("link to a file") << "to-file"_text;
    QTest::newRow("link to a directory") << "to-dir"_text;
    QTest::newRow("link to a directory, separator behind") << "to-dir/"_text;
}

void tst_CDirTrash::linkAsLink()
{
    QFETCH(QString, name);
    const FileTree tree({"outside/f=1"_text, "to-file->outside/f"_text, "to-dir->outside"_text});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text));

    QCOMPARE(CDir::moveToTrash(tree.path(name)), int(CDir::TRASH_DONE));
    QCOMPARE(tree.entries("outside"_text), QStringList{"f=1"_text});
    const QString bare = name.section(QLatin1Char('/'), 0, 0);
    QVERIFY(QFileInfo(tree.path(TRASH + "files/"_text + bare)).isSymLink());
    QVERIFY(!QFileInfo(tree.path(bare)).isSymLink());
}

void tst_CDirTrash::fails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("inTheWay");

    QTest::newRow("link to nothing") << "nothing"_text
                                     << "unused="_text;
    QTest::newRow("no room for the note's name") << QString(250, QLatin1Char('n')) << "unused="_text;
    QTest::newRow("the data directory is a file") << "file"_text
                                                  << "data="_text;
    QTest::newRow("the trash is a file") << "file"_text
                                         << "data/Trash="_text;
    QTest::newRow("the trash's files are a file") << "file"_text
                                                  << "data/Trash/files="_text;
    QTest::newRow("the trash's notes are a file") << "file"_text
                                                  << "data/Trash/info="_text;
    QTest::newRow("the trash's notes lead nowhere") << "file"_text
                                                    << "data/Trash/info->missing"_text;
    QTest::newRow("the trash itself") << "data"_text
                                      << "data/Trash/info/"_text;
}

void tst_CDirTrash::fails()
{
    QFETCH(QString, name);
    QFETCH(QString, inTheWay);
    const FileTree tree({"nothing->missing"_text, QString(250, QLatin1Char('n')) + "=1"_text, "file=2"_text,
                         "current/"_text, inTheWay});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text));
    const InDirectory inside(tree.path("current"_text));
    const auto kept = [&] {
        return tree.entries().filter(QRegularExpression("^(file|n|nothing|current|unused)"_text));
    };
    const QStringList before = kept();

    QCOMPARE(CDir::moveToTrash(tree.path(name)), int(CDir::TRASH_FAILED));
    QCOMPARE(kept(), before);
    QCOMPARE(tree.entries("current"_text), QStringList());
    QVERIFY(tree.entries("data"_text).filter("trashinfo"_text).isEmpty());
}

// "link/.." is another directory for the system than for the text: neither is moved.
void tst_CDirTrash::pathThroughLink()
{
    const FileTree tree({"a/link->../b/target"_text, "b/target/"_text});
    const WithVariable home("HOME", tree.path());
    const WithVariable data("XDG_DATA_HOME", tree.path("data"_text));
    const QStringList before = tree.entries();

    QCOMPARE(CDir::moveToTrash(tree.path("a/link/.."_text)), int(CDir::TRASH_FAILED));
    QCOMPARE(tree.entries(), before);
}

QTEST_GUILESS_MAIN(tst_CDirTrash)
#include "tst_CDirTrash.moc"
