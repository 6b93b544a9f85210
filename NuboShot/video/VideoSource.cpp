#include "video/VideoSource.h"

#include "core/FileWriting.h"
#include "core/Logging.h"
#include "media/MediaError.h"
#include "video/MediaInput.h"

#include <QFileInfo>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <string_view>
#include <mutex>
#include <cmath>

namespace nubo {

VideoEditError::VideoEditError(Code code, QString detail)
    : Error(describe(code, detail)), m_code(code), m_detail(std::move(detail))
{
}

QString VideoEditError::describe(Code code, const QString& detail)
{
    switch (code) {
    case Code::exportFailed: return detail.isEmpty() ? incomplete() : detail;
    case Code::noVideoTrack: return QStringLiteral("The recording has no video track.");
    case Code::cannotCreateExport:
        return detail.isEmpty() ? QStringLiteral("The export could not be set up.")
                                : QStringLiteral("The export could not be set up: %1").arg(detail);
    case Code::sourceIsDestination:
        return QStringLiteral("The edited video cannot be saved over the recording it is made from.");
    }
    return detail;
}

VideoRenderError::VideoRenderError(Code code)
    : Error(code == Code::noFrameAtTime ? QStringLiteral("The recording has no video frame at the requested time.")
                                        : QStringLiteral("The edited video frame could not be rendered.")),
      m_code(code)
{
}

namespace media {

void fail(int status)
{
    throw VideoEditError(VideoEditError::Code::exportFailed, mediaErrorText(status));
}

Input::Input(const QString& file)
{
    // Opened as a file only: a pipe would hold the reader until someone writes.
    if (const std::optional<QString> kind = FileWriting::specialKind(file)) {
        throw VideoEditError(VideoEditError::Code::exportFailed,
                             QStringLiteral("%1 is %2, not a video file.")
                                 .arg(QFileInfo(file).fileName(), *kind));
    }
    const QByteArray path = QFile::encodeName(file);
    int status = avformat_open_input(&format, path.constData(), nullptr, nullptr);
    if (status < 0) {
        format = nullptr;
        throw VideoEditError(VideoEditError::Code::exportFailed,
                             QStringLiteral("%1 could not be read: %2").arg(QFileInfo(file).fileName(), mediaErrorText(status)));
    }
    // FFmpeg reads a lone picture as a one-frame movie; it is not one.
    const std::string_view demuxer = format->iformat->name;
    if (demuxer == "image2" || demuxer.ends_with("_pipe")) {
        const std::string_view kind = demuxer.substr(0, demuxer.find('_'));
        avformat_close_input(&format);
        throw VideoEditError(VideoEditError::Code::exportFailed,
                             QStringLiteral("%1 is a still image (%2), not a video.")
                                 .arg(QFileInfo(file).fileName(),
                                      kind == "image2" ? QStringLiteral("picture")
                                                       : QString::fromLatin1(kind.data(), qsizetype(kind.size())).toUpper()));
    }
    status = avformat_find_stream_info(format, nullptr);
    if (status < 0) {
        avformat_close_input(&format);
        fail(status);
    }
    video = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    audio = av_find_best_stream(format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (video < 0 || format->streams[video]->codecpar->width <= 0) {
        avformat_close_input(&format);
        throw VideoEditError(VideoEditError::Code::noVideoTrack);
    }
    if (audio < 0) {
        audio = -1;
    }
}

Input::~Input()
{
    avformat_close_input(&format);
}

VideoSourceInfo Input::info(const QString& file) const
{
    AVStream* stream = videoStream();
    const AVCodecParameters* par = stream->codecpar;
    VideoSourceInfo info;
    if (stream->duration != AV_NOPTS_VALUE && stream->duration > 0) {
        info.duration = VideoTime::ofTicks(stream->duration, stream->time_base.num, stream->time_base.den);
    } else if (format->duration != AV_NOPTS_VALUE) {
        info.duration = VideoTime(format->duration, AV_TIME_BASE);
    }
    info.size = QSize(par->width, par->height);
    // The nominal rate where the average agrees with it (the average of a
    // constant-rate movie is off by its last frame), else the average.
    const AVRational nominal = stream->r_frame_rate, average = stream->avg_frame_rate;
    const bool agree = nominal.num > 0 && nominal.den > 0 &&
                       (average.num <= 0 || std::abs(av_q2d(average) / av_q2d(nominal) - 1) < 0.01);
    const AVRational rate = agree ? nominal : average;
    info.frameDuration = rate.num > 0 && rate.den > 0 ? VideoTime(rate.den, rate.num) : VideoTime(1, 30);
    // A last picture stored without a length still lasts a frame.
    const int entries = avformat_index_get_entries_count(stream);
    if (entries > 0) {
        const AVIndexEntry* last = avformat_index_get_entry(stream, entries - 1);
        info.duration = max(info.duration, media::streamTime(stream, last->timestamp) + info.frameDuration);
    }
    info.hasAudio = audio >= 0;
    if (par->codec_tag != 0) {
        char tag[AV_FOURCC_MAX_STRING_SIZE] = {};
        av_fourcc_make_string(tag, par->codec_tag);
        info.codec = QString::fromLatin1(tag);
    } else {
        info.codec = par->codec_id == AV_CODEC_ID_HEVC ? QStringLiteral("hvc1")
                     : par->codec_id == AV_CODEC_ID_H264 ? QStringLiteral("avc1")
                                                          : QString::fromLatin1(avcodec_get_name(par->codec_id));
    }
    const QFileInfo fileInfo(file);
    if (fileInfo.exists()) {
        info.byteCount = fileInfo.size();
    }
    if (par->bit_rate > 0) {
        info.videoBitRate = double(par->bit_rate);
    } else if (format->bit_rate > 0) {
        info.videoBitRate = double(format->bit_rate);
    } else if (info.byteCount && info.duration > VideoTime()) {
        info.videoBitRate = double(*info.byteCount) * 8 / info.duration.toSeconds();
    }
    return info;
}

Codec Input::decoder(int index, int threads) const
{
    const AVStream* stream = format->streams[index];
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    if (!codec) {
        throw VideoEditError(VideoEditError::Code::exportFailed,
                             QStringLiteral("No decoder for %1 is installed.")
                                 .arg(QString::fromLatin1(avcodec_get_name(stream->codecpar->codec_id))));
    }
    Codec context(avcodec_alloc_context3(codec));
    int status = avcodec_parameters_to_context(context.get(), stream->codecpar);
    if (status >= 0) {
        context->pkt_timebase = stream->time_base;
        context->thread_count = threads;
        status = avcodec_open2(context.get(), codec, nullptr);
    }
    if (status < 0) {
        fail(status);
    }
    return context;
}

int Input::seek(int index, VideoTime time) const
{
    return av_seek_frame(format, index, streamTicks(format->streams[index], max(time, VideoTime())),
                         AVSEEK_FLAG_BACKWARD);
}

void decodeStretch(const Input& input, VideoTimeRange stretch, const std::function<void()>& poll,
                   const std::function<void(AVFrame*, VideoTime)>& each)
{
    AVStream* stream = input.videoStream();
    Codec decoder = input.decoder(input.video, 0);
    Packet packet = media::packet();
    Frame decoded = media::frame();
    if (const int status = input.seek(input.video, stretch.start); status < 0) {
        fail(status);
    }
    bool done = false, flushed = false;
    while (!done) {
        poll();
        if (!flushed) {
            if (av_read_frame(input.format, packet.get()) < 0) {
                avcodec_send_packet(decoder.get(), nullptr);
                flushed = true;
            } else if (packet->stream_index == input.video) {
                const int sent = avcodec_send_packet(decoder.get(), packet.get());
                if (sent < 0 && sent != AVERROR_INVALIDDATA) {
                    av_packet_unref(packet.get());
                    fail(sent);
                }
            }
            av_packet_unref(packet.get());
        }
        while (!done) {
            const int status = avcodec_receive_frame(decoder.get(), decoded.get());
            if (status == AVERROR(EAGAIN)) {
                break;
            }
            if (status == AVERROR_EOF) {
                done = true;
                break;
            }
            if (status < 0) {
                fail(status);
            }
            const VideoTime t = streamTime(stream, decoded->best_effort_timestamp);
            if (t >= stretch.end()) {
                done = true;
            } else if (t >= stretch.start) {
                each(decoded.get(), t);
            }
            av_frame_unref(decoded.get());
        }
    }
}

} // namespace media

VideoSourceInfo VideoSourceInfo::read(const QString& file)
{
    return media::Input(file).info(file);
}

QString VideoSourceInfo::describe() const
{
    QStringList lines;
    lines << QStringLiteral("duration: %1").arg(duration.text())
          << QStringLiteral("size: %1x%2").arg(size.width()).arg(size.height())
          << QStringLiteral("frameDuration: %1/%2 s").arg(frameDuration.value).arg(frameDuration.scale)
          << QStringLiteral("hasAudio: %1").arg(hasAudio ? QStringLiteral("true") : QStringLiteral("false"))
          << QStringLiteral("codec: %1").arg(codec)
          << QStringLiteral("byteCount: %1").arg(byteCount ? QString::number(*byteCount) : QStringLiteral("unknown"))
          << QStringLiteral("videoBitRate: %1").arg(qint64(videoBitRate));
    return lines.join(QLatin1Char('\n'));
}

// ---------------------------------------------------------------- pictures

struct VideoFrameReader::State {
    explicit State(const QString& file) : input(file), info(input.info(file)), decoder(input.decoder(input.video, 2)) {}

