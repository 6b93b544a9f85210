#pragma once

#include "document/ShotDocument.h"
#include "document/ShotHistory.h"
#include "editor/ShotCreationTool.h"
#include "editor/ShotCropSession.h"
#include "editor/ShotToolKind.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QTransform>
#include <QUuid>

#include <functional>
#include <optional>

namespace nubo {

class ShotPreferences;

// Maps every point of an annotation's geometry.
void transformKind(AnnotationKind& kind, const QTransform& map);

// The state of one editor window: the working document, its history with the
// selection of every step, the active tool and styles, the transaction that
// turns a gesture into one undo step, and the crop session. Main thread only.
class ShotEditorModel : public QObject {
    Q_OBJECT
public:
    struct SelectionEntry {
        QSet<QUuid> ids;
        bool isExplicit = false;
        bool operator==(const SelectionEntry&) const = default;
    };

    // A run of arrow-key nudges ends after this long without one.
    static constexpr int nudgePauseMs = 600;

    ShotEditorModel(ShotDocument document, ShotPreferences& preferences, QObject* parent = nullptr);

    const ShotDocument& document() const { return m_document; }
    const ShotHistory& history() const { return m_history; }
    const QSet<QUuid>& selection() const { return m_selection; }
    bool selectionIsExplicit() const { return m_selectionIsExplicit; }
    const QList<SelectionEntry>& undoSelections() const { return m_undoSelections; }
    const QList<SelectionEntry>& redoSelections() const { return m_redoSelections; }
    std::optional<QUuid> rootLayerID() const { return m_rootLayerID; }

    // One change of the document: recorded as a step, or, inside a
    // transaction, only the working document.
    void apply(const ShotDocument& document);

    // Transactions: begin fails while one is open; commit records the final
    // document once; abandon returns to the snapshot.
    bool beginEdit();
    void commitEdit();
    void abandonEdit();
    bool isEditing() const { return m_editing; }

    bool canUndo() const;
    bool canRedo() const;
    // Nothing happens while cropping, editing text, in a pointer gesture or
    // inside a transaction.
    void undo();
    void redo();

    void select(const QSet<QUuid>& ids, bool isExplicit = true);
    void selectAll();
    // One step; counters above a deleted one renumber by themselves.
    void deleteSelection();
    // Moves the selected annotations (one step, or part of an open transaction).
    void moveSelection(QPointF by);
    // Moves the selection; a run of nudges is one step.
    void nudge(QPointF by);
    void endNudging();
    bool isNudging() const { return m_nudging; }

    // Z-order: the selection one place up or down the list (one step).
    void bringForward();
    void sendBackward();

    // The selected annotations as clipboard data, and pasting such data as
    // new annotations (new ids, moved by `offset`, selected; one step).
    static constexpr char clipboardType[] = "application/x-nuboshot-annotations";
    QByteArray copySelection() const;
    bool paste(const QByteArray& data, QPointF offset = {10, 10});
    void cutSelection();

    // Resizing the one selected annotation by a handle of its box.
    void resizeSelection(ResizeHandle handle, QPointF point);
    // The box the handles of an annotation sit on.
    static QRectF handleBox(const Annotation& annotation);

    // A new image layer at a point (its size in points follows the
    // document's density); the canvas grows to hold it. One step. Returns
    // why not when the shot would go beyond its limits (ShotLimits), empty
    // when added.
    QString addImageLayer(const QImage& image, QPointF topLeft);

    ShotToolKind activeTool() const { return m_activeTool; }
    void setActiveTool(ShotToolKind tool);

    // The style new annotations of a tool take, kept in the preferences.
    ShotStyle style(ShotToolKind tool) const;
    void setStyle(ShotToolKind tool, const ShotStyle& style);
    // The style bar's change: the active tool's style, and the selected
    // annotations' too (one step).
    void applyStyle(const ShotStyle& style);
    // The style the style bar shows: the one selected annotation's, else the
    // active tool's.
    ShotStyle shownStyle() const;
    // The tool whose controls the style bar shows: the one that makes the
    // selected annotations (the first of them), else the active tool.
    ShotToolKind styledTool() const;
    QString selectedEmoji() const { return m_selectedEmoji; }
    void setSelectedEmoji(const QString& emoji) { m_selectedEmoji = emoji; }

    // Creating with the active tool: press, drags, release. The whole
    // gesture is one step; the new annotation is appended and selected.
    void beginCreation(const ShotGesture& gesture);
    void updateCreation(const ShotGesture& gesture);
    void endCreation(const ShotGesture& gesture);
    bool isPointerGestureActive() const { return m_pointerGestureActive; }

    bool isEditingText() const { return m_editingText; }
    void setEditingText(bool editing) { m_editingText = editing; }

    // Editing a text annotation in place: a new one (right after the Text
    // tool made it, in the creation's step) or an existing one. The box
    // grows with the text; ending with no text removes a new annotation
    // without a trace and an existing one as a step.
    bool beginTextEditing(const QUuid& id);
    void setEditedText(const QString& text, double height,
                       std::optional<double> width = std::nullopt);
    void endTextEditing();
    const QUuid& editedTextID() const { return m_textID; }

    // Crop: a session over the canvas (starting from the current crop).
    const std::optional<ShotCropSession>& cropSession() const { return m_cropSession; }
    void beginCrop();
    void setCropRect(const QRectF& rect);
    void setCropSize(double width, double height);
    void setCropAspect(CropAspect aspect);
    std::optional<QSizeF> cropSizeInPixels() const;
    // Narrower or lower than 1 point leaves the document uncropped.
    void commitCrop(bool returnToSelect = true);
    void abandonCrop();

    // 2 when an image layer has at least 1.5 pixels per point (the first
    // such layer decides), else 1.
    double exportScale() const;

    // Output bookkeeping: the document last copied, saved or dragged out.
    void markOutput(const ShotDocument& document);
    bool isOutputCurrent() const { return m_output && *m_output == m_document; }
    // No text editing, no transaction or crop, no pointer gesture.
    bool isIdle() const;

signals:
    void changed();
    // The window opens its text editor over this annotation.
    void textEditingStarted(const QUuid& id);

private:
    void assertMainThread() const;
    void recordSelection(const SelectionEntry& before);
    SelectionEntry currentSelection() const { return {m_selection, m_selectionIsExplicit}; }

    ShotPreferences& m_preferences;
    ShotDocument m_document;
    ShotHistory m_history;
    QSet<QUuid> m_selection;
    bool m_selectionIsExplicit = false;
    QList<SelectionEntry> m_undoSelections;
    QList<SelectionEntry> m_redoSelections;
    std::optional<QUuid> m_rootLayerID;
    std::optional<ShotCropSession> m_cropSession;
    ShotToolKind m_activeTool = ShotToolKind::arrow;
    QString m_selectedEmoji = QStringLiteral("\U0001F600");
    bool m_editingText = false;
    bool m_pointerGestureActive = false;
    std::optional<ShotDocument> m_output;

    bool m_editing = false;
    std::optional<ShotDocument> m_editSnapshot;
    SelectionEntry m_editSelection;

    bool m_nudging = false;
    QTimer m_nudgeTimer;

    QUuid m_creating;
    QUuid m_textID;
    bool m_textIsNew = false;
};

} // namespace nubo
