#include <core/app/OneTimeCode.h>

#include <core/app/CHmac.h>
#include <core/base/ConstantTime.h>
#include <core/base/FloatToInteger.h>

#include <QtEndian>

#include <cmath>
#include <limits>

namespace {

constexpr qint32 DIGITS_MAX = std::numeric_limits<qint32>::max() / 2 - 64; // what a QString can hold

enum EValidation : int
{
    CODE_VALID = 0,
    CODE_WRONG = 1,
    CODE_LENGTH_WRONG = 2
};

} // namespace

qint64 OneTimeCode::counter(qint64 msecs) const
{
    if (step == 0) {
        return 0;
    }
    const double seconds = static_cast<double>(msecs) / 1000.0;
    return floatToInteger<qint64>(std::floor((seconds - static_cast<double>(t0)) / step));
}

quint32 OneTimeCode::value(qint64 msecs) const
{
    QByteArray message(sizeof(qint64), Qt::Uninitialized);
    qToLittleEndian(counter(msecs), message.data());
    return CHmac::hotp(CHmac::hmacSha1(message, key), digits);
}

QString OneTimeCode::text(qint64 msecs) const
{
    if (digits < 1 || digits > DIGITS_MAX) {
        return QString();
    }
    return QString::number(value(msecs)).rightJustified(digits, QLatin1Char('0')).right(digits);
}

int OneTimeCode::validate(const QString& code, quint32 window, qint64 msecs) const
{
    if (code.size() != digits) {
        return CODE_LENGTH_WRONG;
    }
    const auto last = static_cast<qint32>(window);
    for (qint32 i = last; last >= 0 && i >= -last; --i) {
        // The product wraps at 2^32 and is added without its sign: coming steps (i < 0) are thus not accepted, which
        // the tools rely on.
        const quint32 shift = step * static_cast<quint32>(i);
        const OneTimeCode shifted{key, t0 + shift, step, digits};
        if (isEqualInConstantTime(shifted.text(msecs), code)) {
            return CODE_VALID;
        }
    }
    return CODE_WRONG;
}
