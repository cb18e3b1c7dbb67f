#include <tests/support/TlxProcess.h>

#include <QtTest>

namespace {

STlxRun runDateTime(const QStringList& arguments)
{
    return runTlx(QStringList{QStringLiteral("datetime"), QStringLiteral("--json")} + arguments,
                  {QStringLiteral("TZ=Europe/Berlin")});
}

QString form(const STlxRun& run, const char* section, const char* key)
{
    return run.result().value(QLatin1String(section)).toObject().value(QLatin1String(key)).toString();
}

} // namespace

/// `tlx datetime`: a text, a packed number or 8 bytes, in both time specs.
class tst_tlxDateTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forms_data();
    void forms();
    void localFields();
    void offsetInText();
    void text();
    void invalid_data();
    void invalid();
    void wrongUsage_data();
    void wrongUsage();
};

void tst_tlxDateTime::forms_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("ISO 8601") << QStringList{QStringLiteral("2024-03-05T13:07:09.456Z")};
    QTest::newRow("ISO 8601 without a zone")
        << QStringList{QStringLiteral("--utc"), QStringLiteral("2024-03-05T13:07:09.456")};
    QTest::newRow("packed, decimal") << QStringList{QStringLiteral("--utc"),
                                                    QStringLiteral("569708673090652461")};
    QTest::newRow("packed, hexadecimal")
        << QStringList{QStringLiteral("--utc"), QStringLiteral("0x07E803050D07092D")};
    QTest::newRow("bytes") << QStringList{QStringLiteral("--utc"), QStringLiteral("--bytes"),
                                          QStringLiteral("2D 09 07 0D 05 03 E8 07")};
}

void tst_tlxDateTime::forms()
{
    QFETCH(QStringList, arguments);
    const STlxRun run = runDateTime(arguments);

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(form(run, "utc", "text"), QStringLiteral("2024-03-05T13:07:09Z"));
    QCOMPARE(form(run, "utc", "packed"), QStringLiteral("569708673090652461"));
    QCOMPARE(form(run, "utc", "packedHex"), QStringLiteral("0x07e803050d07092d"));
    QCOMPARE(form(run, "utc", "bytes"), QStringLiteral("2d 09 07 0d 05 03 e8 07"));
#ifdef Q_OS_UNIX
    QCOMPARE(form(run, "local", "text"), QStringLiteral("2024-03-05T14:07:09"));
    QCOMPARE(form(run, "local", "packedHex"), QStringLiteral("0x07e803050e07092d"));
#endif
}

void tst_tlxDateTime::localFields()
{
    const STlxRun run = runDateTime({QStringLiteral("0x07E803050D07092D")});

    QCOMPARE(form(run, "local", "text"), QStringLiteral("2024-03-05T13:07:09"));
    QCOMPARE(form(run, "local", "packedHex"), QStringLiteral("0x07e803050d07092d"));
}

void tst_tlxDateTime::offsetInText()
{
    const STlxRun run = runDateTime({QStringLiteral("2024-03-05T13:07:09+02:00")});

    QCOMPARE(form(run, "utc", "text"), QStringLiteral("2024-03-05T11:07:09Z"));
}

void tst_tlxDateTime::text()
{
    const STlxRun run =
        runTlx({QStringLiteral("datetime"), QStringLiteral("--utc"), QStringLiteral("2024-03-05")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains("2024-03-05T00:00:00Z"));
    QVERIFY(run.output.contains("00 00 00 00 05 03 e8 07"));
}

void tst_tlxDateTime::invalid_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("words") << QStringList{QStringLiteral("tomorrow")};
    QTest::newRow("hour 25") << QStringList{QStringLiteral("0x07E803051907092D")};
    QTest::newRow("month 13") << QStringList{QStringLiteral("2024-13-05T13:07:09")};
    QTest::newRow("number of 65 bits") << QStringList{QStringLiteral("0x107E803050D07092D")};
    QTest::newRow("seven bytes") << QStringList{QStringLiteral("--bytes"), QStringLiteral("2D09070D0503E8")};
    QTest::newRow("no digits") << QStringList{QStringLiteral("--bytes"),
                                              QStringLiteral("2D09070D0503E8xx07")};
    QTest::newRow("empty") << QStringList{QString()};
}

void tst_tlxDateTime::invalid()
{
    QFETCH(QStringList, arguments);
    const STlxRun run = runDateTime(arguments);

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.json().value(QLatin1String("ok")).toBool(true), false);
}

void tst_tlxDateTime::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("nothing") << QStringList();
    QTest::newRow("two") << QStringList{QStringLiteral("0"), QStringLiteral("1")};
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--gmt"), QStringLiteral("1")};
}

void tst_tlxDateTime::wrongUsage()
{
    QFETCH(QStringList, arguments);

    QCOMPARE(runDateTime(arguments).exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_tlxDateTime)
#include "tst_tlxDateTime.moc"
