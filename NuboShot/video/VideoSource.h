#pragma once

#include "core/Error.h"
#include "video/VideoTime.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace nubo {

// Why an edit could not be exported.
class VideoEditError : public Error {
public:
    enum class Code { exportFailed, noVideoTrack, cannotCreateExport, sourceIsDestination };
    explicit VideoEditError(Code code, QString detail = {});
    Code code() const noexcept { return m_code; }
    const QString& detail() const noexcept { return m_detail; }
    static QString describe(Code code, const QString& detail = {});
    // The detail of exportFailed when the export gave none.
    static QString incomplete() { return QStringLiteral("Video export did not complete."); }

private:
    Code m_code;
    QString m_detail;
};

// The renderer's own failures.
class VideoRenderError : public Error {
public:
    enum class Code { noFrameAtTime, frameNotRendered };
    explicit VideoRenderError(Code code);
    Code code() const noexcept { return m_code; }

private:
    Code m_code;
};

// What the review and the export need to know of a recording.
struct VideoSourceInfo {
    VideoTime duration;
    QSize size;
    VideoTime frameDuration;
    bool hasAudio = false;
    QString codec; // "avc1", "hvc1"…
    std::optional<qint64> byteCount;
    double videoBitRate = 0; // bits a second

    // Reads the file's streams. Throws VideoEditError: noVideoTrack when it
    // holds no picture, exportFailed with FFmpeg's reason when it cannot be
    // read at all.
    static VideoSourceInfo read(const QString& file);
    // One "name: value" line a field, for `nuboshot video info`.
    QString describe() const;
};

// One decoded picture of a recording.
struct VideoFrame {
    QImage image; // RGB32
    VideoTime time;
    VideoTime duration;
};

// Decodes pictures of a recording at given times: forward from the last one
// when the time is close ahead, else from the key frame before it. One
// thread at a time.
class VideoFrameReader {
public:
    explicit VideoFrameReader(const QString& file); // throws VideoEditError
    ~VideoFrameReader();
    VideoFrameReader(const VideoFrameReader&) = delete;
    VideoFrameReader& operator=(const VideoFrameReader&) = delete;

    const VideoSourceInfo& info() const;
    // The picture on screen at `time` (the last one starting at or before
    // it), scaled to fit in `fit` (the source size when empty). Throws
    // VideoRenderError (noFrameAtTime) when the movie has none there.
    VideoFrame frameAt(VideoTime time, QSize fit = {});
    // The key frames' times, ascending.
    std::vector<VideoTime> keyFrameTimes() const;
    // Pictures decoded since opening (for the benchmarks).
    qint64 decodedFrames() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

// The sound of a recording as 48 kHz interleaved stereo 16-bit samples,
// read forward from a time (for playback in the review window).
class VideoSoundReader {
public:
    explicit VideoSoundReader(const QString& file); // throws VideoEditError
    ~VideoSoundReader();
    VideoSoundReader(const VideoSoundReader&) = delete;
    VideoSoundReader& operator=(const VideoSoundReader&) = delete;

    bool hasSound() const;
    void seek(VideoTime time);
    // The next samples from the last seek on, at most `frames` frames (two
    // samples each), and the source time of the first; empty at the end.
    std::vector<int16_t> read(int frames, VideoTime* startTime = nullptr);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace nubo
