#pragma once

#include <QColor>
#include <QSizeF>
#include <QtGlobal>

namespace nubo {

// A colour in sRGB with components in 0…1.
struct ShotColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    // Negative zero equals zero here, as it does for the hash below.
    bool operator==(const ShotColor&) const = default;

    QColor toQColor() const;
    static ShotColor fromQColor(const QColor& color);
};

size_t qHash(const ShotColor& color, size_t seed = 0) noexcept;

// How an annotation is drawn. Every construction normalises the line width,
// font size and redaction strength, so a style from a file or another
// program can never ask for a glyph or a stroke larger than the renderer can
// draw (arrow heads follow the line width, counter badges the font size).
struct ShotStyle {
    static constexpr double maximumLineWidth = 100; // points
    static constexpr double maximumFontSize = 400;  // points

    ShotColor color{0.96, 0.26, 0.21, 1};
    double lineWidth = 4;
    double fontSize = 24;
    bool textOutline = true;
    double strength = 12;

    ShotStyle() = default;
    ShotStyle(ShotColor color, double lineWidth, double fontSize, bool textOutline,
              double strength);

    // Not finite → 12, then clamped to 6…40.
    static double normalizedStrength(double strength);
    // Not finite → 4, then clamped to 0…maximumLineWidth.
    static double normalizedLineWidth(double lineWidth);
    // Not finite → 24, then clamped to 1…maximumFontSize.
    static double normalizedFontSize(double fontSize);

    bool operator==(const ShotStyle&) const = default;
};

// Outline and shadow that keep text readable on any background. Never stored:
// always derived from the style.
struct ShotTextEffects {
    ShotColor outlineColor;
    double outlineWidth = 0;
    ShotColor shadowColor;
    double blurRadius = 0;
    QSizeF offset;

    bool operator==(const ShotTextEffects&) const = default;

    static ShotTextEffects forStyle(const ShotStyle& style);
    // The margin the effects need around the text's own rectangle.
    double padding() const;
};

} // namespace nubo
