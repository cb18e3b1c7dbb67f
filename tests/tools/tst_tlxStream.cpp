#include <tests/support/StreamBytes.h>
#include <tests/support/TlxProcess.h>

#include <core/tlxCore.h>

#include <QTemporaryDir>
#include <QtTest>

/// `tlx stream`: lists the values of a file and says where a damaged one ends.
class tst_tlxStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void variants();
    void asText();
    void kinds_data();
    void kinds();
    void damaged_data();
    void damaged();
    void everyTruncation();
    void automatic_data();
    void automatic();
    void otherOrder();
    void differences();
    void emptyFile();
    void noFile();
    void wrongUsage_data();
    void wrongUsage();

private:
    STlxRun runStream(const QByteArray& bytes, const QStringList& options = {});

    QScopedPointer<QTemporaryDir> mDir;
};

namespace {

QJsonObject item(const STlxRun& run, int index)
{
    return run.result().value(QLatin1String("items")).toArray().at(index).toObject();
}

QString cell(const STlxRun& run, int index, const char* column)
{
    return item(run, index).value(QLatin1String(column)).toString();
}

qint64 offset(const STlxRun& run)
{
    const QJsonObject error = run.json().value(QLatin1String("error")).toObject();
    return static_cast<qint64>(error.value(QLatin1String("offset")).toDouble(-1));
}

} // namespace

void tst_tlxStream::init()
{
    mDir.reset(new QTemporaryDir);
    QVERIFY(mDir->isValid());
}

STlxRun tst_tlxStream::runStream(const QByteArray& bytes, const QStringList& options)
{
    QFile file(mDir->filePath(QStringLiteral("values.bin")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        return STlxRun();
    }
    file.close();
    return runTlx(QStringList{QStringLiteral("stream"), QStringLiteral("--json")} + options
                  + QStringList{file.fileName()});
}

void tst_tlxStream::variants()
{
    // 13 bytes, 11 bytes, then a text.
    const STlxRun run = runStream(fromHexText("00000002 00 0000012f 00000006") + streamed(CVariant(ushort(7)))
                                  + streamed(CVariant(CString32(QStringLiteral("drive")))));

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("values")).toInt(), 3);
    QCOMPARE(cell(run, 0, "byte"), QStringLiteral("0"));
    QCOMPARE(cell(run, 0, "type"), QStringLiteral("I32"));
    QCOMPARE(cell(run, 0, "text"), QStringLiteral("303"));
    QCOMPARE(cell(run, 1, "byte"), QStringLiteral("13"));
    QCOMPARE(cell(run, 1, "type"), QStringLiteral("U16"));
    QCOMPARE(cell(run, 2, "byte"), QStringLiteral("24"));
    QCOMPARE(cell(run, 2, "type"), QStringLiteral("STRING32"));
    QCOMPARE(cell(run, 2, "text"), QStringLiteral("drive"));
}

void tst_tlxStream::asText()
{
    runStream(streamed(CVariant(303)));
    const STlxRun run = runTlx({QStringLiteral("stream"), mDir->filePath(QStringLiteral("values.bin"))});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains("I32"));
    QVERIFY(run.output.contains("303"));
}

