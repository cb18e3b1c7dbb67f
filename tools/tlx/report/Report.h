#ifndef TLX_REPORT_H
#define TLX_REPORT_H

#include <tools/tlx/report/Table.h>

#include <QJsonObject>
#include <QString>

#include <initializer_list>

/// A number of 64 bits in JSON: a text.
template <typename Number>
QJsonValue wideNumber(Number number)
{
    return QString::number(number);
}

/// A floating-point number in JSON; infinities and NaN, which JSON has no numbers for, as texts.
QJsonValue floatingNumber(double number);

/**
 * @brief What a command found: rows of key and value, tables, and what is wrong.
 *
 * One report prints as text for people and as one JSON object for machines:
 *     {"command": "value", "ok": true, "result": {...}}
 *     {"command": "value", "ok": false, "result": {...}, "error": {"message": "...", "offset": 12}}
 * Keys are camelCase. Yes and no are booleans, what is not there is null, numbers are numbers; only those of 64 bits are
 * texts, since a JSON number is a double for most readers. Rows that follow setSection() are in an object of that name.
 *
 * In text, control characters and other characters that a terminal could act upon are shown as "\xNN" or "\u{NNNN}",
 * so that a name out of an archive or a device cannot move the cursor.
 */
class Report
{
public:
    /// `printsRows`: prints the rows of a table that grows as they come, one JSON object a line.
    explicit Report(const QString& command, bool printsRows = false);

    /// Puts the rows that follow into the section `key` (empty: into the result itself); `title` heads it in text.
    void setSection(const QString& key, const QString& title);

    /// One row: `key` in JSON, `label` in text, `shownAs` in place of the value in text.
    void add(const QString& key, const QString& label, const QJsonValue& value, const QString& shownAs = {});
    void add(const char* key, const char* label, const QJsonValue& value, const QString& shownAs = {});

    /// A table: in JSON an array of objects whose keys are `columns`.
    void addTable(const QString& key, const QStringList& columns, const QList<QJsonArray>& rows);
    void addTable(const char* key, std::initializer_list<const char*> columns, const QList<QJsonArray>& rows);

    /// A table whose rows become known one by one, with addRow().
    void beginTable(const char* key, std::initializer_list<const char*> columns)
    {
        addTable(key, columns, {});
    }

    /// A row of the table that was added last.
    void addRow(const QJsonArray& row);

    /// Says what is wrong, at which byte of the input where there is one to name. Further errors follow the first.
    void setError(const QString& message, qint64 offset = -1);
    bool hasError() const { return !mMessages.isEmpty(); }

    /// Takes note that the command has written its result itself: the report prints errors alone.
    void setWritten() { mIsWritten = true; }
    bool isWritten() const { return mIsWritten; }

    QString command() const { return mCommand; }

    /// The rows and tables for people, tables fitted to `width` columns (0: no limit).
    QString text(int width, bool colour) const;

    /// The one JSON object.
    QByteArray json() const;

    /// The first table, one JSON object a line; without one, the result in one line.
    QByteArray jsonLines() const;

    /// The first table as comma-separated values; without one, a line of keys and one of values.
    QByteArray csv() const;

    /// A line an error, for people; empty when there is none.
    QString errorText() const;

private:
    struct SBlock
    {
        enum EBlock
        {
            Title,
            Row,
            Table
        } kind;
        QStringList head; // a title; a row's label and text; a table's section and key
        STable table;
    };

    const STable* firstTable() const;

    QString mCommand;
    bool mPrintsRows;
    QString mSection;
    QList<SBlock> mBlocks;
    QStringList mMessages;
    qint64 mOffset = -1;
    bool mIsWritten = false;
    QJsonObject mResult;
};

#endif // TLX_REPORT_H
