#include <core/files/CDir.h>
#include <core/files/CPath.h>

#include <tests/support/FileTree.h>
#include <tests/support/MessageLog.h>

#include <QDirIterator>
#include <QtTest>

#include <type_traits>

using NtlxGlobal::EDirFilter;

namespace {

QStringList names(const QFileInfoList& infos)
{
    QStringList found;
    for (const QFileInfo& info : infos) {
        found << info.fileName();
    }
    return found;
}

QStringList paths(const QFileInfoList& infos)
{
    QStringList found;
    for (const QFileInfo& info : infos) {
        found << info.filePath();
    }
    return found;
}

// The order in which Qt walks a tree, asked of Qt itself.
QStringList walked(const QString& path, const QStringList& nameFilters, QDir::Filters filters)
{
    QStringList found;
    QDirIterator iterator(path, nameFilters, filters, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        found << iterator.next();
    }
    return found;
}

const QDir::Filters WALKED(0x6007);

const QStringList CONTENT{"b.mot=1"_text, "A.mot=2"_text,  "a.txt=3"_text,     ".hid.mot=4"_text,
                          "dir/"_text,    ".hidden/"_text, "dir/c.mot=5"_text, "dir/.d/e.mot=6"_text};

} // namespace

class tst_CDirList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toDirFilter_data();
    void toDirFilter();
    void entryInfoList_data();
    void entryInfoList();
    void sortsCapitalsFirst();
    void nameFilters();
    void qtFilters();
    void excludedNames();
    void recursive_data();
    void recursive();
    void recursiveNameFilters();
    void listFilesAndDirectories();
    void listOfFile();
    void relativePath();
    void nothingToList_data();
    void nothingToList();
    void getRelativeSubPath_data();
    void getRelativeSubPath();
    void relativeToCurrentDirectory();
    void joinsLikeCPath();
};

void tst_CDirList::toDirFilter_data()
{
    QTest::addColumn<quint32>("filter");
    QTest::addColumn<int>("flags");

    QTest::newRow("all") << quint32(NtlxGlobal::DIR_FILTER_ALL) << 0x6103;
    QTest::newRow("files") << quint32(NtlxGlobal::DIR_FILTER_FILES) << 0x6102;
    QTest::newRow("dirs") << quint32(NtlxGlobal::DIR_FILTER_DIRS) << 0x6101;
    QTest::newRow("3") << 3u << 0x6100;
    QTest::newRow("4") << 4u << 0x6100;
    QTest::newRow("largest") << 0xffffffffu << 0x6100;
}

void tst_CDirList::toDirFilter()
{
    QFETCH(quint32, filter);
    QFETCH(int, flags);

    static_assert(std::is_same_v<std::underlying_type_t<EDirFilter>, quint32>, "holds any 32-bit number");
    QCOMPARE(int(CDir::toDirFilter(static_cast<EDirFilter>(filter))), flags);
}

void tst_CDirList::entryInfoList_data()
{
    QTest::addColumn<quint32>("filter");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("all") << 0u << QStringList{".hid.mot"_text, ".hidden"_text, "A.mot"_text,
                                              "a.txt"_text,    "b.mot"_text,   "dir"_text};
    QTest::newRow("files") << 1u << QStringList{".hid.mot"_text, "A.mot"_text, "a.txt"_text, "b.mot"_text};
    QTest::newRow("dirs") << 2u << QStringList{".hidden"_text, "dir"_text};
    QTest::newRow("no filter") << 3u << QStringList();
}

void tst_CDirList::entryInfoList()
{
    QFETCH(quint32, filter);
    QFETCH(QStringList, expected);
    const FileTree tree(CONTENT);
    const auto dirFilter = static_cast<EDirFilter>(filter);

    QCOMPARE(names(CDir::entryInfoList(tree.path(), QStringList(), dirFilter)), expected);
    QCOMPARE(names(CDir::entryInfoList(tree.path(), dirFilter, QStringList())), expected);
    QCOMPARE(names(CDir::entryInfoList(tree.path(), QStringList(), CDir::toDirFilter(dirFilter))), expected);
}

// The order of QDir::Name: by the characters' codes, not as a dictionary has it.
void tst_CDirList::sortsCapitalsFirst()
{
    const FileTree tree({"a=1"_text, "B=2"_text, "c/"_text, "D/"_text});
    const QStringList expected{"B"_text, "D"_text, "a"_text, "c"_text};

    QCOMPARE(names(CDir::entryInfoList(tree.path(), {}, NtlxGlobal::DIR_FILTER_ALL)), expected);
    QCOMPARE(names(CDir::entryInfoList(tree.path(), NtlxGlobal::DIR_FILTER_ALL, {})), expected);
    QCOMPARE(names(CDir::entryInfoList(tree.path(), {}, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)),
             expected);
}

void tst_CDirList::nameFilters()
{
    const FileTree tree(CONTENT);

    const QStringList found =
        names(CDir::entryInfoList(tree.path(), {"*.mot"_text, "d*"_text}, NtlxGlobal::DIR_FILTER_ALL));
    QCOMPARE(found, QStringList({".hid.mot"_text, "A.mot"_text, "b.mot"_text, "dir"_text}));
}

