#ifndef TLXCORE_TEXTSCANNER_H
#define TLXCORE_TEXTSCANNER_H

#include <QChar>
#include <QStringView>

#include <limits>

/// The classes of UTF-16 units that identifiers and motor names are made of, as QRegExp understands them.
namespace NUnitClass {

/// "[0-9]".
inline bool isAsciiDigit(QChar unit)
{
    return unit >= QLatin1Char('0') && unit <= QLatin1Char('9');
}

/// "\d": the decimal digits of every script in the basic plane.
inline bool isDigit(QChar unit)
{
    return unit.isDigit();
}

/// "\D": everything else, a lone surrogate or one half of a pair included.
inline bool isNonDigit(QChar unit)
{
    return !unit.isDigit();
}

/// "\w": letters, numbers and marks of every script in the basic plane, and "_".
inline bool isWord(QChar unit)
{
    return unit.isLetterOrNumber() || unit == QLatin1Char('_') || (unit.unicode() > 0x7F && unit.isMark());
}

} // namespace NUnitClass

/**
 * Walks over a text from its start. A step takes what it names and says how much that was; what it does not name stays.
 * No allocation, no state besides the position: linear time for every text, and nothing that threads could share.
 */
class TextScanner
{
public:
    explicit TextScanner(QStringView text)
        : mAt(text.begin())
        , mEnd(text.end())
    {}

    bool atEnd() const { return mAt == mEnd; }

    QStringView rest() const { return QStringView(mAt, mEnd); }

    /// Takes up to `most` units of a class; gives their number.
    template <typename IsOfClass>
    int take(IsOfClass isOfClass, int most = std::numeric_limits<int>::max())
    {
        int taken = 0;
        while (taken < most && mAt != mEnd && isOfClass(*mAt)) {
            ++mAt;
            ++taken;
        }
        return taken;
    }

    /// Takes one unit if it is this one.
    bool takeUnit(char unit)
    {
        return take([unit](QChar next) { return next == QLatin1Char(unit); }, 1) == 1;
    }

private:
    const QChar* mAt;
    const QChar* mEnd;
};

#endif // TLXCORE_TEXTSCANNER_H
