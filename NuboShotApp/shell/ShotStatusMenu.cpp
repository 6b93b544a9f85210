#include "shell/ShotStatusMenu.h"

#include "shortcuts/ShotGlobalShortcuts.h"

#include "style/ShotIcons.h"

#include <QActionGroup>
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
    return ShotGlobalShortcuts::title(toString(mode));
}

ShotStatusMenu::ShotStatusMenu(Actions actions, QObject* parent)
    : QObject(parent), m_actions(std::move(actions))
{
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        const QString icon = mode == CaptureMode::area || mode == CaptureMode::lastArea
                                 ? QStringLiteral("nuboshot-capture-area")
                             : mode == CaptureMode::window ? QStringLiteral("nuboshot-capture-window")
                             : mode == CaptureMode::scrolling
                                 ? QStringLiteral("nuboshot-capture-scrolling")
                             : mode == CaptureMode::text ? QStringLiteral("nuboshot-capture-text")
                                                         : QStringLiteral("video-display");
        QAction* item = m_menu.addAction(ShotIcons::icon(icon), captureTitle(mode));
        item->setData(toString(mode));
        // Modes that need parts not built yet are shown but cannot be chosen.
        item->setEnabled(!m_actions.isOffered || m_actions.isOffered(mode));
        connect(item, &QAction::triggered, this, [this, mode] { m_actions.capture(mode); });
    }
    // The delay of the captures above: menus opened meanwhile are in the shot.
    m_delay.setTitle(tr("Delay"));
    m_delay.setObjectName(QStringLiteral("shot.delay"));
    m_delay.setIcon(ShotIcons::icon(QStringLiteral("nuboshot-timer")));
    auto* delays = new QActionGroup(&m_delay);
    for (const int seconds : {0, 3, 5, 10}) {
        QAction* item = m_delay.addAction(seconds == 0 ? tr("No Delay")
                                                       : tr("%n second(s)", nullptr, seconds));
        item->setCheckable(true);
        item->setData(seconds);
        delays->addAction(item);
        connect(item, &QAction::triggered, this, [this, seconds] {
            if (m_actions.setCaptureDelay) {
                m_actions.setCaptureDelay(seconds);
            }
        });
    }
    connect(&m_delay, &QMenu::aboutToShow, this, [this] {
        const int chosen = m_actions.captureDelay ? m_actions.captureDelay() : 0;
        for (QAction* item : m_delay.actions()) {
            item->setChecked(item->data().toInt() == chosen);
        }
    });
    m_menu.addMenu(&m_delay);
    m_cancelDelay = m_menu.addAction(ShotIcons::icon(QStringLiteral("window-close")), QString());
    connect(m_cancelDelay, &QAction::triggered, this, [this] {
        if (m_actions.cancelDelay) {
            m_actions.cancelDelay();
        }
    });
    refreshDelay();
    m_recordScreen =
        m_menu.addAction(ShotIcons::icon(QStringLiteral("media-record")), tr("Record Screen"));
    connect(m_recordScreen, &QAction::triggered, this, [this] {
        if (m_actions.recordScreen) {
            m_actions.recordScreen();
        }
    });
    m_recordWindow.setTitle(tr("Record Window"));
    m_recordWindow.setObjectName(QStringLiteral("shot.recordWindow"));
    m_recordWindow.setIcon(ShotIcons::icon(QStringLiteral("nuboshot-record-window")));
    m_menu.addMenu(&m_recordWindow);
    connect(&m_recordWindow, &QMenu::aboutToShow, this, &ShotStatusMenu::fillRecordWindow);
    // While a recording runs: how long, and what can be done with it.
    m_elapsed = m_menu.addAction(ShotIcons::icon(QStringLiteral("media-record")), QString());
    m_elapsed->setEnabled(false);
    m_pause = m_menu.addAction(QString());
    connect(m_pause, &QAction::triggered, this, [this] {
        const bool paused =
            m_actions.recordingState && m_actions.recordingState().is<RecordingState::Paused>();
        if (const auto& act = paused ? m_actions.resumeRecording : m_actions.pauseRecording) {
            act();
        }
    });
    m_stop = m_menu.addAction(ShotIcons::icon(QStringLiteral("media-playback-stop")),
                              tr("Stop Recording"));
    connect(m_stop, &QAction::triggered, this, [this] {
        if (m_actions.stopRecording) {
            m_actions.stopRecording();
        }
    });
    m_cancel =
        m_menu.addAction(ShotIcons::icon(QStringLiteral("window-close")), tr("Cancel Recording"));
    connect(m_cancel, &QAction::triggered, this, [this] {
        if (m_actions.cancelRecording) {
            m_actions.cancelRecording();
        }
    });
    m_clock.setInterval(250);
    connect(&m_clock, &QTimer::timeout, this, [this] {
        refreshRecording();
        refreshDelay();
    });
    connect(&m_menu, &QMenu::aboutToShow, this, [this] {
        refreshRecording();
        refreshDelay();
        m_clock.start();
    });
    connect(&m_menu, &QMenu::aboutToHide, &m_clock, &QTimer::stop);
    refreshRecording();
    m_menu.addSeparator();
    QAction* open = m_menu.addAction(ShotIcons::icon(QStringLiteral("document-open")),
                                     tr("Open Image in Nubo Shot…"));
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(open, &QAction::triggered, this, [this] { m_actions.openImage(); });
    m_recent.setTitle(tr("Recent"));
    auto* style = new ThumbnailMenuStyle;
    style->setParent(&m_recent);
    m_recent.setStyle(style);
    m_recent.setIcon(ShotIcons::icon(QStringLiteral("document-open-recent")));
    m_menu.addMenu(&m_recent);
    connect(&m_menu, &QMenu::aboutToShow, this, &ShotStatusMenu::refreshRecent);
    refreshRecent();
    m_pinned.setTitle(tr("Pinned"));
    m_pinned.setObjectName(QStringLiteral("shot.pinned"));
    auto* pinnedStyle = new ThumbnailMenuStyle;
    pinnedStyle->setParent(&m_pinned);
    m_pinned.setStyle(pinnedStyle);
    m_pinned.setIcon(ShotIcons::icon(QStringLiteral("nuboshot-pin")));
    m_menu.addMenu(&m_pinned);
    connect(&m_menu, &QMenu::aboutToShow, this, &ShotStatusMenu::refreshPinned);
    refreshPinned();
    if (m_actions.uploads) {
        QAction* uploads = m_menu.addAction(ShotIcons::icon(QStringLiteral("nuboshot-upload")),
                                            tr("Recent Uploads…"));
        connect(uploads, &QAction::triggered, this, [this] { m_actions.uploads(); });
    }
    m_menu.addSeparator();
    QAction* settings =
        m_menu.addAction(ShotIcons::icon(QStringLiteral("preferences-system")), tr("Settings…"));
    connect(settings, &QAction::triggered, this, [this] { m_actions.settings(); });
    m_menu.addSeparator();
    QAction* quit =
        m_menu.addAction(ShotIcons::icon(QStringLiteral("application-exit")), tr("Quit Nubo Shot"));
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
        what = record.sourceApp.value_or(tr("Copied image"));
    }
    const QDateTime local = record.date.toLocalTime();
    const QString when = local.date() == now.toLocalTime().date()
                             ? local.toString(QStringLiteral("HH:mm"))
                             : local.toString(tr("d MMM, HH:mm"));
    return QStringLiteral("%1 · %2").arg(what, when);
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
        m_recent.addAction(tr("No recent images"))->setEnabled(false);
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
    QAction* clear = m_recent.addAction(tr("Clear Recent"));
    connect(clear, &QAction::triggered, this, [this] {
        if (m_actions.clearRecent) {
            m_actions.clearRecent();
        }
    });
}

