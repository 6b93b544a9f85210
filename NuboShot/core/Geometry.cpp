#include "core/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace nubo::ShotGeometry {

QPointF snapAngle(QPointF anchor, QPointF free)
{
    const QPointF d = free - anchor;
    constexpr double step = std::numbers::pi / 4;
    const double snapped = std::round(std::atan2(d.y(), d.x()) / step) * step;
    const double length = std::hypot(d.x(), d.y());
    return anchor + QPointF(length * std::cos(snapped), length * std::sin(snapped));
}

double distanceToSegment(QPointF p, QPointF a, QPointF b)
{
    const QPointF ab = b - a;
    const double lengthSquared = QPointF::dotProduct(ab, ab);
    if (lengthSquared <= 0) {
        return std::hypot(p.x() - a.x(), p.y() - a.y());
    }
    const double t = std::clamp(QPointF::dotProduct(p - a, ab) / lengthSquared, 0.0, 1.0);
    const QPointF nearest = a + t * ab;
    return std::hypot(p.x() - nearest.x(), p.y() - nearest.y());
}

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isFinite(const QRectF& rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height()) && std::isfinite(rect.x() + rect.width()) &&
           std::isfinite(rect.y() + rect.height());
}

} // namespace nubo::ShotGeometry
