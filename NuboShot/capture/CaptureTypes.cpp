#include "capture/CaptureTypes.h"

#include "capture/xcb/XcbScreenCapturer.h"
#include "core/Geometry.h"

#include <cmath>

namespace nubo {

CaptureError::CaptureError(Code code, QString detail)
    : Error(messageFor(code)), m_code(code), m_detail(std::move(detail))
{}

QString CaptureError::messageFor(Code code)
{
    switch (code) {
    case Code::permissionDenied:
        return QStringLiteral("Screen Recording permission is required.");
    case Code::cancelled:
        return QStringLiteral("Capture was cancelled.");
    case Code::noContent:
        return QStringLiteral("No screen content is available.");
    }
    return {};
}

WindowCaptureFraming
WindowCaptureFraming::forWindow(const QRectF& frame,
                                const QList<std::pair<quint32, QRectF>>& displays)
{
    for (const auto& [id, bounds] : displays) {
        if (bounds.contains(frame)) {
            return {Display{id, frame.translated(-bounds.topLeft())}};
        }
    }
    return {Free{}};
}

QSize WindowCaptureFraming::pixelSize(QSizeF size, double scale)
{
    return {std::max(int(std::lround(size.width() * scale)), 1),
            std::max(int(std::lround(size.height() * scale)), 1)};
}

namespace {

const QStringList excludedBundles{"com.apple.dock",
                                  "com.apple.notificationcenterui",
                                  "com.apple.wallpaper.agent",
                                  "com.apple.screencaptureui",
                                  "com.apple.screensaver.engine",
                                  "com.apple.windowserver",
                                  "com.apple.windowmanager"};
const QStringList excludedApplications{"dock",          "notification center", "notificationcenter",
                                       "wallpaper",     "screenshot",          "screensaverengine",
                                       "window server", "windowserver",        "windowmanager"};
// Window types that are part of the desktop, never something to pick.
const QStringList excludedTypes{"desktop",    "dock", "notification", "tooltip", "dropdown_menu",
                                "popup_menu", "menu", "splash",       "combo",   "dnd"};

bool inLayerRange(int layer)
{
    return unsigned(layer) <= 999u; // negative layers are dropped too
}

} // namespace

bool WindowCaptureFilter::keep(const WindowCaptureDescriptor& d,
                               const QList<WindowCaptureDisplay>& displays, qint32 ownProcessID)
{
    const CapturableWindow& w = d.window;
    if (d.processID && *d.processID == ownProcessID) {
        return false;
    }
    if (!d.isOnScreen || !(d.alpha > 0)) {
        return false;
    }
    if (!ShotGeometry::isFinite(w.frame) || w.frame.width() < 8 || w.frame.height() < 8) {
        return false;
    }
    if (!inLayerRange(w.layer) || !inLayerRange(d.cgLayer.value_or(w.layer))) {
        return false;
    }
    if (d.bundleID && !d.bundleID->isEmpty()) {
        if (excludedBundles.contains(d.bundleID->toLower())) {
            return false;
        }
    } else if (excludedApplications.contains(w.applicationName.toLower())) {
        return false;
    }
    for (const QString& type : d.windowTypes) {
        if (excludedTypes.contains(type)) {
            return false;
        }
    }
    for (const WindowCaptureDisplay& display : displays) {
        const QRectF strip(display.frame.topLeft(),
                           QSizeF(display.frame.width(), display.menuBarHeight));
        if (display.menuBarHeight > 0 && strip.contains(w.frame)) {
            return false;
        }
        if (w.layer != 0 && w.frame.contains(display.frame.adjusted(2, 2, -2, -2))) {
            return false;
        }
    }
    return true;
}

QList<CapturableWindow>
WindowCaptureFilter::filter(const QList<WindowCaptureDescriptor>& descriptors,
                            const QList<WindowCaptureDisplay>& displays, qint32 ownProcessID)
{
    QList<CapturableWindow> kept;
    for (const WindowCaptureDescriptor& d : descriptors) {
        if (keep(d, displays, ownProcessID)) {
            kept.append(d.window);
        }
    }
    return kept;
}

ShotScreenRecordingAccess::ShotScreenRecordingAccess()
{
    probe = [] {
        XcbScreenCapturer().probe();
    };
    cgPreflight = [this] {
        try {
            probe();
            return true;
        } catch (const Error&) {
            return false;
        }
    };
    // X11 shows every window's name to every client: a live grant cannot be
    // told apart from the preflight, which has already answered.
    liveGrant = [] {
        return false;
    };
}

ShotScreenRecordingAccess::Status ShotScreenRecordingAccess::status()
{
    if (cgPreflight()) {
        return Status::granted;
    }
    if (!liveGrant()) {
        verifiedLiveGrant = false;
        return Status::missing;
    }
    try {
        probe();
    } catch (const Error&) {
        verifiedLiveGrant = false;
        return Status::restartRequired;
    }
    verifiedLiveGrant = liveGrant();
    return verifiedLiveGrant ? Status::granted : Status::missing;
}

} // namespace nubo
