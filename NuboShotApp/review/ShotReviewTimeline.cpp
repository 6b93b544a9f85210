#include "review/ShotReviewTimeline.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace nubo {

namespace {
constexpr int margin = 12;     // room for the handles at both ends
constexpr double reach = 6;    // pixels either side of a handle or an edge
const QColor handleColour(255, 196, 0);
const QColor blurColour(88, 86, 214);
} // namespace

ShotReviewTimeline::ShotReviewTimeline(VideoTime duration, QWidget* parent)
    : QWidget(parent), m_duration(duration), m_list(VideoEditList::opened(QString(), duration))
{
    setObjectName(QStringLiteral("reviewTimeline"));
    setMinimumHeight(stripHeight + 2 * laneHeight + 16);
    setMouseTracking(true);
}

QSize ShotReviewTimeline::sizeHint() const
{
    return {720, stripHeight + 2 * laneHeight + 16};
}

void ShotReviewTimeline::setEdits(const VideoEditList& list)
{
    m_list = list;
    update();
}

void ShotReviewTimeline::setPosition(VideoTime position)
{
    m_position = position;
    update();
}

void ShotReviewTimeline::setThumbnails(std::vector<QImage> thumbnails)
{
    m_thumbnails = std::move(thumbnails);
    update();
}

void ShotReviewTimeline::setSelectedBlur(const QUuid& id)
{
    m_selected = id;
    update();
}

QRectF ShotReviewTimeline::stripRect() const
{
    return QRectF(margin, 6, std::max(1, width() - 2 * margin), stripHeight);
}

double ShotReviewTimeline::xOf(VideoTime time) const
{
    const QRectF strip = stripRect();
    const double seconds = std::max(m_duration.toSeconds(), 1e-6);
    return strip.left() + strip.width() * std::clamp(time.toSeconds() / seconds, 0.0, 1.0);
}

VideoTime ShotReviewTimeline::timeAt(double x) const
{
    const QRectF strip = stripRect();
    const double fraction = std::clamp((x - strip.left()) / strip.width(), 0.0, 1.0);
    // Milliseconds: fine enough for a pointer, exact from then on.
    return std::min(m_duration, VideoTime::milliseconds(llround(fraction * m_duration.toSeconds() * 1000)));
}

std::vector<std::pair<const VideoBlurRegion*, int>> ShotReviewTimeline::lanes() const
{
    // Two lanes: a bar goes to the first lane where it overlaps no other.
    std::vector<std::pair<const VideoBlurRegion*, int>> placed;
    for (const VideoBlurRegion& region : m_list.blurs) {
        int lane = 0;
        for (const auto& [other, otherLane] : placed) {
            if (otherLane == lane && other->timeRange.start < region.timeRange.end() &&
                region.timeRange.start < other->timeRange.end()) {
                lane = 1;
            }
        }
        placed.emplace_back(&region, lane);
    }
    return placed;
}

QRectF ShotReviewTimeline::barRect(const VideoBlurRegion& region, int lane) const
{
    const double left = xOf(region.timeRange.start), right = xOf(region.timeRange.end());
    return QRectF(left, stripRect().bottom() + 4 + lane * laneHeight, std::max(right - left, 6.0), laneHeight - 3);
}