void tst_tlxStream::kinds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");

    const auto option = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    const QDateTime utc(QDate(2024, 3, 5), QTime(13, 7, 9), Qt::UTC);
    const QString drive = QStringLiteral("drive");
    QTest::newRow("duration") << streamed(CTime(1500, CTime::UNIT_MS)) << option("--kind time")
                              << QStringLiteral("ms") << QStringLiteral("1500");
    QTest::newRow("duration without a unit")
        << streamed(CTime()) << option("--kind time") << QString() << QStringLiteral("0");
    QTest::newRow("duration, little-endian")
        << streamed(CTime(1500, CTime::UNIT_MS), QDataStream::LittleEndian)
        << option("--kind time --little-endian") << QStringLiteral("ms") << QStringLiteral("1500");
    QTest::newRow("date-time") << streamed(CDateTime(utc)) << option("--kind datetime")
                               << QStringLiteral("UTC") << QStringLiteral("2024-03-05T13:07:09Z");
    QTest::newRow("date-time of 4.6") << streamed(CDateTime(utc), QDataStream::BigEndian, QDataStream::Qt_4_6)
                                      << option("--kind datetime --stream-version 4.6")
                                      << QStringLiteral("UTC") << QStringLiteral("2024-03-05T13:07:09Z");
    QTest::newRow("text") << streamed(drive) << option("--kind text") << QStringLiteral("text") << drive;
    QTest::newRow("CString32") << streamed(CString32(drive)) << option("--kind string32")
                               << QStringLiteral("CString32") << drive;
    QTest::newRow("CString64") << streamed(CString64(drive)) << option("--kind string64")
                               << QStringLiteral("CString64") << drive;
    QTest::newRow("CString128") << streamed(CString128(drive)) << option("--kind string128")
                                << QStringLiteral("CString128") << drive;
    QTest::newRow("variant of 4.6") << streamed(CVariant(ushort(7)), QDataStream::BigEndian,
                                                QDataStream::Qt_4_6)
                                    << option("--kind variant --stream-version 4.6") << QStringLiteral("U16")
                                    << QStringLiteral("7");
}

void tst_tlxStream::kinds()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    QFETCH(QString, type);
    QFETCH(QString, text);
    const STlxRun run = runStream(bytes, options);

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("values")).toInt(), 1);
    QCOMPARE(cell(run, 0, "type"), type);
    QCOMPARE(cell(run, 0, "text"), text);
}

void tst_tlxStream::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("values");
    QTest::addColumn<int>("offset");

    const QByteArray good = streamed(CVariant(5));
    const QString variant = QStringLiteral("variant");
    QTest::newRow("container") << good + fromHexText("00000009 00 7fffffff 00000006") << variant << 1 << 13;
    QTest::newRow("no type number") << good + good + QByteArray(13, '\x55') << variant << 2 << 26;
    QTest::newRow("tag 21") << good + fromHexText("00000002 00 00000005 00000015") << variant << 1 << 22;
    QTest::newRow("unit 8") << fromHexText("0000000000000005 00000008") << QStringLiteral("time") << 0 << 8;
    QTest::newRow("time spec 9") << fromHexText("0000000000258ad7 02d0aa10 09") << QStringLiteral("datetime")
                                 << 0 << 0;
    QTest::newRow("text of odd bytes") << fromHexText("00000003 410042") << QStringLiteral("text") << 0 << 0;
    QTest::newRow("text longer than the file")
        << fromHexText("7ffffffe 0041") << QStringLiteral("text") << 0 << 0;
}

void tst_tlxStream::damaged()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, kind);
    QFETCH(int, values);
    const STlxRun run = runStream(bytes, {QStringLiteral("--kind"), kind});

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.result().value(QLatin1String("values")).toInt(), values);
    QTEST(int(offset(run)), "offset");
}

void tst_tlxStream::everyTruncation()
{
    const QByteArray bytes = streamed(CVariant(5)) + streamed(CVariant('A'));
    for (int length = 1; length < bytes.size(); ++length) {
        const STlxRun run = runStream(bytes.left(length));
        const bool whole = length == 13;
        QCOMPARE(run.exitCode, whole ? 0 : 1);
        QCOMPARE(offset(run), qint64(whole ? -1 : length < 13 ? 0 : 13));
    }
}

void tst_tlxStream::automatic_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("order");

    const QString big = QStringLiteral("big-endian");
    const QString little = QStringLiteral("little-endian");
    const CVariant number(ushort(7));
    QTest::newRow("variant") << streamed(number) << QStringLiteral("variant") << big;
    QTest::newRow("variant, little-endian")
        << streamed(number, QDataStream::LittleEndian) << QStringLiteral("variant") << little;
    QTest::newRow("time") << streamed(CTime(1500, CTime::UNIT_MS)) << QStringLiteral("time") << big;
    QTest::newRow("time, little-endian") << streamed(CTime(1500, CTime::UNIT_MS), QDataStream::LittleEndian)
                                         << QStringLiteral("time") << little;
    QTest::newRow("text, little-endian")
        << streamed(QStringLiteral("drive"), QDataStream::LittleEndian) << QStringLiteral("text") << little;
}

