#include "capture/xcb/XcbScreenRecorder.h"

#include "capture/CaptureSelection.h"
#include "capture/xcb/XcbConnection.h"
#include "core/Logging.h"
#include "recording/PulseAudioCapture.h"
#include "recording/RecordingEncoder.h"
#include "recording/RecordingWriter.h"

#include <QDir>
#include <cmath>
#include <utility>
#include <QPainter>

#include <pthread.h>
#include <xcb/damage.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace nubo {

struct XcbScreenRecorder::Plan {
    bool window = false;
    quint32 display = 0;
    ScreenCaptureRegion region;
    QPoint origin; // the region's top-left corner in root pixels
    quint32 windowID = 0;
    int framesPerSecond = 30;
    bool showsCursor = true;
    bool highlightsClicks = false;
};

namespace {

// Changes on the screen and the pointer, seen over a connection of the
// capture thread's own.
class ScreenWatch {
public:
    ScreenWatch(const QByteArray& displayName, bool clicks) : m_x(displayName)
    {
        if (clicks) {
            watchClicks();
        }
        // Windows mapped, moved, restacked or gone: our own windows must be
        // painted away where they are now, not where they were.
        const uint32_t structure = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_x.c, m_x.root, XCB_CW_EVENT_MASK, &structure);
        const xcb_query_extension_reply_t* damage = xcb_get_extension_data(m_x.c, &xcb_damage_id);
        if (damage && damage->present) {
            std::free(xcb_damage_query_version_reply(
                m_x.c, xcb_damage_query_version(m_x.c, 1, 1), nullptr));
            m_damage = xcb_generate_id(m_x.c);
            xcb_damage_create(m_x.c, m_damage, m_x.root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
            m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        } else {
            qCWarning(lcRecording, "No XDamage: every frame is captured");
        }
        const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(m_x.c, &xcb_xfixes_id);
        if (fixes && fixes->present) {
            std::free(xcb_xfixes_query_version_reply(
                m_x.c, xcb_xfixes_query_version(m_x.c, 4, 0), nullptr));
            m_fixes = true;
        }
        xcb_flush(m_x.c);
    }

    // A click of the user's, at a root position, at a capture time.
    struct Click {
        QPoint at;
        RecordingDuration time;
    };

    // Whether anything was drawn since the last call (always, without
    // XDamage); clicks since then go to `clicks`.
    bool changed(RecordingDuration now, QList<Click>& clicks)
    {
        drain(now, clicks);
        if (!m_damage) {
            return true;
        }
        const bool damaged = std::exchange(m_damaged, false);
        if (damaged) {
            xcb_damage_subtract(m_x.c, m_damage, XCB_NONE, XCB_NONE);
            xcb_flush(m_x.c);
        }
        return damaged;
    }

    // Whether a top-level window changed since the last call. With `sync`,
    // also what the server did before this call (a round trip on this
    // connection brings every event it sent meanwhile): a capture taken
    // before is checked against the stacking it was cut with.
    bool restacked(RecordingDuration now, QList<Click>& clicks, bool sync)
    {
        if (sync) {
            std::free(xcb_get_input_focus_reply(m_x.c, xcb_get_input_focus(m_x.c), nullptr));
        }
        drain(now, clicks);
        return std::exchange(m_restacked, false);
    }

    // The pointer's picture and where it is, in root pixels.
    struct Cursor {
        QImage image;
        QPoint topLeft;
    };
    std::optional<Cursor> cursor()
    {
        if (!m_fixes) {
            return std::nullopt;
        }
        auto reply = xcbReply(
            xcb_xfixes_get_cursor_image_reply(m_x.c, xcb_xfixes_get_cursor_image(m_x.c), nullptr));
        if (!reply || reply->width == 0 || reply->height == 0) {
            return std::nullopt;
        }
        const QPoint at(reply->x - reply->xhot, reply->y - reply->yhot);
        // 32-bit ARGB, premultiplied: Qt's own layout.
        QImage image(reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(reply.get())),
                     reply->width, reply->height, QImage::Format_ARGB32_Premultiplied);
        return Cursor{image.copy(), at};
    }

private:
    void drain(RecordingDuration now, QList<Click>& clicks)
    {
        while (auto event = xcbReply(xcb_poll_for_event(m_x.c))) {
            const uint8_t type = event->response_type & 0x7f;
            m_damaged = m_damaged || (m_damage && type == m_damageEvent);
            switch (type) {
            case XCB_MAP_NOTIFY:
            case XCB_UNMAP_NOTIFY:
            case XCB_CONFIGURE_NOTIFY:
            case XCB_REPARENT_NOTIFY:
            case XCB_CIRCULATE_NOTIFY:
            case XCB_DESTROY_NOTIFY:
                m_restacked = true;
                break;
            default:
                break;
            }
            if (type == XCB_GE_GENERIC &&
                reinterpret_cast<const xcb_ge_generic_event_t*>(event.get())->extension ==
                    m_inputOpcode) {
                const auto* press =
                    reinterpret_cast<const xcb_input_raw_button_press_event_t*>(event.get());
                if (press->event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
                    (press->detail < 4 || press->detail > 7)) { // not the wheel
                    auto pointer = xcbReply(xcb_query_pointer_reply(
                        m_x.c, xcb_query_pointer(m_x.c, m_x.root), nullptr));
                    if (pointer) {
                        clicks.append({QPoint(pointer->root_x, pointer->root_y), now});
                    }
                }
            }
        }
    }

