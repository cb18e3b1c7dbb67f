#include <core/app/CHmac.h>

#include <core/app/OneTimeCode.h>

#include <QDateTime>
#include <QtEndian>

namespace {

constexpr quint32 POWERS_OF_TEN[] = {1,      10,      100,      1000,      10000,
                                     100000, 1000000, 10000000, 100000000, 1000000000};
constexpr qint32 POWER_COUNT = static_cast<qint32>(sizeof(POWERS_OF_TEN) / sizeof(POWERS_OF_TEN[0]));
constexpr quint32 SIGN_BIT = 0x80000000u;

} // namespace

CHmac::CHmac(QCryptographicHash::Algorithm algorithm, const QByteArray& key)
    : mCode(algorithm, key)
{}

CHmac::~CHmac() = default;

QByteArray CHmac::hmac(const QByteArray& message, QCryptographicHash::Algorithm algorithm,
                       const QByteArray& key)
{
    return QMessageAuthenticationCode::hash(message, key, algorithm);
}

QByteArray CHmac::hmacSha1(const QByteArray& message, const QByteArray& key)
{
    return hmac(message, QCryptographicHash::Sha1, key).toBase64();
}

quint32 CHmac::hotp(const QByteArray& code, qint32 digits)
{
    if (code.size() < static_cast<int>(sizeof(quint32)) || digits < 0) {
        return 0;
    }
    const quint32 bits = qFromLittleEndian<quint32>(code.constData());
    const quint32 number = (bits >> 1) | (bits & SIGN_BIT); // an arithmetic shift, on every compiler
    return digits < POWER_COUNT ? number % POWERS_OF_TEN[digits] : number;
}

quint32 CHmac::totp(const QByteArray& key, quint64 t0, quint32 step, qint32 digits)
{
    return OneTimeCode{key, t0, step, digits}.value(QDateTime::currentMSecsSinceEpoch());
}

QString CHmac::totpStr(const QByteArray& key, quint64 t0, quint32 step, qint32 digits)
{
    return OneTimeCode{key, t0, step, digits}.text(QDateTime::currentMSecsSinceEpoch());
}

int CHmac::validateTotp(const QString& code, const QByteArray& key, quint64 t0, quint32 step, qint32 digits,
                        quint32 window)
{
    return OneTimeCode{key, t0, step, digits}.validate(code, window, QDateTime::currentMSecsSinceEpoch());
}
