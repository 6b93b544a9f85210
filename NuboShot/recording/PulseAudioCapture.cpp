#include "recording/PulseAudioCapture.h"

#include "core/Logging.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <vector>

#include <QCoreApplication>

#include <pulse/pulseaudio.h>
#include <pulse/rtclock.h>

extern "C" {

#include <libavutil/samplefmt.h>
}

namespace nubo {

// ---- Clock ----

RecordingDuration RecordingAudioSourceClock::at(qint64 frames) const
{
    return *m_anchor + RecordingDuration(qint64(std::llround(double(frames - m_anchorFrames) *
                                                             m_microsecondsPerFrame)));
}

RecordingDuration RecordingAudioSourceClock::place(qint64 frames, RecordingDuration measured)
{
    const double nominal = 1e6 / m_rate;
    if (!m_anchor) {
        m_anchor = measured;
        m_microsecondsPerFrame = nominal;
    }
    const RecordingDuration placed = at(m_frames);
    const RecordingDuration error = measured - placed;
    m_windowError = m_windowError ? std::min(*m_windowError, error) : error;
    m_shortError = m_shortError ? std::min(*m_shortError, error) : error;
    // Where this fragment lies against the server's nominal pace: the
    // earliest of each window, kept for a while, gives the real pace.
    const double raw = double(measured.count()) - double(m_frames) * nominal;
    if (!m_windowLowest || raw < m_windowLowest->second) {
        m_windowLowest = std::pair(m_frames, raw);
    }
    m_frames += frames;
    m_windowFrames += frames;
    m_shortFrames += frames;
    if (m_shortFrames >= m_rate / 2) {
        // Half a second entirely off by more than 60 ms is taken at once.
        // When it came suddenly (audio lost, a stalled server) rather than
        // growing (a pace not learnt yet), the pace is learnt afresh.
        const bool sudden =
            m_previousShort && std::chrono::abs(*m_shortError - *m_previousShort) > jump / 2;
        m_previousShort = *m_shortError;
        if (*m_shortError > jump || *m_shortError < -jump) {
            if (sudden) {
                m_lowest.clear();
                m_windowLowest.reset();
            }
            m_previousShort = RecordingDuration(0);
            qCDebug(lcRecording, "Audio clock: a jump of %lld µs",
                    static_cast<long long>(m_shortError->count()));
            m_anchor = at(m_frames) + *m_shortError;
            m_anchorFrames = m_frames;
            m_windowError.reset();
            ++m_corrections;
        }
        m_shortFrames = 0;
        m_shortError.reset();
    }
    if (m_windowFrames >= 2 * qint64(m_rate)) { // two seconds of audio
        m_lowest.push_back(*m_windowLowest);
        if (m_lowest.size() > 16) { // about half a minute
            m_lowest.erase(m_lowest.begin());
        }
        const auto& [fromFrames, fromRaw] = m_lowest.front();
        const auto& [toFrames, toRaw] = m_lowest.back();
        if (toFrames - fromFrames >= 2 * qint64(m_rate)) {
            // The new pace counts from here on, not back to the anchor.
            m_anchor = at(m_frames);
            m_anchorFrames = m_frames;
            const double pace = nominal + (toRaw - fromRaw) / double(toFrames - fromFrames);
            m_microsecondsPerFrame = std::clamp(pace, nominal * 0.95, nominal * 1.05);
        }
        if (m_windowError && (*m_windowError > tolerance || *m_windowError < -tolerance)) {
            qCDebug(lcRecording, "Audio clock: moved by %lld µs",
                    static_cast<long long>(m_windowError->count()));
            m_anchor = at(m_frames) + *m_windowError;
            m_anchorFrames = m_frames;
            ++m_corrections;
        }
        m_windowFrames = 0;
        m_windowError.reset();
        m_windowLowest.reset();
    }
    return placed;
}

// ---- The server ----

namespace {

using SampleFormat = pa_sample_spec; // the library's name for a sample format

constexpr pa_usec_t connectTimeout = 3 * PA_USEC_PER_SEC;

// A connection to the audio server with a thread of its own.
class Connection {
public:
    Connection()
    {
        loop = pa_threaded_mainloop_new();
        if (!loop || pa_threaded_mainloop_start(loop) < 0) {
            throw Error(QCoreApplication::translate(
                "nubo::PulseAudioCapture", "The audio server cannot be reached: no event loop."));
        }
        pa_threaded_mainloop_set_name(loop, "recording-pulse");
    }