    // Raw button presses of every device, whoever has the pointer grabbed.
    void watchClicks()
    {
        const xcb_query_extension_reply_t* input = xcb_get_extension_data(m_x.c, &xcb_input_id);
        if (!input || !input->present) {
            return;
        }
        auto version = xcbReply(xcb_input_xi_query_version_reply(
            m_x.c, xcb_input_xi_query_version(m_x.c, 2, 2), nullptr));
        if (!version || version->major_version < 2) {
            return;
        }
        m_inputOpcode = input->major_opcode;
        struct {
            xcb_input_event_mask_t head;
            uint32_t bits;
        } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
        xcb_input_xi_select_events(m_x.c, m_x.root, 1, &mask.head);
    }

    XcbConnection m_x;
    uint8_t m_inputOpcode = 0;
    xcb_damage_damage_t m_damage = 0;
    uint8_t m_damageEvent = 0;
    bool m_fixes = false;
    bool m_damaged = false;
    bool m_restacked = false;
};

} // namespace

XcbScreenRecorder::XcbScreenRecorder(QByteArray displayName, XcbScreenCapturer::ScaleLookup scale)
    : m_displayName(std::move(displayName)), m_scale(std::move(scale))
{
    m_clock.start();
    m_ticker.setInterval(250);
    QObject::connect(&m_ticker, &QTimer::timeout, &m_context, [this] {
        if (m_state.is<RecordingState::Recording>()) {
            setState({RecordingState::Recording{elapsed()}});
        }
    });
}

XcbScreenRecorder::~XcbScreenRecorder()
{
    {
        const std::lock_guard lock(m_mutex);
        m_cancelRequested = true;
    }
    m_wake.notify_all();
    joinCapture();
    stopAudio();
    if (m_writer) {
        m_writer->cancel();
    }
}

void XcbScreenRecorder::stopAudio()
{
    if (m_audio) {
        m_audio->stop();
    }
}

RecordingDuration XcbScreenRecorder::now() const
{
    return std::chrono::duration_cast<RecordingDuration>(
        std::chrono::nanoseconds(m_clock.nsecsElapsed()));
}

RecordingDuration XcbScreenRecorder::elapsed() const
{
    return m_recordedBefore + (m_runningSince ? now() - *m_runningSince : RecordingDuration(0));
}

void XcbScreenRecorder::setState(RecordingState state)
{
    if (state == m_state) {
        return;
    }
    m_state = std::move(state);
    qCDebug(lcRecording, "Recording state: %s", qPrintable(m_state.describe()));
    if (onStateChange) {
        onStateChange(m_state);
    }
}

RecordingCapabilities XcbScreenRecorder::capabilities()
{
    RecordingCapabilities c;
    try {
        XcbConnection x(m_displayName);
        const xcb_query_extension_reply_t* input = xcb_get_extension_data(x.c, &xcb_input_id);
        if (input && input->present) {
            auto version = xcbReply(xcb_input_xi_query_version_reply(
                x.c, xcb_input_xi_query_version(x.c, 2, 2), nullptr));
            c.supportsClickHighlight = version && version->major_version >= 2;
        }
    } catch (const Error&) {
    }
    c.supportsMicrophone = !RecordingAudioServer::unavailable();
    c.supportsHEVC = !recordingEncoderSupport().hevc.isEmpty();
    return c;
}

