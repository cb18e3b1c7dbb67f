// The private header: these are the codes of CHmac at an instant of the test's choice, so that it need not wait.
#include <core/app/OneTimeCode.h>

#include <core/app/CHmac.h>

#include <QtTest>

#include <limits>

class tst_OneTimeCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void counter_data();
    void counter();
    void text_data();
    void text();
    void longestText();
    void validateLength_data();
    void validateLength();
    void validateWindow_data();
    void validateWindow();
    void validateWrappedRounds();
    void validateEveryWrongCharacter();
    void validateOtherDigits();
};

namespace {

constexpr qint64 NOW = Q_INT64_C(1700000000000);

struct SRow
{
    const char* keyHex;
    quint64 t0;
    quint32 step;
    qint32 digits;
    qint64 msecs;
    qint64 counter;
    quint32 value;
    const char* text;
};

const SRow ROWS[] = {
#include "OneTimeCodeRows.inc"
};

/// Whether the system says that so many bytes are free. It says nothing outside Linux, and to a process of 32 bits.
bool hasMemory(qint64 bytes)
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (sizeof(void*) < 8 || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray text = file.readAll();
    const auto at = text.indexOf("MemAvailable:");
    return at >= 0
           && text.mid(at).split('\n').first().split(':').last().simplified().split(' ').first().toLongLong()
                      * 1024
                  >= bytes;
}

} // namespace

void tst_OneTimeCode::rows_data()
{
    QTest::addColumn<int>("row");

    for (int i = 0; i < static_cast<int>(sizeof(ROWS) / sizeof(ROWS[0])); ++i) {
        QTest::newRow(QStringLiteral("%1: counter %2, %3 digits")
                          .arg(i)
                          .arg(ROWS[i].counter)
                          .arg(ROWS[i].digits)
                          .toLatin1()
                          .constData())
            << i;
    }
}

void tst_OneTimeCode::rows()
{
    QFETCH(int, row);
    const SRow& expected = ROWS[row];

    const OneTimeCode code{QByteArray::fromHex(expected.keyHex), expected.t0, expected.step, expected.digits};
    QCOMPARE(code.counter(expected.msecs), expected.counter);
    QCOMPARE(code.value(expected.msecs), expected.value);
    QCOMPARE(code.text(expected.msecs), QString::fromLatin1(expected.text));
    QCOMPARE(code.validate(QString::fromLatin1(expected.text), 0, expected.msecs), 0);
}

void tst_OneTimeCode::counter_data()
{
    QTest::addColumn<qint64>("msecs");
    QTest::addColumn<quint64>("t0");
    QTest::addColumn<quint32>("step");
    QTest::addColumn<qint64>("counter");
    const quint64 highest = std::numeric_limits<quint64>::max();

    QTest::newRow("first ms") << Q_INT64_C(0) << Q_UINT64_C(0) << 30u << Q_INT64_C(0);
    QTest::newRow("last ms of step 0") << Q_INT64_C(29999) << Q_UINT64_C(0) << 30u << Q_INT64_C(0);
    QTest::newRow("first ms of step 1") << Q_INT64_C(30000) << Q_UINT64_C(0) << 30u << Q_INT64_C(1);
    QTest::newRow("1 ms before the epoch") << Q_INT64_C(9999) << Q_UINT64_C(10) << 30u << Q_INT64_C(-1);
    QTest::newRow("1 step before the epoch") << Q_INT64_C(0) << Q_UINT64_C(30) << 30u << Q_INT64_C(-1);
    QTest::newRow("1 step and 1 ms before") << Q_INT64_C(-1) << Q_UINT64_C(30) << 30u << Q_INT64_C(-2);
    QTest::newRow("clock before 1970") << Q_INT64_C(-1) << Q_UINT64_C(0) << 30u << Q_INT64_C(-1);
    QTest::newRow("step 0") << NOW << Q_UINT64_C(5) << 0u << Q_INT64_C(0);
    QTest::newRow("step 2^32 - 1") << NOW << Q_UINT64_C(0) << 0xffffffffu << Q_INT64_C(0);
    QTest::newRow("highest epoch, step 1") << NOW << highest << 1u << std::numeric_limits<qint64>::min();
    // (2^64 - 1699999744) / 4: a double of that size counts in steps of 2048.
    QTest::newRow("highest epoch, step 4") << NOW << highest << 4u << Q_INT64_C(-4611686018002387968);
}

void tst_OneTimeCode::counter()
{
    QFETCH(qint64, msecs);
    QFETCH(quint64, t0);
    QFETCH(quint32, step);
    QTEST((OneTimeCode{"secret", t0, step, 6}.counter(msecs)), "counter");
}

void tst_OneTimeCode::text_data()
{
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("text"); // of the number 666511541

    QTest::newRow("1") << 1 << "1";
    QTest::newRow("6") << 6 << "511541";
    QTest::newRow("12") << 12 << "000666511541";
    QTest::newRow("0") << 0 << "";
    QTest::newRow("-1") << -1 << "";
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min() << "";
    QTest::newRow("more than a text can hold") << std::numeric_limits<int>::max() << "";
}

void tst_OneTimeCode::text()
{
    QFETCH(int, digits);
    QTEST((OneTimeCode{"secret", 0, 30, digits}.text(NOW)), "text");
}

