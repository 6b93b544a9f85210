#pragma once

#include "document/ShotDocument.h"

class QWidget;

namespace nubo {

// What the output actions need of the editor they serve, and no more.
class ShotOutputHost {
public:
    virtual ~ShotOutputHost() = default;

    // The document the editor shows now.
    virtual const ShotDocument& outputDocument() const = 0;
    // No text being typed, no edit or crop in progress, no pointer gesture.
    virtual bool isOutputIdle() const = 0;
    // The document counts as copied or saved (no question when closing).
    virtual void markOutput(const ShotDocument& document) = 0;
    // The close-after rules decided that the editor goes.
    virtual void closeAfterOutput() = 0;
    // The window that dialogs, drags and the share chooser belong to.
    virtual QWidget* outputWindow() = 0;
    // A short message in the editor (a saved file, a clipboard notice).
    virtual void showNotice(const QString& text) = 0;
};

} // namespace nubo