void ShotStatusMenu::refreshDelay()
{
    const int left = m_actions.delayLeft ? m_actions.delayLeft() : 0;
    m_cancelDelay->setVisible(left > 0);
    m_cancelDelay->setText(tr("Cancel Delayed Capture (%1 s)").arg(left));
}

void ShotStatusMenu::refreshPinned()
{
    const QList<PinnedItem> items =
        m_actions.pinnedItems ? m_actions.pinnedItems() : QList<PinnedItem>();
    m_pinned.menuAction()->setVisible(!items.isEmpty());
    m_pinned.clear();
    for (int i = 0; i < items.size(); ++i) {
        QAction* item = m_pinned.addAction(QIcon(QPixmap::fromImage(items[i].thumbnail)), items[i].label);
        connect(item, &QAction::triggered, this, [this, i] {
            if (m_actions.raisePin) {
                m_actions.raisePin(i);
            }
        });
    }
    m_pinned.addSeparator();
    QAction* close = m_pinned.addAction(ShotIcons::icon(QStringLiteral("window-close")),
                                        tr("Close All Pins"));
    connect(close, &QAction::triggered, this, [this] {
        if (m_actions.closePins) {
            m_actions.closePins();
        }
    });
}

QString ShotStatusMenu::windowLabel(const CapturableWindow& window)
{
    if (window.title.isEmpty() || window.applicationName.isEmpty() ||
        window.title == window.applicationName) {
        return window.title.isEmpty() ? window.applicationName : window.title;
    }
    return QStringLiteral("%1 — %2").arg(window.title, window.applicationName);
}

