#ifndef TLX_CELLS_H
#define TLX_CELLS_H

#include <QString>
#include <QStringList>

/// Text measured as a terminal shows it: East Asian wide characters take two cells, combining marks none.
namespace NCells {

/// Cells that the text takes on a terminal.
int width(const QString& text);

/// The text if it fits `cells`; otherwise its beginning and an ellipsis.
QString cut(const QString& text, int cells);

/// The text, filled with blanks up to `cells`.
QString filled(const QString& text, int cells);

/// The text in lines of at most `cells`, broken between words only; a longer word has a line of its own.
QStringList wrapped(const QString& text, int cells);

} // namespace NCells

#endif // TLX_CELLS_H
