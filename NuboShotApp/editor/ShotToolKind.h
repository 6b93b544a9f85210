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
    emoji,
    colorPicker
};
template <> struct EnumNames<ShotToolKind> {
    static constexpr std::array names{"crop",    "addImage", "select", "rect",       "filledRect",
                                      "ellipse", "line",     "arrow",  "text",       "blur",
                                      "number",  "draw",     "emoji",  "colorPicker"};
};

// Each tool is described once, in the table of ShotTools.cpp: its title,
// shortcut, what it makes of a gesture and how it takes the pointer. These
// read that table.

// The text of the tool's button and tooltip.
QString toolTitle(ShotToolKind tool);
// The one-letter shortcut that picks the tool.
QChar toolShortcut(ShotToolKind tool);
// Tools that make a new annotation by a press, drag and release.
bool createsAnnotations(ShotToolKind tool);
// Tools whose button does something at once instead of becoming the mode.
bool isActionTool(ShotToolKind tool);

} // namespace nubo