void ShotStatusMenu::fillRecordWindow()
{
    m_recordWindow.clear();
    const QList<CapturableWindow> windows =
        m_actions.recordableWindows ? m_actions.recordableWindows() : QList<CapturableWindow>();
    if (windows.isEmpty()) {
        m_recordWindow.addAction(tr("No windows to record"))->setEnabled(false);
        return;
    }
    for (const CapturableWindow& window : windows) {
        QString label = windowLabel(window);
        label.replace(QLatin1Char('&'), QStringLiteral("&&")); // not a mnemonic
        QAction* item = m_recordWindow.addAction(label);
        item->setData(window.id);
        connect(item, &QAction::triggered, this, [this, window] {
            if (m_actions.recordWindow) {
                m_actions.recordWindow(window);
            }
        });
    }
}

void ShotStatusMenu::refreshRecording()
{
    const RecordingState state =
        m_actions.recordingState ? m_actions.recordingState() : RecordingState{};
    const bool paused = state.is<RecordingState::Paused>();
    const bool running = paused || state.is<RecordingState::Recording>();
    const bool finishing = state.is<RecordingState::Finishing>();
    const bool offered = !m_actions.canRecord || m_actions.canRecord();
    m_recordScreen->setVisible(!running && !finishing);
    m_recordScreen->setEnabled(offered);
    m_recordWindow.menuAction()->setVisible(!running && !finishing);
    m_recordWindow.menuAction()->setEnabled(offered);
    m_elapsed->setVisible(running || finishing);
    m_pause->setVisible(running);
    m_stop->setVisible(running);
    m_cancel->setVisible(running);
    if (finishing) {
        m_elapsed->setText(tr("Saving the recording…"));
    } else if (running) {
        m_elapsed->setText(recordingElapsedText(*recordingElapsed(state)));
        m_elapsed->setIcon(ShotIcons::icon(paused ? QStringLiteral("media-playback-pause")
                                                  : QStringLiteral("media-record")));
        m_pause->setText(paused ? tr("Resume Recording") : tr("Pause Recording"));
        m_pause->setIcon(ShotIcons::icon(paused ? QStringLiteral("media-playback-start")
                                                : QStringLiteral("media-playback-pause")));
    }
}

void ShotStatusMenu::setRecordingShortcut(const QKeySequence& keys)
{
    m_recordScreen->setShortcut(keys);
    m_recordScreen->setShortcutContext(Qt::WidgetShortcut);
    m_recordScreen->setShortcutVisibleInContextMenu(true);
    m_stop->setShortcut(keys); // the same keys stop a recording
    m_stop->setShortcutContext(Qt::WidgetShortcut);
    m_stop->setShortcutVisibleInContextMenu(true);
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
