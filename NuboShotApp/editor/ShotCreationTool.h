#pragma once

#include "document/Annotation.h"
#include "editor/ShotToolKind.h"

#include <QPointF>
#include <QRectF>

#include <optional>

namespace nubo {

// A press-drag-release as the creation tools see it, in document points.
struct ShotGesture {
    QPointF start;
    QPointF current;
    bool shift = false; // squares shapes, snaps lines to 45°
    bool alt = false;   // grows shapes from the press point as their centre
    bool moved = false; // a drag rather than a click
};

// The drag-to-create arithmetic shared by the tools that make annotations.
class ShotCreationTool {
public:
    // The rectangle of a shape, blur or text drag.
    static QRectF dragRect(const ShotGesture& gesture);
    // The end point of a line or arrow.
    static QPointF lineEnd(const ShotGesture& gesture);
    // A new text box: the drag (at least 24 wide) or, for a click, max(size × 6,
    // 160) wide at the press point; at least size × 1.5 high.
    static QRectF textBox(const ShotGesture& gesture, double fontSize);
    // An emoji: a square of side max(size, 1) centred on the press point.
    static QRectF emojiRect(QPointF point, double fontSize);
    // An emoji sized by a drag: the square from the press point towards the
    // pointer, as wide as the drag's larger extent (at least 8 points).
    static QRectF emojiDragRect(const ShotGesture& gesture, double fontSize);

    // The annotation a tool makes from a gesture (a pen stroke starts with the
    // press point, and the current point on a drag); nothing for tools that
    // make none.
    static std::optional<AnnotationKind> create(ShotToolKind tool, const ShotGesture& gesture,
                                                double fontSize, const QString& emoji);
};

} // namespace nubo
