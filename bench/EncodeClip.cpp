// Encodes a movie's frames again through our recording writer, frame by
// frame at their own times, so that its quality can be compared with
// another encoder's on exactly the same pictures.
//
//   build/bench/encode_clip INPUT.mkv OUTPUT.mp4

#include "recording/RecordingWriter.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: encode_clip INPUT OUTPUT.mp4\n");
        return 2;
    }
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, argv[1], nullptr, nullptr) < 0 ||
        avformat_find_stream_info(format, nullptr) < 0) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    const int index = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    AVStream* stream = format->streams[index];
    const AVCodec* codec = avcodec_find_decoder(stream->codecpar->codec_id);
    AVCodecContext* context = avcodec_alloc_context3(codec);
    avcodec_parameters_to_context(context, stream->codecpar);
    avcodec_open2(context, codec, nullptr);
    const QSize size(stream->codecpar->width, stream->codecpar->height);
    nubo::RecordingWriter writer(QString::fromLocal8Bit(argv[2]), size, nubo::RecordingOptions());
    AVPacket* packet = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    SwsContext* scaler = nullptr;
    const auto drain = [&] {
        while (avcodec_receive_frame(context, frame) == 0) {
            QImage image(frame->width, frame->height + 2, QImage::Format_RGB32);
            scaler = sws_getCachedContext(scaler, frame->width, frame->height,
                                          AVPixelFormat(frame->format), frame->width,
                                          frame->height, AV_PIX_FMT_BGR0, SWS_POINT, nullptr,
                                          nullptr, nullptr);
            uint8_t* out[1] = {image.bits()};
            const int stride[1] = {int(image.bytesPerLine())};
            sws_scale(scaler, frame->data, frame->linesize, 0, frame->height, out, stride);
            const double seconds = frame->best_effort_timestamp * av_q2d(stream->time_base);
            writer.appendVideo(image.copy(0, 0, frame->width, frame->height),
                               nubo::RecordingDuration(qint64(seconds * 1e6)));
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
    std::printf("%s\n", qPrintable(writer.finish()));
    return 0;
}
