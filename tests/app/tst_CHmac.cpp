#include <core/app/CHmac.h>

#include <QDateTime>
#include <QtEndian>
#include <QtTest>

#include <limits>
#include <type_traits>

/// Message authentication codes, the reduction to digits, and the one-time codes of the running clock.
class tst_CHmac : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hmac_data();
    void hmac();
    void inPieces();
    void reuse();
    void unknownAlgorithm();
    void hmacSha1IsBase64();
    void hotp_data();
    void hotp();
    void hotpDigits_data();
    void hotpDigits();
    void totpOfNow();
    void totpStepZero();
    void validateNow_data();
    void validateNow();
};

static_assert(!std::is_copy_constructible<CHmac>::value && !std::is_copy_assignable<CHmac>::value,
              "a computation is not copied");

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

/// The one-time code by the definition, from Qt's HMAC and plain arithmetic.
quint32 oracle(qint64 counter, const QByteArray& key, quint64 modulus)
{
    QByteArray message;
    for (int i = 0; i < 8; ++i) {
        message += static_cast<char>(static_cast<quint64>(counter) >> (8 * i));
    }
    const QByteArray text =
        QMessageAuthenticationCode::hash(message, key, QCryptographicHash::Sha1).toBase64();
    qint64 number = 0;
    for (int i = 3; i >= 0; --i) {
        number = number * 256 + static_cast<uchar>(text.at(i));
    }
    return static_cast<quint32>(static_cast<quint64>(number / 2) % modulus); // Base64 text is below 0x80
}

} // namespace

// RFC 2202 (MD5, SHA-1) and RFC 4231 (SHA-2), with keys shorter and longer than a block.
void tst_CHmac::hmac_data()
{
    QTest::addColumn<int>("algorithm");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("code");
    const QByteArray question("what do ya want for nothing?");
    const QByteArray largeKey("Test Using Larger Than Block-Size Key - Hash Key First");

    QTest::newRow("MD5, short key") << static_cast<int>(QCryptographicHash::Md5) << QByteArray("Jefe")
                                    << question << hex("750c783e6ab0b503eaa86e310a5db738");
    QTest::newRow("SHA-1, short key") << static_cast<int>(QCryptographicHash::Sha1) << QByteArray("Jefe")
                                      << question << hex("effcdf6ae5eb2fa2d27416d5f184df9c259a7c79");
    QTest::newRow("SHA-1, 80 bytes of key")
        << static_cast<int>(QCryptographicHash::Sha1) << QByteArray(80, '\xaa') << largeKey
        << hex("aa4ae5e15272d00e95705637ce8a3b55ed402112");
    QTest::newRow("SHA-224, short key")
        << static_cast<int>(QCryptographicHash::Sha224) << QByteArray("Jefe") << question
        << hex("a30e01098bc6dbbf45690f3a7e9e6d0f8bbea2a39e6148008fd05e44");
    QTest::newRow("SHA-256, short key")
        << static_cast<int>(QCryptographicHash::Sha256) << QByteArray("Jefe") << question
        << hex("5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
    QTest::newRow("SHA-256, 131 bytes of key")
        << static_cast<int>(QCryptographicHash::Sha256) << QByteArray(131, '\xaa') << largeKey
        << hex("60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
    QTest::newRow("SHA-1, empty key and message")
        << static_cast<int>(QCryptographicHash::Sha1) << QByteArray() << QByteArray()
        << hex("fbdb1d1b18aa6c08324b7d64b71fb76370690e1d");
}

void tst_CHmac::hmac()
{
    QFETCH(int, algorithm);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, code);
    const auto method = static_cast<QCryptographicHash::Algorithm>(algorithm);

    QCOMPARE(CHmac::hmac(message, method, key), code);
    CHmac object(method, key);
    object.addData(message);
    QCOMPARE(object.result(), code);
}

void tst_CHmac::inPieces()
{
    CHmac object(QCryptographicHash::Sha1, "Jefe");
    for (const QByteArray& piece : QByteArray("what do ya want for nothing?").split(' ')) {
        object.addData(piece == "nothing?" ? piece : piece + ' ');
        object.addData(QByteArray());
    }
    QCOMPARE(object.result(), hex("effcdf6ae5eb2fa2d27416d5f184df9c259a7c79"));
    QCOMPARE(object.result(), hex("effcdf6ae5eb2fa2d27416d5f184df9c259a7c79")); // asked twice
}

void tst_CHmac::reuse()
{
    CHmac object(QCryptographicHash::Sha1, "other");
    object.addData("forgotten");
    object.setKey("Jefe"); // begins anew
    object.addData("what do ya want for nothing?");
    QCOMPARE(object.result(), hex("effcdf6ae5eb2fa2d27416d5f184df9c259a7c79"));
    object.resetData(); // keeps the key
    object.addData("what do ya want for nothing?");
    QCOMPARE(object.result(), hex("effcdf6ae5eb2fa2d27416d5f184df9c259a7c79"));
    object.resetData();
    QCOMPARE(object.result(), CHmac::hmac(QByteArray(), QCryptographicHash::Sha1, "Jefe"));
}

void tst_CHmac::unknownAlgorithm()
{
    const auto none =
        static_cast<QCryptographicHash::Algorithm>(14); // within the enumeration's range, but no name
    QCOMPARE(CHmac::hmac("message", none, "key"), QMessageAuthenticationCode::hash("message", "key", none));
}

void tst_CHmac::hmacSha1IsBase64()
{
    QCOMPARE(CHmac::hmacSha1("what do ya want for nothing?", "Jefe"),
             QByteArray("7/zfauXrL6LSdBbV8YTfnCWafHk="));
    QCOMPARE(CHmac::hmacSha1(QByteArray(), QByteArray()).size(), 28);
}

void tst_CHmac::hotp_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<quint32>("value");

    QTest::newRow("empty") << QByteArray() << 0u;
    QTest::newRow("3 bytes") << hex("ffffff") << 0u;
    QTest::newRow("2 is 1") << hex("02000000") << 1u;
    QTest::newRow("1 is 0") << hex("01000000") << 0u;
    QTest::newRow("little-endian") << hex("00020000") << 256u;
    QTest::newRow("only the first four bytes") << hex("02000000ffffffff") << 1u;
    QTest::newRow("highest positive: 0x3fffffff") << hex("ffffff7f") << 741823u;
    QTest::newRow("the sign stays: 0xffffffff") << hex("feffffff") << 967295u;
    QTest::newRow("the sign stays: 0xc0000000") << hex("00000080") << 225472u;
}

