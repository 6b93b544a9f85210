#pragma once

#include "overlay/ShotCaptureOverlay.h"

#include <QObject>
#include <QPointer>

namespace nubo {

class ShotPreferences;

// Covers every display with its frozen image and answers once: with what the
// user framed on one of them, or cancelled. Space switches every display
// between area and window mode together. Main thread only.
class ShotOverlayController : public QObject {
    Q_OBJECT
public:
    explicit ShotOverlayController(QObject* parent = nullptr);
    ~ShotOverlayController() override;

    // `windows` front-most first. The display under the pointer takes the
    // keyboard.
    void present(const QList<DisplayCapture>& displays, const QList<CapturableWindow>& windows,
                 CaptureMode mode);
    // The recording variant: answers with a recording target. `targets` are
    // the same displays as the recorder knows them.
    void presentRecording(const QList<DisplayCapture>& displays,
                          const QList<CaptureDisplay>& targets,
                          const QList<CapturableWindow>& windows);
    // Whether the overlays offer picking windows (Space); on by default.
    void setWindowPicking(bool on) { m_windowPicking = on; }
    // Whether the desktop's own dialog picks windows (Space answers at once).
    void setDesktopPicksWindows(bool on) { m_desktopPicks = on; }
    // Takes "adjust the area" and whether the card of keys was seen from the
    // preferences at each presentation, and marks the card seen there.
    void followPreferences(ShotPreferences* preferences) { m_preferences = preferences; }
    // Whether a dragged area waits to be adjusted and confirmed.
    void setAdjustsArea(bool on) { m_adjusts = on; }
    // Whether the card of keys shows on every display until clicked.
    void setKeyHelp(bool on) { m_keyHelp = on; }
    // Closes the overlays without an answer.
    void cancel() { finish(); }
    bool isPresenting() const { return !m_overlays.isEmpty(); }
    QList<ShotCaptureOverlay*> overlays() const;

signals:
    void answered(const ShotOverlayOutcome& outcome);
    void cancelled();
    // The first overlay is on screen.
    void shown();
    // The card of keys was clicked away: not to be shown again.
    void keyHelpDismissed();

private:
    void show(const QList<DisplayCapture>& displays, const QList<CapturableWindow>& windows,
              CaptureMode mode, const QList<CaptureDisplay>& targets);
    void finish();

    QList<QPointer<ShotCaptureOverlay>> m_overlays;
    bool m_shown = false;
    bool m_windowPicking = true;
    bool m_desktopPicks = false;
    bool m_adjusts = false;
    bool m_keyHelp = false;
    ShotPreferences* m_preferences = nullptr;
};

} // namespace nubo
