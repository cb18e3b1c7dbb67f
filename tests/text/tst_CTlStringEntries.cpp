#include <core/text/CTlString.h>

#include <tests/support/Texts.h>

#include <QtTest>

using SFormat = CTlString::SFormatValue;

namespace {

constexpr quint8 HEX = CTlString::NOTATION_HEX;
constexpr quint8 DUAL = CTlString::NOTATION_DUAL;

struct SRow
{
    const char* s;
    SFormat format;
    const char* expected;
    bool fits;
};

} // namespace

/// What a user typed into an editor, made what toStr() would print.
class tst_CTlStringEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void upper_data();
    void upper();
    void lower_data();
    void lower();
    void numbers_data();
    void numbers();
    void foreign_data();
    void foreign();
    void notationOfTheDescriptorDecides();

private:
    void addColumns();
};

void tst_CTlStringEntries::addColumns()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<SFormat>("format");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("fits");
}

void tst_CTlStringEntries::upper_data()
{
    addColumns();
    const SRow rows[] = {
        {"", {0, 4, 0, 0}, "0000", true},
        {"12", {0, 4, 0, 0}, "0012", true},
        {"12", {2, 6, 0, 0}, "0012", true},
        {"12", {0, 8, 0, 0}, "0000.0012", true},
        {"123456", {0, 4, 0, 0}, "3456", true},
        {"1.2", {0, 8, 0, 0}, "0001.0002", true},
        {"1.", {0, 8, 0, 0}, "0001.0000", true},
        {"1.2.3", {0, 10, 0, 0}, "01.0002.0003", true},
        {"123456789a", {0, 10, 0, 0}, "00.3456.789a", true}, // one group is eight
        {"123456.789abc", {0, 16, 0, 0}, "0000.0000.3456.9abc", true},
        {"xyz", {0, 4, 0, 0}, "0xyz", true},
        {"12", {4, 4, 0, 0}, "", true},
        {"12", {6, 4, 0, 0}, "0000.0012", true}, // a negative number of digits cuts nothing
        {"12", {-2, 4, 0, 0}, "00.0012", true},
    };
    for (const SRow& row : rows) {
        QTest::addRow("\"%s\" in %d %d", row.s, row.format.fractionDigits, row.format.width)
            << text(row.s) << row.format << text(row.expected) << row.fits;
    }
}

void tst_CTlStringEntries::upper()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);

    QCOMPARE(CTlString::validateUpperString(s, format), expected);
}

void tst_CTlStringEntries::lower_data()
{
    addColumns();
    const SRow rows[] = {
        {"5", {2, 6, 0, 0}, "05", true}, // padded on the left, as the integer part
        {"", {3, 6, 0, 0}, "000", true},          {"12345", {4, 6, 0, 0}, "2345", true},
        {"12345", {6, 6, 0, 0}, "01.2345", true}, {"1.2", {6, 6, 0, 0}, "01.0002", true},
        {"12", {0, 6, 0, 0}, "", true},           {"12", {-1, 6, 0, 0}, "0000.0012", true},
    };
    for (const SRow& row : rows) {
        QTest::addRow("\"%s\" in %d %d", row.s, row.format.fractionDigits, row.format.width)
            << text(row.s) << row.format << text(row.expected) << row.fits;
    }
}

void tst_CTlStringEntries::lower()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);

    QCOMPARE(CTlString::validateLowerString(s, format), expected);
}

