#include <core/base/QtLocale.h>

#include <cmath>

namespace NQtLocale {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

namespace {

struct SDateFormat
{
    QLocale::Language language;
    QLocale::Script script;
    QLocale::Territory territory;
    const char* format;
};

constexpr SDateFormat DATE_FORMATS[] = {
    {QLocale::Bodo, QLocale::DevanagariScript, QLocale::India, "M/d/yy"},
    {QLocale::English, QLocale::LatinScript, QLocale::Philippines, "dd/MM/yyyy"},
    {QLocale::Hindi, QLocale::LatinScript, QLocale::India, "yyyy-MM-dd"},
    {QLocale::Kashmiri, QLocale::DevanagariScript, QLocale::India, "yyyy-MM-dd"},
    {QLocale::Polish, QLocale::LatinScript, QLocale::Poland, "dd.MM.yyyy"},
    {QLocale::Sardinian, QLocale::LatinScript, QLocale::Italy, "yyyy-MM-dd"},
    {QLocale::Sindhi, QLocale::DevanagariScript, QLocale::India, "d/M/yy"},
};

// Qt 5 gave two locales the digits and marks of these.
QLocale withMarksOfQt5(const QLocale& locale)
{
    if (locale.language() == QLocale::Sardinian) {
        return QLocale(QLocale::English);
    }
    if (locale.language() == QLocale::Arabic && locale.territory() == QLocale::UnitedArabEmirates) {
        return QLocale(QLocale::Arabic, QLocale::Egypt);
    }
    return locale;
}

// Qt 5 had one character for each mark, and left the marks of the writing direction away.
QChar markOf(const QString& mark, char plain)
{
    return mark.size() == 1 ? mark.at(0).toLower() : QLatin1Char(plain);
}

QString localized(QChar character, const QLocale& locale)
{
    switch (character.unicode()) {
    case '.':
        return locale.decimalPoint();
    case '-':
        return markOf(locale.negativeSign(), '-');
    case '+':
        return markOf(locale.positiveSign(), '+');
    case 'e':
        return markOf(locale.exponential(), 'e');
    default:
        break;
    }
    const QString zero = locale.zeroDigit();
    return character.isDigit() && zero.size() == 1 ? QChar(zero.at(0).unicode() + character.digitValue())
                                                   : character;
}

} // namespace

QString number(const QLocale& locale, double value, char format, int precision)
{
    QLocale plain = QLocale::c();
    plain.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    const QString text = plain.toString(value, format, precision);
    const QLocale marks = withMarksOfQt5(locale);
    const bool isGrouped = !(locale.numberOptions() & QLocale::OmitGroupSeparator);
    const auto isDigit = [&text](qsizetype i) { return i < text.size() && text.at(i).isDigit(); };
    qsizetype point = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    while (isDigit(point)) {
        ++point;
    }
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        result += std::isfinite(value) || i == 0 ? localized(text.at(i), marks) : QString(text.at(i));
        if (isGrouped && isDigit(i) && i + 1 < point && (point - i - 1) % 3 == 0) {
            result += marks.groupSeparator();
        }
    }
    return result;
}

QString shortDate(const QLocale& locale, QDate date)
{
    for (const SDateFormat& row : DATE_FORMATS) {
        if (row.language == locale.language() && row.script == locale.script()
            && row.territory == locale.territory()) {
            return locale.toString(date, QLatin1String(row.format));
        }
    }
    return withMarksOfQt5(locale).toString(date, QLocale::ShortFormat);
}

#else

QString number(const QLocale& locale, double value, char format, int precision)
{
    return locale.toString(value, format, precision);
}

QString shortDate(const QLocale& locale, QDate date)
{
    return locale.toString(date, QLocale::ShortFormat);
}

#endif

} // namespace NQtLocale
