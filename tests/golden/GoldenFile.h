#ifndef TLXTEST_GOLDENFILE_H
#define TLXTEST_GOLDENFILE_H

#include <tests/golden/GoldenCases.h>

#include <QByteArray>
#include <QDataStream>
#include <QList>
#include <QMap>
#include <QString>

/**
 * @brief How a golden file is laid out: one line for the bytes that a value makes in some versions of a stream.
 *
 *     name | first-last version | big or little | single, double or any precision | hexadecimal bytes
 *
 * Versions are QDataStream's numbers. Every version from Qt 4.0 to 5.15 is in exactly one line of its byte order and
 * precision.
 */
namespace NGolden {

constexpr int FIRST_VERSION = QDataStream::Qt_4_0;
constexpr int LAST_VERSION = QDataStream::Qt_5_15;

/// One setting of a stream.
struct SSetting
{
    int version = LAST_VERSION;
    QDataStream::ByteOrder order = QDataStream::BigEndian;
    QDataStream::FloatingPointPrecision precision = QDataStream::DoublePrecision;
};

/// Every version in every byte order and precision.
QList<SSetting> allSettings();

void apply(const SSetting& setting, QDataStream& stream);

/// The bytes of a value under a setting.
QByteArray bytesOf(const SGoldenCase& value, const SSetting& setting);

/// What reading the bytes and writing the value again makes; `status` is that of the reading stream, `rest` counts
/// the bytes that were not read.
QByteArray copyOf(const SGoldenCase& value, const SSetting& setting, const QByteArray& bytes,
                  QDataStream::Status* status, qint64* rest);

/// The name of a setting in a test's row.
QByteArray nameOf(const SSetting& setting);

/// The lines of a value, written.
QByteArray linesOf(const SGoldenCase& value);

/// The bytes of a file by name of the value and nameOf() the setting.
using TBytes = QMap<QByteArray, QByteArray>;

QByteArray keyOf(const QByteArray& valueName, const SSetting& setting);

/// Reads the lines of a file; empty when it is not there or a line is none.
TBytes read(const QString& path);

/// The time zone and locale that the bytes are written in.
void prepareProcess();

} // namespace NGolden

#endif // TLXTEST_GOLDENFILE_H
