#pragma once

#include "capture/CaptureTypes.h"
#include "capture/ScreenFrameSource.h"

#include <QImage>
#include <QList>

#include <optional>

namespace nubo {

// Still captures: what the capture commands, the overlay and the command
// line ask of the platform's backend. Calls block and are safe from any
// thread; callers keep them off the main thread. Failures throw
// CaptureError, or Error naming the platform's own cause.
class ScreenCapturing {
public:
    virtual ~ScreenCapturing() = default;

    // The displays with their geometry, without their pixels.
    virtual QList<CaptureDisplay> displays() = 0;
    virtual WindowCaptureSnapshot listWindows(bool withPreviews) = 0;
    // Every display, or the one asked for.
    virtual QList<DisplayCapture>
    captureDisplays(std::optional<quint32> display = std::nullopt) = 0;
    virtual WindowCapture captureWindow(quint32 windowID) = 0;
    // A window the user picks in the desktop's own dialog, where the desktop
    // lists its windows to nobody else (Wayland): its own pixels. Throws
    // CaptureError (cancelled) when the user declines.
    virtual WindowCapture pickWindow()
    {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("this desktop has no window picker"));
    }
    // One image of `region.pixelRect`'s size.
    virtual QImage captureRegion(quint32 display, const ScreenCaptureRegion& region) = 0;

    // The pointer's picture and its top-left corner, in the same pixels as
    // the displays' `pixelGeometry`; nothing where the platform does not
    // give it (captures there never show the pointer).
    virtual std::optional<ScreenFrameCursor> pointerPicture() { return std::nullopt; }

    // A capture of one pixel; throws when capturing does not work.
    virtual void probe() = 0;
    // From now on the platform keeps every window's pixels, also where they
    // are covered, where it needs to be told so (the tray application asks
    // at start: exact window captures, and its own windows painted away).
    virtual void prepareWindowPixels() = 0;
};

} // namespace nubo
