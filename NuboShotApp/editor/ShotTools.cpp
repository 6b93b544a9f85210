// Every tool of the editor, described once: adding a tool is a case of
// ShotToolKind and a row here.

#include "editor/ShotCreationTool.h"
#include "editor/ShotTool.h"
#include "editor/ShotToolKind.h"

#include <QCoreApplication>

#include <array>

namespace nubo {

namespace {

using Gesture = const ShotGesture&;
using Make = std::unique_ptr<ShotTool> (*)(ShotEditorModel&, const ShotToolContext&);
using Create = std::optional<AnnotationKind> (*)(Gesture, double fontSize, const QString& emoji);
using Trigger = void (*)(const ShotToolContext&);

struct ShotToolDescription {
    ShotToolKind kind;
    const char* title;
    char shortcut;
    const char* icon;
    unsigned controls;      // ShotStyleControl bits
    Make make;              // how it takes the pointer
    Create create;          // the annotation a gesture makes; null for tools that make none
    Trigger trigger = {};   // a button that acts at once instead of becoming the mode
};

template <class Tool> std::unique_ptr<ShotTool> plain(ShotEditorModel& model, const ShotToolContext&)
{
    return std::make_unique<Tool>(model);
}

std::unique_ptr<ShotTool> picker(ShotEditorModel& model, const ShotToolContext& context)
{
    return std::make_unique<ShotColorPickerTool>(model, context.pickColor);
}

using C = ShotCreationTool;
constexpr Make making = plain<ShotMakingTool>;

// In the order of ShotToolKind, which is the order of the toolbar.
const std::array<ShotToolDescription, enumCount<ShotToolKind>()> tools{{
    {ShotToolKind::crop, QT_TRANSLATE_NOOP("nubo::ShotTools", "Crop"), 'C', "transform-crop", 0, plain<ShotCropTool>, nullptr},
    {ShotToolKind::addImage, QT_TRANSLATE_NOOP("nubo::ShotTools", "Add image"), 'I', "insert-image", 0, plain<ShotTool>, nullptr,
     [](const ShotToolContext& context) {
         if (context.addImage) {
             context.addImage();
         }
     }},
    {ShotToolKind::select, QT_TRANSLATE_NOOP("nubo::ShotTools", "Select"), 'V', "edit-select", 0, plain<ShotSelectTool>, nullptr},
    {ShotToolKind::rect, QT_TRANSLATE_NOOP("nubo::ShotTools", "Rectangle"), 'R', "draw-rectangle", colorControl | lineWidthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return ShapeAnnotation{ShapeVariant::rect, C::dragRect(g)};
     }},
    {ShotToolKind::filledRect, QT_TRANSLATE_NOOP("nubo::ShotTools", "Filled rectangle"), 'F', "nuboshot-filled-rectangle", colorControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return ShapeAnnotation{ShapeVariant::filledRect, C::dragRect(g)};
     }},
    {ShotToolKind::ellipse, QT_TRANSLATE_NOOP("nubo::ShotTools", "Ellipse"), 'O', "draw-ellipse", colorControl | lineWidthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return ShapeAnnotation{ShapeVariant::ellipse, C::dragRect(g)};
     }},
    {ShotToolKind::line, QT_TRANSLATE_NOOP("nubo::ShotTools", "Line"), 'L', "draw-line", colorControl | lineWidthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return LineAnnotation{g.start, C::lineEnd(g)};
     }},
    {ShotToolKind::arrow, QT_TRANSLATE_NOOP("nubo::ShotTools", "Arrow"), 'A', "draw-arrow", colorControl | arrowSizeControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return ArrowAnnotation{g.start, C::lineEnd(g)};
     }},
    {ShotToolKind::text, QT_TRANSLATE_NOOP("nubo::ShotTools", "Text"), 'T', "insert-text", colorControl | fontSizeControl | outlineControl, making,
     [](Gesture g, double size, const QString&) -> std::optional<AnnotationKind> {
         return TextAnnotation{TextContent{QString(), C::textBox(g, size)}};
     }},
    {ShotToolKind::blur, QT_TRANSLATE_NOOP("nubo::ShotTools", "Blur / Censor"), 'B', "nuboshot-pixelate", strengthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return RedactAnnotation{C::dragRect(g)};
     }},
    {ShotToolKind::number, QT_TRANSLATE_NOOP("nubo::ShotTools", "Number"), 'N', "nuboshot-counter", colorControl | fontSizeControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return CounterAnnotation{g.start};
     }},
    {ShotToolKind::draw, QT_TRANSLATE_NOOP("nubo::ShotTools", "Draw"), 'D', "draw-freehand", colorControl | lineWidthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         // A stroke starts with the press point, and the current point on a drag.
         return PenAnnotation{g.moved ? QList<QPointF>{g.start, g.current}
                                      : QList<QPointF>{g.start}};
     }},
    {ShotToolKind::highlighter, QT_TRANSLATE_NOOP("nubo::ShotTools", "Highlighter"), 'H', "nuboshot-highlighter", colorControl | lineWidthControl, making,
     [](Gesture g, double, const QString&) -> std::optional<AnnotationKind> {
         return PenAnnotation{g.moved ? QList<QPointF>{g.start, g.current}
                                      : QList<QPointF>{g.start},
                              true};
     }},
    {ShotToolKind::emoji, QT_TRANSLATE_NOOP("nubo::ShotTools", "Emoji"), 'E', "face-smile", emojiControl | fontSizeControl, making,
     [](Gesture g, double size, const QString& emoji) -> std::optional<AnnotationKind> {
         // A click places it at the tool's size; a drag sizes it.
         return EmojiAnnotation{emoji, g.moved ? C::emojiDragRect(g, size)
                                               : C::emojiRect(g.start, size)};
     }},
    {ShotToolKind::colorPicker, QT_TRANSLATE_NOOP("nubo::ShotTools", "Pick color"), 'P', "color-picker", 0, picker, nullptr},
    // The text read in the shot: its words are selected by the text layer
    // over the canvas, which takes the pointer while this tool is active.
    {ShotToolKind::selectText, QT_TRANSLATE_NOOP("nubo::ShotTools", "Select text"), 'X', "nuboshot-select-text", textControl, plain<ShotTool>,
     nullptr},
}};

