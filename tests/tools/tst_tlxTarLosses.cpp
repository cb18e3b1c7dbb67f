#include <tests/files/TarArchive.h>
#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QProcess>
#include <QtTest>

/// What the library's reading of an archive loses, as `tar list` and `tar check` say it; members of any size.
class tst_tlxTarLosses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void losses_data();
    void losses();
    void otherFormats_data();
    void otherFormats();
    void sizeInBase256();
    void utf8Names();
    void extensionsAreNoLoss();
    void hugeMember_data();
    void hugeMember();
    void standardInput();
};

namespace {

QByteArray paxRecord(const QByteArray& key, const QByteArray& value)
{
    const int rest = key.size() + value.size() + 3;
    int length = rest + 1;
    while (QByteArray::number(length).size() + rest != length) {
        ++length;
    }
    return QByteArray::number(length) + ' ' + key + '=' + value + '\n';
}

QByteArray extension(char typeflag, const QByteArray& data)
{
    STarMember member;
    member.name = typeflag == 'x' ? "PaxHeaders/x" : "././@LongLink";
    member.typeflag = typeflag;
    member.data = data;
    return tarMember(member);
}

QByteArray named(const QByteArray& name, const QByteArray& prefix = {}, char typeflag = '0')
{
    STarMember member;
    member.name = name;
    member.prefix = prefix;
    member.typeflag = typeflag;
    member.linkName = typeflag == '1' ? "first" : "";
    member.data = typeflag == '1' ? "" : "abc";
    return tarMember(member);
}

QByteArray withWrongChecksum(QByteArray member)
{
    member[300] = 'X'; // the owner's name
    return member;
}

} // namespace

void tst_tlxTarLosses::losses_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("note"); // of the last member

    const QByteArray longName = QByteArray(60, 'd') + '/' + QByteArray(60, 'f');
    const QString whole = QString::fromLatin1(longName);
    QTest::newRow("GNU long name") << QByteArray(extension('L', QByteArray(longName + QByteArray(1, '\0')))
                                                 + named(longName.left(99)))
                                   << QString(QLatin1String("name cut (GNU): it is ") + whole);
    QTest::newRow("pax path") << QByteArray(extension('x', paxRecord("path", longName))
                                            + named(longName.left(99)))
                              << QString(QLatin1String("name cut (pax): it is ") + whole);
    QTest::newRow("prefix") << named(QByteArray(60, 'f'), QByteArray(60, 'd'))
                            << QString(QLatin1String("name cut (prefix): it is ") + whole);
    QTest::newRow("100 characters") << named(QByteArray(
        100, 'n')) << QString(QLatin1String("name runs on: it is ") + QString(100, QLatin1Char('n')));
    QTest::newRow("pax size") << QByteArray(extension('x', paxRecord("size", "0")) + named("a"))
                              << "size is 0 (pax)"_text;
    QTest::newRow("hard link") << named("link", {}, '1')
                               << "hard link without data: the data is that of first"_text;
    QTest::newRow("sparse, GNU") << named("s", {}, 'S')
                                 << "sparse: the library has the stored bytes, without the holes"_text;
    QTest::newRow("sparse, pax") << QByteArray(extension('x', paxRecord("GNU.sparse.major", "1"))
                                               + named("s"))
                                 << "sparse: the library has the stored bytes, without the holes"_text;
    QTest::newRow("device") << named("null", {}, '3') << "a kind that is not supported"_text;
    QTest::newRow("checksum") << withWrongChecksum(named("a"))
                              << "wrong checksum: the library does not verify it"_text;
    QTest::newRow("UTF-8") << named("gr\xc3\xb6\xc3\x9f"
                                    "e")
                           << "UTF-8 name shown as Latin-1: it is größe"_text;
}

void tst_tlxTarLosses::losses()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, note);
    const QTemporaryDir dir;
    const QString path = writeFile(dir, "x.tar"_text, archive + tarEnd());

    const STlxRun list = runTlx({"tar"_text, "list"_text, path, "--json"_text});
    QCOMPARE(list.exitCode, 0);
    const QJsonArray members = list.result().value(QLatin1String("members")).toArray();
    QCOMPARE(members.last()[QLatin1String("note")].toString(), note);

    const STlxRun check = runTlx({"tar"_text, "check"_text, path, "--json"_text});
    QCOMPARE(check.exitCode, 1);
    const QString where = "member %1 at byte %2: "_text.arg(members.size() - 1)
                              .arg(members.last()[QLatin1String("position")].toString());
    QCOMPARE(check.result().value(QLatin1String("warnings")).toArray(), QJsonArray{QString(where + note)});
}

void tst_tlxTarLosses::otherFormats_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");

    STarMember old;
    old.name = "a";
    old.magic = QByteArray(8, '\0');
    old.typeflag = '\0';
    const QByteArray filler(600, 'x');
    QTest::newRow("gzip") << QByteArray("\x1f\x8b\x08" + filler)
                          << "gzip data: unpack it first, as with gunzip"_text;
    QTest::newRow("xz") << QByteArray("\xfd"
                                      "7zXZ"
                                      + filler)
                        << "xz data: unpack it first, as with unxz"_text;
    QTest::newRow("v7")
        << QByteArray(tarMember(old) + tarEnd())
        << "a tar archive in the old v7 format, which the library does not read: pack it again as "
           "ustar"_text;
    QTest::newRow("nothing known")
        << filler
        << "ERROR : This is not a tar archive. Header.magic = \"512\" but \"ustar\" was "
           "expected !"_text;
}

