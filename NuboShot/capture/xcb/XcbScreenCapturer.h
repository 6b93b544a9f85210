#pragma once

#include "capture/ScreenCapturing.h"

#include "capture/xcb/XcbWindowList.h"

#include <QByteArray>
#include <QElapsedTimer>

#include <functional>
#include <memory>
#include <mutex>

namespace nubo {

class XcbConnection;

// Still captures on X11 through XCB: RandR monitors are the displays,
// MIT-SHM takes their pixels (plain GetImage where shared memory is not
// available), the window manager's stacking list names the windows and
// Composite gives each window's own pixels, even where it is covered.
//
// The program's own windows never show in a capture: where one of them lies
// over the captured area, that area is painted again from the pixels of the
// windows under it (top-level windows are redirected, so the server keeps
// their pixels), and the user sees nothing happen.
//
// Every call takes one lock: the connection is shared by the threads that
// capture.
class XcbScreenCapturer : public ScreenCapturing {
public:
    // Pixels per point of the monitor with this pixel geometry (the app
    // answers from its screens); 1 when not given.
    using ScaleLookup = std::function<double(const QRect& pixelGeometry)>;

    // `displayName` in the DISPLAY variable's form; empty: DISPLAY.
    explicit XcbScreenCapturer(QByteArray displayName = {}, ScaleLookup scale = {});
    ~XcbScreenCapturer() override;
    XcbScreenCapturer(const XcbScreenCapturer&) = delete;
    XcbScreenCapturer& operator=(const XcbScreenCapturer&) = delete;

    const QByteArray& displayName() const { return m_displayName; }
    const ScaleLookup& scaleLookup() const { return m_scale; }

    // Connects now; throws CaptureError naming the display when it cannot be
    // reached. (Every other call connects when it needs to.)
    void connect();

    QList<CaptureDisplay> displays() override;
    WindowCaptureSnapshot listWindows(bool withPreviews) override;
    QList<DisplayCapture> captureDisplays(std::optional<quint32> display = std::nullopt) override;
    WindowCapture captureWindow(quint32 windowID) override;
    QImage captureRegion(quint32 display, const ScreenCaptureRegion& region) override;
    std::optional<ScreenFrameCursor> pointerPicture() override;
    void probe() override;
    void prepareWindowPixels() override;

    // Every client window, front-most first, before filtering.
    QList<WindowCaptureDescriptor> windowDescriptors();
    // Whether captures use shared memory.
    bool usesSharedMemory();
    // Region and window captures in X's own 32-bit layout (B, G, R, X),
    // pointing into the shared segment until the next capture: what a
    // recorder hands straight to its encoder, with no conversion and no copy.
    void setNativePixels(bool native) { m_native = native; }
    // The windows on the screen moved, appeared or went: the next capture
    // reads their stacking again (a recording keeps it for half a second).
    void forgetStacking() { m_childrenRead.invalidate(); }

private:
    // Callers hold m_lock.
    XcbConnection& connection();
    QList<CaptureDisplay> displaysLocked();
    QImage grabRoot(const QRect& pixels);
    WindowCapture captureWindowLocked(quint32 windowID);

    QByteArray m_displayName;
    ScaleLookup m_scale;
    std::mutex m_lock;
    std::unique_ptr<XcbConnection> m_connection;
    bool m_native = false;
    QList<XcbWindowList::RootChild> m_children; // the stacking last read
    QElapsedTimer m_childrenRead;
};

} // namespace nubo