    media::Input input;
    VideoSourceInfo info;
    media::Codec decoder;
    media::Packet packet = media::packet();
    media::Frame current = media::frame(); // the last picture at or before the target
    media::Frame pending = media::frame(); // decoded one past it
    bool hasCurrent = false;
    bool hasPending = false;
    bool ended = false;
    qint64 decoded = 0;
    SwsContext* scaler = nullptr;

    ~State() { sws_freeContext(scaler); }

    VideoTime timeOf(const AVFrame* f) const
    {
        const int64_t ts = f->best_effort_timestamp != AV_NOPTS_VALUE ? f->best_effort_timestamp : f->pts;
        return media::streamTime(input.videoStream(), ts);
    }

    // Decodes the next picture into `pending`; false at the end.
    bool decodeNext()
    {
        while (true) {
            const int status = avcodec_receive_frame(decoder.get(), pending.get());
            if (status >= 0) {
                ++decoded;
                return true;
            }
            if (status == AVERROR_EOF || ended) {
                return false;
            }
            if (status != AVERROR(EAGAIN)) {
                media::fail(status);
            }
            const int read = av_read_frame(input.format, packet.get());
            if (read < 0) {
                ended = true;
                avcodec_send_packet(decoder.get(), nullptr);
                continue;
            }
            if (packet->stream_index == input.video) {
                const int sent = avcodec_send_packet(decoder.get(), packet.get());
                if (sent < 0 && sent != AVERROR(EAGAIN) && sent != AVERROR_INVALIDDATA) {
                    av_packet_unref(packet.get());
                    media::fail(sent);
                }
            }
            av_packet_unref(packet.get());
        }
    }

