#ifndef TLX_UNDECODABLE_H
#define TLX_UNDECODABLE_H

#include <QByteArray>
#include <QList>
#include <QString>

/// Names in no encoding of the system, which no text can hold: as bytes, as the system has them.
namespace NUndecodable {

/// What the walk over a directory tree met that a listing does not show.
struct SWalk
{
    QList<QByteArray> names; ///< Paths in no encoding of the system; nothing below them was looked at.
    QList<QByteArray>
        unopened; ///< Directories that cannot be read, with the system's reason: "PATH: reason".
};

/// Walks a tree without following links.
SWalk walk(const QString& directory);

/// Bytes as a text in which those that are not printable ASCII are escaped: "a\xff".
QString escaped(const QByteArray& bytes);

/// Counts and names them, at most ten: "2 names are not valid in the system's encoding: a\xff, b\xfe".
QString counted(const QList<QByteArray>& names, const QString& what);

} // namespace NUndecodable

class Report;

/// Says in the report what a listing of the directory tree omits: names in no encoding, directories that cannot be read.
void addOmitted(const QString& directory, Report& report);

#endif // TLX_UNDECODABLE_H
