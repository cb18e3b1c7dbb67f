#include <tests/files/TarArchive.h>
#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

/// `tar extract`: what it makes, what it refuses, and that nothing outside the folder changes.
class tst_tlxExtract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void extracts();
    void makesLinks();
    void namesOfOtherSystems_data();
    void namesOfOtherSystems();
    void extractsNamedMembers();
    void overwritesWithForceAlone();
    void hostile_data();
    void hostile();
    void throughLinks_data();
    void throughLinks();
    void manyNames();
    void cutArchive();
};

namespace {

QByteArray member(const QByteArray& name, char typeflag = '0', const QByteArray& target = {},
                  const QByteArray& data = {})
{
    STarMember one;
    one.name = name;
    one.typeflag = typeflag;
    one.linkName = target;
    one.data = data;
    return tarMember(one);
}

// A folder to extract into, with the archive and something to spoil beside it.
class Place
{
public:
    explicit Place(const QByteArray& archive)
        : mTree({"in/"_text, "in/sub/"_text, "victim=precious"_text, "other/"_text})
    {
        QFile file(mTree.path() + "/x.tar"_text);
        file.open(QIODevice::WriteOnly);
        file.write(archive);
    }

    STlxRun extract(const QStringList& arguments = {}) const
    {
        return runTlx(QStringList{"tar"_text, "extract"_text, mTree.path() + "/x.tar"_text, "-C"_text,
                                  mTree.path("in"_text), "--json"_text}
                      + arguments);
    }

    const FileTree& tree() const { return mTree; }

    // Everything but the folder.
    QStringList outside() const
    {
        QStringList entries = mTree.entries();
        for (int i = entries.size(); i-- > 0;) {
            if (entries.at(i).startsWith(QLatin1String("in/"))) {
                entries.removeAt(i);
            }
        }
        return entries;
    }

private:
    FileTree mTree;
};

QString messageOf(const STlxRun& run)
{
    return run.json().value(QLatin1String("error")).toObject().value(QLatin1String("message")).toString();
}

} // namespace

void tst_tlxExtract::extracts()
{
    const QByteArray longName = QByteArray(90, 'd') + "/file";
    STarMember prefixed;
    prefixed.name = "file";
    prefixed.prefix = QByteArray(90, 'd');
    prefixed.data = "long";
    const Place place(member("d/", '5') + member("d/a", '0', {}, "1") + member("./new/b", '0', {}, "22")
                      + member("empty") + tarMember(prefixed) + tarEnd());
    const STlxRun run = place.extract();

    QVERIFY2(run.exitCode == 0, run.output.constData());
    QStringList expected{"d/"_text,
                         "d/a=1"_text,
                         "empty="_text,
                         "new/"_text,
                         "new/b=22"_text,
                         "sub/"_text,
                         QString::fromLatin1(QByteArray(90, 'd')) + "/"_text,
                         QString::fromLatin1(longName) + "=long"_text};
    expected.sort();
    QCOMPARE(place.tree().entries("in"_text), expected);
    const QJsonArray rows = run.result().value(QLatin1String("extracted")).toArray();
    QCOMPARE(rows.size(), 5);
    QCOMPARE(rows[1][QLatin1String("size")].toString(), "1"_text);
}

// A link, or nothing in its place and a reason: no copy, and no shortcut of the shell.
void tst_tlxExtract::makesLinks()
{
    const Place place(member("d/up", '2', "../new/b") + member("new/b", '0', {}, "22") + tarEnd());
    const STlxRun run = place.extract();

    QStringList expected{"d/"_text, "new/"_text, "new/b=22"_text, "sub/"_text};
#ifdef Q_OS_WIN
    if (run.exitCode != 0) {
        QCOMPARE(
            messageOf(run),
            "d/up: no symbolic link can be made: developer mode or an administrator's rights are needed"_text);
        QCOMPARE(place.tree().entries("in"_text), expected);
        QSKIP("this user or system makes no links");
    }
#endif
    QCOMPARE(run.exitCode, 0);
    expected.insert(1, "d/up->../new/b"_text);
    QCOMPARE(place.tree().entries("in"_text), expected);
}

