#include "shell/ShotStatusMenu.h"

#include "style/ShotIcons.h"


namespace nubo {

QString ShotStatusMenu::captureTitle(CaptureMode mode)
{
    switch (mode) {
    case CaptureMode::area:
        return QStringLiteral("Capture Area");
    case CaptureMode::window:
        return QStringLiteral("Capture Window");
    case CaptureMode::fullscreen:
        return QStringLiteral("Capture Fullscreen");
    case CaptureMode::scrolling:
        return QStringLiteral("Capture Scrolling");
    }
    return {};
}

ShotStatusMenu::ShotStatusMenu(Actions actions, QObject* parent)
    : QObject(parent), m_actions(std::move(actions))
{
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        const QString icon = mode == CaptureMode::area     ? QStringLiteral("nuboshot-capture-area")
                             : mode == CaptureMode::window ? QStringLiteral("nuboshot-capture-window")
                             : mode == CaptureMode::scrolling
                                 ? QStringLiteral("nuboshot-capture-scrolling")
                                 : QStringLiteral("video-display");
        QAction* item = m_menu.addAction(ShotIcons::icon(icon), captureTitle(mode));
        item->setData(toString(mode));
        // Modes that need parts not built yet are shown but cannot be chosen.
        item->setEnabled(!m_actions.isOffered || m_actions.isOffered(mode));
        connect(item, &QAction::triggered, this, [this, mode] { m_actions.capture(mode); });
    }
    m_menu.addSeparator();
    QAction* open = m_menu.addAction(ShotIcons::icon(QStringLiteral("document-open")),
                                     QStringLiteral("Open Image in Nubo Shot\u2026"));
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(open, &QAction::triggered, this, [this] { m_actions.openImage(); });
    m_menu.addSeparator();
    QAction* settings = m_menu.addAction(ShotIcons::icon(QStringLiteral("preferences-system")),
                                         QStringLiteral("Settings\u2026"));
    connect(settings, &QAction::triggered, this, [this] { m_actions.settings(); });
    m_menu.addSeparator();
    QAction* quit = m_menu.addAction(ShotIcons::icon(QStringLiteral("application-exit")),
                                     QStringLiteral("Quit Nubo Shot"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, [this] { m_actions.quit(); });
}

QAction* ShotStatusMenu::captureItem(CaptureMode mode) const
{
    for (QAction* action : m_menu.actions()) {
        if (action->data().toString() == toString(mode)) {
            return action;
        }
    }
    return nullptr;
}

void ShotStatusMenu::setCaptureShortcut(CaptureMode mode, const QKeySequence& keys)
{
    if (QAction* item = captureItem(mode)) {
        // Shown in the menu; the keys themselves are the desktop-wide grab's.
        item->setShortcut(keys);
        item->setShortcutContext(Qt::WidgetShortcut);
        item->setShortcutVisibleInContextMenu(true);
    }
}

} // namespace nubo
