#pragma once

#include "recording/RecordingTypes.h"

#include <optional>
#include <vector>

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

// A completed pause: the part of it after the first frame.
struct RecordingPause {
    RecordingDuration from{0};
    RecordingDuration to{0};
    bool operator==(const RecordingPause&) const = default;
};

// Keeps the pauses a timeline went through, so that audio, which arrives a
// little late, is mapped as it was captured: a sample captured before a
// pause began keeps its place even when it arrives during the pause, and
// one captured during a pause is left out even when it arrives after it.
// For samples arriving in time it agrees with the timeline.
struct RecordingTimelineHistory {
    RecordingTimeline timeline;
    std::vector<RecordingPause> pauses;

    void offer(RecordingDuration time) { timeline.offer(time); }
    void pause(RecordingDuration time) { timeline.pause(time); }
    void resume(RecordingDuration time);
    std::optional<RecordingDuration> mapCaptured(RecordingDuration time) const;
    // The end of the completed pause `time` lies in; nothing when none.
    std::optional<RecordingDuration> pauseEndAfter(RecordingDuration time) const;
    // The first pause (completed or running) that begins after `from` and
    // before `to`; nothing when none.
    std::optional<RecordingDuration> pauseBeginningWithin(RecordingDuration from,
                                                          RecordingDuration to) const;
};

} // namespace nubo