    ~Connection()
    {
        pa_threaded_mainloop_lock(loop);
        if (context) {
            pa_context_set_state_callback(context, nullptr, nullptr);
            pa_context_disconnect(context);
            pa_context_unref(context);
        }
        pa_threaded_mainloop_unlock(loop);
        pa_threaded_mainloop_stop(loop);
        pa_threaded_mainloop_free(loop);
    }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // With the loop locked. Throws Error naming why.
    void connect()
    {
        context = pa_context_new(pa_threaded_mainloop_get_api(loop), "Nubo Shot");
        if (!context) {
            throw Error(
                QCoreApplication::translate("nubo::PulseAudioCapture", "No audio server answers."));
        }
        pa_context_set_state_callback(context, &Connection::stateChanged, this);
        if (pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
            throw Error(QCoreApplication::translate("nubo::PulseAudioCapture",
                                                    "No audio server answers: %1.")
                            .arg(reason()));
        }
        bool timedOut = false;
        pa_time_event* timer = pa_context_rttime_new(
            context, pa_rtclock_now() + connectTimeout,
            [](pa_mainloop_api*, pa_time_event*, const timeval*, void* flag) {
                *static_cast<bool*>(flag) = true;
            },
            &timedOut);
        while (true) {
            const pa_context_state_t state = pa_context_get_state(context);
            if (state == PA_CONTEXT_READY) {
                break;
            }
            if (!PA_CONTEXT_IS_GOOD(state)) {
                pa_threaded_mainloop_get_api(loop)->time_free(timer);
                throw Error(QCoreApplication::translate("nubo::PulseAudioCapture",
                                                        "No audio server answers: %1.")
                                .arg(reason()));
            }
            if (timedOut) {
                throw Error(QCoreApplication::translate(
                    "nubo::PulseAudioCapture",
                    "No audio server answers: it did not reply in time."));
            }
            pa_threaded_mainloop_wait(loop);
        }
        pa_threaded_mainloop_get_api(loop)->time_free(timer);
        ready = true;
    }

    // Waits for an operation, with the loop locked; false when the
    // connection broke meanwhile.
    bool finish(pa_operation* operation)
    {
        if (!operation) {
            return false;
        }
        pa_operation_set_state_callback(
            operation, [](pa_operation*, void* l) {
                pa_threaded_mainloop_signal(static_cast<pa_threaded_mainloop*>(l), 0);
            },
            loop);
        while (pa_operation_get_state(operation) == PA_OPERATION_RUNNING &&
               PA_CONTEXT_IS_GOOD(pa_context_get_state(context))) {
            pa_threaded_mainloop_wait(loop);
        }
        const bool done = pa_operation_get_state(operation) == PA_OPERATION_DONE;
        pa_operation_unref(operation);
        return done;
    }

    QString reason() const
    {
        return QString::fromUtf8(pa_strerror(context ? pa_context_errno(context) : PA_ERR_UNKNOWN));
    }

