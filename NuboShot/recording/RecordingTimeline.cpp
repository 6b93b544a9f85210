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

} // namespace nubo
