#pragma once

#include "capture/CapturePlatform.h"
#include "overlay/ShotAreaOutline.h"
#include "recording/RecordingTypes.h"
#include "recording/ScreenRecording.h"
#include "recording/ShotRecordingWindows.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace nubo {

class ShotCameraBubble;
class ShotOverlayController;
class ShotPreferences;
class ShotScreenSaverInhibitor;

// A recording from the user's first click to the saved movie: the frozen
// screen to frame what is recorded (an area, a display, a window), the
// options bar beside it, the countdown, the control bar while recording,
// and the end (a notification, or an alert naming what went wrong). The
// screen saver is held off while a recording runs. It owns the one
// recorder of the program, which the bus drives through it too. Main thread.
class ShotRecordingFlow : public QObject {
    Q_OBJECT
public:
    enum class Phase { idle, framing, choosing, countingDown, recording };

    ShotRecordingFlow(std::shared_ptr<CapturePlatform> platform, ShotPreferences& preferences, QObject* parent = nullptr);
    ~ShotRecordingFlow() override;

    // "Record Screen": frame over the frozen screen, then choose and start.
    void recordScreen();
    // A window from the "Record Window" menu: straight to the options.
    void recordWindow(const CapturableWindow& window);
    // The recording shortcut: starts the flow, or stops what it records.
    void toggle();
    // Records at once, without options bar or countdown (the bus). Throws
    // Error when it cannot start.
    void startNow(const RecordingTarget& target, const RecordingOptions& options,
                  const QString& folder);
    // Throw RecordingError (invalidState) when the recording is not in a
    // state that allows them.
    void pause();
    void resume();
    void stop();
    // Ends whatever is under way and leaves nothing behind.
    void cancel();

    Phase phase() const { return m_phase; }
    RecordingState state() const;
    // A recording runs (recording, paused or finishing).
    bool isRunning() const;
    // The windows a recording can take, front-most first; empty when the
    // desktop cannot say.
    QList<CapturableWindow> recordableWindows() const;
    bool canRecord() const;
    // Why this desktop cannot be recorded, for the user.
    QString cannotRecord() const;
    // What this computer can record with (the recorder's probe). Throws
    // Error when nothing can be recorded here.
    RecordingCapabilities capabilities() { return recorder().capabilities(); }

    // How failures reach the user; replaceable for tests.
    std::function<void(const QString& title, const QString& text)> presentAlert;
    // False while something else (a still capture) has the screen.
    std::function<bool()> screenIsFree;

    ShotRecordingOptionsBar* optionsBar() const { return m_options; }
    ShotRecordingCountdown* countdown() const { return m_countdown; }
    ShotRecordingControlBar* controlBar() const { return m_controls; }
    ShotOverlayController& overlay() { return *m_overlay; }
    ShotCameraBubble& cameraBubble() { return *m_camera; }

signals:
    // Every state of the recorder, as it changes.
    void stateChanged(const RecordingState& state);
    void phaseChanged(Phase phase);

private:
    struct Frozen;
    void frozen(const Frozen& result);
    void choose(const RecordingTarget& target, const QRectF& display);
    void begin(const RecordingOptions& options);
    void startRecorder(const RecordingTarget& target, const RecordingOptions& options,
                       const QString& folder);
    void showControls(const RecordingOptions& options);
    // The bubble's preview and the recorder's overlay, as the options ask.
    void setCamera(const RecordingOptions& options);
    void recorderChanged(const RecordingState& state);
    void openReview(const QString& file);
    void setPhase(Phase phase);
    void grabKeys(const QList<std::pair<QString, QKeySequence>>& keys);
    void closeWindows();
    void fail(const QString& message);
    ScreenRecording& recorder();

    std::shared_ptr<CapturePlatform> m_platform;
    ShotPreferences& m_preferences;
    std::unique_ptr<ShotOverlayController> m_overlay;
    std::unique_ptr<ScreenRecording> m_recorder;
    std::unique_ptr<ShotScreenSaverInhibitor> m_inhibitor;
    std::unique_ptr<GlobalShortcuts> m_keys;
    std::unique_ptr<ShotCameraBubble> m_camera;
    Phase m_phase = Phase::idle;
    std::optional<RecordingTarget> m_target;
    QRectF m_targetRect;  // global points
    QRectF m_displayRect; // the target's display, global points
    QPointer<ShotRecordingOptionsBar> m_options;
    QPointer<ShotRecordingCountdown> m_countdown;
    QPointer<ShotRecordingControlBar> m_controls;
    QList<QPointer<QWidget>> m_reviews; // review windows of finished recordings
    ShotAreaOutline m_outline;
    QTimer m_meter; // the microphone's level on the control bar
    QElapsedTimer m_requested;    // Record Screen to the overlay, for the log
    QElapsedTimer m_startPressed; // Start to the first frame, for the log
};

} // namespace nubo