    void seekTo(VideoTime time)
    {
        input.seek(input.video, time);
        avcodec_flush_buffers(decoder.get());
        hasCurrent = hasPending = ended = false;
    }

    bool keyFrameBetween(VideoTime after, VideoTime upTo) const
    {
        AVStream* stream = input.videoStream();
        const int count = avformat_index_get_entries_count(stream);
        for (int i = 0; i < count; ++i) {
            const AVIndexEntry* entry = avformat_index_get_entry(stream, i);
            if (entry->flags & AVINDEX_KEYFRAME) {
                const VideoTime t = media::streamTime(stream, entry->timestamp);
                if (t > after && t <= upTo) {
                    return true;
                }
            }
        }
        return false;
    }

    QImage image(const AVFrame* f, QSize fit)
    {
        QSize size(f->width, f->height);
        if (!fit.isEmpty()) {
            size = size.scaled(fit, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
        }
        scaler = sws_getCachedContext(scaler, f->width, f->height, AVPixelFormat(f->format), size.width(),
                                      size.height(), AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr, nullptr, nullptr);
        if (!scaler) {
            throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
        }
        const int space = f->colorspace == AVCOL_SPC_BT470BG || f->colorspace == AVCOL_SPC_SMPTE170M ? SWS_CS_ITU601
                                                                                                       : SWS_CS_ITU709;
        const int* coefficients = sws_getCoefficients(space);
        sws_setColorspaceDetails(scaler, coefficients, f->color_range == AVCOL_RANGE_JPEG, coefficients, 1, 0,
                                 1 << 16, 1 << 16);
        QImage out(size, QImage::Format_RGB32);
        uint8_t* planes[4] = {out.bits()};
        int strides[4] = {int(out.bytesPerLine())};
        sws_scale(scaler, f->data, f->linesize, 0, f->height, planes, strides);
        return out;
    }
};

VideoFrameReader::VideoFrameReader(const QString& file) : m_state(std::make_unique<State>(file)) {}
VideoFrameReader::~VideoFrameReader() = default;

const VideoSourceInfo& VideoFrameReader::info() const
{
    return m_state->info;
}

qint64 VideoFrameReader::decodedFrames() const
{
    return m_state->decoded;
}

std::vector<VideoTime> VideoFrameReader::keyFrameTimes() const
{
    std::vector<VideoTime> times;
    AVStream* stream = m_state->input.videoStream();
    const int count = avformat_index_get_entries_count(stream);
    for (int i = 0; i < count; ++i) {
        const AVIndexEntry* entry = avformat_index_get_entry(stream, i);
        if (entry->flags & AVINDEX_KEYFRAME) {
            times.push_back(media::streamTime(stream, entry->timestamp));
        }
    }
    std::sort(times.begin(), times.end());
    return times;
}

VideoFrame VideoFrameReader::frameAt(VideoTime time, QSize fit)
{
    State& s = *m_state;
    const VideoTime known = s.hasPending ? s.timeOf(s.pending.get())
                            : s.hasCurrent ? s.timeOf(s.current.get())
                                           : VideoTime();
    const bool behind = s.hasCurrent && time < s.timeOf(s.current.get());
    if ((!s.hasCurrent && !s.hasPending) || behind || s.keyFrameBetween(known, time)) {
        s.seekTo(time);
    }
    while (true) {
        if (!s.hasPending) {
            s.hasPending = s.decodeNext();
            if (!s.hasPending) {
                break;
            }
        }
        if (s.timeOf(s.pending.get()) > time && s.hasCurrent) {
            break;
        }
        if (s.timeOf(s.pending.get()) > time) {
            break; // the movie starts later than asked
        }
        std::swap(s.current, s.pending);
        s.hasCurrent = true;
        s.hasPending = false;
    }
    if (!s.hasCurrent) {
        throw VideoRenderError(VideoRenderError::Code::noFrameAtTime);
    }
    VideoFrame frame;
    frame.time = s.timeOf(s.current.get());
    frame.duration = s.hasPending ? s.timeOf(s.pending.get()) - frame.time : s.info.frameDuration;
    frame.image = s.image(s.current.get(), fit);
    return frame;
}

// ---------------------------------------------------------------- sound

struct VideoSoundReader::State {
    explicit State(const QString& file) : input(file)
    {
        if (input.audio >= 0) {
            decoder = input.decoder(input.audio, 1);
        }
    }

