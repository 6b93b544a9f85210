#include "recording/ShotRecordingFlow.h"

#include "review/ShotReviewWindow.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "output/ShotNotifications.h"
#include "overlay/ShotOverlayController.h"
#include "recording/ShotCameraBubble.h"
#include "recording/ShotRecordingControls.h"
#include "recording/RecordingSession.h"
#include "recording/ShotRecordingWindows.h"
#include "recording/ShotScreenSaverInhibitor.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QMessageBox>
#include <QThread>
#include <QtConcurrent>

namespace nubo {

struct ShotRecordingFlow::Frozen {
    QList<DisplayCapture> displays;
    QList<CaptureDisplay> targets;
    QList<CapturableWindow> windows;
    QString error; // empty on success
    bool cancelled = false;
};

ShotRecordingFlow::ShotRecordingFlow(std::shared_ptr<CapturePlatform> platform,
                                     ShotPreferences& preferences, QObject* parent)
    : QObject(parent), m_platform(std::move(platform)), m_preferences(preferences),
      m_overlay(std::make_unique<ShotOverlayController>()),
      m_inhibitor(std::make_unique<ShotScreenSaverInhibitor>(m_platform)),
      m_camera(std::make_unique<ShotCameraBubble>(preferences))
{
    presentAlert = [](const QString& title, const QString& text) {
        QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        box.exec();
    };
    connect(m_overlay.get(), &ShotOverlayController::answered, this,
            [this](const ShotOverlayOutcome& outcome) {
                const auto* recording = std::get_if<ShotOverlayOutcome::Recording>(&outcome.outcome);
                if (!recording) {
                    setPhase(Phase::idle);
                    return;
                }
                const RecordingTarget& target = recording->target;
                QRectF display;
                if (const auto* d = std::get_if<RecordingTarget::Display>(&target.target)) {
                    display = d->display.space.globalFrame;
                } else if (const auto* a = std::get_if<RecordingTarget::Area>(&target.target)) {
                    display = a->display.space.globalFrame;
                } else {
                    const auto& window = std::get<RecordingTarget::Window>(target.target).window;
                    const QPointF centre = recordingTargetRect(target).center();
                    for (const ShotCaptureOverlay* o : m_overlay->overlays()) {
                        if (o->display().space.globalFrame.contains(centre) ||
                            (isPickedWindow(window) && display.isEmpty())) {
                            display = o->display().space.globalFrame;
                        }
                    }
                }
                choose(target, display);
            });
    connect(m_overlay.get(), &ShotOverlayController::shown, this, [this] {
        qCInfo(lcRecording, "Recording overlay shown after %lld ms",
               static_cast<long long>(m_requested.elapsed()));
    });
    connect(m_overlay.get(), &ShotOverlayController::cancelled, this, [this] {
        qCInfo(lcRecording, "Recording cancelled while framing");
        setPhase(Phase::idle);
    });
    m_meter.setInterval(60);
    connect(&m_meter, &QTimer::timeout, this, [this] {
        if (m_controls && m_recorder) {
            m_controls->setMicrophoneLevel(m_recorder->takeMicrophoneLevel());
        }
    });
}

ShotRecordingFlow::~ShotRecordingFlow()
{
    closeWindows();
    if (m_recorder && isRunning()) {
        m_recorder->onStateChange = nullptr;
        m_recorder->cancel();
    }
}

QString ShotRecordingFlow::cannotRecord() const
{
    return m_platform->problem().isEmpty() ? tr("This desktop cannot be recorded by Nubo Shot yet.")
                                           : m_platform->problem();
}

bool ShotRecordingFlow::canRecord() const
{
    return m_platform->features().recording;
}

RecordingState ShotRecordingFlow::state() const
{
    return m_recorder ? m_recorder->state() : RecordingState{};
}

bool ShotRecordingFlow::isRunning() const
{
    const RecordingState s = state();
    return s.is<RecordingState::Recording>() || s.is<RecordingState::Paused>() ||
           s.is<RecordingState::Finishing>() || s.is<RecordingState::Starting>();
}

ScreenRecording& ShotRecordingFlow::recorder()
{
    if (!m_recorder) {
        m_recorder = RecordingSession::forPlatform(*m_platform);
        if (!m_recorder) {
            throw Error(cannotRecord());
        }
        m_recorder->onStateChange = [this](const RecordingState& state) { recorderChanged(state); };
        m_recorder->onFirstFrame = [this] {
            if (m_startPressed.isValid()) {
                qCInfo(lcRecording, "Recording first frame written %lld ms after Start",
                       static_cast<long long>(m_startPressed.elapsed()));
                m_startPressed.invalidate();
            }
        };
    }
    return *m_recorder;
}

QList<CapturableWindow> ShotRecordingFlow::recordableWindows() const
{
    if (!canRecord()) {
        return {};
    }
    try {
        return m_platform->capturer()->listWindows(false).windows;
    } catch (const Error& error) {
        qCWarning(lcRecording, "No windows to record: %s", qPrintable(error.message()));
        return {};
    }
}

void ShotRecordingFlow::setPhase(Phase phase)
{
    if (phase == Phase::idle) {
        closeWindows();
        m_target.reset();
        m_inhibitor->release();
    }
    if (phase != m_phase) {
        m_phase = phase;
        emit phaseChanged(phase);
    }
}

void ShotRecordingFlow::closeWindows()
{
    m_keys.reset(); // Return and Escape go back to everyone
    m_outline.hide();
    m_camera->hide();
    for (QWidget* w : {static_cast<QWidget*>(m_options), static_cast<QWidget*>(m_countdown),
                       static_cast<QWidget*>(m_controls)}) {
        if (w) {
            w->close();
        }
    }
    m_meter.stop();
}

void ShotRecordingFlow::fail(const QString& message)
{
    qCWarning(lcRecording, "Recording failed: %s", qPrintable(message));
    setPhase(Phase::idle);
    // Told after the event at hand is done: the alert waits for the user.
    QTimer::singleShot(0, this,
                       [this, message] { presentAlert(tr("Could Not Record Screen"), message); });
}

void ShotRecordingFlow::grabKeys(const QList<std::pair<QString, QKeySequence>>& keys)
{
    // Wherever the keyboard is: Return starts and Escape cancels, even when
    // the bar never got the focus.
    m_keys.reset();
    m_keys = m_platform->makeGlobalShortcuts();
    if (!m_keys) {
        return;
    }
    m_keys->activated = [this](const QString& id) {
        // Handled after the key event, outside the platform's own call.
        QMetaObject::invokeMethod(
            this,
            [this, id] {
                if (id == QLatin1String("cancel")) {
                    cancel();
                } else if (id == QLatin1String("start") && m_phase == Phase::choosing &&
                           m_options) {
                    m_options->start();
                }
            },
            Qt::QueuedConnection);
    };
    QList<GlobalShortcutBinding> bindings;
    for (const auto& [id, sequence] : keys) {
        bindings.append({id, sequence});
    }
    for (const QString& problem : m_keys->bind(bindings)) {
        qCInfo(lcRecording, "%s", qPrintable(problem));
    }
}

void ShotRecordingFlow::toggle()
{
    switch (m_phase) {
    case Phase::idle:
        recordScreen();
        return;
    case Phase::recording:
        if (state().is<RecordingState::Recording>() || state().is<RecordingState::Paused>()) {
            stop();
        }
        return;
    case Phase::choosing:
        if (m_options) {
            m_options->start();
        }
        return;
    case Phase::framing:
    case Phase::countingDown:
        return; // already on its way
    }
}

void ShotRecordingFlow::recordScreen()
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    qCInfo(lcRecording, "Record Screen requested");
    m_requested.start();
    if (m_phase != Phase::idle) {
        qCInfo(lcRecording, "Record Screen ignored: a recording is already under way");
        return;
    }
    if (!canRecord()) {
        fail(cannotRecord());
        return;
    }
    if (screenIsFree && !screenIsFree()) {
        qCInfo(lcRecording, "Record Screen ignored: a capture is under way");
        return;
    }
    setPhase(Phase::framing);
    auto work = [capturer = m_platform->capturer()]() {
        Frozen result;
        try {
            capturer->probe();
            result.targets = capturer->displays();
            result.displays = capturer->captureDisplays();
            result.windows = capturer->listWindows(false).windows;
        } catch (const CaptureError& error) {
            result.cancelled = error.code() == CaptureError::Code::cancelled;
            result.error = error.message();
        } catch (const Error& error) {
            result.error = error.message();
        }
        return result;
    };
    auto* watcher = new QFutureWatcher<Frozen>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        watcher->deleteLater();
        frozen(watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(std::move(work)));
}

