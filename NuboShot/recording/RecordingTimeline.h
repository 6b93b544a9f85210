#pragma once

#include "recording/RecordingTypes.h"

#include <optional>

namespace nubo {

// Maps capture times to movie times: the first frame is time zero, and
// paused stretches leave no gap (what is captured while paused maps to
// nothing). A plain value; capture times on one monotonic clock.
struct RecordingTimeline {
    std::optional<RecordingDuration> origin; // capture time of the first frame
    std::optional<RecordingDuration> pauseStart;
    RecordingDuration removed{0}; // the length of every completed pause
    bool operator==(const RecordingTimeline&) const = default;

    // The first time offered becomes the origin, for good.
    void offer(RecordingDuration time);
    // A second pause while one runs changes nothing.
    void pause(RecordingDuration time);
    // Ends the running pause; only its part after the first frame counts.
    void resume(RecordingDuration time);
    bool isPaused() const { return pauseStart.has_value(); }
    // The movie time of a capture time; nothing before the origin, while
    // paused or without an origin.
    std::optional<RecordingDuration> map(RecordingDuration time) const;
};

} // namespace nubo