    media::Input input;
    media::Codec decoder;
    media::Resampler resampler;
    media::Packet packet = media::packet();
    media::Frame frame = media::frame();
    std::vector<int16_t> buffered;
    VideoTime bufferedStart; // source time of buffered[0]
    VideoTime target;
    bool ended = false;
    bool placed = false; // buffered has a start time

    void resample(AVFrame* f)
    {
        if (!resampler) {
            SwrContext* swr = nullptr;
            AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
            if (swr_alloc_set_opts2(&swr, &stereo, AV_SAMPLE_FMT_S16, 48000, &f->ch_layout,
                                    AVSampleFormat(f->format), f->sample_rate, 0, nullptr) < 0 ||
                swr_init(swr) < 0) {
                swr_free(&swr);
                throw VideoEditError(VideoEditError::Code::exportFailed,
                                     QStringLiteral("The recording's sound could not be converted."));
            }
            resampler.reset(swr);
        }
        const int capacity = swr_get_out_samples(resampler.get(), f->nb_samples);
        std::vector<int16_t> out(size_t(std::max(capacity, 0)) * 2);
        uint8_t* planes[1] = {reinterpret_cast<uint8_t*>(out.data())};
        const int made = swr_convert(resampler.get(), planes, capacity, const_cast<const uint8_t**>(f->extended_data),
                                     f->nb_samples);
        if (made <= 0) {
            return;
        }
        VideoTime start = f->pts != AV_NOPTS_VALUE ? media::streamTime(input.audioStream(), f->pts) : bufferedStart;
        if (!placed) {
            bufferedStart = start;
            placed = true;
        }
        buffered.insert(buffered.end(), out.begin(), out.begin() + made * 2);
        // Drop what lies before the target of the last seek.
        if (bufferedStart < target) {
            const int64_t skip =
                std::min<int64_t>((target - bufferedStart).ticks(1, 48000), int64_t(buffered.size() / 2));
            buffered.erase(buffered.begin(), buffered.begin() + skip * 2);
            bufferedStart += VideoTime(skip, 48000);
        }
    }