void XcbScreenRecorder::start(const RecordingTarget& target, const RecordingOptions& options,
                              const QString& folder)
{
    if (!m_state.is<RecordingState::Idle>() && !m_state.is<RecordingState::Finished>() &&
        !m_state.is<RecordingState::Failed>()) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    validate(options, capabilities());
    ++m_generation;
    setState({RecordingState::Starting{}});
    try {
        auto plan = std::make_shared<Plan>();
        plan->framesPerSecond = framesPerSecond(options.frameRate);
        plan->showsCursor = options.showsCursor;
        plan->highlightsClicks = options.highlightsClicks;
        QSizeF content;
        double scale = 1;
        if (const auto* d = std::get_if<RecordingTarget::Display>(&target.target)) {
            plan->display = d->display.id;
            plan->region = captureRegion(d->display.space, d->display.space.globalFrame);
            plan->origin = d->display.pixelGeometry.topLeft() + plan->region.pixelRect.topLeft();
            content = d->display.space.globalFrame.size();
            scale = d->display.space.scale;
        } else if (const auto* a = std::get_if<RecordingTarget::Area>(&target.target)) {
            const QRectF on = a->globalRect.intersected(a->display.space.globalFrame);
            if (on.isEmpty() || !std::isfinite(on.width()) || !std::isfinite(on.height())) {
                throw CaptureError(CaptureError::Code::noContent,
                                   QStringLiteral("the area lies outside its display"));
            }
            plan->display = a->display.id;
            plan->region = captureRegion(a->display.space, on);
            plan->origin = a->display.pixelGeometry.topLeft() + plan->region.pixelRect.topLeft();
            content = on.size();
            scale = a->display.space.scale;
        } else {
            const auto& w = std::get<RecordingTarget::Window>(target.target).window;
            plan->window = true;
            plan->windowID = w.id;
            content = w.frame.size();
            XcbScreenCapturer probe(m_displayName, m_scale);
            scale = probe.captureWindow(w.id).scale; // also: the window is there
        }
        const QSize size = recordingOutputSize(
            content, options.resolution == RecordingResolution::native ? scale : 1);
        if (!QDir().mkpath(folder)) {
            throw RecordingError(RecordingError::Code::writerFailed,
                                 QStringLiteral("The folder “%1” cannot be created.").arg(folder));
        }
        const QString file = recordingFileName(folder, QDateTime::currentDateTime());
        if (options.camera && !m_camera) {
            qCWarning(lcRecording, "The camera is on but no camera is there: the screen alone is recorded");
        }
        m_writer = std::make_unique<RecordingWriter>(file, size, options,
                                                     options.camera ? m_camera : std::nullopt);
        m_audioNotes.clear();
        if (options.systemAudio || options.microphone) {
            RecordingWriter* writer = m_writer.get();
            PulseAudioCapture::Callbacks callbacks;
            callbacks.clock = [this] { return now(); };
            callbacks.deliver = [this, writer](RecordingAudioMixer::Source source,
                                               const RecordingAudioInput& input,
                                               RecordingDuration at) {
                if (source == RecordingAudioMixer::Source::microphone) {
                    noteMicrophoneLevel(input);
                }
                writer->appendAudio(source, input, at);
            };
            callbacks.ended = [this, writer, startedAt = now()](RecordingAudioMixer::Source source,
                                             const QString& reason) {
                writer->endAudio(source, reason);
                const std::lock_guard lock(m_mutex);
                m_audioNotes.append(QStringLiteral("the %1 stopped %2 s after the start (%3)")
                                        .arg(source == RecordingAudioMixer::Source::system
                                                 ? QStringLiteral("system audio")
                                                 : QStringLiteral("microphone"))
                                        .arg(double((now() - startedAt).count()) / 1e6, 0, 'f', 1)
                                        .arg(reason));
            };
            m_audio = std::make_unique<PulseAudioCapture>(std::move(callbacks));
            m_audio->start(options.systemAudio, options.microphone, options.microphoneDeviceID);
        }
        m_stopRequested = m_cancelRequested = false;
        m_captured = 0;
        m_unchanged = 0;
        m_thread = std::thread([this, plan, generation = m_generation] { run(plan, generation); });
    } catch (const Error& error) {
        stopAudio();
        m_audio.reset();
        m_writer.reset();
        setState({RecordingState::Failed{error.message()}});
        throw;
    }
    m_recordedBefore = RecordingDuration(0);
    m_runningSince = now();
    setState({RecordingState::Recording{RecordingDuration(0)}});
    m_ticker.start();
}

