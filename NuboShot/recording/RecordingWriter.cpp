#include "recording/RecordingWriter.h"

#include "core/Logging.h"
#include "media/MediaError.h"
#include "media/Yuv420Conversion.h"
#include "recording/RecordingEncoder.h"
#include "recording/RecordingRecovery.h"

#include <QFile>
#include <QFileInfo>

#include <condition_variable>
#include <deque>
#include <thread>
#include <vector>

#include <pthread.h>
#include <sys/stat.h>

#include "media/MediaOwners.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

namespace nubo {

namespace {

constexpr AVRational movieTimeBase{1, 90000};
constexpr AVRational audioTimeBase{1, recordingAudioRate};
constexpr int audioBitRate = 192000;

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
    const QString reason = mediaErrorText(code);
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
    media::OutputFormat format;
    std::unique_ptr<RecordingVideoEncoder> video;
    AVCodecContext* codec = nullptr; // the video encoder's
    AVFrame* frame = nullptr;        // its input picture
    AVStream* stream = nullptr;
    media::Packet packet;
    // The newest picture's packet, written once the next one gives its
    // length (a still screen sends no pictures, so frames last unequally).
    media::Packet held;
    bool holding = false;
    media::Scaler scaler;
    QSize scalerSource;
    AVPixelFormat scalerFormat = AV_PIX_FMT_NONE;
    bool headerWritten = false;
    // The sound, when there is any.
    media::Codec audioCodec;
    AVStream* audioStream = nullptr;
    media::Frame audioFrame;
    media::Packet audioPacket;
};

// The audio path: what arrives from the sources, the mixer, the FIFO and
// the frames on their way into the AAC encoder.
struct RecordingWriter::Audio {
    struct Item {
        RecordingAudioMixer::Source source = RecordingAudioMixer::Source::system;
        int sampleRate = 0;
        int channels = 0;
        int format = -1;
        int frames = 0;
        std::vector<std::vector<uint8_t>> planes;
        RecordingDuration time{0};
        std::optional<QString> ended; // the source ended, and why
    };

    Audio(bool system, bool microphone) : mixer(system, microphone) {}

    std::thread thread;
    mutable std::mutex mutex; // the queue, `stop` and `failure`
    std::condition_variable wake;
    std::deque<Item> queue;
    bool stop = false;
    std::optional<RecordingError> failure;

