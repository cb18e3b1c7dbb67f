#include <tests/support/FileTree.h>
#include <tests/support/TlxProcess.h>
#include <tests/tools/CommandLines.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

/// Device lists that are damaged, compared, and converted to JSON and back.
class tst_tlxDeviceFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatReads();
    void otherOrder();
    void differences();
    void roundTrip_data();
    void roundTrip();
    void importRefuses_data();
    void importRefuses();
    void importKeepsFiles();
};

namespace {

QString dataFile(const char* name)
{
    return QStringLiteral(TLX_TEST_DATA "/devices/") + QLatin1String(name);
}

QString messageOf(const STlxRun& run)
{
    return run.json().value(QLatin1String("error")).toObject().value(QLatin1String("message")).toString();
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_tlxDeviceFiles::showsWhatReads()
{
    const STlxRun run = runTlx({"devices"_text, "--json"_text, dataFile("truncated.devices")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(messageOf(run), "device 2 of 2 is cut off by the end of the file"_text);
    QCOMPARE(run.json().value(QLatin1String("error"))[QLatin1String("offset")].toInt(), 93);
    QCOMPARE(run.result().value(QLatin1String("count")).toInt(), 1);
    QCOMPARE(run.result().value(QLatin1String("devices")).toArray().size(), 1);
}

void tst_tlxDeviceFiles::otherOrder()
{
    const STlxRun big = runTlx({"devices"_text, "--json"_text, dataFile("hall-little-endian.devices")});
    QCOMPARE(big.exitCode, 1);
    QVERIFY2(messageOf(big).endsWith(": reads with --little-endian"_text), qPrintable(messageOf(big)));
    const STlxRun little =
        runTlx({"devices"_text, "--json"_text, "--little-endian"_text, dataFile("hall.devices")});
    QCOMPARE(little.exitCode, 1);
    QVERIFY2(messageOf(little).endsWith(": reads without --little-endian"_text),
             qPrintable(messageOf(little)));
    const STlxRun neither = runTlx({"devices"_text, "--json"_text, dataFile("truncated.devices")});
    QVERIFY(!messageOf(neither).contains("little-endian"_text));
}

void tst_tlxDeviceFiles::differences()
{
    const ExampleFiles files;
    const QString a = files.directory() + "/a.devices"_text;
    const QString b = files.directory() + "/b.devices"_text;
    const STlxRun same = runTlx({"devices"_text, "diff"_text, a, a, "--json"_text});
    QCOMPARE(same.exitCode, 0);
    QCOMPARE(same.result().value(QLatin1String("differences")).toArray(), QJsonArray());

    const STlxRun run = runTlx({"devices"_text, "diff"_text, a, b, "--json"_text});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(messageOf(run), "1 fields differ"_text);
    const QJsonObject port{{"field"_text, "device 5/port"_text}, {"a"_text, 1700}, {"b"_text, 1701}};
    QCOMPARE(run.result().value(QLatin1String("differences")).toArray(), QJsonArray{port});

    const STlxRun other =
        runTlx({"devices"_text, "diff"_text, a, dataFile("duplicates.devices"), "--json"_text});
    QCOMPARE(other.exitCode, 1);
    QVERIFY(other.output.contains("\"device 3#1/name\""));
    QVERIFY(other.output.contains("\"device 5/sub-device 3/name\""));
}

void tst_tlxDeviceFiles::roundTrip_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("options");

    for (const char* name : {"hall.devices", "duplicates.devices", "escape.devices", "empty.devices"}) {
        QTest::newRow(name) << dataFile(name) << QStringList();
    }
    QTest::newRow("little-endian") << dataFile("hall-little-endian.devices")
                                   << QStringList{"--little-endian"_text};
}

void tst_tlxDeviceFiles::roundTrip()
{
    QFETCH(QString, file);
    QFETCH(QStringList, options);
    const QTemporaryDir dir;
    const STlxRun out = runTlx(QStringList{"devices"_text, "export"_text, file} + options);
    QVERIFY2(out.exitCode == 0, out.errorOutput.constData());
    QVERIFY(QJsonDocument::fromJson(out.output).object().value(QLatin1String("devices")).isArray());

    const QString copy = dir.filePath("copy"_text);
    const STlxRun in =
        runTlx(QStringList{"devices"_text, "import"_text, "-"_text, copy} + options, {}, {}, out.output);
    QVERIFY2(in.exitCode == 0, in.errorOutput.constData());
    // The same list; JSON does not tell an empty text from one that was never set, as the lists' bytes do.
    QCOMPARE(runTlx(QStringList{"devices"_text, "diff"_text, file, copy} + options).exitCode, 0);
    QCOMPARE(runTlx(QStringList{"devices"_text, "export"_text, copy} + options).output, out.output);
    QCOMPARE(bytesOf(copy).size() > 0, true);
}

void tst_tlxDeviceFiles::importRefuses_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");

    const auto with = [](const QByteArray& before, const QByteArray& after) {
        QByteArray json =
            R"({"name":"n","sourceType":0,"devices":[{"key":1,"number":1,"name":"d","addressType":1,
            "address":"::1","port":1,"configuration":"","extraText":"","extraText2":"","flag1":true,"flag2":false,
            "value1":0,"value2":0,"subDevices":[{"key":1,"number":1,"name":"s"}]}]})";
        return json.replace(before, after);
    };
    QTest::newRow("no JSON") << QByteArray("{") << "-: unterminated object"_text;
    QTest::newRow("no object") << QByteArray("[]") << "-: \"name\" is missing or has the wrong type"_text;
    QTest::newRow("port too high") << with("\"port\":1", "\"port\":65536")
                                   << "-: device 0: \"port\" is missing or has the wrong type"_text;
    QTest::newRow("fraction") << with("\"value1\":0", "\"value1\":0.5")
                              << "-: device 0: \"value1\" is missing or has the wrong type"_text;
    QTest::newRow("flag as text") << with("true", "\"yes\"")
                                  << "-: device 0: \"flag1\" is missing or has the wrong type"_text;
    QTest::newRow("address") << with("\"::1\"", "\"x\"")
                             << "-: device 0: \"address\" is missing or has the wrong type"_text;
    QTest::newRow("sub-device") << with("{\"key\":1,\"number\":1,\"name\":\"s\"}", "1")
                                << "-: device 0: sub-device 0: \"key\" is missing or has the wrong type"_text;
}

