#pragma once

#include "core/EnumStrings.h"

#include <QChar>
#include <QString>

namespace nubo {

// The editor's tools, in the order of the toolbar.
enum class ShotToolKind {
    crop,
    addImage,
    select,
    rect,
    filledRect,
    ellipse,
    line,
    arrow,
    text,
    blur,
    number,
    draw,
    highlighter,
    emoji,
    colorPicker,
    selectText
};
template <> struct EnumNames<ShotToolKind> {
    static constexpr std::array names{"crop",    "addImage",    "select", "rect",       "filledRect",
                                      "ellipse", "line",        "arrow",  "text",       "blur",
                                      "number",  "draw",        "highlighter", "emoji", "colorPicker",
                                      "selectText"};
};

// Each tool is described once, in the table of ShotTools.cpp: its title,
// shortcut, what it makes of a gesture and how it takes the pointer. These
// read that table.

// The controls of the style bar a tool uses.
enum ShotStyleControl : unsigned {
    colorControl = 1,
    lineWidthControl = 2,
    arrowSizeControl = 4,
    fontSizeControl = 8,
    outlineControl = 16,
    strengthControl = 32,
    emojiControl = 64,
    textControl = 128, // the shot's recognised text: Copy Text, Hide Sensitive Text
};

// The text of the tool's button and tooltip.
QString toolTitle(ShotToolKind tool);
// The name of the tool's icon (ShotIcons).
QString toolIconName(ShotToolKind tool);
// The style bar controls the tool's annotations use (ShotStyleControl bits).
unsigned styleControls(ShotToolKind tool);
// The one-letter shortcut that picks the tool.
QChar toolShortcut(ShotToolKind tool);
// Tools that make a new annotation by a press, drag and release.
bool createsAnnotations(ShotToolKind tool);
// Tools whose button does something at once instead of becoming the mode.
bool isActionTool(ShotToolKind tool);

} // namespace nubo