void tst_CHmac::hotp()
{
    QFETCH(QByteArray, code);
    QTEST(CHmac::hotp(code, 6), "value");
}

void tst_CHmac::hotpDigits_data()
{
    QTest::addColumn<int>("digits");
    QTest::addColumn<quint32>("value"); // of 0xffffffff = 4294967295

    const quint32 values[] = {0u, 5u, 95u, 295u, 7295u, 67295u, 967295u, 4967295u, 94967295u, 294967295u};
    for (int digits = 0; digits < 10; ++digits) {
        QTest::newRow(QByteArray::number(digits).constData()) << digits << values[digits];
    }
    for (const int digits : {10, 11, 18, 19, 20, 309, 1000, std::numeric_limits<int>::max()}) {
        QTest::newRow(QByteArray(QByteArray::number(digits) + " leave it whole").constData())
            << digits << 4294967295u;
    }
    QTest::newRow("-1") << -1 << 0u;
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min() << 0u;
}

void tst_CHmac::hotpDigits()
{
    QFETCH(int, digits);
    QTEST(CHmac::hotp(hex("ffffffff"), digits), "value");
}

// Steps of many years: the clock stays in one step while the test runs, unless it crosses the boundary just then.
void tst_CHmac::totpOfNow()
{
    const QByteArray key("secret");
    const quint32 step = 1000000000;
    const qint64 before = QDateTime::currentSecsSinceEpoch() / step;
    const quint32 value = CHmac::totp(key, 0, step, 6);
    const QString text = CHmac::totpStr(key, 0, step, 6);
    const qint64 after = QDateTime::currentSecsSinceEpoch() / step;
    if (before != after) {
        QSKIP("the step ended within this test, which happens once in 31 years");
    }
    QCOMPARE(value, oracle(after, key, 1000000));
    QCOMPARE(text, QString::number(value).rightJustified(6, QLatin1Char('0')));

    // An epoch half a step ahead of now is counter -1: rounded down, not toward zero.
    const quint64 ahead = static_cast<quint64>(QDateTime::currentSecsSinceEpoch()) + step / 2;
    QCOMPARE(CHmac::totp(key, ahead, step, 6), oracle(-1, key, 1000000));
    // Half a step ago is counter 0, one and a half steps ago 1.
    QCOMPARE(CHmac::totp(key, ahead - step, step, 6), oracle(0, key, 1000000));
}

void tst_CHmac::totpStepZero()
{
    const quint32 counterZero = oracle(0, "secret", 1000000);
    QCOMPARE(CHmac::totp("secret", 0, 0, 6), counterZero);
    QCOMPARE(CHmac::totp("secret", std::numeric_limits<quint64>::max(), 0, 6), counterZero);
    QCOMPARE(CHmac::validateTotp(QString::number(counterZero).rightJustified(6, QLatin1Char('0')), "secret",
                                 0, 0, 6, 3),
             0);
}

void tst_CHmac::validateNow_data()
{
    QTest::addColumn<int>("stepsAgo");
    QTest::addColumn<quint32>("window");
    QTest::addColumn<int>("result");

    QTest::newRow("current, window 0") << 0 << 0u << 0;
    QTest::newRow("previous, window 0") << 1 << 0u << 1;
    QTest::newRow("current, window 1") << 0 << 1u << 0;
    QTest::newRow("previous, window 1") << 1 << 1u << 0;
    QTest::newRow("next, window 1") << -1 << 1u << 1;
    QTest::newRow("two ago, window 1") << 2 << 1u << 1;
    QTest::newRow("two ago, window 2") << 2 << 2u << 0;
    QTest::newRow("window negative as a signed number") << 0 << 0x80000000u << 1;
    QTest::newRow("highest window") << 0 << 0xffffffffu << 1;
}

void tst_CHmac::validateNow()
{
    QFETCH(int, stepsAgo);
    QFETCH(quint32, window);
    const QByteArray key("secret");
    const quint32 step = 100000000; // 3 years; now is the middle of step 5
    const quint64 t0 =
        static_cast<quint64>(QDateTime::currentSecsSinceEpoch()) - 5 * quint64(step) - step / 2;
    const QString code =
        QString::number(oracle(5 - stepsAgo, key, 1000000)).rightJustified(6, QLatin1Char('0'));
    QTEST(CHmac::validateTotp(code, key, t0, step, 6, window), "result");
}

QTEST_GUILESS_MAIN(tst_CHmac)
#include "tst_CHmac.moc"
