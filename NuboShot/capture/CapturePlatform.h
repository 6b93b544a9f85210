#pragma once

#include "capture/CaptureTypes.h"
#include "capture/GlobalShortcuts.h"
#include "capture/ScreenCapturing.h"
#include "capture/ScreenRegionStreaming.h"
#include "capture/ScrollDriving.h"
#include "recording/ScreenRecording.h"
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
    bool operator==(const CapturePlatformFeatures&) const = default;
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
    virtual CapturePlatformFeatures features() const = 0;
    // Shared by every thread that captures.
    virtual std::shared_ptr<ScreenCapturing> capturer() = 0;
    // Null when the backend has no region streams.
    virtual std::shared_ptr<ScreenRegionStreaming> regionStreaming() = 0;
    // Null when the backend cannot turn the wheel for auto-scroll.
    virtual std::shared_ptr<ScrollDriving> scrollDriving() = 0;
    // Null when the backend has no global shortcuts. Main thread.
    virtual std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts() = 0;
    // A screen recorder; null when the backend cannot record. Main thread.
    virtual std::unique_ptr<ScreenRecording> makeRecorder() { return nullptr; }
    // Keeps the window system's screen saver and power saving off while
    // held (let go on false, and by the window system when the process
    // ends). False when this desktop has no such hold. Main thread.
    virtual bool holdScreenSaver(bool /*hold*/) { return false; }
    // The name of the application that owns the clipboard now, when the
    // window system can tell. Main thread.
    virtual std::optional<QString> clipboardOwner() { return std::nullopt; }
};

// Why no backend fits: one line for the user.
class CapturePlatformError : public Error {
public:
    using Error::Error;
};

// The part of the process environment that picks a backend.
struct CapturePlatformEnvironment {
    QString override;       // NUBOSHOT_CAPTURE_PLATFORM
    QString x11Display;     // DISPLAY
    QString waylandDisplay; // WAYLAND_DISPLAY
    QString sessionType;    // XDG_SESSION_TYPE

    static CapturePlatformEnvironment fromProcess();
};

// Picks the backend at start: in a Wayland session the desktop portal's
// ("portal"), X11 ("x11") when an X display is reachable outside one; the
// backend named in NUBOSHOT_CAPTURE_PLATFORM when set (tests, and users who
// know better); otherwise a CapturePlatformError that says what is missing.
class CapturePlatformLoader {
public:
    using ScaleLookup = CapturePlatform::ScaleLookup;
    using ScreenLookup = CapturePlatform::ScreenLookup;
    static constexpr char overrideVariable[] = "NUBOSHOT_CAPTURE_PLATFORM";

    // The backends this build has, by name.
    static QStringList backends();
    static std::unique_ptr<CapturePlatform>
    load(const CapturePlatformEnvironment& environment = CapturePlatformEnvironment::fromProcess(),
         ScaleLookup scale = {}, ScreenLookup screens = {});
};

} // namespace nubo