// A text of 2 GiB, and one character more.
void tst_OneTimeCode::longestText()
{
    constexpr int LONGEST = 1073741759; // 2^30 - 1 - 64
    if (!hasMemory(Q_INT64_C(4) << 30)) {
        QSKIP("needs 4 GiB of memory");
    }
    const QString text = OneTimeCode{"secret", 0, 30, LONGEST}.text(NOW);
    QCOMPARE(static_cast<int>(text.size()), LONGEST);
    QVERIFY(text.endsWith(QLatin1String("0666511541")));
    QCOMPARE((OneTimeCode{"secret", 0, 30, LONGEST + 1}.text(NOW)), QString());
}

void tst_OneTimeCode::validateLength_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("digits");
    QTest::addColumn<int>("result");

    QTest::newRow("5 characters for 6") << "12345" << 6 << 2;
    QTest::newRow("7 characters for 6") << "1234567" << 6 << 2;
    QTest::newRow("empty for 6") << "" << 6 << 2;
    QTest::newRow("empty for -1") << "" << -1 << 2;
    QTest::newRow("1 character for INT_MIN") << "1" << std::numeric_limits<int>::min() << 2;
    QTest::newRow("empty for 0: equals the empty code") << "" << 0 << 0;
}

void tst_OneTimeCode::validateLength()
{
    QFETCH(QString, code);
    QFETCH(int, digits);
    const OneTimeCode expected{"secret", 0, 30, digits};
    QTEST(expected.validate(code, 0, NOW), "result");
    QCOMPARE(expected.validate(code, 0xffffffffu, NOW),
             code.size() == digits ? 1 : 2); // the length comes first
}

void tst_OneTimeCode::validateWindow_data()
{
    QTest::addColumn<int>("stepsAgo");
    QTest::addColumn<quint32>("window");
    QTest::addColumn<int>("result");

    for (const quint32 window : {0u, 1u, 5u}) {
        for (int stepsAgo = -7; stepsAgo <= 7; ++stepsAgo) {
            const bool accepted = stepsAgo >= 0 && stepsAgo <= static_cast<int>(window);
            QTest::newRow(
                QStringLiteral("%1 steps ago, window %2").arg(stepsAgo).arg(window).toLatin1().constData())
                << stepsAgo << window << (accepted ? 0 : 1);
        }
    }
    QTest::newRow("current, window 2^31") << 0 << 0x80000000u << 1;
}

void tst_OneTimeCode::validateWindow()
{
    QFETCH(int, stepsAgo);
    QFETCH(quint32, window);
    const OneTimeCode code{"secret", 1000, 30, 8};
    QTEST(code.validate(code.text(NOW - stepsAgo * Q_INT64_C(30000)), window, NOW), "result");
}

// Rounds below 0 look at an epoch that lies 2^32 - step * |i| seconds later, and nowhere else.
void tst_OneTimeCode::validateWrappedRounds()
{
    const OneTimeCode code{"secret", 1000, 30, 8};
    const OneTimeCode wrapped{"secret", 1000 + Q_UINT64_C(4294967296) - 30, 30, 8};
    const QString text = wrapped.text(NOW);
    QCOMPARE(code.validate(text, 0, NOW), 1);
    QCOMPARE(code.validate(text, 1, NOW), 0);

    // A product beyond 2^32 wraps as well: 3 * 2^31 is 2^31.
    const OneTimeCode large{"secret", 0, 0x80000000u, 8};
    const OneTimeCode third{"secret", 0x80000000u, 0x80000000u, 8};
    QCOMPARE(large.validate(third.text(NOW), 3, NOW), 0);
    const OneTimeCode notWrapped{"secret", Q_UINT64_C(0x180000000), 0x80000000u, 8};
    QCOMPARE(large.validate(notWrapped.text(NOW), 3, NOW), 1);

    // The epoch itself wraps at 2^64.
    const OneTimeCode last{"secret", std::numeric_limits<quint64>::max(), 30, 8};
    const OneTimeCode first{"secret", 29, 30, 8};
    QCOMPARE(last.validate(first.text(NOW), 1, NOW), 0);
}

void tst_OneTimeCode::validateEveryWrongCharacter()
{
    const OneTimeCode code{"secret", 0, 30, 8};
    const QString right = code.text(NOW);
    QCOMPARE(code.validate(right, 0, NOW), 0);
    for (int i = 0; i < right.size(); ++i) {
        QString wrong = right;
        wrong[i] = right.at(i) == QLatin1Char('0') ? QLatin1Char('1') : QLatin1Char('0');
        QCOMPARE(code.validate(wrong, 0, NOW), 1);
        wrong[i] = QChar(0x0660 + right.at(i).digitValue()); // the same digit of another script
        QCOMPARE(code.validate(wrong, 0, NOW), 1);
    }
    QCOMPARE(OneTimeCode({"other", 0, 30, 8}).validate(right, 0, NOW), 1);
}

void tst_OneTimeCode::validateOtherDigits()
{
    const OneTimeCode code{"secret", 0, 30, 18};
    const QString right = code.text(NOW);
    QCOMPARE(right.size(), 18);
    QCOMPARE(code.validate(right, 0, NOW), 0);
    QCOMPARE(code.validate(right.mid(8), 0, NOW), 2);
}

QTEST_APPLESS_MAIN(tst_OneTimeCode)
#include "tst_OneTimeCode.moc"
