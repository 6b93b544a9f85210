#include "support/MovieDecoder.h"

#include <QFile>
#include <QPainter>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace nubo::test {

DecodedMovie decodeMovie(const QString& path, bool keepPictures)
{
    QList<QImage> frames;
    DecodedMovie movie = decodeMovie(path, [&](const QImage& picture, double) {
        if (keepPictures) {
            frames.append(picture);
        }
    });
    movie.frames = frames;
    return movie;
}

DecodedMovie decodeMovie(const QString& path,
                         const std::function<void(const QImage& picture, double time)>& each)
{
    DecodedMovie movie;
    QFile raw(path);
    if (raw.open(QIODevice::ReadOnly)) {
        const QByteArray head = raw.read(1 << 20);
        const qsizetype moov = head.indexOf("moov"), mdat = head.indexOf("mdat");
        movie.moovBeforeMdat = moov >= 0 && (mdat < 0 || moov < mdat);
        movie.fragmented = head.contains("moof");
    }
    AVFormatContext* format = nullptr;
    const QByteArray name = QFile::encodeName(path);
    if (avformat_open_input(&format, name.constData(), nullptr, nullptr) < 0 ||
        avformat_find_stream_info(format, nullptr) < 0) {
        movie.error = QStringLiteral("cannot open");
        avformat_close_input(&format);
        return movie;
    }
    const int index = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0) {
        movie.error = QStringLiteral("no video stream");
        avformat_close_input(&format);
        return movie;
    }
    AVStream* stream = format->streams[index];
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    AVCodecContext* context = avcodec_alloc_context3(codec);
    avcodec_parameters_to_context(context, stream->codecpar);
    avcodec_open2(context, codec, nullptr);
    movie.opened = true;
    movie.codec = QString::fromLatin1(codec->name);
    movie.profile = QString::fromLatin1(avcodec_profile_name(codec->id, stream->codecpar->profile));
    movie.width = stream->codecpar->width;
    movie.height = stream->codecpar->height;
    movie.colorPrimaries = QString::fromLatin1(av_color_primaries_name(stream->codecpar->color_primaries));
    movie.colorTransfer = QString::fromLatin1(av_color_transfer_name(stream->codecpar->color_trc));
    movie.colorSpace = QString::fromLatin1(av_color_space_name(stream->codecpar->color_space));
    AVPacket* packet = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    SwsContext* scaler = nullptr;
    const auto drain = [&] {
        while (avcodec_receive_frame(context, frame) == 0) {
            const int64_t pts = frame->best_effort_timestamp;
            movie.times.append(pts * av_q2d(stream->time_base));
            movie.keyFrames.append(frame->key_frame != 0);
            movie.bFrames += frame->pict_type == AV_PICTURE_TYPE_B;
            {
                // Two spare rows: swscale writes a little past the last one.
                QImage image(frame->width, frame->height + 2, QImage::Format_RGB32);
                scaler = sws_getCachedContext(scaler, frame->width, frame->height,
                                              AVPixelFormat(frame->format), frame->width,
                                              frame->height, AV_PIX_FMT_BGR0, SWS_POINT, nullptr,
                                              nullptr, nullptr);
                uint8_t* out[1] = {image.bits()};
                const int stride[1] = {int(image.bytesPerLine())};
                sws_scale(scaler, frame->data, frame->linesize, 0, frame->height, out, stride);
                each(image.copy(0, 0, frame->width, frame->height), movie.times.last());
            }
        }
    };
    while (av_read_frame(format, packet) >= 0) {
        if (packet->stream_index == index) {
            avcodec_send_packet(context, packet);
            drain();
        }
        av_packet_unref(packet);
    }
    avcodec_send_packet(context, nullptr);
    drain();
    sws_freeContext(scaler);
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&context);
    avformat_close_input(&format);
    return movie;
}

void paintCounter(QImage& image, int counter, QPoint at)
{
    QPainter p(&image);
    for (int bit = 0; bit < counterBits; ++bit) {
        p.fillRect(at.x() + bit * counterBlock, at.y(), counterBlock, counterBlock,
                   counter >> bit & 1 ? Qt::white : Qt::black);
    }
}

