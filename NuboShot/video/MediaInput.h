#pragma once

// FFmpeg plumbing shared by the readers and the export: owners that free
// what FFmpeg allocated, and the opened recording.

#include "video/VideoSource.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace nubo::media {

struct FreeFrame { void operator()(AVFrame* f) const { av_frame_free(&f); } };
struct FreePacket { void operator()(AVPacket* p) const { av_packet_free(&p); } };
struct FreeCodec { void operator()(AVCodecContext* c) const { avcodec_free_context(&c); } };
struct FreeScaler { void operator()(SwsContext* s) const { sws_freeContext(s); } };
struct FreeResampler { void operator()(SwrContext* s) const { swr_free(&s); } };
using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;
using Codec = std::unique_ptr<AVCodecContext, FreeCodec>;
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;
using Resampler = std::unique_ptr<SwrContext, FreeResampler>;

inline Frame frame() { return Frame(av_frame_alloc()); }
inline Packet packet() { return Packet(av_packet_alloc()); }

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
