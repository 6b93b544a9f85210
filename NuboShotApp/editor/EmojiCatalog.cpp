#include "editor/EmojiCatalog.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>

namespace nubo {

namespace {

constexpr char32_t firstTone = 0x1F3FB; // EMOJI MODIFIER FITZPATRICK TYPE-1-2
constexpr char32_t lastTone = 0x1F3FF;  // EMOJI MODIFIER FITZPATRICK TYPE-6
constexpr char32_t variationSelector = 0xFE0F;

// The sequence without its emoji-presentation selectors: a tone variant
// drops the base's FE0F ("☝️" is 261D FE0F, "☝🏻" is 261D 1F3FB).
QString bareKey(const QList<char32_t>& points)
{
    QString key;
    for (const char32_t point : points) {
        if (point != variationSelector) {
            key += QString::fromUcs4(&point, 1);
        }
    }
    return key;
}

} // namespace

QString EmojiEntry::inTone(int tone) const
{
    return tone >= 1 && tone <= 5 && hasTones() ? tones[size_t(tone - 1)] : emoji;
}

QString EmojiCatalog::defaultPath()
{
    return QStringLiteral("/usr/share/unicode/emoji/emoji-test.txt");
}

const EmojiCatalog& EmojiCatalog::installed()
{
    static const EmojiCatalog catalog = [] {
        QFile file(defaultPath());
        if (!file.open(QIODevice::ReadOnly)) {
            return fallback(QCoreApplication::translate("nubo::EmojiCatalog", "Only a few emoji are offered: %1 cannot be read (%2). "
                                           "Install the package unicode-data for all of them.")
                                .arg(defaultPath(), file.errorString()));
        }
        EmojiCatalog read = parse(file.read(maximumBytes));
        if (read.entries().isEmpty()) {
            return fallback(QCoreApplication::translate("nubo::EmojiCatalog", "Only a few emoji are offered: %1 lists none. "
                                           "Reinstall the package unicode-data.")
                                .arg(defaultPath()));
        }
        return read;
    }();
    return catalog;
}

EmojiCatalog EmojiCatalog::fallback(const QString& problem)
{
    EmojiCatalog catalog;
    catalog.m_groups << QCoreApplication::translate("nubo::EmojiCatalog", "Everyday");
    const std::pair<const char*, const char*> everyday[] = {
        {"\U0001F600", "grinning face"}, {"\U0001F44D", "thumbs up"},
        {"\U0001F44E", "thumbs down"},   {"\u2764\uFE0F", "red heart"},
        {"\u2705", "check mark button"}, {"\u274C", "cross mark"},
        {"\u26A0\uFE0F", "warning"},     {"\U0001F525", "fire"},
        {"\U0001F440", "eyes"},          {"\U0001F389", "party popper"},
        {"\u2753", "red question mark"}, {"\U0001F4A1", "light bulb"}};
    for (const auto& [emoji, name] : everyday) {
        catalog.m_entries.append({QString::fromUtf8(emoji), QString::fromUtf8(name), 0, {}});
    }
    catalog.m_problem = problem;
    return catalog;
}

EmojiCatalog EmojiCatalog::parse(QByteArrayView text)
{
    EmojiCatalog catalog;
    QHash<QString, qsizetype> byKey;
    int group = -1;
    bool skipGroup = false;
    const QByteArray all = text.first(std::min(text.size(), maximumBytes)).toByteArray();
    for (const QByteArray& raw : all.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith("# group:")) {
            const QString name = QString::fromUtf8(line.sliced(8).trimmed());
            skipGroup = name == QLatin1String("Component") || name.isEmpty();
            if (!skipGroup) {
                catalog.m_groups << name;
                group = int(catalog.m_groups.size() - 1);
            }
            continue;
        }
        if (line.isEmpty() || line.startsWith('#') || skipGroup || group < 0) {
            continue;
        }
        // 1F44B 1F3FD ; fully-qualified # 👋🏽 E1.0 waving hand: medium skin tone
        const qsizetype semicolon = line.indexOf(';');
        const qsizetype hash = line.indexOf('#');
        if (semicolon < 0 || hash < semicolon ||
            line.mid(semicolon + 1, hash - semicolon - 1).trimmed() != "fully-qualified") {
            continue;
        }
        QList<char32_t> points;
        bool ok = true;
        int tones = 0;
        char32_t tone = 0;
        for (const QByteArray& field : line.first(semicolon).simplified().split(' ')) {
            const uint point = field.toUInt(&ok, 16);
            if (!ok || point == 0 || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
                ok = false;
                break;
            }
            if (point >= firstTone && point <= lastTone) {
                ++tones;
                tone = point;
            }
            points.append(point);
        }
        if (!ok || points.isEmpty() || points.size() > 16) {
            continue;
        }
        // After the "#": the emoji, its version ("E1.0"), then its name.
        const QList<QByteArray> words = line.sliced(hash + 1).simplified().split(' ');
        if (words.size() < 3 || !words[1].startsWith('E')) {
            continue;
        }
        const QString name = QString::fromUtf8(words.mid(2).join(' '));
        const QString emoji = QString::fromUcs4(points.constData(), points.size());
        if (tones == 1) {
            // One tone: it belongs under its base emoji.
            QList<char32_t> base = points;
            base.removeOne(tone);
            const auto at = byKey.constFind(bareKey(base));
            if (at != byKey.cend()) {
                catalog.m_entries[*at].tones[size_t(tone - firstTone)] = emoji;
            }
            continue;
        }
        if (tones > 1) {
            continue; // mixed tones of two people: the picker offers one tone at a time
        }
        if (catalog.m_entries.size() >= maximumEntries) {
            break;
        }
        byKey.insert(bareKey(points), catalog.m_entries.size());
        catalog.m_entries.append({emoji, name, group, {}});
    }
    // An emoji with only some of its tones listed offers none.
    for (EmojiEntry& entry : catalog.m_entries) {
        if (std::any_of(entry.tones.begin(), entry.tones.end(),
                        [](const QString& t) { return t.isEmpty(); })) {
            entry.tones = {};
        }
    }
    return catalog;
}

QList<qsizetype> EmojiCatalog::search(const QString& words) const
{
    const QStringList wanted = words.toCaseFolded().split(u' ', Qt::SkipEmptyParts);
    QList<qsizetype> found;
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const QString name = m_entries[i].name.toCaseFolded();
        const bool all = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
            for (qsizetype at = name.indexOf(word); at >= 0; at = name.indexOf(word, at + 1)) {
                if (at == 0 || !name[at - 1].isLetterOrNumber()) {
                    return true;
                }
            }
            return false;
        });
        if (all && !wanted.isEmpty()) {
            found.append(i);
        }
    }
    return found;
}

qsizetype EmojiCatalog::find(const QString& emoji) const
{
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const EmojiEntry& entry = m_entries[i];
        if (entry.emoji == emoji ||
            std::find(entry.tones.begin(), entry.tones.end(), emoji) != entry.tones.end()) {
            return i;
        }
    }
    return -1;
}

} // namespace nubo
