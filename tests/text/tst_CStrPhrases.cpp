#include <core/text/CStr.h>

#include <tests/support/Texts.h>

#include <QtTest>

#include <limits>

/// The phrasings of revisions, serial numbers and memory sizes.
class tst_CStrPhrases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void revisions_data();
    void revisions();
    void shortRevisions_data();
    void shortRevisions();
    void readRevisions_data();
    void readRevisions();
    void notARevision_data();
    void notARevision();
    void splitStringAtDot_data();
    void splitStringAtDot();
    void serialToString_data();
    void serialToString();
    void memSizeToString_data();
    void memSizeToString();
};

void tst_CStrPhrases::revisions_data()
{
    QTest::addColumn<uint>("revision");
    QTest::addColumn<QString>("shown");
    QTest::newRow("0x00010005") << 0x00010005U << text("1.005");
    QTest::newRow("0") << 0U << text("0.000");
    QTest::newRow("three digits") << 0x000203E7U << text("2.999");
    QTest::newRow("four digits") << 0x000203E8U << text("2.1000");
    QTest::newRow("largest") << 0xFFFFFFFFU << text("65535.65535");
}

void tst_CStrPhrases::revisions()
{
    QFETCH(uint, revision);
    QFETCH(QString, shown);

    QCOMPARE(CStr::revisionToString(revision), shown);
    uint back = 1;
    QVERIFY(CStr::stringToRevision(shown, back));
    QCOMPARE(back, revision);
}

void tst_CStrPhrases::shortRevisions_data()
{
    QTest::addColumn<ushort>("revision");
    QTest::addColumn<QString>("shown");
    QTest::newRow("0x0105") << ushort(0x0105) << text("1.05");
    QTest::newRow("0") << ushort(0) << text("0.00");
    QTest::newRow("three digits") << ushort(0x0264) << text("2.100");
    QTest::newRow("largest") << ushort(0xFFFF) << text("255.255");
}

void tst_CStrPhrases::shortRevisions()
{
    QFETCH(ushort, revision);
    QFETCH(QString, shown);

    QCOMPARE(CStr::revisionToString(revision), shown);
    ushort back = 1;
    QVERIFY(CStr::stringToRevision(shown, back));
    QCOMPARE(back, revision);
}

void tst_CStrPhrases::readRevisions_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<uint>("revision");
    QTest::newRow("1.05 as long revision") << text("1.05") << 0x00010005U;
    QTest::newRow("no dot") << text("3") << 0x00030000U;
    QTest::newRow("leading zeros") << text("003.0007") << 0x00030007U;
    QTest::newRow("limits") << text("65535.65535") << 0xFFFFFFFFU;
    QTest::newRow("plus before the first number") << text("+1.005") << 0x00010005U;
    QTest::newRow("plus before the second number") << text("1.+5") << 0x00010005U;
    QTest::newRow("minus zero") << text("-0.5") << 0x00000005U;
}

void tst_CStrPhrases::readRevisions()
{
    QFETCH(QString, s);
    QFETCH(uint, revision);

    uint read = 1;
    QVERIFY(CStr::stringToRevision(s, read));
    QCOMPARE(read, revision);
}

void tst_CStrPhrases::notARevision_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<bool>("isLong");
    for (const char* s : {"", ".", "1.", ".5", "1.2.3", "x", "1.x", "-1", "-1.5", "1.-5", "70000.1",
                          "1.65536", "0x1.2", "1,5", "99999999999.1"}) {
        QTest::addRow("\"%s\"", s) << text(s) << false;
    }
    QTest::newRow("minus sign U+2212") << QStringLiteral("\u22121.5") << false;
    QTest::newRow("U+2212 before the second number") << QStringLiteral("1.\u22125") << false;
    QTest::newRow("256 is too much for the short form") << text("256.0") << true;
    QTest::newRow("1.256 is too much for the short form") << text("1.256") << true;
}