void tst_CDirList::qtFilters()
{
    const FileTree tree(CONTENT);

    QCOMPARE(names(CDir::entryInfoList(tree.path(), {}, QDir::Files)),
             QStringList({"A.mot"_text, "a.txt"_text, "b.mot"_text}));
    QCOMPARE(names(CDir::entryInfoList(tree.path(), {"*.txt"_text}, QDir::Files | QDir::Dirs)),
             QStringList{"a.txt"_text});
    QCOMPARE(names(CDir::entryInfoList(tree.path(), {}, QDir::Filters())), QStringList());
}

void tst_CDirList::excludedNames()
{
    const FileTree tree(CONTENT);

    const QStringList found = names(CDir::entryInfoList(
        tree.path(), NtlxGlobal::DIR_FILTER_ALL,
        {"a.mot"_text, "a.txt"_text, "dir"_text, ".hidden"_text, "missing"_text, "b.*"_text}));
    QCOMPARE(found, QStringList({".hid.mot"_text, "A.mot"_text, "b.mot"_text}));
}

void tst_CDirList::recursive_data()
{
    QTest::addColumn<quint32>("filter");
    QTest::addColumn<QStringList>("sorted");

    QTest::newRow("all") << 0u << QStringList{".hid.mot"_text, ".hidden"_text,      "A.mot"_text,
                                              "a.txt"_text,    "b.mot"_text,        "dir"_text,
                                              "dir/.d"_text,   "dir/.d/e.mot"_text, "dir/c.mot"_text};
    QTest::newRow("files") << 1u << QStringList{".hid.mot"_text, "A.mot"_text,        "a.txt"_text,
                                                "b.mot"_text,    "dir/.d/e.mot"_text, "dir/c.mot"_text};
    QTest::newRow("dirs") << 2u << QStringList{".hidden"_text, "dir"_text, "dir/.d"_text};
    QTest::newRow("no filter") << 3u << QStringList();
}

void tst_CDirList::recursive()
{
    QFETCH(quint32, filter);
    QFETCH(QStringList, sorted);
    const FileTree tree(CONTENT);
    const auto dirFilter = static_cast<EDirFilter>(filter);

    const QStringList found = paths(CDir::entryInfoListRecursive(tree.path(), {}, dirFilter));
    QCOMPARE(found, walked(tree.path(), {}, CDir::toDirFilter(dirFilter)));
    QCOMPARE(found, paths(CDir::entryInfoListRecursive(tree.path(), {}, CDir::toDirFilter(dirFilter))));
    QStringList relative;
    for (const QString& path : found) {
        relative << path.mid(tree.path().size() + 1);
    }
    relative.sort();
    QCOMPARE(relative, sorted);
}

void tst_CDirList::recursiveNameFilters()
{
    const FileTree tree(CONTENT);

    QStringList found =
        paths(CDir::entryInfoListRecursive(tree.path(), {"?.mot"_text}, NtlxGlobal::DIR_FILTER_FILES));
    QCOMPARE(found, walked(tree.path(), {"?.mot"_text}, QDir::Filters(0x6102)));
    found.sort();
    QCOMPARE(found, QStringList({tree.path("A.mot"_text), tree.path("b.mot"_text),
                                 tree.path("dir/.d/e.mot"_text), tree.path("dir/c.mot"_text)}));
}

void tst_CDirList::listFilesAndDirectories()
{
    const FileTree tree(CONTENT);

    const QStringList found = CDir::listFilesAndDirectories(tree.path());
    QCOMPARE(found, QStringList{tree.path()} + walked(tree.path(), {}, WALKED));
    QCOMPARE(paths(CDir::listFileAndDirInfos(tree.path())), found);
    QStringList sorted = found;
    sorted.sort();
    QCOMPARE(sorted,
             QStringList({tree.path(), tree.path("A.mot"_text), tree.path("a.txt"_text),
                          tree.path("b.mot"_text), tree.path("dir"_text), tree.path("dir/c.mot"_text)}));
}

void tst_CDirList::listOfFile()
{
    const FileTree tree(CONTENT);

    QCOMPARE(CDir::listFilesAndDirectories(tree.path("a.txt"_text)), QStringList{tree.path("a.txt"_text)});
    QCOMPARE(paths(CDir::listFileAndDirInfos(tree.path("a.txt"_text))), QStringList{tree.path("a.txt"_text)});
}

void tst_CDirList::relativePath()
{
    const FileTree tree(CONTENT);
    const InDirectory inside(tree.path());

    QCOMPARE(CDir::listFilesAndDirectories("dir"_text), QStringList({"dir"_text, "dir/c.mot"_text}));
    QCOMPARE(names(CDir::entryInfoList("dir"_text, {}, QDir::Files)), QStringList{"c.mot"_text});
}

