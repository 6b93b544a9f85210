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

ShotGlobalShortcuts::ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts,
                                         ShotPreferences& preferences,
                                         std::function<void(CaptureMode)> capture)
    : m_shortcuts(std::move(shortcuts))
{
    if (!m_shortcuts) {
        m_problems << QStringLiteral("Global shortcuts are not available on this desktop.");
        return;
    }
    QList<GlobalShortcutBinding> bindings;
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        if (mode == CaptureMode::scrolling) {
            continue; // offered once its session exists
        }
        const QString text = preferences.string(QStringLiteral("shot.shortcut.") + toString(mode))
                                 .value_or(defaultShortcut(mode));
        bindings.append({toString(mode), QKeySequence(text)});
    }
    m_shortcuts->activated = [capture = std::move(capture)](const QString& id) {
        if (const auto mode = fromString<CaptureMode>(id)) {
            capture(*mode);
        }
    };
    m_problems = m_shortcuts->bind(bindings);
    for (const GlobalShortcutBinding& binding : std::as_const(bindings)) {
        const QString text = binding.keys.toString(QKeySequence::PortableText);
        const bool failed = std::any_of(m_problems.cbegin(), m_problems.cend(), [&](const QString& p) {
            return p.contains(QLatin1Char(' ') + text + QLatin1Char(' '));
        });
        if (!binding.keys.isEmpty() && !failed) {
            m_bound.insert(*fromString<CaptureMode>(binding.id), binding.keys);
        }
    }
}

ShotGlobalShortcuts::~ShotGlobalShortcuts() = default;

} // namespace nubo
