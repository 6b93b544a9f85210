#include "recording/RecordingWriter.h"

#include "core/Logging.h"
#include "recording/RecordingRecovery.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

#include <sys/stat.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace nubo {

namespace {

constexpr AVRational movieTimeBase{1, 90000};

QString avError(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

// Removes an unfinished movie: only ever a regular file of ours.
void removeMovie(const QString& file)
{
    struct stat info {};
    if (::lstat(QFile::encodeName(file).constData(), &info) == 0 && S_ISREG(info.st_mode)) {
        QFile::remove(file);
    }
}

[[noreturn]] void fail(const QString& operation, int code)
{
    const QString reason = avError(code);
    qCWarning(lcRecordingWriter, "Writer failure operation=%s status=%d errors=%s",
              qPrintable(operation), code, qPrintable(reason));
    throw RecordingError(RecordingError::Code::writerFailed, reason + QLatin1Char('.'));
}

AVPixelFormat sourceFormat(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_RGB32:
        return AV_PIX_FMT_BGR0; // X's and Qt's 32-bit pixels: B, G, R, X in memory
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return AV_PIX_FMT_BGRA;
    case QImage::Format_RGBA8888:
    case QImage::Format_RGBA8888_Premultiplied:
        return AV_PIX_FMT_RGBA;
    case QImage::Format_RGBX8888:
        return AV_PIX_FMT_RGB0;
    default:
        return AV_PIX_FMT_NONE;
    }
}

} // namespace

struct RecordingWriter::Encoder {
    AVFormatContext* format = nullptr;
    AVCodecContext* codec = nullptr;
    AVStream* stream = nullptr;
    AVFrame* frame = nullptr;
    AVPacket* packet = nullptr;
    SwsContext* scaler = nullptr;
    QSize scalerSource;
    AVPixelFormat scalerFormat = AV_PIX_FMT_NONE;
    bool headerWritten = false;

    ~Encoder()
    {
        sws_freeContext(scaler);
        av_packet_free(&packet);
        av_frame_free(&frame);
        avcodec_free_context(&codec);
        if (format) {
            if (format->pb) {
                avio_closep(&format->pb);
            }
            avformat_free_context(format);
        }
    }
};

RecordingWriter::RecordingWriter(QString file, QSize size, RecordingOptions options)
    : m_file(std::move(file)), m_size(size), m_options(options)
{}

RecordingWriter::~RecordingWriter()
{
    if (!m_finished) {
        cancel();
    }
}

QString RecordingWriter::encoderName() const
{
    return m_encoder && m_encoder->codec ? QString::fromLatin1(m_encoder->codec->codec->name)
                                         : QString();
}

