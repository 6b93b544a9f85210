#pragma once

#include <QPointF>
#include <QRectF>

namespace nubo::ShotGeometry {

// The free point moved onto the nearest multiple of 45° around the anchor,
// at the same distance.
QPointF snapAngle(QPointF anchor, QPointF free);

// Distance from p to the segment a–b; a segment of zero length measures to a.
double distanceToSegment(QPointF p, QPointF a, QPointF b);

bool isFinite(QPointF point);
// All four components and both far edges (origin plus size) are finite.
bool isFinite(const QRectF& rect);

// The rectangle with negative sizes flipped, keeping the area it covers.
inline QRectF standardized(const QRectF& rect)
{
    return rect.normalized();
}

} // namespace nubo::ShotGeometry
