#include "editor/ShotEditorModel.h"

#include "editor/ShotToolStyles.h"

#include "core/Settings.h"
#include "document/ShotDocumentCoding.h"
#include "export/ShotExporter.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>
#include <QTransform>

namespace nubo {

ShotEditorModel::ShotEditorModel(ShotDocument document, ShotPreferences& preferences,
                                 QObject* parent)
    : QObject(parent), m_preferences(preferences), m_document(document),
      m_history(std::move(document))
{
    if (!m_document.layers.isEmpty()) {
        m_rootLayerID = m_document.layers.first().id;
    }
    m_nudgeTimer.setSingleShot(true);
    m_nudgeTimer.setInterval(nudgePauseMs);
    connect(&m_nudgeTimer, &QTimer::timeout, this, &ShotEditorModel::endNudging);
}

void ShotEditorModel::assertMainThread() const
{
    Q_ASSERT_X(QThread::currentThread() == QCoreApplication::instance()->thread(),
               "ShotEditorModel", "used off the main thread");
}

void ShotEditorModel::recordSelection(const SelectionEntry& before)
{
    m_undoSelections.append(before);
    // Keep the selection stacks as long as the history's lists.
    while (m_undoSelections.size() > m_history.past.size()) {
        m_undoSelections.removeFirst();
    }
    m_redoSelections.clear();
}

void ShotEditorModel::apply(const ShotDocument& document)
{
    assertMainThread();
    if (m_editing) {
        m_document = document;
        emit changed();
        return;
    }
    const ShotDocument before = m_history.current;
    const SelectionEntry selection = currentSelection();
    m_history.record(document);
    m_document = m_history.current;
    if (!(before == m_history.current)) {
        recordSelection(selection);
    }
    emit changed();
}

bool ShotEditorModel::beginEdit()
{
    assertMainThread();
    if (m_editing) {
        return false;
    }
    m_editing = true;
    m_editSnapshot = m_document;
    m_editSelection = currentSelection();
    return true;
}

void ShotEditorModel::commitEdit()
{
    assertMainThread();
    if (!m_editing) {
        return;
    }
    m_editing = false;
    const ShotDocument final = m_document;
    const ShotDocument before = m_history.current;
    m_history.record(final);
    if (!(before == m_history.current)) {
        recordSelection(m_editSelection);
    }
    m_editSnapshot.reset();
    emit changed();
}

void ShotEditorModel::abandonEdit()
{
    assertMainThread();
    if (!m_editing) {
        return;
    }
    m_editing = false;
    m_document = *m_editSnapshot;
    m_selection = m_editSelection.ids;
    m_selectionIsExplicit = m_editSelection.isExplicit;
    m_editSnapshot.reset();
    emit changed();
}

bool ShotEditorModel::canUndo() const
{
    return m_history.canUndo() && !m_cropSession && !m_editingText && !m_pointerGestureActive &&
           !m_editing;
}

bool ShotEditorModel::canRedo() const
{
    return m_history.canRedo() && !m_cropSession && !m_editingText && !m_pointerGestureActive &&
           !m_editing;
}

void ShotEditorModel::undo()
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (!canUndo()) {
        return;
    }
    if (const auto document = m_history.undo()) {
        m_redoSelections.append(currentSelection());
        const SelectionEntry restored =
            m_undoSelections.isEmpty() ? SelectionEntry{} : m_undoSelections.takeLast();
        m_selection = restored.ids;
        m_selectionIsExplicit = restored.isExplicit;
        m_document = *document;
        emit changed();
    }
}

void ShotEditorModel::redo()
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (!canRedo()) {
        return;
    }
    if (const auto document = m_history.redo()) {
        m_undoSelections.append(currentSelection());
        const SelectionEntry restored =
            m_redoSelections.isEmpty() ? SelectionEntry{} : m_redoSelections.takeLast();
        m_selection = restored.ids;
        m_selectionIsExplicit = restored.isExplicit;
        m_document = *document;
        emit changed();
    }
}

void ShotEditorModel::select(const QSet<QUuid>& ids, bool isExplicit)
{
    assertMainThread();
    m_selection = ids;
    m_selectionIsExplicit = isExplicit;
    emit changed();
}

void ShotEditorModel::selectAll()
{
    QSet<QUuid> all;
    for (const Annotation& a : m_document.annotations) {
        all.insert(a.id);
    }
    select(all, true);
}

