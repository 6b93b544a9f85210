#pragma once

#include "capture/CaptureTypes.h"

#include <QImage>

#include <memory>
#include <optional>

namespace nubo {

struct ScreenRegionFrame {
    QImage image;
};

// A running region stream with one consumer.
class ScreenRegionStream {
public:
    virtual ~ScreenRegionStream() = default;
    // The next frame, waiting for it; nothing once the stream has stopped.
    // Throws CaptureError when capturing fails.
    virtual std::optional<ScreenRegionFrame> next() = 0;
    // Ends the stream promptly; a waiting next() returns nothing.
    virtual void stopCapture() = 0;
};

// Frames of one region, taken again and again (scrolling capture, and the
// recorder later). Fails at once, not in the first frame, when the region
// cannot be captured.
class ScreenRegionStreaming {
public:
    virtual ~ScreenRegionStreaming() = default;
    virtual std::unique_ptr<ScreenRegionStream> streamRegion(quint32 display,
                                                             const ScreenCaptureRegion& region) = 0;
};

} // namespace nubo
