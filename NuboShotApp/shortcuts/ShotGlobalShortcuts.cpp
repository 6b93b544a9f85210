#include "shortcuts/ShotGlobalShortcuts.h"

#include "capture/GlobalShortcuts.h"
#include "core/Settings.h"

#include <QCoreApplication>

namespace nubo {

QStringList ShotGlobalShortcuts::actions()
{
    QStringList all;
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        all << toString(mode);
    }
    return all << QLatin1String(recording);
}

QString ShotGlobalShortcuts::title(const QString& action)
{
    const auto mode = fromString<CaptureMode>(action);
    if (!mode) {
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Record Screen");
    }
    switch (*mode) {
    case CaptureMode::area:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Area");
    case CaptureMode::window:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Window");
    case CaptureMode::fullscreen:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Fullscreen");
    case CaptureMode::scrolling:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Scrolling");
    case CaptureMode::text:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Text");
    case CaptureMode::lastArea:
        return QCoreApplication::translate("nubo::ShotGlobalShortcuts", "Capture Previous Area");
    }
    return {};
}

QString ShotGlobalShortcuts::command(const QString& action, const QString& program)
{
    // Desktop keyboard settings split commands at spaces and honour quotes.
    const bool plain = !program.contains(u' ') && !program.contains(u'"');
    QString quoted = program;
    quoted.replace(u'"', QStringLiteral("\\\""));
    return (plain ? program : u'"' + quoted + u'"') + QStringLiteral(" capture ") + action;
}

QString ShotGlobalShortcuts::defaultShortcut(const QString& action)
{
    const auto mode = fromString<CaptureMode>(action);
    if (!mode) {
        return action == QLatin1String(recording) ? QStringLiteral("Ctrl+Alt+R") : QString();
    }
    switch (*mode) {
    case CaptureMode::fullscreen:
        return QStringLiteral("Print");
    case CaptureMode::area:
        return QStringLiteral("Shift+Print");
    case CaptureMode::window:
        return QStringLiteral("Alt+Print");
    case CaptureMode::scrolling:
        return QStringLiteral("Ctrl+Shift+Print");
    case CaptureMode::text:
    case CaptureMode::lastArea:
        return {}; // unbound until the user chooses a key
    }
    return {};
}

QString ShotGlobalShortcuts::key(const QString& action)
{
    return QStringLiteral("shot.shortcut.") + action;
}

QKeySequence ShotGlobalShortcuts::stored(const ShotPreferences& preferences, const QString& action)
{
    const QKeySequence fallback(defaultShortcut(action), QKeySequence::PortableText);
    const auto text = preferences.string(key(action));
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

QString ShotGlobalShortcuts::holderOf(const ShotPreferences& preferences, const QKeySequence& keys,
                                      const QString& action)
{
    for (const QString& other : actions()) {
        if (other != action && !keys.isEmpty() && stored(preferences, other) == keys) {
            return other;
        }
    }
    return {};
}

ShotGlobalShortcuts::ShotGlobalShortcuts(std::unique_ptr<GlobalShortcuts> shortcuts,
                                         ShotPreferences& preferences,
                                         std::function<void(const QString& action)> activate)
    : m_shortcuts(std::move(shortcuts)), m_preferences(preferences)
{
    if (!m_shortcuts) {
        m_problems << QCoreApplication::translate(
            "nubo::ShotGlobalShortcuts", "Global shortcuts are not available on this desktop.");
        return;
    }
    m_shortcuts->activated = std::move(activate);
    rebind();
}

void ShotGlobalShortcuts::rebind()
{
    if (!m_shortcuts) {
        return;
    }
    QList<GlobalShortcutBinding> bindings;
    for (const QString& action : actions()) {
        bindings.append({action, stored(m_preferences, action)});
    }
    m_problems = m_shortcuts->bind(bindings);
    m_bound.clear();
    m_problemOf.clear();
    for (const GlobalShortcutBinding& binding : std::as_const(bindings)) {
        const QString& mode = binding.id;
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
