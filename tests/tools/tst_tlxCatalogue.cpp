#include <tests/support/InstalledProgram.h>
#include <tests/support/TlxProcess.h>

#include <QJsonArray>
#include <QtTest>

namespace {

STlxRun run(const InstalledProgram& tlx, const char* arguments)
{
    return runTlx(QString::fromLatin1(arguments).split(QLatin1Char(' ')), tlx.environment(), tlx.program());
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toVariant().toString();
}

} // namespace

/// `tlx unit`, `tlx company` and `tlx paths`, in an installation of their own.
class tst_tlxCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unit_data();
    void unit();
    void units();
    void search_data();
    void search();
    void noSuchUnit_data();
    void noSuchUnit();
    void company();
    void product();
    void absentProduct();
    void paths();
    void pathsOnRequest();
    void wrongUsage_data();
    void wrongUsage();
};

void tst_tlxCatalogue::unit_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QStringList>("answers"); // code, name, size, typeCode, type

    const QStringList dateTime{QStringLiteral("80"), QStringLiteral("UNIT_DATE_TIME"), QStringLiteral("8"),
                               QStringLiteral("16"), QStringLiteral("DATETIME")};
    QTest::newRow("by name") << QStringLiteral("UNIT_DATE_TIME") << dateTime;
    QTest::newRow("by code") << QStringLiteral("80") << dateTime;
    QTest::newRow("by hexadecimal code") << QStringLiteral("0x50") << dateTime;
    QTest::newRow("0") << QStringLiteral("0")
                       << QStringList{QStringLiteral("0"), QStringLiteral("UNIT_UNKNOWN"),
                                      QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("UNKNOWN")};
    QTest::newRow("without a type") << QStringLiteral("UNIT_F80")
                                    << QStringList{QStringLiteral("11"), QStringLiteral("UNIT_F80"),
                                                   QStringLiteral("10"), QStringLiteral("0"),
                                                   QStringLiteral("UNKNOWN")};
}

void tst_tlxCatalogue::unit()
{
    QFETCH(QString, argument);
    QFETCH(QStringList, answers);

    const STlxRun run = runTlx({QStringLiteral("unit"), QStringLiteral("--json"), argument});

    QCOMPARE(run.exitCode, 0);
    QStringList found;
    for (const char* key : {"code", "name", "size", "typeCode", "type"}) {
        found << text(run.result(), key);
    }
    QCOMPARE(found, answers);
}

void tst_tlxCatalogue::units()
{
    const STlxRun run = runTlx({QStringLiteral("unit"), QStringLiteral("--json")});

    QCOMPARE(run.exitCode, 0);
    const QJsonArray rows = run.result().value(QLatin1String("units")).toArray();
    QCOMPARE(rows.size(), 126);
    QCOMPARE(rows[35][QLatin1String("code")].toInt(), 35);
    QCOMPARE(rows[35][QLatin1String("name")].toString(), QStringLiteral("UNIT_res35"));
    QCOMPARE(rows[125][QLatin1String("size")].toInt(), 8);
    QCOMPARE(rows[125][QLatin1String("type")].toString(), QStringLiteral("F64"));
}

void tst_tlxCatalogue::search_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("part of a name") << QStringLiteral("date_t")
                                    << QStringList{QStringLiteral("UNIT_DATE_TIME")};
    QTest::newRow("code, or part of a name")
        << QStringLiteral("80") << QStringList{QStringLiteral("UNIT_F80"), QStringLiteral("UNIT_DATE_TIME")};
    QTest::newRow("type") << QStringLiteral("datetime") << QStringList{QStringLiteral("UNIT_DATE_TIME")};
    QTest::newRow("nothing") << QStringLiteral("furlong") << QStringList();
}

void tst_tlxCatalogue::search()
{
    QFETCH(QString, text);
    QFETCH(QStringList, names);
    const STlxRun run =
        runTlx({QStringLiteral("unit"), QStringLiteral("--json"), QStringLiteral("--search"), text});
    QCOMPARE(run.exitCode, names.isEmpty() ? 1 : 0);
    QStringList found;
    const QJsonArray rows = run.result().value(QLatin1String("units")).toArray();
    for (const QJsonValue& row : rows) {
        found << row[QLatin1String("name")].toString();
    }
    QCOMPARE(found, names);
}

void tst_tlxCatalogue::noSuchUnit_data()
{
    QTest::addColumn<QString>("argument");

    QTest::newRow("126") << QStringLiteral("126");
    QTest::newRow("4294967296") << QStringLiteral("4294967296");
    QTest::newRow("lower case") << QStringLiteral("unit_u8");
    QTest::newRow("empty") << QString();
}

void tst_tlxCatalogue::noSuchUnit()
{
    QFETCH(QString, argument);

    const STlxRun run = runTlx({QStringLiteral("unit"), QStringLiteral("--json"), argument});

    QCOMPARE(run.exitCode, 2);
    const QString message = text(run.json().value(QLatin1String("error")).toObject(), "message");
    QVERIFY2(message.startsWith(QStringLiteral("no such unit: ") + argument + QStringLiteral(": ")),
             qPrintable(message));
}

