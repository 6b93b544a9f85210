#include "core/ResizeHandle.h"

#include <cmath>

namespace nubo::ShotGeometry {

QPointF handlePoint(const QRectF& box, ResizeHandle handle)
{
    switch (handle) {
    case ResizeHandle::topLeft:
        return box.topLeft();
    case ResizeHandle::top:
        return {box.center().x(), box.top()};
    case ResizeHandle::topRight:
        return box.topRight();
    case ResizeHandle::right:
        return {box.right(), box.center().y()};
    case ResizeHandle::bottomRight:
        return box.bottomRight();
    case ResizeHandle::bottom:
        return {box.center().x(), box.bottom()};
    case ResizeHandle::bottomLeft:
        return box.bottomLeft();
    case ResizeHandle::left:
        return {box.left(), box.center().y()};
    }
    return box.center();
}

QRectF resized(const QRectF& box, ResizeHandle handle, QPointF p)
{
    QRectF r = box;
    switch (handle) {
    case ResizeHandle::topLeft:
        r.setTopLeft(p);
        break;
    case ResizeHandle::top:
        r.setTop(p.y());
        break;
    case ResizeHandle::topRight:
        r.setTopRight(p);
        break;
    case ResizeHandle::right:
        r.setRight(p.x());
        break;
    case ResizeHandle::bottomRight:
        r.setBottomRight(p);
        break;
    case ResizeHandle::bottom:
        r.setBottom(p.y());
        break;
    case ResizeHandle::bottomLeft:
        r.setBottomLeft(p);
        break;
    case ResizeHandle::left:
        r.setLeft(p.x());
        break;
    }
    return r.normalized();
}

QRectF handleRect(const QRectF& box, ResizeHandle handle, double side)
{
    const QPointF p = handlePoint(box, handle);
    return {p.x() - side / 2, p.y() - side / 2, side, side};
}

std::optional<ResizeHandle> handleAt(const QRectF& box, QPointF point, double side, double grip)
{
    for (const ResizeHandle handle : allCases<ResizeHandle>()) {
        if (handleRect(box, handle, side).adjusted(-grip, -grip, grip, grip).contains(point)) {
            return handle;
        }
    }
    return std::nullopt;
}

std::optional<ResizeHandle> cornerNear(const QRectF& box, QPointF point, double reach)
{
    std::optional<ResizeHandle> nearest;
    double best = 0;
    for (const ResizeHandle corner : {ResizeHandle::topLeft, ResizeHandle::topRight,
                                      ResizeHandle::bottomRight, ResizeHandle::bottomLeft}) {
        const QPointF at = handlePoint(box, corner);
        const double dx = std::abs(at.x() - point.x());
        const double dy = std::abs(at.y() - point.y());
        if (dx > reach || dy > reach) {
            continue;
        }
        const double distance = std::hypot(dx, dy);
        if (!nearest || distance < best) {
            nearest = corner;
            best = distance;
        }
    }
    return nearest;
}

} // namespace nubo::ShotGeometry
