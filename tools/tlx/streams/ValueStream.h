#ifndef TLX_VALUESTREAM_H
#define TLX_VALUESTREAM_H

#include <QDataStream>
#include <QList>
#include <QString>
#include <QStringList>

/// One value out of a stream.
struct SStreamItem
{
    qint64 byte = 0; ///< Where it begins.
    QString type;
    QString text;
};

/// How a stream of values is read.
struct SStreamForm
{
    QString kind; ///< One of ValueStream::kinds().
    QDataStream::ByteOrder order = QDataStream::BigEndian;
    QDataStream::Version version = QDataStream::Qt_5_15;
};

/// The values of a stream up to its end, or up to the first that makes no sense.
struct SStreamContent
{
    SStreamForm form;
    QList<SStreamItem> items;
    QString fault; ///< What is wrong; empty when the stream was read to its end.
    qint64 faultByte = -1;
};

/// Files of values that follow one another in a QDataStream.
namespace NValueStream {

/// The kinds of values.
QStringList kinds();

/// The versions of the stream, as Qt's own names: "5.15".
QStringList versions();

/// The version of this name; false when there is none.
bool findVersion(const QString& name, QDataStream::Version& version);

/// Reads the device from its begin, in one form.
SStreamContent read(QIODevice& device, const SStreamForm& form);

/// Tries all kinds in both orders; the first that reads to the end, otherwise the one that gets furthest.
SStreamContent readAny(QIODevice& device, QDataStream::Version version);

/// The option that would read to the end what is damaged otherwise; empty when the other order is not it.
QString otherOrder(QIODevice& device, const SStreamForm& form);

/// "big-endian" or "little-endian".
QString orderName(QDataStream::ByteOrder order);

} // namespace NValueStream

#endif // TLX_VALUESTREAM_H