void ShotRecordingFlow::frozen(const Frozen& result)
{
    m_overlay->setDesktopPicksWindows(m_platform->features().windowPicker);
    if (m_phase != Phase::framing) {
        return; // cancelled meanwhile
    }
    if (result.cancelled) {
        setPhase(Phase::idle);
        return;
    }
    if (!result.error.isEmpty()) {
        fail(result.error);
        return;
    }
    m_overlay->followPreferences(&m_preferences);
    m_overlay->presentRecording(result.displays, result.targets, result.windows);
}

void ShotRecordingFlow::recordWindow(const CapturableWindow& window)
{
    if (m_phase != Phase::idle || !canRecord()) {
        return;
    }
    QRectF display;
    try {
        for (const CaptureDisplay& d : m_platform->capturer()->displays()) {
            if (d.space.globalFrame.contains(window.frame.center()) || display.isEmpty()) {
                display = d.space.globalFrame;
            }
        }
    } catch (const Error& error) {
        fail(error.message());
        return;
    }
    choose({RecordingTarget::Window{window}}, display);
}

void ShotRecordingFlow::choose(const RecordingTarget& target, const QRectF& display)
{
    m_target = target;
    m_targetRect = recordingTargetRect(target);
    m_displayRect = display;
    setPhase(Phase::choosing);
    RecordingCapabilities capabilities;
    try {
        capabilities = recorder().capabilities();
    } catch (const Error& error) {
        fail(error.message());
        return;
    }
    const double scale = [&] {
        if (const auto* d = std::get_if<RecordingTarget::Display>(&target.target)) {
            return d->display.space.scale;
        }
        if (const auto* a = std::get_if<RecordingTarget::Area>(&target.target)) {
            return a->display.space.scale;
        }
        return 1.0;
    }();
    const auto* window = std::get_if<RecordingTarget::Window>(&target.target);
    const bool picked = window && isPickedWindow(window->window);
    if (picked) {
        // Unknown until the desktop's dialog picks it: the bar and the
        // camera go by the display.
        m_targetRect = m_displayRect;
    }
    const QString size = picked ? tr("window picked at the start")
                                : QStringLiteral("%1 \u00d7 %2")
                                      .arg(qRound(m_targetRect.width() * scale))
                                      .arg(qRound(m_targetRect.height() * scale));
    m_options = new ShotRecordingOptionsBar(m_preferences, capabilities, size);
    connect(m_options, &ShotRecordingOptionsBar::startRequested, this, &ShotRecordingFlow::begin);
    connect(m_options, &ShotRecordingOptionsBar::cancelled, this, &ShotRecordingFlow::cancel);
    const auto place = [this] {
        if (m_options) {
            m_options->adjustSize();
            m_options->move(ShotRecordingLayout::beside(m_targetRect, QSizeF(m_options->size()),
                                                        m_displayRect)
                                .toPoint());
        }
    };
    connect(&m_options->controls(), &ShotRecordingControls::changed, this, place);
    // The camera's preview comes and goes with its option, at the bubble's place.
    const auto camera = [this] {
        if (m_options && m_options->controls().options().camera) {
            m_camera->show(m_targetRect);
        } else {
            m_camera->hide();
        }
    };
    connect(&m_options->controls(), &ShotRecordingControls::changed, this, camera);
    place();
    if (m_targetRect != m_displayRect) {
        m_outline.show(m_targetRect, 2, QColor(0x2f, 0x80, 0xed),
                       QStringLiteral("Nubo Shot Recording Area"));
    }
    m_options->show();
    m_options->raise();
    m_options->activateWindow();
    camera();
    grabKeys({{QStringLiteral("start"), QKeySequence(Qt::Key_Return)},
              {QStringLiteral("start"), QKeySequence(Qt::Key_Enter)},
              {QStringLiteral("cancel"), QKeySequence(Qt::Key_Escape)}});
    qCInfo(lcRecording, "Recording options shown");
}

