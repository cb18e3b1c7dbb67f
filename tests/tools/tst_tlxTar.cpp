#include <tests/files/TarArchive.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

/// tlx tar list, check and cat.
class tst_tlxTar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void list();
    void listEscapesNames();
    void check();
    void checkWarns();
    void cat_data();
    void cat();
    void catJson_data();
    void catJson();
    void catFails_data();
    void catFails();
    void damaged_data();
    void damaged();
    void cannotOpen_data();
    void cannotOpen();
    void wrongUsage_data();
    void wrongUsage();
};

namespace {

const QByteArray BINARY("\x00\x01\r\n\n\xff\x1b[2J", 10);

STarMember binaryMember()
{
    STarMember member;
    member.name = "image.bin";
    member.data = BINARY;
    return member;
}

QByteArray exampleArchive()
{
    STarMember link;
    link.name = "link";
    link.typeflag = '2';
    link.linkName = "image.bin";
    return tarMember(binaryMember()) + tarMember(link) + tarFile("image.bin", 3) + tarEnd();
}

QStringList command(const char* task, const QString& path)
{
    return {QStringLiteral("tar"), QLatin1String(task), path};
}

} // namespace

void tst_tlxTar::list()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), exampleArchive());
    const STlxRun text = runTlx(command("list", path));
    QCOMPARE(text.exitCode, 0);
    QVERIFY(text.output.contains("image.bin"));
    QCOMPARE(text.errorOutput, QByteArray());

    const STlxRun run = runTlx(command("list", path) << QStringLiteral("--json"));
    QCOMPARE(run.exitCode, 0);
    const QJsonArray members = run.result().value(QLatin1String("members")).toArray();
    QCOMPARE(members.size(), 3);
    const QJsonObject link{{QStringLiteral("index"), 1},
                           {QStringLiteral("kind"), QStringLiteral("link")},
                           {QStringLiteral("size"), QStringLiteral("0")},
                           {QStringLiteral("position"), QStringLiteral("1024")},
                           {QStringLiteral("name"), QStringLiteral("link")},
                           {QStringLiteral("linkName"), QStringLiteral("image.bin")},
                           {QStringLiteral("note"), QJsonValue()}};
    QCOMPARE(members.at(1).toObject(), link);
}

void tst_tlxTar::listEscapesNames()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), tarFile("a\x1b[2J\nb", 0) + tarEnd());
    const STlxRun run = runTlx(command("list", path));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains("a\\x1b[2J\\x0ab"));
    QVERIFY(!run.output.contains('\x1b'));
}

void tst_tlxTar::check()
{
    const QTemporaryDir dir;
    const QString path =
        writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 3) + tarFile("b", 600) + tarEnd());
    const STlxRun run = runTlx(command("check", path) << QStringLiteral("--json"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("members")).toInt(), 2);
    QCOMPARE(run.result().value(QLatin1String("files")).toInt(), 2);
    QCOMPARE(run.result().value(QLatin1String("bytes")).toString(), QStringLiteral("603"));
    QCOMPARE(run.result().value(QLatin1String("warnings")).toArray(), QJsonArray());
}

void tst_tlxTar::checkWarns()
{
    STarMember hard;
    hard.name = "a";
    hard.typeflag = '1';
    hard.linkName = "first";
    QByteArray other = tarFile("other", 0);
    other[300] = 'X'; // the owner's name; CTar does not look at it, but the sum is wrong now
    const QTemporaryDir dir;
    const QString path =
        writeFile(dir, QStringLiteral("x.tar"), tarFile("a", 3) + tarMember(hard) + other + tarEnd());
    const STlxRun run = runTlx(command("check", path) << QStringLiteral("--json"));
    QCOMPARE(run.exitCode, 1);
    const QJsonArray expected{
        QStringLiteral("member 1 at byte 1024: hard link without data: the data is that of first"),
        QStringLiteral("member 1 at byte 1024: a name that another member has"),
        QStringLiteral("member 2 at byte 1536: wrong checksum: the library does not verify it")};
    QCOMPARE(run.result().value(QLatin1String("warnings")).toArray(), expected);
}

void tst_tlxTar::cat_data()
{
    QTest::addColumn<QStringList>("member");
    QTest::addColumn<QByteArray>("output");

    QTest::newRow("by name: the first") << QStringList{QStringLiteral("image.bin")} << BINARY;
    QTest::newRow("by index") << QStringList{QStringLiteral("2"), QStringLiteral("--index")}
                              << QByteArray("ABC");
    QTest::newRow("without data") << QStringList{QStringLiteral("link")} << QByteArray();
}

void tst_tlxTar::cat()
{
    QFETCH(QStringList, member);
    QFETCH(QByteArray, output);
    const QTemporaryDir dir;
    const STlxRun run =
        runTlx(command("cat", writeFile(dir, QStringLiteral("x.tar"), exampleArchive())) + member);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, output);
    QCOMPARE(run.errorOutput, QByteArray());
}

void tst_tlxTar::catJson_data()
{
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("every byte") << BINARY;
    // Longer than the blocks in which it is read, which are no multiple of three bytes.
    QByteArray numbers;
    for (int i = 0; i < 500'000; ++i) {
        numbers += QByteArray::number(i);
    }
    QTest::newRow("several blocks") << numbers;
}

