#pragma once

#include "editor/ShotEditorModel.h"
#include "editor/ShotTool.h"

#include <QWidget>

#include <optional>

namespace nubo {

class ShotRenderer;

// Paints the working document and turns pointer events into the active
// tool's gestures. It paints and never decides: every change goes through the
// model, and only the area a change touched is painted again.
class ShotCanvas : public QWidget {
    Q_OBJECT
public:
    ShotCanvas(ShotEditorModel& model, ShotRenderer& renderer, QWidget* parent = nullptr);

    double zoom() const { return m_zoom; }
    void setZoom(double zoom); // a fixed zoom
    // The zoom the view found to fit the shot; zoom follows the view from now.
    void setFitZoom(double zoom);
    bool fitsWindow() const { return m_fitsWindow; }
    // The shown part of the document in points (the whole canvas while cropping).
    QSizeF contentSize() const { return visibleRect().size(); }
    // A cursor that wins over the tool's (a pan under way); none gives the
    // tool's back.
    void setCursorOverride(std::optional<Qt::CursorShape> shape);
    // Where the colour picker's loupe is, in widget points (while it shows).
    std::optional<QPoint> loupePosition() const { return m_loupeAt; }
    static constexpr int loupeCells = 11;
    static constexpr int loupeCell = 9;
    QPointF toDocument(QPointF widgetPoint) const;
    QRectF toWidget(const QRectF& documentRect) const;
    QSize sizeHint() const override;

    // Paints a document area into a painter set up for document space; used
    // by paintEvent and by the benchmark.
    void paintDocument(QPainter& painter, const QRectF& area) const;

signals:
    // A click with the colour picker, in document points.
    void colorPickRequested(QPointF point);
    // The canvas is on screen for the first time.
    void firstPainted();
    void zoomChanged(double zoom);
    // The document's shown size changed (a crop, a layer added).
    void contentSizeChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void documentChanged();
    void updateCursor();
    QRect loupeRect(QPoint at) const;
    void paintLoupe(QPainter& painter, QPoint at) const;
    ShotGesture gesture(const QMouseEvent* event) const;
    QRectF visibleRect() const;
    ShotTool& tool(); // the active tool's object, made when the tool changes
    ShotPointer pointer(const QMouseEvent* event) const;
    QRectF annotationsBounds(const ShotDocument& document, const QSet<QUuid>& ids) const;

    ShotEditorModel& m_model;
    ShotRenderer& m_renderer;
    double m_zoom = 1;
    bool m_fitsWindow = true;
    ShotDocument m_painted; // what is on screen, to find what changed
    QSet<QUuid> m_paintedSelection;
    std::optional<QRectF> m_paintedHandles;
    std::optional<Qt::CursorShape> m_cursorOverride;
    std::optional<QPoint> m_loupeAt;
    QPointF m_press;
    bool m_pressed = false;
    bool m_everPainted = false;
    std::unique_ptr<ShotTool> m_tool;
    ShotToolKind m_toolKind = ShotToolKind::select;
};

} // namespace nubo
