#ifndef TLXFUZZ_STREAMS_H
#define TLXFUZZ_STREAMS_H

#include <fuzz/support/Input.h>

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

/// How a stream is read: any version from Qt 4.0 on, either byte order, either precision.
struct SStreamSetup
{
    int version;
    QDataStream::ByteOrder order;
    QDataStream::FloatingPointPrecision precision;

    explicit SStreamSetup(Input& input)
        : version(QDataStream::Qt_4_0 + input.choose(QDataStream::Qt_5_15 - QDataStream::Qt_4_0 + 1))
    {
        const int flags = input.choose(4);
        order = (flags & 1) != 0 ? QDataStream::LittleEndian : QDataStream::BigEndian;
        precision = (flags & 2) != 0 ? QDataStream::SinglePrecision : QDataStream::DoublePrecision;
    }

    void apply(QDataStream& stream) const
    {
        stream.setVersion(version);
        stream.setByteOrder(order);
        stream.setFloatingPointPrecision(precision);
    }

    template <typename Value>
    QByteArray written(const Value& value) const
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        apply(stream);
        stream << value;
        return bytes;
    }

    /// Reads the value; gives the stream's status, and how many bytes were taken.
    template <typename Value>
    QDataStream::Status read(const QByteArray& bytes, Value& value, qint64& taken) const
    {
        QDataStream stream(bytes);
        apply(stream);
        stream >> value;
        taken = stream.device()->pos();
        return stream.status();
    }
};

#endif // TLXFUZZ_STREAMS_H
