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
 * An object computes one code over a message that is added in pieces; the static functions do it in one call. Keys come
 * from the caller; the library contains none.
 *
 * The one-time codes have the shape of HOTP (RFC 4226) and TOTP (RFC 6238), but counter, encoding and truncation are
 * this family's own: a standard authenticator shows other codes. One tool makes them, another checks them.
 * @code
 * const QString code = CHmac::totpStr(key, 0, 30, 6); // e.g. "042817", another one every 30 seconds
 * const bool valid = CHmac::validateTotp(code, key, 0, 30, 6, 1) == 0;
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref application_support
 * @since 1.0
 */
class TLXCORE_EXPORT CHmac
{
public:
    /// Constructs a computation with this hash algorithm and key.
    CHmac(QCryptographicHash::Algorithm algorithm, const QByteArray& key);
    ~CHmac();

    /// Starts again with another key.
    void setKey(const QByteArray& key) { mCode.setKey(key); }

    /// Adds a piece of the message.
    void addData(const QByteArray& data) { mCode.addData(data); }

    /// Discards the message and keeps the key.
    void resetData() { mCode.reset(); }

    /// Returns the raw bytes of the code over all pieces added.
    QByteArray result() const { return mCode.result(); }

    /// Returns the raw HMAC of @p message under @p key.
    static QByteArray hmac(const QByteArray& message, QCryptographicHash::Algorithm algorithm,
                           const QByteArray& key);

    /// Returns the HMAC-SHA1 of @p message under @p key as Base64 text (28 characters), not as raw bytes.
    static QByteArray hmacSha1(const QByteArray& message, const QByteArray& key);

    /**
     * @brief Reduces a code to a number of @p digits decimal digits.
     *
     * @code
     * CHmac::hotp(QByteArray::fromHex("02000000"), 6);    // 1
     * CHmac::hotp(QByteArray::fromHex("feffffff"), 6);    // 967295: 0xFFFFFFFF modulo 10^6
     * @endcode
     *
     * @return The first four bytes as a little-endian signed 32-bit number, arithmetically shifted right by one bit,
     * taken as an unsigned number, modulo 10 to the power @p digits. 0 for fewer than four bytes and for @p digits of 0
     * and below; 10 digits and more return the whole number.
     */
    static quint32 hotp(const QByteArray& code, qint32 digits);

    /**
     * @brief Returns the one-time code of the current time step: hotp() of hmacSha1() of the step counter.
     * @param key the shared secret
     * @param t0 start of step 0 in seconds since 1970-01-01 UTC; may lie in the future (negative counters)
     * @param step length of a step in seconds; 0 makes the counter always 0
     * @param digits number of decimal digits, as in hotp()
     */
    static quint32 totp(const QByteArray& key, quint64 t0, quint32 step, qint32 digits);

    /// Returns totp() as text of exactly @p digits characters, padded with zeros on the left. Empty when @p digits is
    /// below 1, or more than a QString can hold (about 10^9).
    static QString totpStr(const QByteArray& key, quint64 t0, quint32 step, qint32 digits);

    /**
     * @brief Checks a one-time code against the current step and the @p window steps before it.
     * @return 0 if the code is valid, 1 if not, 2 if its length is not @p digits. A window of 2^31 and more is taken as
     * a negative number; nothing is valid then.
     *
     * Codes of future steps are not valid. The time taken grows with the window (two HMACs a step) and does not reveal
     * at which character a code was wrong.
     */
    static int validateTotp(const QString& code, const QByteArray& key, quint64 t0, quint32 step,
                            qint32 digits, quint32 window);

private:
    Q_DISABLE_COPY(CHmac)

    QMessageAuthenticationCode mCode;
};

#endif // TLXCORE_CHMAC_H
