#pragma once

#include <QCursor>
#include <QIcon>
#include <QString>
#include <QStringList>

#include <optional>

namespace nubo {

// The program's own icons: SVG drawn on one 24-point grid with one line
// weight, named after the desktop's standard icon names where such a name
// exists ("edit-copy", "zoom-in") and "nuboshot-…" otherwise. They are drawn
// in the palette's text colour, so a dark theme gets light icons and a light
// theme dark ones, and an icon in its "on" state (the active tool) takes the
// highlighted text colour. Rendered at the screen's pixel ratio: crisp at 1×
// and at 2×.
class ShotIcons {
public:
    static QIcon icon(const QString& name);
    // The same in one colour whatever the palette (for our dark bars);
    // disabled, faded.
    static QIcon icon(const QString& name, std::optional<QColor> colour);
    // A pointer drawn from an icon, black with a white halo so that it shows
    // on any picture; `hotSpot` in the icon's 24-point grid.
    static QCursor cursor(const QString& name, QPointF hotSpot);
    // A round dot of a colour with a thin edge, `side` points across, drawn
    // at twice the pixels (sharp at 1x and 2x).
    static QIcon colorDot(const QColor& fill, const QColor& edge, int side);
    // The program's own icon (the menu entry's), drawn by QtSvg here rather
    // than by Qt's SVG icon plugin, which a start would load first.
    static QIcon application();
    // Every icon we ship.
    static QStringList names();
};

} // namespace nubo
