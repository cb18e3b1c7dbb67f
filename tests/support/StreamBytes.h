#ifndef TLXTEST_STREAMBYTES_H
#define TLXTEST_STREAMBYTES_H

#include <QByteArray>
#include <QDataStream>

/// The bytes that `value` makes in a stream of the given byte order and version.
template <typename T>
QByteArray streamed(const T& value, QDataStream::ByteOrder order = QDataStream::BigEndian,
                    QDataStream::Version version = QDataStream::Qt_5_15)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(order);
    stream.setVersion(version);
    stream << value;
    return bytes;
}

/// Reads `value` from bytes; gives the stream's status afterwards.
template <typename T>
QDataStream::Status unstreamed(const QByteArray& bytes, T& value,
                               QDataStream::ByteOrder order = QDataStream::BigEndian,
                               QDataStream::Version version = QDataStream::Qt_5_15)
{
    QDataStream stream(bytes);
    stream.setByteOrder(order);
    stream.setVersion(version);
    stream >> value;
    return stream.status();
}

/// Bytes from hexadecimal text; blanks between the digits are for the eye.
inline QByteArray fromHexText(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

#endif // TLXTEST_STREAMBYTES_H
