#ifndef TLXCORE_QTLOCALE_H
#define TLXCORE_QTLOCALE_H

#include <QDate>
#include <QLocale>

/// Numbers and dates as Qt 5.15's QLocale writes them. With Qt 6, which knows a later edition of the locales, the marks and
/// groups of Qt 5 are put in by rule, and the few locales whose marks or dates changed are looked up.
namespace NQtLocale {

/// QLocale::toString(): groups of three digits unless the locale's options omit them, and a small "e".
QString number(const QLocale& locale, double value, char format, int precision);

/// QLocale::toString() with QLocale::ShortFormat.
QString shortDate(const QLocale& locale, QDate date);

} // namespace NQtLocale

#endif // TLXCORE_QTLOCALE_H
