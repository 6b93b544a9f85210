#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

namespace nubo {

// One emoji as the picker offers it: its fully-qualified form, its name, its
// group and, for those that take them, its five skin tones (light to dark).
struct EmojiEntry {
    QString emoji;
    QString name;
    int group = 0;
    std::array<QString, 5> tones;
    bool hasTones() const { return !tones[0].isEmpty(); }
    // The entry in a tone: 0 is none (the default yellow), 1 to 5 light to dark.
    QString inTone(int tone) const;
};

// The emoji the picker offers, read from Unicode's emoji-test.txt (Debian's
// unicode-data): groups in the file's order, skin tones folded under their
// base emoji, the "Component" group (bare tones and hair styles) left out.
class EmojiCatalog {
public:
    static constexpr qsizetype maximumBytes = 4 * 1024 * 1024;
    static constexpr qsizetype maximumEntries = 20000;

    // Where Debian puts the file.
    static QString defaultPath();
    // The catalog of the file at defaultPath(), read once; when that cannot
    // be read, a small built-in set and a problem() naming the package.
    static const EmojiCatalog& installed();
    // Reads emoji-test.txt text; lines it cannot read are passed over.
    static EmojiCatalog parse(QByteArrayView text);
    // The built-in set: one group of everyday emoji.
    static EmojiCatalog fallback(const QString& problem);

    const QStringList& groups() const { return m_groups; }
    const QList<EmojiEntry>& entries() const { return m_entries; }
    // Entries whose name holds every word of `words` (as a word's start),
    // in the catalog's order.
    QList<qsizetype> search(const QString& words) const;
    // The entry of an emoji, in any of its tones, or -1.
    qsizetype find(const QString& emoji) const;
    const QString& problem() const { return m_problem; }

private:
    QStringList m_groups;
    QList<EmojiEntry> m_entries;
    QString m_problem;
};

} // namespace nubo