void XcbScreenRecorder::run(std::shared_ptr<Plan> plan, int generation)
{
    pthread_setname_np(pthread_self(), "recording");
    QString failure;
    QString file;
    std::optional<RecordingDuration> end;
    try {
        XcbScreenCapturer capturer(m_displayName, m_scale);
        capturer.setNativePixels(true); // straight to the encoder, no conversion
        ScreenWatch watch(m_displayName, plan->highlightsClicks);
        QList<ScreenWatch::Click> clicks;
        constexpr RecordingDuration ringLife = std::chrono::milliseconds(500);
        const auto interval = std::chrono::nanoseconds(1'000'000'000 / plan->framesPerSecond);
        auto due = std::chrono::steady_clock::now();
        bool first = true;
        QPoint lastPointer(-1, -1);
        qint64 late = 0;
        while (true) {
            {
                std::unique_lock lock(m_mutex);
                m_wake.wait_until(lock, due, [this] { return m_stopRequested || m_cancelRequested; });
                if (m_stopRequested || m_cancelRequested) {
                    end = now();
                    break;
                }
            }
            due += interval;
            const auto current = std::chrono::steady_clock::now();
            if (due < current) {
                // Behind: the frames in between are not taken, evenly, and said.
                late += (current - due) / interval + 1;
                due = current + interval;
            }
            const RecordingDuration tick = now();
            bool changed = watch.changed(tick, clicks) || first || plan->window;
            clicks.removeIf([&](const ScreenWatch::Click& c) { return tick - c.time > ringLife; });
            changed = changed || !clicks.isEmpty(); // a ring grows on every frame
            std::optional<ScreenWatch::Cursor> cursor;
            if (plan->showsCursor) {
                cursor = watch.cursor();
                const QPoint at = cursor ? cursor->topLeft : QPoint(-1, -1);
                changed = changed || at != lastPointer;
                lastPointer = at;
            }
            if (!changed) {
                // A still screen: the camera ticker keeps the bubble moving.
                const std::lock_guard lock(m_mutex);
                if (!m_writer->refreshCamera(tick)) {
                    ++m_unchanged;
                }
                continue;
            }
            first = false;
            if (std::optional<RecordingError> audio = m_writer->audioFailure()) {
                throw *audio;
            }
            const RecordingDuration captured = now();
            QImage frame;
            if (plan->window) {
                frame = capturer.captureWindow(plan->windowID).image;
            } else {
                // Our own windows (the control bar, the camera preview) are
                // painted away where the stacking says they are; one that
                // appeared or moved during the grab would otherwise stay in.
                if (watch.restacked(tick, clicks, false)) {
                    capturer.forgetStacking();
                }
                frame = capturer.captureRegion(plan->display, plan->region);
                if (watch.restacked(tick, clicks, true)) {
                    capturer.forgetStacking();
                    frame = capturer.captureRegion(plan->display, plan->region);
                }
            }
            if ((cursor || !clicks.isEmpty()) && !plan->window) {
                QPainter painter(&frame);
                painter.setRenderHint(QPainter::Antialiasing);
                for (const ScreenWatch::Click& click : std::as_const(clicks)) {
                    // A ring that widens and fades over half a second.
                    const double age = double((captured - click.time).count()) / ringLife.count();
                    const double radius = 14 + 16 * std::clamp(age, 0.0, 1.0);
                    QColor ring(255, 190, 0);
                    ring.setAlphaF(std::clamp(1.0 - age, 0.0, 1.0) * 0.9);
                    painter.setPen(QPen(ring, 4));
                    painter.setBrush(Qt::NoBrush);
                    painter.drawEllipse(QPointF(click.at - plan->origin), radius, radius);
                }
                if (cursor) {
                    painter.drawImage(cursor->topLeft - plan->origin, cursor->image);
                }
            }
            const std::lock_guard lock(m_mutex);
            if (m_writer->appendVideo(frame, captured) && m_captured++ == 0) {
                QMetaObject::invokeMethod(
                    &m_context,
                    [this, generation] {
                        if (generation == m_generation && onFirstFrame) {
                            onFirstFrame();
                        }
                    },
                    Qt::QueuedConnection);
            }
        }
        if (late > 0) {
            qCInfo(lcRecording, "Recording fell behind: %lld frames not taken",
                   static_cast<long long>(late));
        }
        if (m_audio && end) {
            // What the sources captured until the end is still on its way.
            m_audio->waitFor(*end, std::chrono::milliseconds(300));
        }
        stopAudio();
        const std::lock_guard lock(m_mutex);
        if (m_cancelRequested) {
            return; // the main thread discards the file
        }
        // Finished while the capturer lives: the last picture the writer
        // holds may still be in its shared memory.
        file = m_writer->finish(end);
        if (!m_audioNotes.isEmpty()) {
            qCWarning(lcRecording, "Recording saved without part of its sound: %s",
                      qPrintable(m_audioNotes.join(QStringLiteral("; "))));
        }
    } catch (const Error& error) {
        failure = error.message();
        qCWarning(lcRecording, "Recording stopped: %s", qPrintable(failure));
        stopAudio();
        const std::lock_guard lock(m_mutex);
        if (m_cancelRequested) {
            return;
        }
        const auto* recordingError = dynamic_cast<const RecordingError*>(&error);
        if (recordingError && recordingError->code() == RecordingError::Code::invalidAudio) {
            // The sound could not go on; what was recorded until then is kept.
            try {
                const QString kept = m_writer->finish(now());
                failure += QStringLiteral(" What was recorded until then is in “%1”.").arg(kept);
            } catch (const Error& finishing) {
                qCWarning(lcRecording, "The recording could not be kept: %s",
                          qPrintable(finishing.message()));
            }
        } else {
            m_writer->cancel();
        }
    }
    qCInfo(lcRecording, "Recording ended: %lld frames, %lld ticks without change%s",
           static_cast<long long>(m_captured.load()), static_cast<long long>(m_unchanged.load()),
           m_writer && m_writer->hasCamera()
               ? qPrintable(QStringLiteral(", %1 frames with the camera, %2 by the camera alone")
                                .arg(m_writer->cameraFrames())
                                .arg(m_writer->cameraTicks()))
               : "");
    QMetaObject::invokeMethod(
        &m_context,
        [this, generation, file, failure] {
            if (generation != m_generation) {
                return; // an older recording's late word
            }
            joinCapture();
            m_audio.reset();
            m_writer.reset();
            m_ticker.stop();
            setState(failure.isEmpty() ? RecordingState{RecordingState::Finished{file}}
                                       : RecordingState{RecordingState::Failed{failure}});
        },
        Qt::QueuedConnection);
}

void XcbScreenRecorder::pause()
{
    if (!m_state.is<RecordingState::Recording>()) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_writer->pause(now());
    }
    m_recordedBefore = elapsed();
    m_runningSince.reset();
    setState({RecordingState::Paused{m_recordedBefore}});
}

