#include <core/base/QtTexts.h>
#include <core/text/CStr.h>

#include <tests/support/MessageLog.h>
#include <tests/support/Texts.h>

#include <QRandomGenerator>
#include <QtTest>

namespace {

// One integer type of CStr, its three forms with the number as decimal text; signed fallbacks ignore the base.
struct SForms
{
    bool (*into)(const QString& s, int base, QString& number);
    QString (*orZero)(const QString& s, int base, bool* ok);
    QString (*orFallback)(const QString& s, int base);
};

constexpr int FALLBACK = 77;

template <typename T>
using FIntoWithBase = bool (*)(const QString&, T&, int);
template <typename T>
using FOrZero = T (*)(const QString&, bool*, int);
template <typename T>
using FOrFallbackInBase = T (*)(T, const QString&, int);
template <typename T>
using FOrFallback = T (*)(T, const QString&);

template <typename T, FIntoWithBase<T> INTO, FOrZero<T> OR_ZERO>
SForms formsWithoutFallback()
{
    return {[](const QString& s, int base, QString& number) {
                T out = FALLBACK;
                const bool ok = INTO(s, out, base);
                number = QString::number(out);
                return ok;
            },
            [](const QString& s, int base, bool* ok) { return QString::number(OR_ZERO(s, ok, base)); },
            nullptr};
}

template <typename T, FIntoWithBase<T> INTO, FOrZero<T> OR_ZERO, FOrFallbackInBase<T> OR_FALLBACK>
SForms unsignedForms()
{
    SForms forms = formsWithoutFallback<T, INTO, OR_ZERO>();
    forms.orFallback = [](const QString& s, int base) {
        return QString::number(OR_FALLBACK(FALLBACK, s, base));
    };
    return forms;
}

template <typename T, FIntoWithBase<T> INTO, FOrZero<T> OR_ZERO, FOrFallback<T> OR_FALLBACK>
SForms signedForms()
{
    SForms forms = formsWithoutFallback<T, INTO, OR_ZERO>();
    forms.orFallback = [](const QString& s, int) { return QString::number(OR_FALLBACK(FALLBACK, s)); };
    return forms;
}

SForms formsOf(const QString& reader)
{
#define ROW(Name, Kind, Type)                                                                                \
    if (reader == QLatin1String(#Name)) {                                                                    \
        return Kind<Type, &CStr::Name, &CStr::Name, &CStr::Name>();                                          \
    }
    ROW(strToU8, unsignedForms, unsigned char)
    ROW(strToU16, unsignedForms, unsigned short)
    ROW(strToU32, unsignedForms, unsigned int)
    ROW(strToU64, unsignedForms, unsigned long long)
    ROW(strToI8, signedForms, signed char)
    ROW(strToI16, signedForms, short)
    ROW(strToI32, signedForms, int)
    ROW(strToI64, signedForms, long long)
#undef ROW
    return {};
}

bool hasBaseInFallback(const QString& reader)
{
    return reader.contains(QLatin1Char('U'));
}

} // namespace

class tst_CStrNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integers_data();
    void integers();
    void notIntegers_data();
    void notIntegers();
    void signedFallbackReadsBase10();
    void sameAsQString();
};

void tst_CStrNumbers::integers_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("s");
    QTest::addColumn<int>("base");
    QTest::addColumn<QString>("expected");
    const struct
    {
        const char* reader;
        const char* s;
        int base;
        const char* expected;
    } rows[] = {
        {"strToU8", "255", 10, "255"},
        {"strToU8", "0", 10, "0"},
        {"strToU8", "ff", 16, "255"},
        {"strToU8", "11111111", 2, "255"},
        {"strToU8", "377", 8, "255"},
        {"strToU8", "73", 36, "255"},
        {"strToU16", "65535", 10, "65535"},
        {"strToU32", "ff", 16, "255"},
        {"strToU32", "0xff", 0, "255"},
        {"strToU32", "0XFF", 0, "255"},
        {"strToU32", "010", 0, "8"},
        {"strToU32", "010", 10, "10"},
        {"strToU32", "  42 ", 10, "42"},
        {"strToU32", "+42", 10, "42"},
        {"strToU32", "4294967295", 10, "4294967295"},
        {"strToU32", "00000000000000000000000000042", 10, "42"},
        {"strToU64", "18446744073709551615", 10, "18446744073709551615"},
        {"strToU64", "ffffffffffffffff", 16, "18446744073709551615"},
        {"strToU64", "fffffffffffffff", 16, "1152921504606846975"},
        {"strToU64", "999999999999999999", 10, "999999999999999999"},
        {"strToI8", "-128", 10, "-128"},
        {"strToI8", "127", 10, "127"},
        {"strToI8", "-80", 16, "-128"},
        {"strToI16", "-32768", 10, "-32768"},
        {"strToI16", "32767", 10, "32767"},
        {"strToI32", "-2147483648", 10, "-2147483648"},
        {"strToI32", "2147483647", 10, "2147483647"},
        {"strToI64", "-9223372036854775808", 10, "-9223372036854775808"},
        {"strToI64", "9223372036854775807", 10, "9223372036854775807"},
        {"strToI64", "-0x10", 0, "-16"},
    };
    for (const auto& row : rows) {
        QTest::addRow("%s of \"%s\" in base %d", row.reader, row.s, row.base)
            << text(row.reader) << text(row.s) << row.base << text(row.expected);
    }
}

