#ifndef TLXCORE_TEXTSCANNER_H
#define TLXCORE_TEXTSCANNER_H

#include <QChar>
#include <QStringView>

#include <limits>

/// Classes of UTF-16 code units as QRegExp understands them.
namespace NCharacters {

/// "[0-9]".
inline bool isAsciiDigit(QChar codeUnit)
{
    return codeUnit >= QLatin1Char('0') && codeUnit <= QLatin1Char('9');
}

/// "\d": the decimal digits of every script in the basic plane.
inline bool isDigit(QChar codeUnit)
{
    return codeUnit.isDigit();
}

/// "\D": everything else, a lone surrogate or one half of a pair included.
inline bool isNonDigit(QChar codeUnit)
{
    return !codeUnit.isDigit();
}

/// "\w": letters, numbers and marks of every script in the basic plane, and "_"; those of Unicode 13, whatever Qt knows.
inline bool isWord(QChar codeUnit)
{
    const bool isMark = codeUnit.unicode() > 0x7F && codeUnit.isMark();
    return (codeUnit.isLetterOrNumber() || codeUnit == QLatin1Char('_') || isMark)
           && codeUnit.unicodeVersion() <= QChar::Unicode_13_0;
}

} // namespace NCharacters

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

    /// Takes up to `most` code units of a class; returns their number.
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

    /// Takes one code unit if it is this character.
    bool takeOne(char character)
    {
        return take([character](QChar next) { return next == QLatin1Char(character); }, 1) == 1;
    }

private:
    const QChar* mAt;
    const QChar* mEnd;
};

#endif // TLXCORE_TEXTSCANNER_H
