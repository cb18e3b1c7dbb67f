#ifndef TLX_SUGGESTION_H
#define TLX_SUGGESTION_H

#include <QString>
#include <QStringList>

/**
 * @brief Says that `word` is none of the names: "no such type: U61: did you mean U16?".
 *
 * Names that differ in at most two letters, or begin with the word, are suggested. Where none does, `advice` follows in
 * place of the question.
 */
QString noSuch(const QString& what, const QString& word, const QStringList& names,
               const QString& advice = {});

#endif // TLX_SUGGESTION_H
