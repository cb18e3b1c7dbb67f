#include <tests/support/TlxProcess.h>

#include <core/app/CHmac.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

/// tlx totp and tlx bench-ticks. Codes are made with the longest step, which does not end before the year 2106.
class tst_tlxTotp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void make_data();
    void make();
    void keyFile_data();
    void keyFile();
    void check_data();
    void check();
    void invalid_data();
    void invalid();
    void wrongUsage_data();
    void wrongUsage();
    void keyIsNoArgument();
    void quiet();
    void benchTicks();
};

namespace {

const char STEP[] = "4294967295";

QStringList arguments(const QStringList& more)
{
    return QStringList{QStringLiteral("totp"), QStringLiteral("--step"), QLatin1String(STEP)} + more;
}

QString codeOf(const QByteArray& key, int digits)
{
    return CHmac::totpStr(key, 0, 4294967295u, digits);
}

const QStringList SECRET{QStringLiteral("TLX_TOTP_KEY=secret")};

} // namespace

void tst_tlxTotp::make_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("digits");

    QTest::newRow("raw") << "secret" << QStringList() << QByteArray("secret") << 6;
    QTest::newRow("hexadecimal") << "00FF80" << QStringList{QStringLiteral("--hex")}
                                 << QByteArray("\x00\xff\x80", 3) << 6;
    QTest::newRow("Base64") << "AP+A" << QStringList{QStringLiteral("--base64")}
                            << QByteArray("\x00\xff\x80", 3) << 6;
    QTest::newRow("12 digits") << "secret" << QStringList{QStringLiteral("--digits"), QStringLiteral("12")}
                               << QByteArray("secret") << 12;
    QTest::newRow("empty key") << "" << QStringList() << QByteArray() << 6;
}

void tst_tlxTotp::make()
{
    QFETCH(QString, variable);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, key);
    QFETCH(int, digits);
    const QStringList environment{QStringLiteral("TLX_TOTP_KEY=") + variable};
    const STlxRun run =
        runTlx(arguments({QStringLiteral("make"), QStringLiteral("--json")}) + options, environment);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("code")).toString(), codeOf(key, digits));
    QVERIFY(!run.output.contains("secret"));
}

void tst_tlxTotp::keyFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("key");

    QTest::newRow("every byte counts")
        << QByteArray("\x00 key\n", 6) << QStringList() << QByteArray("\x00 key\n", 6);
    QTest::newRow("hexadecimal with a line end")
        << QByteArray("00ff\n") << QStringList{QStringLiteral("--hex")} << QByteArray("\x00\xff", 2);
    QTest::newRow("Base64 with a line end")
        << QByteArray("a2V5\r\n") << QStringList{QStringLiteral("--base64")} << QByteArray("key");
}

void tst_tlxTotp::keyFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, key);
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("key")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const QStringList ask{QStringLiteral("make"), QStringLiteral("--json"), QStringLiteral("--key-file"),
                          file.fileName()};
    const STlxRun run = runTlx(arguments(ask) + options, SECRET); // the file goes before the environment
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("code")).toString(), codeOf(key, 6));
}

void tst_tlxTotp::check_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("result");
    const QString right = codeOf("secret", 6);
    QString wrong = right;
    wrong[5] = right.at(5) == QLatin1Char('0') ? QLatin1Char('1') : QLatin1Char('0');

    QTest::newRow("valid") << right << 0;
    QTest::newRow("not valid") << wrong << 1;
    QTest::newRow("too short") << right.left(5) << 2;
    QTest::newRow("empty") << "" << 2;
}

void tst_tlxTotp::check()
{
    QFETCH(QString, code);
    QFETCH(int, result);
    const STlxRun run = runTlx(arguments({QStringLiteral("check"), code, QStringLiteral("--json"),
                                          QStringLiteral("--window"), QStringLiteral("0")}),
                               SECRET);
    QCOMPARE(run.exitCode, result == 0 ? 0 : 1);
    QCOMPARE(run.result().value(QLatin1String("result")).toInt(-1), result);
    QCOMPARE(run.result().value(QLatin1String("valid")).toBool(), result == 0);
    QCOMPARE(run.json().value(QLatin1String("ok")).toBool(), result == 0);
}

