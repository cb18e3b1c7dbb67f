#ifndef TLX_REPORT_H
#define TLX_REPORT_H

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

/**
 * @brief What a command found: rows of key and value, tables, and at most one error.
 *
 * One report prints as text for people and as one JSON object for machines:
 *     {"command": "value", "ok": true, "result": {...}}
 *     {"command": "value", "ok": false, "result": {...}, "error": {"message": "...", "offset": 12}}
 * Keys are camelCase. 64-bit numbers are strings, since a JSON number is a double for most readers. Rows that follow
 * setSection() stand in an object of that name.
 *
 * In text, control characters and other characters that a terminal could act upon are shown as "\xNN" or "\u{NNNN}",
 * so that a name out of an archive or a device cannot move the cursor.
 */
class Report
{
public:
    explicit Report(const QString& command);

    /// Puts the rows that follow into the section `key` (empty: into the result itself); `title` heads it in text.
    void setSection(const QString& key, const QString& title);

    /// One row: `key` in JSON, `label` in text. JSON arrays of texts print with commas between.
    void add(const QString& key, const QString& label, const QJsonValue& value);

    /// A table: in JSON an array of objects whose keys are `columns`.
    void addTable(const QString& key, const QStringList& columns, const QList<QStringList>& rows);

    /// The error; `offset` is the byte at which the input stops making sense, -1 when there is none to name.
    void setError(const QString& message, qint64 offset = -1);

    QString command() const { return mCommand; }
    bool hasError() const { return !mMessage.isNull(); }

    /// For people. Tables are cut to `width` columns (0: never), headings are bold with `colour`.
    QString text(int width = 0, bool colour = false) const;
    QString json() const;
    QString errorText() const;

private:
    // One piece of the text form: a section's title, a row (label and value), or a table (columns and rows).
    struct SBlock
    {
        enum EKind
        {
            Title,
            Row,
            Table
        } kind;
        QStringList head;
        QList<QStringList> rows;
    };

    void insert(const QString& key, const QJsonValue& value);

    QString mCommand;
    QString mSection;
    QList<SBlock> mBlocks;
    QString mMessage;
    qint64 mOffset = -1;
    QJsonObject mResult;
};

/// `text` with everything that a terminal could act upon shown by its code.
QString escapedForTerminal(const QString& text);

#endif // TLX_REPORT_H