void ShotEditorModel::deleteSelection()
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (m_selection.isEmpty() || m_editing) {
        return;
    }
    ShotDocument next = m_document;
    next.annotations.removeIf([&](const Annotation& a) { return m_selection.contains(a.id); });
    // Added images go too; the captured image stays.
    next.layers.removeIf([&](const ImageLayer& l) {
        return m_selection.contains(l.id) && l.id != m_rootLayerID;
    });
    apply(next);
    m_selection.clear();
    m_selectionIsExplicit = false;
    emit changed();
}

namespace {} // namespace

void transformKind(AnnotationKind& kind, const QTransform& map)
{
    std::visit(
        [&](auto& k) {
            using K = std::decay_t<decltype(k)>;
            if constexpr (std::is_same_v<K, ArrowAnnotation> || std::is_same_v<K, LineAnnotation>) {
                k.from = map.map(k.from);
                k.to = map.map(k.to);
            } else if constexpr (std::is_same_v<K, ShapeAnnotation> ||
                                 std::is_same_v<K, EmojiAnnotation> ||
                                 std::is_same_v<K, RedactAnnotation>) {
                k.rect = map.mapRect(k.rect.normalized());
            } else if constexpr (std::is_same_v<K, TextAnnotation>) {
                k.content.rect = map.mapRect(k.content.rect.normalized());
            } else if constexpr (std::is_same_v<K, CounterAnnotation>) {
                k.center = map.map(k.center);
            } else if constexpr (std::is_same_v<K, PenAnnotation>) {
                for (QPointF& p : k.points) {
                    p = map.map(p);
                }
            }
        },
        kind);
}

namespace {} // namespace

void ShotEditorModel::nudge(QPointF by)
{
    assertMainThread();
    if (m_selection.isEmpty() || m_cropSession) {
        return;
    }
    if (!m_nudging) {
        if (!beginEdit()) {
            return;
        }
        m_nudging = true;
    }
    moveSelection(by);
    m_nudgeTimer.start();
}

void ShotEditorModel::moveSelection(QPointF by)
{
    assertMainThread();
    ShotDocument next = m_document;
    for (Annotation& a : next.annotations) {
        if (m_selection.contains(a.id)) {
            transformKind(a.kind, QTransform::fromTranslate(by.x(), by.y()));
        }
    }
    // An added image moves with the selection, the canvas growing to hold it
    // (within the shot's limits; beyond them it stays where it is).
    for (ImageLayer& layer : next.layers) {
        if (m_selection.contains(layer.id) && layer.id != m_rootLayerID) {
            layer.frame.translate(by);
            next.canvasBounds = next.canvasBounds.normalized().united(layer.frame);
        }
    }
    if (next.layers != m_document.layers && !next.limitProblem().isEmpty()) {
        next.layers = m_document.layers;
        next.canvasBounds = m_document.canvasBounds;
    }
    apply(next);
}

void ShotEditorModel::endNudging()
{
    if (!m_nudging) {
        return;
    }
    m_nudgeTimer.stop();
    m_nudging = false;
    commitEdit();
}

void ShotEditorModel::bringForward()
{
    assertMainThread();
    endNudging();
    ShotDocument next = m_document;
    auto& list = next.annotations;
    // From the top down, so a selected run moves up together.
    for (qsizetype i = list.size() - 2; i >= 0; --i) {
        if (m_selection.contains(list[i].id) && !m_selection.contains(list[i + 1].id)) {
            list.swapItemsAt(i, i + 1);
        }
    }
    apply(next);
}

void ShotEditorModel::sendBackward()
{
    assertMainThread();
    endNudging();
    ShotDocument next = m_document;
    auto& list = next.annotations;
    for (qsizetype i = 1; i < list.size(); ++i) {
        if (m_selection.contains(list[i].id) && !m_selection.contains(list[i - 1].id)) {
            list.swapItemsAt(i, i - 1);
        }
    }
    apply(next);
}

QByteArray ShotEditorModel::copySelection() const
{
    QJsonArray copied;
    for (const Annotation& a : m_document.annotations) {
        if (m_selection.contains(a.id)) {
            copied.append(coding::encodeAnnotation(a));
        }
    }
    return copied.isEmpty() ? QByteArray() : QJsonDocument(copied).toJson(QJsonDocument::Compact);
}

