#pragma once

// How far recognised text is from the known text: the character error
// rate, edits over the known text's characters, runs of spaces folded.

#include <QString>

#include <algorithm>
#include <vector>

namespace nubo::test {

// Edits (insertions, deletions, substitutions) from one text to another.
inline qsizetype editDistance(const QString& from, const QString& to)
{
    std::vector<qsizetype> row(size_t(to.size()) + 1);
    for (qsizetype j = 0; j <= to.size(); ++j) {
        row[size_t(j)] = j;
    }
    for (qsizetype i = 1; i <= from.size(); ++i) {
        qsizetype diagonal = row[0];
        row[0] = i;
        for (qsizetype j = 1; j <= to.size(); ++j) {
            const qsizetype above = row[size_t(j)];
            row[size_t(j)] = std::min({above + 1, row[size_t(j - 1)] + 1,
                                       diagonal + (from[i - 1] == to[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[size_t(to.size())];
}

inline QString folded(const QString& text)
{
    return text.simplified();
}

inline double characterErrorRate(const QString& recognised, const QString& truth)
{
    const QString t = folded(truth);
    return double(editDistance(folded(recognised), t)) / double(std::max<qsizetype>(1, t.size()));
}

} // namespace nubo::test
