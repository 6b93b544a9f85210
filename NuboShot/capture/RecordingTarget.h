#pragma once

#include "capture/CaptureTypes.h"

#include <QRectF>

#include <chrono>
#include <variant>

namespace nubo {

// Capture times and movie times: microseconds of one monotonic clock.
using RecordingDuration = std::chrono::microseconds;

// What is recorded: a whole display, an area of one (global points, origin
// top-left), or one window.
struct RecordingTarget {
    struct Display {
        CaptureDisplay display;
        bool operator==(const Display&) const = default;
    };
    struct Area {
        CaptureDisplay display;
        QRectF globalRect;
        bool operator==(const Area&) const = default;
    };
    struct Window {
        CapturableWindow window;
        bool operator==(const Window&) const = default;
    };
    std::variant<Display, Area, Window> target;
    bool operator==(const RecordingTarget&) const = default;
};

// The global rectangle (points) a target covers: an area within its display.
QRectF recordingTargetRect(const RecordingTarget& target);
inline QSizeF recordingTargetSize(const RecordingTarget& target)
{
    return recordingTargetRect(target).size();
}

} // namespace nubo
