#pragma once

#include "capture/ScreenCapturing.h"
#include "capture/portal/PipeWireFrames.h"
#include "capture/portal/PortalScreenCast.h"
#include "capture/portal/WaylandOutputs.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <mutex>

namespace nubo {

// What a stream showed, to tell which screen it is: the desktop's word on
// its place where it gives one, the picture's size, and the screen its
// grant showed last time.
struct PortalStreamPicture {
    std::optional<QPoint> position;
    std::optional<QSize> size; // in points
    QSize pixels;
    QString screenBefore;
    bool operator==(const PortalStreamPicture&) const = default;
};

// The screen (an index into `screens`) each stream shows, -1 for none:
// by position where the desktop says it, else by the pixel size, the
// screen of the last time first among equals. No screen is taken twice.
QList<int> matchPortalStreams(const QList<DesktopScreen>& screens,
                              const QList<PortalStreamPicture>& streams);
// The scale at which a screen's picture has `pixels`, where that is a
// fractional scale the application was told as the next whole number (its
// `scale`, as Qt before 6.5 is told); nothing otherwise.
std::optional<double> fractionalScale(const DesktopScreen& screen, QSize pixels);

// The screen-cast grants kept between sessions: each restore token with
// the screens it showed last. Stored with the preferences; a token is
// useless to any other program, and the desktop forgets it when the user
// takes the permission back.
struct PortalGrant {
    QString token;
    QStringList screens;
    bool operator==(const PortalGrant&) const = default;
};
QList<PortalGrant> loadPortalGrants();
void savePortalGrants(const QList<PortalGrant>& grants);

// Stills through the ScreenCast portal: every granted monitor's stream
// gives one picture, taken at once. The first capture asks the desktop
// (its dialog); the grants it gives are kept and renewed after every start,
// so that later captures ask nobody. A screen no grant shows is asked for
// once more per capture. Where the desktop offers no screen casts, or they
// fail for reasons of its own (not the user's "no"), the Screenshot portal
// takes one picture of the whole desktop, cut into the screens. The
// desktop's own window list is not reachable: where it casts windows, the
// user picks one in its dialog.
class PortalScreenCapturer : public ScreenCapturing {
public:
    using ScreenLookup = std::function<QList<DesktopScreen>()>;

    // A started cast that shows one display, kept running (a recording's).
    struct DisplayCast {
        std::shared_ptr<PortalScreenCast> cast;
        std::shared_ptr<PipeWireFrames> frames;
        int stream = -1; // the frames' stream that shows the display
    };

    explicit PortalScreenCapturer(ScreenLookup screens);

    QList<CaptureDisplay> displays() override;
    WindowCaptureSnapshot listWindows(bool withPreviews) override;
    QList<DisplayCapture> captureDisplays(std::optional<quint32> display = std::nullopt) override;
    WindowCapture captureWindow(quint32 windowID) override;
    WindowCapture pickWindow() override;
    QImage captureRegion(quint32 display, const ScreenCaptureRegion& region) override;
    void probe() override;
    // The tray asks at start: from now on the casts of stills keep running,
    // and later stills are their newest pictures, with no portal call.
    void prepareWindowPixels() override;

    // Starts a cast that shows `display`, through a kept grant that showed
    // it before where there is one (asking nobody), else asking the desktop;
    // the grant is renewed and kept. Blocks until each stream's first
    // picture; at most `framesPerSecond` pictures a second. Throws
    // CaptureError when the display is not granted.
    DisplayCast castDisplay(quint32 display, PortalScreenCast::Cursor cursor,
                            int framesPerSecond);

    // The cast the tray keeps running for `display` (hidden pointer), shared;
    // empty where none runs.
    DisplayCast keptCast(quint32 display);
    // Starts a cast of the window the user picks in the desktop's dialog
    // (asked every time: no grant is kept). Blocks until its first picture.
    // Throws CaptureError (cancelled) when the user declines.
    DisplayCast castWindow(PortalScreenCast::Cursor cursor, int framesPerSecond);
    // The scale of a window's picture: the one every screen shares, 1 when
    // they differ.
    double windowScale();

    // A display's id: stable for its name.
    static quint32 displayID(const QString& name);

private:
    QList<DesktopScreen> screens();
    QList<DisplayCapture> castDisplays(const QList<DesktopScreen>& known,
                                       std::optional<quint32> display);
    QList<DisplayCapture> screenshotDisplays(const QList<DesktopScreen>& known,
                                             std::optional<quint32> display);

    // Stills from the casts kept running, when they still show every screen
    // asked for; nothing otherwise (and they are let go when stale).
    std::optional<QList<DisplayCapture>> keptDisplays(const QList<DesktopScreen>& known,
                                                      std::optional<quint32> display);

    struct KeptStream {
        std::shared_ptr<PortalScreenCast> cast;
        std::shared_ptr<PipeWireFrames> frames;
        int stream = -1;
        DesktopScreen screen;
    };

    ScreenLookup m_screens;
    std::mutex m_lock; // one capture at a time: grants are renewed by each
    QList<DesktopScreen> m_seen; // the screens of the last capture, without a lookup
    bool m_castsFail = false;    // screen casts failed here: the Screenshot portal from now on
    bool m_keep = false;         // keep casts running between stills (the tray)
    QList<KeptStream> m_kept;    // the casts kept, a stream a screen
    QList<DesktopScreen> m_keptFor; // the screens they were matched to
    QHash<QString, QSize> m_measured; // each screen's pixels, as its cast showed them
    QList<DesktopScreen> m_outputsFor;  // the screens m_outputs were read for
    QList<WaylandOutput> m_outputs;     // the compositor's monitors and their modes
};

} // namespace nubo
