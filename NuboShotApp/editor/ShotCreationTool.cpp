#include "editor/ShotCreationTool.h"

#include "core/Geometry.h"

#include <algorithm>
#include <cmath>

namespace nubo {

QRectF ShotCreationTool::dragRect(const ShotGesture& g)
{
    QPointF d = g.current - g.start;
    if (g.shift) {
        const double side = std::max(std::abs(d.x()), std::max(std::abs(d.y()), 0.0));
        d = QPointF(std::copysign(side, d.x()), std::copysign(side, d.y()));
    }
    if (g.alt) {
        const QPointF half(std::abs(d.x()), std::abs(d.y()));
        return QRectF(g.start - half, QSizeF(2 * half.x(), 2 * half.y()));
    }
    return QRectF(g.start, g.start + d).normalized();
}

QPointF ShotCreationTool::lineEnd(const ShotGesture& g)
{
    return g.shift ? ShotGeometry::snapAngle(g.start, g.current) : g.current;
}

QRectF ShotCreationTool::textBox(const ShotGesture& g, double fontSize)
{
    const double minimumHeight = fontSize * 1.5;
    if (!g.moved) {
        return {g.start, QSizeF(std::max(fontSize * 6, 160.0), minimumHeight)};
    }
    QRectF box = dragRect(g);
    box.setWidth(std::max(box.width(), 24.0));
    box.setHeight(std::max(box.height(), minimumHeight));
    return box;
}

QRectF ShotCreationTool::emojiRect(QPointF point, double fontSize)
{
    const double side = std::max(fontSize, 1.0);
    return {point.x() - side / 2, point.y() - side / 2, side, side};
}

QRectF ShotCreationTool::emojiDragRect(const ShotGesture& g, double)
{
    const QPointF d = g.current - g.start;
    const double side = std::max({std::abs(d.x()), std::abs(d.y()), 8.0});
    const double x = d.x() < 0 ? g.start.x() - side : g.start.x();
    const double y = d.y() < 0 ? g.start.y() - side : g.start.y();
    return {x, y, side, side};
}

} // namespace nubo
