#ifndef TLX_JUDGEMENT_H
#define TLX_JUDGEMENT_H

#include <QString>

class CVariant;

/**
 * @brief What the library, which never refuses a text, made of one that is no value of the type.
 *
 * Returns "not a U16: the library reads 0", "does not fit U16: truncated to 4464" and the like, and nothing where the value is
 * what was written.
 * @param value what the library parsed from `text`
 */
QString judgement(const QString& text, const CVariant& value);

#endif // TLX_JUDGEMENT_H
