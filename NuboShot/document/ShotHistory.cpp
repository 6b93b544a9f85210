#include "document/ShotHistory.h"

namespace nubo {

void ShotHistory::record(ShotDocument document)
{
    if (document == current) {
        return;
    }
    if (past.size() >= maximumDepth) {
        past.removeFirst();
    }
    past.append(std::move(current));
    current = std::move(document);
    future.clear(); // keeps its storage
}

std::optional<ShotDocument> ShotHistory::undo()
{
    if (past.isEmpty()) {
        return std::nullopt;
    }
    future.append(std::move(current));
    current = past.takeLast();
    return current;
}

std::optional<ShotDocument> ShotHistory::redo()
{
    if (future.isEmpty()) {
        return std::nullopt;
    }
    past.append(std::move(current));
    current = future.takeLast();
    return current;
}

} // namespace nubo
