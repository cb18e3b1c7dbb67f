#ifndef TLXCORE_CIPV6ADDRESS_H
#define TLXCORE_CIPV6ADDRESS_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <array>

class QDataStream;
class QDebug;

/**
 * @brief An IPv6 address as the drives hold it: 16 bytes, eight groups of 16 bits in textual order, the low byte first.
 *
 * This storage order is not network byte order. byteArray(), the conversion to QVariant and the stream use it.
 *
 * The textual form is eight groups of hexadecimal digits with ":" between (the long form of RFC 4291). "::" is not
 * expanded: a text of fewer than eight parts is accepted and changes nothing, and an empty part of an eight-part text
 * keeps its group. Call clear() first for a defined result.
 *
 * @code
 * CIPv6Address address(QStringLiteral("FE80:0000:0:0:0:0:0:0001"));
 * address.str();    // "fe80:0:0:0:0:0:0:1"
 * address[0];       // 0x80
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref devices
 * @since 1.0
 */
class TLXCORE_EXPORT CIPv6Address
{
public:
    /// Constructs an address of zero bytes.
    CIPv6Address() = default;

    /// Calls setAddress() with the same argument on an address of zero bytes.
    CIPv6Address(const QByteArray& bytes) { setAddress(bytes); }
    /// Calls setAddress() with the same argument on an address of zero bytes.
    CIPv6Address(const unsigned char* bytes) { setAddress(bytes); }
    /// Calls setAddress() with the same argument on an address of zero bytes.
    CIPv6Address(const QVariant& variant) { setAddress(variant); }
    /// Calls setAddress() with the same argument on an address of zero bytes.
    CIPv6Address(const QString& text) { setAddress(text); }

    /// Copies the 16 bytes.
    CIPv6Address(const CIPv6Address&) = default;
    /// Copies the 16 bytes.
    CIPv6Address(CIPv6Address&&) = default;
    virtual ~CIPv6Address();

    /// Copies the 16 bytes.
    CIPv6Address& operator=(const CIPv6Address&) = default;
    /// Copies the 16 bytes.
    CIPv6Address& operator=(CIPv6Address&&) = default;

    /// Calls setAddress() with the same argument.
    CIPv6Address& operator=(const QByteArray& bytes) { return assign(bytes); }
    /// Calls setAddress() with the same argument.
    CIPv6Address& operator=(const QVariant& variant) { return assign(variant); }
    /// Calls setAddress() with the same argument.
    CIPv6Address& operator=(const QString& text) { return assign(text); }

    /// Copies exactly 16 bytes; an array of another size changes nothing.
    void setAddress(const QByteArray& bytes);

    /// Copies 16 bytes, which may be this object's own; a null pointer changes nothing.
    void setAddress(const unsigned char* bytes);

    /// Takes a variant's byte array as setAddress(const QByteArray&) does. A variant of any other type, a text
    /// included, sets all bytes to 0.
    void setAddress(const QVariant& variant);

    /**
     * @brief Parses a text: one to four hexadecimal digits or a lone ":", then up to seven times ":" and 0 to 4 digits.
     *
     * @return true for such a text, also if it has fewer than eight parts and changes nothing. false for any other
     * text; all bytes are 0 then, and a warning is logged.
     */
    bool setAddress(const QString& text);

    /// Returns the 16 bytes as a byte array.
    operator QVariant() const { return byteArray(); }

    /// The same as str().
    operator QString() const { return str(); }

    /// Returns the 16 bytes in storage order.
    QByteArray byteArray() const;

    /// Returns the byte at `index`, which must be 0 to 15.
    unsigned char& operator[](int index) { return mBytes[static_cast<std::size_t>(index)]; }
    /// Returns the byte at `index`, which must be 0 to 15.
    const unsigned char& operator[](int index) const { return mBytes[static_cast<std::size_t>(index)]; }

    /// Sets all bytes to 0.
    void clear() { mBytes.fill(0); }

    /// Returns eight groups in lower-case hexadecimal without leading zeros. No group is omitted.
    QString str() const;

    /// Compares the 16 bytes.
    bool operator==(const CIPv6Address& other) const { return mBytes == other.mBytes; }
    /// The negation of operator==.
    bool operator!=(const CIPv6Address& other) const { return !(*this == other); }

private:
    template <typename Source>
    CIPv6Address& assign(const Source& source)
    {
        setAddress(source);
        return *this;
    }

    std::array<unsigned char, 16> mBytes{};
};

Q_DECLARE_METATYPE(CIPv6Address)

/// Agrees with operator==.
TLXCORE_EXPORT NQtCompat::THash qHash(const CIPv6Address& address, NQtCompat::THash seed = 0) noexcept;

/// Writes the 16 bytes in storage order, nothing else.
TLXCORE_EXPORT QDataStream& operator<<(QDataStream& stream, const CIPv6Address& address);
/// Reads 16 bytes. Bytes missing from a truncated stream are 0; check the stream's status.
TLXCORE_EXPORT QDataStream& operator>>(QDataStream& stream, CIPv6Address& address);

/// Shows the type and the text of the address.
TLXCORE_EXPORT QDebug operator<<(QDebug debug, const CIPv6Address& address);

#endif // TLXCORE_CIPV6ADDRESS_H
