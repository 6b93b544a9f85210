#include "document/ShotStyle.h"

#include <QHashFunctions>

#include <algorithm>
#include <cmath>

namespace nubo {

QColor ShotColor::toQColor() const
{
    return QColor::fromRgbF(float(red), float(green), float(blue), float(alpha));
}

ShotColor ShotColor::fromQColor(const QColor& color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

size_t qHash(const ShotColor& color, size_t seed) noexcept
{
    // Adding +0.0 turns -0.0 into +0.0, so equal colours hash alike.
    return qHashMulti(seed, color.red + 0.0, color.green + 0.0, color.blue + 0.0,
                      color.alpha + 0.0);
}

ShotStyle::ShotStyle(ShotColor color, double lineWidth, double fontSize, bool textOutline,
                     double strength)
    : color(color), lineWidth(normalizedLineWidth(lineWidth)),
      fontSize(normalizedFontSize(fontSize)), textOutline(textOutline),
      strength(normalizedStrength(strength))
{}

double ShotStyle::normalizedLineWidth(double lineWidth)
{
    return std::isfinite(lineWidth) ? std::clamp(lineWidth, 0.0, maximumLineWidth) : 4;
}

double ShotStyle::normalizedFontSize(double fontSize)
{
    return std::isfinite(fontSize) ? std::clamp(fontSize, 1.0, maximumFontSize) : 24;
}

double ShotStyle::normalizedStrength(double strength)
{
    if (!std::isfinite(strength)) {
        strength = 12;
    }
    return std::clamp(strength, 6.0, 40.0);
}

namespace {
double linearized(double c)
{
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}
} // namespace

ShotTextEffects ShotTextEffects::forStyle(const ShotStyle& style)
{
    const ShotColor& c = style.color;
    const double luminance =
        0.2126 * linearized(c.red) + 0.7152 * linearized(c.green) + 0.0722 * linearized(c.blue);
    const double size = std::max(style.fontSize, 1.0);
    const double grey = luminance >= 0.6 ? 0 : 1;

    ShotTextEffects effects;
    effects.outlineColor = {grey, grey, grey, c.alpha};
    effects.outlineWidth = style.textOutline ? size * 0.12 : 0;
    effects.shadowColor = {0, 0, 0, c.alpha * 0.45};
    effects.blurRadius = size / 12;
    effects.offset = QSizeF(0, size / 24);
    return effects;
}

double ShotTextEffects::padding() const
{
    return std::ceil(std::max(std::abs(offset.width()), std::abs(offset.height())) + outlineWidth +
                     3 * blurRadius);
}

} // namespace nubo
