#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

STlxRun run(const char* command, const QStringList& arguments)
{
    return runTlx(QStringList{QString::fromLatin1(command), QStringLiteral("--json")} + arguments);
}

QString entry(const STlxRun& run, const char* section, const char* key)
{
    const QJsonObject object = run.result().value(QLatin1String(section)).toObject();
    return object.value(QLatin1String(key)).toVariant().toString();
}

} // namespace

/// `tlx number` and `tlx crc`.
class tst_tlxNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void number_data();
    void number();
    void numberFails_data();
    void numberFails();
    void crc_data();
    void crc();
    void crcOfFiles();
    void crcChecks_data();
    void crcChecks();
    void crcFails_data();
    void crcFails();
};

void tst_tlxNumber::number_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("packed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("read");
    const struct
    {
        const char* arguments;
        const char* packed;
        const char* shown; // empty: the text is no value
        const char* read;  // empty: the text is no number under the descriptor
    } rows[] = {
        {"42", "0x00000000", "42", "42"},
        {"--notation fixed --fraction 2 --width 6 1234", "0x01000602", " 12.34", "1234"},
        {"--format 0x01000602 1234", "0x01000602", " 12.34", "1234"},
        {"--format 0x01000602 --width 7 1234", "0x01000702", "  12.34", "1234"},
        {"--notation hex --width 8 0x1F40", "0x02000800", "0000.1f40", "8000"},
        {"--notation hex --width 2 --type I8 ff", "0x02000200", "", "-1"},
        {"--notation 3 --width 8 --shift 1 --type U8 12", "0x03010800", "0000.0110", ""},
        {"--notation dual --width 8 --shift 1 --type U8 110", "0x03010800", "0011.0111", "12"},
        {"--factor 2.5 --type F64 1.5", "0x00000000", "2", "3.75"},
        {"--fraction 1 --type F32 1.5", "0x00000001", "1.5", "1.5"},
        {"--width -4 --type I16 -- -12", "0x0000fc00", "-12   ", "-12"},
        {"--notation 200 7", "0xc8000000", "", ""},
    };
    for (const auto& row : rows) {
        QTest::newRow(row.arguments) << words(row.arguments) << QString::fromLatin1(row.packed)
                                     << QString::fromLatin1(row.shown) << QString::fromLatin1(row.read);
    }
}

void tst_tlxNumber::number()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, packed);
    QFETCH(QString, shown);
    QFETCH(QString, read);

    const STlxRun done = run("number", arguments);

    QCOMPARE(done.exitCode, 0);
    QCOMPARE(entry(done, "format", "packed"), packed);
    QCOMPARE(entry(done, "shown", "text"), shown);
    QCOMPARE(entry(done, "read", "value"), read);
    QCOMPARE(entry(done, "read", "ok"), QVariant(!read.isEmpty()).toString());
}

void tst_tlxNumber::numberFails_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::newRow("no number") << words("x") << 1;
    QTest::newRow("no value of the type, no number in the notation")
        << words("--type U8 --notation dual 256") << 1;
    QTest::newRow("no text") << QStringList() << 2;
    QTest::newRow("two texts") << words("1 2") << 2;
    QTest::newRow("unknown type") << words("--type STRING32 1") << 2;
    QTest::newRow("width beyond the byte") << words("--width 128 1") << 2;
    QTest::newRow("unknown notation") << words("--notation octal 1") << 2;
    QTest::newRow("notation beyond the byte") << words("--notation 256 1") << 2;
    QTest::newRow("descriptor beyond 32 bits") << words("--format 0x100000000 1") << 2;
    QTest::newRow("factor") << words("--factor x 1") << 2;
    QTest::newRow("unknown option") << words("--base 16 1") << 2;
}

void tst_tlxNumber::numberFails()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);

    const STlxRun done = run("number", arguments);

    QCOMPARE(done.exitCode, code);
    QVERIFY(!done.json().value(QLatin1String("ok")).toBool(true));
}

void tst_tlxNumber::crc_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("crc32");
    QTest::newRow("digits") << QByteArray("123456789") << QStringLiteral("CBF43926");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("00000000");
    // By Python's zlib.crc32(b"\0" * n) and of b"123456789" * n.
    QTest::newRow("one piece") << QByteArray(1 << 20, '\0') << QStringLiteral("A738EA1C");
    QTest::newRow("two pieces and a byte") << QByteArray((2 << 20) + 1, '\0') << QStringLiteral("65323A31");
    QTest::newRow("three pieces") << QByteArray("123456789").repeated(300000) << QStringLiteral("05578AB3");
}

