#include "editor/ShotCanvas.h"

#include "render/ShotRenderer.h"
#include "style/ShotIcons.h"

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>

namespace nubo {

namespace {
constexpr double handleSize = ShotTool::handleSize;
} // namespace

ShotCanvas::ShotCanvas(ShotEditorModel& model, ShotRenderer& renderer, QWidget* parent)
    : QWidget(parent), m_model(model), m_renderer(renderer), m_painted(model.document())
{
    setMouseTracking(false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    connect(&m_model, &ShotEditorModel::changed, this, &ShotCanvas::documentChanged);
}

QSize ShotCanvas::sizeHint() const
{
    const QSizeF size = visibleRect().size() * m_zoom;
    return QSize(std::max(1, int(std::ceil(size.width() - 1e-6))),
                 std::max(1, int(std::ceil(size.height() - 1e-6))));
}

QRectF ShotCanvas::visibleRect() const
{
    const ShotDocument& d = m_model.document();
    return m_model.cropSession() ? d.canvasBounds.normalized() : d.visibleRect();
}

void ShotCanvas::setZoom(double zoom)
{
    m_fitsWindow = false;
    m_zoom = std::clamp(zoom, 0.01, 16.0);
    update();
    emit zoomChanged(m_zoom);
}

void ShotCanvas::setFitZoom(double zoom)
{
    m_fitsWindow = true;
    m_zoom = std::clamp(zoom, 0.01, 16.0);
    update();
    emit zoomChanged(m_zoom);
}

void ShotCanvas::setCursorOverride(std::optional<Qt::CursorShape> shape)
{
    m_cursorOverride = shape;
    updateCursor();
}

void ShotCanvas::updateCursor()
{
    if (m_cursorOverride) {
        setCursor(*m_cursorOverride);
        return;
    }
    const ShotToolKind tool = m_model.activeTool();
    setMouseTracking(tool == ShotToolKind::colorPicker);
    if (tool != ShotToolKind::colorPicker && m_loupeAt) {
        update(loupeRect(*std::exchange(m_loupeAt, std::nullopt)));
    }
    if (tool == ShotToolKind::colorPicker) {
        setCursor(ShotIcons::cursor(QStringLiteral("color-picker"), QPointF(4.6, 19.4)));
    } else if (createsAnnotations(tool)) {
        setCursor(Qt::CrossCursor);
    } else {
        unsetCursor();
    }
}

QPointF ShotCanvas::toDocument(QPointF p) const
{
    return p / m_zoom + visibleRect().topLeft();
}

QRectF ShotCanvas::toWidget(const QRectF& r) const
{
    const QPointF origin = visibleRect().topLeft();
    return QRectF((r.topLeft() - origin) * m_zoom, r.size() * m_zoom);
}

void ShotCanvas::paintDocument(QPainter& painter, const QRectF& area) const
{
    const ShotDocument& d = m_model.document();
    painter.setRenderHint(QPainter::Antialiasing);
    // Device pixels per point: a 2× shot at 100 % on a 2× screen lands pixel
    // for pixel; only a reduction is smoothed, an enlargement shows pixels.
    const double devicePixels = painter.worldTransform().m11() *
                                (painter.device() ? painter.device()->devicePixelRatioF() : 1.0);
    for (const ImageLayer& layer : d.layers) {
        const QRectF part = layer.frame.intersected(area);
        if (part.isEmpty() || layer.image.isNull()) {
            continue;
        }
        // Only the exposed part of the image is drawn.
        const double sx = layer.image.width() / layer.frame.width();
        const double sy = layer.image.height() / layer.frame.height();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixels < sx - 1e-6);
        const QRectF source((part.x() - layer.frame.x()) * sx, (part.y() - layer.frame.y()) * sy,
                            part.width() * sx, part.height() * sy);
        painter.drawImage(part, layer.image, source);
    }
    const QRectF visible = d.canvasBounds.normalized();
    for (const Annotation& a : d.annotations) {
        if (std::holds_alternative<RedactAnnotation>(a.kind) &&
            annotationBounds(a).intersects(area)) {
            m_renderer.drawRedaction(painter, d, a, visible);
        }
    }
    int counter = 0;
    for (const Annotation& a : d.annotations) {
        if (std::holds_alternative<RedactAnnotation>(a.kind)) {
            continue;
        }
        counter += std::holds_alternative<CounterAnnotation>(a.kind);
        if (a.id == m_model.editedTextID()) {
            continue; // the text editor shows it while it is typed
        }
        if (annotationBounds(a).intersects(area)) {
            m_renderer.drawAnnotation(painter, a, counter);
        }
    }
}

void ShotCanvas::paintEvent(QPaintEvent* event)
{
    if (!m_everPainted) {
        m_everPainted = true;
        // Reported once this paint has been flushed to the screen: the
        // repaint that runs this handler flushes before the event loop
        // takes the next event.
        QTimer::singleShot(0, this, [this] { emit firstPainted(); });
    }
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    painter.setClipRect(event->rect());
    painter.scale(m_zoom, m_zoom);
    painter.translate(-visibleRect().topLeft());
    paintDocument(painter, QRectF(toDocument(event->rect().topLeft()),
                                  QSizeF(event->rect().size()) / m_zoom));

    // The selection and the crop rectangle on top.
    painter.setRenderHint(QPainter::Antialiasing, false);
    QPen dashed(QColor(40, 120, 255), 1 / m_zoom, Qt::DashLine);
    dashed.setCosmetic(true);
    painter.setPen(dashed);
    painter.setBrush(Qt::NoBrush);
    for (const Annotation& a : m_model.document().annotations) {
        if (m_model.selection().contains(a.id)) {
            painter.drawRect(annotationBounds(a));
        }
    }
    for (const ImageLayer& layer : m_model.document().layers) {
        if (m_model.selection().contains(layer.id)) {
            painter.drawRect(layer.frame);
        }
    }
    if (const auto box = ShotTool::selectedHandleBox(m_model)) {
        painter.setPen(QPen(QColor(40, 120, 255), 0));
        painter.setBrush(Qt::white);
        for (const ResizeHandle handle : allCases<ResizeHandle>()) {
            painter.drawRect(ShotTool::handleRect(*box, handle, m_zoom));
        }
    }
    if (const auto band = m_tool ? m_tool->rubberBand() : std::nullopt) {
        painter.setPen(dashed);
        painter.setBrush(QColor(40, 120, 255, 40));
        painter.drawRect(*band);
        painter.setBrush(Qt::NoBrush);
    }
    if (m_loupeAt && m_model.activeTool() == ShotToolKind::colorPicker) {
        painter.resetTransform();
        paintLoupe(painter, *m_loupeAt);
        painter.scale(m_zoom, m_zoom);
        painter.translate(-visibleRect().topLeft());
    }
    if (const auto& crop = m_model.cropSession()) {
        QPainterPath outside;
        outside.addRect(crop->bounds);
        outside.addRect(crop->rect);
        outside.setFillRule(Qt::OddEvenFill);
        painter.fillPath(outside, QColor(0, 0, 0, 120));
        painter.drawRect(crop->rect);
        painter.setPen(QPen(QColor(40, 120, 255), 0));
        painter.setBrush(Qt::white);
        for (const ResizeHandle handle : allCases<ResizeHandle>()) {
            painter.drawRect(ShotTool::handleRect(crop->rect, handle, m_zoom));
        }
    }
}

QRectF ShotCanvas::annotationsBounds(const ShotDocument& document, const QSet<QUuid>& ids) const
{
    QRectF box;
    for (const Annotation& a : document.annotations) {
        if (ids.isEmpty() || ids.contains(a.id)) {
            box = box.united(annotationBounds(a));
        }
    }
    return box;
}

void ShotCanvas::documentChanged()
{
    const ShotDocument& now = m_model.document();
    const bool sameFrame = now.layers == m_painted.layers && now.crop == m_painted.crop &&
                           now.canvasBounds == m_painted.canvasBounds && !m_model.cropSession();
    if (!sameFrame) {
        emit contentSizeChanged();
        update();
    } else {
        // Only what changed: the old and new places of annotations that
        // differ, and the selection marks.
        QHash<QUuid, QRectF> before;
        for (const Annotation& a : m_painted.annotations) {
            before.insert(a.id, annotationBounds(a));
        }
        QRectF dirty;
        QHash<QUuid, const Annotation*> old;
        for (const Annotation& a : m_painted.annotations) {
            old.insert(a.id, &a);
        }
        for (const Annotation& a : now.annotations) {
            const Annotation* previous = old.value(a.id);
            if (!previous || !(*previous == a) || m_model.selection().contains(a.id)) {
                dirty = dirty.united(annotationBounds(a));
                if (previous) {
                    dirty = dirty.united(annotationBounds(*previous));
                }
            }
            old.remove(a.id);
        }
        for (const Annotation* removed : std::as_const(old)) {
            dirty = dirty.united(annotationBounds(*removed));
        }
        // Counters renumber and redactions may change what lies under others;
        // the marks of a selection that ended go with it.
        dirty = dirty.united(annotationsBounds(m_painted, m_model.selection()));
        if (m_paintedSelection != m_model.selection()) {
            dirty = dirty.united(annotationsBounds(m_painted, m_paintedSelection));
        }
        if (m_paintedHandles) {
            dirty = dirty.united(*m_paintedHandles);
        }
        if (const auto box = ShotTool::selectedHandleBox(m_model)) {
            dirty = dirty.united(*box);
        }
        if (!dirty.isEmpty()) {
            update(toWidget(dirty)
                       .adjusted(-handleSize, -handleSize, handleSize, handleSize)
                       .toAlignedRect());
        }
        if (now.annotations.size() != m_painted.annotations.size()) {
            update(); // numbers of counters may all have changed
        }
    }
    m_painted = now;
    m_paintedSelection = m_model.selection();
    m_paintedHandles = ShotTool::selectedHandleBox(m_model);
    updateCursor();
}

ShotGesture ShotCanvas::gesture(const QMouseEvent* event) const
{
    const QPointF current = toDocument(event->position());
    const QPointF distance = (current - m_press) * m_zoom;
    return {m_press, current, bool(event->modifiers() & Qt::ShiftModifier),
            bool(event->modifiers() & Qt::AltModifier),
            std::hypot(distance.x(), distance.y()) >= 3};
}

bool ShotCanvas::event(QEvent* event)
{
    // A pinch on a touchpad zooms where the platform reports one.
    if (event->type() == QEvent::NativeGesture) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            setZoom(m_zoom * (1 + gesture->value()));
            return true;
        }
    }
    return QWidget::event(event);
}

