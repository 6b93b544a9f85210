#pragma once

#include "video/VideoEditList.h"

#include <QImage>
#include <QUuid>
#include <QWidget>

#include <vector>

namespace nubo {

// The review window's timeline: thumbnails of the recording, removed
// stretches hatched, split points, the in and out handles, the blur
// regions as numbered bars under the pictures, the playhead. Dragging on
// the pictures scrubs; dragging a handle or a bar edits, ending with
// `finished` set when the button is released.
class ShotReviewTimeline : public QWidget {
    Q_OBJECT
public:
    explicit ShotReviewTimeline(VideoTime duration, QWidget* parent = nullptr);

    void setEdits(const VideoEditList& list);
    void setPosition(VideoTime position);
    void setThumbnails(std::vector<QImage> thumbnails);
    void setSelectedBlur(const QUuid& id);
    QSize sizeHint() const override;

    // Where a time is drawn, and the time under an x (both in widget pixels).
    double xOf(VideoTime time) const;
    VideoTime timeAt(double x) const;
    static constexpr int stripHeight = 52;
    static constexpr int laneHeight = 20;

signals:
    void scrubbed(nubo::VideoTime time);
    void inPointDragged(nubo::VideoTime time, bool finished);
    void outPointDragged(nubo::VideoTime time, bool finished);
    void blurTimeDragged(const QUuid& id, const nubo::VideoTimeRange& range, bool finished);
    void blurSelected(const QUuid& id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    enum class Drag { none, scrub, in, out, blurMove, blurStart, blurEnd };
    QRectF stripRect() const;
    QRectF barRect(const VideoBlurRegion& region, int lane) const;
    std::vector<std::pair<const VideoBlurRegion*, int>> lanes() const;
    void dragTo(double x, bool finished);

    VideoTime m_duration;
    VideoEditList m_list;
    VideoTime m_position;
    std::vector<QImage> m_thumbnails;
    QUuid m_selected;
    Drag m_drag = Drag::none;
    QUuid m_dragBlur;
    VideoTimeRange m_dragRange;
    VideoTime m_dragOrigin;
};

} // namespace nubo
