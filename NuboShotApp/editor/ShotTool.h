#pragma once

#include "editor/ShotEditorModel.h"

#include <QRectF>

#include <functional>
#include <memory>
#include <optional>

namespace nubo {

// A pointer event as tools see it: the gesture in document points, the
// modifiers and the zoom (for tolerances given in screen pixels).
struct ShotPointer {
    ShotGesture gesture;
    Qt::KeyboardModifiers modifiers;
    double zoom = 1;
};

// What tools may ask of the editor window around them.
struct ShotToolContext {
    std::function<void(QPointF)> pickColor; // a click of the colour picker
    std::function<void()> addImage;         // the Add image button
};

// One tool of the editor: turns pointer events into changes of the model.
// Tools never paint; what the canvas shows for them (a rubber band, handles)
// they only describe.
class ShotTool {
public:
    static constexpr double hitTolerance = 4; // screen pixels
    static constexpr double handleSize = 8;   // screen pixels

    explicit ShotTool(ShotEditorModel& model) : m_model(model) {}
    virtual ~ShotTool() = default;

    virtual void press(const ShotPointer&) {}
    virtual void drag(const ShotPointer&) {}
    virtual void release(const ShotPointer&) {}
    // A second click; true when the tool made something of it.
    virtual bool doubleClick(const ShotPointer&) { return false; }
    virtual std::optional<QRectF> rubberBand() const { return std::nullopt; }

    // The tool of a kind, as its description makes it.
    static std::unique_ptr<ShotTool> make(ShotToolKind kind, ShotEditorModel& model,
                                          const ShotToolContext& context);
    // What an action tool's button does (nothing for the others).
    static void trigger(ShotToolKind kind, const ShotToolContext& context);

    // The topmost annotation under a point.
    static std::optional<QUuid> annotationAt(const ShotEditorModel& model, QPointF point,
                                             double zoom);
    // The box with resize handles: the one selected annotation's, with Select.
    static std::optional<QRectF> selectedHandleBox(const ShotEditorModel& model);
    static QRectF handleRect(const QRectF& box, ResizeHandle handle, double zoom);
    static std::optional<ResizeHandle> handleAt(const QRectF& box, QPointF point, double zoom);

protected:
    ShotEditorModel& m_model;
};

// Select: click, Shift-click, rubber band, move, resize by the handles, and a
// double click opens a text for editing.
class ShotSelectTool : public ShotTool {
public:
    using ShotTool::ShotTool;
    void press(const ShotPointer& pointer) override;
    void drag(const ShotPointer& pointer) override;
    void release(const ShotPointer& pointer) override;
    bool doubleClick(const ShotPointer& pointer) override;
    std::optional<QRectF> rubberBand() const override { return m_rubberBand; }

private:
    std::optional<ResizeHandle> m_resizing;
    std::optional<QRectF> m_rubberBand;
    bool m_moving = false;
    QPointF m_last;
    std::optional<QUuid> m_clickPicks; // a click on one of several selected picks it
};

// The tools that make annotations by press, drag and release.
class ShotMakingTool : public ShotTool {
public:
    using ShotTool::ShotTool;
    void press(const ShotPointer& pointer) override { m_model.beginCreation(pointer.gesture); }
    void drag(const ShotPointer& pointer) override { m_model.updateCreation(pointer.gesture); }
    void release(const ShotPointer& pointer) override { m_model.endCreation(pointer.gesture); }
};

// Crop: the handles resize the proposed rectangle, dragging inside moves it,
// dragging elsewhere draws a new one.
class ShotCropTool : public ShotTool {
public:
    using ShotTool::ShotTool;
    void press(const ShotPointer& pointer) override;
    void drag(const ShotPointer& pointer) override;

private:
    std::optional<ResizeHandle> m_handle;
    std::optional<QRectF> m_moving; // the rectangle when the move began
};

// Pick color: a click samples the shown colour.
class ShotColorPickerTool : public ShotTool {
public:
    ShotColorPickerTool(ShotEditorModel& model, std::function<void(QPointF)> pick)
        : ShotTool(model), m_pick(std::move(pick))
    {}
    void press(const ShotPointer& pointer) override;

private:
    std::function<void(QPointF)> m_pick;
};

} // namespace nubo
