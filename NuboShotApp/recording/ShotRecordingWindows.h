#pragma once

#include "recording/RecordingTypes.h"

#include <QRectF>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;
class QToolButton;

namespace nubo {

class ShotPreferences;
class ShotRecordingControls;

// Where the recording's windows go: beside the target on its display
// (below, above, right, left, in that order), else inside the target at its
// bottom edge (a target that fills the display): our own windows never show
// in the movie, so nothing recorded is lost under them.
struct ShotRecordingLayout {
    static constexpr double gap = 12; // points between the target and a bar
    static QPointF beside(const QRectF& target, const QSizeF& bar, const QRectF& display);
};

// The dark bars of a recording: frameless, above everything, no taskbar
// entry.
class ShotRecordingBar : public QWidget {
    Q_OBJECT
public:
    explicit ShotRecordingBar(const QString& title, bool takesFocus);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// Chosen before a recording starts: what is recorded with it (each choice
// stored at once), Start (Return) and Cancel (Escape).
class ShotRecordingOptionsBar : public ShotRecordingBar {
    Q_OBJECT
public:
    ShotRecordingOptionsBar(ShotPreferences& preferences, const RecordingCapabilities& capabilities,
                            const QString& targetSize);
    ShotRecordingControls& controls() { return *m_controls; }
    QPushButton* startButton() const { return m_start; }
    // As the Start button: startRequested with the options chosen.
    void start();

signals:
    // The options as chosen, with nothing this computer cannot do.
    void startRequested(const nubo::RecordingOptions& options);
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    ShotRecordingControls* m_controls;
    QPushButton* m_start;
};

// The seconds before a recording starts, large over the target. Escape
// cancels (the flow grabs it wherever the keyboard is).
class ShotRecordingCountdown : public QWidget {
    Q_OBJECT
public:
    static constexpr int seconds = 3;
    ShotRecordingCountdown();
    void start();
    int remaining() const { return m_remaining; }

signals:
    void finished();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer m_timer;
    int m_remaining = seconds;
};

// On screen while recording (never in the movie): the elapsed time, the
// microphone's level when it is recorded, pause or resume, stop, cancel.
class ShotRecordingControlBar : public ShotRecordingBar {
    Q_OBJECT
public:
    // Its buttons, right to left: cancel, stop, pause; each this wide, this
    // far apart, after this margin at the right.
    static constexpr int buttonWidth = 30, buttonSpacing = 6, rightMargin = 6;
    explicit ShotRecordingControlBar(bool microphone);
    void showState(const RecordingState& state);
    // 0 to 1, the loudest sample since the last call.
    void setMicrophoneLevel(float level);
    QString elapsedText() const;

signals:
    void pauseToggled();
    void stopRequested();
    void cancelRequested();

private:
    QLabel* m_dot;
    QLabel* m_time;
    QWidget* m_meter = nullptr;
    QToolButton* m_pause;
    QToolButton* m_stop;
    QToolButton* m_cancel;
    float m_level = 0;
};

} // namespace nubo
