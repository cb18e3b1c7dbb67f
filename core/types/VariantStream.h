#ifndef TLXCORE_VARIANTSTREAM_H
#define TLXCORE_VARIANTSTREAM_H

#include <QVariant>

class QDataStream;

namespace NVariantStream {

/**
 * Reads what QVariant's stream operator wrote, byte for byte as QVariant reads it, without its trust: only numbers,
 * characters, texts, bytes, dates and the library's own types are built. Containers and foreign user types are refused
 * by their number or name, before anything is reserved or descended into: false, and ReadCorruptData.
 *
 * The device is read strictly forward, so that sockets and transactions work.
 */
bool readPayload(QDataStream& stream, QVariant& payload);

} // namespace NVariantStream

#endif // TLXCORE_VARIANTSTREAM_H