    bool decodeMore()
    {
        while (true) {
            const int status = avcodec_receive_frame(decoder.get(), frame.get());
            if (status >= 0) {
                resample(frame.get());
                av_frame_unref(frame.get());
                return true;
            }
            if (status == AVERROR_EOF || ended) {
                return false;
            }
            const int read = av_read_frame(input.format, packet.get());
            if (read < 0) {
                ended = true;
                avcodec_send_packet(decoder.get(), nullptr);
                continue;
            }
            if (packet->stream_index == input.audio) {
                avcodec_send_packet(decoder.get(), packet.get());
            }
            av_packet_unref(packet.get());
        }
    }
};

VideoSoundReader::VideoSoundReader(const QString& file) : m_state(std::make_unique<State>(file)) {}
VideoSoundReader::~VideoSoundReader() = default;

bool VideoSoundReader::hasSound() const
{
    return m_state->decoder != nullptr;
}

void VideoSoundReader::seek(VideoTime time)
{
    State& s = *m_state;
    if (!s.decoder) {
        return;
    }
    s.input.seek(s.input.audio, time);
    avcodec_flush_buffers(s.decoder.get());
    s.resampler.reset();
    s.buffered.clear();
    s.ended = s.placed = false;
    s.target = time;
}

std::vector<int16_t> VideoSoundReader::read(int frames, VideoTime* startTime)
{
    State& s = *m_state;
    if (!s.decoder) {
        return {};
    }
    while (s.buffered.size() < size_t(frames) * 2 && s.decodeMore()) {
    }
    const size_t take = std::min(s.buffered.size(), size_t(frames) * 2);
    std::vector<int16_t> out(s.buffered.begin(), s.buffered.begin() + take);
    s.buffered.erase(s.buffered.begin(), s.buffered.begin() + take);
    if (startTime) {
        *startTime = s.bufferedStart;
    }
    s.bufferedStart += VideoTime(int64_t(take / 2), 48000);
    return out;
}

} // namespace nubo
