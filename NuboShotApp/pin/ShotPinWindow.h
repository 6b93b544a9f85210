#pragma once

#include "document/ShotDocument.h"

#include <QDateTime>
#include <QImage>
#include <QPoint>
#include <QWidget>

#include <functional>
#include <optional>

class QMenu;

namespace nubo {

// A shot pinned to the screen: a borderless window above the others that
// shows the picture at its real size, each of its pixels on one pixel of
// the screen. Drag to move, wheel to zoom, Ctrl+wheel for opacity, Ctrl+C
// copies, Escape or a double click closes, and a right click offers the
// rest. Where windows are composited it casts a soft shadow; elsewhere (a
// translucent shadow would be drawn black there) a thin grey frame goes
// round it. Main thread only.
class ShotPinWindow : public QWidget {
    Q_OBJECT
public:
    static constexpr int frame = 1;   // points of frame around the picture, uncomposited
    static constexpr int shadow = 12; // points of shadow around it, composited
    static constexpr double minimumOpacity = 0.2;

    // `picture` is `document` drawn at its own scale. `composited`: whether
    // translucent windows are blended here (the shadow), else the frame.
    ShotPinWindow(ShotDocument document, QImage picture, bool composited, QWidget* parent = nullptr);

    const ShotDocument& document() const { return m_document; }
    const QImage& picture() const { return m_picture; }
    QDateTime pinnedAt() const { return m_pinnedAt; }
    double zoom() const { return m_zoom; }
    // Points between the window's edge and the picture: the frame or the shadow.
    int margin() const { return m_margin; }
    // Shows the pin with the picture's top-left corner at `topLeft` (global points).
    void showAt(QPoint topLeft);
    void setZoom(double zoom, std::optional<QPoint> keep = std::nullopt);
    void setOpacity(double opacity);
    void copy();

    // The menu's Save and Open in Editor; the pin shows neither when unset.
    std::function<void(const ShotDocument&, const QImage&)> save;
    std::function<void(const ShotDocument&)> openInEditor;

signals:
    void closed();
    // The first time the pin was painted: it is on the screen.
    void firstPainted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // The picture's size on the screen, in points, at the zoom.
    QSize shownSize() const;
    double screenRatio() const;

    ShotDocument m_document;
    QImage m_picture;
    QDateTime m_pinnedAt = QDateTime::currentDateTime();
    double m_zoom = 1;
    std::optional<QPoint> m_grip; // where a drag holds the pin, from its corner
    bool m_painted = false;
    int m_margin = frame;
};

} // namespace nubo
