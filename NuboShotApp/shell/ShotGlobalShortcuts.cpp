#include "shell/ShotGlobalShortcuts.h"

#include "capture/GlobalShortcuts.h"
#include "core/Settings.h"

namespace nubo {

QString ShotGlobalShortcuts::defaultShortcut(CaptureMode mode)
{
    switch (mode) {
    case CaptureMode::fullscreen:
        return QStringLiteral("Print");
    case CaptureMode::area:
        return QStringLiteral("Shift+Print");
    case CaptureMode::window:
        return QStringLiteral("Alt+Print");
    case CaptureMode::scrolling:
        return QStringLiteral("Ctrl+Shift+Print");
    }
    return {};
}

QString ShotGlobalShortcuts::key(CaptureMode mode)
{
    return QStringLiteral("shot.shortcut.") + toString(mode);
}

QKeySequence ShotGlobalShortcuts::stored(const ShotPreferences& preferences, CaptureMode mode)
{
    const QKeySequence fallback(defaultShortcut(mode), QKeySequence::PortableText);
    const auto text = preferences.string(key(mode));
    if (!text) {
        return fallback;
    }
    if (text->isEmpty()) {
        return {}; // switched off
    }
    const QKeySequence keys = QKeySequence::fromString(*text, QKeySequence::PortableText);
    // One key with its modifiers; anything else was not written by us.
    return keys.count() == 1 && keys[0].key() != Qt::Key_unknown ? keys : fallback;
}

ShotGlobalShortcuts::ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts,
                                         ShotPreferences& preferences,
                                         std::function<void(CaptureMode)> capture)
    : m_shortcuts(std::move(shortcuts)), m_preferences(preferences)
{
    if (!m_shortcuts) {
        m_problems << QStringLiteral("Global shortcuts are not available on this desktop.");
        return;
    }
    m_shortcuts->activated = [capture = std::move(capture)](const QString& id) {
        if (const auto mode = fromString<CaptureMode>(id)) {
            capture(*mode);
        }
    };
    rebind();
}

void ShotGlobalShortcuts::rebind()
{
    if (!m_shortcuts) {
        return;
    }
    QList<GlobalShortcutBinding> bindings;
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        bindings.append({toString(mode), stored(m_preferences, mode)});
    }
    m_problems = m_shortcuts->bind(bindings);
    m_bound.clear();
    m_problemOf.clear();
    for (const GlobalShortcutBinding& binding : std::as_const(bindings)) {
        const CaptureMode mode = *fromString<CaptureMode>(binding.id);
        const QString text = binding.keys.toString(QKeySequence::PortableText);
        for (const QString& problem : std::as_const(m_problems)) {
            if (!text.isEmpty() && problem.contains(QLatin1Char(' ') + text + QLatin1Char(' '))) {
                m_problemOf.insert(mode, problem);
            }
        }
        if (!binding.keys.isEmpty() && !m_problemOf.contains(mode)) {
            m_bound.insert(mode, binding.keys);
        }
    }
    if (changed) {
        changed();
    }
}

void ShotGlobalShortcuts::suspend()
{
    if (m_shortcuts) {
        m_shortcuts->bind({});
    }
}

ShotGlobalShortcuts::~ShotGlobalShortcuts() = default;

} // namespace nubo