void tst_CTlStringEntries::numbers_data()
{
    addColumns();
    const SRow rows[] = {
        {"", {0, 0, 0, HEX}, "0", false},
        {"", {0, 4, 0, HEX}, "0000", false},
        {"", {2, 4, 0, HEX}, "00:00", false},
        {"0", {0, 4, 0, HEX}, "0000", true},
        {"12", {0, 4, 0, HEX}, "0012", true},
        {"Ab", {0, 4, 0, HEX}, "00Ab", true},
        {" 12 ", {0, 4, 0, HEX}, "0012", true},
        {"0x12", {0, 4, 0, HEX}, "0012", true},
        {"+12", {0, 4, 0, HEX}, "0012", true},
        {"-12", {0, 4, 0, HEX}, "-0012", true},
        {"-", {0, 4, 0, HEX}, "-", false},
        {"12345", {0, 8, 0, HEX}, "0001.2345", true},
        {"1.2", {0, 8, 0, HEX}, "0001.0002", true},
        {"1..2.", {0, 8, 0, HEX}, "0001.0002", true},
        {"123456789abcdef0", {0, 16, 0, HEX}, "1234.5678.9abc.def0", true},
        {"12345", {0, 4, 0, HEX}, "2345", false},
        {"00012345", {0, 5, 0, HEX}, "1.2345", true},
        {"-12345", {0, 4, 0, HEX}, "-2345", false},
        // Below width 1 no digit is dropped.
        {"123456789abcdef01", {0, 0, 0, HEX}, "1.2345.6789.abcd.ef01", false},
        {"0123456789abcdef0", {0, 0, 0, HEX}, "0.1234.5678.9abc.def0", true},
        {"123456", {0, -2, 0, HEX}, "12.3456", true},
        {"12:345", {2, 0, 0, HEX}, "12:345", true},
        {"12:3", {2, 0, 0, HEX}, "12:03", true},
        {"12:34", {2, 4, 0, HEX}, "12:34", true},
        {"1:2", {2, 4, 0, HEX}, "01:02", true},
        {":2", {2, 4, 0, HEX}, "00:02", true},
        {"1:", {2, 4, 0, HEX}, "01:00", true},
        {"1", {2, 4, 0, HEX}, "01:00", true},
        {"123:456", {2, 4, 0, HEX}, "23:56", false},
        {"012:056", {2, 4, 0, HEX}, "12:56", true},
        {"0:12", {4, 4, 0, HEX}, ":0012", true},
        {"1:12", {4, 4, 0, HEX}, ":0012", false},
        {"1.2345:6.789a", {8, 14, 0, HEX}, "01.2345:0006.789a", true},
        {"-8000000000000000", {0, 16, 0, HEX}, "-8000.0000.0000.0000", true},
        {"-8000000000000001", {0, 16, 0, HEX}, "-8000.0000.0000.0001", false},
        {"ffff.ffff.ffff.fffd:d", {1, 18, 0, HEX}, "0.ffff.ffff.ffff.fffd:d", true}, // -35
        {"ffff.ffff.ffff.7ffd:d", {1, 18, 0, HEX}, "0.ffff.ffff.ffff.7ffd:d", true},
        {"f7ff.ffff.ffff.fffd:d", {1, 18, 0, HEX}, "0.f7ff.ffff.ffff.fffd:d", false},
        // Beyond 64 bits there is what toStr() prints for a negative number: min(fraction, width - 16) times "f".
        {"f9abc.def0.1234:5678", {4, 20, 0, HEX}, "000f.9abc.def0.1234:5678", false},
        {"ffff.ffff.ffff.fffe:1234", {4, 20, 0, HEX}, "ffff.ffff.ffff.fffe:1234", true},
        {"ff.ffff.ffff.fffe:1234", {4, 18, 0, HEX}, "ff.ffff.ffff.fffe:1234", true},
        {"f.ffff.ffff.fffe:1234", {4, 18, 0, HEX}, "0f.ffff.ffff.fffe:1234", false},
        {"ff.ffff.ffff.fffe:1234", {4, 20, 0, HEX}, "00ff.ffff.ffff.fffe:1234", false},
        {"ffff.ffff.ffff.fffe:1234", {4, 22, 0, HEX}, "00.ffff.ffff.ffff.fffe:1234", true},
        {"ff.ffff.ffff.ffff.fffe:1234", {4, 22, 0, HEX}, "ff.ffff.ffff.ffff.fffe:1234", false},
        {"-f.ffff.ffff.ffff:f", {1, 18, 0, HEX}, "-0.000f.ffff.ffff.ffff:f", true},
        {"-ffff.ffff.ffff.ffff:f", {1, 18, 0, HEX}, "-0.ffff.ffff.ffff.ffff:f", false},
        {"101", {0, 8, 0, DUAL}, "0000.0101", true},
        {"101", {0, 2, 0, DUAL}, "01", false},
        {"1:01", {4, 8, 0, DUAL}, "0001:0001", true},
        {"-101", {0, 4, 0, DUAL}, "-0101", false}, // binary numbers have no sign
        {"1",
         {0, 66, 0, DUAL},
         "00.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0000.0001",
         true},
    };
    for (const SRow& row : rows) {
        QTest::addRow("\"%s\" in %d %d %d", row.s, row.format.fractionDigits, row.format.width,
                      row.format.notation)
            << text(row.s) << row.format << text(row.expected) << row.fits;
    }
}

