#include "review/ShotReviewCanvas.h"

#include "render/RedactionRenderer.h"
#include "video/VideoEditRenderer.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace nubo {

namespace {
const QColor blurColour(88, 86, 214);
const QColor backdrop(22, 22, 24);
constexpr double handle = 8;

QRectF spanned(QPointF a, QPointF b)
{
    return QRectF(a, b).normalized();
}
} // namespace

ShotReviewCanvas::ShotReviewCanvas(QSize source, QWidget* parent) : QWidget(parent), m_source(source)
{
    setObjectName(QStringLiteral("reviewCanvas"));
    setMinimumSize(320, 180);
    setMouseTracking(true);
}

void ShotReviewCanvas::setFrame(const QImage& picture, VideoTime time)
{
    m_frame = picture;
    m_time = time;
    update();
}

void ShotReviewCanvas::setEdits(const VideoEditList& list)
{
    m_list = list;
    update();
}

void ShotReviewCanvas::setMode(Mode mode)
{
    m_mode = mode;
    setCursor(mode == Mode::view ? Qt::ArrowCursor : Qt::CrossCursor);
    update();
}

void ShotReviewCanvas::setSelectedBlur(const QUuid& id)
{
    m_selected = id;
    update();
}

QRectF ShotReviewCanvas::pictureRect() const
{
    const QSizeF shown = QSizeF(m_source).scaled(QSizeF(size()) - QSizeF(16, 16), Qt::KeepAspectRatio);
    return QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown);
}

QPointF ShotReviewCanvas::normalized(QPointF widget) const
{
    const QRectF picture = pictureRect();
    return {std::clamp((widget.x() - picture.left()) / picture.width(), 0.0, 1.0),
            std::clamp((widget.y() - picture.top()) / picture.height(), 0.0, 1.0)};
}

QRectF ShotReviewCanvas::toWidget(const QRectF& r) const
{
    const QRectF picture = pictureRect();
    return QRectF(picture.left() + r.left() * picture.width(), picture.top() + r.top() * picture.height(),
                  r.width() * picture.width(), r.height() * picture.height());
}

void ShotReviewCanvas::resizeEvent(QResizeEvent*)
{
    emit sizeChanged((pictureRect().size() * devicePixelRatioF()).toSize());
}

void ShotReviewCanvas::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.fillRect(rect(), backdrop);
    const QRectF picture = pictureRect();
    if (!m_frame.isNull()) {
        QImage shown = m_frame;
        VideoSourceInfo info;
        info.size = m_source;
        VideoEditRenderer(m_list, info).blurImage(shown, m_time);
        p.drawImage(picture, shown);
    }
    QFont label = font();
    label.setPixelSize(12);
    label.setBold(true);
    p.setFont(label);
    for (const VideoBlurRegion& region : m_list.blurs) {
        const bool live = region.timeRange.contains(m_time);
        const bool selected = region.id == m_selected;
        if (!live && !selected) {
            continue;
        }
        const QRectF r = toWidget(region.rect);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(selected ? Qt::white : blurColour.lighter(140), selected ? 2 : 1.5,
                      live ? Qt::SolidLine : Qt::DashLine));
        p.drawRect(r);
        const QRectF badge(r.left() - 1, r.top() - 20, 20, 20);
        p.setPen(Qt::NoPen);
        p.setBrush(blurColour);
        p.drawEllipse(badge.adjusted(1, 1, -1, -1));
        p.setPen(Qt::white);
        p.drawText(badge, Qt::AlignCenter, QString::number(region.number));
        if (selected) {
            p.setPen(QPen(blurColour, 1));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(r.bottomRight() - QPointF(handle / 2, handle / 2), QSizeF(handle, handle)));
        }
    }
    if (m_drag == Drag::draw) {
        p.setPen(QPen(Qt::white, 1.5, Qt::DashLine));
        p.setBrush(QColor(88, 86, 214, 60));
        p.drawRect(toWidget(m_drawn));
    }
    if (m_mode == Mode::crop || m_list.cropRect) {
        const QRectF crop = toWidget(m_list.effectiveCrop());
        QPainterPath outside;
        outside.addRect(picture);
        outside.addRect(crop);
        p.setPen(Qt::NoPen);
        // While cropping the cut-off parts show dimmed; else not at all: the
        // picture is what the export holds.
        p.setBrush(m_mode == Mode::crop ? QColor(0, 0, 0, 150) : backdrop);
        p.drawPath(outside);
        if (m_mode == Mode::crop) {
            p.setPen(QPen(Qt::white, 1.5));
            p.setBrush(Qt::NoBrush);
            p.drawRect(crop);
            p.setPen(QPen(QColor(255, 255, 255, 90), 1));
            for (int i = 1; i < 3; ++i) { // thirds
                p.drawLine(QPointF(crop.left() + crop.width() * i / 3, crop.top()),
                           QPointF(crop.left() + crop.width() * i / 3, crop.bottom()));
                p.drawLine(QPointF(crop.left(), crop.top() + crop.height() * i / 3),
                           QPointF(crop.right(), crop.top() + crop.height() * i / 3));
            }
            p.setPen(QPen(QColor(0, 0, 0, 120), 1));
            p.setBrush(Qt::white);
            for (const QPointF& corner : {crop.topLeft(), crop.topRight(), crop.bottomRight(), crop.bottomLeft()}) {
                p.drawEllipse(corner, handle / 2 + 1, handle / 2 + 1);
            }
        }
    }
}

void ShotReviewCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPointF at = event->position();
    m_pressed = normalized(at);
    if (m_mode == Mode::crop) {
        const QRectF crop = toWidget(m_list.effectiveCrop());
        const QPointF corners[] = {crop.topLeft(), crop.topRight(), crop.bottomRight(), crop.bottomLeft()};
        m_original = m_list.effectiveCrop();
        for (int i = 0; i < 4; ++i) {
            if (QLineF(corners[i], at).length() <= handle * 1.5) {
                m_drag = Drag::cropCorner;
                m_corner = i;
                return;
            }
        }
        m_drag = crop.contains(at) ? Drag::cropMove : Drag::cropDraw;
        return;
    }
    // A live region under the pointer (the selected one first): select it.
    const VideoBlurRegion* hit = nullptr;
    for (const VideoBlurRegion& region : m_list.blurs) {
        const QRectF r = toWidget(region.rect);
        const bool eligible = region.timeRange.contains(m_time) || region.id == m_selected;
        if (eligible && r.adjusted(-handle, -handle, handle, handle).contains(at) && (!hit || region.id == m_selected)) {
            hit = &region;
        }
    }
    if (hit) {
        m_selected = hit->id;
        m_original = hit->rect;
        const QRectF r = toWidget(hit->rect);
        m_drag = QLineF(r.bottomRight(), at).length() <= handle * 1.5 ? Drag::resize : Drag::move;
        emit blurSelected(hit->id);
        update();
        return;
    }
    if (m_mode == Mode::blur) {
        m_drag = Drag::draw;
        m_drawn = QRectF(m_pressed, QSizeF());
        return;
    }
    m_selected = QUuid();
    emit blurSelected(QUuid());
    update();
}

void ShotReviewCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag != Drag::none) {
        dragTo(event->position(), false);
    }
}

void ShotReviewCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_drag == Drag::none || event->button() != Qt::LeftButton) {
        return;
    }
    dragTo(event->position(), true);
    if (m_drag == Drag::draw && m_drawn.width() * m_source.width() >= 4 && m_drawn.height() * m_source.height() >= 4) {
        emit blurDrawn(m_drawn);
    }
    m_drag = Drag::none;
    update();
}

void ShotReviewCanvas::dragTo(QPointF widget, bool finished)
{
    const QPointF at = normalized(widget);
    const QPointF delta = at - m_pressed;
    switch (m_drag) {
    case Drag::none: return;
    case Drag::draw:
        m_drawn = spanned(m_pressed, at);
        update();
        return;
    case Drag::move:
        emit blurChanged(m_selected, m_original.translated(delta), finished);
        return;
    case Drag::resize:
        emit blurChanged(m_selected, spanned(m_original.topLeft(), m_original.bottomRight() + delta), finished);
        return;
    case Drag::cropDraw:
        emit cropChanged(spanned(m_pressed, at), finished);
        return;
    case Drag::cropMove:
        emit cropChanged(m_original.translated(delta), finished);
        return;
    case Drag::cropCorner: {
        const QPointF corners[] = {m_original.topLeft(), m_original.topRight(), m_original.bottomRight(),
                                   m_original.bottomLeft()};
        emit cropChanged(spanned(corners[(m_corner + 2) % 4], corners[m_corner] + delta), finished);
        return;
    }
    }
}

} // namespace nubo