bool ShotEditorModel::paste(const QByteArray& data, QPointF offset)
{
    assertMainThread();
    endNudging();
    const QJsonDocument json = QJsonDocument::fromJson(data);
    if (!json.isArray() || json.array().isEmpty()) {
        return false;
    }
    ShotDocument next = m_document;
    QSet<QUuid> pasted;
    try {
        for (const QJsonValue& value : json.array()) {
            Annotation a = coding::decodeAnnotation(value);
            a.id = QUuid::createUuid();
            transformKind(a.kind, QTransform::fromTranslate(offset.x(), offset.y()));
            if (!annotationIsFinite(a)) {
                return false;
            }
            next.annotations.append(a);
            pasted.insert(a.id);
        }
    } catch (const coding::DecodingFailure&) {
        return false; // not ours, or damaged: nothing is pasted
    }
    const SelectionEntry before = currentSelection();
    m_selection = pasted;
    m_selectionIsExplicit = true;
    const ShotDocument previous = m_history.current;
    m_history.record(next);
    m_document = m_history.current;
    if (!(previous == m_history.current)) {
        recordSelection(before);
    }
    emit changed();
    return true;
}

void ShotEditorModel::cutSelection()
{
    deleteSelection();
}

QRectF ShotEditorModel::handleBox(const Annotation& a)
{
    return std::visit(
        [&](const auto& k) -> QRectF {
            using K = std::decay_t<decltype(k)>;
            if constexpr (std::is_same_v<K, ArrowAnnotation> || std::is_same_v<K, LineAnnotation>) {
                return QRectF(k.from, k.to).normalized();
            } else if constexpr (std::is_same_v<K, TextAnnotation>) {
                return k.content.rect.normalized();
            } else if constexpr (std::is_same_v<K, ShapeAnnotation> ||
                                 std::is_same_v<K, EmojiAnnotation> ||
                                 std::is_same_v<K, RedactAnnotation>) {
                return k.rect.normalized();
            } else {
                return annotationBounds(a);
            }
        },
        a.kind);
}

void ShotEditorModel::resizeSelection(ResizeHandle handle, QPointF point)
{
    assertMainThread();
    if (m_selection.size() != 1) {
        return;
    }
    ShotDocument next = m_document;
    for (Annotation& a : next.annotations) {
        if (!m_selection.contains(a.id) || std::holds_alternative<CounterAnnotation>(a.kind)) {
            continue;
        }
        const QRectF from = handleBox(a);
        const QRectF to = ShotGeometry::resized(from, handle, point);
        // Everything in the box is mapped onto the new box (a flat line stays flat).
        const double sx = from.width() > 0 ? to.width() / from.width() : 1;
        const double sy = from.height() > 0 ? to.height() / from.height() : 1;
        QTransform map;
        map.translate(to.x(), to.y());
        map.scale(sx, sy);
        map.translate(-from.x(), -from.y());
        transformKind(a.kind, map);
    }
    apply(next);
}

QString ShotEditorModel::addImageLayer(const QImage& image, QPointF topLeft)
{
    assertMainThread();
    endNudging();
    if (image.isNull()) {
        return tr("There is no image to add (it could not be read, or it is larger "
                              "than Nubo Shot takes).");
    }
    ShotDocument next = m_document;
    const double scale = exportScale();
    const QRectF frame(topLeft, QSizeF(image.size()) / scale);
    next.layers.append(ImageLayer{QUuid::createUuid(), image, frame});
    next.canvasBounds = next.canvasBounds.normalized().united(frame);
    // The limits hold for the shot with the new layer, canvas included.
    if (QString problem = next.limitProblem(); !problem.isEmpty()) {
        return problem;
    }
    QImage converted = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (converted.isNull()) {
        return tr("There is not enough memory to add an image of %1 × %2 pixels.")
            .arg(image.width())
            .arg(image.height());
    }
    next.layers.last().image = std::move(converted);
    // On top of the other layers, and selected: ready to be moved into place.
    const QUuid added = next.layers.last().id;
    apply(next);
    select({added}, true);
    return {};
}

void ShotEditorModel::setActiveTool(ShotToolKind tool)
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (tool == m_activeTool) {
        return;
    }
    if (m_cropSession && tool != ShotToolKind::crop) {
        commitCrop(false);
    }
    m_activeTool = tool;
    if (tool == ShotToolKind::crop) {
        beginCrop();
    }
    emit changed();
}

ShotStyle ShotEditorModel::style(ShotToolKind tool) const
{
    return storedToolStyle(m_preferences, tool);
}

void ShotEditorModel::setStyle(ShotToolKind tool, const ShotStyle& style)
{
    storeToolStyle(m_preferences, tool, style);
}

void ShotEditorModel::applyStyle(const ShotStyle& style)
{
    assertMainThread();
    endNudging();
    setStyle(m_activeTool, style);
    if (m_selection.isEmpty()) {
        emit changed();
        return;
    }
    ShotDocument next = m_document;
    for (Annotation& a : next.annotations) {
        if (m_selection.contains(a.id)) {
            a.style = style;
        }
    }
    apply(next);
}