void tst_tlxTarLosses::otherFormats()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    const QTemporaryDir dir;
    const QString path = writeFile(dir, "x.tar"_text, bytes);
    for (const char* task : {"list", "check", "extract"}) {
        const STlxRun run = runTlx({"tar"_text, QLatin1String(task), path, "--json"_text});
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(
            run.json().value(QLatin1String("error")).toObject().value(QLatin1String("message")).toString(),
            message);
    }
}

void tst_tlxTarLosses::sizeInBase256()
{
    STarMember big;
    big.name = "big";
    big.size = QByteArray("\x80\0\0\0\0\0\0\x02\0\0\0\0", 12); // 8 GiB
    const QTemporaryDir dir;
    const QString path = writeFile(dir, "x.tar"_text, tarFile("a", 3) + tarMember(big));
    const STlxRun run = runTlx({"tar"_text, "list"_text, path, "--json"_text});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject error = run.json().value(QLatin1String("error")).toObject();
    QCOMPARE(error.value(QLatin1String("message")).toString(),
             "the size is in base-256, which the library does not read: 8589934592 bytes of big"_text);
    QCOMPARE(error.value(QLatin1String("offset")).toInt(), 1024);
    QCOMPARE(run.result().value(QLatin1String("members")).toArray().size(), 1);
}

void tst_tlxTarLosses::utf8Names()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, "x.tar"_text,
                                   named("gr\xc3\xb6\xc3\x9f"
                                         "e")
                                       + tarEnd());
    const auto nameOf = [](const STlxRun& run) {
        return run.result().value(QLatin1String("members")).toArray().at(0)[QLatin1String("name")].toString();
    };
    QCOMPARE(nameOf(runTlx({"tar"_text, "list"_text, path, "--json"_text})),
             QString::fromLatin1("gr\xc3\xb6\xc3\x9f"
                                 "e"));
    QCOMPARE(nameOf(runTlx({"tar"_text, "list"_text, "--utf8"_text, path, "--json"_text})), "größe"_text);
    QCOMPARE(runTlx({"tar"_text, "cat"_text, path, "größe"_text}, {"LC_ALL=C.UTF-8"_text}).output,
             QByteArray("abc"));
}

void tst_tlxTarLosses::extensionsAreNoLoss()
{
    const QTemporaryDir dir;
    const QString path =
        writeFile(dir, "x.tar"_text, extension('x', paxRecord("mtime", "1.5")) + named("a") + tarEnd());
    const STlxRun run = runTlx({"tar"_text, "check"_text, path, "--json"_text});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("warnings")).toArray(), QJsonArray());
}

void tst_tlxTarLosses::hugeMember_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("option");
    QTest::addColumn<qint64>("printed");

    const qint64 huge = (2LL << 30) + 700;
    const qint64 large = (300LL << 20) + 1;
    QTest::newRow("bytes: more than 2 GiB") << huge << "--"_text << huge;
    const qint64 frame = QByteArray("{\n    \"command\": \"tar\",\n    \"ok\": true,\n    \"result\": {\n"
                                    "        \"base64\": \"\"\n    }\n}\n")
                             .size();
    QTest::newRow("JSON: more than the memory") << large << "--json"_text << frame + (large + 2) / 3 * 4;
}

// A large member goes through 256 MiB of memory; the archive is a file with a hole.
void tst_tlxTarLosses::hugeMember()
{
#ifdef Q_OS_WIN
    QSKIP("no limit of memory is set here");
#else
    QFETCH(qint64, size);
    QFETCH(QString, option);
    const QTemporaryDir dir;
    STarMember member;
    member.name = "hole";
    member.size = octal(size, 11);
    QFile file(dir.filePath("x.tar"_text));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(tarHeader(member));
    QVERIFY(file.resize(512 + (size + 511) / 512 * 512 + 1024));
    file.close();
    const QString limit = "ulimit -v 262144; "_text;
    if (QProcess::execute("bash"_text, {"-c"_text, limit + "\"$0\" --version > /dev/null"_text, tlxProgram()})
        != 0) {
        QSKIP("this build needs more memory to start: not tested");
    }
    QProcess process;
    process.start("bash"_text,
                  {"-c"_text, limit + "\"$0\" tar cat $2 \"$1\" hole | wc -c; exit ${PIPESTATUS[0]}"_text,
                   tlxProgram(), file.fileName(), option});
    QVERIFY(process.waitForFinished(200000));
    const QByteArray said = process.readAllStandardError();
    QVERIFY2(process.exitCode() == 0, said.constData());
    QTEST(process.readAllStandardOutput().trimmed().toLongLong(), "printed");
#endif
}

void tst_tlxTarLosses::standardInput()
{
    const QByteArray archive = tarFile("a", 3) + tarEnd();
    const STlxRun list = runTlx({"tar"_text, "list"_text, "-"_text, "--json"_text}, {}, {}, archive);
    QCOMPARE(list.exitCode, 0);
    QCOMPARE(list.result().value(QLatin1String("members")).toArray().size(), 1);
    QCOMPARE(runTlx({"tar"_text, "cat"_text, "-"_text, "a"_text}, {}, {}, archive).output, QByteArray("ABC"));
}

QTEST_GUILESS_MAIN(tst_tlxTarLosses)
#include "tst_tlxTarLosses.moc"