void tst_tlxExtract::namesOfOtherSystems_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("refusal"); // of Windows; elsewhere the name is one like others

    const QString colon = "a name with a colon or backslash"_text;
    const QString device = "the name of a device"_text;
    const QString cut = "a name that ends in a dot or blank"_text;
    QTest::newRow("drive") << member("c:x", '0', {}, "1") << "c:x: an absolute name"_text;
    QTest::newRow("stream of a file") << member("file:b", '0', {}, "1") << "file:b: "_text + colon;
    QTest::newRow("up by backslashes") << member("..\\victim", '0', {}, "1") << "..\\victim: "_text + colon;
    QTest::newRow("device") << member("nul", '0', {}, "1") << "nul: "_text + device;
    QTest::newRow("device with an ending")
        << member("d/COM1.txt", '0', {}, "1") << "d/COM1.txt: "_text + device;
    QTest::newRow("device as a directory") << member("Con/a", '0', {}, "1") << "Con/a: "_text + device;
    QTest::newRow("dot at the end") << member("a.", '0', {}, "1") << "a.: "_text + cut;
    QTest::newRow("blank at the end") << member("d/a ", '0', {}, "1") << "d/a : "_text + cut;
    QTest::newRow("up and a blank") << member(".. /victim", '0', {}, "1") << ".. /victim: "_text + cut;
    QTest::newRow("link up by backslashes")
        << member("l", '2', "..\\victim") << "l: a link that leads out of the folder, to ..\\victim"_text;
    QTest::newRow("link to a drive") << member("l", '2', "c:x")
                                     << "l: a link that leads out of the folder, to c:x"_text;
}

void tst_tlxExtract::namesOfOtherSystems()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, refusal);
    const Place place(archive + tarEnd());
    const QStringList before = place.outside();

    const STlxRun run = place.extract();

    const QStringList inside = place.tree().entries("in"_text);
#ifdef Q_OS_WIN
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(messageOf(run), refusal + "; nothing was extracted"_text);
    QCOMPARE(inside, QStringList{"sub/"_text});
#else
    QCOMPARE(run.exitCode, 0);
    QVERIFY(inside.size() > 1);
#endif
    QCOMPARE(place.outside(), before);
}

void tst_tlxExtract::extractsNamedMembers()
{
    const Place place(member("a", '0', {}, "1") + member("b", '0', {}, "2") + member("c", '0', {}, "3")
                      + tarEnd());

    QCOMPARE(place.extract({"c"_text, "a"_text}).exitCode, 0);
    QCOMPARE(place.tree().entries("in"_text), (QStringList{"a=1"_text, "c=3"_text, "sub/"_text}));

    const STlxRun missing = place.extract({"b"_text, "none"_text});
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(messageOf(missing), "no such member: none: `tlx tar list` shows the names"_text);
    QCOMPARE(place.tree().entries("in"_text), (QStringList{"a=1"_text, "c=3"_text, "sub/"_text}));
}

void tst_tlxExtract::overwritesWithForceAlone()
{
    const Place place(member("a", '0', {}, "new") + member("b", '0', {}, "2") + tarEnd());
    QVERIFY(place.tree().make({"in/a=old"_text}));

    const STlxRun refused = place.extract();
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(messageOf(refused), "a: it already exists; --force replaces it; nothing was extracted"_text);
    QCOMPARE(place.tree().entries("in"_text), (QStringList{"a=old"_text, "sub/"_text}));

    QCOMPARE(place.extract({"--force"_text}).exitCode, 0);
    QCOMPARE(place.tree().entries("in"_text), (QStringList{"a=new"_text, "b=2"_text, "sub/"_text}));
}

void tst_tlxExtract::hostile_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("message"); // empty: the harmless members are extracted, the others said

    const QString nothing = "; nothing was extracted"_text;
    QTest::newRow("up") << member("../victim", '0', {}, "x")
                        << "../victim: a name with \"..\""_text + nothing;
    QTest::newRow("up in the middle")
        << member("a/../../victim", '0', {}, "x") << "a/../../victim: a name with \"..\""_text + nothing;
    QTest::newRow("directory up") << member("../made/", '5') << "../made/: a name with \"..\""_text + nothing;
    QTest::newRow("absolute") << member("/tmp/tlx-hostile", '0', {}, "x")
                              << "/tmp/tlx-hostile: an absolute name"_text + nothing;
    QTest::newRow("link to an absolute place")
        << member("l", '2', "/etc") << "l: a link that leads out of the folder, to /etc"_text + nothing;
    QTest::newRow("link up") << member("l", '2', "../victim")
                             << "l: a link that leads out of the folder, to ../victim"_text + nothing;
    QTest::newRow("link up from below")
        << member("a/b/l", '2', "../../../victim")
        << "a/b/l: a link that leads out of the folder, to ../../../victim"_text + nothing;
    QTest::newRow("link up over another link")
        << member("a/b/d", '2', "../..") + member("a/b/e", '2', "d/../victim")
        << "a/b/e: a link that leads out of the folder, to d/../victim"_text + nothing;
    QTest::newRow("no name") << member("") << ": not a file name"_text + nothing;
    QTest::newRow("nothing of a good member") << member("good", '0', {}, "1") + member("../victim")
                                              << "../victim: a name with \"..\""_text + nothing;
    const QString kinds =
        ": only files, directories and symbolic links whose data is whole are extracted"_text;
    QTest::newRow("device") << member("null", '3') << "null"_text + kinds;
    QTest::newRow("hard link out") << member("h", '1', "../victim") << "h"_text + kinds;
    QTest::newRow("pipe") << member("p", '6') << "p"_text + kinds;
}