void ShotReviewTimeline::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().window());
    const QRectF strip = stripRect();

    // Thumbnails, side by side over the whole strip.
    QPainterPath rounded;
    rounded.addRoundedRect(strip, 6, 6);
    p.save();
    p.setClipPath(rounded);
    p.fillRect(strip, QColor(30, 30, 34));
    if (!m_thumbnails.empty()) {
        const double tile = strip.width() / double(m_thumbnails.size());
        for (size_t i = 0; i < m_thumbnails.size(); ++i) {
            const QRectF target(strip.left() + tile * double(i), strip.top(), tile + 0.5, strip.height());
            const QImage& thumb = m_thumbnails[i];
            const QSizeF shown = QSizeF(thumb.size()).scaled(target.size(), Qt::KeepAspectRatioByExpanding);
            const QRectF source((thumb.width() - thumb.width() * target.width() / shown.width()) / 2,
                                (thumb.height() - thumb.height() * target.height() / shown.height()) / 2,
                                thumb.width() * target.width() / shown.width(),
                                thumb.height() * target.height() / shown.height());
            p.drawImage(target, thumb, source);
        }
    }
    // Outside the in–out span and removed stretches: dimmed and hatched.
    auto dim = [&](VideoTime from, VideoTime to, bool hatch) {
        const QRectF area(xOf(from), strip.top(), xOf(to) - xOf(from), strip.height());
        if (area.width() <= 0) {
            return;
        }
        p.fillRect(area, QColor(0, 0, 0, 170));
        if (hatch) {
            p.fillRect(area, QBrush(QColor(255, 80, 80, 150), Qt::BDiagPattern));
        }
    };
    dim(VideoTime(), m_list.inPoint, false);
    dim(m_list.outPoint, m_duration, false);
    for (const VideoTimeRange& removed : m_list.removedRanges) {
        dim(std::max(removed.start, m_list.inPoint), std::min(removed.end(), m_list.outPoint), true);
    }
    p.restore();

    // Split points: a gap through the strip, a dark-edged bar and a notch
    // above and below, seen on light and dark pictures alike.
    for (const VideoTime& split : m_list.splitPoints) {
        const double x = xOf(split);
        p.fillRect(QRectF(x - 3, strip.top(), 6, strip.height()), QColor(0, 0, 0, 200));
        p.fillRect(QRectF(x - 1.5, strip.top() + 1, 3, strip.height() - 2), Qt::white);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        const QPointF top[] = {{x - 5, strip.top() - 6}, {x + 5, strip.top() - 6}, {x, strip.top()}};
        const QPointF bottom[] = {{x - 5, strip.bottom() + 6}, {x + 5, strip.bottom() + 6}, {x, strip.bottom()}};
        p.drawPolygon(top, 3);
        p.drawPolygon(bottom, 3);
    }
    // In and out handles: brackets around what is kept.
    p.setPen(Qt::NoPen);
    p.setBrush(handleColour);
    const double in = xOf(m_list.inPoint), out = xOf(m_list.outPoint);
    p.drawRoundedRect(QRectF(in - 6, strip.top() - 3, 8, strip.height() + 6), 3, 3);
    p.drawRoundedRect(QRectF(out - 2, strip.top() - 3, 8, strip.height() + 6), 3, 3);
    p.setPen(QPen(handleColour, 3));
    p.drawLine(QPointF(in, strip.top() - 2), QPointF(out, strip.top() - 2));
    p.drawLine(QPointF(in, strip.bottom() + 2), QPointF(out, strip.bottom() + 2));

    // Blur regions as numbered bars.
    QFont small = font();
    small.setPixelSize(11);
    small.setBold(true);
    p.setFont(small);
    for (const auto& [region, lane] : lanes()) {
        const QRectF bar = barRect(*region, lane);
        const bool selected = region->id == m_selected;
        p.setPen(selected ? QPen(Qt::white, 2) : Qt::NoPen);
        p.setBrush(selected ? blurColour.lighter(125) : blurColour);
        p.drawRoundedRect(bar, 4, 4);
        p.setPen(Qt::white);
        p.drawText(bar.adjusted(6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   tr("Blur %1").arg(region->number));
    }

    // The playhead.
    const double x = xOf(m_position);
    p.setPen(QPen(QColor(255, 59, 48), 2));
    p.drawLine(QPointF(x, 0), QPointF(x, height()));
    p.setBrush(QColor(255, 59, 48));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(x, 4), 4, 4);
}

void ShotReviewTimeline::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPointF at = event->position();
    const QRectF strip = stripRect();
    m_drag = Drag::scrub;
    if (std::abs(at.x() - xOf(m_list.inPoint)) <= reach && at.y() <= strip.bottom() + 3) {
        m_drag = Drag::in;
    } else if (std::abs(at.x() - xOf(m_list.outPoint)) <= reach && at.y() <= strip.bottom() + 3) {
        m_drag = Drag::out;
    } else if (at.y() > strip.bottom() + 3) {
        for (const auto& [region, lane] : lanes()) {
            const QRectF bar = barRect(*region, lane);
            if (bar.adjusted(-reach, 0, reach, 0).contains(at)) {
                m_dragBlur = region->id;
                m_dragRange = region->timeRange;
                m_dragOrigin = timeAt(at.x());
                m_drag = std::abs(at.x() - bar.left()) <= reach    ? Drag::blurStart
                         : std::abs(at.x() - bar.right()) <= reach ? Drag::blurEnd
                                                                  : Drag::blurMove;
                emit blurSelected(region->id);
                return;
            }
        }
    }
    dragTo(at.x(), false);
}

void ShotReviewTimeline::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag != Drag::none) {
        dragTo(event->position().x(), false);
        return;
    }
    const QPointF at = event->position();
    const bool overHandle = (std::abs(at.x() - xOf(m_list.inPoint)) <= reach ||
                             std::abs(at.x() - xOf(m_list.outPoint)) <= reach) &&
                            at.y() <= stripRect().bottom() + 3;
    setCursor(overHandle ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void ShotReviewTimeline::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_drag != Drag::none && event->button() == Qt::LeftButton) {
        dragTo(event->position().x(), true);
        m_drag = Drag::none;
    }
}

void ShotReviewTimeline::dragTo(double x, bool finished)
{
    const VideoTime t = timeAt(x);
    switch (m_drag) {
    case Drag::none: return;
    case Drag::scrub: emit scrubbed(t); return;
    case Drag::in: emit inPointDragged(t, finished); return;
    case Drag::out: emit outPointDragged(t, finished); return;
    case Drag::blurMove: {
        VideoTimeRange moved = m_dragRange;
        moved.start = std::max(VideoTime(), m_dragRange.start + (t - m_dragOrigin));
        emit blurTimeDragged(m_dragBlur, moved, finished);
        return;
    }
    case Drag::blurStart:
        emit blurTimeDragged(m_dragBlur, VideoTimeRange::between(std::min(t, m_dragRange.end()), m_dragRange.end()), finished);
        return;
    case Drag::blurEnd:
        emit blurTimeDragged(m_dragBlur, VideoTimeRange::between(m_dragRange.start, std::max(t, m_dragRange.start)), finished);
        return;
    }
}

} // namespace nubo
