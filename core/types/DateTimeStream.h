#ifndef TLXCORE_DATETIMESTREAM_H
#define TLXCORE_DATETIMESTREAM_H

class QDataStream;
class QDateTime;

namespace NDateTimeStream {

/**
 * Reads what QDateTime's stream operator wrote, at every version as that operator reads it, except for what makes it, or
 * its writer, crash or open files: an unknown time spec, an unknown time zone, and one whose name leaves the folder of time
 * zones, become a null date-time, ReadCorruptData and false.
 */
bool read(QDataStream& stream, QDateTime& dateTime);

/// The date-time that may go to QDateTime's stream operator: one in a zone that this system does not know, which is not
/// valid and with which that operator crashes, becomes a null one.
QDateTime writable(const QDateTime& dateTime);

} // namespace NDateTimeStream

#endif // TLXCORE_DATETIMESTREAM_H
