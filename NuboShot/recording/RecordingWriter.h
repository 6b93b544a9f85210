#pragma once

#include "recording/CameraOverlay.h"
#include "recording/RecordingAudio.h"
#include "recording/RecordingTimeline.h"
#include "recording/RecordingTypes.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

namespace nubo {

// Writes one recording into an MP4 through FFmpeg: H.264 or HEVC (see
// RecordingVideoEncoder), frames timed by their capture time through the timeline; with
// system audio or a microphone, AAC at 48 kHz stereo, 192 kb/s, mixed from
// both. While recording the file is a fragmented MP4 with a fragment at every
// key frame and at least every two seconds, so a killed process leaves a
// playable file; finish() moves the index to the front by a stream copy.
//
// Pictures, pause, resume, finish and cancel come from one thread at a time;
// audio from any thread (the audio server's): it is queued, then mapped,
// mixed and encoded on the writer's own audio thread every 10 ms, waiting in
// the audio FIFO while the file is busy with a picture, so a picture never
// waits for audio.
class RecordingWriter {
public:
    // With `camera` (and the options' camera on), every picture gets the
    // camera bubble drawn in; the recording never fails because of it.
    RecordingWriter(QString file, QSize size, RecordingOptions options,
                    std::optional<CameraOverlay> camera = std::nullopt);
    ~RecordingWriter();
    RecordingWriter(const RecordingWriter&) = delete;
    RecordingWriter& operator=(const RecordingWriter&) = delete;

    // A picture captured at `captureTime`, scaled to the output size when it
    // differs. False when it is not written (paused, before the origin, not
    // later than the last frame). The first frame creates the file. Throws
    // RecordingError (writerFailed) when the encoder or the file refuses.
    bool appendVideo(const QImage& picture, RecordingDuration captureTime);
    // The camera ticker: the last screen picture again with the camera's
    // newest picture, so the bubble moves while the screen is still. False
    // when nothing changed (the same camera picture at the same place) or
    // nothing can be written (no camera, no picture yet, paused).
    bool refreshCamera(RecordingDuration captureTime);
    bool hasCamera() const { return m_camera.has_value(); }
    // Pictures written with the bubble, and by the ticker alone.
    qint64 cameraFrames() const { return m_cameraFrames; }
    qint64 cameraTicks() const { return m_cameraTicks; }
    void pause(RecordingDuration captureTime);
    void resume(RecordingDuration captureTime);
    bool isPaused() const;

    // Audio of a source, captured at `captureTime`; from any thread. What
    // was captured before the first picture or during a pause is left out.
    void appendAudio(RecordingAudioMixer::Source source, const RecordingAudioInput& input,
                     RecordingDuration captureTime);
    // A source that delivers no more (its server went away): not waited for.
    void endAudio(RecordingAudioMixer::Source source, const QString& reason);
    // What ended the audio path (audio that could not be read, a refused
    // write): the recording ends with it. Any thread.
    std::optional<RecordingError> audioFailure() const;
    bool hasAudio() const { return m_options.systemAudio || m_options.microphone; }
    // Audio frames (48 kHz) encoded so far, and frames the FIFO dropped.
    qint64 audioFrames() const { return m_audioFrames; }
    qint64 audioFramesDropped() const { return m_audioDropped; }

    // Completes the movie and returns its path; with `end` (a capture time)
    // the last picture is held until then, so a still screen still makes a
    // movie as long as the recording. Throws noVideo (and removes the file)
    // when no frame was written, writerFailed when it cannot be completed.
    QString finish(std::optional<RecordingDuration> end = std::nullopt);
    // Discards the movie.
    void cancel();

    const QString& file() const { return m_file; }
    QSize size() const { return m_size; }
    qint64 videoFrames() const { return m_frames; }
    std::optional<RecordingDuration> lastVideoTime() const { return m_lastVideoTime; }
    RecordingTimeline timeline() const;
    // The video encoder in use ("libx264", "h264_vaapi", "hevc_nvenc"…);
    // empty before the first frame.
    QString encoderName() const;

    // Rewrites a movie (a fragmented one included) with its index at the
    // front, by a stream copy into a sibling that then replaces it, and
    // returns the pictures it holds; a movie without any is left as it is
    // (0). Throws RecordingError (writerFailed) with FFmpeg's reason.
    static qint64 moveIndexToFront(const QString& file);

private:
    struct Encoder;
    struct Audio;
    void open();
    void encode(bool flush);
    void runAudio();
    void stopAudio();
    // On the audio thread, or finishing: what is queued into the mixer and
    // the FIFO; then as much of the FIFO as the file takes.
    void processAudio(bool finishing, std::optional<qint64> endFrame = std::nullopt);
    void encodeAudio(const RecordingAudioBuffer& buffer, std::optional<qint64> endFrame);
    void writeAudioPackets();
    void failAudio(const RecordingError& error);
    // The picture with the bubble, or the picture itself.
    QImage withCamera(const QImage& screen);

    QString m_file;
    QSize m_size;
    RecordingOptions m_options;
    mutable std::mutex m_timeMutex; // the timeline: pictures, pauses and audio
    RecordingTimelineHistory m_timeline;
    std::mutex m_muxMutex; // the file: pictures and audio both write to it
    std::unique_ptr<Encoder> m_encoder;
    std::atomic<bool> m_opened{false};
    std::unique_ptr<Audio> m_audio;
    std::atomic<qint64> m_audioFrames{0};
    std::atomic<qint64> m_audioDropped{0};
    qint64 m_frames = 0;
    std::optional<RecordingDuration> m_lastVideoTime;
    QImage m_lastPicture; // the raw screen: the camera ticker draws on it again
    std::optional<CameraOverlay> m_camera;
    std::unique_ptr<CameraFrameCompositor> m_compositor;
    bool m_compositorFailed = false;
    std::optional<std::pair<quint64, QRectF>> m_cameraShown; // picture and place last drawn
    qint64 m_cameraFrames = 0;
    qint64 m_cameraTicks = 0;
    bool m_finished = false;
    QString m_marker; // for recovery after a crash
};

} // namespace nubo