void tst_CStrPhrases::notARevision()
{
    QFETCH(QString, s);
    QFETCH(bool, isLong);

    ushort narrow = 77;
    QVERIFY(!CStr::stringToRevision(s, narrow));
    QCOMPARE(narrow, ushort(77));
    uint wide = 77;
    QCOMPARE(CStr::stringToRevision(s, wide), isLong);
    QCOMPARE(wide == 77, !isLong);
}

void tst_CStrPhrases::splitStringAtDot_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::newRow("two parts") << text("12.34") << true << 12 << 34;
    QTest::newRow("one part") << text("12") << true << 12 << 0;
    QTest::newRow("signs are numbers here") << text("-12.34") << true << -12 << 34;
    QTest::newRow("first part is no number") << text("x.34") << false << 0 << 0;
    QTest::newRow("second part is no number") << text("12.x") << false << 12 << 0;
    QTest::newRow("three parts") << text("1.2.3") << false << 77 << 0;
    QTest::newRow("empty") << QString() << false << 0 << 0;
}

void tst_CStrPhrases::splitStringAtDot()
{
    QFETCH(QString, s);
    QFETCH(bool, ok);
    QFETCH(int, major);
    QFETCH(int, minor);

    int first = 77;
    int second = 77;
    QCOMPARE(CStr::_splitStringAtDot(s, first, second), ok);
    QCOMPARE(first, major);
    QCOMPARE(second, minor);
}

void tst_CStrPhrases::serialToString_data()
{
    QTest::addColumn<uint>("serial");
    for (const char* shown : {"0", "7", "1 2", "1 23", "1 234", "1 234 5", "1 234 56", "1 234 567",
                              "1 234 567 8", "1 234 567 89", "1 234 567 890", "4 294 967 295"}) {
        QTest::newRow(shown) << text(shown).remove(QLatin1Char(' ')).toUInt();
    }
}

void tst_CStrPhrases::serialToString()
{
    QFETCH(uint, serial);

    QCOMPARE(CStr::serialToString(serial), text(QTest::currentDataTag()));
}

void tst_CStrPhrases::memSizeToString_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("expected");
    const qint64 kib = 1024;
    const qint64 mib = kib * 1024;
    const qint64 gib = mib * 1024;
    const qint64 tib = gib * 1024;
    const qint64 pib = tib * 1024;
    const struct
    {
        qint64 bytes;
        const char* expected;
    } rows[] = {
        {0, "0 Byte"},
        {-1, "-1 Byte"},
        {-20 * gib, "-21474836480 Byte"},
        {10239, "10239 Byte"},
        {10240, "10.0 KiB"},
        {10240 + 52, "10.1 KiB"},
        {10485759, "10240.0 KiB"},
        {10485760, "10.0 MiB"},
        {10 * gib - 1, "10240.0 MiB"},
        {10 * gib, "10.0 GiB"},
        {15 * gib + gib / 2, "15.5 GiB"},
        {10 * tib - 1, "10240.0 GiB"},
        {10 * tib, "10.0 TiB"},
        {10 * pib - 1, "10240.0 TiB"},
        {10 * pib, "10 PiB"},
        {11 * pib - 1, "10 PiB"},
        {std::numeric_limits<qint64>::max(), "8191 PiB"},
        {std::numeric_limits<qint64>::min(), "-9223372036854775808 Byte"},
    };
    for (const auto& row : rows) {
        QTest::newRow(QByteArray::number(row.bytes).constData()) << row.bytes << text(row.expected);
    }
}

void tst_CStrPhrases::memSizeToString()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, expected);
    QLocale::setDefault(QLocale(QLocale::German)); // the point stays a point

    const QString shown = CStr::memSizeToString(bytes);

    QLocale::setDefault(QLocale::c());
    QCOMPARE(shown, expected);
}

QTEST_APPLESS_MAIN(tst_CStrPhrases)
#include "tst_CStrPhrases.moc"
