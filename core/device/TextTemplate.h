#ifndef TLXCORE_TEXTTEMPLATE_H
#define TLXCORE_TEXTTEMPLATE_H

#include <QString>
#include <QStringList>

/**
 * Fills the placeholders of `text` one at a time: a value that itself looks like a placeholder, alone or with what
 * follows it, is filled by the next one. Callers rely on names printed that way.
 */
inline QString filledTemplate(QString text, const QStringList& values)
{
    for (const QString& value : values) {
        text = text.arg(value);
    }
    return text;
}

#endif // TLXCORE_TEXTTEMPLATE_H