    pa_threaded_mainloop* loop = nullptr;
    pa_context* context = nullptr;
    bool ready = false;
    std::function<void()> lost; // on the loop's thread, when a ready connection breaks

private:
    static void stateChanged(pa_context* c, void* self)
    {
        auto* connection = static_cast<Connection*>(self);
        if (connection->ready && !PA_CONTEXT_IS_GOOD(pa_context_get_state(c)) && connection->lost) {
            connection->lost();
        }
        pa_threaded_mainloop_signal(connection->loop, 0);
    }
};

class LoopLock {
public:
    explicit LoopLock(pa_threaded_mainloop* loop) : m_loop(loop) { pa_threaded_mainloop_lock(m_loop); }
    ~LoopLock() { pa_threaded_mainloop_unlock(m_loop); }
    LoopLock(const LoopLock&) = delete;
    LoopLock& operator=(const LoopLock&) = delete;

private:
    pa_threaded_mainloop* m_loop;
};

struct ServerDefaults {
    QString sink;
    QString source;
};

struct SourceDetails {
    QString name;
    QString description;
    SampleFormat format{};
    pa_channel_map map{};
    bool monitor = false;
};

template <class T> struct Answer {
    Connection* connection;
    T value;
    bool found = false;
};

ServerDefaults serverDefaults(Connection& c)
{
    Answer<ServerDefaults> answer{&c, {}};
    const bool done = c.finish(pa_context_get_server_info(
        c.context,
        [](pa_context*, const pa_server_info* info, void* a) {
            auto* answer = static_cast<Answer<ServerDefaults>*>(a);
            if (info) {
                answer->value.sink = QString::fromUtf8(info->default_sink_name);
                answer->value.source = QString::fromUtf8(info->default_source_name);
                answer->found = true;
            }
            pa_threaded_mainloop_signal(answer->connection->loop, 0);
        },
        &answer));
    if (!done || !answer.found) {
        throw Error(QCoreApplication::translate("nubo::PulseAudioCapture",
                                                "The audio server did not answer: %1.")
                        .arg(c.reason()));
    }
    return answer.value;
}

SourceDetails details(const pa_source_info* info)
{
    return {QString::fromUtf8(info->name), QString::fromUtf8(info->description),
            info->sample_spec, info->channel_map, info->monitor_of_sink != PA_INVALID_INDEX};
}

void collectSource(pa_context*, const pa_source_info* info, int eol, void* a)
{
    auto* answer = static_cast<Answer<std::vector<SourceDetails>>*>(a);
    if (eol == 0 && info) {
        answer->value.push_back(details(info));
    }
    pa_threaded_mainloop_signal(answer->connection->loop, 0);
}

std::vector<SourceDetails> sources(Connection& c)
{
    Answer<std::vector<SourceDetails>> answer{&c, {}};
    if (!c.finish(pa_context_get_source_info_list(c.context, collectSource, &answer))) {
        throw Error(QCoreApplication::translate("nubo::PulseAudioCapture",
                                                "The audio server did not answer: %1.")
                        .arg(c.reason()));
    }
    return answer.value;
}

std::optional<SourceDetails> source(Connection& c, const QString& name)
{
    Answer<std::vector<SourceDetails>> answer{&c, {}};
    const QByteArray utf8 = name.toUtf8();
    c.finish(pa_context_get_source_info_by_name(c.context, utf8.constData(), collectSource, &answer));
    if (answer.value.empty()) {
        return std::nullopt;
    }
    return answer.value.front();
}

QString monitorOf(Connection& c, const QString& sink)
{
    Answer<QString> answer{&c, {}};
    const QByteArray utf8 = sink.toUtf8();
    c.finish(pa_context_get_sink_info_by_name(
        c.context, utf8.constData(),
        [](pa_context*, const pa_sink_info* info, int eol, void* a) {
            auto* answer = static_cast<Answer<QString>*>(a);
            if (eol == 0 && info && info->monitor_source_name) {
                answer->value = QString::fromUtf8(info->monitor_source_name);
            }
            pa_threaded_mainloop_signal(answer->connection->loop, 0);
        },
        &answer));
    return answer.value;
}

} // namespace

QString RecordingAudioServer::whatToInstall()
{
    return QCoreApplication::translate(
        "nubo::PulseAudioCapture", "No sound server answers: install PipeWire (pipewire-pulse) or "
                                   "PulseAudio and log in again.");
}

std::optional<QString> RecordingAudioServer::unavailable()
{
    try {
        Connection c;
        const LoopLock lock(c.loop);
        c.connect();
        return std::nullopt;
    } catch (const Error& error) {
        return error.message();
    }
}

QList<RecordingAudioDevice> RecordingAudioServer::microphones()
{
    Connection c;
    const LoopLock lock(c.loop);
    c.connect();
    const ServerDefaults defaults = serverDefaults(c);
    QList<RecordingAudioDevice> list;
    for (const SourceDetails& s : sources(c)) {
        if (!s.monitor) {
            list.append({s.name, s.description, s.name == defaults.source});
        }
    }
    return list;
}

// ---- Capture ----

struct PulseAudioCapture::Impl {
    struct Stream {
        Impl* owner = nullptr;
        Source source = Source::system;
        QString device;
        pa_stream* stream = nullptr;
        SampleFormat format{};
        std::optional<RecordingAudioSourceClock> clock;
        std::vector<qint64> latencies; // µs, the first readings
        std::optional<RecordingDuration> latency;
        bool ended = false;
        RecordingDuration delivered = RecordingDuration::min(); // guarded by `mutex`
    };

    Callbacks callbacks;
    std::unique_ptr<Connection> connection;
    std::array<std::unique_ptr<Stream>, 2> streams; // system, microphone
    bool stopping = false;
    std::mutex mutex;
    std::condition_variable progressed;

