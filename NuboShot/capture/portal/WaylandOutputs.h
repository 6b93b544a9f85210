#pragma once

#include <QList>
#include <QPoint>
#include <QSize>

namespace nubo {

// A monitor as the Wayland compositor announces it to every client: where
// it is in the desktop's points and its current mode in pixels (turned as
// the monitor is). The ratio of the two is its scale, also a fractional one
// that Qt (before 6.5) only learns rounded up.
struct WaylandOutput {
    QPoint position;
    QSize pixels;
};

// The compositor's monitors, read over a connection of its own (a round
// trip or two); nothing where no Wayland compositor answers.
QList<WaylandOutput> readWaylandOutputs();

} // namespace nubo