int readCounter(const QImage& image, QPoint at)
{
    int counter = 0;
    for (int bit = 0; bit < counterBits; ++bit) {
        const QColor c = image.pixelColor(at.x() + bit * counterBlock + counterBlock / 2,
                                          at.y() + counterBlock / 2);
        counter |= (c.lightness() > 128 ? 1 : 0) << bit;
    }
    return counter;
}

} // namespace nubo::test

extern "C" {
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

#include <cmath>

namespace nubo::test {

DecodedSound decodeSound(const QString& path)
{
    DecodedSound sound;
    AVFormatContext* format = nullptr;
    const QByteArray name = QFile::encodeName(path);
    if (avformat_open_input(&format, name.constData(), nullptr, nullptr) < 0 ||
        avformat_find_stream_info(format, nullptr) < 0) {
        sound.error = QStringLiteral("cannot open");
        avformat_close_input(&format);
        return sound;
    }
    const int index = av_find_best_stream(format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (index < 0) {
        sound.error = QStringLiteral("no audio stream");
        avformat_close_input(&format);
        return sound;
    }
    AVStream* stream = format->streams[index];
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    AVCodecContext* context = avcodec_alloc_context3(codec);
    avcodec_parameters_to_context(context, stream->codecpar);
    avcodec_open2(context, codec, nullptr);
    sound.opened = true;
    sound.codec = QString::fromLatin1(codec->name);
    sound.sampleRate = stream->codecpar->sample_rate;
    sound.channels = stream->codecpar->ch_layout.nb_channels;
    sound.bitRate = stream->codecpar->bit_rate;
    SwrContext* converter = nullptr;
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    swr_alloc_set_opts2(&converter, &stereo, AV_SAMPLE_FMT_FLT, 48000, &stream->codecpar->ch_layout,
                        AVSampleFormat(stream->codecpar->format), stream->codecpar->sample_rate, 0,
                        nullptr);
    swr_init(converter);
    AVPacket* packet = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    bool first = true;
    const auto drain = [&] {
        while (avcodec_receive_frame(context, frame) == 0) {
            if (first) {
                sound.start = frame->best_effort_timestamp * av_q2d(stream->time_base);
                first = false;
            }
            const int room = swr_get_out_samples(converter, frame->nb_samples);
            std::vector<float> both(size_t(std::max(room, 0)) * 2);
            uint8_t* out[1] = {reinterpret_cast<uint8_t*>(both.data())};
            const int got = swr_convert(converter, out, room,
                                        const_cast<const uint8_t**>(frame->extended_data),
                                        frame->nb_samples);
            for (int i = 0; i < got; ++i) { // the two sides averaged
                sound.mono.push_back((both[size_t(i) * 2] + both[size_t(i) * 2 + 1]) / 2);
            }
        }
    };
    while (av_read_frame(format, packet) >= 0) {
        if (packet->stream_index == index && avcodec_send_packet(context, packet) >= 0) {
            drain();
        }
        av_packet_unref(packet);
    }
    avcodec_send_packet(context, nullptr);
    drain();
    av_frame_free(&frame);
    av_packet_free(&packet);
    swr_free(&converter);
    avcodec_free_context(&context);
    avformat_close_input(&format);
    return sound;
}

double toneLevel(const std::vector<float>& samples, double frequency, size_t from, size_t count)
{
    count = std::min(count, samples.size() > from ? samples.size() - from : 0);
    if (count == 0) {
        return 0;
    }
    const double w = 2 * M_PI * frequency / 48000, c = 2 * std::cos(w);
    double s1 = 0, s2 = 0;
    for (size_t i = from; i < from + count; ++i) {
        const double s = samples[i] + c * s1 - s2;
        s2 = s1;
        s1 = s;
    }
    return 2 * std::sqrt(std::max(0.0, s1 * s1 + s2 * s2 - c * s1 * s2)) / double(count);
}

float peakLevel(const std::vector<float>& samples, size_t from, size_t count)
{
    float peak = 0;
    for (size_t i = from; i < std::min(samples.size(), from + count); ++i) {
        peak = std::max(peak, std::fabs(samples[i]));
    }
    return peak;
}

} // namespace nubo::test