void tst_CDirList::nothingToList_data()
{
    QTest::addColumn<QString>("path");

    const QChar zero(QChar::Null);
    QTest::newRow("empty") << QString();
    QTest::newRow("missing") << "missing"_text;
    QTest::newRow("zero character behind a directory") << "dir"_text + zero;
    QTest::newRow("zero character in a name") << "dir"_text + zero + "x"_text;
    QTest::newRow("name too long") << QString(5000, QLatin1Char('n'));
}

void tst_CDirList::nothingToList()
{
    QFETCH(QString, path);
    const FileTree tree(CONTENT);
    const InDirectory inside(tree.path());
    const MessageLog log;

    QCOMPARE(CDir::entryInfoList(path, {}, NtlxGlobal::DIR_FILTER_ALL), QFileInfoList());
    QCOMPARE(CDir::entryInfoList(path, NtlxGlobal::DIR_FILTER_ALL, {}), QFileInfoList());
    QCOMPARE(CDir::entryInfoList(path, {}, WALKED), QFileInfoList());
    QCOMPARE(CDir::entryInfoListRecursive(path, {}, NtlxGlobal::DIR_FILTER_ALL), QFileInfoList());
    QCOMPARE(CDir::entryInfoListRecursive(path, {}, WALKED), QFileInfoList());
    QCOMPARE(CDir::listFilesAndDirectories(path), QStringList{path});
    QCOMPARE(CDir::listFileAndDirInfos(path).size(), 1);
    QCOMPARE(log.messages(), QStringList());
}

void tst_CDirList::getRelativeSubPath_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("relative");

    QTest::newRow("equal") << "/a/b"_text
                           << "/a/b"_text
                           << ""_text;
    QTest::newRow("equal, relative") << "a"_text
                                     << "a"_text
                                     << ""_text;
    QTest::newRow("both empty") << ""_text
                                << ""_text
                                << ""_text;
    QTest::newRow("below") << "/a"_text
                           << "/a/b/c.txt"_text
                           << "b/c.txt"_text;
    QTest::newRow("below, base with separator") << "/a/"_text
                                                << "/a/b"_text
                                                << "b"_text;
    QTest::newRow("same directory, other spelling") << "/a"_text
                                                    << "/a/"_text
                                                    << "."_text;
    QTest::newRow("above") << "/a/b"_text
                           << "/a"_text
                           << "../"_text;
    QTest::newRow("beside") << "/a/b"_text
                            << "/a/c/d"_text
                            << "../c/d"_text;
    QTest::newRow("a name's start is no directory") << "/a/b"_text
                                                    << "/a/bc"_text
                                                    << "../bc"_text;
    QTest::newRow("dots") << "/a/./b"_text
                          << "/a/x/../b/c"_text
                          << "c"_text;
    QTest::newRow("both relative: the path, cleaned") << "a"_text
                                                      << "a/./b//c"_text
                                                      << "a/b/c"_text;
    QTest::newRow("both relative, base with dot") << "./a"_text
                                                  << "a/b"_text
                                                  << "a/b"_text;
    QTest::newRow("both relative, path above") << "a"_text
                                               << "../b"_text
                                               << "../b"_text;
    QTest::newRow("relative, other spelling") << "a"_text
                                              << "a/"_text
                                              << "a"_text;
    QTest::newRow("relative to an absolute base") << "/a"_text
                                                  << "b/c"_text
                                                  << "b/c"_text;
    QTest::newRow("placeholders") << "/%1"_text
                                  << "/%1/%2 %n"_text
                                  << "%2 %n"_text;
#ifdef Q_OS_UNIX
    // Qt keeps ".." at the root as a step of its own; the root is its own parent, so the result leads there all the same.
    QTest::newRow("base above the root") << "//../a"_text
                                         << "/b"_text
                                         << "../../b"_text;
#endif
}

void tst_CDirList::getRelativeSubPath()
{
    QFETCH(QString, base);
    QFETCH(QString, path);
    QFETCH(QString, relative);

    QCOMPARE(CDir::getRelativeSubPath(base, path), relative);
    QCOMPARE(CDir::getRelativeSubPath(QDir::toNativeSeparators(base), path), relative);
    QCOMPARE(CDir::getRelativeSubPath(base, QDir::toNativeSeparators(path)), relative);
}

void tst_CDirList::relativeToCurrentDirectory()
{
    const FileTree tree({"a/b/"_text});
    const InDirectory inside(tree.path());

    QCOMPARE(CDir::getRelativeSubPath("a"_text, tree.path("a/b"_text)), "b"_text);
    QCOMPARE(CDir::getRelativeSubPath(tree.path("a"_text), "a/b"_text),
             "a/b"_text); // not looked up from here
}

void tst_CDirList::joinsLikeCPath()
{
    QCOMPARE(CDir::addPathToPath("a"_text, "b"_text), "a/b/"_text);
    QCOMPARE(CDir::addPathToPath("a/"_text, ""_text), "a/"_text);
    QCOMPARE(CDir::addFileNameToPath("a"_text, "f.txt"_text), "a/f.txt"_text);
    QCOMPARE(CDir::addFileNameToPath("a/"_text, "f.txt"_text), "a/f.txt"_text);
}

QTEST_GUILESS_MAIN(tst_CDirList)
#include "tst_CDirList.moc"
