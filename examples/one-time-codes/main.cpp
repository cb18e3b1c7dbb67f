// One-time codes: made by one tool, checked by another that knows the same key.
#include <core/tlxCore.h>

#include <QDebug>

int main()
{
    const QByteArray key("a key that only the two sides know");
    const quint64 epoch = 0;    // seconds since 1970-01-01 UTC
    const quint32 step = 86400; // a code a day
    const int digits = 6;

    //! [make]
    const QString code = CHmac::totpStr(key, epoch, step, digits);
    //! [make]

    //! [check]
    // 0: valid, for the current step or the one before it; 1: not valid; 2: wrong length.
    const int today = CHmac::validateTotp(code, key, epoch, step, digits, 1);
    const int tooShort = CHmac::validateTotp(code.left(5), key, epoch, step, digits, 1);
    //! [check]

    qInfo() << code << today << tooShort;
    return code.size() == digits && today == 0 && tooShort == 2 ? 0 : 1;
}
