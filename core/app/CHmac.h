#ifndef TLXCORE_CHMAC_H
#define TLXCORE_CHMAC_H

#include <core/tlxCoreExport.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QString>
#include <QtGlobal>

/**
 * @brief Keyed message authentication codes (HMAC, RFC 2104) and the one-time codes of this family of tools.
 *
 * An object computes one code over a message that comes in pieces; the static functions do it in one call. Keys come
 * from the caller, none is kept in the library.
 *
 * The one-time codes have the shape of HOTP (RFC 4226) and TOTP (RFC 6238), but counter, encoding and truncation are
 * this family's own: a standard authenticator shows other codes. One tool makes them, another checks them.
 * @code
 * const QString code = CHmac::totpStr(key, 0, 30, 6); // e.g. "042817", another one every 30 seconds
 * const bool valid = CHmac::validateTotp(code, key, 0, 30, 6, 1) == 0;
 * @endcode
 */
class TLXCORE_EXPORT CHmac
{
public:
    /// A computation with this hash algorithm and key.
    CHmac(QCryptographicHash::Algorithm algorithm, const QByteArray& key);
    ~CHmac();

    /// Starts again with another key.
    void setKey(const QByteArray& key);

    /// Adds a piece of the message.
    void addData(const QByteArray& data);

    /// Forgets the message, keeps the key.
    void resetData();

    /// The raw bytes of the code over all pieces added.
    QByteArray result() const;

    /// The raw HMAC of @p message under @p key.
    static QByteArray hmac(const QByteArray& message, QCryptographicHash::Algorithm algorithm,
                           const QByteArray& key);

    /// The HMAC-SHA1 of @p message under @p key as Base64 text (28 characters), not as raw bytes.
    static QByteArray hmacSha1(const QByteArray& message, const QByteArray& key);

    /**
     * @brief Reduces a code to a number of @p digits decimal digits.
     * @return The first four bytes as a little-endian signed 32-bit number, shifted right by one bit, then modulo 10
     * to the power @p digits. 0 for less than four bytes and for @p digits of 0 and below; 10 digits and more leave
     * the number whole.
     */
    static quint32 hotp(const QByteArray& code, qint32 digits);

    /**
     * @brief The one-time code of the current time step: hotp() of hmacSha1() of the step counter.
     * @param key the shared secret
     * @param t0 start of step 0 in seconds since 1970-01-01 UTC; may lie in the future (negative counters)
     * @param step length of a step in seconds; 0 makes the counter always 0
     * @param digits number of decimal digits, as in hotp()
     */
    static quint32 totp(const QByteArray& key, quint64 t0, quint32 step, qint32 digits);

    /// totp() as text of exactly @p digits characters, padded with zeros on the left. Empty when @p digits is below 1, or more
    /// than a QString can hold (about 10^9).
    static QString totpStr(const QByteArray& key, quint64 t0, quint32 step, qint32 digits);

    /**
     * @brief Checks a one-time code against the current step and the @p window steps before it.
     * @return 0 when it is valid, 1 when it is not, 2 when its length is not @p digits. A window of 2^31 and more is
     * read as a negative number, and nothing is valid then.
     *
     * Codes of coming steps are not valid. The time taken grows with the window (two HMACs a step) and does not tell
     * at which character a code was wrong.
     */
    static int validateTotp(const QString& code, const QByteArray& key, quint64 t0, quint32 step,
                            qint32 digits, quint32 window);

private:
    Q_DISABLE_COPY(CHmac)

    QMessageAuthenticationCode mCode;
};

#endif // TLXCORE_CHMAC_H
