#include <core/app/CHmac.h>

#include <core/app/OneTimeCode.h>

#include <QDateTime>
#include <QtEndian>

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
    constexpr quint32 SIGN_BIT = 0x80000000u;
    if (code.size() < static_cast<int>(sizeof(quint32))) {
        return 0;
    }
    const quint32 bits = qFromLittleEndian<quint32>(code.constData());
    const quint32 number = (bits >> 1) | (bits & SIGN_BIT); // an arithmetic shift, on every compiler
    quint64 modulus = 1;
    for (qint32 i = 0; i < digits && modulus <= number; ++i) {
        modulus *= 10;
    }
    return static_cast<quint32>(number % modulus);
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
