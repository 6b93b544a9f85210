#pragma once

#include "recording/RecordingTimeline.h"
#include "recording/RecordingTypes.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

namespace nubo {

// Writes one recording into an MP4 through FFmpeg: H.264 (High, no
// B-frames, a key frame every two seconds, the design's bit rate, BT.709
// tags), frames timed by their capture time through the timeline. While
// recording the file is a fragmented MP4 with a fragment at every key frame,
// so a killed process leaves a playable file; finish() moves the index to
// the front by a stream copy. Used from one thread at a time.
class RecordingWriter {
public:
    RecordingWriter(QString file, QSize size, RecordingOptions options);
    ~RecordingWriter();
    RecordingWriter(const RecordingWriter&) = delete;
    RecordingWriter& operator=(const RecordingWriter&) = delete;

    // A picture captured at `captureTime`, scaled to the output size when it
    // differs. False when it is not written (paused, before the origin, not
    // later than the last frame). The first frame creates the file. Throws
    // RecordingError (writerFailed) when the encoder or the file refuses.
    bool appendVideo(const QImage& picture, RecordingDuration captureTime);
    void pause(RecordingDuration captureTime);
    void resume(RecordingDuration captureTime);
    bool isPaused() const { return m_timeline.isPaused(); }

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
    const RecordingTimeline& timeline() const { return m_timeline; }
    // The encoder in use ("libx264", "h264_vaapi"); empty before the first frame.
    QString encoderName() const;

    // Rewrites a movie (a fragmented one included) with its index at the
    // front, by a stream copy into a sibling that then replaces it. Throws
    // RecordingError (writerFailed) with FFmpeg's reason.
    static void moveIndexToFront(const QString& file);

private:
    struct Encoder;
    void open();
    void encode(bool flush);

    QString m_file;
    QSize m_size;
    RecordingOptions m_options;
    RecordingTimeline m_timeline;
    std::unique_ptr<Encoder> m_encoder;
    qint64 m_frames = 0;
    std::optional<RecordingDuration> m_lastVideoTime;
    QImage m_lastPicture;
    bool m_finished = false;
    QString m_marker; // for recovery after a crash
};

} // namespace nubo
