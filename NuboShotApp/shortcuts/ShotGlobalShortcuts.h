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

// The shortcuts that work wherever the focus is: one per capture mode and
// one for recording, read from "shot.shortcut.<action>" with the defaults
// Print (fullscreen), Shift+Print (area), Alt+Print (window),
// Ctrl+Shift+Print (scrolling) and Ctrl+Alt+R (recording), bound through
// the capture platform. A shortcut that cannot be had is skipped and
// reported, never fatal. An empty stored value switches a shortcut off.
class ShotGlobalShortcuts {
public:
    // An action is a capture mode's name, or `recording`.
    static constexpr char recording[] = "recording";

    // `shortcuts` is the platform's (null: the platform has none).
    ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts, ShotPreferences& preferences,
                        std::function<void(const QString& action)> activate);
    ~ShotGlobalShortcuts();

    // Every action, capture modes first.
    static QStringList actions();
    // What the action does, as the menu says it ("Capture Area", "Record Screen").
    static QString title(const QString& action);
    static QString defaultShortcut(const QString& action);
    // The command line that starts an action in the running program, for a
    // desktop's own keyboard settings; `program` is this program's path.
    static QString command(const QString& action, const QString& program);
    static QString key(const QString& action);
    // The keys stored for an action: the default when missing or
    // unreadable, empty when switched off.
    static QKeySequence stored(const ShotPreferences& preferences, const QString& action);
    // The action other than `action` whose stored keys are `keys`; empty when none.
    static QString holderOf(const ShotPreferences& preferences, const QKeySequence& keys,
                            const QString& action);

    static QString key(CaptureMode mode) { return key(toString(mode)); }
    static QKeySequence stored(const ShotPreferences& preferences, CaptureMode mode)
    {
        return stored(preferences, toString(mode));
    }

    // Binds again as stored now; `changed` hears of it.
    void rebind();
    // Lets every key go (while new keys are recorded, for one); rebind()
    // takes them again.
    void suspend();
    std::function<void()> changed;

    bool isAvailable() const { return m_shortcuts != nullptr; }
    // The keys that start an action now; empty when it has none (switched
    // off, or they could not be had).
    QKeySequence shortcut(const QString& action) const { return m_bound.value(action); }
    QKeySequence shortcut(CaptureMode mode) const { return shortcut(toString(mode)); }
    // Why an action's keys could not be had; empty when they were.
    QString problem(const QString& action) const { return m_problemOf.value(action); }
    // The shortcuts that could not be had, with the reason, in words.
    const QStringList& problems() const { return m_problems; }

private:
    std::unique_ptr<GlobalShortcuts> m_shortcuts;
    ShotPreferences& m_preferences;
    QStringList m_problems;
    QHash<QString, QKeySequence> m_bound;
    QHash<QString, QString> m_problemOf;
};

} // namespace nubo
