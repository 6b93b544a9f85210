#pragma once

#include "capture/ScreenFrameSource.h"
#include "recording/ScreenRecording.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace nubo {

class CapturePlatform;
class PulseAudioCapture;
class RecordingWriter;
struct RecordingAudioInput;

// One recording, whatever the window system: the state machine on the main
// thread, and a capture thread of its own ("recording") that looks at the
// frame source at the frame rate, takes a picture only when something changed
// (or the pointer moved, or a click ring is growing), draws the pointer and
// the rings in and hands the picture to the writer, timed by its capture
// time. System audio and the microphone come from the audio server's thread
// straight to the writer, timed on the same clock. Stop finishes the writer
// on the capture thread and reports back with a queued call.
class RecordingSession : public ScreenRecording {
public:
    explicit RecordingSession(std::unique_ptr<ScreenFrameSource> source);
    ~RecordingSession() override;

    // A session over the platform's frame source; null when it cannot record.
    static std::unique_ptr<RecordingSession> forPlatform(CapturePlatform& platform);

    RecordingState state() const override { return m_state; }
    RecordingCapabilities capabilities() override;
    void start(const RecordingTarget& target, const RecordingOptions& options,
               const QString& folder) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void cancel() override;
    float takeMicrophoneLevel() override { return m_microphoneLevel.exchange(0); }
    void setCameraOverlay(std::optional<CameraOverlay> camera) override
    {
        m_camera = std::move(camera);
    }

    // Frames the capture thread took, and ticks it found nothing new for.
    qint64 framesCaptured() const { return m_captured; }
    qint64 ticksWithoutChange() const { return m_unchanged; }

private:
    void setState(RecordingState state);
    void startAudio(const RecordingOptions& options);
    void run(int generation, bool showsCursor);
    void capture(int generation, bool showsCursor, std::optional<RecordingDuration>& end);
    void joinCapture();
    // Keeps the loudest sample for the level meter (float, interleaved).
    void noteMicrophoneLevel(const RecordingAudioInput& input);
    void stopAudio();
    RecordingDuration now() const;
    RecordingDuration elapsed() const;

    std::unique_ptr<ScreenFrameSource> m_source;
    RecordingState m_state;
    int m_generation = 0;
    QObject m_context; // queued reports from the capture thread land here
    QTimer m_ticker;
    QElapsedTimer m_clock; // monotonic capture times

    // Shared with the capture thread.
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopRequested = false;
    bool m_cancelRequested = false;
    int m_framesPerSecond = 30;
    std::unique_ptr<RecordingWriter> m_writer;
    std::unique_ptr<PulseAudioCapture> m_audio;
    QStringList m_audioNotes;              // sources that ended early, and why
    std::optional<CameraOverlay> m_camera; // for the next recordings
    std::thread m_thread;
    std::atomic<qint64> m_captured{0};
    std::atomic<qint64> m_unchanged{0};
    std::atomic<float> m_microphoneLevel{0};

    // Elapsed time without pauses, on the main thread.
    RecordingDuration m_recordedBefore{0};
    std::optional<RecordingDuration> m_runningSince;
};

} // namespace nubo
