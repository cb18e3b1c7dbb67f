#include "Report.h"

#include <QJsonDocument>
#include <QVector>

#include <algorithm>

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

QString row(const QStringList& cells, const QVector<int>& widths)
{
    QString line = QStringLiteral(" ");
    for (int i = 0; i < cells.size(); ++i) {
        line +=
            QLatin1Char(' ') + escapedForTerminal(cells.at(i)).leftJustified(widths.at(i)) + QLatin1Char(' ');
    }
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line + QLatin1Char('\n');
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

CReport::CReport(const QString& command)
    : mCommand(command)
{}

void CReport::setSection(const QString& key, const QString& title)
{
    mSection = key;
    if (!title.isEmpty()) {
        mText += (mText.isEmpty() ? QString() : QStringLiteral("\n")) + title + QLatin1Char('\n');
    }
}

void CReport::add(const QString& key, const QString& label, const QJsonValue& value)
{
    insert(key, value);
    mText += QLatin1String("  ") + label.leftJustified(LABEL_WIDTH) + QLatin1Char(' ') + shown(value)
             + QLatin1Char('\n');
}

void CReport::addTable(const QString& key, const QStringList& columns, const QList<QStringList>& rows)
{
    QVector<int> widths;
    for (int i = 0; i < columns.size(); ++i) {
        int width = columns.at(i).size();
        for (const QStringList& cells : rows) {
            width = std::max(width, escapedForTerminal(cells.value(i)).size());
        }
        widths << width;
    }
    mText += row(columns, widths);
    QJsonArray array;
    for (const QStringList& cells : rows) {
        mText += row(cells, widths);
        QJsonObject object;
        for (int i = 0; i < columns.size(); ++i) {
            object.insert(columns.at(i), cells.value(i));
        }
        array.append(object);
    }
    insert(key, array);
}

void CReport::setError(const QString& message, qint64 offset)
{
    mMessage = message.isNull() ? QStringLiteral("") : message;
    mOffset = offset;
}

QString CReport::text() const
{
    return mText;
}

QString CReport::json() const
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

QString CReport::errorText() const
{
    if (!hasError()) {
        return QString();
    }
    const QString where = mOffset < 0 ? QString() : QStringLiteral(" (byte %1)").arg(mOffset);
    return QStringLiteral("tlx %1: %2%3\n").arg(mCommand, escapedForTerminal(mMessage), where);
}

void CReport::insert(const QString& key, const QJsonValue& value)
{
    if (mSection.isEmpty()) {
        mResult.insert(key, value);
        return;
    }
    QJsonObject section = mResult.value(mSection).toObject();
    section.insert(key, value);
    mResult.insert(mSection, section);
}
