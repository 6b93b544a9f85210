#include "capture/portal/PipeWireFrames.h"

#include "core/Error.h"
#include "core/Logging.h"

#include <condition_variable>
#include <cstring>
#include <list>
#include <unistd.h>
#include <mutex>

#include <pipewire/pipewire.h>
#include <spa/buffer/meta.h>
#include <spa/utils/result.h>
#include <spa/param/video/format-utils.h>
#include <spa/pod/builder.h>

namespace nubo {

namespace {

void initialisePipeWire()
{
    static std::once_flag once;
    std::call_once(once, [] { pw_init(nullptr, nullptr); });
}

constexpr int cursorSide = 256; // the largest pointer bitmap asked for
constexpr size_t cursorMetaSize =
    sizeof(spa_meta_cursor) + sizeof(spa_meta_bitmap) + cursorSide * cursorSide * 4;

// The formats we copy out without conversion, B, G, R, X in memory first.
const spa_video_format acceptedFormats[] = {SPA_VIDEO_FORMAT_BGRx, SPA_VIDEO_FORMAT_BGRA,
                                            SPA_VIDEO_FORMAT_RGBx, SPA_VIDEO_FORMAT_RGBA};

// Rows of 32-bit pixels into Format_RGB32, opaque; R and B swapped for the
// R, G, B, X orders.
void copyRows(QImage& out, const uchar* source, int stride, bool swapRedBlue)
{
    const int width = out.width();
    for (int y = 0; y < out.height(); ++y) {
        const auto* in = reinterpret_cast<const uint32_t*>(source + qsizetype(y) * stride);
        auto* row = reinterpret_cast<uint32_t*>(out.scanLine(y));
        if (swapRedBlue) {
            for (int x = 0; x < width; ++x) {
                const uint32_t p = in[x];
                row[x] = 0xff000000u | ((p & 0xffu) << 16) | (p & 0xff00u) | ((p >> 16) & 0xffu);
            }
        } else {
            for (int x = 0; x < width; ++x) {
                row[x] = in[x] | 0xff000000u;
            }
        }
    }
}

QImage bitmapImage(const spa_meta_bitmap* bitmap)
{
    if (bitmap->size.width == 0 || bitmap->size.height == 0 ||
        bitmap->size.width > cursorSide || bitmap->size.height > cursorSide) {
        return {};
    }
    const auto* pixels = reinterpret_cast<const uchar*>(bitmap) + bitmap->offset;
    QImage::Format format = QImage::Format_Invalid;
    switch (bitmap->format) {
    case SPA_VIDEO_FORMAT_BGRA:
        format = QImage::Format_ARGB32;
        break;
    case SPA_VIDEO_FORMAT_RGBA:
        format = QImage::Format_RGBA8888;
        break;
    default:
        return {};
    }
    return QImage(pixels, int(bitmap->size.width), int(bitmap->size.height), bitmap->stride, format)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

struct PipeWireFrames::Private {
    struct Stream {
        Private* owner = nullptr;
        pw_stream* stream = nullptr;
        spa_hook listener{};
        spa_video_info_raw format{};
        quint32 node = 0;
        int framesPerSecond = 0;
        bool negotiated = false;
        std::optional<Frame> latest; // guarded by the owner's mutex
        // A picture nobody holds any more, filled again by the next frame:
        // PipeWire's thread only. Saves mapping fresh pages for every frame.
        QImage spare;
        quint64 sequence = 0;
        Cursor cursor;
        bool hasCursor = false;
        QString failure;
        bool ended = false;
    };

    pw_thread_loop* loop = nullptr;
    pw_context* context = nullptr;
    pw_core* core = nullptr;
    spa_hook coreListener{};
    std::list<Stream> streams; // stable addresses for PipeWire's callbacks
    std::mutex mutex;
    std::condition_variable arrived;
    bool stopped = false;
    QString coreFailure;

    static void onCoreError(void* data, uint32_t id, int, int res, const char* message)
    {
        auto* self = static_cast<Private*>(data);
        if (id == PW_ID_CORE) {
            const std::lock_guard lock(self->mutex);
            self->coreFailure = QStringLiteral("PipeWire: %1 (%2)")
                                    .arg(QString::fromUtf8(message),
                                         QString::fromLocal8Bit(spa_strerror(res)));
            self->arrived.notify_all();
        }
    }

    static void onStateChanged(void* data, pw_stream_state, pw_stream_state state, const char* error)
    {
        auto* s = static_cast<Stream*>(data);
        if (state == PW_STREAM_STATE_ERROR || state == PW_STREAM_STATE_UNCONNECTED) {
            const std::lock_guard lock(s->owner->mutex);
            s->ended = true;
            s->failure = error ? QString::fromUtf8(error) : QStringLiteral("the stream ended");
            s->owner->arrived.notify_all();
        }
    }

    static void onParamChanged(void* data, uint32_t id, const spa_pod* param)
    {
        auto* s = static_cast<Stream*>(data);
        if (!param || id != SPA_PARAM_Format) {
            return;
        }
        uint32_t mediaType = 0, mediaSubtype = 0;
        if (spa_format_parse(param, &mediaType, &mediaSubtype) < 0 ||
            mediaType != SPA_MEDIA_TYPE_video || mediaSubtype != SPA_MEDIA_SUBTYPE_raw) {
            return;
        }
        spa_format_video_raw_parse(param, &s->format);
        s->negotiated = true;
        qCInfo(lcCapture, "PipeWire stream: %u×%u, format %u", s->format.size.width,
               s->format.size.height, unsigned(s->format.format));

        // Shared memory only; a header, the damage crop and the pointer.
        uint8_t buffer[1024];
        spa_pod_builder b = SPA_POD_BUILDER_INIT(buffer, sizeof(buffer));
        const spa_pod* params[3];
        spa_pod_frame f[2];
        spa_pod_builder_push_object(&b, &f[0], SPA_TYPE_OBJECT_ParamBuffers, SPA_PARAM_Buffers);
        spa_pod_builder_prop(&b, SPA_PARAM_BUFFERS_dataType, 0);
        spa_pod_builder_push_choice(&b, &f[1], SPA_CHOICE_Flags, 0);
        spa_pod_builder_int(&b, (1 << SPA_DATA_MemPtr) | (1 << SPA_DATA_MemFd));
        spa_pod_builder_pop(&b, &f[1]);
        params[0] = static_cast<const spa_pod*>(spa_pod_builder_pop(&b, &f[0]));

        spa_pod_builder_push_object(&b, &f[0], SPA_TYPE_OBJECT_ParamMeta, SPA_PARAM_Meta);
        spa_pod_builder_prop(&b, SPA_PARAM_META_type, 0);
        spa_pod_builder_id(&b, SPA_META_VideoCrop);
        spa_pod_builder_prop(&b, SPA_PARAM_META_size, 0);
        spa_pod_builder_int(&b, sizeof(spa_meta_region));
        params[1] = static_cast<const spa_pod*>(spa_pod_builder_pop(&b, &f[0]));

        spa_pod_builder_push_object(&b, &f[0], SPA_TYPE_OBJECT_ParamMeta, SPA_PARAM_Meta);
        spa_pod_builder_prop(&b, SPA_PARAM_META_type, 0);
        spa_pod_builder_id(&b, SPA_META_Cursor);
        spa_pod_builder_prop(&b, SPA_PARAM_META_size, 0);
        spa_pod_builder_int(&b, int(cursorMetaSize));
        params[2] = static_cast<const spa_pod*>(spa_pod_builder_pop(&b, &f[0]));
        pw_stream_update_params(s->stream, params, 3);
    }

    static void readCursor(Stream* s, spa_buffer* buffer)
    {
        auto* meta = static_cast<spa_meta_cursor*>(
            spa_buffer_find_meta_data(buffer, SPA_META_Cursor, sizeof(spa_meta_cursor)));
        if (!meta) {
            return;
        }
        s->hasCursor = true;
        if (!spa_meta_cursor_is_valid(meta)) {
            s->cursor.visible = false;
            return;
        }
        s->cursor.visible = true;
        s->cursor.position = QPoint(meta->position.x, meta->position.y);
        s->cursor.hotspot = QPoint(meta->hotspot.x, meta->hotspot.y);
        if (meta->bitmap_offset >= sizeof(spa_meta_cursor)) {
            const auto* bitmap = SPA_PTROFF(meta, meta->bitmap_offset, spa_meta_bitmap);
            const QImage image = bitmapImage(bitmap);
            if (!image.isNull()) {
                s->cursor.image = image;
            }
        }
    }

    // Offers the formats taken and links the stream to its node.
    static int link(Stream& s)
    {
        uint8_t buffer[1024];
        spa_pod_builder b = SPA_POD_BUILDER_INIT(buffer, sizeof(buffer));
        spa_pod_frame f[2];
        spa_pod_builder_push_object(&b, &f[0], SPA_TYPE_OBJECT_Format, SPA_PARAM_EnumFormat);
        spa_pod_builder_prop(&b, SPA_FORMAT_mediaType, 0);
        spa_pod_builder_id(&b, SPA_MEDIA_TYPE_video);
        spa_pod_builder_prop(&b, SPA_FORMAT_mediaSubtype, 0);
        spa_pod_builder_id(&b, SPA_MEDIA_SUBTYPE_raw);
        spa_pod_builder_prop(&b, SPA_FORMAT_VIDEO_format, 0);
        spa_pod_builder_push_choice(&b, &f[1], SPA_CHOICE_Enum, 0);
        spa_pod_builder_id(&b, acceptedFormats[0]); // the default
        for (const spa_video_format format : acceptedFormats) {
            spa_pod_builder_id(&b, format);
        }
        spa_pod_builder_pop(&b, &f[1]);
        spa_pod_builder_prop(&b, SPA_FORMAT_VIDEO_size, 0);
        spa_pod_builder_push_choice(&b, &f[1], SPA_CHOICE_Range, 0);
        spa_pod_builder_rectangle(&b, 1920, 1080);
        spa_pod_builder_rectangle(&b, 1, 1);
        spa_pod_builder_rectangle(&b, 16384, 16384);
        spa_pod_builder_pop(&b, &f[1]);
        spa_pod_builder_prop(&b, SPA_FORMAT_VIDEO_framerate, 0);
        spa_pod_builder_push_choice(&b, &f[1], SPA_CHOICE_Range, 0);
        spa_pod_builder_fraction(&b, 30, 1);
        spa_pod_builder_fraction(&b, 0, 1);
        spa_pod_builder_fraction(&b, 1000, 1);
        spa_pod_builder_pop(&b, &f[1]);
        if (s.framesPerSecond > 0) {
            // No more pictures than are taken: each one is copied out.
            spa_pod_builder_prop(&b, SPA_FORMAT_VIDEO_maxFramerate, 0);
            spa_pod_builder_push_choice(&b, &f[1], SPA_CHOICE_Range, 0);
            spa_pod_builder_fraction(&b, uint32_t(s.framesPerSecond), 1);
            spa_pod_builder_fraction(&b, 1, 1);
            spa_pod_builder_fraction(&b, uint32_t(s.framesPerSecond), 1);
            spa_pod_builder_pop(&b, &f[1]);
        }
        const spa_pod* params[] = {static_cast<const spa_pod*>(spa_pod_builder_pop(&b, &f[0]))};
        return pw_stream_connect(s.stream, PW_DIRECTION_INPUT, s.node,
                                 pw_stream_flags(PW_STREAM_FLAG_AUTOCONNECT |
                                                 PW_STREAM_FLAG_MAP_BUFFERS),
                                 params, 1);
    }

    static void onProcess(void* data)
    {
        auto* s = static_cast<Stream*>(data);
        pw_buffer* newest = nullptr;
        // Only the newest picture matters: older ones go back at once.
        while (pw_buffer* b = pw_stream_dequeue_buffer(s->stream)) {
            if (newest) {
                pw_stream_queue_buffer(s->stream, newest);
            }
            newest = b;
        }
        if (!newest) {
            return;
        }
        spa_buffer* buffer = newest->buffer;
        readCursor(s, buffer);
        const auto* header = static_cast<spa_meta_header*>(
            spa_buffer_find_meta_data(buffer, SPA_META_Header, sizeof(spa_meta_header)));
        const spa_data& plane = buffer->datas[0];
        const bool corrupted = header && (header->flags & SPA_META_HEADER_FLAG_CORRUPTED);
        const bool usable = s->negotiated && plane.data && plane.chunk && plane.chunk->size > 0 &&
                            !(plane.chunk->flags & SPA_CHUNK_FLAG_CORRUPTED) && !corrupted;
        std::optional<Frame> frame;
        if (usable) {
            const int width = int(s->format.size.width), height = int(s->format.size.height);
            const int stride = plane.chunk->stride > 0 ? plane.chunk->stride : width * 4;
            QRect area(0, 0, width, height);
            if (const auto* crop = static_cast<spa_meta_region*>(
                    spa_buffer_find_meta_data(buffer, SPA_META_VideoCrop, sizeof(spa_meta_region)));
                crop && spa_meta_region_is_valid(crop)) {
                area &= QRect(crop->region.position.x, crop->region.position.y,
                              int(crop->region.size.width), int(crop->region.size.height));
            }
            const auto* pixels = static_cast<const uchar*>(plane.data) + plane.chunk->offset;
            if (!area.isEmpty() && qsizetype(stride) * (area.bottom() + 1) <= qsizetype(plane.maxsize)) {
                QImage image = s->spare.size() == area.size() && s->spare.isDetached()
                                   ? std::move(s->spare)
                                   : QImage(area.size(), QImage::Format_RGB32);
                s->spare = QImage();
                const bool swap = s->format.format == SPA_VIDEO_FORMAT_RGBx ||
                                  s->format.format == SPA_VIDEO_FORMAT_RGBA;
                copyRows(image, pixels + qsizetype(area.y()) * stride + area.x() * 4, stride, swap);
                frame = Frame{image, std::nullopt, std::chrono::steady_clock::now(), 0};
            }
        }
        pw_stream_queue_buffer(s->stream, newest);
        std::optional<Frame> replaced;
        const std::lock_guard lock(s->owner->mutex);
        if (frame) {
            if (s->hasCursor) {
                frame->cursor = s->cursor;
            }
            frame->sequence = ++s->sequence;
            replaced = std::exchange(s->latest, std::move(frame));
            s->owner->arrived.notify_all();
            // Out of `latest`, no one can take a new reference to it: held by
            // nobody else now, it is the next frame's picture.
            if (replaced && replaced->image.isDetached()) {
                s->spare = std::move(replaced->image);
            }
        } else if (s->hasCursor && s->latest) {
            // A pointer that moved over a still screen.
            s->latest->cursor = s->cursor;
            s->latest->sequence = ++s->sequence;
            s->owner->arrived.notify_all();
        }
    }
};

PipeWireFrames::PipeWireFrames(int fd) : d(std::make_unique<Private>())
{
    initialisePipeWire();
    d->loop = pw_thread_loop_new("nubo.pipewire", nullptr);
    if (!d->loop) {
        close(fd);
        throw Error(QStringLiteral("PipeWire's thread cannot be started."));
    }
    d->context = pw_context_new(pw_thread_loop_get_loop(d->loop), nullptr, 0);
    if (!d->context || pw_thread_loop_start(d->loop) < 0) {
        close(fd);
        throw Error(QStringLiteral("PipeWire cannot be set up."));
    }
    static const pw_core_events coreEvents = [] {
        pw_core_events e{};
        e.version = PW_VERSION_CORE_EVENTS;
        e.error = &Private::onCoreError;
        return e;
    }();
    pw_thread_loop_lock(d->loop);
    d->core = pw_context_connect_fd(d->context, fd, nullptr, 0); // owns fd from here
    if (d->core) {
        pw_core_add_listener(d->core, &d->coreListener, &coreEvents, d.get());
    }
    pw_thread_loop_unlock(d->loop);
    if (!d->core) {
        throw Error(QStringLiteral("The screen cast's PipeWire connection failed: %1")
                        .arg(QString::fromLocal8Bit(strerror(errno))));
    }
}

PipeWireFrames::~PipeWireFrames()
{
    stop();
    if (d->loop) {
        pw_thread_loop_stop(d->loop);
    }
    for (Private::Stream& s : d->streams) {
        if (s.stream) {
            spa_hook_remove(&s.listener);
            pw_stream_destroy(s.stream);
        }
    }
    if (d->core) {
        spa_hook_remove(&d->coreListener);
        pw_core_disconnect(d->core);
    }
    if (d->context) {
        pw_context_destroy(d->context);
    }
    if (d->loop) {
        pw_thread_loop_destroy(d->loop);
    }
}

int PipeWireFrames::connect(quint32 node, int framesPerSecond)
{
    static const pw_stream_events streamEvents = [] {
        pw_stream_events e{};
        e.version = PW_VERSION_STREAM_EVENTS;
        e.state_changed = &Private::onStateChanged;
        e.param_changed = &Private::onParamChanged;
        e.process = &Private::onProcess;
        return e;
    }();
    pw_thread_loop_lock(d->loop);
    Private::Stream& s = d->streams.emplace_back();
    s.owner = d.get();
    s.node = node;
    s.framesPerSecond = framesPerSecond;
    s.stream = pw_stream_new(d->core, "Nubo Shot",
                             pw_properties_new(PW_KEY_MEDIA_TYPE, "Video", PW_KEY_MEDIA_CATEGORY,
                                               "Capture", PW_KEY_MEDIA_ROLE, "Screen", nullptr));
    int result = -1;
    if (s.stream) {
        pw_stream_add_listener(s.stream, &s.listener, &streamEvents, &s);
        result = Private::link(s);
    }
    const int index = int(d->streams.size()) - 1;
    pw_thread_loop_unlock(d->loop);
    if (result < 0) {
        throw Error(QStringLiteral("The screen cast's stream %1 cannot be received: %2")
                        .arg(node)
                        .arg(QString::fromLocal8Bit(spa_strerror(result))));
    }
    return index;
}

void PipeWireFrames::relink(int stream)
{
    auto it = d->streams.begin();
    std::advance(it, stream);
    Private::Stream& s = *it;
    pw_thread_loop_lock(d->loop);
    pw_stream_disconnect(s.stream);
    {
        // Unlinked on purpose: not an end.
        const std::lock_guard lock(d->mutex);
        s.ended = false;
        s.failure.clear();
    }
    s.negotiated = false;
    const int result = Private::link(s);
    pw_thread_loop_unlock(d->loop);
    if (result < 0) {
        throw Error(QStringLiteral("The screen cast's stream %1 cannot be received: %2")
                        .arg(s.node)
                        .arg(QString::fromLocal8Bit(spa_strerror(result))));
    }
}

std::optional<PipeWireFrames::Frame> PipeWireFrames::next(int stream, quint64 after,
                                                          std::chrono::milliseconds timeout)
{
    auto it = d->streams.begin();
    std::advance(it, stream);
    Private::Stream& s = *it;
    std::unique_lock lock(d->mutex);
    const bool ready = d->arrived.wait_for(lock, timeout, [&] {
        return d->stopped || s.ended || !d->coreFailure.isEmpty() ||
               (s.latest && s.latest->sequence > after);
    });
    if (!d->coreFailure.isEmpty()) {
        throw Error(QStringLiteral("The screen cast failed: %1").arg(d->coreFailure));
    }
    if (d->stopped || !ready) {
        return std::nullopt;
    }
    if (s.latest && s.latest->sequence > after) {
        return s.latest;
    }
    throw Error(QStringLiteral("The screen cast's stream ended: %1").arg(s.failure));
}

void PipeWireFrames::stop()
{
    const std::lock_guard lock(d->mutex);
    d->stopped = true;
    d->arrived.notify_all();
}

} // namespace nubo
