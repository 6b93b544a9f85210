#include "capture/CapturePlatformLoader.h"

#include "capture/portal/PortalCapturePlatform.h"
#include "capture/xcb/XcbCapturePlatform.h"
#include "core/Logging.h"

#include <QCoreApplication>

namespace nubo {

CapturePlatformEnvironment CapturePlatformEnvironment::fromProcess()
{
    return {qEnvironmentVariable(CapturePlatformLoader::overrideVariable).trimmed(),
            qEnvironmentVariable("DISPLAY"), qEnvironmentVariable("WAYLAND_DISPLAY"),
            qEnvironmentVariable("XDG_SESSION_TYPE")};
}

QStringList CapturePlatformLoader::backends()
{
    return {QStringLiteral("x11"), QStringLiteral("portal")};
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
                ? QCoreApplication::translate("nubo::CapturePlatformLoader",
                                              "No X display to capture: DISPLAY is not set.")
                : QCoreApplication::translate("nubo::CapturePlatformLoader",
                                              "The X display “%1” (DISPLAY) cannot be reached.")
                      .arg(display));
    }
}

std::unique_ptr<CapturePlatform> loadPortal(const CapturePlatformLoader::ScreenLookup& screens)
{
    if (!PortalCapturePlatform::available()) {
        throw CapturePlatformError(QCoreApplication::translate(
            "nubo::CapturePlatformLoader",
            "This Wayland desktop has no screen-cast portal to capture through: install the "
            "desktop's portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again."));
    }
    return std::make_unique<PortalCapturePlatform>(screens);
}

} // namespace

std::unique_ptr<CapturePlatform> CapturePlatformLoader::load(const CapturePlatformEnvironment& env,
                                                             ScaleLookup scale, ScreenLookup screens)
{
    if (!env.override.isEmpty()) {
        if (env.override == QLatin1String("x11")) {
            return loadX11(env.x11Display, scale);
        }
        if (env.override == QLatin1String("portal")) {
            return loadPortal(screens);
        }
        throw CapturePlatformError(QCoreApplication::translate(
                                       "nubo::CapturePlatformLoader",
                                       "There is no capture backend “%1” (%2); this build has: %3.")
                                       .arg(env.override, QLatin1String(overrideVariable),
                                            backends().join(QStringLiteral(", "))));
    }
    // Through XWayland an X client sees only the other X clients' windows:
    // in a Wayland session the desktop portal captures.
    if (!env.waylandDisplay.isEmpty() || env.sessionType == QLatin1String("wayland")) {
        return loadPortal(screens);
    }
    if (env.x11Display.isEmpty()) {
        throw CapturePlatformError(QCoreApplication::translate(
            "nubo::CapturePlatformLoader",
            "No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set."));
    }
    return loadX11(env.x11Display, scale);
}

} // namespace nubo
