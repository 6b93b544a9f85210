#include "capture/WindowCaptureFilter.h"

#include "core/Geometry.h"

namespace nubo {

namespace {

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
    if (!inLayerRange(w.layer)) {
        return false;
    }
    for (const QString& type : d.windowTypes) {
        if (excludedTypes.contains(type)) {
            return false;
        }
    }
    for (const WindowCaptureDisplay& display : displays) {
        const QRectF strip(display.frame.topLeft(),
                           QSizeF(display.frame.width(), display.panelStripHeight));
        if (display.panelStripHeight > 0 && strip.contains(w.frame)) {
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

} // namespace nubo
