#include "shell/ShotStatusMenu.h"

#include "style/ShotIcons.h"

#include <QProxyStyle>


namespace nubo {

namespace {

// The Recent submenu shows its thumbnails large enough to tell shots apart.
class ThumbnailMenuStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        return metric == PM_SmallIconSize ? 40 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

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
    m_recent.setTitle(QStringLiteral("Recent"));
    auto* style = new ThumbnailMenuStyle;
    style->setParent(&m_recent);
    m_recent.setStyle(style);
    m_recent.setIcon(ShotIcons::icon(QStringLiteral("document-open-recent")));
    m_menu.addMenu(&m_recent);
    connect(&m_menu, &QMenu::aboutToShow, this, &ShotStatusMenu::refreshRecent);
    refreshRecent();
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

QString ShotStatusMenu::recentLabel(const ShotRecentRecord& record, const QDateTime& now)
{
    QString what;
    if (record.mode) {
        what = *record.mode;
        if (!what.isEmpty()) {
            what[0] = what[0].toUpper();
        }
    } else {
        what = record.sourceApp.value_or(QStringLiteral("Copied image"));
    }
    const QDateTime local = record.date.toLocalTime();
    const QString when = local.date() == now.toLocalTime().date()
                             ? local.toString(QStringLiteral("HH:mm"))
                             : local.toString(QStringLiteral("d MMM, HH:mm"));
    return QStringLiteral("%1 \u00b7 %2").arg(what, when);
}

void ShotStatusMenu::refreshRecent()
{
    const bool shown = m_actions.recentEnabled && m_actions.recentEnabled();
    m_recent.menuAction()->setVisible(shown);
    m_recent.clear();
    if (!shown) {
        return;
    }
    const QList<ShotRecentEntry> entries =
        m_actions.recentItems ? m_actions.recentItems() : QList<ShotRecentEntry>();
    if (entries.isEmpty()) {
        m_recent.addAction(QStringLiteral("No recent images"))->setEnabled(false);
        return;
    }
    const QDateTime now = QDateTime::currentDateTime();
    for (const ShotRecentEntry& entry : entries) {
        QAction* item = m_recent.addAction(QIcon(QPixmap::fromImage(entry.thumbnail)),
                                           recentLabel(entry.record, now));
        item->setData(entry.record.id);
        connect(item, &QAction::triggered, this, [this, id = entry.record.id] {
            if (m_actions.openRecent) {
                m_actions.openRecent(id);
            }
        });
    }
    m_recent.addSeparator();
    QAction* clear = m_recent.addAction(QStringLiteral("Clear Recent"));
    connect(clear, &QAction::triggered, this, [this] {
        if (m_actions.clearRecent) {
            m_actions.clearRecent();
        }
    });
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
