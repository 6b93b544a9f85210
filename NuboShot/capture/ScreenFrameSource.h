#pragma once

#include "capture/RecordingTarget.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QSizeF>

#include <functional>
#include <optional>

namespace nubo {

// What a recording asks of the screen.
struct ScreenFrameRequest {
    RecordingTarget target;
    int framesPerSecond = 30;
    bool showsCursor = true;
    bool highlightsClicks = false;
    // The recording's monotonic clock: every time a source reports is on it.
    std::function<RecordingDuration()> clock;
};

// The target as the source will deliver it: its size in points and its
// pixels per point.
struct ScreenFrameGeometry {
    QSizeF content;
    double scale = 1;
};

// The pointer's picture (premultiplied ARGB) and its top-left corner, in the
// frame's pixels.
struct ScreenFrameCursor {
    QImage image;
    QPoint topLeft;
};

// A press of a pointer button (not the wheel), in the frame's pixels.
struct ScreenFrameClick {
    QPoint at;
    RecordingDuration time{0};
};

// One picture of the target: the pixels in the window system's own 32-bit
// layout (the image's format and stride say which) and when they were taken,
// on the request's clock.
struct ScreenFrame {
    QImage image;
    RecordingDuration captured{0};
};

// What happened on the target since the last look.
struct ScreenFrameChanges {
    bool damaged = false; // pixels were drawn: a new capture() differs
    // Where the pointer is, when the cursor is recorded and the source
    // draws it (a source whose pictures hold the pointer says nothing).
    std::optional<ScreenFrameCursor> cursor;
    QList<ScreenFrameClick> clicks;
};

// One window system's pictures of a recording target. A recording session
// drives it from its own capture thread: it looks at every tick of the frame
// rate and captures only when something changed. The session times, draws
// the pointer and the click rings, encodes and writes; a source only
// watches and takes pixels.
class ScreenFrameSource {
public:
    virtual ~ScreenFrameSource() = default;

    // Why this source cannot report the user's clicks (click highlight), in
    // one sentence for the user; empty where it can.
    virtual QString clicksUnavailable() = 0;
    // Main thread, before the session starts: checks that the target is
    // there (a CaptureError when it is not) and says its size.
    virtual ScreenFrameGeometry open(const ScreenFrameRequest& request) = 0;
    // On the capture thread from here on.
    virtual void start() = 0;
    virtual ScreenFrameChanges look() = 0;
    // The target's newest pixels. The picture may share memory with the
    // source: it stays valid until the next capture() or stop().
    virtual ScreenFrame capture() = 0;
    // Lets go of the window system; after the last picture was written.
    virtual void stop() = 0;
};

} // namespace nubo
