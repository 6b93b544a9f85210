#pragma once

#include "video/VideoEditList.h"

#include <QImage>
#include <QUuid>
#include <QWidget>

namespace nubo {

// The picture of the review window: the current frame (blur regions live at
// its time pixelated, as the export will), the regions as numbered
// rectangles to select, move and resize, a new region drawn in blur mode,
// and in crop mode the crop rectangle with its handles. Rectangles are
// reported normalised to the frame.
class ShotReviewCanvas : public QWidget {
    Q_OBJECT
public:
    enum class Mode { view, blur, crop };
    explicit ShotReviewCanvas(QSize source, QWidget* parent = nullptr);

    void setFrame(const QImage& picture, VideoTime time);
    void setEdits(const VideoEditList& list);
    void setMode(Mode mode);
    Mode mode() const { return m_mode; }
    void setSelectedBlur(const QUuid& id);
    const QUuid& selectedBlur() const { return m_selected; }
    // Where the frame is drawn (widget pixels).
    QRectF pictureRect() const;
    QSize sizeHint() const override { return {800, 450}; }

signals:
    void blurDrawn(const QRectF& rect);
    void blurChanged(const QUuid& id, const QRectF& rect, bool finished);
    void blurSelected(const QUuid& id);
    void cropChanged(const QRectF& rect, bool finished);
    void sizeChanged(QSize devicePixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Drag { none, draw, move, resize, cropDraw, cropMove, cropCorner };
    QPointF normalized(QPointF widget) const;
    QRectF toWidget(const QRectF& normalizedRect) const;
    void dragTo(QPointF at, bool finished);

    QSize m_source;
    QImage m_frame;
    VideoTime m_time;
    VideoEditList m_list;
    Mode m_mode = Mode::view;
    QUuid m_selected;
    Drag m_drag = Drag::none;
    QPointF m_pressed; // normalised
    QRectF m_original; // the rectangle when the drag began (normalised)
    int m_corner = 0;  // 0 top-left, 1 top-right, 2 bottom-right, 3 bottom-left
    QRectF m_drawn;
};

} // namespace nubo
