#pragma once

#include "capture/CapturePlatform.h"
#include "capture/ScrollingCapture.h"
#include "overlay/ShotAreaOutline.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QWidget>

#include <memory>

namespace nubo {

class ShotScrollingPanel;

// Where the panel of a scrolling capture goes and what is sampled: the panel
// never covers the sampled area (our own windows would show in its frames).
struct ShotScrollingLayout {
    QRectF sampled; // global points
    QPointF panel;  // the panel's top-left corner, global points

    // Beside the area on its display (right, left, below, above), else on
    // another display, else inside the area at its right edge, which is then
    // left out of what is sampled (or at its bottom, for narrow areas).
    static ShotScrollingLayout place(const QRectF& area, const QSizeF& panel,
                                     const QRectF& display, const QList<QRectF>& otherDisplays);
    static constexpr double gap = 12;   // points between the area and the panel
    static constexpr double frame = 2;  // the outline's width, outside the area
    bool operator==(const ShotScrollingLayout&) const = default;
};

// A scrolling capture from the framed area to the stitched image: frames
// of the area go through the stitcher while the user scrolls (or auto-scroll
// does), a panel beside the area shows how it goes, and Return or Done ends
// it, Escape or Cancel drops it. Main thread.
class ShotScrollingSession : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 maximumHeight = 30000;
    static constexpr qint64 maximumBytes = qint64(128) << 20;

    // `display` holds the area; `displays` are every display's, to place
    // the panel; `frozen` is the display's picture the area was framed on
    // (the stitching starts from it when the page has not changed since).
    ShotScrollingSession(std::shared_ptr<CapturePlatform> platform, ScreenSpace display,
                         QList<ScreenSpace> displays, QRectF area, QImage frozen,
                         QObject* parent = nullptr);
    ~ShotScrollingSession() override;

    // Starts the frames and shows the panel. Throws Error naming the cause
    // when the area cannot be streamed.
    void start();
    ShotScrollingPanel* panel() const { return m_panel; }
    const ShotScrollingLayout& layout() const { return m_layout; }

    void finish();
    void cancel();
    // Whether the panel shows (not on Wayland, where it cannot be placed:
    // the menu or the command ends the capture there).
    bool hasPanel() const { return m_panel != nullptr; }
    void toggleAutoScroll(bool start);

signals:
    // The stitched image at the display's scale; `notice` says why it ended
    // early (the size limit), empty otherwise.
    void finished(const QImage& image, double scale, const QString& notice);
    void cancelled();
    void failed(const QString& message);

private:
    void startCapture(std::unique_ptr<ScreenRegionStream> stream, double ratio);
    void progressed(const ScrollingCaptureProgress& progress);
    void stoppedByItself(const ScrollingCaptureEnd& end);
    void autoScrollEnded(bool byUser);
    void tearDown();

    std::shared_ptr<CapturePlatform> m_platform;
    ScreenSpace m_display;
    QList<ScreenSpace> m_displays;
    QRectF m_area;
    QImage m_frozen;
    ShotScrollingLayout m_layout;
    ScreenCaptureRegion m_region;
    QPointer<ShotScrollingPanel> m_panel;
    ShotAreaOutline m_outline;
    std::unique_ptr<GlobalShortcuts> m_keys;
    std::unique_ptr<ScrollingCapture> m_capture;
    qint64 m_height = 0;
    bool m_ended = false;
};

} // namespace nubo