ShotTool& ShotCanvas::tool()
{
    if (!m_tool || m_toolKind != m_model.activeTool()) {
        m_toolKind = m_model.activeTool();
        m_tool =
            ShotTool::make(m_toolKind, m_model,
                           {[this](QPointF point) { emit colorPickRequested(point); }, nullptr});
    }
    return *m_tool;
}

void ShotCanvas::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    if (m_loupeAt) {
        update(loupeRect(*std::exchange(m_loupeAt, std::nullopt)));
    }
}

QRect ShotCanvas::loupeRect(QPoint at) const
{
    // Below and right of the pointer, or on the other side near an edge.
    const int side = loupeCells * loupeCell + 2;
    const int label = fontMetrics().height() + 8;
    QRect r(at + QPoint(18, 18), QSize(side, side + label));
    if (r.right() > width() && at.x() - 18 - side >= 0) {
        r.moveRight(at.x() - 18);
    }
    if (r.bottom() > height() && at.y() - 18 - r.height() >= 0) {
        r.moveBottom(at.y() - 18);
    }
    return r.adjusted(-2, -2, 2, 2);
}

void ShotCanvas::paintLoupe(QPainter& painter, QPoint at) const
{
    const double scale = m_model.exportScale();
    // The shot's own pixels around the pointer, at export scale.
    const QPointF point = toDocument(at);
    const QPointF pixel(std::floor(point.x() * scale), std::floor(point.y() * scale));
    QImage cells(loupeCells, loupeCells, QImage::Format_ARGB32_Premultiplied);
    cells.fill(Qt::transparent);
    {
        QPainter source(&cells);
        source.scale(scale, scale);
        source.translate(-(pixel - QPointF(loupeCells / 2, loupeCells / 2)) / scale);
        const QRectF area((pixel - QPointF(loupeCells / 2, loupeCells / 2)) / scale,
                          QSizeF(loupeCells, loupeCells) / scale);
        source.setClipRect(area);
        paintDocument(source, area);
    }
    const QRect frame = loupeRect(at).adjusted(2, 2, -2, -2);
    const int side = loupeCells * loupeCell;
    const QRect magnified(frame.topLeft() + QPoint(1, 1), QSize(side, side));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.fillRect(frame, QColor(30, 30, 30));
    painter.drawImage(magnified, cells);
    // The centre pixel, ringed in black and white so it shows on any colour.
    const QRect centre(magnified.topLeft() + QPoint(loupeCells / 2, loupeCells / 2) * loupeCell,
                       QSize(loupeCell, loupeCell));
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(centre.adjusted(-1, -1, 0, 0));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(centre.adjusted(0, 0, -1, -1));
    painter.setPen(QPen(QColor(255, 255, 255, 200), 1));
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
    const QColor picked = cells.pixelColor(loupeCells / 2, loupeCells / 2);
    const QRect label(frame.left(), magnified.bottom() + 1, frame.width(),
                      frame.bottom() - magnified.bottom());
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, picked.name(QColor::HexRgb).toUpper());
    painter.restore();
}