void ShotRecordingFlow::begin(const RecordingOptions& options)
{
    if (m_phase != Phase::choosing || !m_options || !m_target) {
        return;
    }
    m_startPressed.start();
    m_keys.reset(); // Return and Escape are everyone's again
    // Held from here: the countdown is part of the recording to the user.
    m_inhibitor->hold(tr("Recording the screen"));
    m_options->close();
    const bool countdown = m_preferences.boolean(keys::recordingCountdown, true);
    m_options = nullptr;
    m_outline.hide();
    if (!countdown) {
        startRecorder(*m_target, options, recordingFolder(m_preferences));
        return;
    }
    setPhase(Phase::countingDown);
    m_countdown = new ShotRecordingCountdown;
    const QRectF visible = m_targetRect.intersected(m_displayRect);
    const QPointF centre = (visible.isEmpty() ? m_displayRect : visible).center();
    m_countdown->move((centre - QPointF(m_countdown->width(), m_countdown->height()) / 2).toPoint());
    connect(m_countdown, &ShotRecordingCountdown::finished, this, [this, options] {
        if (m_countdown) {
            m_countdown->close();
        }
        m_keys.reset();
        if (m_phase == Phase::countingDown && m_target) {
            startRecorder(*m_target, options, recordingFolder(m_preferences));
        }
    });
    m_countdown->show();
    m_countdown->raise();
    m_countdown->start();
    grabKeys({{QStringLiteral("cancel"), QKeySequence(Qt::Key_Escape)}});
    qCInfo(lcRecording, "Recording countdown shown");
}