void tst_tlxTotp::invalid_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QStringList>("options");

    QTest::newRow("not hexadecimal") << "12 34 xy" << QStringList{QStringLiteral("--hex")};
    QTest::newRow("odd number of digits") << "123" << QStringList{QStringLiteral("--hex")};
    QTest::newRow("not Base64") << "a2V5!" << QStringList{QStringLiteral("--base64")};
    QTest::newRow("no such file") << "secret"
                                  << QStringList{QStringLiteral("--key-file"),
                                                 QStringLiteral("/nowhere/key")};
}

void tst_tlxTotp::invalid()
{
    QFETCH(QString, variable);
    QFETCH(QStringList, options);
    const STlxRun run =
        runTlx(arguments({QStringLiteral("make")}) + options, {QStringLiteral("TLX_TOTP_KEY=") + variable});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errorOutput.startsWith("tlx totp: "));
    QVERIFY(!run.errorOutput.contains(variable.toLatin1())); // the key is not shown
}

void tst_tlxTotp::wrongUsage_data()
{
    QTest::addColumn<QStringList>("options");

    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown task") << QStringList{QStringLiteral("guess")};
    QTest::newRow("check without code") << QStringList{QStringLiteral("check")};
    QTest::newRow("two forms") << QStringList{QStringLiteral("make"), QStringLiteral("--hex"),
                                              QStringLiteral("--base64")};
    QTest::newRow("digits below 0") << QStringList{QStringLiteral("make"), QStringLiteral("--digits=-1")};
    QTest::newRow("digits no number") << QStringList{QStringLiteral("make"), QStringLiteral("--digits=six")};
    QTest::newRow("step too long") << QStringList{QStringLiteral("make"),
                                                  QStringLiteral("--step=4294967296")};
    QTest::newRow("window too large")
        << QStringList{QStringLiteral("make"), QStringLiteral("--window=1000001")};
}

void tst_tlxTotp::wrongUsage()
{
    QFETCH(QStringList, options);
    const STlxRun run = runTlx(QStringList{QStringLiteral("totp")} + options, SECRET);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errorOutput.endsWith("See: tlx totp --help\n"));
}

void tst_tlxTotp::keyIsNoArgument()
{
    qunsetenv("TLX_TOTP_KEY");
    QCOMPARE(runTlx({QStringLiteral("totp"), QStringLiteral("make")}).exitCode, 2);
    QCOMPARE(runTlx({QStringLiteral("totp"), QStringLiteral("make"), QStringLiteral("secret")}).exitCode, 2);
    QCOMPARE(
        runTlx({QStringLiteral("totp"), QStringLiteral("make"), QStringLiteral("--key=secret")}).exitCode, 2);
}

void tst_tlxTotp::quiet()
{
    const STlxRun run = runTlx({QStringLiteral("totp"), QStringLiteral("make"), QStringLiteral("--quiet")},
                               {QStringLiteral("TLX_TOTP_KEY=secret")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(
        QRegularExpression(QStringLiteral("^[0-9]{6}\n$")).match(QString::fromLatin1(run.output)).hasMatch(),
        run.output.constData());
}

void tst_tlxTotp::benchTicks()
{
    const STlxRun run = runTlx({QStringLiteral("bench-ticks"), QStringLiteral("--json")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.result().value(QLatin1String("unit")).toString(), QStringLiteral("CPU Ticks"));
    QVERIFY(run.result().value(QLatin1String("ticksPerUs")).toDouble() > 0.0);
    QVERIFY(run.result().value(QLatin1String("shortest")).toDouble(-1.0) >= 0.0);
    QCOMPARE(runTlx({QStringLiteral("bench-ticks"), QStringLiteral("more")}).exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_tlxTotp)
#include "tst_tlxTotp.moc"
