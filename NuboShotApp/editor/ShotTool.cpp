#include "editor/ShotTool.h"

#include "core/ResizeHandle.h"

namespace nubo {

std::optional<QUuid> ShotTool::annotationAt(const ShotEditorModel& model, QPointF point,
                                            double zoom)
{
    const auto& list = model.document().annotations;
    for (auto it = list.crbegin(); it != list.crend(); ++it) {
        if (annotationHitTest(*it, point, hitTolerance / zoom)) {
            return it->id;
        }
    }
    // Under the annotations, an added image (the captured one is the ground).
    const auto& layers = model.document().layers;
    for (auto it = layers.crbegin(); it != layers.crend(); ++it) {
        if (it->id != model.rootLayerID() && it->frame.contains(point)) {
            return it->id;
        }
    }
    return std::nullopt;
}

std::optional<QRectF> ShotTool::selectedHandleBox(const ShotEditorModel& model)
{
    if (model.selection().size() != 1 || model.activeTool() != ShotToolKind::select) {
        return std::nullopt;
    }
    for (const Annotation& a : model.document().annotations) {
        if (model.selection().contains(a.id) &&
            !std::holds_alternative<CounterAnnotation>(a.kind)) {
            return ShotEditorModel::handleBox(a);
        }
    }
    return std::nullopt;
}

QRectF ShotTool::handleRect(const QRectF& box, ResizeHandle handle, double zoom)
{
    return ShotGeometry::handleRect(box, handle, handleSize / zoom);
}

std::optional<ResizeHandle> ShotTool::handleAt(const QRectF& box, QPointF point, double zoom)
{
    // A little more than the drawn square answers, for fingers and trackpads.
    return ShotGeometry::handleAt(box, point, handleSize / zoom, 2 / zoom);
}

void ShotSelectTool::press(const ShotPointer& pointer)
{
    const QPointF point = pointer.gesture.start;
    if (const auto box = selectedHandleBox(m_model)) {
        if ((m_resizing = handleAt(*box, point, pointer.zoom))) {
            m_model.beginEdit();
            return;
        }
    }
    const auto hit = annotationAt(m_model, point, pointer.zoom);
    const bool adding = pointer.modifiers & Qt::ShiftModifier;
    if (!hit) {
        // On empty space: a rubber band selects what it touches.
        m_rubberBand = QRectF(point, QSizeF(0, 0));
        if (!adding) {
            m_model.select({}, true);
        }
        return;
    }
    QSet<QUuid> selection = m_model.selection();
    if (adding) {
        if (!selection.remove(*hit)) {
            selection.insert(*hit);
        }
    } else if (!selection.contains(*hit)) {
        selection = {*hit};
    } else if (selection.size() > 1) {
        // Pressed on one of several selected: a drag moves them all, a click
        // picks this one alone (on release).
        m_clickPicks = *hit;
    }
    m_model.select(selection, true);
    m_moving = m_model.beginEdit();
    m_last = point;
}

void ShotSelectTool::drag(const ShotPointer& pointer)
{
    const ShotGesture& g = pointer.gesture;
    if (m_rubberBand) {
        m_rubberBand = QRectF(g.start, g.current).normalized();
    } else if (m_resizing) {
        m_model.resizeSelection(*m_resizing, g.current);
    } else if (m_moving) {
        // Inside one transaction: one step when released.
        m_model.moveSelection(g.current - m_last);
        m_last = g.current;
    }
}

void ShotSelectTool::release(const ShotPointer& pointer)
{
    if (m_rubberBand) {
        const QRectF band = *std::exchange(m_rubberBand, std::nullopt);
        QSet<QUuid> selection =
            pointer.modifiers & Qt::ShiftModifier ? m_model.selection() : QSet<QUuid>();
        for (const Annotation& a : m_model.document().annotations) {
            if (band.intersects(annotationBounds(a))) {
                selection.insert(a.id);
            }
        }
        m_model.select(selection, true);
    } else if (m_resizing || m_moving) {
        m_resizing.reset();
        m_moving = false;
        m_model.commitEdit();
    }
    if (const auto picked = std::exchange(m_clickPicks, std::nullopt);
        picked && !pointer.gesture.moved) {
        m_model.select({*picked}, true);
    }
}

bool ShotSelectTool::doubleClick(const ShotPointer& pointer)
{
    const auto hit = annotationAt(m_model, pointer.gesture.start, pointer.zoom);
    return hit && m_model.beginTextEditing(*hit);
}

void ShotCropTool::press(const ShotPointer& pointer)
{
    m_handle.reset();
    m_moving.reset();
    const auto& session = m_model.cropSession();
    if (!session) {
        return;
    }
    const QPointF point = pointer.gesture.start;
    if ((m_handle = handleAt(session->rect, point, pointer.zoom))) {
        return;
    }
    if (session->rect.contains(point)) {
        m_moving = session->rect;
        return;
    }
    m_model.setCropRect(QRectF(point, QSizeF(1, 1)));
}

void ShotCropTool::drag(const ShotPointer& pointer)
{
    const auto& session = m_model.cropSession();
    if (!session) {
        return;
    }
    const ShotGesture& g = pointer.gesture;
    if (m_handle) {
        m_model.setCropRect(ShotGeometry::resized(session->rect, *m_handle, g.current));
    } else if (m_moving) {
        m_model.setCropRect(m_moving->translated(g.current - g.start));
    } else {
        m_model.setCropRect(QRectF(g.start, g.current));
    }
}

void ShotColorPickerTool::press(const ShotPointer& pointer)
{
    if (m_pick) {
        m_pick(pointer.gesture.start);
    }
}

} // namespace nubo