void ShotRecordingFlow::startNow(const RecordingTarget& target, const RecordingOptions& options,
                                 const QString& folder)
{
    if (m_phase != Phase::idle) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    m_target = target;
    m_targetRect = recordingTargetRect(target);
    m_displayRect = m_targetRect;
    const auto* window = std::get_if<RecordingTarget::Window>(&target.target);
    try {
        for (const CaptureDisplay& d : m_platform->capturer()->displays()) {
            if (d.space.globalFrame.contains(m_targetRect.center()) ||
                (window && isPickedWindow(window->window) && d.primary)) {
                m_displayRect = d.space.globalFrame;
            }
        }
    } catch (const Error&) {
        // The bar then goes at the target's own edge.
    }
    if (window && isPickedWindow(window->window)) {
        m_targetRect = m_displayRect; // its frame is the desktop's to know
    }
    m_startPressed.start();
    setCamera(options);
    recorder().start(target, options, folder); // throws before anything shows
    m_options = nullptr;
    showControls(options);
}

void ShotRecordingFlow::startRecorder(const RecordingTarget& target,
                                      const RecordingOptions& options, const QString& folder)
{
    try {
        setCamera(options);
        recorder().start(target, options, folder);
    } catch (const CaptureError& error) {
        // The usual line, and what exactly was missing.
        fail(error.detail().isEmpty()
                 ? error.message()
                 : QStringLiteral("%1 (%2)").arg(error.message(), error.detail()));
        return;
    } catch (const Error& error) {
        fail(error.message());
        return;
    }
    showControls(options);
}

void ShotRecordingFlow::setCamera(const RecordingOptions& options)
{
    if (options.camera && !m_camera->isShown()) {
        m_camera->show(m_targetRect);
    } else if (!options.camera) {
        m_camera->hide();
    }
    recorder().setCameraOverlay(options.camera ? m_camera->overlay() : std::nullopt);
}

