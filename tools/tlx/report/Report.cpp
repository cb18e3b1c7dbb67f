#include <tools/tlx/report/Report.h>

#include <QJsonDocument>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace {

constexpr int LABEL_WIDTH = 22;

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

QString shown(const QJsonValue& value)
{
    if (value.isArray()) {
        QStringList texts;
        const QJsonArray array = value.toArray();
        for (const QJsonValue& item : array) {
            texts << shown(item);
        }
        return texts.join(QLatin1String(", "));
    }
    if (value.isBool()) {
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    }
    return escapedForTerminal(value.toVariant().toString());
}

QString bold(const QString& text, bool colour)
{
    return colour ? QStringLiteral("\x1b[1m") + text + QStringLiteral("\x1b[0m") : text;
}

QStringList escapedCells(const QStringList& cells)
{
    QStringList escaped;
    for (const QString& cell : cells) {
        escaped << escapedForTerminal(cell);
    }
    return escaped;
}

// Width of each column, the widest ones narrowed until the table fits.
QVector<int> columnWidths(const QList<QStringList>& rows, int columns, int width)
{
    QVector<int> widths(columns, 0);
    for (const QStringList& cells : rows) {
        for (int i = 0; i < columns; ++i) {
            widths[i] = std::max(widths.at(i), cells.value(i).size());
        }
    }
    constexpr int NARROWEST = 4;
    int total = std::accumulate(widths.cbegin(), widths.cend(), columns * 2);
    while (width > 0 && total > width) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= NARROWEST) {
            break;
        }
        --*widest;
        --total;
    }
    return widths;
}

QString tableLine(const QStringList& cells, const QVector<int>& widths)
{
    QString line;
    for (int i = 0; i < widths.size(); ++i) {
        QString cell = cells.value(i);
        if (cell.size() > widths.at(i)) {
            cell = cell.left(widths.at(i) - 1) + QChar(0x2026);
        }
        line += QLatin1String("  ") + cell.leftJustified(widths.at(i));
    }
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line;
}

QString tableText(const QStringList& columns, const QList<QStringList>& rows, int width, bool colour)
{
    QList<QStringList> lines{columns};
    for (const QStringList& cells : rows) {
        lines << escapedCells(cells);
    }
    const QVector<int> widths = columnWidths(lines, columns.size(), width);
    QString text = bold(tableLine(columns, widths), colour) + QLatin1Char('\n');
    for (int i = 1; i < lines.size(); ++i) {
        text += tableLine(lines.at(i), widths) + QLatin1Char('\n');
    }
    return text;
}

} // namespace

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

Report::Report(const QString& command)
    : mCommand(command)
{}

void Report::setSection(const QString& key, const QString& title)
{
    mSection = key;
    if (!title.isEmpty()) {
        mBlocks << SBlock{SBlock::Title, {title}, {}};
    }
}

void Report::add(const QString& key, const QString& label, const QJsonValue& value)
{
    insert(key, value);
    mBlocks << SBlock{SBlock::Row, {label, shown(value)}, {}};
}

void Report::addTable(const QString& key, const QStringList& columns, const QList<QStringList>& rows)
{
    QJsonArray array;
    for (const QStringList& cells : rows) {
        QJsonObject object;
        for (int i = 0; i < columns.size(); ++i) {
            object.insert(columns.at(i), cells.value(i));
        }
        array.append(object);
    }
    insert(key, array);
    mBlocks << SBlock{SBlock::Table, columns, rows};
}

void Report::setError(const QString& message, qint64 offset)
{
    mMessage = message.isNull() ? QStringLiteral("") : message;
    mOffset = offset;
}

QString Report::text(int width, bool colour) const
{
    QString text;
    for (const SBlock& block : mBlocks) {
        switch (block.kind) {
        case SBlock::Title:
            text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + bold(block.head.first(), colour)
                    + QLatin1Char('\n');
            break;
        case SBlock::Row:
            text += QLatin1String("  ") + block.head.first().leftJustified(LABEL_WIDTH) + QLatin1Char(' ')
                    + block.head.last() + QLatin1Char('\n');
            break;
        case SBlock::Table:
            text += tableText(block.head, block.rows, width, colour);
            break;
        }
    }
    return text;
}

QString Report::json() const
{
    QJsonObject object{{QStringLiteral("command"), mCommand},
                       {QStringLiteral("ok"), !hasError()},
                       {QStringLiteral("result"), mResult}};
    if (hasError()) {
        QJsonObject error{{QStringLiteral("message"), mMessage}};
        if (mOffset >= 0) {
            error.insert(QStringLiteral("offset"), mOffset);
        }
        object.insert(QStringLiteral("error"), error);
    }
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

QString Report::errorText() const
{
    if (!hasError()) {
        return QString();
    }
    const QString where = mOffset < 0 ? QString() : QStringLiteral(" (byte %1)").arg(mOffset);
    return QStringLiteral("tlx %1: %2%3\n").arg(mCommand, escapedForTerminal(mMessage), where);
}

void Report::insert(const QString& key, const QJsonValue& value)
{
    if (mSection.isEmpty()) {
        mResult.insert(key, value);
        return;
    }
    QJsonObject section = mResult.value(mSection).toObject();
    section.insert(key, value);
    mResult.insert(mSection, section);
}
