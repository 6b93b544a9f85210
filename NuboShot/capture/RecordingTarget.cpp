#include "capture/RecordingTarget.h"

namespace nubo {

CapturableWindow pickedWindow()
{
    CapturableWindow window;
    window.title = QStringLiteral("the window picked in the desktop's dialog");
    return window;
}

QRectF recordingTargetRect(const RecordingTarget& target)
{
    if (const auto* d = std::get_if<RecordingTarget::Display>(&target.target)) {
        return d->display.space.globalFrame;
    }
    if (const auto* a = std::get_if<RecordingTarget::Area>(&target.target)) {
        return a->globalRect.intersected(a->display.space.globalFrame);
    }
    return std::get<RecordingTarget::Window>(target.target).window.frame;
}

} // namespace nubo