void XcbScreenRecorder::resume()
{
    if (!m_state.is<RecordingState::Paused>()) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_writer->resume(now());
    }
    m_runningSince = now();
    setState({RecordingState::Recording{m_recordedBefore}});
}

void XcbScreenRecorder::stop()
{
    if (!m_state.is<RecordingState::Recording>() && !m_state.is<RecordingState::Paused>()) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_stopRequested = true;
    }
    m_wake.notify_all();
    m_ticker.stop();
    m_recordedBefore = elapsed();
    m_runningSince.reset();
    setState({RecordingState::Finishing{}});
}

void XcbScreenRecorder::cancel()
{
    if (m_state.is<RecordingState::Idle>()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_cancelRequested = true;
    }
    m_wake.notify_all();
    ++m_generation; // whatever the thread still reports is old news
    joinCapture();
    stopAudio();
    m_audio.reset();
    if (m_writer) {
        m_writer->cancel();
        m_writer.reset();
    }
    m_ticker.stop();
    m_runningSince.reset();
    qCInfo(lcRecording, "Recording cancelled");
    setState({RecordingState::Idle{}});
}

void XcbScreenRecorder::noteMicrophoneLevel(const RecordingAudioInput& input)
{
    const auto* samples = reinterpret_cast<const float*>(input.data[0]);
    float loudest = 0;
    for (qint64 i = 0, n = qint64(input.frames) * input.channels; i < n; ++i) {
        loudest = std::max(loudest, std::abs(samples[i]));
    }
    float held = m_microphoneLevel.load();
    while (loudest > held && !m_microphoneLevel.compare_exchange_weak(held, loudest)) {
    }
}

void XcbScreenRecorder::joinCapture()
{
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

} // namespace nubo
