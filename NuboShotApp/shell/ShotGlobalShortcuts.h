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
// had is skipped and reported, never fatal. An empty stored value switches a
// shortcut off.
class ShotGlobalShortcuts {
public:
    // `shortcuts` is the platform's (null: the platform has none).
    ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts, ShotPreferences& preferences,
                        std::function<void(CaptureMode)> capture);
    ~ShotGlobalShortcuts();

    static QString defaultShortcut(CaptureMode mode);
    static QString key(CaptureMode mode);
    // The keys stored for a mode: the default when missing or unreadable,
    // empty when switched off.
    static QKeySequence stored(const ShotPreferences& preferences, CaptureMode mode);

    // Binds again as stored now; `changed` hears of it.
    void rebind();
    // Lets every key go (while new keys are recorded, for one); rebind()
    // takes them again.
    void suspend();
    std::function<void()> changed;

    bool isAvailable() const { return m_shortcuts != nullptr; }
    // The keys that capture in a mode now; empty when it has none (switched
    // off, or they could not be had).
    QKeySequence shortcut(CaptureMode mode) const { return m_bound.value(mode); }
    // Why a mode's keys could not be had; empty when they were.
    QString problem(CaptureMode mode) const { return m_problemOf.value(mode); }
    // The shortcuts that could not be had, with the reason, in words.
    const QStringList& problems() const { return m_problems; }

private:
    std::unique_ptr<GlobalShortcuts> m_shortcuts;
    ShotPreferences& m_preferences;
    QStringList m_problems;
    QHash<CaptureMode, QKeySequence> m_bound;
    QHash<CaptureMode, QString> m_problemOf;
};

} // namespace nubo