void tst_tlxExtract::hostile()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, message);
    for (const bool force : {false, true}) {
        const Place place(archive + tarEnd());
        const QStringList before = place.tree().entries();
        const bool wasThere = QFileInfo::exists("/tmp/tlx-hostile"_text);

        const STlxRun run = place.extract(force ? QStringList{"--force"_text} : QStringList());

        QCOMPARE(run.exitCode, 1);
        QCOMPARE(messageOf(run), message);
        QCOMPARE(place.tree().entries(), before);
        QCOMPARE(QFileInfo::exists("/tmp/tlx-hostile"_text), wasThere);
    }
}

void tst_tlxExtract::throughLinks_data()
{
    QTest::addColumn<QStringList>("there");
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QByteArray>("says");

    QTest::newRow("a link that was there")
        << QStringList{"in/l->../other"_text} << member("l/a", '0', {}, "x")
        << QByteArray("is a link, through which nothing is written");
    QTest::newRow("a link to a file that was there")
        << QStringList{"in/l->../victim"_text} << member("l", '0', {}, "x") << QByteArray();
    QTest::newRow("a link of the archive")
        << QStringList() << member("l", '2', "sub") + member("l/a", '0', {}, "x")
        << QByteArray("l: a directory has this name");
    QTest::newRow("a file for a directory")
        << QStringList{"in/f=1"_text} << member("f/a", '0', {}, "x") << QByteArray("is not a directory");
    QTest::newRow("a directory for a file")
        << QStringList() << member("sub", '0', {}, "x") << QByteArray("a directory has this name");
}

void tst_tlxExtract::throughLinks()
{
#ifdef Q_OS_WIN
    QSKIP("links are made by administrators here");
#endif
    QFETCH(QStringList, there);
    QFETCH(QByteArray, archive);
    QFETCH(QByteArray, says);
    const Place place(archive + tarEnd());
    QVERIFY(place.tree().make(there));
    const QStringList before = place.outside();

    const STlxRun run = place.extract({"--force"_text});

    QVERIFY2(run.exitCode == (says.isEmpty() ? 0 : 1) && run.output.contains(says), run.output.constData());
    QCOMPARE(place.outside(), before);
}

// A bomb of names: many members under one name, many deep. It ends, and stays inside.
void tst_tlxExtract::manyNames()
{
#ifdef Q_OS_WIN
    constexpr int COUNT = 2000; // Wine makes files slowly
#else
    constexpr int COUNT = 20000;
#endif
    constexpr int NAMED = 20;
    QByteArray archive;
    for (int i = 0; i < COUNT; ++i) {
        archive += member(i % 2 == 0 ? QByteArray("same") : QByteArray("n" + QByteArray::number(i)));
    }
    archive += member(QByteArray(40, 'x') + "/" + QByteArray("y/").repeated(25) + "z");
    const Place place(archive + tarEnd());
    const QStringList before = place.outside();

    const STlxRun run = place.extract();

    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.output.contains("same: another member has this name"), run.output.right(500).constData());
    QVERIFY(run.output.contains(
        QByteArray(QByteArray::number(COUNT / 2 - 1 - NAMED) + " more members are refused")));
    QCOMPARE(place.outside(), before);
    QCOMPARE(run.result().value(QLatin1String("extracted")).toArray().size(), COUNT / 2 + 2);
}

void tst_tlxExtract::cutArchive()
{
    const Place place(tarFile("a", 3) + tarFile("b", 2000).left(1000));
    const QStringList before = place.tree().entries();

    const STlxRun run = place.extract();

    QCOMPARE(run.exitCode, 1);
    QVERIFY(messageOf(run).contains("too short"_text));
    QCOMPARE(place.tree().entries(), before);
}

QTEST_GUILESS_MAIN(tst_tlxExtract)
#include "tst_tlxExtract.moc"
