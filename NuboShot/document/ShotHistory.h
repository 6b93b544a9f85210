#pragma once

#include "document/ShotDocument.h"

#include <QList>

#include <optional>

namespace nubo {

// Undo and redo of one open shot, as whole documents. Documents share their
// images and arrays, so a step costs only what it changed.
struct ShotHistory {
    static constexpr qsizetype maximumDepth = 100;

    ShotDocument current;
    QList<ShotDocument> past;   // oldest first, at most maximumDepth when recording
    QList<ShotDocument> future; // the next one to redo last

    ShotHistory() = default;
    explicit ShotHistory(ShotDocument opened) : current(std::move(opened)) {}

    // Makes the document current as one undoable step; a document equal to
    // the current one records nothing and keeps the redo list.
    void record(ShotDocument document);
    std::optional<ShotDocument> undo();
    std::optional<ShotDocument> redo();

    bool canUndo() const { return !past.isEmpty(); }
    bool canRedo() const { return !future.isEmpty(); }

    bool operator==(const ShotHistory&) const = default;
};

} // namespace nubo
