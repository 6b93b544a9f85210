#pragma once

#include "capture/CaptureTypes.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace nubo {

// The windows of a sway desktop, from its own IPC socket (SWAYSOCK): a
// Wayland desktop that lists its windows to any program of its session.
// Front-most first (fullscreen, then floating, then tiled), visible ones
// only, frames in the desktop's points with their borders and title bars.
// Nothing when no sway answers.
std::optional<QList<CapturableWindow>> swayWindows(qint64 leaveOutPid);

// The same from sway's answer to GET_TREE (the JSON text).
QList<CapturableWindow> swayWindowsFromTree(const QByteArray& tree, qint64 leaveOutPid);

} // namespace nubo
