#pragma once

#include "capture/CaptureTypes.h"

#include <variant>

namespace nubo {

// What the user framed: an area of one display, or one window on a display.
// Rectangles are in the desktop's global logical coordinates (points,
// origin top-left). Stills, scrolling and recording all start from this.
struct ShotCaptureSelection {
    struct Area {
        quint32 display = 0;
        QRectF rect;
        bool operator==(const Area&) const = default;
    };
    struct Window {
        quint32 display = 0;
        CapturableWindow window;
        bool operator==(const Window&) const = default;
    };
    std::variant<Area, Window> framing;
    bool operator==(const ShotCaptureSelection&) const = default;

    quint32 display() const;
    // The framed rectangle: the area, or the window's frame.
    QRectF globalRect() const;

    // A rectangle in desktop pixels (as the command line and the bus give
    // it) as an area on the display that holds its top-left corner. Throws
    // CaptureError (noContent) naming the cause when no display holds it or
    // the rectangle is not a finite, non-empty one.
    static ShotCaptureSelection fromDesktopPixels(const QRectF& pixels,
                                                  const QList<ScreenSpace>& displays);
};

// The one conversion from a framing to the region of its display that a
// capture, a stream or a recording takes: the part of the framed rectangle
// on that display, its pixels aligned outwards (to whole pixels, forgiving
// rounding noise). Throws CaptureError (noContent) naming the cause when the
// display is unknown or the framing does not meet it.
ScreenCaptureRegion captureRegion(const ShotCaptureSelection& selection,
                                  const QList<ScreenSpace>& displays);
// The same for a global rectangle on a known display.
ScreenCaptureRegion captureRegion(const ScreenSpace& display, const QRectF& globalRect);

} // namespace nubo
