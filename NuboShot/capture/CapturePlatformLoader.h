#pragma once

#include "capture/CapturePlatform.h"

#include <QStringList>

namespace nubo {

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