void tst_tlxStream::automatic()
{
    QFETCH(QByteArray, bytes);
    const QStringList options{QStringLiteral("--kind"), QStringLiteral("auto")};
    const STlxRun run = runStream(bytes, options);
    QCOMPARE(run.exitCode, 0);
    QTEST(run.result().value(QLatin1String("kind")).toString(), "kind");
    QTEST(run.result().value(QLatin1String("byteOrder")).toString(), "order");

    // Of damaged values the kind that gets furthest is shown.
    const STlxRun cut = runStream(streamed(CVariant(5)) + QByteArray(7, '\x55'), options);
    QCOMPARE(cut.exitCode, 1);
    QCOMPARE(cut.result().value(QLatin1String("kind")).toString(), QStringLiteral("variant"));
    QCOMPARE(cut.result().value(QLatin1String("values")).toInt(), 1);
    QCOMPARE(offset(cut), qint64(13));
}

void tst_tlxStream::otherOrder()
{
    const STlxRun little = runStream(streamed(CVariant(5), QDataStream::LittleEndian));
    QCOMPARE(little.exitCode, 1);
    QVERIFY2(little.output.contains(": reads with --little-endian"), little.output.constData());
    const STlxRun big = runStream(streamed(CVariant(5)), {QStringLiteral("--little-endian")});
    QVERIFY2(big.output.contains(": reads without --little-endian"), big.output.constData());
    QVERIFY(!runStream(QByteArray(7, '\x55')).output.contains("little-endian\""));
}

void tst_tlxStream::differences()
{
    const QByteArray common = streamed(CVariant(5));
    runStream(common + streamed(CVariant(ushort(7))));
    const QString a = mDir->filePath(QStringLiteral("values.bin"));
    const QString b = mDir->filePath(QStringLiteral("b.bin"));
    QFile file(b);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(common + streamed(CVariant(7)) + common);
    file.close();
    const QStringList diff{QStringLiteral("stream"), QStringLiteral("--json"), QStringLiteral("diff")};
    QCOMPARE(runTlx(diff + QStringList{a, a}).exitCode, 0);
    const STlxRun run = runTlx(diff + QStringList{a, b});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject second{{QStringLiteral("value"), 1},
                             {QStringLiteral("a"), QStringLiteral("U16 7")},
                             {QStringLiteral("b"), QStringLiteral("I32 7")}};
    const QJsonObject third{{QStringLiteral("value"), 2},
                            {QStringLiteral("a"), QJsonValue()},
                            {QStringLiteral("b"), QStringLiteral("I32 5")}};
    QCOMPARE(run.result().value(QLatin1String("differences")).toArray(), (QJsonArray{second, third}));
}

void tst_tlxStream::emptyFile()
{
    const STlxRun run = runStream(QByteArray());

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("values")).toInt(-1), 0);
}

void tst_tlxStream::noFile()
{
    QCOMPARE(runTlx({QStringLiteral("stream"), mDir->filePath(QStringLiteral("none"))}).exitCode, 1);
    QCOMPARE(runTlx({QStringLiteral("stream"), mDir->path()}).exitCode, 1);
}

void tst_tlxStream::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("no file") << QStringList();
    QTest::newRow("two files") << QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QTest::newRow("unknown kind") << QStringList{QStringLiteral("--kind"), QStringLiteral("map"),
                                                 QStringLiteral("a")};
    QTest::newRow("unknown version") << QStringList{QStringLiteral("--stream-version"), QStringLiteral("7.0"),
                                                    QStringLiteral("a")};
}

void tst_tlxStream::wrongUsage()
{
    QFETCH(QStringList, arguments);

    QCOMPARE(runTlx(QStringList{QStringLiteral("stream")} + arguments).exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_tlxStream)
#include "tst_tlxStream.moc"
