#pragma once

#include "recording/CameraOverlay.h"
#include "recording/RecordingTypes.h"

#include <functional>

namespace nubo {

// A screen recorder as the application drives it. Main thread: every call,
// and every report through onStateChange.
class ScreenRecording {
public:
    virtual ~ScreenRecording() = default;

    // Told of every state change.
    std::function<void(const RecordingState&)> onStateChange;
    // Told once a recording, when its first picture has reached the writer.
    std::function<void()> onFirstFrame;

    virtual RecordingState state() const = 0;
    virtual RecordingCapabilities capabilities() = 0;
    // Validates (throwing before any change), sets up and starts; the state
    // is `recording` on return. A set-up failure leaves `failed` and throws.
    // Throws invalidState unless idle, finished or failed.
    virtual void start(const RecordingTarget& target, const RecordingOptions& options,
                       const QString& folder) = 0;
    // Only from `recording`, `paused` respectively; else invalidState.
    virtual void pause() = 0;
    virtual void resume() = 0;
    // Only from `recording` or `paused`: `finishing`, then `finished` or
    // `failed` when the file is complete.
    virtual void stop() = 0;
    // Ends the recording, removes its file, and returns to `idle`.
    virtual void cancel() = 0;
    // The loudest microphone sample since the last call, 0 to 1 (0 when the
    // microphone is not recorded): for a level meter.
    virtual float takeMicrophoneLevel() { return 0; }
    // The camera bubble of the recordings started from now on, drawn when
    // their options have the camera on. Nothing: no bubble.
    virtual void setCameraOverlay(std::optional<CameraOverlay> camera) = 0;
};

} // namespace nubo