void tst_CStrNumbers::integers()
{
    QFETCH(QString, reader);
    QFETCH(QString, s);
    QFETCH(int, base);
    QFETCH(QString, expected);
    const MessageLog log;
    const SForms form = formsOf(reader);

    QString number;
    QVERIFY(form.into(s, base, number));
    QCOMPARE(number, expected);
    bool ok = false;
    QCOMPARE(form.orZero(s, base, &ok), expected);
    QVERIFY(ok);
    QCOMPARE(form.orZero(s, base, nullptr), expected);
    if (base == 10 || hasBaseInFallback(reader)) {
        QCOMPARE(form.orFallback(s, base), expected);
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CStrNumbers::notIntegers_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("s");
    QTest::addColumn<int>("base");
    const struct
    {
        const char* reader;
        const char* s;
        int base;
    } rows[] = {
        {"strToU8", "256", 10},
        {"strToU8", "-1", 10},
        {"strToU8", "", 10},
        {"strToU8", "1 2", 10},
        {"strToU8", "1.0", 10},
        {"strToU8", "12a", 10},
        {"strToU8", "2", 2},
        {"strToU8", "100000000", 2},
        {"strToU16", "65536", 10},
        {"strToU32", "4294967296", 10},
        {"strToU32", "100000000", 16},
        {"strToU32", "-1", 10},
        {"strToU32", "08", 0},
        {"strToU32", "g", 16},
        {"strToU32", "12", 1},
        {"strToU32", "12", 37},
        {"strToU32", "12", -10},
        {"strToU32", "1,000", 10},
        {"strToU64", "18446744073709551616", 10},
        {"strToU64", "10000000000000000", 16},
        {"strToU64", "-1", 10},
        {"strToI8", "-129", 10},
        {"strToI8", "128", 10},
        {"strToI8", "ff", 16},
        {"strToI16", "-32769", 10},
        {"strToI16", "32768", 10},
        {"strToI32", "-2147483649", 10},
        {"strToI32", "2147483648", 10},
        {"strToI32", "0xFFFFFFFF", 0},
        {"strToI64", "9223372036854775808", 10},
        {"strToI64", "-9223372036854775809", 10},
        {"strToI64", "--1", 10},
        {"strToI64", "-", 10},
    };
    for (const auto& row : rows) {
        QTest::addRow("%s of \"%s\" in base %d", row.reader, row.s, row.base)
            << text(row.reader) << text(row.s) << row.base;
    }
}

void tst_CStrNumbers::notIntegers()
{
    QFETCH(QString, reader);
    QFETCH(QString, s);
    QFETCH(int, base);
    const MessageLog log;
    const SForms form = formsOf(reader);

    QString number;
    QVERIFY(!form.into(s, base, number));
    QCOMPARE(number, QString::number(FALLBACK));
    bool ok = true;
    QCOMPARE(form.orZero(s, base, &ok), QStringLiteral("0"));
    QVERIFY(!ok);
    QCOMPARE(form.orZero(s, base, nullptr), QStringLiteral("0"));
    if (base == 10 || hasBaseInFallback(reader)) {
        QCOMPARE(form.orFallback(s, base), QString::number(FALLBACK));
    }
    QCOMPARE(log.messages(), QStringList());
}

void tst_CStrNumbers::signedFallbackReadsBase10()
{
    QCOMPARE(CStr::strToI8(5, QStringLiteral("0x10")), static_cast<signed char>(5));
    QCOMPARE(CStr::strToI16(5, QStringLiteral("0x10")), short(5));
    QCOMPARE(CStr::strToI32(5, QStringLiteral("0x10")), 5);
    QCOMPARE(CStr::strToI64(5, QStringLiteral("0x10")), 5LL);
    QCOMPARE(CStr::strToI32(5, QStringLiteral("010")), 10);
}

// Generated texts of digits, letters, signs, points and blanks: what QString reads is what is read.
void tst_CStrNumbers::sameAsQString()
{
    QRandomGenerator random(20111);
    const QString units = QStringLiteral("00123456789789abcdefFxX+- .z\u0663");
    int readable = 0;
    for (int i = 0; i < 200000; ++i) {
        QString s;
        const int most = i % 3 == 0 ? 22 : 5;
        for (int n = random.bounded(most); n >= 0; --n) {
            s += units.at(random.bounded(i % 2 == 0 ? 20 : units.size()));
        }
        const int base = i % 5 == 0 ? random.bounded(2, 37) : QList<int>{0, 2, 10, 16}.at(i % 4);
        bool okSigned = false;
        bool okUnsigned = false;
        const qint64 asSigned = NQtCompat::integerText(s).toLongLong(&okSigned, base);
        const quint64 asUnsigned = NQtCompat::integerText(s).toULongLong(&okUnsigned, base);
        bool ok = false;
        QCOMPARE(CStr::strToI64(s, &ok, base), okSigned ? asSigned : 0);
        QCOMPARE(ok, okSigned);
        QCOMPARE(CStr::strToU64(s, &ok, base), okUnsigned ? asUnsigned : 0);
        QCOMPARE(ok, okUnsigned);
        readable += ok ? 1 : 0;
    }
    QVERIFY2(readable > 20000, qPrintable(QString::number(readable)));
}

QTEST_APPLESS_MAIN(tst_CStrNumbers)
#include "tst_CStrNumbers.moc"
