#include <tools/tlx/terminal/Cells.h>

#include <QVector>

#include <algorithm>

namespace {

struct SRange
{
    uint first;
    uint last;
};

// The blocks that EastAsianWidth.txt of Unicode 15 calls wide or full-width.
constexpr SRange WIDE[] = {{0x1100, 0x115F},   {0x231A, 0x231B},   {0x2E80, 0x303E},   {0x3041, 0x33FF},
                           {0x3400, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},
                           {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                           {0xFFE0, 0xFFE6},   {0x16FE0, 0x18CFF}, {0x1AFF0, 0x1B2FF}, {0x1F300, 0x1F64F},
                           {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

int cellsOf(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const auto holds = [character](const SRange& range) {
        return character >= range.first && character <= range.last;
    };
    return std::any_of(std::begin(WIDE), std::end(WIDE), holds) ? 2 : 1;
}

} // namespace

namespace NCells {

int width(const QString& text)
{
    int cells = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        cells += cellsOf(character);
    }
    return cells;
}

QString cut(const QString& text, int cells)
{
    if (width(text) <= cells) {
        return text;
    }
    QString head;
    int taken = 1; // the ellipsis
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        taken += cellsOf(character);
        if (taken > cells) {
            break;
        }
        head += QString::fromUcs4(&character, 1);
    }
    return head + QChar(0x2026);
}

QString filled(const QString& text, int cells)
{
    return text + QString(std::max(0, cells - width(text)), QLatin1Char(' '));
}

QStringList wrapped(const QString& text, int cells)
{
    QStringList lines{QString()};
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (!lines.last().isEmpty() && width(lines.last()) + 1 + width(word) > cells) {
            lines << QString();
        }
        lines.last() += (lines.last().isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    return lines;
}

} // namespace NCells
