#include "video/VideoEditExport.h"

#include "core/BackgroundThread.h"
#include "core/FileWriting.h"
#include "core/Logging.h"
#include "media/H264Bitstream.h"
#include "media/MediaError.h"
#include "video/MediaInput.h"
#include "video/VideoEditRenderer.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <sys/stat.h>

extern "C" {
#include <libavutil/audio_fifo.h>
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

#include <pthread.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <functional>
#include <set>
#include <thread>

namespace nubo {

using namespace media::h264;

namespace {

struct Cancelled {};
// The stream copy cannot take this recording (its pictures are reordered,
// its codec or format is not one we splice): encode everything instead.
struct CopyImpossible {
    QString reason;
};

[[noreturn]] void cannotCreate(const QString& detail)
{
    throw VideoEditError(VideoEditError::Code::cannotCreateExport, detail);
}

void check(int status)
{
    if (status < 0) {
        media::fail(status);
    }
}

// The encoder for the pictures between a cut and the next key frame: x264
// at the recording's size, no B-frames, its parameter sets under ids of its
// own so that they sit beside the recording's in one sample description.
media::Codec openSpliceEncoder(const AVStream* stream, int id)
{
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    if (!codec) {
        throw CopyImpossible{QStringLiteral("libx264 is not installed")};
    }
    media::Codec context(avcodec_alloc_context3(codec));
    context->width = stream->codecpar->width;
    context->height = stream->codecpar->height;
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->time_base = stream->time_base;
    context->framerate = stream->avg_frame_rate;
    context->sample_aspect_ratio = stream->codecpar->sample_aspect_ratio;
    context->color_primaries = stream->codecpar->color_primaries;
    context->color_trc = stream->codecpar->color_trc;
    context->colorspace = stream->codecpar->color_space;
    context->color_range = stream->codecpar->color_range;
    context->max_b_frames = 0;
    context->gop_size = 100000;
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_opt_set(context->priv_data, "preset", "veryfast", 0);
    av_opt_set(context->priv_data, "crf", "18", 0);
    av_opt_set(context->priv_data, "x264-params", QStringLiteral("sps-id=%1").arg(id).toLatin1().constData(), 0);
    const int status = avcodec_open2(context.get(), codec, nullptr);
    if (status < 0) {
        throw CopyImpossible{QStringLiteral("libx264 refused: %1").arg(mediaErrorText(status))};
    }
    return context;
}

// Length-prefixed NAL units of an Annex B packet, parameter sets left out.
QByteArray lengthPrefixed(const AVPacket* packet, int lengthSize)
{
    QByteArray out;
    for (const QByteArray& unit : annexBUnits(packet->data, packet->size)) {
        const int type = unit.isEmpty() ? 0 : uint8_t(unit[0]) & 0x1f;
        if (type == 7 || type == 8) {
            continue;
        }
        for (int i = lengthSize - 1; i >= 0; --i) {
            out.append(char((unit.size() >> (8 * i)) & 0xff));
        }
        out.append(unit);
    }
    return out;
}

// ------------------------------------------------------------ the export

class Export {
public:
    Export(const VideoEditList& list, QString file, const std::atomic<bool>& cancelled,
           const VideoEditExportSession::Progress& progress)
        : m_list(list), m_file(std::move(file)), m_cancelled(cancelled), m_progress(progress),
          m_input(list.source), m_info(m_input.info(list.source)), m_kept(list.keptRanges())
    {
        for (const VideoTimeRange& range : m_kept) {
            m_total += range.duration;
        }
    }

    VideoExportResult run(bool copy)
    {
        if (m_kept.empty()) {
            throw VideoEditError(VideoEditError::Code::exportFailed,
                                 QStringLiteral("Every part of the recording is cut out: there is nothing to export."));
        }
        m_result.file = m_file;
        m_result.streamCopied = copy;
        openOutput();
        if (!m_list.isMuted && m_input.audio >= 0) {
            openSound();
        }
        if (copy) {
            prepareCopy();
        } else {
            prepareEncode();
        }
        media::Dictionary options;
        options.set("movflags", "+faststart");
        const int status = avformat_write_header(m_output.get(), options.get());
        if (status < 0) {
            cannotCreate(mediaErrorText(status));
        }
        if (m_sound) {
            encodeSound();
        }
        if (copy) {
            copyPictures();
        } else {
            encodePictures();
        }
        writeSoundUpTo(std::nullopt);
        check(av_write_trailer(m_output.get()));
        check(media::closeOutput(m_output.get()));
        report(1.0);
        return m_result;
    }

private:
    void checkCancelled() const
    {
        if (m_cancelled.load(std::memory_order_relaxed)) {
            throw Cancelled{};
        }
    }

    // Sound is the first tenth of the work when there is sound.
    void report(double fraction)
    {
        if (m_progress && (fraction >= 1.0 || fraction - m_reported >= 0.005)) {
            m_reported = fraction;
            m_progress(std::clamp(fraction, 0.0, 1.0));
        }
    }
    void reportPictures(VideoTime edited)
    {
        const double share = m_sound ? 0.9 : 1.0;
        report(1.0 - share + share * std::clamp(edited.toSeconds() / std::max(m_total.toSeconds(), 1e-9), 0.0, 1.0));
    }

    void openOutput()
    {
        const QByteArray path = QFile::encodeName(m_file);
        AVFormatContext* output = nullptr;
        int status = avformat_alloc_output_context2(&output, nullptr, "mp4", path.constData());
        m_output.reset(output);
        if (status < 0 || !m_output) {
            cannotCreate(mediaErrorText(status));
        }
        status = avio_open(&m_output->pb, path.constData(), AVIO_FLAG_WRITE);
        if (status < 0) {
            cannotCreate(QStringLiteral("%1 (%2)").arg(mediaErrorText(status), QDir::toNativeSeparators(QFileInfo(m_file).absolutePath())));
        }
        m_videoOut = avformat_new_stream(m_output.get(), nullptr);
    }

    // ---- sound: decoded, cut to the kept ranges and encoded up front; its
    // packets are then written between the pictures in time order.

    void openSound()
    {
        const AVCodec* aac = avcodec_find_encoder(AV_CODEC_ID_AAC);
        if (!aac) {
            cannotCreate(QStringLiteral("No AAC encoder is installed."));
        }
        m_sound.reset(avcodec_alloc_context3(aac));
        m_sound->sample_rate = 48000;
        m_sound->sample_fmt = AV_SAMPLE_FMT_FLTP;
        m_sound->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
        m_sound->bit_rate = 192000;
        m_sound->time_base = AVRational{1, 48000};
        if (m_output->oformat->flags & AVFMT_GLOBALHEADER) {
            m_sound->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        }
        int status = avcodec_open2(m_sound.get(), aac, nullptr);
        if (status < 0) {
            cannotCreate(mediaErrorText(status));
        }
        m_audioOut = avformat_new_stream(m_output.get(), nullptr);
        status = avcodec_parameters_from_context(m_audioOut->codecpar, m_sound.get());
        if (status < 0) {
            cannotCreate(mediaErrorText(status));
        }
        m_audioOut->time_base = m_sound->time_base;
    }

    void encodeSound()
    {
        media::Input input(m_list.source);
        media::Codec decoder = input.decoder(input.audio, 1);
        const AVStream* stream = input.audioStream();
        media::AudioFifo fifo(av_audio_fifo_alloc(AV_SAMPLE_FMT_FLTP, 2, 4096));
        media::Packet packet = media::packet();
        media::Frame decoded = media::frame();
        media::Frame converted = media::frame();
        int64_t written = 0; // samples handed to the encoder
        VideoTime done;
        auto drain = [&](bool all) {
            const int size = m_sound->frame_size;
            while (av_audio_fifo_size(fifo.get()) >= size || (all && av_audio_fifo_size(fifo.get()) > 0)) {
                media::Frame chunk = media::frame();
                chunk->nb_samples = std::min(size, av_audio_fifo_size(fifo.get()));
                chunk->format = AV_SAMPLE_FMT_FLTP;
                chunk->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
                chunk->sample_rate = 48000;
                check(av_frame_get_buffer(chunk.get(), 0));
                av_audio_fifo_read(fifo.get(), reinterpret_cast<void**>(chunk->data), chunk->nb_samples);
                chunk->pts = written;
                written += chunk->nb_samples;
                check(avcodec_send_frame(m_sound.get(), chunk.get()));
                receiveSound();
            }
        };
        for (const VideoTimeRange& range : m_kept) {
            input.seek(input.audio, range.start);
            avcodec_flush_buffers(decoder.get());
            media::Resampler resampler;
            bool reachedEnd = false;
            while (!reachedEnd) {
                checkCancelled();
                const int read = av_read_frame(input.format, packet.get());
                if (read < 0) {
                    avcodec_send_packet(decoder.get(), nullptr);
                    reachedEnd = true;
                } else if (packet->stream_index == input.audio) {
                    avcodec_send_packet(decoder.get(), packet.get());
                }
                av_packet_unref(packet.get());
                while (avcodec_receive_frame(decoder.get(), decoded.get()) >= 0) {
                    if (decoded->pts == AV_NOPTS_VALUE) {
                        av_frame_unref(decoded.get());
                        continue;
                    }
                    const VideoTime start = media::streamTime(stream, decoded->pts);
                    if (start >= range.end()) {
                        reachedEnd = true;
                    }
                    if (!resampler) {
                        SwrContext* swr = nullptr;
                        AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
                        check(swr_alloc_set_opts2(&swr, &stereo, AV_SAMPLE_FMT_FLTP, 48000, &decoded->ch_layout,
                                                  AVSampleFormat(decoded->format), decoded->sample_rate, 0, nullptr));
                        resampler.reset(swr);
                        check(swr_init(swr));
                    }
                    converted->nb_samples = swr_get_out_samples(resampler.get(), decoded->nb_samples);
                    converted->format = AV_SAMPLE_FMT_FLTP;
                    converted->ch_layout = AV_CHANNEL_LAYOUT_STEREO;
                    converted->sample_rate = 48000;
                    check(av_frame_get_buffer(converted.get(), 0));
                    const int made = swr_convert(resampler.get(), converted->data, converted->nb_samples,
                                                 const_cast<const uint8_t**>(decoded->extended_data), decoded->nb_samples);
                    av_frame_unref(decoded.get());
                    // Samples from `start` on; keep those inside the range.
                    const int64_t first = std::clamp<int64_t>((range.start - start).ticks(1, 48000), 0, std::max(made, 0));
                    const int64_t last = std::clamp<int64_t>((range.end() - start).ticks(1, 48000), 0, std::max(made, 0));
                    if (last > first) {
                        float* planes[2] = {reinterpret_cast<float*>(converted->data[0]) + first,
                                            reinterpret_cast<float*>(converted->data[1]) + first};
                        av_audio_fifo_write(fifo.get(), reinterpret_cast<void**>(planes), int(last - first));
                    }
                    av_frame_unref(converted.get());
                    drain(false);
                }
            }
            done += range.duration;
            if (m_sound) {
                report(0.1 * done.toSeconds() / std::max(m_total.toSeconds(), 1e-9));
            }
        }
        drain(true);
        check(avcodec_send_frame(m_sound.get(), nullptr));
        receiveSound();
        qCInfo(lcVideoEdit, "Sound of the export: %lld samples in %zu packets", static_cast<long long>(written),
               m_soundPackets.size());
    }

    void receiveSound()
    {
        while (true) {
            media::Packet packet = media::packet();
            const int status = avcodec_receive_packet(m_sound.get(), packet.get());
            if (status == AVERROR(EAGAIN) || status == AVERROR_EOF) {
                return;
            }
            check(status);
            av_packet_rescale_ts(packet.get(), m_sound->time_base, m_audioOut->time_base);
            packet->stream_index = m_audioOut->index;
            m_soundPackets.push_back(std::move(packet));
        }
    }

    // Writes the sound packets due before a picture at `time` (all of them
    // when none).
    void writeSoundUpTo(std::optional<std::pair<int64_t, AVRational>> time)
    {
        while (!m_soundPackets.empty()) {
            AVPacket* next = m_soundPackets.front().get();
            if (time && av_compare_ts(next->dts, m_audioOut->time_base, time->first, time->second) > 0) {
                return;
            }
            check(av_interleaved_write_frame(m_output.get(), next));
            m_soundPackets.pop_front();
        }
    }

    void writePicture(AVPacket* packet)
    {
        packet->stream_index = m_videoOut->index;
        writeSoundUpTo(std::pair{packet->dts, m_videoOut->time_base});
        check(av_interleaved_write_frame(m_output.get(), packet));
    }

    // The output timestamp of a picture at edited time `edited`, later than
    // the last one written.
    int64_t outputTicks(VideoTime edited)
    {
        int64_t ticks = edited.ticks(m_timeBase.num, m_timeBase.den);
        if (m_lastTicks && ticks <= *m_lastTicks) {
            ticks = *m_lastTicks + 1;
        }
        m_lastTicks = ticks;
        return ticks;
    }

    // ---- everything encoded anew

    void prepareEncode()
    {
        AVStream* stream = m_input.videoStream();
        const bool hevc = stream->codecpar->codec_id == AV_CODEC_ID_HEVC;
        const char* name = hevc ? "libx265" : "libx264";
        const AVCodec* codec = avcodec_find_encoder_by_name(name);
        if (!codec) {
            cannotCreate(QStringLiteral("The %1 encoder is not installed.").arg(QString::fromLatin1(name)));
        }
        m_renderer = std::make_unique<VideoEditRenderer>(m_list, m_info);
        m_encoder.reset(avcodec_alloc_context3(codec));
        const QSize size = m_renderer->outputSize();
        m_encoder->width = size.width();
        m_encoder->height = size.height();
        m_encoder->pix_fmt = AV_PIX_FMT_YUV420P;
        m_timeBase = stream->time_base;
        m_frameTicks = std::max<int64_t>(1, m_info.frameDuration.ticks(m_timeBase.num, m_timeBase.den));
        m_encoder->time_base = m_timeBase;
        const AVRational rate = stream->avg_frame_rate.num > 0 ? stream->avg_frame_rate : AVRational{30, 1};
        m_encoder->framerate = rate;
        m_encoder->gop_size = std::max(1, 2 * rate.num / std::max(rate.den, 1));
        m_encoder->color_primaries = stream->codecpar->color_primaries;
        m_encoder->color_trc = stream->codecpar->color_trc;
        m_encoder->colorspace = stream->codecpar->color_space;
        m_encoder->color_range = stream->codecpar->color_range;
        if (m_output->oformat->flags & AVFMT_GLOBALHEADER) {
            m_encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        }
        // A constant-quality encode: the quality of the recording kept.
        av_opt_set(m_encoder->priv_data, "preset", hevc ? "superfast" : "veryfast", 0);
        av_opt_set(m_encoder->priv_data, "crf", hevc ? "20" : "18", 0);
        if (hevc) {
            av_opt_set(m_encoder->priv_data, "x265-params", "log-level=error", 0);
        }
        int status = avcodec_open2(m_encoder.get(), codec, nullptr);
        if (status < 0) {
            cannotCreate(mediaErrorText(status));
        }
        status = avcodec_parameters_from_context(m_videoOut->codecpar, m_encoder.get());
        if (status < 0) {
            cannotCreate(mediaErrorText(status));
        }
        if (hevc) {
            m_videoOut->codecpar->codec_tag = MKTAG('h', 'v', 'c', '1');
        }
        m_videoOut->time_base = m_timeBase;
        m_videoOut->avg_frame_rate = rate;
        m_target = media::frame();
        m_target->format = AV_PIX_FMT_YUV420P;
        m_target->width = size.width();
        m_target->height = size.height();
        check(av_frame_get_buffer(m_target.get(), 0));
    }

    void decodeStretch(VideoTimeRange stretch, const std::function<void(AVFrame*, VideoTime)>& each)
    {
        media::decodeStretch(m_input, stretch, [this] { checkCancelled(); }, each);
    }

    void encodePictures()
    {
        VideoTime accumulated;
        for (const VideoTimeRange& range : m_kept) {
            decodeStretch(range, [&](AVFrame* decoded, VideoTime t) {
                const VideoTime edited = accumulated + (t - range.start);
                check(av_frame_make_writable(m_target.get()));
                m_renderer->render(decoded, t, m_target.get());
                m_target->pts = outputTicks(edited);
                m_target->pict_type = AV_PICTURE_TYPE_NONE;
                check(avcodec_send_frame(m_encoder.get(), m_target.get()));
                ++m_result.encodedFrames;
                receivePictures(m_encoder.get(), m_timeBase, false);
                reportPictures(edited);
            });
            accumulated += range.duration;
        }
        check(avcodec_send_frame(m_encoder.get(), nullptr));
        receivePictures(m_encoder.get(), m_timeBase, false);
    }

    void receivePictures(AVCodecContext* encoder, AVRational timeBase, bool splice)
    {
        media::Packet packet = media::packet();
        while (true) {
            const int status = avcodec_receive_packet(encoder, packet.get());
            if (status == AVERROR(EAGAIN) || status == AVERROR_EOF) {
                return;
            }
            check(status);
            if (packet->duration <= 0) {
                packet->duration = m_frameTicks;
            }
            if (splice) {
                const QByteArray data = lengthPrefixed(packet.get(), m_avc.lengthSize);
                media::Packet copy = media::packet();
                check(av_new_packet(copy.get(), int(data.size())));
                std::copy(data.begin(), data.end(), copy->data);
                av_packet_copy_props(copy.get(), packet.get());
                copy->dts = copy->pts; // no reordering
                av_packet_rescale_ts(copy.get(), timeBase, m_videoOut->time_base);
                writePicture(copy.get());
            } else {
                av_packet_rescale_ts(packet.get(), timeBase, m_videoOut->time_base);
                writePicture(packet.get());
            }
            av_packet_unref(packet.get());
        }
    }

    // ---- the stream copy

    struct Sample {
        VideoTime time;
        bool key = false;
    };

    void prepareCopy()
    {
        AVStream* stream = m_input.videoStream();
        if (stream->codecpar->codec_id != AV_CODEC_ID_H264) {
            throw CopyImpossible{QStringLiteral("the recording is not H.264")};
        }
        if (stream->codecpar->format != AV_PIX_FMT_YUV420P && stream->codecpar->format != AV_PIX_FMT_YUVJ420P) {
            throw CopyImpossible{QStringLiteral("the recording's pictures are not 8-bit 4:2:0")};
        }
        if (stream->codecpar->video_delay > 0) {
            throw CopyImpossible{QStringLiteral("the recording's pictures are reordered")};
        }
        const auto config = parseAvcC(stream->codecpar->extradata, stream->codecpar->extradata_size);
        if (!config) {
            throw CopyImpossible{QStringLiteral("the recording's parameter sets are not in its sample description")};
        }
        m_avc = *config;
        m_timeBase = stream->time_base;
        m_frameTicks = std::max<int64_t>(1, m_info.frameDuration.ticks(m_timeBase.num, m_timeBase.den));
        const int count = avformat_index_get_entries_count(stream);
        for (int i = 0; i < count; ++i) {
            const AVIndexEntry* entry = avformat_index_get_entry(stream, i);
            m_samples.push_back({media::streamTime(stream, entry->timestamp), (entry->flags & AVINDEX_KEYFRAME) != 0});
        }
        if (m_samples.empty()) {
            throw CopyImpossible{QStringLiteral("the recording has no sample index")};
        }
        check(avcodec_parameters_copy(m_videoOut->codecpar, stream->codecpar));
        m_videoOut->codecpar->codec_tag = 0;
        m_videoOut->time_base = m_timeBase;
        m_videoOut->avg_frame_rate = stream->avg_frame_rate;
        // The pictures encoded at the cuts bring parameter sets of their own
        // under ids the recording does not use: both go into the sample
        // description, so every player finds them where it looks first.
        std::set<int> used;
        for (const QByteArray& sps : m_avc.sps) {
            used.insert(spsId(sps));
        }
        for (const QByteArray& pps : m_avc.pps) {
            used.insert(ppsId(pps));
        }
        int id = 1;
        while (used.count(id) && id < 31) {
            ++id;
        }
        m_spliceId = id;
        media::Codec probe = openSpliceEncoder(stream, id);
        std::vector<QByteArray> sps, pps;
        for (const QByteArray& unit : annexBUnits(probe->extradata, probe->extradata_size)) {
            const int type = unit.isEmpty() ? 0 : uint8_t(unit[0]) & 0x1f;
            (type == 7 ? sps : type == 8 ? pps : m_ignored).push_back(unit);
        }
        if (sps.size() != 1 || pps.size() != 1 || spsId(sps[0]) != id || ppsId(pps[0]) != id) {
            throw CopyImpossible{QStringLiteral("the cut encoder's parameter sets clash with the recording's")};
        }
        AvcConfig combined = m_avc;
        combined.sps.push_back(sps[0]);
        combined.pps.push_back(pps[0]);
        const QByteArray avcc = writeAvcC(combined);
        av_freep(&m_videoOut->codecpar->extradata);
        m_videoOut->codecpar->extradata = static_cast<uint8_t*>(av_mallocz(size_t(avcc.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
        std::copy(avcc.begin(), avcc.end(), m_videoOut->codecpar->extradata);
        m_videoOut->codecpar->extradata_size = int(avcc.size());
    }

    void copyPictures()
    {
        VideoTime accumulated;
        for (const VideoTimeRange& range : m_kept) {
            std::optional<VideoTime> firstKey;
            bool any = false;
            for (const Sample& sample : m_samples) {
                if (sample.time >= range.start && sample.time < range.end()) {
                    any = true;
                    if (sample.key) {
                        firstKey = sample.time;
                        break;
                    }
                }
            }
            if (any) {
                const VideoTime headEnd = firstKey.value_or(range.end());
                if (range.start < headEnd) {
                    encodeHead(VideoTimeRange::between(range.start, headEnd), accumulated, range.start);
                }
                if (firstKey) {
                    copyStretch(VideoTimeRange::between(*firstKey, range.end()), accumulated, range.start);
                }
            }
            accumulated += range.duration;
        }
    }

    // Pictures from `stretch.start` up to a key frame (or the range's end),
    // decoded from the key frame before and encoded anew.
    void encodeHead(VideoTimeRange stretch, VideoTime accumulated, VideoTime rangeStart)
    {
        media::Codec encoder = openSpliceEncoder(m_input.videoStream(), m_spliceId);
        decodeStretch(stretch, [&](AVFrame* decoded, VideoTime t) {
            const VideoTime edited = accumulated + (t - rangeStart);
            decoded->pts = outputTicks(edited);
            decoded->pict_type = AV_PICTURE_TYPE_NONE; // the encoder's own choice: a key frame first
            check(avcodec_send_frame(encoder.get(), decoded));
            ++m_result.encodedFrames;
            receivePictures(encoder.get(), m_timeBase, true);
            reportPictures(edited);
        });
        check(avcodec_send_frame(encoder.get(), nullptr));
        receivePictures(encoder.get(), m_timeBase, true);
    }

    // The recording's own packets from a key frame to the range's end.
    void copyStretch(VideoTimeRange stretch, VideoTime accumulated, VideoTime rangeStart)
    {
        AVStream* stream = m_input.videoStream();
        check(av_seek_frame(m_input.format, m_input.video, media::streamTicks(stream, stretch.start),
                            AVSEEK_FLAG_BACKWARD));
        media::Packet packet = media::packet();
        while (av_read_frame(m_input.format, packet.get()) >= 0) {
            checkCancelled();
            if (packet->stream_index != m_input.video) {
                av_packet_unref(packet.get());
                continue;
            }
            if (packet->pts != packet->dts) {
                throw CopyImpossible{QStringLiteral("the recording's pictures are reordered")};
            }
            const VideoTime t = media::streamTime(stream, packet->pts);
            if (t >= stretch.end()) {
                av_packet_unref(packet.get());
                break;
            }
            if (t >= stretch.start) {
                const VideoTime edited = accumulated + (t - rangeStart);
                packet->pts = packet->dts = outputTicks(edited);
                packet->pos = -1;
                if (packet->duration <= 0) {
                    packet->duration = m_frameTicks;
                }
                av_packet_rescale_ts(packet.get(), m_timeBase, m_videoOut->time_base);
                writePicture(packet.get());
                ++m_result.copiedPackets;
                reportPictures(edited);
            }
            av_packet_unref(packet.get());
        }
    }

    const VideoEditList& m_list;
    QString m_file;
    const std::atomic<bool>& m_cancelled;
    const VideoEditExportSession::Progress& m_progress;
    media::Input m_input;
    VideoSourceInfo m_info;
    std::vector<VideoTimeRange> m_kept;
    VideoTime m_total;
    VideoExportResult m_result;
    double m_reported = -1;

    media::OutputFormat m_output;
    AVStream* m_videoOut = nullptr;
    AVStream* m_audioOut = nullptr;
    AVRational m_timeBase{1, 90000};
    std::optional<int64_t> m_lastTicks;
    int64_t m_frameTicks = 1; // a frame's length in m_timeBase

    media::Codec m_sound;
    std::deque<media::Packet> m_soundPackets;

    std::unique_ptr<VideoEditRenderer> m_renderer;
    media::Codec m_encoder;
    media::Frame m_target;

    AvcConfig m_avc;
    int m_spliceId = 1;
    std::vector<Sample> m_samples;
    std::vector<QByteArray> m_ignored;
};

QString canonical(const QString& path)
{
    const QFileInfo info(path);
    const QString existing = info.canonicalFilePath();
    if (!existing.isEmpty()) {
        return existing;
    }
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    return (folder.isEmpty() ? info.absolutePath() : folder) + QLatin1Char('/') + info.fileName();
}

} // namespace

std::optional<VideoExportResult> VideoEditExportSession::run(const VideoEditList& list, const QString& destination,
                                                             const std::atomic<bool>& cancelled,
                                                             const Progress& progress,
                                                             const AnimationOptions& animation)
{
    if (canonical(list.source) == canonical(destination)) {
        throw VideoEditError(VideoEditError::Code::sourceIsDestination);
    }
    const QFileInfo target(destination);
    if (!QFileInfo(target.absolutePath()).isDir()) {
        throw VideoEditError(VideoEditError::Code::cannotCreateExport,
                             QStringLiteral("the folder %1 does not exist.").arg(target.absolutePath()));
    }
    if (const std::optional<QString> kind = FileWriting::specialKind(destination)) {
        // Never replaced by the export: it is left as it is.
        throw VideoEditError(VideoEditError::Code::cannotCreateExport,
                             QStringLiteral("%1 is %2, not a file; it is left as it is.")
                                 .arg(destination, *kind));
    }
    // Written beside the destination under a hidden name, renamed when complete.
    const std::optional<AnimationFormat> animated = animationFormatOf(destination);
    QTemporaryFile partial(target.absolutePath() +
                           QStringLiteral("/.%1-XXXXXX.%2")
                               .arg(target.completeBaseName(), animated ? target.suffix().toLower() : QStringLiteral("mp4")));
    if (!partial.open()) {
        throw VideoEditError(VideoEditError::Code::cannotCreateExport,
                             QStringLiteral("%1 (%2)").arg(partial.errorString(), target.absolutePath()));
    }
    partial.close();
    const QString temporary = partial.fileName();
    const bool cutOnly = list.isCutOnly();
    try {
        std::optional<VideoExportResult> result;
        if (animated) {
            const std::optional<int64_t> pictures =
                exportAnimation(list, temporary, *animated, animation, cancelled, progress);
            if (!pictures) {
                throw Cancelled{};
            }
            result = VideoExportResult{};
            result->encodedFrames = *pictures;
        } else if (cutOnly) {
            try {
                result = Export(list, temporary, cancelled, progress).run(true);
            } catch (const CopyImpossible& impossible) {
                qCInfo(lcVideoEdit, "Encoding every picture: %s", qPrintable(impossible.reason));
            }
        }
        if (!result) {
            result = Export(list, temporary, cancelled, progress).run(false);
        }
        // Readable as the user's other files are, not private as a temporary.
        ::chmod(QFile::encodeName(temporary).constData(), mode_t(FileWriting::newFileMode()));
        if (std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(destination).constData()) != 0) {
            throw VideoEditError(VideoEditError::Code::exportFailed,
                                 QStringLiteral("%1 could not be written: %2").arg(destination, QString::fromLocal8Bit(strerror(errno))));
        }
        partial.setAutoRemove(false);
        result->file = destination;
        qCInfo(lcVideoEdit, "Exported %s: %s, %lld pictures copied, %lld encoded", qPrintable(destination),
               result->streamCopied ? "stream copy" : "encoded", static_cast<long long>(result->copiedPackets),
               static_cast<long long>(result->encodedFrames));
        return result;
    } catch (const Cancelled&) {
        qCInfo(lcVideoEdit, "Export to %s cancelled", qPrintable(destination));
        return std::nullopt;
    } catch (const VideoRenderError& error) {
        throw VideoEditError(VideoEditError::Code::exportFailed, error.message());
    }
}

// ------------------------------------------------------------ the session

struct VideoEditExportSession::Run {
    VideoEditList list;
    QString destination;
    AnimationOptions animation;
    std::atomic<bool> cancelled{false};
    std::atomic<double> fraction{0};
    std::thread thread;
};

VideoEditExportSession::VideoEditExportSession(VideoEditList list, QString destination, AnimationOptions animation)
    : session(std::make_unique<Run>())
{
    session->list = std::move(list);
    session->destination = std::move(destination);
    session->animation = animation;
}

VideoEditExportSession::~VideoEditExportSession()
{
    cancel();
    wait();
}

void VideoEditExportSession::start(Progress progress, Finished finished)
{
    Run* run = session.get();
    run->thread = std::thread([run, progress = std::move(progress), finished = std::move(finished)] {
        pthread_setname_np(pthread_self(), "nubo.video-edit");
        lowerCurrentThreadPriority();
        VideoExportOutcome outcome;
        try {
            outcome.result = VideoEditExportSession::run(run->list, run->destination, run->cancelled, [&](double f) {
                run->fraction = f;
                if (progress) {
                    progress(f);
                }
            }, run->animation);
            outcome.cancelled = !outcome.result;
        } catch (const VideoEditError& error) {
            qCWarning(lcVideoEdit, "Export to %s failed: %s", qPrintable(run->destination), qPrintable(error.message()));
            outcome.error = error;
        } catch (const std::exception& error) {
            outcome.error = VideoEditError(VideoEditError::Code::exportFailed, QString::fromUtf8(error.what()));
        }
        if (finished) {
            finished(outcome);
        }
    });
}

void VideoEditExportSession::cancel()
{
    session->cancelled = true;
}

void VideoEditExportSession::wait()
{
    if (session->thread.joinable()) {
        session->thread.join();
    }
}

double VideoEditExportSession::progress() const
{
    return session->fraction;
}

} // namespace nubo
