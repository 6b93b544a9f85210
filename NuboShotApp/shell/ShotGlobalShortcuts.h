#pragma once

#include "capture/CaptureTypes.h"

#include <QHash>
#include <QKeySequence>
#include <QStringList>

#include <functional>
#include <memory>

namespace nubo {

class GlobalShortcuts;
class ShotPreferences;

// The capture shortcuts that work wherever the focus is, one per capture
// mode, read from "shot.shortcut.<mode>" with the defaults Print
// (fullscreen), Shift+Print (area), Alt+Print (window) and Ctrl+Shift+Print
// (scrolling), bound through the capture platform. A shortcut that cannot be
// had is skipped and reported once, never fatal.
class ShotGlobalShortcuts {
public:
    // `shortcuts` is the platform's (null: the platform has none).
    ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts, ShotPreferences& preferences,
                        std::function<void(CaptureMode)> capture);
    ~ShotGlobalShortcuts();

    static QString defaultShortcut(CaptureMode mode);
    // The keys that capture in a mode now; empty when it has none (switched
    // off, or they could not be had).
    QKeySequence shortcut(CaptureMode mode) const { return m_bound.value(mode); }
    // The shortcuts that could not be had, with the reason, in words.
    const QStringList& problems() const { return m_problems; }

private:
    std::unique_ptr<GlobalShortcuts> m_shortcuts;
    QStringList m_problems;
    QHash<CaptureMode, QKeySequence> m_bound;
};

} // namespace nubo
