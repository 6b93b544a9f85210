#include "recognition/SensitiveText.h"

#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <optional>

namespace nubo {

namespace {

bool luhnHolds(const QString& digits)
{
    int sum = 0;
    bool twice = false;
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        int d = digits[i].digitValue();
        if (twice) {
            d *= 2;
            if (d > 9) {
                d -= 9;
            }
        }
        sum += d;
        twice = !twice;
    }
    return sum % 10 == 0;
}

QString digitsOf(const QString& text)
{
    QString digits;
    for (const QChar c : text) {
        if (c.isDigit()) {
            digits += c;
        }
    }
    return digits;
}

bool isCardNumber(const QString& match)
{
    const QString digits = digitsOf(match);
    return digits.size() >= 13 && digits.size() <= 19 && luhnHolds(digits);
}

bool isPhoneNumber(const QString& match)
{
    const qsizetype digits = digitsOf(match).size();
    if (digits < 7 || digits > 15) {
        return false;
    }
    static const QRegularExpression date(
        QStringLiteral(R"(^(\d{4}[-./]\d{1,2}[-./]\d{1,2}|\d{1,2}[-./]\d{1,2}[-./]\d{2,4})$)"));
    if (date.match(match).hasMatch()) {
        return false;
    }
    // A bare run of digits is a number, not a phone number.
    const bool international = match.startsWith(u'+') || match.contains(u'(');
    return international || match.contains(u' ') || match.contains(u'-') || match.contains(u'.');
}

bool hasDigit(const QString& match)
{
    return std::any_of(match.begin(), match.end(), [](QChar c) { return c.isDigit(); });
}

// A long random word: letters of both cases and digits, and neither a UUID
// (an identifier, seen in every log) nor a path.
bool looksGenerated(const QString& match)
{
    static const QRegularExpression uuid(QStringLiteral(
        "^[0-9a-fA-F]{8}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{12}$"));
    const bool lower = std::any_of(match.begin(), match.end(), [](QChar c) { return c.isLower(); });
    const bool upper = std::any_of(match.begin(), match.end(), [](QChar c) { return c.isUpper(); });
    // A file's path is made of words too.
    const bool path = match.startsWith(u'/') || (match.count(u'/') >= 2 && !match.contains(u'+'));
    return lower && upper && hasDigit(match) && !path && !uuid.match(match).hasMatch();
}

// One pattern of the table: what it finds, the expression, the capture
// group that is the secret (0: the whole match) and a check of the match.
struct SensitivePattern {
    SensitiveKind kind;
    QRegularExpression expression;
    int group = 0;
    std::function<bool(const QString&)> holds;
};

// Tried in this order; a later pattern does not take what an earlier one
// found (a labelled key before the bare word, a card before a phone number).
const QList<SensitivePattern>& patterns()
{
    static const QList<SensitivePattern> table = [] {
        const auto rx = [](const char* pattern, bool caseless = false) {
            return QRegularExpression(QString::fromLatin1(pattern),
                                      caseless ? QRegularExpression::CaseInsensitiveOption
                                               : QRegularExpression::NoPatternOption);
        };
        return QList<SensitivePattern>{
            // key = value, token: value, "password": "value"
            {SensitiveKind::token,
             rx(R"(\b[\w-]*?(?:api[_-]?key|access[_-]?key|secret|token|password|passwd|pwd|authorization)\w*["']?\s*[:=]\s*["']?(?!bearer\b)([^\s"',;]{6,}))",
                true),
             1, {}},
            {SensitiveKind::token, rx(R"(\bbearer\s+([A-Za-z0-9._~+/=-]{12,}))", true), 1, {}},
            // JSON web tokens and the services' own key shapes.
            {SensitiveKind::token,
             rx(R"(\beyJ[A-Za-z0-9_-]{8,}\.[A-Za-z0-9_-]{8,}\.[A-Za-z0-9_-]{8,})"), 0, {}},
            {SensitiveKind::token,
             rx(R"(\b(?:sk-[A-Za-z0-9_-]{16,}|gh[pousr]_[A-Za-z0-9]{30,}|github_pat_[A-Za-z0-9_]{30,}|xox[abposr]-[A-Za-z0-9-]{10,}|glpat-[A-Za-z0-9_-]{20,}|AKIA[0-9A-Z]{16}|AIza[0-9A-Za-z_-]{35}))"),
             0, {}},
            {SensitiveKind::email,
             rx(R"((?<![\w.+-])[A-Za-z0-9._%+-]+@[A-Za-z0-9-]+(?:\.[A-Za-z0-9-]+)*\.[A-Za-z]{2,}(?![\w-]))"),
             0, {}},
            {SensitiveKind::token, rx(R"((?<![\w/+=-])[A-Za-z0-9_+/=-]{24,}(?![\w/+=-]))"), 0,
             looksGenerated},
            {SensitiveKind::cardNumber, rx(R"((?<![\w-])\d(?:[ -]?\d){12,18}(?![\w-]))"), 0,
             isCardNumber},
            {SensitiveKind::ipAddress,
             rx(R"((?<![\w.])(?:(?:25[0-5]|2[0-4]\d|1\d\d|[1-9]?\d)\.){3}(?:25[0-5]|2[0-4]\d|1\d\d|[1-9]?\d)(?:/\d{1,2})?(?!\w|\.\d))"),
             0, {}},
            {SensitiveKind::ipAddress,
             rx(R"((?<![\w:])(?:(?:[0-9A-Fa-f]{1,4}:){7}[0-9A-Fa-f]{1,4}|(?:[0-9A-Fa-f]{1,4}:){1,6}(?::[0-9A-Fa-f]{1,4}){1,6}|(?:[0-9A-Fa-f]{1,4}:){1,7}:)(?![\w:]))"),
             0, hasDigit},
            {SensitiveKind::phone,
             rx(R"((?<![\w.+])(?:\+\d{1,3}[ .-]?)?(?:\(\d{1,5}\)[ .-]?)?\d{2,8}(?:[ .-]\d{2,8}){0,4}(?!\w|[.-]\d))"),
             0, isPhoneNumber},
        };
    }();
    return table;
}

struct Span {
    SensitiveKind kind;
    qsizetype start;
    qsizetype length;
};

QList<Span> spansIn(const QString& line)
{
    QList<Span> found;
    const auto taken = [&found](qsizetype start, qsizetype end) {
        return std::any_of(found.begin(), found.end(), [&](const Span& s) {
            return start < s.start + s.length && s.start < end;
        });
    };
    for (const SensitivePattern& pattern : patterns()) {
        QRegularExpressionMatchIterator matches = pattern.expression.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const qsizetype start = match.capturedStart(pattern.group);
            const qsizetype length = match.capturedLength(pattern.group);
            if (length <= 0 || taken(start, start + length) ||
                (pattern.holds && !pattern.holds(match.captured(pattern.group)))) {
                continue;
            }
            found.append({pattern.kind, start, length});
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Span& a, const Span& b) { return a.start < b.start; });
    return found;
}

// The part of a word's box that shows its characters [first, last): a key
// glued to its label ("token=…") is hidden without the label. Half a
// character wider on each side, for letters of unequal widths.
QRect partOfWord(const QRect& box, qsizetype characters, qsizetype first, qsizetype last)
{
    if (first == 0 && last == characters) {
        return box;
    }
    const double width = double(box.width()) / double(characters);
    const int left = box.left() + int(width * (double(first) - 0.5));
    const int right = box.left() + int(width * (double(last) + 0.5) + 0.5);
    return QRect(QPoint(std::max(box.left(), left), box.top()),
                 QPoint(std::min(box.right(), right), box.bottom()));
}

bool opensPrivateKey(const QString& line)
{
    return line.contains(QLatin1String("BEGIN")) && line.contains(QLatin1String("PRIVATE KEY"));
}

bool closesPrivateKey(const QString& line)
{
    return line.contains(QLatin1String("END")) && line.contains(QLatin1String("PRIVATE KEY"));
}

} // namespace

