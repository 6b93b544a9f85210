#include "core/ArrowGeometry.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>

namespace nubo {

std::optional<ArrowMetrics> ArrowGeometry::metrics(QPointF from, QPointF to, double width)
{
    if (!std::isfinite(from.x()) || !std::isfinite(from.y()) || !std::isfinite(to.x()) ||
        !std::isfinite(to.y()) || !std::isfinite(width)) {
        return std::nullopt;
    }
    const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
    if (!std::isnormal(length) || length <= 0) {
        return std::nullopt;
    }
    ArrowMetrics m;
    m.length = length;
    const double w = std::max(width, 0.5);
    m.headLength = std::min(length * 0.45, w * 3.5 + 4);
    m.headWidth = m.headLength * 0.85;
    m.shaftWidth = std::min(m.headWidth * 0.6, w);
    m.tailWidth = std::min(m.shaftWidth * 0.6, std::max(m.shaftWidth * 0.25, 1.0));
    m.cornerRadius = std::min({m.headLength * 0.08, w * 0.3, 3.0});
    return m;
}

QPainterPath ArrowGeometry::outline(QPointF from, QPointF to, double width)
{
    const auto m = metrics(from, to, width);
    if (!m) {
        return {};
    }
    // Along the positive x-axis, tail at the origin, tip at the length:
    // upper shaft edge, head, lower shaft edge, tail end.
    const double neck = m->length - m->headLength;
    const std::array<QPointF, 7> corners{{
        {0, -m->tailWidth / 2},
        {neck, -m->shaftWidth / 2},
        {neck, -m->headWidth / 2},
        {m->length, 0},
        {neck, m->headWidth / 2},
        {neck, m->shaftWidth / 2},
        {0, m->tailWidth / 2},
    }};
    constexpr std::size_t n = corners.size();

    // Each corner is cut back by the radius (at most half of either adjacent
    // edge) and joined with a quadratic curve through the corner itself.
    std::array<QPointF, n> entry;
    std::array<QPointF, n> exit;
    for (std::size_t i = 0; i < n; ++i) {
        const QPointF corner = corners[i];
        const QPointF previous = corners[(i + n - 1) % n];
        const QPointF next = corners[(i + 1) % n];
        const auto towards = [&](QPointF target) {
            const QPointF d = target - corner;
            const double edge = std::hypot(d.x(), d.y());
            if (edge <= 0) {
                return corner;
            }
            const double cut = std::min(m->cornerRadius, edge / 2);
            return corner + d * (cut / edge);
        };
        entry[i] = towards(previous);
        exit[i] = towards(next);
    }

    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.moveTo(exit[n - 1]);
    for (std::size_t i = 0; i < n; ++i) {
        path.lineTo(entry[i]);
        path.quadTo(corners[i], exit[i]);
    }
    path.closeSubpath();

    QTransform placement;
    placement.translate(from.x(), from.y());
    placement.rotateRadians(std::atan2(to.y() - from.y(), to.x() - from.x()));
    QPainterPath placed = placement.map(path);
    placed.setFillRule(Qt::WindingFill);
    return placed;
}

} // namespace nubo