    void open(Source source, const SourceDetails& from);
    void read(Stream& stream);
    void end(Stream& stream, const QString& reason);
};

void PulseAudioCapture::Impl::open(Source source, const SourceDetails& from)
{
    auto s = std::make_unique<Stream>();
    s->owner = this;
    s->source = source;
    s->device = from.name;
    s->format = SampleFormat{PA_SAMPLE_FLOAT32NE, from.format.rate, from.format.channels};
    s->clock.emplace(int(from.format.rate));
    const char* what = source == Source::system ? "Nubo Shot system audio" : "Nubo Shot microphone";
    s->stream = pa_stream_new(connection->context, what, &s->format, &from.map);
    const auto refuse = [&] {
        return Error(QCoreApplication::translate("nubo::PulseAudioCapture",
                                                 "The audio source “%1” cannot be recorded: %2.")
                         .arg(from.description, connection->reason()));
    };
    if (!s->stream) {
        throw refuse();
    }
    pa_stream_set_state_callback(
        s->stream,
        [](pa_stream* p, void* self) {
            auto* stream = static_cast<Stream*>(self);
            const pa_stream_state_t state = pa_stream_get_state(p);
            if (state == PA_STREAM_FAILED || state == PA_STREAM_TERMINATED) {
                stream->owner->end(*stream, stream->owner->connection->reason());
            }
            pa_threaded_mainloop_signal(stream->owner->connection->loop, 0);
        },
        s.get());
    pa_stream_set_read_callback(
        s->stream, [](pa_stream*, size_t, void* self) {
            auto* stream = static_cast<Stream*>(self);
            stream->owner->read(*stream);
        },
        s.get());
    // Ten-millisecond fragments; at most two seconds held by the server.
    pa_buffer_attr attributes{};
    attributes.maxlength = uint32_t(pa_usec_to_bytes(2 * PA_USEC_PER_SEC, &s->format));
    attributes.fragsize = uint32_t(pa_usec_to_bytes(10 * PA_USEC_PER_MSEC, &s->format));
    attributes.tlength = attributes.prebuf = attributes.minreq = uint32_t(-1);
    const QByteArray device = from.name.toUtf8();
    const auto flags = pa_stream_flags_t(PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE |
                                         PA_STREAM_INTERPOLATE_TIMING);
    if (pa_stream_connect_record(s->stream, device.constData(), &attributes, flags) < 0) {
        throw refuse();
    }
    while (pa_stream_get_state(s->stream) == PA_STREAM_CREATING) {
        pa_threaded_mainloop_wait(connection->loop);
    }
    if (pa_stream_get_state(s->stream) != PA_STREAM_READY) {
        throw refuse();
    }
    qCInfo(lcRecording, "Recording %s from %s (%s, %u Hz, %d channels)",
           source == Source::system ? "system audio" : "the microphone", device.constData(),
           qPrintable(from.description), from.format.rate, int(from.format.channels));
    streams[source == Source::system ? 0 : 1] = std::move(s);
}

void PulseAudioCapture::Impl::read(Stream& s)
{
    const size_t frameSize = pa_frame_size(&s.format);
    while (!stopping && pa_stream_readable_size(s.stream) > 0) {
        const void* data = nullptr;
        size_t bytes = 0;
        if (pa_stream_peek(s.stream, &data, &bytes) < 0 || bytes == 0) {
            break;
        }
        const qint64 frames = qint64(bytes / frameSize);
        if (!data) {
            s.clock->skip(frames); // the server lost these
        } else if (frames > 0) {
            // The oldest unread frame was captured the stream's latency ago.
            // Fragments arrive at the server's pace, but the latency it
            // reports was seen to wander by tens of milliseconds while the
            // real one stayed put (pipewire-pulse), so the median of the
            // first quarter second's readings stands for it from then on.
            if (!s.latency) {
                pa_usec_t latency = 0;
                int negative = 0;
                if (pa_stream_get_latency(s.stream, &latency, &negative) == 0) {
                    s.latencies.push_back(negative ? -qint64(latency) : qint64(latency));
                }
                if (s.latencies.size() >= 25) {
                    std::nth_element(s.latencies.begin(),
                                     s.latencies.begin() + qsizetype(s.latencies.size() / 2),
                                     s.latencies.end());
                    s.latency = RecordingDuration(s.latencies[s.latencies.size() / 2]);
                    qCDebug(lcRecording, "Audio latency of the %s: %lld µs",
                            s.source == Source::system ? "system audio" : "microphone",
                            static_cast<long long>(s.latency->count()));
                }
            }
            const RecordingDuration measured =
                callbacks.clock() -
                s.latency.value_or(RecordingDuration(s.latencies.empty() ? 0 : s.latencies.back()));
            const RecordingDuration at = s.clock->place(frames, measured);
            const uint8_t* planes[1] = {static_cast<const uint8_t*>(data)};
            const RecordingAudioInput input{int(s.format.rate), int(s.format.channels),
                                            AV_SAMPLE_FMT_FLT, planes, int(frames)};
            callbacks.deliver(s.source, input, at);
            {
                const std::lock_guard lock(mutex);
                s.delivered = at + RecordingDuration(frames * 1'000'000 / s.format.rate);
            }
            progressed.notify_all();
        }
        pa_stream_drop(s.stream);
    }
}

void PulseAudioCapture::Impl::end(Stream& s, const QString& reason)
{
    if (s.ended || stopping) {
        return;
    }
    {
        const std::lock_guard lock(mutex);
        s.ended = true;
    }
    progressed.notify_all();
    qCWarning(lcRecording, "The %s stopped: %s",
              s.source == Source::system ? "system audio" : "microphone", qPrintable(reason));
    if (callbacks.ended) {
        callbacks.ended(s.source, reason);
    }
}

PulseAudioCapture::PulseAudioCapture(Callbacks callbacks) : d(std::make_unique<Impl>())
{
    d->callbacks = std::move(callbacks);
}

PulseAudioCapture::~PulseAudioCapture()
{
    stop();
}

void PulseAudioCapture::start(bool system, bool microphone,
                              const std::optional<QString>& microphoneDevice)
{
    if (!system && !microphone) {
        return;
    }
    d->connection = std::make_unique<Connection>();
    try {
        const LoopLock lock(d->connection->loop);
        d->connection->connect();
        d->connection->lost = [impl = d.get()] {
            const QString reason = impl->connection->reason();
            for (const auto& s : impl->streams) {
                if (s) {
                    impl->end(*s, reason);
                }
            }
        };
        const ServerDefaults defaults = serverDefaults(*d->connection);
        if (system) {
            const QString monitor = monitorOf(*d->connection, defaults.sink);
            const std::optional<SourceDetails> from =
                monitor.isEmpty() ? std::nullopt : source(*d->connection, monitor);
            if (!from) {
                throw Error(QCoreApplication::translate(
                    "nubo::PulseAudioCapture", "The audio server has no sound output to record."));
            }
            d->open(Source::system, *from);
        }
        if (microphone) {
            std::optional<SourceDetails> from;
            if (microphoneDevice && !microphoneDevice->isEmpty()) {
                from = source(*d->connection, *microphoneDevice);
                if (!from) {
                    qCWarning(lcRecording,
                              "The microphone %s is not available; recording from the default one, %s",
                              qPrintable(*microphoneDevice), qPrintable(defaults.source));
                }
            }
            if (!from) {
                from = defaults.source.isEmpty() ? std::nullopt
                                                 : source(*d->connection, defaults.source);
            }
            if (!from) {
                throw Error(QCoreApplication::translate(
                    "nubo::PulseAudioCapture", "The audio server has no microphone to record."));
            }
            d->open(Source::microphone, *from);
        }
    } catch (const Error&) {
        stop();
        throw;
    }
}

void PulseAudioCapture::waitFor(RecordingDuration time, std::chrono::milliseconds timeout)
{
    std::unique_lock lock(d->mutex);
    d->progressed.wait_for(lock, timeout, [&] {
        for (const auto& s : d->streams) {
            if (s && !s->ended && s->delivered < time) {
                return false;
            }
        }
        return true;
    });
}

void PulseAudioCapture::stop()
{
    if (!d->connection) {
        return;
    }
    {
        const LoopLock lock(d->connection->loop);
        d->stopping = true;
        d->connection->lost = nullptr;
        for (auto& s : d->streams) {
            if (s && s->stream) {
                pa_stream_set_read_callback(s->stream, nullptr, nullptr);
                pa_stream_set_state_callback(s->stream, nullptr, nullptr);
                pa_stream_disconnect(s->stream);
                pa_stream_unref(s->stream);
                s->stream = nullptr;
            }
        }
    }
    d->connection.reset();
}

QString PulseAudioCapture::microphoneName() const
{
    return d->streams[1] ? d->streams[1]->device : QString();
}

} // namespace nubo


