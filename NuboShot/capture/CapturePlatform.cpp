#include "capture/CapturePlatform.h"

#include "capture/xcb/XcbCapturePlatform.h"
#include "core/Logging.h"

namespace nubo {

CapturePlatformEnvironment CapturePlatformEnvironment::fromProcess()
{
    return {qEnvironmentVariable(CapturePlatformLoader::overrideVariable).trimmed(),
            qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
            qEnvironmentVariable("XDG_SESSION_TYPE")};
}

QStringList CapturePlatformLoader::backends()
{
    return {QStringLiteral("x11")};
}

namespace {

std::unique_ptr<CapturePlatform> loadX11(const QString& display,
                                         const CapturePlatformLoader::ScaleLookup& scale)
{
    try {
        return std::make_unique<XcbCapturePlatform>(display.toLocal8Bit(), scale);
    } catch (const CaptureError& error) {
        throw CapturePlatformError(
            display.isEmpty()
                ? QStringLiteral("No X display to capture: DISPLAY is not set.")
                : QStringLiteral("The X display \u201c%1\u201d (DISPLAY) cannot be reached.")
                      .arg(display));
    }
}

} // namespace

std::unique_ptr<CapturePlatform> CapturePlatformLoader::load(const CapturePlatformEnvironment& env,
                                                             ScaleLookup scale)
{
    if (!env.override.isEmpty()) {
        if (env.override == QLatin1String("x11")) {
            return loadX11(env.x11Display, scale);
        }
        throw CapturePlatformError(
            QStringLiteral("There is no capture backend \u201c%1\u201d (%2); this build has: %3.")
                .arg(env.override, QLatin1String(overrideVariable),
                     backends().join(QStringLiteral(", "))));
    }
    // Through XWayland an X client sees only the other X clients' windows:
    // its captures would be black where the desktop's own windows are.
    if (!env.waylandDisplay.isEmpty() || env.sessionType == QLatin1String("wayland")) {
        throw CapturePlatformError(QStringLiteral(
            "This is a Wayland session, and this build of Nubo Shot has no Wayland capture "
            "backend (the desktop portals): log in to an X11 session to capture, or set %1=x11 to "
            "capture only what XWayland shows.")
                                       .arg(QLatin1String(overrideVariable)));
    }
    if (env.x11Display.isEmpty()) {
        throw CapturePlatformError(
            QStringLiteral("No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set."));
    }
    return loadX11(env.x11Display, scale);
}

} // namespace nubo
