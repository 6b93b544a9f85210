#pragma once

// Owners of what FFmpeg allocates: every FFmpeg object the program keeps is
// held by one of these, so no path forgets a free.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/audio_fifo.h>
#include <libavutil/dict.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace nubo::media {

struct FreeFrame {
    void operator()(AVFrame* f) const { av_frame_free(&f); }
};
struct FreePacket {
    void operator()(AVPacket* p) const { av_packet_free(&p); }
};
struct FreeCodec {
    void operator()(AVCodecContext* c) const { avcodec_free_context(&c); }
};
struct FreeScaler {
    void operator()(SwsContext* s) const { sws_freeContext(s); }
};
struct FreeResampler {
    void operator()(SwrContext* s) const { swr_free(&s); }
};
struct FreeAudioFifo {
    void operator()(AVAudioFifo* f) const { av_audio_fifo_free(f); }
};
struct UnrefBuffer {
    void operator()(AVBufferRef* b) const { av_buffer_unref(&b); }
};
struct CloseInput {
    void operator()(AVFormatContext* f) const { avformat_close_input(&f); }
};
// An output's file (when it was opened) and its context. Closing a file
// that is still being written loses its end: finish it with closeOutput().
struct CloseOutput {
    void operator()(AVFormatContext* f) const
    {
        if (f->pb && !(f->oformat->flags & AVFMT_NOFILE)) {
            avio_closep(&f->pb);
        }
        avformat_free_context(f);
    }
};

using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;
using Codec = std::unique_ptr<AVCodecContext, FreeCodec>;
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;
using Resampler = std::unique_ptr<SwrContext, FreeResampler>;
using Buffer = std::unique_ptr<AVBufferRef, UnrefBuffer>;
using AudioFifo = std::unique_ptr<AVAudioFifo, FreeAudioFifo>;
using InputFormat = std::unique_ptr<AVFormatContext, CloseInput>;
using OutputFormat = std::unique_ptr<AVFormatContext, CloseOutput>;

inline Frame frame()
{
    return Frame(av_frame_alloc());
}
inline Packet packet()
{
    return Packet(av_packet_alloc());
}

// An AVDictionary of options, freed with its owner.
class Dictionary {
public:
    Dictionary() = default;
    ~Dictionary() { av_dict_free(&m_dict); }
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;
    void set(const char* key, const char* value) { av_dict_set(&m_dict, key, value, 0); }
    // For the calls that take options and hand back what they did not use.
    AVDictionary** get() { return &m_dict; }

private:
    AVDictionary* m_dict = nullptr;
};

// Closes an output's file and reports FFmpeg's status (0 when it closed
// cleanly): a full disk shows here.
inline int closeOutput(AVFormatContext* format)
{
    return format->pb && !(format->oformat->flags & AVFMT_NOFILE) ? avio_closep(&format->pb) : 0;
}

} // namespace nubo::media
