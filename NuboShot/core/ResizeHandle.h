#pragma once

#include "core/EnumStrings.h"

#include <QPointF>
#include <QRectF>

#include <optional>

namespace nubo {

// The handles of a box: four corners and four edge midpoints.
enum class ResizeHandle { topLeft, top, topRight, right, bottomRight, bottom, bottomLeft, left };
template <> struct EnumNames<ResizeHandle> {
    static constexpr std::array names{"topLeft",     "top",    "topRight",   "right",
                                      "bottomRight", "bottom", "bottomLeft", "left"};
};

// The geometry of handles, shared by the editor's selection and crop and by
// the capture overlay.
namespace ShotGeometry {

// Where a handle sits on a box.
QPointF handlePoint(const QRectF& box, ResizeHandle handle);
// The box with a handle dragged to a point, standardised.
QRectF resized(const QRectF& box, ResizeHandle handle, QPointF point);
// The square of a handle, `side` wide, centred on its point.
QRectF handleRect(const QRectF& box, ResizeHandle handle, double side);
// The first handle, in their order, whose square grown by `grip` on every
// side holds the point.
std::optional<ResizeHandle> handleAt(const QRectF& box, QPointF point, double side, double grip);
// The corner a point grabs: within `reach` on both axes, the nearest, ties
// in the order top-left, top-right, bottom-right, bottom-left.
std::optional<ResizeHandle> cornerNear(const QRectF& box, QPointF point, double reach);

} // namespace ShotGeometry
} // namespace nubo
