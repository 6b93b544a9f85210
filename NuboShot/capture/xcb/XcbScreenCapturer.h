#pragma once

#include "capture/CaptureTypes.h"

#include <functional>
#include <memory>
#include <mutex>

namespace nubo {

// Screen capture on X11 through XCB: RandR monitors are the displays,
// MIT-SHM takes their pixels (plain GetImage where shared memory is not
// available), the window manager's stacking list names the windows and
// Composite gives each window's own pixels, even where it is covered.
//
// The program's own windows never show in a capture: where one of them lies
// over the captured area, that area is painted again from the pixels of the
// windows under it (top-level windows are redirected, so the server keeps
// their pixels), and the user sees nothing happen.
class XcbScreenCapturer : public ScreenCapturing, public ScreenRegionStreaming {
public:
    // Pixels per point of the monitor with this pixel geometry (the app
    // answers from its QScreens); 1 when not given.
    using ScaleLookup = std::function<double(const QRect& pixelGeometry)>;

    explicit XcbScreenCapturer(ScaleLookup scale = {});
    ~XcbScreenCapturer() override;
    XcbScreenCapturer(const XcbScreenCapturer&) = delete;
    XcbScreenCapturer& operator=(const XcbScreenCapturer&) = delete;

    struct Monitor {
        quint32 id = 0; // the RandR monitor's name atom
        QString name;
        QRect geometry; // in root pixels
        bool primary = false;
        ScreenSpace space;
    };
    QList<Monitor> monitors();
    // Every client window, front-most first, before filtering.
    QList<WindowCaptureDescriptor> windowDescriptors();
    QList<WindowCaptureDisplay> filterDisplays();

    WindowCaptureSnapshot listWindows(bool withPreviews) override;
    QList<DisplayCapture> captureDisplays(std::optional<quint32> display = std::nullopt) override;
    WindowCapture captureWindow(quint32 windowID) override;
    QImage captureRegion(quint32 display, const ScreenCaptureRegion& region) override;
    std::unique_ptr<ScreenRegionStream> streamRegion(quint32 display,
                                                     const ScreenCaptureRegion& region) override;

    // From now on the server keeps the pixels of every window, also where
    // they are covered; the tray application asks for this at start so that
    // window captures and the painting-away of its own windows are exact.
    // (Without it, windows are redirected on the first capture that needs it.)
    void keepWindowPixels();

    // A 1 × 1 capture of the root window; throws when it fails.
    void probe();
    // The root pixels of a region of a display (for the region stream).
    QRect regionPixels(const Monitor& monitor, const ScreenCaptureRegion& region) const;
    QImage grabRoot(const QRect& pixels);
    // Whether captures use shared memory.
    bool usesSharedMemory();

private:
    struct Connection;
    Connection& connection();

    ScaleLookup m_scale;
    std::mutex m_lock;
    std::unique_ptr<Connection> m_connection;
};

} // namespace nubo
