#pragma once

#include <QPainterPath>
#include <QPointF>

#include <optional>

namespace nubo {

// The measures of one arrow, derived from its length and line width.
struct ArrowMetrics {
    double length = 0;
    double shaftWidth = 0;
    double tailWidth = 0;
    double headLength = 0;
    double headWidth = 0;
    double cornerRadius = 0;

    bool operator==(const ArrowMetrics&) const = default;
};

// Arrows are filled outlines, never stroked lines: a shaft that tapers from a
// thin tail to the head, and a triangular head, every corner slightly rounded.
// The same outline is drawn by the renderer and hit-tested by the editor.
class ArrowGeometry {
public:
    // Nothing when an input is not finite or the arrow has no length.
    static std::optional<ArrowMetrics> metrics(QPointF from, QPointF to, double width);
    // A closed path in document space, to be filled with the winding rule;
    // empty when metrics() is nothing.
    static QPainterPath outline(QPointF from, QPointF to, double width);
};

} // namespace nubo
