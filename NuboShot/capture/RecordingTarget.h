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
    // A window with id 0 is the one the user picks in the desktop's own
    // dialog when the recording starts (its frame is unknown until then).
    struct Window {
        CapturableWindow window;
        bool operator==(const Window&) const = default;
    };
    std::variant<Display, Area, Window> target;
    bool operator==(const RecordingTarget&) const = default;
};

// The window the desktop's dialog picks when a recording starts.
CapturableWindow pickedWindow();
inline bool isPickedWindow(const CapturableWindow& window)
{
    return window.id == 0;
}

// The global rectangle (points) a target covers: an area within its display.
QRectF recordingTargetRect(const RecordingTarget& target);
inline QSizeF recordingTargetSize(const RecordingTarget& target)
{
    return recordingTargetRect(target).size();
}

} // namespace nubo
