#ifndef TLXTEST_HOSTILETEXTS_H
#define TLXTEST_HOSTILETEXTS_H

#include <QString>
#include <QStringList>

#include <iterator>
#include <random>

/**
 * @brief An endless, repeatable row of texts near to what a matcher accepts: given texts with units inserted, replaced,
 * removed and moved.
 *
 * The units come from an alphabet of the matcher's own characters and of those that matchers confuse: digits, letters
 * and marks of other scripts, letters whose other case is ASCII, surrogates alone and in pairs, line ends, zeros.
 */
class HostileTexts
{
public:
    HostileTexts(const QStringList& texts, const QString& units, unsigned int seed)
        : mTexts(texts)
        , mUnits(units + confusing())
        , mRandom(seed)
    {}

    QString next()
    {
        QString text = mTexts.at(below(mTexts.size()));
        for (int changes = below(5); changes > 0; --changes) {
            change(text);
        }
        return text;
    }

private:
    static QString confusing()
    {
        static constexpr char16_t UNITS[] = {
            0x0000, '\t',   '\n',   '\r',   ' ',    '%',    '.',    '/',    '\\',   '_',    ':',
            0x0085, 0x00B2, 0x00BD, 0x00E9, 0x0130, 0x0131, 0x017F, 0x0301, 0x0488, 0x0660, 0x0669,
            0x0967, 0x0903, 0x203F, 0x2028, 0x2029, 0x2160, 0x212A, 0x2460, 0x3007, 0x4E00, 0xD801,
            0xD835, 0xDC00, 0xDFCE, 0xFEFF, 0xFF10, 0xFF21, 0xFF3F, 0xFFFE, 0xFFFF};
        return QString(reinterpret_cast<const QChar*>(UNITS), static_cast<int>(std::size(UNITS)));
    }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(mRandom); }

    void change(QString& text)
    {
        const int at = below(text.size() + 1);
        const QChar unit = mUnits.at(below(mUnits.size()));
        switch (below(5)) {
        case 0:
            text.insert(at, unit);
            break;
        case 1:
            text.replace(at, 1, unit);
            break;
        case 2:
            text.remove(at, 1);
            break;
        case 3:
            text.append(unit);
            break;
        default:
            text.insert(at, text.mid(below(text.size() + 1), 1 + below(4)));
            break;
        }
    }

    QStringList mTexts;
    QString mUnits;
    std::mt19937 mRandom;
};

/// A text with the code of every unit, for the message of a failed check.
inline QByteArray unitCodes(const QString& text)
{
    QByteArray codes;
    for (const QChar unit : text) {
        codes += QByteArray::number(unit.unicode(), 16) + ' ';
    }
    return codes + '"' + text.toUtf8() + '"';
}

#endif // TLXTEST_HOSTILETEXTS_H