void tst_CTlStringEntries::numbers()
{
    QFETCH(QString, s);
    QFETCH(SFormat, format);
    QFETCH(QString, expected);
    QFETCH(bool, fits);

    QString entry = s;
    QCOMPARE(CTlString::validateHexStr(entry, format), fits);
    QCOMPARE(entry, expected);
    entry = s;
    QCOMPARE(CTlString::validateDualStr(entry, format), fits);
    QCOMPARE(entry, expected);
}

void tst_CTlStringEntries::foreign_data()
{
    addColumns();
    const SRow rows[] = {
        {"xyz", {0, 4, 0, HEX}, "xyz", false},
        {"g1234567", {0, 4, 0, HEX}, "g1234567", false}, // not cut away
        {"12g4", {0, 0, 0, HEX}, "12g4", false},
        {"1 2", {0, 4, 0, HEX}, "1 2", false},
        {"--1", {0, 4, 0, HEX}, "--1", false},
        {".", {0, 4, 0, HEX}, ".", false},
        {":", {2, 4, 0, HEX}, ":", false},
        {"0x", {0, 4, 0, HEX}, "0x", false},
        {"12:34", {0, 4, 0, HEX}, "12:34", false}, // no fraction here
        {"1:2:3", {2, 4, 0, HEX}, "1:2:3", false},
        {"  ", {0, 4, 0, HEX}, "  ", false},
        {"102", {0, 4, 0, DUAL}, "102", false},
        {"2001", {0, 2, 0, DUAL}, "2001", false},
        {"0x1", {0, 4, 0, DUAL}, "0x1", false},
    };
    for (const SRow& row : rows) {
        QTest::addRow("\"%s\" in %d %d %d", row.s, row.format.fractionDigits, row.format.width,
                      row.format.notation)
            << text(row.s) << row.format << text(row.expected) << row.fits;
    }
}

void tst_CTlStringEntries::foreign()
{
    numbers();
}

// The two are one routine: the descriptor's notation decides in both.
void tst_CTlStringEntries::notationOfTheDescriptorDecides()
{
    for (const auto validate : {CTlString::validateHexStr, CTlString::validateDualStr}) {
        QString entry = text("12");
        QVERIFY(validate(entry, SFormat(0, 4, 0, HEX)));
        QCOMPARE(entry, text("0012"));
        entry = text("12");
        QVERIFY(validate(entry, SFormat(0, 4, 0, CTlString::NOTATION_DECIMAL)));
        QCOMPARE(entry, text("0012"));
        entry = text("12");
        QVERIFY(!validate(entry, SFormat(0, 4, 0, DUAL)));
        QCOMPARE(entry, text("12"));
    }
}

QTEST_APPLESS_MAIN(tst_CTlStringEntries)
#include "tst_CTlStringEntries.moc"
