#include "recording/RecordingTimeline.h"

namespace nubo {

void RecordingTimeline::offer(RecordingDuration time)
{
    if (!origin) {
        origin = time;
    }
}

void RecordingTimeline::pause(RecordingDuration time)
{
    if (!pauseStart) {
        pauseStart = time;
    }
}

void RecordingTimeline::resume(RecordingDuration time)
{
    if (!pauseStart) {
        return;
    }
    if (origin) {
        removed += std::max(RecordingDuration(0), time - std::max(*pauseStart, *origin));
    }
    pauseStart.reset();
}

std::optional<RecordingDuration> RecordingTimeline::map(RecordingDuration time) const
{
    if (!origin || pauseStart || time < *origin) {
        return std::nullopt;
    }
    const RecordingDuration mapped = time - *origin - removed;
    return mapped >= RecordingDuration(0) ? std::optional(mapped) : std::nullopt;
}

void RecordingTimelineHistory::resume(RecordingDuration time)
{
    if (timeline.pauseStart && timeline.origin) {
        const RecordingDuration from = std::max(*timeline.pauseStart, *timeline.origin);
        if (time > from) {
            pauses.push_back({from, time});
        }
    }
    timeline.resume(time);
}

std::optional<RecordingDuration> RecordingTimelineHistory::mapCaptured(RecordingDuration time) const
{
    const std::optional<RecordingDuration>& origin = timeline.origin;
    if (!origin || time < *origin) {
        return std::nullopt;
    }
    if (timeline.pauseStart && time >= std::max(*timeline.pauseStart, *origin)) {
        return std::nullopt; // captured in the running pause
    }
    RecordingDuration removed(0);
    for (const RecordingPause& pause : pauses) {
        if (time >= pause.to) {
            removed += pause.to - pause.from;
        } else if (time >= pause.from) {
            return std::nullopt;
        }
    }
    const RecordingDuration mapped = time - *origin - removed;
    return mapped >= RecordingDuration(0) ? std::optional(mapped) : std::nullopt;
}

std::optional<RecordingDuration> RecordingTimelineHistory::pauseEndAfter(RecordingDuration time) const
{
    for (const RecordingPause& pause : pauses) {
        if (time >= pause.from && time < pause.to) {
            return pause.to;
        }
    }
    return std::nullopt;
}

std::optional<RecordingDuration>
RecordingTimelineHistory::pauseBeginningWithin(RecordingDuration from, RecordingDuration to) const
{
    for (const RecordingPause& pause : pauses) {
        if (pause.from > from && pause.from < to) {
            return pause.from;
        }
    }
    if (timeline.pauseStart && timeline.origin) {
        const RecordingDuration start = std::max(*timeline.pauseStart, *timeline.origin);
        if (start > from && start < to) {
            return start;
        }
    }
    return std::nullopt;
}

} // namespace nubo
