#pragma once

#include "video/VideoEditList.h"

#include <optional>
#include <vector>

namespace nubo {

// Undo and redo over whole copies of the edit list. A run of small changes
// (dragging a blur region, an in or out handle, the crop) is folded into one
// step: beginCoalescing() before the first, endCoalescing() after the last;
// changes in between only replace `current`.
struct VideoEditHistory {
    VideoEditList current;
    VideoEditList initial;
    std::vector<VideoEditList> past;
    std::vector<VideoEditList> future;
    std::optional<VideoEditList> coalescingStart; // the list before the running run

    static constexpr size_t limit = 200; // undo steps kept

    explicit VideoEditHistory(VideoEditList opened = {});

    // Makes `next` current as one step (or as part of the running run);
    // false when it equals the current list.
    bool commit(const VideoEditList& next);
    void beginCoalescing();
    // Ends the run: one step when the run changed anything.
    void endCoalescing();
    bool isCoalescing() const { return coalescingStart.has_value(); }

    bool canUndo() const { return !past.empty() && !isCoalescing(); }
    bool canRedo() const { return !future.empty() && !isCoalescing(); }
    bool undo();
    bool redo();
    // Whether the list differs from the one opened.
    bool hasEdits() const { return current != initial; }

private:
    void push(const VideoEditList& previous);
};

} // namespace nubo
