#ifndef TLX_TABLE_H
#define TLX_TABLE_H

#include <QJsonArray>
#include <QList>
#include <QStringList>

/// A table of a report: the keys of its columns and typed cells.
struct STable
{
    QStringList columns;
    QList<QJsonArray> rows;
};

/// The forms in which a table is printed.
namespace NTable {

/**
 * @brief For people: aligned columns, or, where the columns would have to be cut too much for `width` (0: no limit), a
 * block of lines a row.
 */
QString text(const STable& table, int width, bool colour);

/// An array of objects, whose keys are the columns.
QJsonArray json(const STable& table);

/// One JSON object a line (https://jsonlines.org), UTF-8.
QByteArray jsonLines(const STable& table);

/// RFC 4180 with the columns' keys in the first line; lines end in a line feed. UTF-8.
QByteArray csv(const STable& table);

} // namespace NTable

/// A value as it is shown to people, in one line: yes and no, arrays with commas, nothing for null.
QString shownValue(const QJsonValue& value);

/// The key of a column or row as a label: "linkName" is "Link name".
QString labelOf(const QString& key);

/// `text` with everything that a terminal could act upon shown by its code.
QString escapedForTerminal(const QString& text);

/// In bold type on a terminal that shows it.
QString bold(const QString& text, bool colour);

#endif // TLX_TABLE_H
