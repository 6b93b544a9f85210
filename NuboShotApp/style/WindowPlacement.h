#pragma once

#include <QSize>
#include <QString>

class QWidget;

namespace nubo::WindowPlacement {

// Sizes and places a top-level window before it first shows: where the
// user left it last time (remembered under `name`) when that still lies in
// the work area of a screen, else at `preferred` size, never larger than the
// work area of the screen under the pointer (panels excluded), centred on it.
void place(QWidget& window, const QString& name, QSize preferred);

// Remembers the window's size and place for the next place().
void remember(const QWidget& window, const QString& name);

} // namespace nubo::WindowPlacement