ShotStyle ShotEditorModel::shownStyle() const
{
    if (m_selection.size() == 1) {
        for (const Annotation& a : m_document.annotations) {
            if (m_selection.contains(a.id)) {
                return a.style;
            }
        }
    }
    return style(m_activeTool);
}

ShotToolKind ShotEditorModel::styledTool() const
{
    for (const Annotation& a : m_document.annotations) {
        if (!m_selection.contains(a.id)) {
            continue;
        }
        return std::visit(
            [](const auto& kind) {
                using Kind = std::decay_t<decltype(kind)>;
                if constexpr (std::is_same_v<Kind, ShapeAnnotation>) {
                    switch (kind.variant) {
                    case ShapeVariant::rect:
                        return ShotToolKind::rect;
                    case ShapeVariant::filledRect:
                        return ShotToolKind::filledRect;
                    case ShapeVariant::ellipse:
                        return ShotToolKind::ellipse;
                    }
                    return ShotToolKind::rect;
                } else if constexpr (std::is_same_v<Kind, LineAnnotation>) {
                    return ShotToolKind::line;
                } else if constexpr (std::is_same_v<Kind, ArrowAnnotation>) {
                    return ShotToolKind::arrow;
                } else if constexpr (std::is_same_v<Kind, TextAnnotation>) {
                    return ShotToolKind::text;
                } else if constexpr (std::is_same_v<Kind, RedactAnnotation>) {
                    return ShotToolKind::blur;
                } else if constexpr (std::is_same_v<Kind, CounterAnnotation>) {
                    return ShotToolKind::number;
                } else if constexpr (std::is_same_v<Kind, PenAnnotation>) {
                    return kind.highlighter ? ShotToolKind::highlighter : ShotToolKind::draw;
                } else {
                    return ShotToolKind::emoji;
                }
            },
            a.kind);
    }
    return m_activeTool;
}

void ShotEditorModel::beginCreation(const ShotGesture& gesture)
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (!createsAnnotations(m_activeTool) || m_pointerGestureActive || !beginEdit()) {
        return;
    }
    m_pointerGestureActive = true;
    const ShotStyle toolStyle = style(m_activeTool);
    const auto kind =
        ShotCreationTool::create(m_activeTool, gesture, toolStyle.fontSize, m_selectedEmoji);
    if (!kind) {
        return;
    }
    m_creating = QUuid::createUuid();
    ShotDocument next = m_document;
    next.annotations.append(Annotation{m_creating, *kind, toolStyle});
    m_selection = {m_creating};
    m_selectionIsExplicit = false;
    apply(next);
}

void ShotEditorModel::updateCreation(const ShotGesture& gesture)
{
    assertMainThread();
    if (!m_pointerGestureActive || m_creating.isNull()) {
        return;
    }
    ShotDocument next = m_document;
    for (Annotation& a : next.annotations) {
        if (a.id != m_creating) {
            continue;
        }
        if (auto* pen = std::get_if<PenAnnotation>(&a.kind)) {
            pen->points.append(gesture.current); // a stroke grows with every drag
        } else if (const auto kind = ShotCreationTool::create(m_activeTool, gesture,
                                                              a.style.fontSize, m_selectedEmoji)) {
            a.kind = *kind;
        }
    }
    apply(next);
}

void ShotEditorModel::endCreation(const ShotGesture& gesture)
{
    assertMainThread();
    if (!m_pointerGestureActive) {
        return;
    }
    updateCreation(gesture);
    m_pointerGestureActive = false;
    const QUuid created = m_creating;
    m_creating = QUuid();
    if (m_activeTool == ShotToolKind::text && !created.isNull()) {
        // The step stays open while the new text is typed.
        m_textID = created;
        m_textIsNew = true;
        m_editingText = true;
        emit textEditingStarted(created);
        return;
    }
    commitEdit();
    const bool stays = m_activeTool == ShotToolKind::draw || m_activeTool == ShotToolKind::highlighter ||
                       m_activeTool == ShotToolKind::number;
    if (!stays && m_preferences.boolean(keys::returnToSelect, false)) {
        setActiveTool(ShotToolKind::select);
    }
}

bool ShotEditorModel::beginTextEditing(const QUuid& id)
{
    assertMainThread();
    endNudging();
    const auto it = std::find_if(m_document.annotations.cbegin(), m_document.annotations.cend(),
                                 [&](const Annotation& a) { return a.id == id; });
    if (it == m_document.annotations.cend() || !std::holds_alternative<TextAnnotation>(it->kind) ||
        !beginEdit()) {
        return false;
    }
    m_textID = id;
    m_textIsNew = false;
    m_editingText = true;
    m_selection = {id};
    m_selectionIsExplicit = true;
    emit textEditingStarted(id);
    return true;
}

