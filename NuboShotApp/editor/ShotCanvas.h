#pragma once

#include "editor/ShotEditorModel.h"
#include "editor/ShotTool.h"

#include <QWidget>

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
    void setZoom(double zoom); // fixed zoom
    void setFitsWindow(bool fits);
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

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void documentChanged();
    void updateFit();
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
    QPointF m_press;
    bool m_pressed = false;
    bool m_everPainted = false;
    std::unique_ptr<ShotTool> m_tool;
    ShotToolKind m_toolKind = ShotToolKind::select;
};

} // namespace nubo
