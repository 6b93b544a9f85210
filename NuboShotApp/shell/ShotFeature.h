#pragma once

#include "capture/CapturePlatform.h"
#include "capture/CaptureSelection.h"
#include "document/ShotDocument.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

namespace nubo {

class GlobalShortcuts;
class ShotEditorWindow;
class ShotOverlayController;
class ShotPins;
class ShotPreferences;
class ShotRenderer;
class ShotRecentStore;
class ShotScrollingSession;

// How a capture is asked for beyond its mode.
struct ShotCaptureOptions {
    static constexpr int maximumDelay = 3600; // seconds
    int delaySeconds = 0; // the screen is frozen this long after the request
    bool pin = false;     // the shot is pinned to the screen instead of edited
};

// Runs still captures and opens their results, and images from files, in
// editor windows. Captures run on worker threads; the tray stays
// responsive. Main thread only.
class ShotFeature : public QObject {
    Q_OBJECT
public:
    ShotFeature(std::shared_ptr<CapturePlatform> platform, ShotPreferences& preferences, ShotRenderer& renderer, QObject* parent = nullptr);
    ~ShotFeature() override;

    // A capture request as the menu, the shortcuts and automation make it.
    void capture(CaptureMode mode, ShotCaptureOptions options = {});
    // A capture is under way (from the request, its delay included, to the
    // editor or the alert).
    bool isCapturing() const { return m_capturing || m_delayLeft > 0; }
    // The seconds a delayed capture still waits; 0 when none waits.
    int delayLeft() const { return m_delayLeft; }
    // Drops the delayed capture (Escape does it too, while the delay runs).
    void cancelDelay();
    // The shots pinned to the screen.
    ShotPins& pins() { return *m_pins; }
    // Opens image files (or shot archives) in editors. The files are read on
    // a worker thread (a slow disk or a hostile file never stalls the
    // tray); `done` then gets, on the main thread, the messages of those
    // that could not be opened, empty when all opened.
    void openFiles(const QStringList& files,
                   std::function<void(const QStringList& failures)> done);
    // Captures go to the recent images, and their editors' outputs update
    // them. May stay unset (no recents).
    void setRecents(ShotRecentStore* recents) { m_recents = recents; }
    // Opens a recent image in an editor (a capture with its annotations
    // editable); failures are told with an alert.
    void openRecent(const QUuid& id);
    // The editors open now.
    QList<ShotEditorWindow*> editors() const;
    // Offered by the platform.
    bool isOffered(CaptureMode mode) const;

    // How failures reach the user; replaceable for tests. The default is a
    // modal alert above other windows.
    std::function<void(const QString& title, const QString& text)> presentAlert;

signals:
    void editorOpened(ShotEditorWindow* editor);
    // Each second of a delay, and 0 when it ends (captured or cancelled).
    void delayChanged(int secondsLeft);

private:
    // What a capture's worker brings back.
    struct Frozen {
        QList<DisplayCapture> displays;
        QList<CapturableWindow> windows;
        std::optional<WindowCapture> picked; // the window the desktop's dialog gave
        QString error; // empty on success
        bool cancelled = false;
    };
    // What to freeze.
    struct Freezing {
        CaptureMode mode = CaptureMode::area;
        QPoint pointer;                   // fullscreen takes the display under it
        bool pickWindow = false;          // the desktop's dialog picks a window
        bool withPointer = false;         // the pointer is painted in
        std::optional<quint32> display;   // this display alone (Capture Previous Area)
    };
    // The screens frozen as asked, or the window picked in the desktop's
    // dialog; a failure is in the result. On a worker thread.
    static Frozen freeze(ScreenCapturing& capturer, const Freezing& freezing);
    // The area framed last, on its display, in the display's pixels; the
    // display's size then, to refuse one that changed.
    struct LastArea {
        quint32 display = 0;
        QRect pixels;
        QSize displaySize;
    };
    static std::optional<LastArea> storedLastArea(const ShotPreferences& preferences);
    void rememberLastArea(const LastArea& area);
    // The capture itself, once its delay is over.
    void begin(CaptureMode mode, ShotCaptureOptions options);
    void countDown();
    // Capture Previous Area: the display frozen alone, the same pixels cut.
    void captureLastArea(const LastArea& area, const QList<DisplayCapture>& displays);
    // Runs `work` off the main thread, then frozen() with its result.
    void freezeThenShow(CaptureMode mode, std::function<Frozen()> work);
    void frozen(CaptureMode mode, const Frozen& result);
    void framed(const ShotCaptureSelection& selection);
    void startScrolling(const ShotCaptureSelection& selection);
    void failed(const QString& message);
    ShotEditorWindow* openEditor(ShotDocument document);
    // The editor on the shot, or a pin placed where the shot was (global
    // points) when the capture pins.
    void finishCapture(const QImage& image, double scale, const QString& notice = {},
                       std::optional<QPoint> where = std::nullopt);
    // Capture Text: the picture's text on the clipboard and a notification
    // that opens the picture in an editor.
    void copyText(const QImage& image, double scale);
    void copyRaw(ShotEditorWindow* editor, const ShotDocument& document);
    // The editor's outputs keep the recent entry `id` up to date.
    void followInRecents(ShotEditorWindow* editor, const QUuid& id);

    std::shared_ptr<CapturePlatform> m_platform;
    ShotPreferences& m_preferences;
    ShotRenderer& m_renderer;
    QList<QPointer<ShotEditorWindow>> m_editors;
    std::unique_ptr<ShotOverlayController> m_overlay;
    QPointer<ShotScrollingSession> m_scrolling;
    ShotRecentStore* m_recents = nullptr;
    CaptureMode m_mode = CaptureMode::area; // of the capture under way
    bool m_pin = false;                     // the capture under way is pinned
    std::unique_ptr<ShotPins> m_pins;
    // A delayed capture: what it takes, its countdown, the Escape that drops it.
    std::pair<CaptureMode, ShotCaptureOptions> m_delayed;
    int m_delayLeft = 0;
    QTimer* m_delayTimer = nullptr;
    std::unique_ptr<GlobalShortcuts> m_escape;
    LastArea m_lastArea;                    // taken again by the capture under way
    QList<DisplayCapture> m_frozen; // the displays under the overlay
    bool m_capturing = false;
    QElapsedTimer m_requested; // for the latencies the log reports
    QElapsedTimer m_accepted;
};

} // namespace nubo
