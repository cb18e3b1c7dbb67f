#ifndef TLXCORE_ONETIMECODE_H
#define TLXCORE_ONETIMECODE_H

#include <QByteArray>
#include <QString>
#include <QtGlobal>

/// The one-time codes of CHmac at a given instant, so that tests need not wait for the clock. Parameters as in CHmac;
/// `msecs` are milliseconds since 1970-01-01 UTC.
struct OneTimeCode
{
    QByteArray key;
    quint64 t0;
    quint32 step;
    qint32 digits;

    qint64 counter(qint64 msecs) const;
    quint32 value(qint64 msecs) const;
    QString text(qint64 msecs) const;
    int validate(const QString& code, quint32 window, qint64 msecs) const;
};

#endif // TLXCORE_ONETIMECODE_H
