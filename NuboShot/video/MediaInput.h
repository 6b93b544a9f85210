#pragma once

// The opened recording, shared by the readers and the export.

#include "video/VideoSource.h"

#include "media/MediaOwners.h"

#include <functional>

namespace nubo::media {

// A recording opened for reading, its best video stream and its first
// audio stream found.
struct Input {
    AVFormatContext* format = nullptr;
    int video = -1;
    int audio = -1;

    // Throws VideoEditError (exportFailed with FFmpeg's reason, noVideoTrack).
    explicit Input(const QString& file);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    AVStream* videoStream() const { return format->streams[video]; }
    AVStream* audioStream() const { return audio >= 0 ? format->streams[audio] : nullptr; }
    VideoSourceInfo info(const QString& file) const;
    // A decoder for a stream; `threads` 0 lets FFmpeg choose.
    Codec decoder(int stream, int threads) const;
    // Seeks a stream to the key frame at or before `time`.
    int seek(int stream, VideoTime time) const;
};

// Decodes the pictures of `input`'s video whose time lies in `stretch`
// (from the key frame before it) and hands each with its source time to
// `each`; `poll` runs between packets (a cancel check may throw from it).
// Throws VideoEditError (exportFailed with FFmpeg's reason).
void decodeStretch(const Input& input, VideoTimeRange stretch, const std::function<void()>& poll,
                   const std::function<void(AVFrame*, VideoTime)>& each);

// The time of a stream's timestamp.
inline VideoTime streamTime(const AVStream* stream, int64_t ts)
{
    return VideoTime::ofTicks(ts - (stream->start_time == AV_NOPTS_VALUE ? 0 : stream->start_time),
                              stream->time_base.num, stream->time_base.den);
}
// The timestamp of a time in a stream.
inline int64_t streamTicks(const AVStream* stream, VideoTime time)
{
    return time.ticks(stream->time_base.num, stream->time_base.den) +
           (stream->start_time == AV_NOPTS_VALUE ? 0 : stream->start_time);
}

// FFmpeg's status as an exportFailed error.
[[noreturn]] void fail(int status);

} // namespace nubo::media
