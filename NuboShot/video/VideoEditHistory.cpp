#include "video/VideoEditHistory.h"

namespace nubo {

VideoEditHistory::VideoEditHistory(VideoEditList opened) : current(opened), initial(std::move(opened)) {}

void VideoEditHistory::push(const VideoEditList& previous)
{
    past.push_back(previous);
    if (past.size() > limit) {
        past.erase(past.begin());
    }
    future.clear();
}

bool VideoEditHistory::commit(const VideoEditList& next)
{
    if (next == current) {
        return false;
    }
    if (!isCoalescing()) {
        push(current);
    }
    current = next;
    return true;
}

void VideoEditHistory::beginCoalescing()
{
    if (!isCoalescing()) {
        coalescingStart = current;
    }
}

void VideoEditHistory::endCoalescing()
{
    if (!isCoalescing()) {
        return;
    }
    if (*coalescingStart != current) {
        push(*coalescingStart);
    }
    coalescingStart.reset();
}

bool VideoEditHistory::undo()
{
    if (!canUndo()) {
        return false;
    }
    future.push_back(current);
    current = past.back();
    past.pop_back();
    return true;
}

bool VideoEditHistory::redo()
{
    if (!canRedo()) {
        return false;
    }
    past.push_back(current);
    current = future.back();
    future.pop_back();
    return true;
}

} // namespace nubo