void tst_tlxNumber::crc()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, crc32);
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("image.bin")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();

    const STlxRun done = run("crc", {file.fileName()});

    QCOMPARE(done.exitCode, 0);
    QCOMPARE(done.result().value(QLatin1String("crc32")).toString(), crc32);
    QCOMPARE(done.result().value(QLatin1String("size")).toString(), QString::number(bytes.size()));
    QCOMPARE(done.errorOutput, QByteArray());
}

void tst_tlxNumber::crcOfFiles()
{
    const FileTree tree({QStringLiteral("a=123456789"), QStringLiteral("b=")});
    const STlxRun done = run("crc", {tree.path(QStringLiteral("a")), tree.path(QStringLiteral("b"))});
    QCOMPARE(done.exitCode, 0);
    const QJsonArray files = done.result().value(QLatin1String("files")).toArray();
    QCOMPARE(files.size(), 2);
    QCOMPARE(files[0][QLatin1String("crc32")].toString(), QStringLiteral("CBF43926"));
    QCOMPARE(files[1][QLatin1String("crc32")].toString(), QStringLiteral("00000000"));
    const STlxRun input =
        runTlx({QStringLiteral("crc"), QStringLiteral("-"), QStringLiteral("--json")}, {}, {}, "123456789");
    QCOMPARE(input.result().value(QLatin1String("crc32")).toString(), QStringLiteral("CBF43926"));
}

void tst_tlxNumber::crcChecks_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("message");

    const auto row = [](const char* tag, const char* list, const char* message) {
        QTest::newRow(tag) << QString::fromLatin1(list) << QString::fromLatin1(message);
    };
    row("sum and name", "cbf43926  a\n00000000 *b c\n", "");
    row("name and sum", "; a comment\n\na CBF43926\r\nb c 00000000", "");
    row("wrong sum", "CBF43927 a\n00000000 b c\n", "a: the CRC-32 is CBF43926, not CBF43927");
    QFile missing(QDir::tempPath() + QStringLiteral("/tlx-missing"));
    QVERIFY(!missing.open(QIODevice::ReadOnly)); // the system's reason, which Windows words in its own way
    const QByteArray reason = "none: " + missing.errorString().toUtf8();
    row("missing file", "CBF43926 a\n00000000 none\n", reason.constData());
    row("no sum", "CBF43926 a\nCBF4392 a\n",
        "line 2 is not a sum and a name: \"1A2B3C4D  NAME\" is expected");
    row("empty", "", "sums lists no files: one line for each file is expected, \"1A2B3C4D  NAME\"");
}

void tst_tlxNumber::crcChecks()
{
    QFETCH(QString, list);
    QFETCH(QString, message);
    const FileTree tree(
        {QStringLiteral("a=123456789"), QStringLiteral("b c="), QStringLiteral("sums=") + list});
    const InDirectory in(tree.path());
    const STlxRun done = run("crc", {QStringLiteral("-c"), QStringLiteral("sums")});
    QCOMPARE(done.exitCode, message.isEmpty() ? 0 : 1);
    QCOMPARE(done.json().value(QLatin1String("error"))[QLatin1String("message")].toString(), message);
    const QJsonArray files = done.result().value(QLatin1String("files")).toArray();
    QCOMPARE(files.size() > 0 && files[0][QLatin1String("right")].toBool(),
             !list.isEmpty() && !list.startsWith(QLatin1String("CBF43927")));
}

void tst_tlxNumber::crcFails_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    const QTemporaryDir gone;
    QTest::newRow("missing file") << QStringList{gone.filePath(QStringLiteral("no.bin"))} << 1;
    QTest::newRow("directory") << QStringList{QDir::tempPath()} << 1;
    QTest::newRow("no file") << QStringList() << 2;
    QTest::newRow("two missing files") << words("/nowhere/a /nowhere/b") << 1;
    QTest::newRow("files and a list") << words("a --check b") << 2;
}

void tst_tlxNumber::crcFails()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);

    QCOMPARE(run("crc", arguments).exitCode, code);
}

QTEST_GUILESS_MAIN(tst_tlxNumber)
#include "tst_tlxNumber.moc"