void tst_tlxDeviceFiles::importRefuses()
{
    QFETCH(QByteArray, json);
    const QTemporaryDir dir;
    const STlxRun run = runTlx(
        {"devices"_text, "import"_text, "-"_text, dir.filePath("copy"_text), "--json"_text}, {}, {}, json);
    QCOMPARE(run.exitCode, 1);
    QTEST(messageOf(run), "message");
    QVERIFY(!QFile::exists(dir.filePath("copy"_text)));
}

void tst_tlxDeviceFiles::importKeepsFiles()
{
    const FileTree tree({"there=old"_text});
    const QByteArray json = R"({"name":"n","sourceType":0,"devices":[]})";
    const STlxRun kept =
        runTlx({"devices"_text, "import"_text, "-"_text, tree.path("there"_text)}, {}, {}, json);
    QCOMPARE(kept.exitCode, 1);
    QCOMPARE(tree.read("there"_text), QByteArray("old"));
    const STlxRun forced = runTlx(
        {"devices"_text, "import"_text, "--force"_text, "-"_text, tree.path("there"_text)}, {}, {}, json);
    QCOMPARE(forced.exitCode, 0);
    QCOMPARE(tree.read("there"_text), QByteArray("\0\0\0\2\0n\0\0\0\0\0\0\0\0", 14));
}

QTEST_GUILESS_MAIN(tst_tlxDeviceFiles)
#include "tst_tlxDeviceFiles.moc"
