#include <tools/tlx/report/Report.h>

#include <tools/tlx/terminal/Cells.h>
#include <tools/tlx/terminal/Output.h>

#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace {

constexpr int LABEL_WIDTH = 22;

// One row of the values of an object; those of a section have its key and a point before their own.
void flatten(const QJsonObject& object, const QString& prefix, STable& table)
{
    for (auto value = object.constBegin(); value != object.constEnd(); ++value) {
        if (value->isObject()) {
            flatten(value->toObject(), prefix + value.key() + QLatin1Char('.'), table);
        } else {
            table.columns << prefix + value.key();
            table.rows.first().append(*value);
        }
    }
}

// Puts a value into the section of the result, or, where that is empty, into the result itself.
void insert(QJsonObject& result, const QString& section, const QString& key, const QJsonValue& value)
{
    if (section.isEmpty()) {
        result.insert(key, value);
        return;
    }
    QJsonObject object = result.value(section).toObject();
    object.insert(key, value);
    result.insert(section, object);
}

} // namespace

QJsonValue floatingNumber(double number)
{
    return std::isfinite(number) ? QJsonValue(number) : QJsonValue(QString::number(number));
}

Report::Report(const QString& command, bool printsRows)
    : mCommand(command)
    , mPrintsRows(printsRows)
{}

void Report::setSection(const QString& key, const QString& title)
{
    mSection = key;
    if (!title.isEmpty()) {
        mBlocks << SBlock{SBlock::Title, {title}, {}};
    }
}

void Report::add(const QString& key, const QString& label, const QJsonValue& value, const QString& shownAs)
{
    insert(mResult, mSection, key, value);
    mBlocks << SBlock{SBlock::Row, {label, shownAs.isEmpty() ? shownValue(value) : shownAs}, {}};
}

void Report::add(const char* key, const char* label, const QJsonValue& value, const QString& shownAs)
{
    add(QString::fromLatin1(key), QString::fromLatin1(label), value, shownAs);
}

void Report::addTable(const char* key, std::initializer_list<const char*> columns,
                      const QList<QJsonArray>& rows)
{
    QStringList keys;
    for (const char* column : columns) {
        keys << QString::fromLatin1(column);
    }
    addTable(QString::fromLatin1(key), keys, rows);
}

void Report::addTable(const QString& key, const QStringList& columns, const QList<QJsonArray>& rows)
{
    mBlocks << SBlock{SBlock::Table, {mSection, key}, {columns, rows}};
}

void Report::addRow(const QJsonArray& row)
{
    STable& table = mBlocks.last().table;
    if (mPrintsRows) {
        printBytes(stdout, NTable::jsonLines({table.columns, {row}}));
        setWritten();
    } else {
        table.rows << row;
    }
}

void Report::setError(const QString& message, qint64 offset)
{
    mMessages << message;
    mOffset = mMessages.size() == 1 ? offset : mOffset;
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
            text += QLatin1String("  ") + NCells::filled(block.head.first(), LABEL_WIDTH) + QLatin1Char(' ')
                    + block.head.last() + QLatin1Char('\n');
            break;
        case SBlock::Table:
            text += NTable::text(block.table, width, colour);
            break;
        }
    }
    return text;
}

QByteArray Report::json() const
{
    QJsonObject result = mResult;
    for (const SBlock& block : mBlocks) {
        if (block.kind == SBlock::Table) {
            insert(result, block.head.first(), block.head.last(), NTable::json(block.table));
        }
    }
    QJsonObject object{{QStringLiteral("command"), mCommand},
                       {QStringLiteral("ok"), !hasError()},
                       {QStringLiteral("result"), result}};
    if (hasError()) {
        QJsonObject error{{QStringLiteral("message"), mMessages.join(QLatin1String("; "))}};
        if (mOffset >= 0) {
            error.insert(QStringLiteral("offset"), mOffset);
        }
        object.insert(QStringLiteral("error"), error);
    }
    return QJsonDocument(object).toJson();
}

QByteArray Report::jsonLines() const
{
    const STable* table = firstTable();
    return table ? NTable::jsonLines(*table) : QJsonDocument(mResult).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray Report::csv() const
{
    if (const STable* table = firstTable()) {
        return NTable::csv(*table);
    }
    STable table{{}, {QJsonArray()}};
    flatten(mResult, QString(), table);
    return NTable::csv(table);
}

QString Report::errorText() const
{
    QString text;
    for (const QString& message : mMessages) {
        const bool hasPlace = mOffset >= 0 && text.isEmpty();
        const QString where = hasPlace ? QStringLiteral(" (byte %1)").arg(mOffset) : QString();
        text += QStringLiteral("tlx %1: %2%3\n").arg(mCommand, escapedForTerminal(message), where);
    }
    return text;
}

const STable* Report::firstTable() const
{
    const auto table = std::find_if(mBlocks.cbegin(), mBlocks.cend(),
                                    [](const SBlock& block) { return block.kind == SBlock::Table; });
    return table == mBlocks.cend() ? nullptr : &table->table;
}