QList<std::pair<SensitiveKind, QString>> findSensitiveInLine(const QString& line)
{
    QList<std::pair<SensitiveKind, QString>> found;
    for (const Span& span : spansIn(line)) {
        found.append({span.kind, line.mid(span.start, span.length)});
    }
    return found;
}

QList<SensitiveFind> findSensitiveText(const RecognizedText& text)
{
    QList<SensitiveFind> found;
    std::optional<SensitiveFind> key; // a private-key block being read
    for (const RecognizedLine& line : text.lines) {
        // The line as one string, each word's place in it kept.
        QString joined;
        QList<std::pair<qsizetype, qsizetype>> places;
        for (const RecognizedWord& word : line.words) {
            if (!joined.isEmpty()) {
                joined += u' ';
            }
            places.append({joined.size(), joined.size() + word.text.size()});
            joined += word.text;
        }
        if (key || opensPrivateKey(joined)) {
            if (!key) {
                key = SensitiveFind{SensitiveKind::privateKey, {}, {}};
            }
            key->text += (key->text.isEmpty() ? QString() : QStringLiteral("\n")) + joined;
            key->boxes.append(line.box);
            if (closesPrivateKey(joined)) {
                found.append(*std::exchange(key, std::nullopt));
            }
            continue;
        }
        for (const Span& span : spansIn(joined)) {
            QRect box;
            for (qsizetype w = 0; w < places.size(); ++w) {
                const auto [from, to] = places[w];
                if (from < span.start + span.length && span.start < to) {
                    box |= partOfWord(line.words[w].box, to - from, std::max(span.start, from) - from,
                                      std::min(span.start + span.length, to) - from);
                }
            }
            found.append({span.kind, joined.mid(span.start, span.length), {box}});
        }
    }
    if (key) { // cut off by the picture's edge: hidden to its last line
        found.append(*key);
    }
    return found;
}

} // namespace nubo