void tst_tlxTar::catJson()
{
    QFETCH(QByteArray, data);
    const QTemporaryDir dir;
    STarMember member;
    member.name = "m";
    member.data = data;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), tarMember(member) + tarEnd());
    const STlxRun run = runTlx(command("cat", path) << QStringLiteral("m") << QStringLiteral("--json"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errorOutput, QByteArray());
    QCOMPARE(run.json().value(QLatin1String("ok")), QJsonValue(true));
    QCOMPARE(QByteArray::fromBase64(run.result().value(QLatin1String("base64")).toString().toLatin1()), data);
}

void tst_tlxTar::catFails_data()
{
    QTest::addColumn<QStringList>("member");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("says");

    QTest::newRow("unknown name") << QStringList{QStringLiteral(
        "none")} << 1 << QByteArray("tlx tar: no such member: none: `tlx tar list` shows the names\n");
    QTest::newRow("misspelt name") << QStringList{QStringLiteral(
        "Image.bim")} << 1 << QByteArray("tlx tar: no such member: Image.bim: did you mean image.bin?\n");
    QTest::newRow("index too high") << QStringList{QStringLiteral("--index"), QStringLiteral("3")} << 1
                                    << QByteArray("tlx tar: no such index: 3: the archive has 3 members\n");
    QTest::newRow("not an index") << QStringList{QStringLiteral("--index"), QStringLiteral("link")} << 2
                                  << QByteArray("tlx tar: not an index: link: a number out of `tlx tar list` "
                                                "is expected\nSee: tlx tar --help\n");
}

void tst_tlxTar::catFails()
{
    QFETCH(QStringList, member);
    const QTemporaryDir dir;
    const STlxRun run =
        runTlx(command("cat", writeFile(dir, QStringLiteral("x.tar"), exampleArchive())) + member);
    QTEST(run.exitCode, "code");
    QTEST(run.errorOutput, "says");
    QCOMPARE(run.output, QByteArray());
}

void tst_tlxTar::damaged_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<int>("members");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("message");
    const QString tooShort =
        QStringLiteral("ERROR : The file ist too short. Only %1 bytes read but 512 expected !");
    STarMember noSize;
    noSize.name = "b";
    noSize.size = "x";

    QTest::newRow("empty file") << QByteArray() << 0 << 0 << tooShort.arg(0);
    QTest::newRow("cut in the data") << tarFile("a", 2000).left(700) << 1 << 700 << tooShort.arg(0);
    QTest::newRow("cut in a header") << QByteArray(tarFile("a", 1) + tarFile("b", 1).left(100)) << 1 << 1024
                                     << tooShort.arg(100);
    QTest::newRow("no archive")
        << QByteArray(1024, 'x') << 0 << 0
        << "ERROR : This is not a tar archive. Header.magic = \"512\" but \"ustar\" was expected !";
    QTest::newRow("size") << QByteArray(tarFile("a", 1) + tarMember(noSize)) << 1 << 1024
                          << "the header's size is not an octal number";
}

void tst_tlxTar::damaged()
{
    QFETCH(QByteArray, archive);
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("x.tar"), archive);
    for (const char* task : {"list", "check"}) {
        const STlxRun run = runTlx(command(task, path) << QStringLiteral("--json"));
        QCOMPARE(run.exitCode, 1);
        const QJsonObject error = run.json().value(QLatin1String("error")).toObject();
        QTEST(error.value(QLatin1String("message")).toString(), "message");
        QTEST(error.value(QLatin1String("offset")).toInt(-1), "offset");
        const QJsonValue members = run.result().value(QLatin1String("members"));
        QTEST(members.isArray() ? int(members.toArray().size()) : members.toInt(),
              "members"); // what is readable is shown
    }
}

void tst_tlxTar::cannotOpen_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("missing") << "/nowhere/x.tar";
    QTest::newRow("directory") << QDir::tempPath();
}

void tst_tlxTar::cannotOpen()
{
    QFETCH(QString, path);
    for (const char* task : {"list", "check", "cat"}) {
        QStringList arguments = command(task, path);
        if (qstrcmp(task, "cat") == 0) {
            arguments << QStringLiteral("a");
        }
        const STlxRun run = runTlx(arguments);
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.errorOutput.startsWith(QByteArray("tlx tar: " + path.toLocal8Bit() + ": ")),
                 run.errorOutput.constData());
        QVERIFY(!run.errorOutput.contains("(byte"));
        QCOMPARE(run.output, QByteArray());
    }
}

void tst_tlxTar::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown task") << QStringList{QStringLiteral("unpack"), QStringLiteral("x.tar")};
    QTest::newRow("list without file") << QStringList{QStringLiteral("list")};
    QTest::newRow("cat without member") << QStringList{QStringLiteral("cat"), QStringLiteral("x.tar")};
    QTest::newRow("unknown option") << QStringList{QStringLiteral("list"), QStringLiteral("x"),
                                                   QStringLiteral("--all")};
}

void tst_tlxTar::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const STlxRun run = runTlx(QStringList{QStringLiteral("tar")} + arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errorOutput.endsWith("See: tlx tar --help\n"));
}

QTEST_GUILESS_MAIN(tst_tlxTar)
#include "tst_tlxTar.moc"
