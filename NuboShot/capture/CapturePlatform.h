#pragma once

#include "capture/CaptureTypes.h"
#include "capture/GlobalShortcuts.h"
#include "capture/ScreenCapturing.h"
#include "capture/ScreenRegionStreaming.h"
#include "capture/ScrollDriving.h"
#include "capture/ScreenFrameSource.h"
#include "core/Error.h"

#include <QRect>

#include <functional>
#include <memory>

namespace nubo {

// What a capture backend can do on this desktop.
struct CapturePlatformFeatures {
    QList<CaptureMode> modes;     // the still captures it can take
    bool windowCapture = false;   // one window's own pixels, also where covered
    bool regionStreams = false;   // repeated frames of a region (scrolling)
    bool globalShortcuts = false; // keys that work wherever the focus is
    bool recording = false;       // movies of the screen
    bool autoScroll = false;      // wheel turns sent to what the user scrolls
    bool windowPicker = false;    // windows are picked in the desktop's own dialog
    bool operator==(const CapturePlatformFeatures&) const = default;
};

// Whether the desktop asks the user before a program reads the screen, and
// how many of the user's answers are kept so that captures ask nobody.
struct ScreenGrants {
    bool asked = false; // false: programs may read the screen (X11)
    qsizetype kept = 0;
};

// One desktop's capture backend: still captures, region streams and global
// shortcuts behind the engine's interfaces. The application talks to these
// and never to the window system itself. Made by CapturePlatformLoader.
class CapturePlatform {
public:
    // Pixels per point of the display with this pixel geometry, as the
    // application's screens report it; 1 when not given.
    using ScaleLookup = std::function<double(const QRect& pixelGeometry)>;
    // The screens as the application sees them now; called from any thread.
    using ScreenLookup = std::function<QList<DesktopScreen>()>;

    virtual ~CapturePlatform() = default;

    // The backend's name, as the override variable takes it ("x11").
    virtual QString name() const = 0;
    // Why nothing can be captured here, in one line for the user; empty
    // where the backend works.
    virtual QString problem() const { return {}; }
    virtual CapturePlatformFeatures features() const = 0;
    // Shared by every thread that captures.
    virtual std::shared_ptr<ScreenCapturing> capturer() = 0;
    // Null when the backend has no region streams.
    virtual std::shared_ptr<ScreenRegionStreaming> regionStreaming() = 0;
    // Null when the backend cannot turn the wheel for auto-scroll.
    virtual std::shared_ptr<ScrollDriving> scrollDriving() = 0;
    // Null when the backend has no global shortcuts. Main thread.
    virtual std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts() = 0;
    // The pictures of one recording at a time; null when the backend cannot
    // record. Main thread.
    virtual std::unique_ptr<ScreenFrameSource> makeFrameSource() { return nullptr; }
    // Keeps the window system's screen saver and power saving off while
    // held (let go on false, and by the window system when the process
    // ends). False when this desktop has no such hold. Main thread.
    virtual bool holdScreenSaver(bool /*hold*/) { return false; }
    // The desktop's answers about reading the screen. Main thread.
    virtual ScreenGrants grants() const { return {}; }
    // Forgets the kept answers: the desktop asks again at the next capture.
    virtual void forgetGrant() {}
    // The name of the application that owns the clipboard now, when the
    // window system can tell. Main thread.
    virtual std::optional<QString> clipboardOwner() { return std::nullopt; }
    // Whether translucent windows are blended with what lies under them
    // (Wayland always; X11 while a compositing manager runs). Main thread.
    virtual bool windowsComposited() { return true; }
};

// Why no backend fits: one line for the user.
class CapturePlatformError : public Error {
public:
    using Error::Error;
};

} // namespace nubo
