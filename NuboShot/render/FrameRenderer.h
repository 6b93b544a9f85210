#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QTransform>

#include <functional>

class QPainter;

namespace nubo {

// A soft shadow cast by everything drawn in a transparency layer.
struct ShotShadow {
    QColor color;    // alpha included
    QPointF offset;  // in pixels, y downwards
    double blur = 0; // blur radius in pixels (a Gaussian of half that deviation)
};

class FrameRenderer {
public:
    // The shadow of a framed shot at s pixels per point: black at 35 %,
    // 3 × s below the content, blurred over 12 × s.
    static ShotShadow frameShadow(double s);

    // Runs the action on a transparent layer the size of the target (its
    // painter set up with the given transform), then composites the layer
    // onto the target above the shadow its pixels cast.
    static void drawWithShadow(QImage& target, const QTransform& transform,
                               const ShotShadow& shadow,
                               const std::function<void(QPainter&)>& action);

    // Composites a finished layer (same pixel size as the target) with its
    // shadow.
    static void compositeWithShadow(QImage& target, const QImage& layer, const ShotShadow& shadow);

    // A Gaussian blur of an alpha mask (Format_Alpha8) in place, as three box
    // passes in each direction. Outside the image counts as transparent.
    static void blurAlpha(QImage& alpha, double sigma);
};

} // namespace nubo