ShotPointer ShotCanvas::pointer(const QMouseEvent* event) const
{
    return {gesture(event), event->modifiers(), m_zoom};
}

void ShotCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_press = toDocument(event->position());
    m_pressed = true;
    tool().press(pointer(event));
}

void ShotCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    // A second click is a press like any other, unless the tool makes more of it.
    if (event->button() == Qt::LeftButton) {
        m_press = toDocument(event->position());
        if (tool().doubleClick(pointer(event))) {
            return;
        }
    }
    mousePressEvent(event);
}

void ShotCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_model.activeTool() == ShotToolKind::colorPicker) {
        const QPoint at = event->position().toPoint();
        if (m_loupeAt) {
            update(loupeRect(*m_loupeAt));
        }
        m_loupeAt = at;
        update(loupeRect(at));
    }
    if (!m_pressed) {
        return;
    }
    const auto bandBefore = tool().rubberBand();
    tool().drag(pointer(event));
    if (const auto band = tool().rubberBand()) {
        update(toWidget(band->united(bandBefore.value_or(*band)))
                   .adjusted(-2, -2, 2, 2)
                   .toAlignedRect());
    }
}

void ShotCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed || event->button() != Qt::LeftButton) {
        return;
    }
    m_pressed = false;
    const bool hadBand = tool().rubberBand().has_value();
    tool().release(pointer(event));
    if (hadBand) {
        update();
    }
}

} // namespace nubo