void tst_tlxCatalogue::company()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun answer = run(tlx, "company --json");

    QCOMPARE(answer.exitCode, 0);
    QCOMPARE(text(answer.result(), "settings"), QStringLiteral(":/tlxCore/data/Setup.Ini"));
    QCOMPARE(text(answer.result(), "shortName"), QStringLiteral("TARVENIK"));
    QCOMPARE(text(answer.result(), "addressStreet"), QString::fromUtf8("Am Läufer 7"));
    QCOMPARE(text(answer.result(), "logo16x16"),
             tlx.install() + QStringLiteral("etc/image/TarvenikLogo_16x16.png"));
    QStringList products;
    const QJsonArray rows = answer.result().value(QLatin1String("products")).toArray();
    for (const QJsonValue& row : rows) {
        products << QString::number(row[QLatin1String("product")].toInt());
    }
    QCOMPARE(products.join(QLatin1Char(' ')),
             QStringLiteral("90 91 92 93 94 101 102 103 104 105 106 107 108"));
}

void tst_tlxCatalogue::product()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun answer = run(tlx, "company --json 102");

    QCOMPARE(answer.exitCode, 0);
    QCOMPARE(text(answer.result(), "section"), QStringLiteral("PRODUCT102"));
    QCOMPARE(text(answer.result(), "name"), QStringLiteral("Tollan Commissioning"));
    QCOMPARE(text(answer.result(), "exeFile"), tlx.install() + QStringLiteral("bin/TollanCommissioning.exe"));
    QCOMPARE(text(answer.result(), "eMail"), QStringLiteral("commissioning@tarvenik.example"));
}

void tst_tlxCatalogue::absentProduct()
{
    const InstalledProgram tlx(tlxProgram());

    const STlxRun answer = run(tlx, "company --json 999");

    QCOMPARE(answer.exitCode, 1);
    QCOMPARE(text(answer.result(), "name"), QStringLiteral("PRODUCT999"));
    QCOMPARE(text(answer.result(), "exeFile"), tlx.install() + QStringLiteral("bin/"));
}

void tst_tlxCatalogue::paths()
{
    const InstalledProgram tlx(tlxProgram());
    const QStringList before = tlx.entries();

    const STlxRun answer = run(tlx, "paths --json");

    QCOMPARE(answer.exitCode, 0);
    QCOMPARE(text(answer.result(), "product"), QStringLiteral("Tool"));
    QCOMPARE(text(answer.result(), "install"), tlx.install());
    QCOMPARE(text(answer.result(), "appdata"), tlx.appdata() + QStringLiteral("/TARVENIK/Tool/"));
    const QJsonArray rows = answer.result().value(QLatin1String("directories")).toArray();
    QCOMPARE(rows.size(), 14);
    QCOMPARE(rows[0][QLatin1String("exists")], QJsonValue(true));
    QCOMPARE(rows[2][QLatin1String("path")].toString(), tlx.install() + QStringLiteral("etc/"));
    QCOMPARE(rows[2][QLatin1String("exists")], QJsonValue(false));
    QCOMPARE(tlx.entries(), before);
}

void tst_tlxCatalogue::pathsOnRequest()
{
#ifdef Q_OS_WIN
    QSKIP("the documents folder is the user's own");
#else
    const InstalledProgram tlx(tlxProgram());

    const STlxRun answer = run(tlx, "paths --json --create");

    const QJsonArray rows = answer.result().value(QLatin1String("directories")).toArray();
    for (const QJsonValue& row : rows) {
        QCOMPARE(row[QLatin1String("exists")], QJsonValue(true));
        QVERIFY(QFileInfo(row[QLatin1String("path")].toString()).isDir());
    }
#endif
}

void tst_tlxCatalogue::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("two units") << QStringList{QStringLiteral("unit"), QStringLiteral("1"),
                                              QStringLiteral("2")};
    QTest::newRow("two products") << QStringList{QStringLiteral("company"), QStringLiteral("1"),
                                                 QStringLiteral("2")};
    QTest::newRow("product by name") << QStringList{QStringLiteral("company"), QStringLiteral("setup")};
    QTest::newRow("paths with argument") << QStringList{QStringLiteral("paths"), QStringLiteral("bin")};
    QTest::newRow("unknown option") << QStringList{QStringLiteral("paths"), QStringLiteral("--make")};
}

void tst_tlxCatalogue::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const InstalledProgram tlx(tlxProgram());
    const QStringList before = tlx.entries();

    const STlxRun answer = runTlx(arguments, tlx.environment(), tlx.program());

    QCOMPARE(answer.exitCode, 2);
    QVERIFY(!answer.errorOutput.isEmpty());
    QCOMPARE(tlx.entries(), before);
}

QTEST_GUILESS_MAIN(tst_tlxCatalogue)
#include "tst_tlxCatalogue.moc"
