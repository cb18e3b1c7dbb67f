#include <tools/tlx/report/Table.h>

#include <tools/tlx/terminal/Cells.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace {

constexpr int GAP = 2;
constexpr int NARROWEST = 12; // of a column that is cut; a table that needs less is shown in blocks

bool isPlain(const QString& text, int index)
{
    const QChar unit = text.at(index);
    if (unit.isHighSurrogate()) {
        return index + 1 < text.size() && text.at(index + 1).isLowSurrogate();
    }
    if (unit.isLowSurrogate()) {
        return index > 0 && text.at(index - 1).isHighSurrogate();
    }
    return unit.isPrint() && unit.category() != QChar::Other_Format;
}

QStringList shownCells(const QJsonArray& row, int columns)
{
    QStringList cells;
    for (int i = 0; i < columns; ++i) {
        cells << shownValue(row.at(i));
    }
    return cells;
}

QVector<int> naturalWidths(const QList<QStringList>& lines, int columns)
{
    QVector<int> widths(columns, 0);
    for (const QStringList& cells : lines) {
        for (int i = 0; i < columns; ++i) {
            widths[i] = std::max(widths.at(i), NCells::width(cells.at(i)));
        }
    }
    return widths;
}

// Narrows the widest columns until the table fits; false when they would become too narrow.
bool narrow(QVector<int>& widths, int width)
{
    int total = std::accumulate(widths.cbegin(), widths.cend(), widths.size() * GAP);
    while (width > 0 && total > width) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= NARROWEST) {
            return false;
        }
        --*widest;
        --total;
    }
    return true;
}

QString lineOf(const QStringList& cells, const QVector<int>& widths)
{
    QString line;
    for (int i = 0; i < widths.size(); ++i) {
        line += QString(GAP, QLatin1Char(' '))
                + NCells::filled(NCells::cut(cells.at(i), widths.at(i)), widths.at(i));
    }
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line + QLatin1Char('\n');
}

QString blocks(const QList<QStringList>& lines)
{
    const QStringList& heads = lines.first();
    int labels = 0;
    for (const QString& head : heads) {
        labels = std::max(labels, NCells::width(head));
    }
    QString text;
    for (int row = 1; row < lines.size(); ++row) {
        text += row > 1 ? QStringLiteral("\n") : QString();
        for (int i = 0; i < heads.size(); ++i) {
            text += lineOf({heads.at(i), lines.at(row).at(i)},
                           {labels, std::max(1, NCells::width(lines.at(row).at(i)))});
        }
    }
    return text;
}

QJsonObject objectOf(const STable& table, const QJsonArray& row)
{
    QJsonObject object;
    for (int i = 0; i < table.columns.size(); ++i) {
        object.insert(table.columns.at(i), row.at(i));
    }
    return object;
}

QByteArray csvCell(const QJsonValue& value)
{
    const QString text = value.isBool() ? (value.toBool() ? QStringLiteral("true") : QStringLiteral("false"))
                         : value.isArray() ? shownValue(value)
                                           : value.toVariant().toString();
    QByteArray cell = text.toUtf8();
    const auto needsQuotes = [](char byte) {
        return byte == ',' || byte == '"' || byte == '\n' || byte == '\r';
    };
    if (std::any_of(cell.cbegin(), cell.cend(), needsQuotes)) {
        cell = '"' + cell.replace('"', "\"\"") + '"';
    }
    return cell;
}

QByteArray csvLine(const QJsonArray& row, int columns)
{
    QByteArray line;
    for (int i = 0; i < columns; ++i) {
        line += (i > 0 ? "," : "") + csvCell(row.at(i));
    }
    return line + '\n';
}

} // namespace

namespace NTable {

QString text(const STable& table, int width, bool colour)
{
    QStringList heads;
    for (const QString& key : table.columns) {
        heads << labelOf(key);
    }
    QList<QStringList> lines{heads};
    for (const QJsonArray& row : table.rows) {
        lines << shownCells(row, heads.size());
    }
    QVector<int> widths = naturalWidths(lines, heads.size());
    if (!narrow(widths, width)) {
        return blocks(lines);
    }
    QString text = bold(lineOf(heads, widths).chopped(1), colour) + QLatin1Char('\n');
    for (int i = 1; i < lines.size(); ++i) {
        text += lineOf(lines.at(i), widths);
    }
    return text;
}

QJsonArray json(const STable& table)
{
    QJsonArray array;
    for (const QJsonArray& row : table.rows) {
        array.append(objectOf(table, row));
    }
    return array;
}

QByteArray jsonLines(const STable& table)
{
    QByteArray lines;
    for (const QJsonArray& row : table.rows) {
        lines += QJsonDocument(objectOf(table, row)).toJson(QJsonDocument::Compact) + '\n';
    }
    return lines;
}

QByteArray csv(const STable& table)
{
    QByteArray lines = csvLine(QJsonArray::fromStringList(table.columns), table.columns.size());
    for (const QJsonArray& row : table.rows) {
        lines += csvLine(row, table.columns.size());
    }
    return lines;
}

} // namespace NTable

QString shownValue(const QJsonValue& value)
{
    if (value.isArray()) {
        QStringList texts;
        const QJsonArray array = value.toArray();
        for (const QJsonValue& item : array) {
            texts << shownValue(item);
        }
        return texts.join(QLatin1String(", "));
    }
    if (value.isBool()) {
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    }
    return escapedForTerminal(value.toVariant().toString());
}

QString labelOf(const QString& key)
{
    QString label;
    for (const QChar letter : key) {
        label += letter.isUpper() ? QLatin1Char(' ') + QString(letter.toLower()) : QString(letter);
    }
    return label.left(1).toUpper() + label.mid(1);
}

QString escapedForTerminal(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const ushort code = text.at(i).unicode();
        if (isPlain(text, i)) {
            escaped += text.at(i);
        } else if (code < 0x100) {
            escaped += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        } else {
            escaped += QStringLiteral("\\u{%1}").arg(code, 4, 16, QLatin1Char('0'));
        }
    }
    return escaped;
}

QString bold(const QString& text, bool colour)
{
    return colour ? QStringLiteral("\x1b[1m") + text + QStringLiteral("\x1b[0m") : text;
}