void ShotEditorModel::setEditedText(const QString& text, double height,
                                    std::optional<double> width)
{
    assertMainThread();
    if (!m_editingText) {
        return;
    }
    ShotDocument next = m_document;
    for (Annotation& a : next.annotations) {
        if (a.id == m_textID) {
            auto& content = std::get<TextAnnotation>(a.kind).content;
            content.text = truncatedText(text, TextContent::maximumLength);
            content.rect.setHeight(std::max(height, a.style.fontSize * 1.5));
            if (width && std::isfinite(*width) && *width > content.rect.width()) {
                content.rect.setWidth(*width);
            }
        }
    }
    apply(next);
}

void ShotEditorModel::endTextEditing()
{
    assertMainThread();
    if (!m_editingText) {
        return;
    }
    m_editingText = false;
    const QUuid id = std::exchange(m_textID, QUuid());
    bool empty = false;
    for (const Annotation& a : m_document.annotations) {
        if (a.id == id) {
            empty = std::get<TextAnnotation>(a.kind).content.text.trimmed().isEmpty();
        }
    }
    if (empty && m_textIsNew) {
        abandonEdit(); // a text box never typed into leaves nothing behind
        m_selection.clear();
        emit changed();
        return;
    }
    if (empty) {
        ShotDocument next = m_document;
        next.annotations.removeIf([&](const Annotation& a) { return a.id == id; });
        apply(next);
        m_selection.clear();
    }
    commitEdit();
    if (m_preferences.boolean(keys::returnToSelect, false) && m_textIsNew) {
        setActiveTool(ShotToolKind::select);
    }
}

void ShotEditorModel::beginCrop()
{
    assertMainThread();
    endNudging(); // a pending run of nudges is a step of its own
    if (m_cropSession) {
        return;
    }
    const QRectF canvas = m_document.canvasBounds.normalized();
    ShotCropSession session{m_document.visibleRect(), CropAspect::free, canvas};
    session.setRect(session.rect);
    m_cropSession = session;
    emit changed();
}

void ShotEditorModel::setCropRect(const QRectF& rect)
{
    if (m_cropSession) {
        m_cropSession->setRect(rect);
        emit changed();
    }
}

void ShotEditorModel::setCropSize(double width, double height)
{
    if (m_cropSession) {
        m_cropSession->setSize(width, height);
        emit changed();
    }
}

void ShotEditorModel::setCropAspect(CropAspect aspect)
{
    if (m_cropSession) {
        m_cropSession->aspect = aspect;
        m_cropSession->setSize(m_cropSession->rect.width(), m_cropSession->rect.height());
        emit changed();
    }
}

std::optional<QSizeF> ShotEditorModel::cropSizeInPixels() const
{
    if (!m_cropSession) {
        return std::nullopt;
    }
    return m_cropSession->rect.size() * exportScale();
}

void ShotEditorModel::commitCrop(bool returnToSelect)
{
    assertMainThread();
    if (!m_cropSession) {
        return;
    }
    // On whole pixels of the export: the shot has exactly the size the crop
    // bar showed, with no partly covered row or column at an edge.
    const double scale = exportScale();
    const QRectF proposed = m_cropSession->rect;
    const auto snap = [scale](double v) { return std::round(v * scale) / scale; };
    const QRectF rect = QRectF(QPointF(snap(proposed.left()), snap(proposed.top())),
                               QPointF(snap(proposed.right()), snap(proposed.bottom())))
                            .intersected(m_cropSession->bounds);
    m_cropSession.reset();
    if (rect.width() >= 1 && rect.height() >= 1) {
        ShotDocument next = m_document;
        next.crop = rect;
        apply(next);
    }
    if (returnToSelect) {
        m_activeTool = ShotToolKind::select;
    }
    emit changed();
}

void ShotEditorModel::abandonCrop()
{
    m_cropSession.reset();
    emit changed();
}

double ShotEditorModel::exportScale() const
{
    return ShotExporter::defaultScale(m_document);
}

void ShotEditorModel::markOutput(const ShotDocument& document)
{
    assertMainThread();
    m_output = document;
    emit changed();
}

bool ShotEditorModel::isIdle() const
{
    return !m_editingText && !m_editing && !m_pointerGestureActive && !m_cropSession;
}

} // namespace nubo
