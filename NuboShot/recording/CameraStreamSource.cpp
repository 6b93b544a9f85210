#include "recording/CameraStreamSource.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "media/MediaError.h"
#include "media/MediaOwners.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <fcntl.h>
#include <linux/videodev2.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavdevice/version.h>
#include <libavutil/macros.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <dlfcn.h>

namespace nubo {

namespace {

constexpr int widestPicture = 1280; // larger camera pictures are scaled down to this

bool isCharacterDevice(const QString& path)
{
    struct stat info {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISCHR(info.st_mode);
}

// The card's name when `path` is a V4L2 device that captures video.
std::optional<QString> captureDeviceName(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return std::nullopt;
    }
    v4l2_capability caps{};
    const bool ok = ::ioctl(fd, VIDIOC_QUERYCAP, &caps) == 0;
    ::close(fd);
    if (!ok) {
        return std::nullopt;
    }
    const quint32 device = (caps.capabilities & V4L2_CAP_DEVICE_CAPS) ? caps.device_caps
                                                                       : caps.capabilities;
    if (!(device & V4L2_CAP_VIDEO_CAPTURE)) {
        return std::nullopt; // a metadata node, an encoder…
    }
    return QString::fromUtf8(reinterpret_cast<const char*>(caps.card)).trimmed();
}

} // namespace

struct CameraStreamSource::Stream {
    media::InputFormat format;
    media::Codec decoder;
    media::Scaler scaler;
    std::tuple<int, int, int, bool> scalerKey{0, 0, -1, false};
    media::Packet packet;
    media::Frame frame;
    int index = -1;
    bool file = false; // played at its own pace, and again from the start
    AVRational timeBase{1, 30};
};

namespace {

// FFmpeg's device library (cameras through video4linux2) brings some eighty
// libraries with it (SDL, OpenAL, JACK…) that every start of the program
// would load; it is loaded here, when a camera is first opened. Empty when
// it registered its devices, else why not.
QString loadDevices()
{
    static QString problem;
    static std::once_flag once;
    std::call_once(once, [] {
        const char* name = "libavdevice.so." AV_STRINGIFY(LIBAVDEVICE_VERSION_MAJOR);
        void* library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
        const auto registerAll =
            library ? reinterpret_cast<void (*)()>(::dlsym(library, "avdevice_register_all"))
                    : nullptr;
        if (!registerAll) {
            problem = QStringLiteral("FFmpeg's device library %1 could not be loaded (%2); "
                                     "install the package libavdevice%3.")
                          .arg(QLatin1String(name), QString::fromLocal8Bit(::dlerror()))
                          .arg(LIBAVDEVICE_VERSION_MAJOR);
            return;
        }
        registerAll();
    });
    return problem;
}

} // namespace

CameraStreamSource::CameraStreamSource(const QString& id) : m_id(id), m_stream(std::make_unique<Stream>())
{
    const QString devicesProblem = loadDevices();
    Stream& s = *m_stream;
    const QByteArray path = QFile::encodeName(id);
    const bool device = isCharacterDevice(id);
    s.file = !device;
    if (!device && !QFileInfo(id).isFile()) {
        throw Error(QCoreApplication::translate("nubo::CameraStreamSource",
                                                "The camera “%1” is not connected.")
                        .arg(id));
    }
    // A camera: MJPEG at about 640 × 360 first (cheap to move and decode),
    // then MJPEG at any size, then whatever it gives.
    const AVInputFormat* input = device ? av_find_input_format("video4linux2") : nullptr;
    if (device && !input) {
        throw Error(QStringLiteral("The camera \u201c%1\u201d cannot be opened: %2")
                        .arg(id, devicesProblem.isEmpty()
                                     ? QStringLiteral("FFmpeg has no video4linux2 input.")
                                     : devicesProblem));
    }
    const std::vector<std::vector<std::pair<const char*, const char*>>> attempts =
        device ? std::vector<std::vector<std::pair<const char*, const char*>>>{
                     {{"input_format", "mjpeg"}, {"video_size", "640x360"}, {"framerate", "30"}},
                     {{"input_format", "mjpeg"}, {"framerate", "30"}},
                     {{"input_format", "mjpeg"}},
                     {}}
               : std::vector<std::vector<std::pair<const char*, const char*>>>{{}};
    int status = AVERROR(ENODEV);
    for (const auto& attempt : attempts) {
        media::Dictionary options;
        for (const auto& [key, value] : attempt) {
            options.set(key, value);
        }
        // Stopping never waits on a camera that went quiet.
        AVFormatContext* format = avformat_alloc_context();
        format->interrupt_callback = {[](void* stop) -> int {
                                          return static_cast<std::atomic<bool>*>(stop)->load();
                                      },
                                      &m_stop};
        // Frees the context itself when it fails.
        status = avformat_open_input(&format, path.constData(), input, options.get());
        if (status >= 0) {
            s.format.reset(format);
            break;
        }
    }
    if (status < 0) {
        throw Error(QCoreApplication::translate("nubo::CameraStreamSource",
                                                "The camera “%1” cannot be opened: %2.")
                        .arg(id, mediaErrorText(status)));
    }
    if ((status = avformat_find_stream_info(s.format.get(), nullptr)) < 0) {
        throw Error(QCoreApplication::translate("nubo::CameraStreamSource",
                                                "The camera “%1” gives no pictures: %2.")
                        .arg(id, mediaErrorText(status)));
    }
    const AVCodec* codec = nullptr;
    s.index = av_find_best_stream(s.format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
    if (s.index < 0 || !codec) {
        throw Error(
            QCoreApplication::translate("nubo::CameraStreamSource",
                                        "The camera “%1” gives no pictures that can be read.")
                .arg(id));
    }
    AVStream* stream = s.format->streams[s.index];
    s.timeBase = stream->time_base;
    s.decoder.reset(avcodec_alloc_context3(codec));
    avcodec_parameters_to_context(s.decoder.get(), stream->codecpar);
    s.decoder->thread_count = 1; // one picture at a time, without delay
    if ((status = avcodec_open2(s.decoder.get(), codec, nullptr)) < 0) {
        throw Error(QCoreApplication::translate("nubo::CameraStreamSource",
                                                "The camera's pictures (%1) cannot be decoded: %2.")
                        .arg(QString::fromLatin1(codec->name), mediaErrorText(status)));
    }
    s.packet = media::packet();
    s.frame = media::frame();
    const AVRational rate = stream->avg_frame_rate.num > 0 ? stream->avg_frame_rate : stream->r_frame_rate;
    m_description = QStringLiteral("%1 %2x%3 at %4 fps")
                        .arg(QString::fromLatin1(codec->name))
                        .arg(stream->codecpar->width)
                        .arg(stream->codecpar->height)
                        .arg(rate.num > 0 ? av_q2d(rate) : 0.0, 0, 'g', 3);
    qCInfo(lcCamera, "Camera %s: %s", qPrintable(id), qPrintable(m_description));
    m_thread = std::thread([this] { run(); });
}

CameraStreamSource::~CameraStreamSource()
{
    m_stop = true;
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

std::optional<CameraFrame> CameraStreamSource::latestFrame() const
{
    const std::lock_guard lock(m_mutex);
    if (m_latest.image.isNull()) {
        return std::nullopt;
    }
    m_taken = true;
    return m_latest;
}

QString CameraStreamSource::failure() const
{
    const std::lock_guard lock(m_mutex);
    return m_failure;
}

void CameraStreamSource::run()
{
    pthread_setname_np(pthread_self(), "camera");
    Stream& s = *m_stream;
    using Clock = std::chrono::steady_clock;
    // A file is played at its own pace: each picture at its time from the first.
    std::optional<std::pair<Clock::time_point, int64_t>> pace;
    quint64 sequence = 0;
    QString failure;
    const auto deliver = [&](const AVFrame* frame) {
        QSize size(frame->width, frame->height);
        if (size.width() > widestPicture) {
            size = QSize(widestPicture, int(qint64(size.height()) * widestPicture / size.width()));
        }
        // JPEG's full-range YUV is said by the range, not by the old "J" formats.
        AVPixelFormat pixels = AVPixelFormat(frame->format);
        bool fullRange = frame->color_range == AVCOL_RANGE_JPEG;
        switch (pixels) {
        case AV_PIX_FMT_YUVJ420P: pixels = AV_PIX_FMT_YUV420P; fullRange = true; break;
        case AV_PIX_FMT_YUVJ422P: pixels = AV_PIX_FMT_YUV422P; fullRange = true; break;
        case AV_PIX_FMT_YUVJ444P: pixels = AV_PIX_FMT_YUV444P; fullRange = true; break;
        case AV_PIX_FMT_YUVJ440P: pixels = AV_PIX_FMT_YUV440P; fullRange = true; break;
        case AV_PIX_FMT_YUVJ411P: pixels = AV_PIX_FMT_YUV411P; fullRange = true; break;
        default: break;
        }
        const auto key = std::tuple(frame->width, frame->height, int(pixels), fullRange);
        if (!s.scaler || s.scalerKey != key) {
            s.scaler.reset(sws_getContext(frame->width, frame->height, pixels, size.width(),
                                          size.height(), AV_PIX_FMT_BGRA, SWS_BILINEAR,
                                          nullptr, nullptr, nullptr));
            if (s.scaler && fullRange) {
                int* table = nullptr;
                int* targetTable = nullptr;
                int sourceRange = 0, targetRange = 0, brightness = 0, contrast = 0, saturation = 0;
                sws_getColorspaceDetails(s.scaler.get(), &table, &sourceRange, &targetTable, &targetRange,
                                         &brightness, &contrast, &saturation);
                sws_setColorspaceDetails(s.scaler.get(), table, 1, targetTable, targetRange, brightness,
                                         contrast, saturation);
            }
            s.scalerKey = key;
        }
        QImage picture(size, QImage::Format_RGB32);
        if (!s.scaler || picture.isNull()) {
            return;
        }
        uint8_t* target[1] = {picture.bits()};
        const int stride[1] = {int(picture.bytesPerLine())};
        sws_scale(s.scaler.get(), frame->data, frame->linesize, 0, frame->height, target, stride);
        ++m_decoded;
        const std::lock_guard lock(m_mutex);
        if (!m_taken) {
            ++m_dropped; // nobody took the one before
        }
        m_latest = {picture, ++sequence};
        m_taken = false;
    };
    while (!m_stop) {
        int status = av_read_frame(s.format.get(), s.packet.get());
        if (status == AVERROR_EOF && s.file) {
            // Again from the start, at the same pace.
            av_seek_frame(s.format.get(), s.index, 0, AVSEEK_FLAG_BACKWARD);
            avcodec_flush_buffers(s.decoder.get());
            pace.reset();
            continue;
        }
        if (status == AVERROR(EAGAIN)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            continue;
        }
        if (status < 0) {
            failure =
                QCoreApplication::translate("nubo::CameraStreamSource", "The camera stopped: %1.")
                    .arg(mediaErrorText(status));
            break;
        }
        if (s.packet->stream_index != s.index) {
            av_packet_unref(s.packet.get());
            continue;
        }
        if (s.file && s.packet->pts != AV_NOPTS_VALUE) {
            const int64_t pts = s.packet->pts;
            if (!pace || pts < pace->second) {
                pace = std::pair(Clock::now(), pts);
            }
            const auto due = pace->first + std::chrono::microseconds(av_rescale_q(
                                               pts - pace->second, s.timeBase, AVRational{1, 1000000}));
            while (!m_stop && Clock::now() < due) {
                std::this_thread::sleep_until(std::min(due, Clock::now() + std::chrono::milliseconds(20)));
            }
        }
        status = avcodec_send_packet(s.decoder.get(), s.packet.get());
        av_packet_unref(s.packet.get());
        if (status < 0 && status != AVERROR(EAGAIN)) {
            // One broken picture (a torn JPEG) is skipped, not the camera.
            qCDebug(lcCamera, "A camera picture could not be decoded: %s", qPrintable(mediaErrorText(status)));
            continue;
        }
        while (avcodec_receive_frame(s.decoder.get(), s.frame.get()) >= 0) {
            deliver(s.frame.get());
            av_frame_unref(s.frame.get());
        }
    }
    if (!failure.isEmpty()) {
        qCWarning(lcCamera, "%s (%s)", qPrintable(failure), qPrintable(m_id));
        const std::lock_guard lock(m_mutex);
        m_failure = failure;
    }
}

QList<CameraDevice> CameraStreamSource::cameras()
{
    // Lasting names first: by-id links to the device nodes.
    QHash<QString, QString> lasting;
    const QDir byId(QStringLiteral("/dev/v4l/by-id"));
    for (const QFileInfo& link : byId.entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot)) {
        lasting.insert(link.canonicalFilePath(), link.absoluteFilePath());
    }
    QList<CameraDevice> found;
    const QDir dev(QStringLiteral("/dev"));
    QStringList nodes = dev.entryList({QStringLiteral("video*")}, QDir::System | QDir::Files);
    std::sort(nodes.begin(), nodes.end(), [](const QString& a, const QString& b) {
        return a.mid(5).toInt() < b.mid(5).toInt();
    });
    for (const QString& node : nodes) {
        const QString path = dev.filePath(node);
        if (const std::optional<QString> name = captureDeviceName(path)) {
            found.append({lasting.value(path, path), name->isEmpty() ? node : *name});
        }
    }
    return found;
}

std::optional<CameraDevice> CameraStreamSource::streamFile(const QString& id)
{
    const QFileInfo info(id);
    if (id.isEmpty() || !info.isAbsolute() || !info.isFile() || !info.isReadable()) {
        return std::nullopt;
    }
    return CameraDevice{id, info.fileName()};
}

std::optional<CameraDevice> CameraStreamSource::chosen(const ShotPreferences& preferences,
                                                       const QList<CameraDevice>& cameras)
{
    if (const std::optional<QString> stored = preferences.string(keys::recordingAvatarCameraDeviceID)) {
        for (const CameraDevice& camera : cameras) {
            if (camera.id == *stored) {
                return camera;
            }
        }
        if (std::optional<CameraDevice> file = streamFile(*stored)) {
            return file;
        }
    }
    if (cameras.isEmpty()) {
        return std::nullopt;
    }
    return cameras.first();
}

} // namespace nubo
