#ifndef TLXCORE_VARIANTSTREAM_H
#define TLXCORE_VARIANTSTREAM_H

#include <QVariant>

class QDataStream;

namespace NVariantStream {

/// Writes the payload as QVariant's stream operator does, then the tag.
void write(QDataStream& stream, const QVariant& payload, qint32 tag);

/**
 * Reads what QVariant's stream operator wrote, byte for byte as QVariant reads it, and the tag after it, without
 * QVariant's trust: only numbers, characters, texts, bytes, dates and the library's own types are built. Containers and
 * foreign user types are refused by their number or name, before anything is reserved or descended into: false, no
 * payload, tag 0 and ReadCorruptData.
 *
 * The device is read strictly forward, so that sockets and transactions work.
 */
bool read(QDataStream& stream, QVariant& payload, qint32& tag);

} // namespace NVariantStream

#endif // TLXCORE_VARIANTSTREAM_H
