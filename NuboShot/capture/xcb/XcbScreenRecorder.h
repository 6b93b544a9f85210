#pragma once

#include "capture/xcb/XcbScreenCapturer.h"
#include "recording/ScreenRecording.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace nubo {

class PulseAudioCapture;
class RecordingWriter;
struct RecordingAudioInput;

// Screen recording on X11: a thread of its own takes the target's pixels at
// the frame rate (through the still capturer, so our own windows never show
// and a window is recorded from its own pixels) only when something changed
// (XDamage) or the pointer moved, draws the pointer in (XFixes), and hands
// each frame to the writer, timed by its capture time. System audio and the
// microphone come from the audio server's thread straight to the writer,
// timed on the same clock.
class XcbScreenRecorder : public ScreenRecording {
public:
    XcbScreenRecorder(QByteArray displayName, XcbScreenCapturer::ScaleLookup scale);
    ~XcbScreenRecorder() override;

    RecordingState state() const override { return m_state; }
    RecordingCapabilities capabilities() override;
    void start(const RecordingTarget& target, const RecordingOptions& options,
               const QString& folder) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void cancel() override;
    float takeMicrophoneLevel() override { return m_microphoneLevel.exchange(0); }
    void setCameraOverlay(std::optional<CameraOverlay> camera) override { m_camera = std::move(camera); }

    // Frames the capture thread took, and frames it found nothing new for.
    qint64 framesCaptured() const { return m_captured; }
    qint64 ticksWithoutChange() const { return m_unchanged; }

private:
    struct Plan; // what the capture thread records, fixed at start
    void setState(RecordingState state);
    void run(std::shared_ptr<Plan> plan, int generation);
    void joinCapture();
    // Keeps the loudest sample for the level meter (float, interleaved).
    void noteMicrophoneLevel(const RecordingAudioInput& input);
    void stopAudio();
    RecordingDuration now() const;
    RecordingDuration elapsed() const;

    QByteArray m_displayName;
    XcbScreenCapturer::ScaleLookup m_scale;
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
    std::unique_ptr<RecordingWriter> m_writer;
    std::unique_ptr<PulseAudioCapture> m_audio;
    QStringList m_audioNotes; // sources that ended early, and why
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
