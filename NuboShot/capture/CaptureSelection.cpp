#include "capture/CaptureSelection.h"

#include "core/Geometry.h"

#include <cmath>

namespace nubo {

quint32 ShotCaptureSelection::display() const
{
    return std::visit([](const auto& f) { return f.display; }, framing);
}

QRectF ShotCaptureSelection::globalRect() const
{
    if (const auto* area = std::get_if<Area>(&framing)) {
        return area->rect.normalized();
    }
    return std::get<Window>(framing).window.frame.normalized();
}

ShotCaptureSelection ShotCaptureSelection::fromDesktopPixels(const QRectF& pixels,
                                                             const QList<ScreenSpace>& displays)
{
    if (!ShotGeometry::isFinite(pixels) || pixels.width() <= 0 || pixels.height() <= 0) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the region is not a rectangle with a size"));
    }
    for (const ScreenSpace& d : displays) {
        // A half-open test: a corner on the right edge of one display belongs
        // to the next one.
        const QRectF& px = d.captureFrame;
        const QPointF corner = pixels.topLeft();
        if (corner.x() < px.left() || corner.y() < px.top() || corner.x() >= px.right() ||
            corner.y() >= px.bottom() || d.scale <= 0) {
            continue;
        }
        const QPointF origin = d.globalFrame.topLeft() + (corner - px.topLeft()) / d.scale;
        return {Area{d.displayID, QRectF(origin, pixels.size() / d.scale)}};
    }
    throw CaptureError(
        CaptureError::Code::noContent,
        QStringLiteral("no display holds the point %1,%2").arg(pixels.x()).arg(pixels.y()));
}

namespace {

// Outwards to whole pixels, but a value within a millionth of a pixel of a
// whole one is that one: 3 / 1.5 × 1.5 stays 3.
QRect alignedOutwards(const QRectF& r)
{
    constexpr double slack = 1e-6;
    const auto down = [](double v) { return int(std::floor(v + slack)); };
    const auto up = [](double v) { return int(std::ceil(v - slack)); };
    const int left = down(r.left());
    const int top = down(r.top());
    return {left, top, up(r.right()) - left, up(r.bottom()) - top};
}

} // namespace

ScreenCaptureRegion captureRegion(const ScreenSpace& display, const QRectF& globalRect)
{
    const QRectF local = globalRect.normalized().translated(-display.globalFrame.topLeft());
    const QRectF bounds(QPointF(0, 0), display.globalFrame.size());
    const QRectF source = local.intersected(bounds);
    const double s = display.scale;
    if (!ShotGeometry::isFinite(source) || source.isEmpty() || !(s > 0)) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the framed rectangle lies outside display %1")
                               .arg(display.displayID));
    }
    const QSize displayPixels = display.captureFrame.size().toSize();
    const QRect pixels =
        alignedOutwards(QRectF(source.topLeft() * s, source.size() * s))
            .intersected(QRect(QPoint(0, 0), displayPixels.isEmpty()
                                                 ? (bounds.size() * s).toSize()
                                                 : displayPixels));
    return {pixels, source, source.translated(display.globalFrame.topLeft())};
}

ScreenCaptureRegion captureRegion(const ShotCaptureSelection& selection,
                                  const QList<ScreenSpace>& displays)
{
    for (const ScreenSpace& d : displays) {
        if (d.displayID == selection.display()) {
            return captureRegion(d, selection.globalRect());
        }
    }
    throw CaptureError(CaptureError::Code::noContent,
                       QStringLiteral("there is no display %1").arg(selection.display()));
}

} // namespace nubo