void RecordingWriter::open()
{
    auto e = std::make_unique<Encoder>();
    const QByteArray path = QFile::encodeName(m_file);
    int status = avformat_alloc_output_context2(&e->format, nullptr, "mp4", path.constData());
    if (status < 0) {
        fail(QStringLiteral("createOutput"), status);
    }
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    if (!codec) {
        codec = avcodec_find_encoder(AV_CODEC_ID_H264);
    }
    if (!codec) {
        throw RecordingError(RecordingError::Code::codecUnsupported);
    }
    const int fps = framesPerSecond(m_options.frameRate);
    e->codec = avcodec_alloc_context3(codec);
    e->codec->width = m_size.width();
    e->codec->height = m_size.height();
    e->codec->pix_fmt = AV_PIX_FMT_YUV420P;
    e->codec->time_base = movieTimeBase;
    e->codec->framerate = AVRational{fps, 1};
    e->codec->bit_rate = recordingBitRate(m_size.width(), m_size.height(), m_options.frameRate,
                                          RecordingCodec::h264);
    e->codec->rc_max_rate = e->codec->bit_rate * 3 / 2;
    e->codec->rc_buffer_size = int(std::min<qint64>(e->codec->bit_rate * 2, INT_MAX));
    e->codec->gop_size = 2 * fps;
    e->codec->max_b_frames = 0;
    e->codec->profile = FF_PROFILE_H264_HIGH;
    e->codec->color_primaries = AVCOL_PRI_BT709;
    e->codec->color_trc = AVCOL_TRC_IEC61966_2_1;
    e->codec->colorspace = AVCOL_SPC_BT709;
    e->codec->color_range = AVCOL_RANGE_MPEG;
    if (e->format->oformat->flags & AVFMT_GLOBALHEADER) {
        e->codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    AVDictionary* codecOptions = nullptr;
    av_dict_set(&codecOptions, "preset", "superfast", 0); // made for real time
    av_dict_set(&codecOptions, "profile", "high", 0);
    status = avcodec_open2(e->codec, codec, &codecOptions);
    av_dict_free(&codecOptions);
    if (status < 0) {
        fail(QStringLiteral("openEncoder"), status);
    }
    e->stream = avformat_new_stream(e->format, nullptr);
    e->stream->time_base = movieTimeBase;
    avcodec_parameters_from_context(e->stream->codecpar, e->codec);
    status = avio_open(&e->format->pb, path.constData(), AVIO_FLAG_WRITE);
    if (status < 0) {
        fail(QStringLiteral("openFile"), status);
    }
    AVDictionary* muxerOptions = nullptr;
    // A fragment at every key frame: a killed recording is still a movie.
    av_dict_set(&muxerOptions, "movflags", "frag_keyframe+empty_moov+default_base_moof", 0);
    status = avformat_write_header(e->format, &muxerOptions);
    av_dict_free(&muxerOptions);
    if (status < 0) {
        fail(QStringLiteral("startWriting"), status);
    }
    e->headerWritten = true;
    e->frame = av_frame_alloc();
    e->frame->format = AV_PIX_FMT_YUV420P;
    e->frame->width = m_size.width();
    e->frame->height = m_size.height();
    e->frame->color_primaries = AVCOL_PRI_BT709;
    e->frame->color_trc = AVCOL_TRC_IEC61966_2_1;
    e->frame->colorspace = AVCOL_SPC_BT709;
    e->frame->color_range = AVCOL_RANGE_MPEG;
    if ((status = av_frame_get_buffer(e->frame, 0)) < 0) {
        fail(QStringLiteral("allocateFrame"), status);
    }
    e->packet = av_packet_alloc();
    m_encoder = std::move(e);
    qCInfo(lcRecordingWriter, "Writing %dx%d at %d fps, %lld bit/s with %s into %s",
           m_size.width(), m_size.height(), fps, static_cast<long long>(m_encoder->codec->bit_rate),
           codec->name, qPrintable(m_file));
}

bool RecordingWriter::appendVideo(const QImage& picture, RecordingDuration captureTime)
{
    if (m_finished || m_timeline.isPaused()) {
        return false;
    }
    const AVPixelFormat format = sourceFormat(picture);
    if (format == AV_PIX_FMT_NONE || picture.isNull()) {
        return false;
    }
    m_timeline.offer(captureTime);
    const std::optional<RecordingDuration> time = m_timeline.map(captureTime);
    if (!time) {
        return false;
    }
    const int64_t pts = av_rescale_q(time->count(), AVRational{1, 1000000}, movieTimeBase);
    if (m_encoder && m_lastVideoTime &&
        pts <= av_rescale_q(m_lastVideoTime->count(), AVRational{1, 1000000}, movieTimeBase)) {
        return false; // not later than the frame before
    }
    if (!m_encoder) {
        open();
        m_marker = RecordingRecovery::mark(m_file);
    }
    Encoder& e = *m_encoder;
    if (!e.scaler || e.scalerSource != picture.size() || e.scalerFormat != format) {
        sws_freeContext(e.scaler);
        e.scaler = sws_getContext(picture.width(), picture.height(), format, m_size.width(),
                                  m_size.height(), AV_PIX_FMT_YUV420P,
                                  picture.size() == m_size ? SWS_POINT : SWS_AREA, nullptr,
                                  nullptr, nullptr);
        if (!e.scaler) {
            fail(QStringLiteral("convertPixels"), AVERROR(EINVAL));
        }
        // sRGB pictures into BT.709 studio-range YUV.
        const int* coefficients = sws_getCoefficients(SWS_CS_ITU709);
        sws_setColorspaceDetails(e.scaler, coefficients, 1, coefficients, 0, 0, 1 << 16, 1 << 16);
        e.scalerSource = picture.size();
        e.scalerFormat = format;
    }
    int status = av_frame_make_writable(e.frame);
    if (status < 0) {
        fail(QStringLiteral("appendVideo"), status);
    }
    const uint8_t* source[1] = {picture.constBits()};
    const int stride[1] = {int(picture.bytesPerLine())};
    sws_scale(e.scaler, source, stride, 0, picture.height(), e.frame->data, e.frame->linesize);
    e.frame->pts = pts;
    status = avcodec_send_frame(e.codec, e.frame);
    if (status < 0) {
        fail(QStringLiteral("appendVideo"), status);
    }
    encode(false);
    ++m_frames;
    m_lastVideoTime = *time;
    m_lastPicture = picture;
    return true;
}

void RecordingWriter::encode(bool flush)
{
    Encoder& e = *m_encoder;
    while (true) {
        int status = avcodec_receive_packet(e.codec, e.packet);
        if (status == AVERROR(EAGAIN) || status == AVERROR_EOF) {
            return;
        }
        if (status < 0) {
            fail(flush ? QStringLiteral("finishWriting") : QStringLiteral("appendVideo"), status);
        }
        const bool key = e.packet->flags & AV_PKT_FLAG_KEY;
        // Each frame lasts until the next; the last one a frame's length.
        e.packet->duration = av_rescale_q(1, AVRational{1, e.codec->framerate.num},
                                          e.codec->time_base);
        av_packet_rescale_ts(e.packet, e.codec->time_base, e.stream->time_base);
        e.packet->stream_index = e.stream->index;
        status = av_interleaved_write_frame(e.format, e.packet);
        if (status < 0) {
            fail(flush ? QStringLiteral("finishWriting") : QStringLiteral("appendVideo"), status);
        }
        if (key) {
            // The fragment before this key frame is complete: on disk now.
            avio_flush(e.format->pb);
            if (e.format->pb->error < 0) {
                fail(QStringLiteral("appendVideo"), e.format->pb->error);
            }
        }
    }
}

void RecordingWriter::pause(RecordingDuration captureTime)
{
    m_timeline.pause(captureTime);
}

void RecordingWriter::resume(RecordingDuration captureTime)
{
    m_timeline.resume(captureTime);
}

QString RecordingWriter::finish(std::optional<RecordingDuration> end)
{
    if (m_finished) {
        return m_file;
    }
    if (end && m_encoder && !m_lastPicture.isNull() && !m_timeline.isPaused()) {
        // The last picture stays on screen until the end: one more frame,
        // the last one, ending at `end`.
        const RecordingDuration frame(1'000'000 / framesPerSecond(m_options.frameRate));
        appendVideo(m_lastPicture, *end - frame);
    }
    m_finished = true;
    if (!m_encoder || m_frames == 0) {
        m_encoder.reset();
        removeMovie(m_file);
        throw RecordingError(RecordingError::Code::noVideo);
    }
    try {
        int status = avcodec_send_frame(m_encoder->codec, nullptr);
        if (status < 0) {
            fail(QStringLiteral("finishWriting"), status);
        }
        encode(true);
        status = av_write_trailer(m_encoder->format);
        if (status < 0) {
            fail(QStringLiteral("finishWriting"), status);
        }
        status = avio_closep(&m_encoder->format->pb);
        if (status < 0) {
            fail(QStringLiteral("finishWriting"), status);
        }
        m_encoder.reset();
        moveIndexToFront(m_file);
    } catch (const RecordingError&) {
        m_encoder.reset();
        removeMovie(m_file);
        RecordingRecovery::unmark(m_marker);
        throw;
    }
    RecordingRecovery::unmark(m_marker);
    qCInfo(lcRecordingWriter, "Recording finished: %lld frames, %.2f s, %s",
           static_cast<long long>(m_frames),
           m_lastVideoTime ? m_lastVideoTime->count() / 1e6 : 0.0, qPrintable(m_file));
    return m_file;
}

void RecordingWriter::cancel()
{
    m_finished = true;
    m_encoder.reset();
    removeMovie(m_file);
    RecordingRecovery::unmark(m_marker);
}

void RecordingWriter::moveIndexToFront(const QString& file)
{
    const QByteArray from = QFile::encodeName(file);
    const QFileInfo info(file);
    const QString sibling = info.absolutePath() + QStringLiteral("/.") + info.completeBaseName() +
                            QStringLiteral(".indexing.mp4");
    const QByteArray to = QFile::encodeName(sibling);
    AVFormatContext* input = nullptr;
    AVFormatContext* output = nullptr;
    AVPacket* packet = av_packet_alloc();
    const auto cleanUp = [&] {
        av_packet_free(&packet);
        avformat_close_input(&input);
        if (output) {
            if (output->pb) {
                avio_closep(&output->pb);
            }
            avformat_free_context(output);
            output = nullptr;
        }
    };
    const auto check = [&](int status, const char* operation) {
        if (status < 0) {
            cleanUp();
            QFile::remove(sibling);
            fail(QString::fromLatin1(operation), status);
        }
    };
    check(avformat_open_input(&input, from.constData(), nullptr, nullptr), "readMovie");
    check(avformat_find_stream_info(input, nullptr), "readMovie");
    check(avformat_alloc_output_context2(&output, nullptr, "mp4", to.constData()), "indexMovie");
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        AVStream* stream = avformat_new_stream(output, nullptr);
        check(stream ? 0 : AVERROR(ENOMEM), "indexMovie");
        check(avcodec_parameters_copy(stream->codecpar, input->streams[i]->codecpar), "indexMovie");
        stream->codecpar->codec_tag = 0;
        stream->time_base = input->streams[i]->time_base;
    }
    check(avio_open(&output->pb, to.constData(), AVIO_FLAG_WRITE), "indexMovie");
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "faststart", 0);
    // No edit list: players would trim the last frame's time by it.
    av_dict_set(&options, "use_editlist", "0", 0);
    const int header = avformat_write_header(output, &options);
    av_dict_free(&options);
    check(header, "indexMovie");
    std::vector<int64_t> lastDuration(input->nb_streams, 0);
    qint64 copied = 0;
    while (true) {
        const int status = av_read_frame(input, packet);
        if (status == AVERROR_EOF) {
            break;
        }
        if (status < 0) {
            // A fragment cut short by a crash: what came before it is kept.
            qCWarning(lcRecordingWriter, "Movie ends early: %s", qPrintable(avError(status)));
            break;
        }
        // A packet of unknown length (the last of a cut-off movie) lasts as
        // long as the one before it.
        int64_t& last = lastDuration[size_t(packet->stream_index)];
        packet->duration = packet->duration > 0 ? packet->duration : last;
        last = packet->duration;
        av_packet_rescale_ts(packet, input->streams[packet->stream_index]->time_base,
                             output->streams[packet->stream_index]->time_base);
        packet->pos = -1;
        check(av_interleaved_write_frame(output, packet), "indexMovie");
        ++copied;
    }
    qCDebug(lcRecordingWriter, "Index moved to the front of %s (%lld packets)",
            qPrintable(file), static_cast<long long>(copied));
    check(av_write_trailer(output), "indexMovie");
    check(avio_closep(&output->pb), "indexMovie");
    cleanUp();
    if (::rename(to.constData(), from.constData()) != 0) {
        const int error = errno;
        QFile::remove(sibling);
        fail(QStringLiteral("indexMovie"), AVERROR(error));
    }
}

} // namespace nubo
