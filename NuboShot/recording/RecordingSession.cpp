#include "recording/RecordingSession.h"

#include "capture/CapturePlatform.h"
#include "core/Logging.h"
#include "recording/PulseAudioCapture.h"
#include "recording/RecordingEncoder.h"
#include "recording/RecordingWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>

#include <cmath>
#include <pthread.h>
#include <utility>

namespace nubo {

namespace {

constexpr RecordingDuration ringLife = std::chrono::milliseconds(500);

// A ring that widens and fades over half a second around each click.
void drawClickRings(QPainter& painter, const QList<ScreenFrameClick>& clicks,
                    RecordingDuration captured)
{
    for (const ScreenFrameClick& click : clicks) {
        const double age = double((captured - click.time).count()) / ringLife.count();
        const double radius = 14 + 16 * std::clamp(age, 0.0, 1.0);
        QColor ring(255, 190, 0);
        ring.setAlphaF(std::clamp(1.0 - age, 0.0, 1.0) * 0.9);
        painter.setPen(QPen(ring, 4));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(click.at), radius, radius);
    }
}

} // namespace

RecordingSession::RecordingSession(std::unique_ptr<ScreenFrameSource> source)
    : m_source(std::move(source))
{
    m_clock.start();
    m_ticker.setInterval(250);
    QObject::connect(&m_ticker, &QTimer::timeout, &m_context, [this] {
        if (m_state.is<RecordingState::Recording>()) {
            setState({RecordingState::Recording{elapsed()}});
        }
    });
}

RecordingSession::~RecordingSession()
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

std::unique_ptr<RecordingSession> RecordingSession::forPlatform(CapturePlatform& platform)
{
    std::unique_ptr<ScreenFrameSource> source = platform.makeFrameSource();
    return source ? std::make_unique<RecordingSession>(std::move(source)) : nullptr;
}

void RecordingSession::stopAudio()
{
    if (m_audio) {
        m_audio->stop();
    }
}

RecordingDuration RecordingSession::now() const
{
    return std::chrono::duration_cast<RecordingDuration>(
        std::chrono::nanoseconds(m_clock.nsecsElapsed()));
}

RecordingDuration RecordingSession::elapsed() const
{
    return m_recordedBefore + (m_runningSince ? now() - *m_runningSince : RecordingDuration(0));
}

void RecordingSession::setState(RecordingState state)
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

RecordingCapabilities RecordingSession::capabilities()
{
    RecordingCapabilities c;
    c.clickHighlightProblem = m_source->clicksUnavailable();
    c.supportsClickHighlight = c.clickHighlightProblem.isEmpty();
    c.supportsMicrophone = !RecordingAudioServer::unavailable();
    c.supportsHEVC = !recordingEncoderSupport().hevc.isEmpty();
    return c;
}