const ShotToolDescription& describe(ShotToolKind kind)
{
    const ShotToolDescription& d = tools[size_t(kind)];
    Q_ASSERT(d.kind == kind); // the table is in the enumeration's order
    return d;
}

} // namespace

QString toolTitle(ShotToolKind tool)
{
    return QCoreApplication::translate("nubo::ShotTools", describe(tool).title);
}

QString toolIconName(ShotToolKind tool)
{
    return QString::fromLatin1(describe(tool).icon);
}

unsigned styleControls(ShotToolKind tool)
{
    return describe(tool).controls;
}

QChar toolShortcut(ShotToolKind tool)
{
    return QLatin1Char(describe(tool).shortcut);
}

bool createsAnnotations(ShotToolKind tool)
{
    return describe(tool).create != nullptr;
}

bool isActionTool(ShotToolKind tool)
{
    return describe(tool).trigger != nullptr;
}

std::optional<AnnotationKind> ShotCreationTool::create(ShotToolKind tool, const ShotGesture& g,
                                                       double fontSize, const QString& emoji)
{
    const Create create = describe(tool).create;
    return create ? create(g, fontSize, emoji) : std::nullopt;
}

std::unique_ptr<ShotTool> ShotTool::make(ShotToolKind kind, ShotEditorModel& model,
                                         const ShotToolContext& context)
{
    return describe(kind).make(model, context);
}

void ShotTool::trigger(ShotToolKind kind, const ShotToolContext& context)
{
    if (const Trigger trigger = describe(kind).trigger) {
        trigger(context);
    }
}

} // namespace nubo
