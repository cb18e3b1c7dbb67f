#include <tools/tlx/program/Suggestion.h>

#include <QVector>

#include <algorithm>
#include <numeric>

namespace {

// Letters to insert, remove or replace, and neighbours to swap, until `a` is `b` (optimal string alignment).
int distance(const QString& a, const QString& b)
{
    QVector<QVector<int>> rows(a.size() + 1, QVector<int>(b.size() + 1));
    std::iota(rows[0].begin(), rows[0].end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        rows[i][0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const int replaced = rows[i - 1][j - 1] + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, replaced});
            const bool swapped = i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1);
            rows[i][j] = swapped ? std::min(rows[i][j], rows[i - 2][j - 2] + 1) : rows[i][j];
        }
    }
    return rows[a.size()][b.size()];
}

QString nearest(const QString& word, const QStringList& names)
{
    constexpr int LONGEST = 64; // what is longer is no misspelt name
    const int allowed = word.size() < 3 ? 1 : 2;
    QString best;
    int least = allowed + 1;
    for (const QString& name : names) {
        const int steps = word.size() > LONGEST ? least : distance(word.toLower(), name.toLower());
        if (steps < least) {
            least = steps;
            best = name;
        }
    }
    if (best.isEmpty() && word.size() > 2) {
        const auto begins = [&word](const QString& name) {
            return name.startsWith(word, Qt::CaseInsensitive);
        };
        const auto found = std::find_if(names.cbegin(), names.cend(), begins);
        best = found == names.cend() ? QString() : *found;
    }
    return best;
}

} // namespace

QString noSuch(const QString& what, const QString& word, const QStringList& names, const QString& advice)
{
    const QString suggestion = nearest(word, names);
    const QString text = QStringLiteral("no such ") + what + QLatin1String(": ") + word;
    if (!suggestion.isEmpty()) {
        return text + QStringLiteral(": did you mean ") + suggestion + QLatin1Char('?');
    }
    return advice.isEmpty() ? text : text + QLatin1String(": ") + advice;
}
