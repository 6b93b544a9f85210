#include "support/CameraStream.h"

#include "support/MovieDecoder.h"

#include <QFile>
#include <QImage>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

namespace nubo::test {

QString writeCameraStream(const QString& path, int frames, QSize size, int fps, QPoint counterAt)
{
    const QByteArray file = QFile::encodeName(path);
    AVFormatContext* format = nullptr;
    AVCodecContext* codec = nullptr;
    AVFrame* frame = nullptr;
    AVPacket* packet = av_packet_alloc();
    SwsContext* scaler = nullptr;
    QString failure;
    const auto check = [&](int status, const char* what) {
        if (status < 0 && failure.isEmpty()) {
            char text[AV_ERROR_MAX_STRING_SIZE] = {};
            av_strerror(status, text, sizeof text);
            failure = QStringLiteral("%1: %2").arg(QString::fromLatin1(what), QString::fromUtf8(text));
        }
        return status >= 0;
    };
    const auto drain = [&] {
        while (avcodec_receive_packet(codec, packet) >= 0) {
            av_packet_rescale_ts(packet, codec->time_base, format->streams[0]->time_base);
            packet->stream_index = 0;
            check(av_interleaved_write_frame(format, packet), "write");
        }
    };
    if (check(avformat_alloc_output_context2(&format, nullptr, "avi", file.constData()), "output")) {
        const AVCodec* mjpeg = avcodec_find_encoder(AV_CODEC_ID_MJPEG);
        codec = avcodec_alloc_context3(mjpeg);
        codec->width = size.width();
        codec->height = size.height();
        codec->pix_fmt = AV_PIX_FMT_YUVJ422P; // as webcams send it
        codec->time_base = AVRational{1, fps};
        codec->flags |= AV_CODEC_FLAG_QSCALE;
        codec->global_quality = FF_QP2LAMBDA * 3;
        AVStream* stream = avformat_new_stream(format, nullptr);
        if (check(avcodec_open2(codec, mjpeg, nullptr), "encoder")) {
            stream->time_base = codec->time_base;
            avcodec_parameters_from_context(stream->codecpar, codec);
            frame = av_frame_alloc();
            frame->format = codec->pix_fmt;
            frame->width = size.width();
            frame->height = size.height();
            check(av_frame_get_buffer(frame, 0), "frame");
            scaler = sws_getContext(size.width(), size.height(), AV_PIX_FMT_BGRA, size.width(),
                                    size.height(), codec->pix_fmt, SWS_POINT, nullptr, nullptr, nullptr);
            check(avio_open(&format->pb, file.constData(), AVIO_FLAG_WRITE), "open");
            check(avformat_write_header(format, nullptr), "header");
        }
    }
    QImage picture(size, QImage::Format_RGB32);
    for (int k = 0; k < frames && failure.isEmpty(); ++k) {
        const int band = size.width() / 3;
        for (int y = 0; y < size.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
            for (int x = 0; x < size.width(); ++x) {
                row[x] = x < band ? qRgb(230, 20, 20) : x < 2 * band ? qRgb(20, 220, 40) : qRgb(30, 40, 230);
            }
        }
        paintCounter(picture, k, counterAt);
        check(av_frame_make_writable(frame), "frame");
        const uint8_t* source[1] = {picture.constBits()};
        const int stride[1] = {int(picture.bytesPerLine())};
        sws_scale(scaler, source, stride, 0, size.height(), frame->data, frame->linesize);
        frame->pts = k;
        check(avcodec_send_frame(codec, frame), "encode");
        drain();
    }
    if (failure.isEmpty()) {
        check(avcodec_send_frame(codec, nullptr), "flush");
        drain();
        check(av_write_trailer(format), "trailer");
    }
    sws_freeContext(scaler);
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&codec);
    if (format) {
        if (format->pb) {
            avio_closep(&format->pb);
        }
        avformat_free_context(format);
    }
    return failure;
}

} // namespace nubo::test