    // The audio thread's, then finish()'s.
    RecordingAudioMixer mixer;
    RecordingAudioFIFO fifo;
    std::vector<float> pending; // interleaved, short of a whole AAC frame
    qint64 next = 0;            // the 48 kHz frame index the encoder takes next
    bool started = false;
};

RecordingWriter::RecordingWriter(QString file, QSize size, RecordingOptions options,
                                 std::optional<CameraOverlay> camera)
    : m_file(std::move(file)), m_size(size), m_options(options)
{
    if (m_options.camera && camera && camera->source && camera->normalizedFrame) {
        m_camera = std::move(camera);
    }
    if (hasAudio()) {
        m_audio = std::make_unique<Audio>(m_options.systemAudio, m_options.microphone);
        m_audio->thread = std::thread([this] { runAudio(); });
    }
}

RecordingWriter::~RecordingWriter()
{
    if (!m_finished) {
        cancel();
    }
    stopAudio();
}

bool RecordingWriter::isPaused() const
{
    const std::lock_guard lock(m_timeMutex);
    return m_timeline.timeline.isPaused();
}

RecordingTimeline RecordingWriter::timeline() const
{
    const std::lock_guard lock(m_timeMutex);
    return m_timeline.timeline;
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
    AVFormatContext* format = nullptr;
    int status = avformat_alloc_output_context2(&format, nullptr, "mp4", path.constData());
    if (status < 0) {
        fail(QStringLiteral("createOutput"), status);
    }
    e->format.reset(format);
    const int fps = framesPerSecond(m_options.frameRate);
    e->video = RecordingVideoEncoder::open(
        m_options.codec,
        {m_size, fps,
         recordingBitRate(m_size.width(), m_size.height(), m_options.frameRate, m_options.codec),
         (e->format->oformat->flags & AVFMT_GLOBALHEADER) != 0});
    e->codec = e->video->context();
    e->frame = e->video->input();
    e->stream = avformat_new_stream(e->format.get(), nullptr);
    e->stream->time_base = movieTimeBase;
    avcodec_parameters_from_context(e->stream->codecpar, e->codec);
    if (e->codec->codec_id == AV_CODEC_ID_HEVC) {
        e->stream->codecpar->codec_tag = MKTAG('h', 'v', 'c', '1'); // what players ask for
    }
    if (m_audio) {
        const AVCodec* aac = avcodec_find_encoder(AV_CODEC_ID_AAC);
        if (!aac) {
            fail(QStringLiteral("openAudioEncoder"), AVERROR_ENCODER_NOT_FOUND);
        }
        e->audioCodec.reset(avcodec_alloc_context3(aac));
        e->audioCodec->sample_rate = recordingAudioRate;
        av_channel_layout_default(&e->audioCodec->ch_layout, 2);
        e->audioCodec->sample_fmt = AV_SAMPLE_FMT_FLTP;
        e->audioCodec->bit_rate = audioBitRate;
        e->audioCodec->time_base = audioTimeBase;
        if (e->format->oformat->flags & AVFMT_GLOBALHEADER) {
            e->audioCodec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        }
        // FFmpeg's own encoder with its default coder ("fast" measured
        // slower at this rate).
        status = avcodec_open2(e->audioCodec.get(), aac, nullptr);
        if (status < 0) {
            fail(QStringLiteral("openAudioEncoder"), status);
        }
        e->audioStream = avformat_new_stream(e->format.get(), nullptr);
        e->audioStream->time_base = audioTimeBase;
        avcodec_parameters_from_context(e->audioStream->codecpar, e->audioCodec.get());
        e->audioFrame = media::frame();
        e->audioFrame->format = AV_SAMPLE_FMT_FLTP;
        e->audioFrame->sample_rate = recordingAudioRate;
        e->audioFrame->nb_samples = e->audioCodec->frame_size;
        av_channel_layout_default(&e->audioFrame->ch_layout, 2);
        if ((status = av_frame_get_buffer(e->audioFrame.get(), 0)) < 0) {
            fail(QStringLiteral("allocateFrame"), status);
        }
        e->audioPacket = media::packet();
    }
    status = avio_open(&e->format->pb, path.constData(), AVIO_FLAG_WRITE);
    if (status < 0) {
        fail(QStringLiteral("openFile"), status);
    }
    media::Dictionary muxerOptions;
    // A fragment at every key frame, and every half second (sound goes on
    // while a still screen makes no key frames): a recording killed even in
    // its first second is still a movie. (A fragment is closed when the
    // next packet comes, which gives its last picture its true length; one
    // closed by hand would end that picture a frame later and lose the gap.)
    muxerOptions.set("movflags", "frag_keyframe+empty_moov+default_base_moof");
    muxerOptions.set("frag_duration", "500000");
    status = avformat_write_header(e->format.get(), muxerOptions.get());
    if (status < 0) {
        fail(QStringLiteral("startWriting"), status);
    }
    e->headerWritten = true;
    e->packet = media::packet();
    {
        const std::lock_guard lock(m_muxMutex);
        m_encoder = std::move(e);
    }
    m_opened = true;
    qCInfo(lcRecordingWriter, "Writing %dx%d at %d fps, at most %lld bit/s with %s%s into %s",
           m_size.width(), m_size.height(), fps,
           static_cast<long long>(std::max(m_encoder->codec->bit_rate, m_encoder->codec->rc_max_rate)),
           qPrintable(m_encoder->video->name()), m_audio ? " and AAC sound" : "", qPrintable(m_file));
}

bool RecordingWriter::appendVideo(const QImage& picture, RecordingDuration captureTime)
{
    const AVPixelFormat format = sourceFormat(picture);
    if (m_finished || format == AV_PIX_FMT_NONE || picture.isNull()) {
        return false;
    }
    std::optional<RecordingDuration> time;
    {
        const std::lock_guard lock(m_timeMutex);
        if (m_timeline.timeline.isPaused()) {
            return false;
        }
        m_timeline.offer(captureTime);
        time = m_timeline.timeline.map(captureTime);
    }
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
    // Pictures of the movie's size go to a software encoder through our own
    // conversion, the rest (scaled, or for a GPU's NV12) through swscale.
    const bool direct = picture.size() == m_size &&
                        e.video->inputFormat() == AV_PIX_FMT_YUV420P;
    if (!direct &&
        (!e.scaler.get() || e.scalerSource != picture.size() || e.scalerFormat != format)) {
        e.scaler.reset(sws_getContext(picture.width(), picture.height(), format, m_size.width(),
                                  m_size.height(), e.video->inputFormat(), SWS_AREA, nullptr,
                                  nullptr, nullptr));
        if (!e.scaler) {
            fail(QStringLiteral("convertPixels"), AVERROR(EINVAL));
        }
        // sRGB pictures into BT.709 studio-range YUV.
        const int* coefficients = sws_getCoefficients(SWS_CS_ITU709);
        sws_setColorspaceDetails(e.scaler.get(), coefficients, 1, coefficients, 0, 0, 1 << 16, 1 << 16);
        e.scalerSource = picture.size();
        e.scalerFormat = format;
    }
    int status = av_frame_make_writable(e.frame);
    if (status < 0) {
        fail(QStringLiteral("appendVideo"), status);
    }
    const QImage drawn = m_camera ? withCamera(picture) : picture;
    if (direct) {
        const bool rgbOrder = format == AV_PIX_FMT_RGBA || format == AV_PIX_FMT_RGB0;
        toYuv420(drawn.constBits(), int(drawn.bytesPerLine()), drawn.width(), drawn.height(),
                 rgbOrder ? PixelOrder::rgbx : PixelOrder::bgrx,
                 {e.frame->data[0], e.frame->data[1], e.frame->data[2], e.frame->linesize[0],
                  e.frame->linesize[1], e.frame->linesize[2]});
    } else {
        const uint8_t* source[1] = {drawn.constBits()};
        const int stride[1] = {int(drawn.bytesPerLine())};
        sws_scale(e.scaler.get(), source, stride, 0, drawn.height(), e.frame->data,
                  e.frame->linesize);
    }
    status = e.video->send(pts);
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
    const QString operation = flush ? QStringLiteral("finishWriting") : QStringLiteral("appendVideo");
    const auto write = [&] {
        // Written as they come: the fragments interleave picture and sound,
        // and each fragment is on disk as soon as it is complete.
        const std::lock_guard lock(m_muxMutex);
        int status = av_write_frame(e.format.get(), e.held.get());
        if (status < 0) {
            fail(operation, status);
        }
        avio_flush(e.format->pb);
        if (e.format->pb->error < 0) {
            fail(operation, e.format->pb->error);
        }
        e.holding = false;
    };
    while (true) {
        int status = avcodec_receive_packet(e.codec, e.packet.get());
        if (status == AVERROR(EAGAIN)) {
            return;
        }
        if (status == AVERROR_EOF) {
            if (e.holding) {
                write(); // the last picture: a frame's length
            }
            return;
        }
        if (status < 0) {
            fail(operation, status);
        }
        e.packet->duration = av_rescale_q(1, AVRational{1, e.codec->framerate.num},
                                          e.codec->time_base);
        av_packet_rescale_ts(e.packet.get(), e.codec->time_base, e.stream->time_base);
        e.packet->stream_index = e.stream->index;
        if (e.holding) {
            // Each picture lasts until the next.
            if (e.packet->dts > e.held->dts) {
                e.held->duration = e.packet->dts - e.held->dts;
            }
            write();
        }
        if (!e.held) {
            e.held = media::packet();
        }
        av_packet_move_ref(e.held.get(), e.packet.get());
        e.holding = true;
    }
}

QImage RecordingWriter::withCamera(const QImage& screen)
{
    const std::optional<CameraFrame> camera = m_camera->source->latestFrame();
    const QRectF frame = m_camera->normalizedFrame();
    m_cameraShown = std::pair(camera ? camera->sequence : 0, frame);
    if (!camera || m_compositorFailed) {
        return screen;
    }
    if (!m_compositor || m_compositor->size() != screen.size()) {
        try {
            m_compositor = std::make_unique<CameraFrameCompositor>(screen.size());
        } catch (const Error& error) {
            // Said once; the screen is recorded without the camera.
            qCWarning(lcRecordingWriter, "Camera overlay failed; encoding raw screen: %s",
                      qPrintable(error.message()));
            m_compositorFailed = true;
            return screen;
        }
    }
    QImage drawn = m_compositor->composite(screen, *camera, frame, m_camera->mirrored);
    if (drawn.cacheKey() != screen.cacheKey()) {
        ++m_cameraFrames;
    }
    return drawn;
}

bool RecordingWriter::refreshCamera(RecordingDuration captureTime)
{
    if (!m_camera || m_lastPicture.isNull() || m_finished) {
        return false;
    }
    const std::optional<CameraFrame> camera = m_camera->source->latestFrame();
    const std::pair<quint64, QRectF> now(camera ? camera->sequence : 0, m_camera->normalizedFrame());
    if (m_cameraShown == now) {
        return false;
    }
    const QImage screen = m_lastPicture;
    if (!appendVideo(screen, captureTime)) {
        return false;
    }
    ++m_cameraTicks;
    return true;
}

void RecordingWriter::pause(RecordingDuration captureTime)
{
    const std::lock_guard lock(m_timeMutex);
    m_timeline.pause(captureTime);
}

void RecordingWriter::resume(RecordingDuration captureTime)
{
    const std::lock_guard lock(m_timeMutex);
    m_timeline.resume(captureTime);
}

// ---- Sound ----

void RecordingWriter::appendAudio(RecordingAudioMixer::Source source,
                                  const RecordingAudioInput& input, RecordingDuration captureTime)
{
    if (!m_audio) {
        return;
    }
    Audio::Item item;
    item.source = source;
    item.sampleRate = input.sampleRate;
    item.channels = input.channels;
    item.format = input.format;
    item.frames = input.frames;
    item.time = captureTime;
    // Copied: the caller's buffer is only lent. What cannot be sized is
    // queued empty and refused by the mixer.
    if (input.data && input.format >= 0 && input.format < AV_SAMPLE_FMT_NB && input.channels > 0 &&
        input.channels <= 64 && input.frames > 0) {
        const auto format = AVSampleFormat(input.format);
        const bool planar = av_sample_fmt_is_planar(format);
        const size_t plane = size_t(av_get_bytes_per_sample(format)) * size_t(input.frames) *
                             size_t(planar ? 1 : input.channels);
        for (int i = 0; i < (planar ? input.channels : 1); ++i) {
            if (!input.data[i]) {
                item.planes.clear();
                break;
            }
            item.planes.emplace_back(input.data[i], input.data[i] + plane);
        }
    }
    {
        const std::lock_guard lock(m_audio->mutex);
        if (m_audio->stop) {
            return;
        }
        m_audio->queue.push_back(std::move(item));
    }
}

void RecordingWriter::endAudio(RecordingAudioMixer::Source source, const QString& reason)
{
    if (!m_audio) {
        return;
    }
    Audio::Item item;
    item.source = source;
    item.ended = reason;
    const std::lock_guard lock(m_audio->mutex);
    m_audio->queue.push_back(std::move(item));
}

std::optional<RecordingError> RecordingWriter::audioFailure() const
{
    if (!m_audio) {
        return std::nullopt;
    }
    const std::lock_guard lock(m_audio->mutex);
    return m_audio->failure;
}

void RecordingWriter::failAudio(const RecordingError& error)
{
    qCWarning(lcRecordingWriter, "Recording audio failed: %s", qPrintable(error.message()));
    const std::lock_guard lock(m_audio->mutex);
    if (!m_audio->failure) {
        m_audio->failure = error;
    }
}

void RecordingWriter::runAudio()
{
    pthread_setname_np(pthread_self(), "recording-audio");
    while (true) {
        {
            std::unique_lock lock(m_audio->mutex);
            // The drain: every 10 ms.
            m_audio->wake.wait_for(lock, std::chrono::milliseconds(10),
                                   [this] { return m_audio->stop; });
            if (m_audio->stop || m_audio->failure) {
                return;
            }
        }
        try {
            processAudio(false);
        } catch (const RecordingError& error) {
            failAudio(error);
        }
    }
}

void RecordingWriter::stopAudio()
{
    if (!m_audio) {
        return;
    }
    {
        const std::lock_guard lock(m_audio->mutex);
        m_audio->stop = true;
    }
    m_audio->wake.notify_all();
    if (m_audio->thread.joinable()) {
        m_audio->thread.join();
    }
}

void RecordingWriter::processAudio(bool finishing, std::optional<qint64> endFrame)
{
    Audio& a = *m_audio;
    std::deque<Audio::Item> items;
    {
        const std::lock_guard lock(a.mutex);
        if (!m_opened && !finishing) {
            // Before the first picture the movie has no time yet: what was
            // captured in the last two seconds waits for it.
            while (!a.queue.empty() &&
                   a.queue.back().time - a.queue.front().time > std::chrono::seconds(2)) {
                a.queue.pop_front();
            }
            return;
        }
        items.swap(a.queue);
    }
    for (const Audio::Item& item : items) {
        if (item.ended) {
            a.mixer.setEnabled(item.source, false);
            qCWarning(lcRecordingWriter, "The %s ended: %s; the picture goes on",
                      item.source == RecordingAudioMixer::Source::system ? "system audio"
                                                                         : "microphone",
                      qPrintable(*item.ended));
            continue;
        }
        if (!m_opened) {
            continue;
        }
        // Only what was captured outside pauses: a buffer that straddles a
        // pause's start or end gives its part outside it, so the two sides
        // of a pause meet without a gap or a sound of the pause.
        qint64 skip = 0;
        qint64 frames = item.frames;
        std::optional<RecordingDuration> movieTime;
        if (item.sampleRate > 0 && frames > 0) {
            const auto framesIn = [&](RecordingDuration d) {
                return qint64(d.count() * item.sampleRate / 1'000'000);
            };
            const RecordingDuration length(frames * 1'000'000 / item.sampleRate);
            const std::lock_guard lock(m_timeMutex);
            RecordingDuration from = item.time;
            if (const std::optional<RecordingDuration> resumed = m_timeline.pauseEndAfter(from)) {
                skip = std::min(frames, framesIn(*resumed - from) + 1);
                from = *resumed;
            }
            if (const std::optional<RecordingDuration> paused =
                    m_timeline.pauseBeginningWithin(from, item.time + length)) {
                frames = std::min(frames, skip + framesIn(*paused - from));
            }
            movieTime = m_timeline.mapCaptured(from);
        }
        if (!movieTime && !item.planes.empty() && item.frames > 0 && item.sampleRate > 0) {
            continue; // before the first picture, or paused
        }
        std::vector<const uint8_t*> planes;
        if (frames > skip) {
            const auto format = AVSampleFormat(item.format);
            const size_t offset = size_t(skip) * size_t(av_get_bytes_per_sample(format)) *
                                  size_t(av_sample_fmt_is_planar(format) ? 1 : item.channels);
            for (const std::vector<uint8_t>& plane : item.planes) {
                planes.push_back(plane.data() + offset);
            }
        } else if (!item.planes.empty()) {
            continue; // wholly in a pause
        }
        const RecordingAudioInput input{item.sampleRate, item.channels, item.format,
                                        planes.empty() ? nullptr : planes.data(),
                                        int(frames - skip)};
        a.mixer.add(item.source, input, movieTime.value_or(RecordingDuration(0)));
    }
    if (!m_opened) {
        return;
    }
    // Everything goes through the FIFO, so order is kept; the file takes
    // what it can now, unless a picture is being written (then the FIFO
    // holds it until the next turn, at most two seconds).
    std::unique_lock mux(m_muxMutex, std::defer_lock);
    if (finishing) {
        mux.lock();
    } else {
        (void)mux.try_lock();
    }
    const auto drain = [&] {
        while (std::optional<RecordingAudioBuffer> buffer = a.fifo.pop()) {
            encodeAudio(*buffer, endFrame);
        }
    };
    for (RecordingAudioBuffer& buffer : a.mixer.mix(finishing)) {
        if (const std::optional<RecordingAudioFIFO::Dropped> dropped = a.fifo.push(std::move(buffer))) {
            m_audioDropped += dropped->frames;
            qCWarning(lcRecordingWriter,
                      "Audio FIFO overflow; preserving silent PTS gap frames=%lld from=%s to=%s",
                      static_cast<long long>(dropped->frames),
                      qPrintable(QString::number(double(dropped->start) / recordingAudioRate, 'f', 6)),
                      qPrintable(QString::number(double(dropped->end) / recordingAudioRate, 'f', 6)));
        }
        if (mux.owns_lock()) {
            drain();
        }
    }
    if (mux.owns_lock()) {
        drain();
    }
}

void RecordingWriter::encodeAudio(const RecordingAudioBuffer& buffer, std::optional<qint64> endFrame)
{
    Encoder& e = *m_encoder;
    Audio& a = *m_audio;
    AVCodecContext* c = e.audioCodec.get();
    if (!a.started) {
        // The encoder's first frame decodes to its priming silence: fed from
        // that many frames into the movie on, every decoded frame plays at
        // the time it was captured (no edit list needed).
        a.next = c->initial_padding;
        a.started = true;
    }
    qint64 from = buffer.start;
    qint64 frames = buffer.frames();
    const float* samples = buffer.samples.data();
    if (endFrame) {
        frames = std::min(frames, *endFrame - from);
    }
    if (from < a.next) { // the priming stretch, or audio already written
        const qint64 skip = std::min(frames, a.next - from);
        from += skip;
        samples += skip * 2;
        frames -= skip;
    }
    if (frames <= 0) {
        return;
    }
    if (from > a.next) { // dropped by the FIFO: silence in its place
        a.pending.insert(a.pending.end(), size_t(from - a.next) * 2, 0.0f);
    }
    a.pending.insert(a.pending.end(), samples, samples + frames * 2);
    a.next = from + frames;
    while (qint64(a.pending.size() / 2) >= c->frame_size) {
        AVFrame* frame = e.audioFrame.get();
        int status = av_frame_make_writable(frame);
        if (status < 0) {
            fail(QStringLiteral("appendAudio"), status);
        }
        const int n = c->frame_size;
        frame->nb_samples = n;
        auto* left = reinterpret_cast<float*>(frame->data[0]);
        auto* right = reinterpret_cast<float*>(frame->data[1]);
        for (int i = 0; i < n; ++i) {
            left[i] = a.pending[size_t(i) * 2];
            right[i] = a.pending[size_t(i) * 2 + 1];
        }
        frame->pts = a.next - qint64(a.pending.size() / 2);
        a.pending.erase(a.pending.begin(), a.pending.begin() + qsizetype(n) * 2);
        status = avcodec_send_frame(c, frame);
        if (status < 0) {
            fail(QStringLiteral("appendAudio"), status);
        }
        m_audioFrames += n;
        writeAudioPackets();
    }
}

void RecordingWriter::writeAudioPackets()
{
    Encoder& e = *m_encoder;
    while (true) {
        int status = avcodec_receive_packet(e.audioCodec.get(), e.audioPacket.get());
        if (status == AVERROR(EAGAIN) || status == AVERROR_EOF) {
            return;
        }
        if (status < 0) {
            fail(QStringLiteral("appendAudio"), status);
        }
        av_packet_rescale_ts(e.audioPacket.get(), e.audioCodec->time_base, e.audioStream->time_base);
        e.audioPacket->stream_index = e.audioStream->index;
        status = av_write_frame(e.format.get(), e.audioPacket.get());
        if (status < 0) {
            fail(QStringLiteral("appendAudio"), status);
        }
    }
}

QString RecordingWriter::finish(std::optional<RecordingDuration> end)
{
    if (m_finished) {
        return m_file;
    }
    if (end && m_encoder && !m_lastPicture.isNull() && !isPaused()) {
        // The last picture stays on screen until the end: one more frame,
        // the last one, ending at `end`.
        const RecordingDuration frame(1'000'000 / framesPerSecond(m_options.frameRate));
        appendVideo(m_lastPicture, *end - frame);
    }
    stopAudio();
    m_finished = true;
    if (!m_encoder || m_frames == 0) {
        m_encoder.reset();
        removeMovie(m_file);
        throw RecordingError(RecordingError::Code::noVideo);
    }
    try {
        if (m_audio && !m_audio->failure) {
            // The sound ends with the last picture.
            const qint64 videoEnd =
                m_lastVideoTime->count() + 1'000'000 / framesPerSecond(m_options.frameRate);
            const qint64 endFrame = videoEnd * recordingAudioRate / 1'000'000;
            try {
                processAudio(true, endFrame);
            } catch (const RecordingError& error) {
                if (error.code() != RecordingError::Code::invalidAudio) {
                    throw;
                }
                failAudio(error); // the sound so far is kept, and the picture
            }
        }
        if (m_audio && !m_audio->failure) {
            const std::lock_guard lock(m_muxMutex);
            Audio& a = *m_audio;
            AVCodecContext* c = m_encoder->audioCodec.get();
            if (!a.pending.empty()) { // the last, shorter frame
                AVFrame* last = m_encoder->audioFrame.get();
                int status = av_frame_make_writable(last);
                const int n = int(a.pending.size() / 2);
                last->nb_samples = n;
                for (int i = 0; i < n && status >= 0; ++i) {
                    reinterpret_cast<float*>(last->data[0])[i] = a.pending[size_t(i) * 2];
                    reinterpret_cast<float*>(last->data[1])[i] = a.pending[size_t(i) * 2 + 1];
                }
                last->pts = a.next - n;
                if (status >= 0) {
                    status = avcodec_send_frame(c, last);
                }
                if (status < 0) {
                    fail(QStringLiteral("finishWriting"), status);
                }
                m_audioFrames += n;
                a.pending.clear();
            }
            if (a.started) {
                const int status = avcodec_send_frame(c, nullptr);
                if (status < 0) {
                    fail(QStringLiteral("finishWriting"), status);
                }
                writeAudioPackets();
            }
        }
        int status = avcodec_send_frame(m_encoder->codec, nullptr);
        if (status < 0) {
            fail(QStringLiteral("finishWriting"), status);
        }
        encode(true);
        status = av_write_trailer(m_encoder->format.get());
        if (status < 0) {
            fail(QStringLiteral("finishWriting"), status);
        }
        status = media::closeOutput(m_encoder->format.get());
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
    stopAudio();
    m_finished = true;
    m_encoder.reset();
    removeMovie(m_file);
    RecordingRecovery::unmark(m_marker);
}

qint64 RecordingWriter::moveIndexToFront(const QString& file)
{
    const QByteArray from = QFile::encodeName(file);
    const QFileInfo info(file);
    const QString sibling = info.absolutePath() + QStringLiteral("/.") + info.completeBaseName() +
                            QStringLiteral(".indexing.mp4");
    const QByteArray to = QFile::encodeName(sibling);
    media::InputFormat inputOwner;
    media::OutputFormat outputOwner;
    const media::Packet packetOwner = media::packet();
    AVPacket* packet = packetOwner.get();
    const auto check = [&](int status, const char* operation) {
        if (status < 0) {
            outputOwner.reset();
            QFile::remove(sibling);
            fail(QString::fromLatin1(operation), status);
        }
    };
    AVFormatContext* input = nullptr;
    check(avformat_open_input(&input, from.constData(), nullptr, nullptr), "readMovie");
    inputOwner.reset(input);
    check(avformat_find_stream_info(input, nullptr), "readMovie");
    AVFormatContext* output = nullptr;
    check(avformat_alloc_output_context2(&output, nullptr, "mp4", to.constData()), "indexMovie");
    outputOwner.reset(output);
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        AVStream* stream = avformat_new_stream(output, nullptr);
        check(stream ? 0 : AVERROR(ENOMEM), "indexMovie");
        check(avcodec_parameters_copy(stream->codecpar, input->streams[i]->codecpar), "indexMovie");
        stream->codecpar->codec_tag =
            stream->codecpar->codec_id == AV_CODEC_ID_HEVC ? MKTAG('h', 'v', 'c', '1') : 0;
        stream->time_base = input->streams[i]->time_base;
    }
    check(avio_open(&output->pb, to.constData(), AVIO_FLAG_WRITE), "indexMovie");
    media::Dictionary options;
    options.set("movflags", "faststart");
    // No edit list: players would trim the last frame's time by it.
    options.set("use_editlist", "0");
    check(avformat_write_header(output, options.get()), "indexMovie");
    std::vector<int64_t> lastDuration(input->nb_streams, 0);
    qint64 copied = 0, pictures = 0;
    while (true) {
        const int status = av_read_frame(input, packet);
        if (status == AVERROR_EOF) {
            break;
        }
        if (status < 0) {
            // A fragment cut short by a crash: what came before it is kept.
            qCWarning(lcRecordingWriter, "Movie ends early: %s", qPrintable(mediaErrorText(status)));
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
        pictures += input->streams[packet->stream_index]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO;
        check(av_interleaved_write_frame(output, packet), "indexMovie");
        ++copied;
    }
    if (pictures == 0) {
        outputOwner.reset();
        QFile::remove(sibling);
        return 0;
    }
    qCDebug(lcRecordingWriter, "Index moved to the front of %s (%lld packets)",
            qPrintable(file), static_cast<long long>(copied));
    check(av_write_trailer(output), "indexMovie");
    check(media::closeOutput(output), "indexMovie");
    outputOwner.reset();
    inputOwner.reset();
    if (::rename(to.constData(), from.constData()) != 0) {
        const int error = errno;
        QFile::remove(sibling);
        fail(QStringLiteral("indexMovie"), AVERROR(error));
    }
    return pictures;
}

} // namespace nubo

