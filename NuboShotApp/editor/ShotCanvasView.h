#pragma once

#include <QScrollArea>

#include <functional>

#include <optional>

class QLabel;
class QTimer;

namespace nubo {

class ShotCanvas;

// The canvas in a scrolling view: the shot centred on a neutral background,
// scroll bars when it is larger than the view, panning (Space-drag or
// middle-drag), the wheel scrolling and Ctrl+wheel zooming about the
// pointer, zoom steps that include 100 %, and short notices floating over
// the view (they never change the canvas's size).
class ShotCanvasView : public QScrollArea {
    Q_OBJECT
public:
    explicit ShotCanvasView(ShotCanvas* canvas, QWidget* parent = nullptr);

    ShotCanvas& canvas() const { return *m_canvas; }

    // The zoom steps, in order; 1 is one of them.
    static const QList<double>& zoomSteps();
    // The next step above (direction > 0) or below the zoom.
    static double nextZoomStep(double zoom, int direction);
    void zoomIn();
    void zoomOut();
    // A fixed zoom, keeping the document point under `anchor` (viewport
    // coordinates; the view's centre when absent) where it is.
    void zoomTo(double zoom, std::optional<QPoint> anchor = std::nullopt);
    // Zoom follows the view's size: the whole shot, never above 100 %.
    void fitToView();
    // The zoom at which the whole shot fits a viewport of `size`.
    // The zoom that fits the shot's width into a view of `size` with room
    // for a vertical scroll bar (at most 100 %): for shots far taller than wide.
    double fitWidthZoom(QSize size) const;
    double fitZoom(QSize size) const;

    void showNotice(const QString& text);
    // A wheel turn without Ctrl over a shot that needs no scrolling: a step
    // up (+1) or down (-1) of the current tool's size; asked with 0 first,
    // true when the tool has a size.
    std::function<bool(int steps)> resizeTool;
    QLabel* notice() const { return m_notice; }
    // A card of keys (rich text) at the view's top right, until a click on
    // it hides it and calls `dismissed`.
    void showKeyHelp(const QString& text, std::function<void()> dismissed);
    QLabel* keyHelp() const { return m_keyHelp; }
    bool isPanning() const { return m_panning; }

    // Room for the shot at 100 % (and a margin).
    QSize sizeHint() const override;
    static constexpr int margin = 24;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Keys belong to the editor (arrows nudge the selection), not to scrolling.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void placeCanvas();
    void placeNotice();
    bool wheel(class QWheelEvent* event);

    ShotCanvas* m_canvas;
    QLabel* m_notice;
    QLabel* m_keyHelp = nullptr;
    std::function<void()> m_keyHelpDismissed;
    void placeKeyHelp();
    QTimer* m_noticeTimer;
    QTimer* m_spaceRelease;
    bool m_spaceHeld = false;
    bool m_panning = false;
    QPoint m_panFrom;
    QPoint m_scrollFrom;
    int m_wheelRest = 0; // part of a wheel step not yet acted on
    int m_sizeRest = 0; // part of a wheel step not yet acted on
};

} // namespace nubo