void RecordingSession::start(const RecordingTarget& target, const RecordingOptions& options,
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
        ScreenFrameRequest request;
        request.target = target;
        request.framesPerSecond = framesPerSecond(options.frameRate);
        request.showsCursor = options.showsCursor;
        request.highlightsClicks = options.highlightsClicks;
        request.clock = [this] {
            return now();
        };
        const ScreenFrameGeometry geometry = m_source->open(request);
        const QSize size = recordingOutputSize(
            geometry.content,
            options.resolution == RecordingResolution::native ? geometry.scale : 1);
        if (!QDir().mkpath(folder)) {
            throw RecordingError(RecordingError::Code::writerFailed,
                                 QCoreApplication::translate("nubo::RecordingSession",
                                                             "The folder “%1” cannot be created.")
                                     .arg(folder));
        }
        const QString file = recordingFileName(folder, QDateTime::currentDateTime());
        if (options.camera && !m_camera) {
            qCWarning(lcRecording,
                      "The camera is on but no camera is there: the screen alone is recorded");
        }
        m_writer = std::make_unique<RecordingWriter>(file, size, options,
                                                     options.camera ? m_camera : std::nullopt);
        startAudio(options);
        m_stopRequested = m_cancelRequested = false;
        m_framesPerSecond = request.framesPerSecond;
        m_captured = 0;
        m_unchanged = 0;
        m_thread = std::thread([this, generation = m_generation, cursor = options.showsCursor] {
            run(generation, cursor);
        });
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

void RecordingSession::startAudio(const RecordingOptions& options)
{
    m_audioNotes.clear();
    if (!options.systemAudio && !options.microphone) {
        return;
    }
    RecordingWriter* writer = m_writer.get();
    PulseAudioCapture::Callbacks callbacks;
    callbacks.clock = [this] {
        return now();
    };
    callbacks.deliver = [this, writer](RecordingAudioMixer::Source source,
                                       const RecordingAudioInput& input, RecordingDuration at) {
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

// Takes pictures until stop or cancel; `end` is when stop came.
void RecordingSession::capture(int generation, bool showsCursor,
                               std::optional<RecordingDuration>& end)
{
    QList<ScreenFrameClick> clicks;
    const auto interval = std::chrono::nanoseconds(1'000'000'000 / m_framesPerSecond);
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
        ScreenFrameChanges seen = m_source->look();
        clicks.append(seen.clicks);
        clicks.removeIf([&](const ScreenFrameClick& c) { return tick - c.time > ringLife; });
        // A ring grows on every frame.
        bool changed = seen.damaged || first || !clicks.isEmpty();
        if (showsCursor) {
            const QPoint at = seen.cursor ? seen.cursor->topLeft : QPoint(-1, -1);
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
        ScreenFrame frame = m_source->capture();
        if (seen.cursor || !clicks.isEmpty()) {
            QPainter painter(&frame.image);
            painter.setRenderHint(QPainter::Antialiasing);
            drawClickRings(painter, clicks, frame.captured);
            if (seen.cursor) {
                painter.drawImage(seen.cursor->topLeft, seen.cursor->image);
            }
        }
        const std::lock_guard lock(m_mutex);
        if (m_writer->appendVideo(frame.image, frame.captured) && m_captured++ == 0) {
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
}

void RecordingSession::run(int generation, bool showsCursor)
{
    pthread_setname_np(pthread_self(), "recording");
    QString failure;
    QString file;
    std::optional<RecordingDuration> end;
    // The source lets go of the window system only after the writer is done:
    // the last picture the writer holds may still be the source's memory.
    struct Release {
        ScreenFrameSource& source;
        ~Release() { source.stop(); }
    };
    const Release release{*m_source};
    try {
        m_source->start();
        capture(generation, showsCursor, end);
        if (m_audio && end) {
            // What the sources captured until the end is still on its way.
            m_audio->waitFor(*end, std::chrono::milliseconds(300));
        }
        stopAudio();
        const std::lock_guard lock(m_mutex);
        if (m_cancelRequested) {
            return; // the main thread discards the file
        }
        file = m_writer->finish(end);
        if (!m_audioNotes.isEmpty()) {
            qCWarning(lcRecording, "Recording saved without part of its sound: %s",
                      qPrintable(m_audioNotes.join(QStringLiteral("; "))));
        }
    } catch (const Error& error) {
        failure = error.message();
        if (const auto* capture = dynamic_cast<const CaptureError*>(&error);
            capture && !capture->detail().isEmpty()) {
            failure += QStringLiteral(" (%1)").arg(capture->detail());
        }
        qCWarning(lcRecording, "Recording stopped: %s", qPrintable(failure));
        stopAudio();
        const std::lock_guard lock(m_mutex);
        if (m_cancelRequested) {
            return;
        }
        const auto* recordingError = dynamic_cast<const RecordingError*>(&error);
        const bool writerBroke =
            recordingError && recordingError->code() == RecordingError::Code::writerFailed;
        if (!writerBroke && m_captured > 0) {
            // The sound or the screen could not go on (a server gone, a
            // window closed): what was recorded until then is kept.
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
void RecordingSession::pause()
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

void RecordingSession::resume()
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

void RecordingSession::stop()
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

void RecordingSession::cancel()
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

void RecordingSession::noteMicrophoneLevel(const RecordingAudioInput& input)
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

void RecordingSession::joinCapture()
{
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

} // namespace nubo
