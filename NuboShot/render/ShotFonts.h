#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QString>
#include <QStringList>

namespace nubo {

// The fonts shots are drawn with, resolved by name once and explicitly: text
// and counters in a Helvetica-compatible sans serif, emoji in a colour emoji
// font. A missing font is reported, never quietly swapped for a bitmap font.
class ShotFonts {
public:
    // In order of preference.
    static QStringList textCandidates();
    static QString emojiCandidate();

    // The family found for text, or empty when none of the candidates is
    // installed (then the renderer uses the system's sans serif and says so
    // in the log).
    static QString textFamily();
    static QString emojiFamily();
    // The family a font really resolves to, without a foundry suffix.
    static QString familyOf(const QFont& font);

    // Fonts at a whole pixel size, for layout against documentDevice().
    static QFont textFont(int pixelSize);
    static QFont emojiFont(int pixelSize);

    // A paint device of 72 dots per inch, so one point of a font is one unit
    // of document space when text is laid out against it.
    static QPaintDevice* documentDevice();
};

} // namespace nubo