void ShotRecordingFlow::showControls(const RecordingOptions& options)
{
    m_keys.reset();
    setPhase(Phase::recording);
    m_inhibitor->hold(tr("Recording the screen"));
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")) &&
        !std::holds_alternative<RecordingTarget::Window>(m_target->target)) {
        // Windows cannot stand aside on Wayland, and the screen's cast shows
        // every window: a bar, an outline, the camera's preview or a
        // notification would be in the movie. The movie gets the camera from
        // the recorder; the menu, the shortcut or the command stops (the
        // options bar said so).
        m_camera->hide();
        qCInfo(lcRecording, "Recording without a control bar: it would be in the movie here");
        return;
    }
    m_controls = new ShotRecordingControlBar(options.microphone);
    connect(m_controls, &ShotRecordingControlBar::pauseToggled, this, [this] {
        try {
            if (state().is<RecordingState::Paused>()) {
                resume();
            } else {
                pause();
            }
        } catch (const Error& error) {
            qCInfo(lcRecording, "Pause not possible now: %s", qPrintable(error.message()));
        }
    });
    connect(m_controls, &ShotRecordingControlBar::stopRequested, this, [this] {
        if (isRunning() && !state().is<RecordingState::Finishing>()) {
            stop();
        }
    });
    connect(m_controls, &ShotRecordingControlBar::cancelRequested, this,
            &ShotRecordingFlow::cancel);
    m_controls->adjustSize();
    m_controls->move(
        ShotRecordingLayout::beside(m_targetRect, QSizeF(m_controls->size()), m_displayRect)
            .toPoint());
    m_controls->show();
    m_controls->raise();
    if (options.microphone) {
        m_meter.start();
    }
    if (std::holds_alternative<RecordingTarget::Area>(m_target->target)) {
        m_outline.show(m_targetRect, 2, QColor(224, 53, 43),
                       QStringLiteral("Nubo Shot Recording Area"));
    }
    qCInfo(lcRecording, "Recording control bar shown");
}

void ShotRecordingFlow::recorderChanged(const RecordingState& state)
{
    if (m_controls) {
        m_controls->showState(state);
    }
    emit stateChanged(state);
    if (const auto* finished = std::get_if<RecordingState::Finished>(&state.state)) {
        m_inhibitor->release();
        setPhase(Phase::idle);
        qCInfo(lcRecording, "Recording saved to %s", qPrintable(finished->file));
        ShotNotifications::shared().notifyFile(tr("Recording saved"), finished->file,
                                               QFileInfo(finished->file).fileName());
        openReview(finished->file);
    } else if (const auto* failed = std::get_if<RecordingState::Failed>(&state.state)) {
        m_inhibitor->release();
        if (m_phase == Phase::recording) { // a start that failed is told by its caller
            fail(failed->message);
        }
    } else if (state.is<RecordingState::Idle>()) {
        m_inhibitor->release();
        setPhase(Phase::idle);
    }
}

void ShotRecordingFlow::openReview(const QString& file)
{
    // Every finished recording opens for review; the file is already saved.
    try {
        auto* review = new ShotReviewWindow(file, m_preferences);
        review->setAttribute(Qt::WA_DeleteOnClose);
        review->show();
        review->raise();
        review->activateWindow();
        m_reviews.removeAll(nullptr);
        m_reviews.append(review);
    } catch (const Error& error) {
        qCWarning(lcRecording, "The review of %s did not open: %s", qPrintable(file), qPrintable(error.message()));
    }
}

void ShotRecordingFlow::pause()
{
    if (!m_recorder) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    m_recorder->pause();
}

void ShotRecordingFlow::resume()
{
    if (!m_recorder) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    m_recorder->resume();
}

void ShotRecordingFlow::stop()
{
    if (!m_recorder) {
        throw RecordingError(RecordingError::Code::invalidState);
    }
    m_recorder->stop();
}

void ShotRecordingFlow::cancel()
{
    switch (m_phase) {
    case Phase::framing:
        m_overlay->cancel();
        setPhase(Phase::idle);
        return;
    case Phase::choosing:
    case Phase::countingDown:
        qCInfo(lcRecording, "Recording cancelled before it started");
        setPhase(Phase::idle);
        return;
    case Phase::recording:
    case Phase::idle:
        if (m_recorder && !m_recorder->state().is<RecordingState::Idle>()) {
            m_recorder->cancel(); // reports idle, which ends the flow
        }
        setPhase(Phase::idle);
        return;
    }
}

} // namespace nubo
